#include "engine/log.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <memory>
#include <mutex>

#include "engine/format.h"
#include "engine/options.h"

namespace Nox {
namespace {

constexpr int kClosed = -1;

std::atomic<int> target = kClosed;

std::string& Program() {
  static std::string program;
  return program;
}

// The file that is asked for; empty for none.
std::string FileName(const Options& options) {
  const char* wanted = std::getenv("MORVEX_LOG");
  std::string name(wanted != nullptr ? std::string_view(wanted) : options.Value("LogFile").value_or(""));
  return name == "/dev/null" ? std::string() : name;
}

}  // namespace

void Log::Init(const Options& options) {
  Close();
  Program() = options.Program();
  const std::string name = FileName(options);
  if (!name.empty()) {
    target = open(name.c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0666);
  } else if (options.LogsToStandardOutput()) {
    target = STDOUT_FILENO;
  }
}

void Log::Close() {
  const int old = target.exchange(kClosed);
  if (old != kClosed && old != STDOUT_FILENO) close(old);
}

bool Log::IsOpen() {
  return target.load(std::memory_order_relaxed) != kClosed;
}

LogClient& Log::GetClient(std::string_view name) {
  static std::mutex mutex;
  static std::map<std::string, std::unique_ptr<LogClient>, std::less<>> clients;
  const std::lock_guard lock(mutex);
  auto place = clients.find(name);
  if (place == clients.end()) {
    place = clients.emplace(name, std::make_unique<LogClient>(std::string(name))).first;
  }
  return *place->second;
}

void LogClient::OutputString(std::string_view line) {
  if (!Log::IsOpen()) return;
  std::string text = FormatText("%s %s(%d): %s", Program(), name_, level_.load(), line);
  std::replace_if(
      text.begin(), text.end(), [](char c) { return c == '\n' || c == '\r'; }, ' ');
  text.push_back('\n');
  // One call for the whole line, so that lines of several processes don't mix.
  [[maybe_unused]] const ssize_t written = write(target, text.data(), text.size());
}

}  // namespace Nox
