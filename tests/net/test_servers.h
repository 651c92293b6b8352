#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "tests/net/free_port.h"
#include "tests/net/server_process.h"
#include "tests/scratch_folder.h"

// Real servers on free ports of 127.0.0.1, each with a configuration and a folder of its own.

// A text to serve that no two pieces of are alike; each seed gives another.
std::string LargeText(std::size_t size, int seed = 0);

// A key and a certificate that signs itself, made by openssl. `names` as in "DNS:localhost,IP:127.0.0.1".
struct TestCertificate {
  TestCertificate(const ScratchFolder& folder, const std::string& names);

  std::string certificate;  // their files
  std::string key;
};

// nginx, plain and with TLS. `locations` stands in both its servers; in it, @DIR@ is the server's folder and @PORT@
// its plain port.
class NginxServer {
 public:
  explicit NginxServer(const std::string& locations, const std::string& certificateNames = "DNS:localhost");

  std::uint16_t Port() const { return port_.Number(); }
  std::uint16_t TlsPort() const { return tlsPort_.Number(); }
  // Gives a file to serve; its name may have folders that are there.
  void Put(const std::string& name, const std::string& content) { PutText(Served() + "/" + name, content); }
  // The folder of these files.
  std::string Served() const { return folder_ / "served"; }
  std::string Folder() const { return folder_.path(); }
  const std::string& CertificateFile() const { return certificate_.certificate; }
  // The request lines so far, one a line.
  std::string Requests() const { return GetText(folder_ / "requests"); }
  void Stop() { process_->Stop(); }

 private:
  ScratchFolder folder_;
  FreePort port_;
  FreePort tlsPort_;
  TestCertificate certificate_;
  std::unique_ptr<ServerProcess> process_;
};

// vsftpd, for anonymous users: any password but "refused" lets in.
class FtpServer {
 public:
  FtpServer();

  std::uint16_t Port() const { return port_.Number(); }
  void Put(const std::string& name, const std::string& content) {
    PutText(folder_ / "served/" + name, content);
  }

 private:
  ScratchFolder folder_;
  FreePort port_;
  std::unique_ptr<ServerProcess> process_;
};

// tinyproxy, which connects to whatever it is asked for.
class ProxyServer {
 public:
  ProxyServer();

  std::uint16_t Port() const { return port_.Number(); }
  std::string Log() const { return GetText(folder_ / "log"); }

 private:
  ScratchFolder folder_;
  FreePort port_;
  std::unique_ptr<ServerProcess> process_;
};
