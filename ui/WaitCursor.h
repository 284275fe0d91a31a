// The wait cursor, while one lives: over work that may take its time, such as on a slow share.
#pragma once

#include <windows.h>

namespace kiro::ui {

class WaitCursor {
  public:
    WaitCursor() : before_(SetCursor(LoadCursorW(nullptr, IDC_WAIT))) {}
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;
    ~WaitCursor() { SetCursor(before_); }

  private:
    HCURSOR before_;
};

}  // namespace kiro::ui
