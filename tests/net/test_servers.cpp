#include "tests/net/test_servers.h"

#include <filesystem>
#include <stdexcept>

namespace {

// Puts `value` in the place of each `mark`.
void Fill(std::string& text, const std::string& mark, const std::string& value) {
  for (std::size_t at = text.find(mark); at != text.npos; at = text.find(mark, at + value.size()))
    text.replace(at, mark.size(), value);
}

constexpr const char* kNginx = R"(
daemon off;
master_process off;
pid @DIR@/pid;
error_log @DIR@/errors;
events { worker_connections 512; }
http {
  log_format requests '$request';
  access_log @DIR@/requests requests;
  client_body_temp_path @DIR@/bodies;
  proxy_temp_path @DIR@/proxy;
  fastcgi_temp_path @DIR@/fastcgi;
  uwsgi_temp_path @DIR@/uwsgi;
  scgi_temp_path @DIR@/scgi;
  client_max_body_size 0;
  sendfile on;
  types { text/html html; }
  default_type application/octet-stream;
  root @DIR@/served;
  server {
    listen 127.0.0.1:@PORT@;
    @LOCATIONS@
  }
  server {
    listen 127.0.0.1:@TLSPORT@ ssl;
    ssl_certificate @CERTIFICATE@;
    ssl_certificate_key @KEY@;
    @LOCATIONS@
  }
}
)";

constexpr const char* kVsftpd = R"(listen=YES
listen_address=127.0.0.1
listen_port=@PORT@
background=NO
run_as_launching_user=YES
seccomp_sandbox=NO
isolate=NO
isolate_network=NO
anonymous_enable=YES
local_enable=NO
anon_root=@DIR@/served
delay_failed_login=0
deny_email_enable=YES
banned_email_file=@DIR@/banned
xferlog_enable=NO
)";

constexpr const char* kTinyproxy = R"(Port @PORT@
Listen 127.0.0.1
Allow 127.0.0.1
Timeout 60
MaxClients 50
LogFile "@DIR@/log"
LogLevel Connect
)";

}  // namespace

std::string LargeText(std::size_t size, int seed) {
  std::string text;
  for (std::size_t i = 0; text.size() < size; ++i)
    text += std::to_string(i * 7919 + static_cast<std::size_t>(seed)) + ";";
  text.resize(size);
  return text;
}

TestCertificate::TestCertificate(const ScratchFolder& folder, const std::string& names)
    : certificate(folder / "certificate.pem"), key(folder / "key.pem") {
  const std::string output = folder / "openssl";
  if (!RunProgram({"openssl", "req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1",
                   "-nodes", "-keyout", key, "-out", certificate, "-days", "2", "-subj", "/CN=Test",
                   "-addext", "subjectAltName=" + names},
                  output))
    throw std::runtime_error("no certificate: " + GetText(output));
}

NginxServer::NginxServer(const std::string& locations, const std::string& certificateNames)
    : certificate_(folder_, certificateNames) {
  std::filesystem::create_directory(Served());
  std::string configuration = kNginx;
  Fill(configuration, "@LOCATIONS@", locations);
  Fill(configuration, "@DIR@", folder_.path());
  Fill(configuration, "@PORT@", std::to_string(Port()));
  Fill(configuration, "@TLSPORT@", std::to_string(TlsPort()));
  Fill(configuration, "@CERTIFICATE@", certificate_.certificate);
  Fill(configuration, "@KEY@", certificate_.key);
  PutText(folder_ / "nginx.conf", configuration);
  process_ = std::make_unique<ServerProcess>(
      std::vector<std::string>{"/usr/sbin/nginx", "-p", folder_.path(), "-e", folder_ / "errors", "-c",
                               folder_ / "nginx.conf"},
      Port(), folder_ / "output");
}

FtpServer::FtpServer() {
  std::filesystem::create_directory(folder_ / "served");
  std::string configuration = kVsftpd;
  Fill(configuration, "@DIR@", folder_.path());
  Fill(configuration, "@PORT@", std::to_string(Port()));
  PutText(folder_ / "banned", "refused\n");
  PutText(folder_ / "vsftpd.conf", configuration);
  process_ = std::make_unique<ServerProcess>(
      std::vector<std::string>{"/usr/sbin/vsftpd", folder_ / "vsftpd.conf"}, Port(), folder_ / "output");
}

ProxyServer::ProxyServer() {
  std::string configuration = kTinyproxy;
  Fill(configuration, "@DIR@", folder_.path());
  Fill(configuration, "@PORT@", std::to_string(Port()));
  PutText(folder_ / "tinyproxy.conf", configuration);
  process_ = std::make_unique<ServerProcess>(
      std::vector<std::string>{"/usr/bin/tinyproxy", "-d", "-c", folder_ / "tinyproxy.conf"}, Port(),
      folder_ / "output");
}
