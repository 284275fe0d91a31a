// Message boxes of the commands. Each is preceded by the system's default beep. Text and caption: Shift-JIS.
#pragma once

#include <windows.h>

#include <string_view>

namespace kiro::ui {

enum class Icon : UINT { kWarning = MB_ICONEXCLAMATION, kError = MB_ICONHAND, kQuestion = MB_ICONQUESTION };

void DefaultBeep();

// A box with OK.
void Tell(HWND owner, std::string_view text, std::string_view caption, Icon icon = Icon::kWarning);
// A box with Yes and No; true for Yes.
bool Ask(HWND owner, std::string_view text, std::string_view caption, Icon icon = Icon::kWarning);

}  // namespace kiro::ui
