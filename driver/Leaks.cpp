#include "driver/Leaks.h"

#include <windows.h>

#include <vector>

extern "C" void* NTAPI RtlGetCurrentPeb();  // of ntdll, in no header

namespace kiro::drive {
namespace {

BOOL CALLBACK CountOwn(HWND window, LPARAM count) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (process == GetCurrentProcessId()) ++*reinterpret_cast<int*>(count);
    return TRUE;
}

int CountWindows() {
    int count = 0;
    const auto data = reinterpret_cast<LPARAM>(&count);
    EnumWindows(
        [](HWND window, LPARAM own) -> BOOL {
            CountOwn(window, own);
            EnumChildWindows(window, CountOwn, own);
            return TRUE;
        },
        data);
    for (HWND window = nullptr; (window = FindWindowExW(HWND_MESSAGE, window, nullptr, nullptr));)
        CountOwn(window, data);
    return count;
}

// The process's table of GDI handles. GetGuiResources would be the documented way; Wine answers 0.
struct GdiHandleEntry {
    UINT64 object;
    UINT owner;
    USHORT unique;
    BYTE type;
    BYTE flags;
    UINT64 user;
};
constexpr std::size_t kGdiTableInPeb = 0xF8;
constexpr std::size_t kGdiHandles = 65536;

void CountGdi(Holdings& holdings) {
    const auto* peb = static_cast<const char*>(RtlGetCurrentPeb());
    const auto* table = *reinterpret_cast<const GdiHandleEntry* const*>(peb + kGdiTableInPeb);
    for (std::size_t i = 0; table && i < kGdiHandles; ++i) {
        if (!table[i].type) continue;
        const auto handle = reinterpret_cast<HGDIOBJ>(i | static_cast<std::size_t>(table[i].unique) << 16);
        switch (GetObjectType(handle)) {
            case OBJ_PEN:
                ++holdings.pens;
                break;
            case OBJ_BRUSH:
                ++holdings.brushes;
                break;
            case OBJ_FONT:
                ++holdings.fonts;
                break;
            case OBJ_BITMAP:
                ++holdings.bitmaps;
                break;
            default:
                break;
        }
    }
}

std::size_t CountHeap() {
    std::vector<HANDLE> heaps(64);
    const DWORD count = GetProcessHeaps(static_cast<DWORD>(heaps.size()), heaps.data());
    heaps.resize(count < heaps.size() ? count : heaps.size());
    std::size_t bytes = 0;
    for (const HANDLE heap : heaps) {
        HeapLock(heap);
        PROCESS_HEAP_ENTRY entry{};
        while (HeapWalk(heap, &entry))
            if (entry.wFlags & PROCESS_HEAP_ENTRY_BUSY) bytes += entry.cbData;
        HeapUnlock(heap);
    }
    return bytes;
}

}  // namespace

Holdings CountHoldings() {
    Holdings holdings;
    holdings.windows = CountWindows();
    CountGdi(holdings);
    holdings.heapBytes = CountHeap();
    return holdings;
}

}  // namespace kiro::drive
