#pragma once

#include <memory>

#include "engine/file.h"
#include "tagdata/stream.h"

namespace morvex {

// A stream over a file of the engine: one it opened itself and closes, or one that is lent to it. The owner
// of a lent file finds it, after Close, at the position up to which the stream was consumed.
class TFile final : public TStream {
 public:
  TFile() = default;
  // The file must outlive the stream or its Close.
  explicit TFile(Nox::File& lent) : file_(&lent) {}
  ~TFile() override { Close(); }

  // Closes what was there before.
  [[nodiscard]] bool Open(Nox::LocationView location, Nox::OpenMode mode);
  // False if an own file reports only now that something couldn't be written.
  bool Close();

  // Makes the same file anew, or empties a lent one.
  void Truncate() override;
  int64_t Position() override;
  bool IsOpen() override { return file_ != nullptr && file_->IsOpen(); }
  size_t WriteRaw(const void* data, size_t count) override;
  size_t ReadRaw(void* data, size_t count) override;
  void SeekRaw(int64_t offset, Origin origin) override;
  bool AtEnd() override;

 private:
  void EnsureFile();

  std::unique_ptr<Nox::File> owned_;
  Nox::File* file_ = nullptr;  // owned_ or a lent one
  Nox::Location location_;     // of an own file
};

}  // namespace morvex
