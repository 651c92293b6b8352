#pragma once

#include <memory>
#include <utility>

#include "net/transfer/idle_pool.h"
#include "net/transfer/transfer_control.h"

namespace morvex {

// The connection that a transfer works with, which a Cancel from another thread closes as long as it stands here.
// What takes a connection drops the one before, and answers with nothing if the download was cancelled.
template <typename Connection>
class ConnectionInUse {
 public:
  explicit ConnectionInUse(TransferControl& control) : control_(control) {}
  ~ConnectionInUse() { Release(); }
  ConnectionInUse(const ConnectionInUse&) = delete;
  ConnectionInUse& operator=(const ConnectionInUse&) = delete;

  [[nodiscard]] bool Use(std::unique_ptr<Connection> connection) {
    Release();
    if (!control_.Attach(*connection)) return false;
    connection_ = std::move(connection);
    return true;
  }
  // A fresh connection over a new transport, which has yet to connect: a Cancel ends that, too.
  template <typename Transport>
  [[nodiscard]] Transport* UseOver(std::unique_ptr<Connection> connection) {
    auto made = std::make_unique<Transport>();
    Transport* const transport = made.get();
    connection->SetTransport(std::move(made));
    return Use(std::move(connection)) ? transport : nullptr;
  }
  // One of the idle ones that still lives; false if there is none as well.
  [[nodiscard]] bool UseIdle(IdlePool<Connection>& pool, const ServerLogin& server) {
    while (std::unique_ptr<Connection> idle = pool.Take(server)) {
      if (!Use(std::move(idle))) return false;
      connection_->Probe();
      if (!connection_->ClosesAfterResponse()) return true;
    }
    return false;
  }
  std::unique_ptr<Connection> Release() {
    if (connection_ != nullptr) control_.Detach();
    return std::move(connection_);
  }

  Connection& operator*() const { return *connection_; }
  Connection* operator->() const { return connection_.get(); }

 private:
  TransferControl& control_;
  std::unique_ptr<Connection> connection_;
};

}  // namespace morvex
