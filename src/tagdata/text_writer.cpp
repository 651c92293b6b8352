#include <algorithm>
#include <vector>

#include "engine/text.h"
#include "tagdata/acs_chunk.h"
#include "tagdata/soup_walk.h"
#include "tagdata/stream.h"
#include "tagdata/tag_container.h"
#include "tagdata/tag_value.h"
#include "tagdata/text_config.h"

namespace morvex {
namespace {

constexpr std::string_view kHead = "\xEF\xBB\xBF\r\n";
constexpr size_t kMaxKey = 1024;
constexpr int kValueColumn = 7;  // in tabs of 8

void WriteKey(std::string& out, std::string_view name) {
  for (const char c : name.substr(0, kMaxKey)) {
    const auto byte = static_cast<unsigned char>(c);
    out += byte < 33 || byte > 127 ? '_' : Nox::ToLower(c);
  }
}

bool NeedsQuotes(ChunkKind kind, std::string_view text) {
  if (kind != ChunkKind::kFloat && kind != ChunkKind::kInt && kind != ChunkKind::kKuid) return true;
  return text.find_first_of("\r\n \t") != std::string_view::npos;
}

void WriteLeaf(std::string& out, Nox::PString name, const ACSChunk& leaf, int depth) {
  const TagValue value(leaf, ChunkKind::kString);
  const std::string_view text = value.Text();
  const int tabs = kValueColumn - static_cast<int>(name.Length() / 8) - depth;
  // A value never touches its key, which would make one word of them.
  out.append(static_cast<size_t>(std::max(tabs, text.empty() ? 0 : 1)), '\t');
  if (text.empty()) return;
  const bool quoted = NeedsQuotes(leaf.GetKind(), text);
  if (quoted) out += '"';
  const size_t start = out.size();
  out += text;
  std::replace(out.begin() + static_cast<ptrdiff_t>(start), out.end(), '"', '\'');
  if (quoted) out += '"';
}

void WriteChildren(std::string& out, const ACSChunk& root) {
  SoupWalk walk(root, kMaxSoupDepth);
  while (walk.Next()) {
    const size_t depth = walk.Depth();
    out.append(depth, '\t');
    if (walk.What() == SoupWalk::Event::kLeave) {
      out += "}\r\n";
      continue;
    }
    WriteKey(out, walk.Name());
    if (walk.What() == SoupWalk::Event::kEnter) {
      out += " {\r\n";
    } else {
      WriteLeaf(out, walk.Name(), *walk.Chunk(), static_cast<int>(depth));
      out += "\r\n";
    }
  }
}

}  // namespace

std::string SoupText(const TagContainer& container) {
  std::string out;
  if (container.IsEmpty()) return out;
  out = kHead;
  WriteChildren(out, *container.Chunk());
  return out;
}

bool WriteSoup(const TagContainer& container, TStream& stream) {
  const std::string text = SoupText(container);
  return stream.Write(text.data(), text.size()) == text.size();
}

}  // namespace morvex
