// A host program that loads the library for a command and frees it afterwards, again and again.
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <cstdint>
#include <utility>

#include "driver/BareDialog.h"
#include "driver/Driver.h"
#include "driver/Leaks.h"
#include "entry/host/ParamBlocks.h"
#include "entry/host/TARNAINFO.h"
#include "hostlayer/include/KiroHost.h"

using namespace kiro::drive;

namespace {

class Library {
  public:
    Library() : module_(LoadLibraryW(L"kirovanteo.dll")) {
        if (!module_) throw Failure("the library cannot be loaded");
    }
    Library(const Library&) = delete;
    Library& operator=(const Library&) = delete;
    ~Library() { FreeLibrary(module_); }

    void Cancel(const char* command) const {
        const auto address = reinterpret_cast<void*>(GetProcAddress(module_, command));
        static TARNAINFO record;
        static DxfInParamBlock params;
        record.input.importParams = &params;
        Drive([&] { reinterpret_cast<int (*)(TARNAINFO*)>(address)(&record); }, [] { Click(Settle(), IDCANCEL); });
    }

  private:
    HMODULE module_;
};

// The system's libraries that a host has loaded anyhow. What they lose themselves when they come and go with ours is
// not ours.
void KeepSystemLibraries() {
    static bool kept = false;
    if (std::exchange(kept, true)) return;
    LoadLibraryW(L"comdlg32.dll");
    LoadLibraryW(L"uxtheme.dll");
    const Library library;
    const HANDLE style = MakeStyleContext(GetModuleHandleW(L"kirovanteo.dll"));
    ULONG_PTR cookie = 0;
    ActivateActCtx(style, &cookie);
    LoadLibraryW(L"comctl32.dll");  // the one with the current controls
    DeactivateActCtx(0, cookie);
    ReleaseActCtx(style);
}

void Load() { const Library library; }

void LoadAndThrow() {
    const Library library;
    // Throws within, and catches: there is no such file.
    const auto address = reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kiromdl.dll"), "KiroHostLoadModel"));
    char message[100] = "";
    reinterpret_cast<decltype(&KiroHostLoadModel)>(address)(L"?", message, sizeof message);
    EXPECT_STRNE("", message);
}

void LoadAndCall() {
    const Library library;
    library.Cancel("DxfInputDlg");
    library.Cancel("DxfInputPass");
}

// The next ones that the system would give. Both are numbered from below, so one that stays moves them up.
DWORD NextThreadSlot() {
    const DWORD slot = TlsAlloc();
    TlsFree(slot);
    return slot;
}
HANDLE NextHandle() {
    const HANDLE handle = CreateEventW(nullptr, FALSE, FALSE, nullptr);
    CloseHandle(handle);
    return handle;
}

// How many bytes of the heap five rounds cost. Of several series the cheapest counts, because the system fills a cache
// now and then.
std::size_t HeapCost(void (*round)()) {
    KeepSystemLibraries();
    for (int i = 0; i < 3; ++i) round();
    const DWORD slot = NextThreadSlot();
    const HANDLE handle = NextHandle();
    std::size_t least = SIZE_MAX;
    bool sameObjects = false;
    for (int series = 0; series < 4; ++series) {
        const Holdings before = CountHoldings();
        for (int i = 0; i < 5; ++i) round();
        const Holdings after = CountHoldings();
        least = std::min(least, after.heapBytes - before.heapBytes);
        sameObjects |= before.SameObjects(after);
    }
    EXPECT_EQ(slot, NextThreadSlot());
    EXPECT_EQ(handle, NextHandle());
    EXPECT_TRUE(sameObjects);
    return least;
}

}  // namespace

TEST(Load, FreedItLeavesNothing) {
    EXPECT_EQ(0u, HeapCost(Load));
    EXPECT_EQ(0u, HeapCost(LoadAndThrow));
    EXPECT_EQ(nullptr, GetModuleHandleW(L"kirodlglib.dll"));
}

// What the system itself keeps of every dialog is not the library's.
TEST(Load, FreedAfterDialogsItLeavesNoMoreThanTheDialogs) {
    std::size_t dialogs = 0;
    HMODULE module = nullptr;
    {
        const Library kept;
        dialogs = HeapCost(LoadAndCall);
        module = GetModuleHandleW(L"kirodlglib.dll");
    }
    WNDCLASSW left;
    EXPECT_FALSE(GetClassInfoW(module, L"KiroGuidanceLine", &left)) << "its procedure is gone";
    EXPECT_EQ(dialogs, HeapCost(LoadAndCall));
}
