#include "driver/GridWatch.h"

#include <cwchar>
#include <map>
#include <mutex>

#include "driver/Driver.h"
#include "entry/host/KrListControl.h"

namespace kiro::drive {
namespace {

// Written by the dialog's thread, read by the user's.
std::mutex guard;
std::map<HWND, GridPlace> currentCells;

constexpr wchar_t kProcedureBefore[] = L"KiroGridWatch";

LRESULT CALLBACK DialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto before = reinterpret_cast<WNDPROC>(GetPropW(window, kProcedureBefore));
    if (message == WM_NOTIFY) {
        const auto& notice = *reinterpret_cast<const KrListNotify*>(lParam);
        if (notice.code == kKrListCurrentCell) {
            const std::lock_guard lock(guard);
            currentCells[notice.list] = {notice.row, notice.column};
        }
    } else if (message == WM_NCDESTROY) {
        RemovePropW(window, kProcedureBefore);
        // The system may give the numbers of its grids to other windows.
        const std::lock_guard lock(guard);
        std::erase_if(currentCells, [](const auto& entry) { return !IsWindow(entry.first); });
    }
    return CallWindowProcW(before, window, message, wParam, lParam);
}

// Without the library of the common controls: a program that uses it by itself gets the old style of them.
void Listen(HWND window) {
    const LONG_PTR before = GetWindowLongPtrW(window, GWLP_WNDPROC);
    if (SetPropW(window, kProcedureBefore, reinterpret_cast<HANDLE>(before)))
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(DialogProcedure));
}

// A grid speaks already while its dialog is made. (A hook for all messages would hear it, too, and slow down each.)
LRESULT CALLBACK OnWindowMade(int code, WPARAM wParam, LPARAM lParam) {
    const auto window = reinterpret_cast<HWND>(wParam);
    wchar_t name[16];
    if (code == HCBT_CREATEWND && GetClassNameW(window, name, 16) > 0 && std::wcscmp(name, L"#32770") == 0)
        Listen(window);
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace

GridWatch::GridWatch() : hook_(SetWindowsHookExW(WH_CBT, OnWindowMade, nullptr, GetCurrentThreadId())) {
    if (!hook_) throw Failure("cannot listen to the grids");
}

GridWatch::~GridWatch() { UnhookWindowsHookEx(hook_); }

GridPlace CurrentCell(HWND list) {
    const std::lock_guard lock(guard);
    const auto found = currentCells.find(list);
    return found == currentCells.end() ? GridPlace{} : found->second;
}

}  // namespace kiro::drive
