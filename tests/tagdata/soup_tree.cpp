#include "tests/tagdata/soup_tree.h"

#include "engine/format.h"
#include "tagdata/tag_value.h"
#include "tagdata/text_config.h"

using namespace morvex;

namespace {

std::string Value(const ACSChunk& tag) {
  const std::string text(TagValue(tag, ChunkKind::kString).Text());
  switch (tag.GetKind()) {
    case ChunkKind::kNull:
      return "";
    case ChunkKind::kContainer:
      return "{" + Tree(TagContainer(ChunkRef(const_cast<ACSChunk*>(&tag)))) + "}";
    case ChunkKind::kFloat:
      return "=f" + text;
    case ChunkKind::kString:
      return "=\"" + text + "\"";
    case ChunkKind::kBinary: {
      std::string hex = "=#";
      for (const char c : RawBytes(tag.GetRawData()))
        hex += Nox::FormatText("%02X", static_cast<unsigned char>(c));
      return hex;
    }
    default:
      return "=" + text;
  }
}

}  // namespace

std::string Tree(const TagContainer& soup) {
  std::string line;
  for (uint32_t i = 0; i < soup.GetCount(); ++i) {
    const Nox::PString name = soup.GetName(i);
    if (i != 0) line += ' ';
    line += name.Text() + Value(*soup.Chunk()->GetChunk(name));
  }
  return line;
}

TagContainer FromText(std::string_view text) {
  TagContainer soup;
  ParseSoupText(soup, text, true);
  return soup;
}
