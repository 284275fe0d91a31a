// While one lives, a drive without a medium is an error that a function returns to this thread, not a box of the
// system's.
#pragma once

#include <windows.h>

namespace kiro::ui {

class QuietDrives {
  public:
    QuietDrives() { SetThreadErrorMode(GetThreadErrorMode() | SEM_FAILCRITICALERRORS, &before_); }
    QuietDrives(const QuietDrives&) = delete;
    QuietDrives& operator=(const QuietDrives&) = delete;
    ~QuietDrives() { SetThreadErrorMode(before_, nullptr); }

  private:
    DWORD before_ = 0;
};

}  // namespace kiro::ui
