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

bool Ask(HWND owner, std::string_view text, std::string_view caption, Icon icon) {
    return Box(owner, text, caption, MB_YESNO | static_cast<UINT>(icon)) == IDYES;
}

}  // namespace kiro::ui
