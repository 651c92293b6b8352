#include "tagdata/stream.h"

namespace morvex {

void TStream::WriteString(std::string_view text, bool withLength) {
  if (!withLength) {
    Write(text.data(), text.size());
    return;
  }
  const size_t count = text.size() + 1;
  if (count > kMaxStringCount) {
    WriteU32(0);
    return;
  }
  WriteU32(static_cast<uint32_t>(count));
  Write(text.data(), text.size());
  WriteByte(0);
}

void TStream::WritePString(Nox::PString text, bool withLength) {
  if (text.Empty() && withLength) {
    WriteU32(0);
  } else {
    WriteString(text, withLength);
  }
}

void TStream::ReadString(std::string& text) {
  text.clear();
  const uint32_t count = ReadU32();
  if (count > kMaxStringCount) {
    Skip(count);
    return;
  }
  text.resize(count);
  text.resize(Read(text.data(), count));
  text.resize(text.find('\0') == std::string::npos ? text.size() : text.find('\0'));
}

void TStream::ReadPString(Nox::PString& text) {
  std::string characters;
  ReadString(characters);
  text = Nox::PString(characters);
}

}  // namespace morvex
