// A host program that asks for one password and then waits, so that another program can look into its memory. It knows
// no password itself.
//
//     password_host RETURNED PARENT     handles that it inherits: an event to set, and the process to wait for
#include <windows.h>

#include <cstdlib>

#include "entry/host/kirovanteo.h"
#include "hostlayer/include/KiroHost.h"

namespace {

HANDLE Inherited(const char* number) { return reinterpret_cast<HANDLE>(std::strtoull(number, nullptr, 10)); }

// Makes the system fetch its copy of the clipboard's text before any dialog does.
void TouchClipboard(HWND window) {
    if (!OpenClipboard(window)) return;
    if (HANDLE data = GetClipboardData(CF_UNICODETEXT)) {
        GlobalLock(data);
        GlobalUnlock(data);
    }
    CloseClipboard();
}

TARNAINFO record{};

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) return 1;
    const HWND owner = CreateWindowExW(0, L"STATIC", L"host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 900, 700, nullptr,
                                       nullptr, nullptr, nullptr);
    TouchClipboard(owner);
    KiroHostSetMainWindow(owner);
    DxfInputPass(&record);
    SecureZeroMemory(&record, sizeof record);
    SetEvent(Inherited(argv[1]));
    WaitForSingleObject(Inherited(argv[2]), INFINITE);
    return 0;
}
