#pragma once

#include <csetjmp>
#include <cstdio>  // jpeglib.h needs it in front

#include <jpeglib.h>

namespace Nox {

// The JPEG library reports what it can't do by a jump back to the caller, so what lies between holds no object with
// a destructor. Whatever it has to say goes nowhere.
class JpegGuard : public jpeg_error_mgr {
 public:
  JpegGuard() {
    jpeg_std_error(this);
    error_exit = [](j_common_ptr info) { Of(info).GiveUp(); };
    output_message = [](j_common_ptr) {};
  }
  JpegGuard(const JpegGuard&) = delete;
  JpegGuard& operator=(const JpegGuard&) = delete;

  // True if the work came to its end.
  template <typename Work>
  bool Run(Work work) {
    if (setjmp(start_) != 0) return false;
    work();
    return true;
  }
  // From inside the work.
  [[noreturn]] void GiveUp() { std::longjmp(start_, 1); }

  static JpegGuard& Of(j_common_ptr info) { return *static_cast<JpegGuard*>(info->err); }

 private:
  std::jmp_buf start_{};
};

}  // namespace Nox
