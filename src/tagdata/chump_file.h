#pragma once

#include <string>

#include "tagdata/raw.h"

namespace morvex {

class ACSChunk;
class ChunkWriter;
class TagContainer;
class TStream;

// Soups to and from the binary form; chunk_format.h draws it.

// Writes a soup of any make as a file at the stream's position. Children of one name write the first one's
// value; a tag with a name over 254 bytes is left out, and so is what lies below kMaxSoupDepth. An empty
// handle writes an empty body. False if the soup is too big for the format or the stream too full for it.
[[nodiscard]] bool WriteChumpFile(const TagContainer& container, TStream& stream);
// The same into memory; empty if it is too big.
std::string ChumpImage(const TagContainer& container);

// Reads a file at the stream's position, and leaves the stream behind it. A damaged one gives an empty handle.
TagContainer ReadChumpFile(TStream& stream);
// Reads an image of a file where it lies. The soup keeps it alive.
TagContainer ReadChumpImage(const Raw& image);

// Appends the children of a soup.
void AppendChildren(ChunkWriter& writer, const ACSChunk& soup);

}  // namespace morvex
