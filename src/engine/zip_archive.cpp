#include "engine/zip_archive.h"

#include <algorithm>
#include <mutex>
#include <unordered_map>

#include "engine/find.h"
#include "engine/path.h"
#include "engine/text.h"
#include "engine/zip_library.h"

namespace Nox {

struct ZipArchive::Handle {
  Handle(const ZipLibrary& library, zip_t* file) : zip(library), archive(file) {}
  ~Handle() { zip.discard(archive); }
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;

  const ZipLibrary& zip;
  zip_t* const archive;
  std::mutex mutex;  // the library takes one thread at a time for an archive
};

namespace {

// Collects the names of an archive into a tree; the first of two equal names stays.
class TreeBuilder {
 public:
  explicit TreeBuilder(std::vector<ZipArchive::Node>& nodes) : nodes_(nodes) { nodes_.emplace_back(); }

  void Add(std::string_view name, std::uint64_t entry, std::uint64_t size) {
    if (name.size() > Path::kMaxPath || Path::IsAbsolute(name)) return;
    const bool isFolder = !name.empty() && Path::IsSeparator(name.back());
    const std::string path = Path::Normalize(name);
    if (path == "." || path == ".." || path.starts_with("../")) return;
    std::uint32_t folder = 0;
    for (std::size_t slash = path.find('/'); slash != std::string::npos; slash = path.find('/', slash + 1)) {
      folder = Child(folder, path.substr(0, slash), true);
      if (!nodes_[folder].isFolder) return;  // below a file
    }
    const std::size_t known = nodes_.size();
    const std::uint32_t node = Child(folder, path, isFolder);
    if (nodes_.size() == known || isFolder) return;
    nodes_[node].entry = entry;
    nodes_[node].size = size;
  }

  void Sort() {
    for (ZipArchive::Node& node : nodes_) {
      std::sort(node.children.begin(), node.children.end(), [this](std::uint32_t a, std::uint32_t b) {
        return FindOrderLess(nodes_[a].name, nodes_[b].name);
      });
    }
  }

 private:
  std::uint32_t Child(std::uint32_t folder, const std::string& path, bool isFolder) {
    const auto [place, isNew] = byPath_.try_emplace(path, static_cast<std::uint32_t>(nodes_.size()));
    if (isNew) {
      nodes_[folder].children.push_back(place->second);
      nodes_.push_back({.name = std::string(Path::GetFileName(path)), .isFolder = isFolder, .children = {}});
    }
    return place->second;
  }

  std::vector<ZipArchive::Node>& nodes_;
  std::unordered_map<std::string, std::uint32_t> byPath_;
};

}  // namespace

ZipArchive::ZipArchive(std::unique_ptr<Handle> handle) : handle_(std::move(handle)) {}

ZipArchive::~ZipArchive() = default;

std::shared_ptr<const ZipArchive> ZipArchive::Open(const std::string& hostPath) {
  const ZipLibrary* zip = ZipLibrary::Get();
  if (zip == nullptr) return nullptr;
  zip_t* file = zip->open(hostPath.c_str(), ZIP_RDONLY, nullptr);
  if (file == nullptr) return nullptr;
  std::shared_ptr<ZipArchive> archive(new ZipArchive(std::make_unique<Handle>(*zip, file)));
  archive->Index();
  return archive;
}

void ZipArchive::Index() {
  TreeBuilder tree(nodes_);
  const zip_int64_t count = handle_->zip.entryCount(handle_->archive, 0);
  for (zip_int64_t i = 0; i < count; ++i) {
    zip_stat_t info;
    const auto entry = static_cast<zip_uint64_t>(i);
    if (handle_->zip.stat(handle_->archive, entry, ZIP_FL_ENC_RAW, &info) != 0) continue;
    if ((info.valid & ZIP_STAT_NAME) == 0) continue;
    tree.Add(info.name, entry, (info.valid & ZIP_STAT_SIZE) != 0 ? info.size : 0);
  }
  tree.Sort();
}

const ZipArchive::Node* ZipArchive::Find(std::string_view path) const {
  const Node* node = &nodes_[0];
  const std::string clean = Path::Normalize(path);
  std::string_view rest = clean == "." ? std::string_view() : std::string_view(clean);
  if (rest.starts_with(Path::kSeparator)) rest.remove_prefix(1);
  while (!rest.empty()) {
    const std::string_view name = rest.substr(0, rest.find(Path::kSeparator));
    rest.remove_prefix(std::min(name.size() + 1, rest.size()));
    auto match = std::lower_bound(node->children.begin(), node->children.end(), name,
                                  [this](std::uint32_t child, std::string_view n) {
                                    return CompareIgnoreCase(nodes_[child].name, n) < 0;
                                  });
    const Node* found = nullptr;
    for (; match != node->children.end() && EqualsIgnoreCase(nodes_[*match].name, name); ++match) {
      if (found == nullptr || nodes_[*match].name == name) found = &nodes_[*match];
    }
    if (found == nullptr) return nullptr;
    node = found;
  }
  return node;
}

std::optional<OwnedBytes> ZipArchive::Read(const Node& file, std::size_t limit) const {
  if (file.isFolder || file.size > limit) return std::nullopt;
  const std::lock_guard lock(handle_->mutex);
  const ZipLibrary& zip = handle_->zip;
  zip_file_t* entry = zip.openEntry(handle_->archive, file.entry, 0);
  if (entry == nullptr) return std::nullopt;

  // The size that the archive claims isn't trusted with memory: the block grows with what really comes.
  constexpr std::size_t kStep = 1 << 20;
  std::vector<std::uint8_t> bytes;
  zip_int64_t got = 0;
  do {
    const std::size_t filled = bytes.size();
    bytes.resize(filled +
                 std::min<std::size_t>(kStep, file.size - std::min<std::size_t>(file.size, filled) + 1));
    got = zip.read(entry, bytes.data() + filled, bytes.size() - filled);
    bytes.resize(filled + static_cast<std::size_t>(std::max<zip_int64_t>(got, 0)));
  } while (got > 0 && bytes.size() <= limit);
  const bool closed = zip.closeEntry(entry) == 0;
  if (got != 0 || !closed) return std::nullopt;
  return OwnedBytes::Adopt(std::move(bytes));
}

}  // namespace Nox
