// The tooltip that shows a text whole where it is cut: of what is under the mouse, or at once. Its window is made when
// there is something to show, and goes with the dialog.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <string>

class KrTextTip {
  public:
    KrTextTip() = default;
    KrTextTip(const KrTextTip&) = delete;
    KrTextTip& operator=(const KrTextTip&) = delete;
    ~KrTextTip();

    // A message of the mouse came to the window. Over the area, a part of the window, the text is to be seen; "": none.
    void Relay(HWND window, UINT message, WPARAM wParam, LPARAM lParam, const RECT& area, const std::wstring& text);
    void ShowBelow(HWND window, const RECT& area, const std::wstring& text);  // until Hide
    void Hide();

  private:
    bool Make(HWND window);
    POINT PlaceFor(HWND window, RECT area, TTTOOLINFOW& tool) const;
    void Send(UINT message, WPARAM wParam, void* data) const;

    HWND tip_ = nullptr;
    HWND window_ = nullptr;
    RECT area_{};
    std::wstring text_;  // under the mouse
    bool tracked_ = false;
};
