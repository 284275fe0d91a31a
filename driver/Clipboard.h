// The clipboard, which all programs of a machine share: tests that use it hold the lock of that name.
#pragma once

#include <string>

namespace kiro::drive {

// Another program may have it open for the moment; a Failure when it stays open.
void PutOnClipboard(const std::wstring& text);
std::wstring TextOnClipboard();  // "" when there is none

}  // namespace kiro::drive
