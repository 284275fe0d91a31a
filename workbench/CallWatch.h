// Notes what the user gets to read while a command runs on this thread: the guidance lines of its dialogs, and the
// dialogs and message boxes that open. One watch at a time.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace kiro {

class CallWatch {
  public:
    CallWatch();
    CallWatch(const CallWatch&) = delete;
    CallWatch& operator=(const CallWatch&) = delete;
    ~CallWatch();

    const std::vector<std::wstring>& Lines() const { return lines_; }

  private:
    static LRESULT CALLBACK OnSent(int code, WPARAM wParam, LPARAM data);
    static LRESULT CALLBACK OnWindow(int code, WPARAM window, LPARAM data);
    void NoteDialog(HWND dialog);

    HHOOK sent_;
    HHOOK windows_;
    std::vector<std::wstring> lines_;
    std::vector<HWND> open_;  // dialogs already noted; they are activated anew when one over them is closed
};

}  // namespace kiro
