#include "GuidanceLine.h"

#include <algorithm>
#include <cmath>
#include <memory>

#include "KrTextTip.h"

namespace {

// In dialog units, so that the strip grows with the dialog's font and resolution.
constexpr int kHeight = 13;
constexpr int kMargin = 4;

// For light backgrounds and for dark ones.
constexpr COLORREF kErrorColors[] = {RGB(0xC0, 0, 0), RGB(0x80, 0, 0), RGB(0xFF, 0x99, 0x99), RGB(0xFF, 0xD0, 0xD0)};
constexpr double kReadable = 4.5;  // contrast of text, by WCAG 2
constexpr wchar_t kErrorMark[] = L"！";

struct DcDeleter {
    void operator()(HDC dc) const { DeleteDC(dc); }
};
struct BitmapDeleter {
    void operator()(HBITMAP bitmap) const { DeleteObject(bitmap); }
};
using MemoryDc = std::unique_ptr<HDC__, DcDeleter>;
using Bitmap = std::unique_ptr<HBITMAP__, BitmapDeleter>;

class Selected {
  public:
    Selected(HDC dc, HGDIOBJ object) : dc_(dc), previous_(SelectObject(dc, object)) {}
    ~Selected() { SelectObject(dc_, previous_); }
    Selected(const Selected&) = delete;
    Selected& operator=(const Selected&) = delete;

  private:
    HDC dc_;
    HGDIOBJ previous_;
};

// What the window keeps.
constexpr int kErrorOffset = 0, kTipOffset = sizeof(LONG_PTR);

bool IsError(HWND window) { return GetWindowLongPtrW(window, kErrorOffset) != 0; }

std::wstring TextOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

HFONT DialogFont(HWND window) {
    const LRESULT font = SendMessageW(GetParent(window), WM_GETFONT, 0, 0);
    return font ? reinterpret_cast<HFONT>(font) : static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
}

// What the eye makes of a colour, from 0 for black to 1 for white (WCAG 2, relative luminance).
double Luminance(COLORREF color) {
    const auto linear = [](BYTE part) {
        const double share = part / 255.0;
        return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(GetRValue(color)) + 0.7152 * linear(GetGValue(color)) + 0.0722 * linear(GetBValue(color));
}

double Contrast(COLORREF one, COLORREF other) {
    const auto [darker, lighter] = std::minmax({Luminance(one), Luminance(other)});
    return (lighter + 0.05) / (darker + 0.05);
}

bool OnlySystemColors() {
    HIGHCONTRASTW contrast{};
    contrast.cbSize = sizeof contrast;
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) &&
           (contrast.dwFlags & HCF_HIGHCONTRASTON);
}

// The first red that can be read on the background. An operator who chose colours of high contrast gets them, and so
// does one whose background suits no red: the sign tells an error, too.
COLORREF TextColor(bool error) {
    const COLORREF background = GetSysColor(COLOR_BTNFACE);
    if (error && !OnlySystemColors())
        for (const COLORREF red : kErrorColors)
            if (Contrast(red, background) >= kReadable) return red;
    return GetSysColor(COLOR_BTNTEXT);
}

RECT TextArea(HWND window, RECT area) {
    RECT margin{0, 0, kMargin, 0};
    MapDialogRect(GetParent(window), &margin);
    return {area.left + margin.right, area.top, area.right - margin.right, area.bottom};
}

int WidthOf(HDC dc, const std::wstring& text) {
    SIZE size{};
    GetTextExtentPoint32W(dc, text.data(), static_cast<int>(text.size()), &size);
    return size.cx;
}

void Draw(HWND window, HDC dc, RECT area) {
    FillRect(dc, &area, GetSysColorBrush(COLOR_BTNFACE));
    DrawEdge(dc, &area, BDR_SUNKENOUTER, BF_TOP | BF_ADJUST);

    const std::wstring text = TextOf(window);
    if (text.empty()) return;
    area = TextArea(window, area);
    const bool error = IsError(window);
    const Selected font(dc, DialogFont(window));
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, TextColor(error));
    if (error) {
        DrawTextW(dc, kErrorMark, -1, &area, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
        area.left += WidthOf(dc, kErrorMark);
    }
    DrawTextW(dc, text.c_str(), -1, &area, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
}

// A text is drawn aside and copied, so that nothing flickers.
void Paint(HWND window, HDC dc) {
    RECT area{};
    GetClientRect(window, &area);
    if (GetWindowTextLengthW(window) == 0) return Draw(window, dc, area);
    const MemoryDc memory(CreateCompatibleDC(dc));
    const Bitmap bitmap(CreateCompatibleBitmap(dc, std::max<int>(area.right, 1), std::max<int>(area.bottom, 1)));
    if (!memory || !bitmap) return Draw(window, dc, area);
    const Selected surface(memory.get(), bitmap.get());
    Draw(window, memory.get(), area);
    BitBlt(dc, 0, 0, area.right, area.bottom, memory.get(), 0, 0, SRCCOPY);
}

bool IsCut(HWND window) {
    RECT area{};
    GetClientRect(window, &area);
    area = TextArea(window, area);
    const HDC dc = GetDC(window);
    int width = 0;
    {
        const Selected font(dc, DialogFont(window));
        width = WidthOf(dc, (IsError(window) ? kErrorMark : L"") + TextOf(window));
    }
    ReleaseDC(window, dc);
    return width > area.right - area.left;
}

KrTextTip* TipOf(HWND window) { return reinterpret_cast<KrTextTip*>(GetWindowLongPtrW(window, kTipOffset)); }

// Shows the whole text under the mouse when it is cut.
void Relay(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    KrTextTip* tip = TipOf(window);
    const bool cut = IsCut(window);
    if (!tip && !cut) return;
    if (!tip) {
        tip = new KrTextTip;
        SetWindowLongPtrW(window, kTipOffset, reinterpret_cast<LONG_PTR>(tip));
    }
    RECT area{};
    GetClientRect(window, &area);
    tip->Relay(window, message, wParam, lParam, area, cut ? TextOf(window) : std::wstring());
}

LRESULT CALLBACK GuidanceProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) try {
    switch (message) {
        case WM_PAINT: {
            PAINTSTRUCT paint;
            if (const HDC dc = BeginPaint(window, &paint)) Paint(window, dc);
            EndPaint(window, &paint);
            return 0;
        }
        case WM_PRINTCLIENT:
            Paint(window, reinterpret_cast<HDC>(wParam));
            return 0;
        case WM_ERASEBKGND:
            return 1;
        case WM_SETTEXT: {
            const LRESULT result = DefWindowProcW(window, message, wParam, lParam);
            InvalidateRect(window, nullptr, FALSE);
            if (KrTextTip* const tip = TipOf(window)) tip->Hide();
            return result;
        }
        case WM_GETFONT:
            return reinterpret_cast<LRESULT>(DialogFont(window));
        case WM_MOUSEMOVE:
        case WM_LBUTTONDOWN:
        case WM_RBUTTONDOWN:
            Relay(window, message, wParam, lParam);
            return DefWindowProcW(window, message, wParam, lParam);
        case WM_NCDESTROY:
            delete TipOf(window);
            SetWindowLongPtrW(window, kTipOffset, 0);
            return DefWindowProcW(window, message, wParam, lParam);
        case WM_GETDLGCODE:
            // Passed over by the arrow keys; and an "&" in the text is no mnemonic.
            return DLGC_STATIC | DLGC_WANTCHARS;
        case kGuidanceLineIsError:
            return IsError(window);
        default:
            return DefWindowProcW(window, message, wParam, lParam);
    }
} catch (...) {
    return 0;
}

HINSTANCE ThisModule() {
    HMODULE module = nullptr;
    GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<const wchar_t*>(&GuidanceProc), &module);
    return module;
}

