#include "GuidanceLine.h"

#include <algorithm>
#include <memory>

namespace {

// In dialog units, so that the strip grows with the dialog's font and resolution.
constexpr int kHeight = 13;
constexpr int kMargin = 4;

constexpr COLORREF kErrorColor = 0x000000C0;  // dark red
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

bool IsError(HWND window) { return GetWindowLongPtrW(window, 0) != 0; }

std::wstring TextOf(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

HFONT DialogFont(HWND window) {
    const LRESULT font = SendMessageW(GetParent(window), WM_GETFONT, 0, 0);
    return font ? reinterpret_cast<HFONT>(font) : static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
}

// An operator who chose colours of high contrast gets them; the mark tells an error then, too.
COLORREF TextColor(bool error) {
    HIGHCONTRASTW contrast{};
    contrast.cbSize = sizeof contrast;
    const bool plain = SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) &&
                       (contrast.dwFlags & HCF_HIGHCONTRASTON);
    return error && !plain ? kErrorColor : GetSysColor(COLOR_BTNTEXT);
}

void Draw(HWND window, HDC dc, RECT area) {
    FillRect(dc, &area, GetSysColorBrush(COLOR_BTNFACE));
    DrawEdge(dc, &area, BDR_SUNKENOUTER, BF_TOP | BF_ADJUST);

    RECT margin{0, 0, kMargin, 0};
    MapDialogRect(GetParent(window), &margin);
    area.left += margin.right;
    area.right -= margin.right;

    const bool error = IsError(window);
    const Selected font(dc, DialogFont(window));
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, TextColor(error));
    if (error) {
        SIZE mark{};
        DrawTextW(dc, kErrorMark, -1, &area, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
        GetTextExtentPoint32W(dc, kErrorMark, 1, &mark);
        area.left += mark.cx;
    }
    DrawTextW(dc, TextOf(window).c_str(), -1, &area, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
}

// Drawn aside and copied, so that nothing flickers.
void Paint(HWND window, HDC dc) {
    RECT area{};
    GetClientRect(window, &area);
    const MemoryDc memory(CreateCompatibleDC(dc));
    const Bitmap bitmap(CreateCompatibleBitmap(dc, std::max<int>(area.right, 1), std::max<int>(area.bottom, 1)));
    if (!memory || !bitmap) return Draw(window, dc, area);
    const Selected surface(memory.get(), bitmap.get());
    Draw(window, memory.get(), area);
    BitBlt(dc, 0, 0, area.right, area.bottom, memory.get(), 0, 0, SRCCOPY);
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
            return result;
        }
        case WM_GETFONT:
            return reinterpret_cast<LRESULT>(DialogFont(window));
        case WM_NCHITTEST:
            return HTTRANSPARENT;
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
        description.cbWndExtra = sizeof(LONG_PTR);  // whether the text is an error
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
    SetWindowLongPtrW(window_, 0, error);
    SetWindowTextW(window_, text.c_str());
    NotifyWinEvent(EVENT_OBJECT_NAMECHANGE, window_, OBJID_CLIENT, CHILDID_SELF);
}
