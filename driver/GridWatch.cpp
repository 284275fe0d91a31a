#include "driver/GridWatch.h"

#include <commctrl.h>

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

LRESULT CALLBACK DialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id, DWORD_PTR) {
    if (message == WM_NOTIFY) {
        const auto& notice = *reinterpret_cast<const KrListNotify*>(lParam);
        if (notice.code == kKrListCurrentCell) {
            const std::lock_guard lock(guard);
            currentCells[notice.list] = {notice.row, notice.column};
        }
    } else if (message == WM_NCDESTROY) {
        RemoveWindowSubclass(window, DialogProcedure, id);
        // The system may give the numbers of its grids to other windows.
        const std::lock_guard lock(guard);
        std::erase_if(currentCells, [](const auto& entry) { return !IsWindow(entry.first); });
    }
    return DefSubclassProc(window, message, wParam, lParam);
}

// A grid speaks already while its dialog is made. (A hook for all messages would hear it, too, and slow down each.)
LRESULT CALLBACK OnWindowMade(int code, WPARAM wParam, LPARAM lParam) {
    const auto window = reinterpret_cast<HWND>(wParam);
    wchar_t name[16];
    if (code == HCBT_CREATEWND && GetClassNameW(window, name, 16) > 0 && std::wcscmp(name, L"#32770") == 0)
        SetWindowSubclass(window, DialogProcedure, 0, 0);
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
