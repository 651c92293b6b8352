// What an FTP server says, in pieces of any size, to a login and to a fetch. The first byte tells how it is cut, and
// what the data connection gives.

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "../tests/net/memory_transport.h"
#include "../tests/scratch_folder.h"
#include "net/transfer/ftp_connection.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const ScratchFolder scratch;
  if (size == 0) return 0;
  const std::uint8_t kind = data[0];
  const std::string_view input(reinterpret_cast<const char*>(data) + 1, size - 1);
  std::string commands;
  auto transport = std::make_unique<MemoryTransport>(input, &commands, kind % 10 + 1);
  transport->SetSecondary([&](std::uint32_t port) {
    if (port == 0 || port > 65535) std::abort();
    return std::make_unique<MemoryTransport>(std::string(kind, 'x'));
  });
  const std::string path = scratch / "file";
  {
    morvex::FTPConnection connection("h");
    connection.SetTransport(std::move(transport));
    if (kind % 2 == 0 && !connection.Login("me", "secret")) return 0;
    if (connection.Retrieve("file", path, 0)) {
      if (std::filesystem::file_size(path) != connection.BytesExpected()) std::abort();
      (void)connection.Retrieve("file", path, connection.BytesReceived() / 2);
      connection.Probe();
    }
  }
  if (!commands.empty() && !commands.ends_with("\r\n")) std::abort();
  return 0;
}
