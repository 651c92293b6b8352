#include "net/station/gzip_lines.h"

#include <zlib.h>

#include <algorithm>

namespace morvex {

struct GzipLines::File {
  explicit File(const std::string& path) : handle(gzopen(path.c_str(), "rb")) {}
  ~File() {
    if (handle != nullptr) gzclose(handle);
  }
  File(const File&) = delete;
  File& operator=(const File&) = delete;

  gzFile handle;
};

GzipLines::GzipLines(const std::string& path)
    : path_(path), file_(std::make_unique<File>(path)), block_(std::make_unique<char[]>(kBlockSize)) {
  if (file_->handle == nullptr) fault_ = "the file can't be opened";
}

GzipLines::~GzipLines() = default;

bool GzipLines::Next(std::string_view& line) {
  begun_.clear();
  while (true) {
    const std::size_t end = rest_.find('\n');
    if (end != rest_.npos) {
      line = rest_.substr(0, end);
      rest_.remove_prefix(end + 1);
      if (!begun_.empty()) {
        Keep(line);
        line = begun_;
      }
      if (line.ends_with('\r')) line.remove_suffix(1);
      return true;
    }
    Keep(rest_);
    rest_ = {};
    if (!ReadBlock()) break;
  }
  line = begun_;
  return fault_.empty() && !begun_.empty();
}

void GzipLines::Keep(std::string_view piece) {
  begun_.append(piece.substr(0, kMaxLine - begun_.size()));
}

bool GzipLines::ReadBlock() {
  if (file_->handle == nullptr || !fault_.empty()) return false;
  const int got = gzread(file_->handle, block_.get(), kBlockSize);
  int error = Z_OK;
  std::string_view message = gzerror(file_->handle, &error);
  if (message.starts_with(path_ + ": ")) message.remove_prefix(path_.size() + 2);
  if (error != Z_OK && error != Z_STREAM_END) fault_ = message.empty() ? "the file is damaged" : message;
  if (got <= 0) return false;
  rest_ = {block_.get(), static_cast<std::size_t>(got)};
  bytesRead_ += static_cast<std::uint64_t>(got);
  return true;
}

}  // namespace morvex
