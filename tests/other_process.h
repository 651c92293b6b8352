#pragma once

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdint>
#include <functional>
#include <stdexcept>

// A forked process that does something, then says so, and goes on when it is told to. It is killed with its object.
class OtherProcess {
 public:
  explicit OtherProcess(
      const std::function<void()>& work, const std::function<void()>& end = [] {}) {
    if (pipe(said_) != 0 || pipe(told_) != 0) throw std::runtime_error("no pipe");
    id_ = fork();
    close(id_ != 0 ? said_[1] : said_[0]);
    close(id_ != 0 ? told_[0] : told_[1]);
    if (id_ != 0) return;
    work();
    char byte = 1;
    if (write(said_[1], &byte, 1) == 1 && read(told_[0], &byte, 1) >= 0) end();
    _exit(0);
  }
  ~OtherProcess() {
    Kill();
    waitpid(id_, nullptr, 0);
    close(said_[0]);
    if (told_[1] != -1) close(told_[1]);
  }
  OtherProcess(const OtherProcess&) = delete;
  OtherProcess& operator=(const OtherProcess&) = delete;

  // Waits for the work; false if the process ended in it.
  [[nodiscard]] bool HasWorked() const {
    char byte = 0;
    return read(said_[0], &byte, 1) == 1;
  }
  void Finish() {
    close(told_[1]);
    told_[1] = -1;
    AwaitDeath();
  }
  // Its number stays taken, as nobody collects it yet.
  void Kill() {
    kill(id_, SIGKILL);
    AwaitDeath();
  }
  std::uint32_t Id() const { return static_cast<std::uint32_t>(id_); }

 private:
  void AwaitDeath() const {
    siginfo_t ignored;
    waitid(P_PID, static_cast<id_t>(id_), &ignored, WEXITED | WNOWAIT);
  }

  int said_[2];
  int told_[2];
  pid_t id_ = -1;
};
