#include "tagdata/file_stream.h"

namespace morvex {

void TFile::EnsureFile() {
  if (file_ != nullptr) return;
  owned_ = std::make_unique<Nox::File>();
  file_ = owned_.get();
}

bool TFile::Open(Nox::LocationView location, Nox::OpenMode mode) {
  Close();
  EnsureFile();
  location_ = location.Copy();
  return file_->Open(location, mode);
}

bool TFile::Close() {
  bool closed = true;
  if (owned_ != nullptr) {
    closed = owned_->Close();
  } else if (IsOpen() && bufferedBytes != 0) {
    file_->Seek(-static_cast<int64_t>(bufferedBytes), Nox::SeekOrigin::kCurrent);
  }
  owned_.reset();
  file_ = nullptr;
  DropReadAhead();
  return closed;
}

void TFile::Truncate() {
  if (!IsOpen()) return;
  DropReadAhead();
  const bool emptied = owned_ != nullptr ? owned_->Open(location_, Nox::OpenMode::kCreate)
                                         : file_->Truncate(0) && file_->Seek(0);
  if (!emptied) MarkWriteFailed();
}

int64_t TFile::Position() {
  return IsOpen() ? static_cast<int64_t>(file_->Tell()) - static_cast<int64_t>(bufferedBytes) : 0;
}

size_t TFile::WriteRaw(const void* data, size_t count) {
  return IsOpen() ? file_->Write(data, count) : 0;
}

size_t TFile::ReadRaw(void* data, size_t count) {
  return IsOpen() ? file_->Read(data, count) : 0;
}

void TFile::SeekRaw(int64_t offset, Origin origin) {
  if (!IsOpen()) return;
  if (origin == kFromCurrent) offset -= bufferedBytes;
  file_->Seek(offset, static_cast<Nox::SeekOrigin>(origin));
}

bool TFile::AtEnd() {
  if (file_ == nullptr) return true;
  return bufferedBytes == 0 && file_->Eof();
}

}  // namespace morvex
