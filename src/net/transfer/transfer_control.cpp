#include "net/transfer/transfer_control.h"

#include "net/transfer/net_connection.h"

namespace morvex {

void TransferControl::Cancel() {
  const std::lock_guard guard(lock_);
  stop_.request_stop();
  if (connection_ != nullptr) connection_->Close();
}

std::uint64_t TransferControl::BytesReceived() const {
  const std::lock_guard guard(lock_);
  return connection_ != nullptr ? connection_->BytesReceived() : received_;
}

std::uint64_t TransferControl::BytesExpected() const {
  const std::lock_guard guard(lock_);
  return connection_ != nullptr ? connection_->BytesExpected() : expected_;
}

std::uint64_t TransferControl::BytesSent() const {
  const std::lock_guard guard(lock_);
  return connection_ != nullptr ? connection_->BytesSent() : sent_;
}

bool TransferControl::Attach(NetConnection& connection) {
  const std::lock_guard guard(lock_);
  if (IsCancelled()) return false;
  connection_ = &connection;
  return true;
}

void TransferControl::Detach() {
  const std::lock_guard guard(lock_);
  if (connection_ == nullptr) return;
  received_ = connection_->BytesReceived();
  expected_ = connection_->BytesExpected();
  sent_ = connection_->BytesSent();
  connection_ = nullptr;
}

}  // namespace morvex
