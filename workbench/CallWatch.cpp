#include "CallWatch.h"

#include <algorithm>
#include <cwchar>

namespace kiro {
namespace {

CallWatch* watch;

bool HasClass(HWND window, const wchar_t* name) {
    wchar_t text[64];
    return GetClassNameW(window, text, 64) > 0 && std::wcscmp(text, name) == 0;
}

std::wstring Text(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

}  // namespace

CallWatch::CallWatch()
    : sent_(SetWindowsHookExW(WH_CALLWNDPROC, OnSent, nullptr, GetCurrentThreadId())),
      windows_(SetWindowsHookExW(WH_CBT, OnWindow, nullptr, GetCurrentThreadId())) {
    watch = this;
}

CallWatch::~CallWatch() {
    watch = nullptr;
    UnhookWindowsHookEx(windows_);
    UnhookWindowsHookEx(sent_);
}

LRESULT CALLBACK CallWatch::OnSent(int code, WPARAM wParam, LPARAM data) {
    const auto* message = reinterpret_cast<const CWPSTRUCT*>(data);
    if (code == HC_ACTION && watch && message->message == WM_SETTEXT && HasClass(message->hwnd, L"KiroGuidanceLine")) {
        const auto* text = reinterpret_cast<const wchar_t*>(message->lParam);
        if (text && *text) watch->lines_.push_back(std::wstring(L"案内: ") + text);
    }
    return CallNextHookEx(nullptr, code, wParam, data);
}

LRESULT CALLBACK CallWatch::OnWindow(int code, WPARAM window, LPARAM data) {
    if (watch && code == HCBT_ACTIVATE) watch->NoteDialog(reinterpret_cast<HWND>(window));
    if (watch && code == HCBT_DESTROYWND) std::erase(watch->open_, reinterpret_cast<HWND>(window));
    return CallNextHookEx(nullptr, code, window, data);
}

void CallWatch::NoteDialog(HWND dialog) {
    constexpr int kBoxText = 0xFFFF;  // the static of a message box
    if (!HasClass(dialog, L"#32770") || std::ranges::find(open_, dialog) != open_.end()) return;
    open_.push_back(dialog);
    if (const HWND text = GetDlgItem(dialog, kBoxText))
        lines_.push_back(L"メッセージ［" + Text(dialog) + L"］: " + Text(text));
    else
        lines_.push_back(L"ダイアログ［" + Text(dialog) + L"］");
}

}  // namespace kiro
