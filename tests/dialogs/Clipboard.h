// The clipboard, which all programs of a machine share: tests that use it hold the lock of that name.
#pragma once

#include <windows.h>

#include <cstring>
#include <string>

#include "driver/Driver.h"

inline void PutIntoClipboard(const std::wstring& text) {
    // Another program may have it open for the moment.
    for (const ULONGLONG start = GetTickCount64(); !OpenClipboard(nullptr); Sleep(1)) {
        if (GetTickCount64() - start > kiro::drive::kPatience)
            throw kiro::drive::Failure("the clipboard cannot be opened");
    }
    EmptyClipboard();
    const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, bytes);
    std::memcpy(GlobalLock(memory), text.c_str(), bytes);
    GlobalUnlock(memory);
    SetClipboardData(CF_UNICODETEXT, memory);
    CloseClipboard();
}
