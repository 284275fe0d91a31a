// Message boxes of the commands. Each is preceded by the system's default beep. Text and caption: Shift-JIS.
#pragma once

#include <windows.h>

#include <string_view>

namespace kiro::ui {

enum class Icon : UINT { kWarning = MB_ICONEXCLAMATION, kError = MB_ICONHAND, kQuestion = MB_ICONQUESTION };

void DefaultBeep();

// A box with OK.
void Tell(HWND owner, std::string_view text, std::string_view caption, Icon icon = Icon::kWarning);
// A question with Yes and No. What destroys something the Enter key must not agree to.
enum class Default { kYes, kNo };
enum class Answer { kYes, kNo, kNone };  // none: the box was broken off, by WM_QUIT say
Answer Question(HWND owner, std::string_view text, std::string_view caption, Icon icon = Icon::kWarning,
                Default button = Default::kYes);
// True for Yes.
bool Ask(HWND owner, std::string_view text, std::string_view caption, Icon icon = Icon::kWarning,
         Default button = Default::kYes);

}  // namespace kiro::ui
