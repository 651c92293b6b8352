#pragma once

#include <string>
#include <string_view>

#include "engine/format.h"
#include "tagdata/tag_container.h"
#include "tagdata/tag_value.h"
#include "tagdata/text_config.h"

// A whole soup on one line, for comparing: a null tag is its name; then a=5, a=f1.5,2, a="text",
// a=<kuid:1:2>, a=#0A0B (binary), and n{...} for a container. Tags are separated by blanks. Not for deep ones.
inline std::string Tree(const morvex::TagContainer& soup) {
  using morvex::ChunkKind;
  std::string line;
  for (uint32_t i = 0; i < soup.GetCount(); ++i) {
    const Nox::PString name = soup.GetName(i);
    const morvex::ChunkRef tag = soup.Chunk()->GetChunk(name);
    const std::string text(morvex::TagValue(*tag, ChunkKind::kString).Text());
    line += (i != 0 ? " " : "") + name.Text();
    switch (tag->GetKind()) {
      case ChunkKind::kNull:
        break;
      case ChunkKind::kContainer:
        line += "{" + Tree(morvex::TagContainer(tag)) + "}";
        break;
      case ChunkKind::kFloat:
        line += "=f" + text;
        break;
      case ChunkKind::kString:
        line += "=\"" + text + "\"";
        break;
      case ChunkKind::kBinary:
        line += "=#";
        for (const char c : morvex::RawBytes(tag->GetRawData()))
          line += Nox::FormatText("%02X", static_cast<unsigned char>(c));
        break;
      default:
        line += "=" + text;
    }
  }
  return line;
}

// The soup of a config text in UTF-8.
inline morvex::TagContainer FromText(std::string_view text) {
  morvex::TagContainer soup;
  morvex::ParseSoupText(soup, text, true);
  return soup;
}
