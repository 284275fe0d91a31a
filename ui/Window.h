// Thin wrappers around window handles: values, not owners. Names are the platform's own; text is Shift-JIS.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>

namespace kiro::ui {

class Window {
  public:
    Window() = default;
    explicit Window(HWND handle) : handle_(handle) {}

    HWND Handle() const { return handle_; }
    explicit operator bool() const { return handle_ != nullptr; }

    std::wstring WideText() const;
    // Nothing when the text holds a character outside code page 932.
    std::optional<std::string> Text() const;
    void SetText(std::string_view text) const;

    void Enable(bool on) const { EnableWindow(handle_, on); }
    void SetTabStop(bool on) const;
    void Show(bool on) const { ShowWindow(handle_, on ? SW_SHOW : SW_HIDE); }
    bool HasFocus() const { return GetFocus() == handle_ || (handle_ && IsChild(handle_, GetFocus())); }
    RECT RectInParent() const;  // in the client area of the parent

  protected:
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return SendMessageW(handle_, message, wParam, lParam);
    }

  private:
    HWND handle_ = nullptr;
};

class Edit : public Window {
  public:
    using Window::Window;
    void LimitText(unsigned int characters) const { Send(EM_LIMITTEXT, characters); }  // in UTF-16 units
    void SelectAll() const { Send(EM_SETSEL, 0, -1); }
    // Shows the end of a text that is longer than the field: of a path, the end is what tells files apart.
    void ShowEnd() const;
};

class Button : public Window {
  public:
    using Window::Window;
    bool IsChecked() const { return Send(BM_GETCHECK) == BST_CHECKED; }
    void SetCheck(bool on) const { Send(BM_SETCHECK, on ? BST_CHECKED : BST_UNCHECKED); }
};

class ComboBox : public Window {
  public:
    using Window::Window;
    void ResetContent() const { Send(CB_RESETCONTENT); }
    int AddString(std::string_view text) const { return InsertString(-1, text); }
    int InsertString(int index, std::string_view text) const;  // -1: at the end
    void DeleteString(int index) const { Send(CB_DELETESTRING, static_cast<WPARAM>(index)); }
    int GetCount() const { return static_cast<int>(Send(CB_GETCOUNT)); }
    int GetCurSel() const { return static_cast<int>(Send(CB_GETCURSEL)); }
    void SetCurSel(int index) const { Send(CB_SETCURSEL, static_cast<WPARAM>(index)); }
    std::string GetLBText(int index) const;
    int FindExact(std::string_view text) const;  // the index of the entry with just this text, letter for letter, or -1
};

}  // namespace kiro::ui
