#include "driver/State.h"

#include <cstdio>
#include <filesystem>

namespace kiro::drive {
namespace {

constexpr int kMostFrames = 40;

std::string Utf8(const std::wstring& text) {
    std::string bytes(text.size() * 3, '\0');
    bytes.resize(
        static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, text.data(), static_cast<int>(text.size()),
                                                     bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr)));
    return bytes;
}

// Without asking the window, which may not answer: the text that the system has of it.
std::string Named(HWND window) {
    if (!window) return "none";
    wchar_t name[64] = L"";
    wchar_t text[128] = L"";
    GetClassNameW(window, name, 64);
    InternalGetWindowText(window, text, 128);
    char number[64];
    std::snprintf(number, sizeof number, "%08x id %d ", static_cast<unsigned>(reinterpret_cast<UINT_PTR>(window)),
                  GetDlgCtrlID(window));
    return number + Utf8(name) + " \"" + Utf8(text) + "\"";
}

BOOL CALLBACK AddWindow(HWND window, LPARAM data) {
    auto& report = *reinterpret_cast<std::string*>(data);
    report += "  window " + Named(window);
    report += IsWindowVisible(window) ? ", visible" : ", hidden";
    report += IsWindowEnabled(window) ? ", enabled" : ", disabled";
    if (const HWND owner = GetWindow(window, GW_OWNER)) report += ", owned by " + Named(owner);
    report += "\n";
    return TRUE;
}

std::string Modes(DWORD thread) {
    GUITHREADINFO state{};
    state.cbSize = sizeof state;
    if (!GetGUIThreadInfo(thread, &state)) return "  no state of its windows\n";
    std::string report;
    const auto add = [&](const char* what, HWND window) {
        report += std::string("  ") + what + " " + Named(window) + "\n";
    };
    add("active", state.hwndActive);
    add("focus", state.hwndFocus);
    add("capture", state.hwndCapture);
    add("foreground", GetForegroundWindow());
    if (state.flags & GUI_INMENUMODE) add("in the menu of", state.hwndMenuOwner);
    if (state.flags & GUI_INMOVESIZE) add("moving or sizing", state.hwndMoveSize);
    return report;
}

std::string PlaceOf(DWORD64 address) {
    HMODULE module = nullptr;
    wchar_t path[MAX_PATH] = L"?";
    if (GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                           reinterpret_cast<const wchar_t*>(address), &module))
        GetModuleFileNameW(module, path, MAX_PATH);
    char offset[32];
    std::snprintf(offset, sizeof offset, "+0x%llx",
                  static_cast<unsigned long long>(address - reinterpret_cast<DWORD64>(module)));
    return Utf8(std::filesystem::path(path).filename().wstring()) + offset;
}

// What a callback of the system interrupts cannot be unwound to, but its return addresses are on the same stack: the
// first of each module on the way up.
int AddInterrupted(DWORD64 stack, DWORD64* frames, int count) {
    MEMORY_BASIC_INFORMATION memory{};
    if (!VirtualQuery(reinterpret_cast<const void*>(stack), &memory, sizeof memory) || memory.State != MEM_COMMIT)
        return count;
    const auto* end =
        reinterpret_cast<const DWORD64*>(static_cast<const char*>(memory.BaseAddress) + memory.RegionSize);
    DWORD64 last = 0;
    for (auto word = reinterpret_cast<const DWORD64*>((stack + 7) & ~DWORD64{7}); word < end && count < kMostFrames;
         ++word) {
        DWORD64 base = 0;
        if (!RtlLookupFunctionEntry(*word, &base, nullptr) || base == last) continue;
        last = base;
        frames[count++] = *word;
    }
    return count;
}

std::string Stack(DWORD thread) {
    const HANDLE handle = OpenThread(THREAD_SUSPEND_RESUME | THREAD_GET_CONTEXT, FALSE, thread);
    if (!handle || SuspendThread(handle) == static_cast<DWORD>(-1)) return "  no stack\n";
    // Nothing is allocated while the thread is held: it may hold the heap.
    DWORD64 frames[kMostFrames];
    int count = 0;
    CONTEXT context{};
    context.ContextFlags = CONTEXT_FULL;
    if (GetThreadContext(handle, &context)) {
        while (count < kMostFrames && context.Rip) {
            frames[count++] = context.Rip;
            DWORD64 base = 0;
            const auto entry = RtlLookupFunctionEntry(context.Rip, &base, nullptr);
            if (!entry) {  // a function without a frame: its return address is all that it has on the stack
                if (!context.Rsp) break;
                if (count > 1) {
                    count = AddInterrupted(context.Rsp, frames, count);
                    break;
                }
                context.Rip = *reinterpret_cast<const DWORD64*>(context.Rsp);
                context.Rsp += sizeof(DWORD64);
                continue;
            }
            void* data = nullptr;
            DWORD64 frame = 0;
            RtlVirtualUnwind(UNW_FLAG_NHANDLER, base, context.Rip, entry, &context, &data, &frame, nullptr);
        }
    }
    ResumeThread(handle);
    CloseHandle(handle);
    std::string report;
    for (int i = 0; i < count; ++i) report += "  at " + PlaceOf(frames[i]) + "\n";
    return report;
}

}  // namespace

std::string StateOf(DWORD thread) {
    std::string report = Modes(thread);
    EnumThreadWindows(thread, AddWindow, reinterpret_cast<LPARAM>(&report));
    return report + Stack(thread);
}

}  // namespace kiro::drive
