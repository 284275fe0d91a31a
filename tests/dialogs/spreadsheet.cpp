// A program like those that grids exchange blocks with: another process, which offers its text and makes it only when
// somebody asks. Told by messages to its window, of the class that is named as the program:
//
//     WM_SETTEXT   the text of its own
//     WM_COPY      offers that to all programs
//     WM_PASTE     takes what is offered as its own
//     WM_CLOSE     ends it, as does a minute
#include <windows.h>

#include <cstring>
#include <string>

namespace {

std::wstring OwnText(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)), L'\0');
    GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1);
    return text;
}

void Render(HWND window) {
    const std::wstring text = OwnText(window);
    const std::size_t size = (text.size() + 1) * sizeof(wchar_t);
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, size);
    std::memcpy(GlobalLock(memory), text.c_str(), size);
    GlobalUnlock(memory);
    SetClipboardData(CF_UNICODETEXT, memory);
}

void Take(HWND window) {
    if (const HANDLE memory = GetClipboardData(CF_UNICODETEXT)) {
        SetWindowTextW(window, static_cast<const wchar_t*>(GlobalLock(memory)));
        GlobalUnlock(memory);
    }
}

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_COPY:
        case WM_PASTE:
            if (!OpenClipboard(window)) return FALSE;
            if (message == WM_PASTE) Take(window);
            if (message == WM_COPY && EmptyClipboard()) SetClipboardData(CF_UNICODETEXT, nullptr);
            CloseClipboard();
            return TRUE;
        case WM_RENDERFORMAT:
            Render(window);
            return 0;
        case WM_TIMER:
        case WM_DESTROY:
            PostQuitMessage(0);
            return 0;
        default:
            return DefWindowProcW(window, message, wParam, lParam);
    }
}

}  // namespace

int main() {
    WNDCLASSW definition{};
    definition.lpfnWndProc = Procedure;
    definition.hInstance = GetModuleHandleW(nullptr);
    definition.lpszClassName = L"spreadsheet";
    RegisterClassW(&definition);
    const HWND window = CreateWindowExW(0, definition.lpszClassName, L"", WS_OVERLAPPED, 0, 0, 10, 10, nullptr, nullptr,
                                        definition.hInstance, nullptr);
    SetTimer(window, 1, 60000, nullptr);
    for (MSG message; GetMessageW(&message, nullptr, 0, 0) > 0;) DispatchMessageW(&message);
}
