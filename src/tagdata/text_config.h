#pragma once

#include <string>
#include <string_view>

namespace morvex {

class TagContainer;
class TStream;

// The text form of soups, "config.txt". docs/text-config.md draws it.

// Reads tags until the soup or the stream ends; whatever the bytes are, the result is a soup. Strings are
// taken as UTF-8 if `isUtf8` is set or a byte order mark leads, else converted from the system code page.
// The stream is left behind what was read. What is nested below kMaxSoupDepth is read over and dropped.
void ParseSoup(TagContainer& container, TStream& stream, bool isUtf8);
// The same of a text in memory. Returns the bytes that were read.
size_t ParseSoupText(TagContainer& container, std::string_view text, bool isUtf8);

// Writes the canonical form; an empty handle writes nothing. False if the stream took less than all of it.
bool WriteSoup(const TagContainer& container, TStream& stream);
// The same into memory.
std::string SoupText(const TagContainer& container);

}  // namespace morvex
