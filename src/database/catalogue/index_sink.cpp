#include "database/catalogue/index_sink.h"

namespace morvex {

void IndexSink::Stretch(std::span<const uint8_t> bytes) {
  size_ += bytes.size();
  if (!stretch_.empty() && stretch_.data() + stretch_.size() == bytes.data()) {
    stretch_ = {stretch_.data(), stretch_.size() + bytes.size()};
    return;
  }
  EndStretch();
  stretch_ = bytes;
}

void IndexSink::Copy(std::string_view bytes) {
  Copy(std::span(reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size()));
}

void IndexSink::Copy(std::span<const uint8_t> bytes) {
  size_ += bytes.size();
  EndStretch();
  Gather(bytes);
}

bool IndexSink::Finish() {
  EndStretch();
  FlushBuffer();
  return !failed_;
}

void IndexSink::EndStretch() {
  Gather(stretch_);
  stretch_ = {};
}

void IndexSink::Gather(std::span<const uint8_t> bytes) {
  if (bytes.size() >= kLargePiece) {
    FlushBuffer();
    Put(bytes);
    return;
  }
  if (buffer_.size() + bytes.size() > kBufferSize) FlushBuffer();
  buffer_.insert(buffer_.end(), bytes.begin(), bytes.end());
}

void IndexSink::FlushBuffer() {
  Put(buffer_);
  buffer_.clear();
}

void IndexSink::Put(std::span<const uint8_t> bytes) {
  if (failed_ || bytes.empty()) return;
  failed_ = file_.Write(bytes.data(), bytes.size()) != bytes.size();
}

}  // namespace morvex
