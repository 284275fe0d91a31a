// The workbench's window: a host program that shows what goes into a command and what comes out. The record before the
// call can be edited as JSON; after the call the changed fields are marked.
#pragma once

#include <windows.h>

#include "Calls.h"

namespace kiro {

class Workbench {
  public:
    Workbench();
    Workbench(const Workbench&) = delete;
    Workbench& operator=(const Workbench&) = delete;
    ~Workbench();

    HWND Window() const { return window_; }
    void Show(const Export& command, const Json& input);  // what the panes have before a call
    // Calls the export and shows what came of it. RecordError when the input does not fit it.
    CallResult Call(const Export& command, const Json& input);
    int Run();  // until the window is closed

  private:
    static LRESULT CALLBACK OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    void MakePanes();
    void Arrange();
    void OnMenu(int id);

    HWND window_ = nullptr;
    HWND before_ = nullptr;
    HWND after_ = nullptr;
    HWND messages_ = nullptr;
    const Export* shown_ = nullptr;
};

}  // namespace kiro
