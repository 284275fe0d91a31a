#include "KrFindBar.h"

#include <commctrl.h>

#include "KrAllKeys.h"

namespace {

constexpr int kLabelId = 0x7E11, kEditId = 0x7E12;
constexpr int kLabelWidth = 40, kAbove = 4, kAroundText = 3;  // pixels of 96 dpi
constexpr WPARAM kLongest = 256;
constexpr wchar_t kLabel[] = L"検索";
constexpr wchar_t kTab = L'\t', kEnter = L'\r', kEscape = 0x1B;

int Scaled(HDC dc, int pixels) { return MulDiv(pixels, GetDeviceCaps(dc, LOGPIXELSX), 96); }

RECT InDialog(HWND window) {
    RECT area{};
    GetWindowRect(window, &area);
    MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&area), 2);
    return area;
}

}  // namespace

KrFindBar::~KrFindBar() {
    if (edit_) RemoveWindowSubclass(edit_, &KrFindBar::Procedure, 0);
}

bool KrFindBar::Make() {
    if (edit_) return true;
    const HWND dialog = GetParent(list_);
    const auto make = [&](const wchar_t* name, const wchar_t* text, DWORD style, DWORD extended, int id) {
        const HWND window = CreateWindowExW(extended, name, text, WS_CHILD | style, 0, 0, 10, 10, dialog,
                                            reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
        SendMessageW(window, WM_SETFONT, static_cast<WPARAM>(SendMessageW(list_, WM_GETFONT, 0, 0)), FALSE);
        return window;
    };
    if (!label_) label_ = make(WC_STATICW, kLabel, SS_CENTERIMAGE | SS_NOPREFIX, 0, kLabelId);
    edit_ = make(WC_EDITW, L"", ES_AUTOHSCROLL, WS_EX_CLIENTEDGE, kEditId);
    if (!label_ || !edit_) return false;
    SendMessageW(edit_, EM_SETLIMITTEXT, kLongest, 0);
    return SetWindowSubclass(edit_, &KrFindBar::Procedure, 0, reinterpret_cast<DWORD_PTR>(this)) != FALSE;
}

void KrFindBar::Open(HWND list) {
    list_ = list;
    if (!open_ && Make()) {
        open_ = true;
        const HDC dc = GetDC(list);
        const HGDIOBJ font = SelectObject(dc, reinterpret_cast<HFONT>(SendMessageW(list, WM_GETFONT, 0, 0)));
        TEXTMETRICW metric{};
        GetTextMetricsW(dc, &metric);
        const int label = Scaled(dc, kLabelWidth);
        // An edit has its text at its upper end: no more room than the text needs.
        const int height = metric.tmHeight + Scaled(dc, kAroundText) + 2 * GetSystemMetrics(SM_CYEDGE);
        height_ = height + Scaled(dc, kAbove);
        SelectObject(dc, font);
        ReleaseDC(list, dc);
        const RECT area = InDialog(list);
        const int width = area.right - area.left;
        const int top = area.bottom - height;
        SetWindowPos(list, nullptr, 0, 0, width, area.bottom - height_ - area.top,
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
        // Behind the list view in the order of the Tab key.
        SetWindowPos(label_, list, area.left, top, label, height, SWP_NOACTIVATE | SWP_SHOWWINDOW);
        SetWindowPos(edit_, label_, area.left + label, top, width - label, height, SWP_NOACTIVATE | SWP_SHOWWINDOW);
    }
    if (!open_) return;
    SetFocus(edit_);
    SendMessageW(edit_, EM_SETSEL, 0, -1);
}

void KrFindBar::Close() {
    if (!open_) return;
    open_ = false;
    if (HasFocus()) SetFocus(list_);
    ShowWindow(edit_, SW_HIDE);
    ShowWindow(label_, SW_HIDE);
    const RECT area = InDialog(list_);
    SetWindowPos(list_, nullptr, 0, 0, area.right - area.left, area.bottom - area.top + height_,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

std::wstring KrFindBar::Text() const {
    wchar_t text[kLongest + 1] = L"";
    if (edit_) GetWindowTextW(edit_, text, static_cast<int>(kLongest + 1));
    return text;
}

bool KrFindBar::OnCommand(int notification, HWND control) {
    if (!control || (control != edit_ && control != label_)) return false;
    if (open_ && control == edit_ && notification == EN_CHANGE) host_.OnFind(FindBarHost::Event::kTyped);
    return true;
}

std::optional<LRESULT> KrFindBar::OnMessage(UINT message, WPARAM wParam) {
    const auto tell = [this](FindBarHost::Event event) {
        host_.OnFind(event);
        return 0;
    };
    if (message == WM_CHAR && (wParam == kTab || wParam == kEnter || wParam == kEscape)) return 0;
    if (message != WM_KEYDOWN) return std::nullopt;
    const bool shift = GetKeyState(VK_SHIFT) < 0;
    switch (wParam) {
        case VK_RETURN:
        case VK_F3:
            return tell(shift ? FindBarHost::Event::kPrevious : FindBarHost::Event::kNext);
        case VK_DOWN:
            return tell(FindBarHost::Event::kNext);
        case VK_UP:
            return tell(FindBarHost::Event::kPrevious);
        case VK_ESCAPE:
            return tell(FindBarHost::Event::kClosed);
        case VK_TAB:
            SetFocus(list_);  // the bar stays
            return 0;
        default:
            return std::nullopt;
    }
}

LRESULT CALLBACK KrFindBar::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                      DWORD_PTR data) {
    auto* self = reinterpret_cast<KrFindBar*>(data);
    if (message == WM_NCDESTROY) {
        RemoveWindowSubclass(window, &KrFindBar::Procedure, id);
        self->edit_ = self->label_ = nullptr;
        self->open_ = false;
        return DefSubclassProc(window, message, wParam, lParam);
    }
    return AnswerAllKeys(window, message, wParam, lParam, [&] { return self->OnMessage(message, wParam); });
}
