#include "ui/MessageBoxes.h"

#include "ui/Text.h"

namespace kiro::ui {
namespace {

int Box(HWND owner, std::string_view text, std::string_view caption, UINT type) {
    DefaultBeep();
    return MessageBoxW(owner, ToWide(text).c_str(), ToWide(caption).c_str(), type);
}

}  // namespace

void DefaultBeep() { MessageBeep(0xFFFFFFFF); }

void Tell(HWND owner, std::string_view text, std::string_view caption, Icon icon) {
    Box(owner, text, caption, MB_OK | static_cast<UINT>(icon));
}

Answer Question(HWND owner, std::string_view text, std::string_view caption, Icon icon, Default button) {
    const UINT type = MB_YESNO | static_cast<UINT>(icon) | (button == Default::kNo ? MB_DEFBUTTON2 : MB_DEFBUTTON1);
    const int answer = Box(owner, text, caption, type);
    return answer == IDYES ? Answer::kYes : answer == IDNO ? Answer::kNo : Answer::kNone;
}

bool Ask(HWND owner, std::string_view text, std::string_view caption, Icon icon, Default button) {
    return Question(owner, text, caption, icon, button) == Answer::kYes;
}

}  // namespace kiro::ui