// A class outlives the library it came with, unless it is unregistered when the library goes.
class GuidanceClass {
  public:
    GuidanceClass() {
        WNDCLASSEXW description{};
        description.cbSize = sizeof description;
        description.style = CS_HREDRAW | CS_VREDRAW;
        description.lpfnWndProc = GuidanceProc;
        description.cbWndExtra = 2 * sizeof(LONG_PTR);
        description.hInstance = ThisModule();
        description.hCursor = LoadCursorW(nullptr, IDC_ARROW);
        description.lpszClassName = kGuidanceLineClass;
        RegisterClassExW(&description);
    }
    ~GuidanceClass() { UnregisterClassW(kGuidanceLineClass, ThisModule()); }
    GuidanceClass(const GuidanceClass&) = delete;
    GuidanceClass& operator=(const GuidanceClass&) = delete;
};

void GrowDown(HWND dialog, int height) {
    RECT frame{};
    GetWindowRect(dialog, &frame);
    const int whole = frame.bottom - frame.top + height;
    int top = frame.top;
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    if (GetMonitorInfoW(MonitorFromWindow(dialog, MONITOR_DEFAULTTONEAREST), &monitor) &&
        top + whole > monitor.rcWork.bottom)
        top = std::min<int>(top, std::max<int>(monitor.rcWork.top, monitor.rcWork.bottom - whole));
    SetWindowPos(dialog, nullptr, frame.left, top, frame.right - frame.left, whole, SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace

void GuidanceLine::Attach(HWND dialog) {
    static const GuidanceClass registered;
    window_ = FindWindowExW(dialog, nullptr, kGuidanceLineClass, nullptr);
    RECT strip{0, 0, 0, kHeight};
    RECT client{};
    if (window_ || !MapDialogRect(dialog, &strip) || !GetClientRect(dialog, &client)) return;
    window_ = CreateWindowExW(0, kGuidanceLineClass, L"", WS_CHILD | WS_VISIBLE, 0, client.bottom, client.right,
                              strip.bottom, dialog, nullptr, ThisModule(), nullptr);
    if (window_) GrowDown(dialog, strip.bottom);
}

void GuidanceLine::Show(const std::wstring& text, bool error) {
    if (!window_ || (IsError(window_) == error && TextOf(window_) == text)) return;
    SetWindowLongPtrW(window_, kErrorOffset, error);
    SetWindowTextW(window_, text.c_str());
    NotifyWinEvent(EVENT_OBJECT_NAMECHANGE, window_, OBJID_CLIENT, CHILDID_SELF);
}
