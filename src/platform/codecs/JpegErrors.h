// How the JPEG library's errors are met: they jump back into the call that ran it, and leave a status.
#pragma once

#include <csetjmp>
#include <cstdio>

// The library's header needs <cstdio> before it.
#include <jpeglib.h>

#include "platform/codecs/JpegStatus.h"

namespace pixorra {

// Installed as the library's error manager; `manager` must be first, as the library passes that back.
struct JpegErrors {
  jpeg_error_mgr manager{};
  std::jmp_buf back{};
  int status = jpeg::Ok;
  bool cutBeforeFirstRow = false;

  void Install(j_common_ptr codec);

  // Runs `work`, which calls the library and holds nothing with a destructor. False where the library gave up.
  template <typename Work>
  bool Run(const Work& work) {
    if (setjmp(back) != 0) return false;
    work();
    return true;
  }
};

// Ends the running call with this status.
[[noreturn]] void GiveUp(j_common_ptr codec, int status);

}  // namespace pixorra
