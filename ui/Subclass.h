// Watches the messages of one window that belongs to somebody else (a control of a template).
#pragma once

#include <windows.h>

#include <functional>
#include <optional>

namespace kiro::ui {

class Subclass {
  public:
    // A result ends the message; nothing hands it on to the window's own procedure.
    using Handler = std::function<std::optional<LRESULT>(UINT message, WPARAM wParam, LPARAM lParam)>;

    Subclass() = default;
    Subclass(const Subclass&) = delete;
    Subclass& operator=(const Subclass&) = delete;
    ~Subclass() { Detach(); }

    void Attach(HWND window, Handler handler);
    void Detach();  // also when the window is destroyed
    // The window's own procedure, past the handler.
    LRESULT CallOriginal(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const;

  private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

    HWND window_ = nullptr;
    WNDPROC original_ = nullptr;
    Handler handler_;
};

}  // namespace kiro::ui
