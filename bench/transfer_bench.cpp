// Fetches of a large file from an nginx of its own, by this system's client and by curl, in turn. Both write to disk.

#include <benchmark/benchmark.h>
#include <sys/resource.h>
#include <unistd.h>

#include <filesystem>
#include <string>

#include "net/transfer/http_connection.h"
#include "net/transfer/ssl_transport.h"
#include "net/transfer/tcp_transport.h"
#include "net/transfer/url.h"
#include "tests/net/test_servers.h"

namespace {

using namespace morvex;

constexpr std::uintmax_t kFileSize = std::uintmax_t{1} << 30;

struct Setup {
  Setup() : server("location /chunked/ { alias @DIR@/served/; ssi on; ssi_types *; }") {
    server.Put("file.bin", "");
    std::filesystem::resize_file(server.Served() + "/file.bin", kFileSize);
  }
  URL Url(const std::string& scheme, const std::string& path) const {
    const std::uint16_t port = scheme == "https" ? server.TlsPort() : server.Port();
    return URL(scheme + "://localhost:" + std::to_string(port) + path);
  }

  NginxServer server;
  ScratchFolder scratch;
  const std::string target = scratch / "target";
};

Setup& TheSetup() {
  static Setup setup;
  return setup;
}

bool Fetch(const URL& url, const std::string& target) {
  const Endpoint peer{std::string(url.host), url.DefaultPort()};
  HTTPConnection connection;
  std::unique_ptr<NetTransport> transport;
  if (url.HasScheme("https")) transport = std::make_unique<SSLTransport>(peer);
  if (!transport) transport = std::make_unique<TCPTransport>(peer);
  connection.SetTransport(std::move(transport));
  connection.SetHost(url.host);
  connection.SendGet(nullptr, "%s", url.ToString());
  return connection.ReadResponseHeaders() && connection.ReadBody(target);
}

bool FetchByCurl(const URL& url, const std::string& target) {
  return RunProgram({"curl", "-s", "-k", "-o", target, url.ToString()}, "/dev/null");
}

void Run(benchmark::State& state, bool (*fetch)(const URL&, const std::string&), const char* scheme,
         const char* path) {
  const Setup& setup = TheSetup();
  for (auto _ : state) {
    state.PauseTiming();
    std::filesystem::remove(setup.target);
    sync();  // neither side waits for what the other has left to write
    state.ResumeTiming();
    if (!fetch(setup.Url(scheme, path), setup.target) ||
        std::filesystem::file_size(setup.target) != kFileSize)
      state.SkipWithError("the fetch failed");
  }
  if (fetch == &Fetch) {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    state.counters["peak_MiB"] = static_cast<double>(usage.ru_maxrss) / 1024;
  }
  state.SetBytesProcessed(static_cast<int64_t>(state.iterations() * kFileSize));
}

void Compare(const char* scheme, const char* path, const std::string& name) {
  for (const bool curl : {false, true}) {
    benchmark::RegisterBenchmark((name + (curl ? "/curl" : "/morvex")).c_str(), &Run,
                                 curl ? &FetchByCurl : &Fetch, scheme, path)
        ->UseRealTime()
        ->Iterations(5)
        ->Unit(benchmark::kMillisecond);
  }
}

const int kRegistered = [] {
  Compare("http", "/file.bin", "Fetch");
  Compare("http", "/chunked/file.bin", "FetchChunked");
  Compare("https", "/file.bin", "FetchTls");
  return 0;
}();

}  // namespace
