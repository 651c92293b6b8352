#include "tests/net/station_server.h"

#include <filesystem>

namespace {

constexpr const char* kScripts = "/games/gamefiles/morvex/scripts/";

constexpr const char* kLocations = R"(
  location = /quasmere/imorvex/remote_login.php {
    set $login $arg_username:$arg_password;
    if ($login = "me:secret") { return 200 'cookie "sid=abc"\n'; }
    return 200 'error "wrong password"\n';
  }
  location /games/ {
    if ($cookie_sid != "abc") { return 403; }
    try_files $uri.$arg_SearchCriteria $uri =404;
  }
  location = /games/gamefiles/morvex/scripts/DLS_CDP_upload.php {
    if ($cookie_sid != "abc") { return 403; }
    proxy_pass http://127.0.0.1:)";

}  // namespace

StationServer::StationServer() {
  SetUploadAnswer("");
  const std::string port = std::to_string(port_.Number());
  uploads_ = std::make_unique<ServerProcess>(
      std::vector<std::string>{"python3", MORVEX_NET_TESTS "/upload_station.py", port, Uploads()},
      port_.Number(), folder_ / "output");
  nginx_ = std::make_unique<NginxServer>(kLocations + port + "; }");
}

void StationServer::SetAnswer(const std::string& script, const std::string& text) {
  const std::filesystem::path path = nginx_->Served() + kScripts + script;
  std::filesystem::create_directories(path.parent_path());
  PutText(path, text);
}

void StationServer::SetAnswerTo(const std::string& script, const std::string& value,
                                const std::string& text) {
  SetAnswer(script + "." + value, text);
}

std::string StationServer::PutList(const std::string& name, const std::string& bytes) {
  nginx_->Put(name, bytes);
  return "https://localhost:" + std::to_string(Port()) + "/" + name;
}
