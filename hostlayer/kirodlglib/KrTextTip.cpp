#include "KrTextTip.h"

#include <commctrl.h>

#include <utility>

namespace {

constexpr UINT_PTR kUnderMouse = 1, kAtOnce = 2;
constexpr int kMostWidth = 480;  // pixels of 96 dpi; a longer text goes on in the next line

TTTOOLINFOW Tool(HWND window, UINT_PTR id) {
    TTTOOLINFOW tool{};
    tool.cbSize = TTTOOLINFOW_V2_SIZE;  // which the older style of controls takes, too
    tool.uFlags = id == kAtOnce ? TTF_TRACK | TTF_ABSOLUTE : 0;
    tool.hwnd = window;
    tool.uId = id;
    return tool;
}

}  // namespace

KrTextTip::~KrTextTip() {
    if (tip_ && IsWindow(tip_)) DestroyWindow(tip_);
}

void KrTextTip::Send(UINT message, WPARAM wParam, void* data) const {
    SendMessageW(tip_, message, wParam, reinterpret_cast<LPARAM>(data));
}

bool KrTextTip::Make(HWND window) {
    if (tip_) return true;
    const HWND owner = GetAncestor(window, GA_ROOT);
    tip_ = CreateWindowExW(WS_EX_TOPMOST | WS_EX_TRANSPARENT, TOOLTIPS_CLASSW, nullptr,
                           WS_POPUP | TTS_NOPREFIX | TTS_ALWAYSTIP, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT,
                           CW_USEDEFAULT, owner, nullptr, nullptr, nullptr);
    if (!tip_) return false;
    window_ = window;
    for (const UINT_PTR id : {kUnderMouse, kAtOnce}) {
        wchar_t none[] = L"";
        TTTOOLINFOW tool = Tool(window, id);
        tool.lpszText = none;
        Send(TTM_ADDTOOLW, 0, &tool);
    }
    const HDC dc = GetDC(window);
    const int width = MulDiv(kMostWidth, GetDeviceCaps(dc, LOGPIXELSX), 96);
    ReleaseDC(window, dc);
    SendMessageW(tip_, TTM_SETMAXTIPWIDTH, 0, width);
    SendMessageW(tip_, WM_SETFONT, static_cast<WPARAM>(SendMessageW(window, WM_GETFONT, 0, 0)), FALSE);
    return true;
}

void KrTextTip::Relay(HWND window, UINT message, WPARAM wParam, LPARAM lParam, const RECT& area,
                      const std::wstring& text) {
    if ((!tip_ && text.empty()) || !Make(window)) return;
    if (text != text_ || !EqualRect(&area, &area_)) {
        text_ = text;
        area_ = area;
        TTTOOLINFOW tool = Tool(window, kUnderMouse);
        tool.rect = text.empty() ? RECT{} : area;
        tool.lpszText = text_.data();
        SendMessageW(tip_, TTM_POP, 0, 0);
        Send(TTM_NEWTOOLRECTW, 0, &tool);
        Send(TTM_UPDATETIPTEXTW, 0, &tool);
    }
    MSG relayed{};
    relayed.hwnd = window;
    relayed.message = message;
    relayed.wParam = wParam;
    relayed.lParam = lParam;
    relayed.time = static_cast<DWORD>(GetMessageTime());
    Send(TTM_RELAYEVENT, 0, &relayed);
}

// Below the area, or above it where the screen ends.
POINT KrTextTip::PlaceFor(HWND window, RECT area, TTTOOLINFOW& tool) const {
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&area), 2);
    const LRESULT size = SendMessageW(tip_, TTM_GETBUBBLESIZE, 0, reinterpret_cast<LPARAM>(&tool));
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    const bool fits = !GetMonitorInfoW(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor) ||
                      area.bottom + HIWORD(size) <= monitor.rcWork.bottom;
    return {area.left, fits ? area.bottom : area.top - HIWORD(size)};
}

void KrTextTip::ShowBelow(HWND window, const RECT& area, const std::wstring& text) {
    if (!Make(window)) return;
    std::wstring shown = text;
    TTTOOLINFOW tool = Tool(window, kAtOnce);
    tool.lpszText = shown.data();
    Send(TTM_UPDATETIPTEXTW, 0, &tool);
    const POINT place = PlaceFor(window, area, tool);
    SendMessageW(tip_, TTM_TRACKPOSITION, 0, MAKELPARAM(place.x, place.y));
    Send(TTM_TRACKACTIVATE, TRUE, &tool);
    tracked_ = true;
}

void KrTextTip::Hide() {
    if (!tip_) return;
    if (std::exchange(tracked_, false)) {
        TTTOOLINFOW tool = Tool(window_, kAtOnce);
        Send(TTM_TRACKACTIVATE, FALSE, &tool);
    }
    SendMessageW(tip_, TTM_POP, 0, 0);
}
