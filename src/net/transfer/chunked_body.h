#pragma once

namespace morvex {

class BodyFile;
class InputBuffer;

// A chunked body is a list of chunks and, behind it, lines that nobody needs up to an empty one:
//
//   CR, LF   any number, left over from the chunk before
//   size     1 to 16 hexadecimal digits
//   ...      an extension, passed over
//   CR LF
//   data     as many bytes as the size says; a size of 0 ends the list
//
// Takes the list into the file. False if it is cut or malformed.
[[nodiscard]] bool ReadChunks(InputBuffer& input, BodyFile& file);

}  // namespace morvex
