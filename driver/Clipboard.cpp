#include "driver/Clipboard.h"

#include <cstring>

#include "driver/Driver.h"

namespace kiro::drive {

namespace {

void Open() {
    for (const ULONGLONG start = GetTickCount64(); !OpenClipboard(nullptr); Sleep(1)) {
        if (GetTickCount64() - start > kPatience) throw Failure("the clipboard cannot be opened");
    }
}

}  // namespace

std::wstring TextOnClipboard() {
    Open();
    std::wstring text;
    if (const HANDLE memory = GetClipboardData(CF_UNICODETEXT)) {
        text = static_cast<const wchar_t*>(GlobalLock(memory));
        GlobalUnlock(memory);
    }
    CloseClipboard();
    return text;
}

void PutOnClipboard(const std::wstring& text) {
    Open();
    EmptyClipboard();
    const std::size_t size = (text.size() + 1) * sizeof(wchar_t);
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, size);
    std::memcpy(GlobalLock(memory), text.c_str(), size);
    GlobalUnlock(memory);
    SetClipboardData(CF_UNICODETEXT, memory);
    CloseClipboard();
}

}  // namespace kiro::drive
