#include "ui/Window.h"

#include "ui/Text.h"

namespace kiro::ui {

std::wstring Window::WideText() const {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(handle_)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(handle_, text.data(), static_cast<int>(text.size()))));
    return text;
}

std::optional<std::string> Window::Text() const { return ToSjis(WideText()); }

void Window::SetText(std::string_view text) const { SetWindowTextW(handle_, ToWide(text).c_str()); }

RECT Window::RectInParent() const {
    RECT rect{};
    GetWindowRect(handle_, &rect);
    MapWindowPoints(nullptr, GetParent(handle_), reinterpret_cast<POINT*>(&rect), 2);
    return rect;
}

void Window::SetTabStop(bool on) const {
    const LONG style = GetWindowLongW(handle_, GWL_STYLE);
    SetWindowLongW(handle_, GWL_STYLE, on ? style | WS_TABSTOP : style & ~WS_TABSTOP);
}

void Edit::ShowEnd() const {
    const auto end = static_cast<WPARAM>(GetWindowTextLengthW(Handle()));
    Send(EM_SETSEL, end, static_cast<LPARAM>(end));
    Send(EM_SCROLLCARET);
}

int ComboBox::InsertString(int index, std::string_view text) const {
    return static_cast<int>(
        Send(CB_INSERTSTRING, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(ToWide(text).c_str())));
}

std::string ComboBox::GetLBText(int index) const {
    const LRESULT length = Send(CB_GETLBTEXTLEN, static_cast<WPARAM>(index));
    if (length <= 0) return {};
    std::wstring text(static_cast<std::size_t>(length) + 1, L'\0');
    Send(CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(length));
    return ToSjis(text).value_or(std::string());
}

int ComboBox::FindExact(std::string_view text) const {
    // CB_FINDSTRINGEXACT takes no account of letter case or width; the entries are to match exactly.
    const std::wstring wanted = ToWide(text);
    const auto lParam = reinterpret_cast<LPARAM>(wanted.c_str());
    int first = -1;
    for (int from = -1;;) {
        const int index = static_cast<int>(Send(CB_FINDSTRINGEXACT, static_cast<WPARAM>(from), lParam));
        if (index < 0 || index == first) return -1;
        if (GetLBText(index) == text) return index;
        if (first < 0) first = index;
        from = index;
    }
}

}  // namespace kiro::ui
