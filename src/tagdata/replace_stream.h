#pragma once

#include "engine/replace_file.h"
#include "tagdata/stream.h"

namespace morvex {

// A stream that writes a file anew, which gets its name when it is whole. Nothing can be read from it; what was
// written can be overwritten, but not cut off.
class ReplaceStream final : public TStream {
 public:
  // False if the file can't be made.
  [[nodiscard]] bool Open(Nox::LocationView target) { return open_ = file_.Open(target); }
  // Puts the file in place of the old one. False, with the old one as it was, if anything couldn't be written.
  [[nodiscard]] bool Commit() { return open_ && !WriteFailed() && file_.Commit(true); }

  void Truncate() override { MarkWriteFailed(); }
  int64_t Position() override { return position_; }
  bool IsOpen() override { return open_; }
  size_t WriteRaw(const void* data, size_t count) override;
  size_t ReadRaw(void*, size_t) override { return 0; }
  void SeekRaw(int64_t offset, Origin origin) override;
  bool AtEnd() override { return position_ == Length(); }

 private:
  int64_t Length() const { return static_cast<int64_t>(file_.Written()); }

  Nox::ReplaceFile file_;
  bool open_ = false;
  int64_t position_ = 0;
};

}  // namespace morvex
