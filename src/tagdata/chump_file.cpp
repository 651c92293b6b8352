#include "tagdata/chump_file.h"

#include <utility>
#include <vector>

#include "tagdata/binary_file.h"
#include "tagdata/chunk_writer.h"
#include "tagdata/repeat_guard.h"
#include "tagdata/tag_container.h"

namespace morvex {
namespace {

ChunkWriter WriterOf(const TagContainer& container) {
  ChunkWriter writer;
  if (container.Chunk() != nullptr) AppendChildren(writer, *container.Chunk());
  return writer;
}

TagContainer RootOf(TDBBinaryFile& file) {
  ChunkRef root = file.GetRoot();
  return root->GetKind() == ChunkKind::kNull ? TagContainer() : TagContainer(std::move(root));
}

}  // namespace

void AppendChildren(ChunkWriter& writer, const ACSChunk& soup) {
  struct Level {
    Nox::Ref<const ACSChunk> soup;
    uint32_t next = 0;
    bool repeated = false;
    MetNames met = {};
  };
  RepeatGuard guard;
  std::vector<Level> levels;
  levels.push_back({Nox::Ref<const ACSChunk>(&soup)});
  while (true) {
    Level& level = levels.back();
    if (level.next >= level.soup->GetChildCount()) {
      levels.pop_back();
      if (levels.empty()) return;
      writer.EndContainer();
      continue;
    }
    const Nox::PString name = level.soup->GetChildName(level.next++);
    const ChunkRef child = level.soup->GetChunk(name);
    if (child->GetKind() != ChunkKind::kContainer) {
      writer.Leaf(name, *child);
      continue;
    }
    if (levels.size() > kMaxSoupDepth) continue;
    const bool repeated = !level.met.Add(name) || level.repeated;
    if (!guard.MayEnter(*child, repeated)) continue;
    writer.BeginContainer(name);
    levels.push_back({child, 0, repeated});
  }
}

bool WriteChumpFile(const TagContainer& container, TStream& stream) {
  return WriterOf(container).WriteFile(stream);
}

std::string ChumpImage(const TagContainer& container) {
  return WriterOf(container).FileImage();
}

TagContainer ReadChumpFile(TStream& stream) {
  const auto file = Nox::MakeRef<TDBBinaryFile>();
  file->Read(stream);
  return RootOf(*file);
}

TagContainer ReadChumpImage(const Raw& image) {
  const auto file = Nox::MakeRef<TDBBinaryFile>();
  file->ReadImage(image);
  return RootOf(*file);
}

}  // namespace morvex
