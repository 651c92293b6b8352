// What a web server says, in pieces of any size: two answers on one connection. The first byte tells how it is cut.

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "../tests/net/memory_transport.h"
#include "../tests/scratch_folder.h"
#include "net/transfer/http_connection.h"

namespace {

void ReadAnswer(morvex::HTTPConnection& connection, const std::string& path) {
  connection.SendGet(nullptr, "/x");
  if (!connection.ReadResponseHeaders()) return;
  if (connection.Status() != morvex::HTTPStatus::kSuccess &&
      connection.Status() != morvex::HTTPStatus::kRedirect)
    std::abort();
  const bool whole = connection.ReadBody(path);
  if (std::filesystem::file_size(path) != connection.BytesReceived()) std::abort();
  if (!whole) return;
  if (connection.ErrorCode() != morvex::NetError::kNone || connection.BytesReceived() == 0) std::abort();
  const bool announced = connection.TransferEncoding().empty() && connection.BytesExpected() > 0;
  if (announced && connection.BytesReceived() != connection.BytesExpected()) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const ScratchFolder scratch;
  if (size == 0) return 0;
  const std::string_view input(reinterpret_cast<const char*>(data) + 1, size - 1);
  auto transport = std::make_unique<MemoryTransport>(input, nullptr, data[0] % 100 + 1);
  if (data[0] >= 128) transport->FailAtEnd();
  morvex::HTTPConnection connection;
  connection.SetTransport(std::move(transport));
  connection.SetHost("h");
  ReadAnswer(connection, scratch / "first");
  connection.Probe();
  ReadAnswer(connection, scratch / "second");
  return 0;
}
