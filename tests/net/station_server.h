#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "tests/net/test_servers.h"

// A download station of our own: nginx over TLS, for whoever has logged in as "me" with "secret". Answers are files;
// uploads go to a small program behind it.
class StationServer {
 public:
  StationServer();

  // At localhost.
  std::uint16_t Port() const { return nginx_->TlsPort(); }
  // What a script answers; its path counts from the scripts' folder. Without one it answers with status 404.
  void SetAnswer(const std::string& script, const std::string& text);
  // What a script answers to one value of "SearchCriteria".
  void SetAnswerTo(const std::string& script, const std::string& value, const std::string& text);
  // Gives a list for download; its URL.
  std::string PutList(const std::string& name, const std::string& bytes);
  std::string Requests() const { return nginx_->Requests(); }

  void SetUploadAnswer(const std::string& text) { PutText(Uploads() + "/answer", text); }
  // A field of the form that was uploaded last, empty if there was none.
  std::string Uploaded(const std::string& field) const { return GetText(Uploads() + "/" + field); }

 private:
  std::string Uploads() const { return folder_.path(); }

  ScratchFolder folder_;
  FreePort port_;
  std::unique_ptr<ServerProcess> uploads_;
  std::unique_ptr<NginxServer> nginx_;
};
