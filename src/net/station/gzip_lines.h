#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace morvex {

// Reads a gzip file, or a plain one, line by line. Holds one block and the beginning of a line; a line above
// kMaxLine bytes is cut.
class GzipLines {
 public:
  static constexpr std::size_t kMaxLine = 65536;

  explicit GzipLines(const std::string& path);
  ~GzipLines();
  GzipLines(const GzipLines&) = delete;
  GzipLines& operator=(const GzipLines&) = delete;

  // The next line without its end; valid until the next call. False at the end, and where the file is damaged: a
  // line that breaks off there isn't given.
  [[nodiscard]] bool Next(std::string_view& line);

  // What the library says about the file, empty if nothing.
  [[nodiscard]] const std::string& Fault() const { return fault_; }
  // Bytes of plain text so far.
  [[nodiscard]] std::uint64_t BytesRead() const { return bytesRead_; }

 private:
  struct File;
  static constexpr std::size_t kBlockSize = 16384;

  bool ReadBlock();
  void Keep(std::string_view piece);

  const std::string path_;
  std::unique_ptr<File> file_;
  std::unique_ptr<char[]> block_;
  std::string_view rest_;  // of the block
  std::string begun_;      // the line so far, from earlier blocks
  std::string fault_;
  std::uint64_t bytesRead_ = 0;
};

}  // namespace morvex
