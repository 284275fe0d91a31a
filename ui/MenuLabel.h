// A static text that acts as a menu button: the mouse over it draws a raised frame, a press draws a sunken one and
// opens a menu at its lower right corner. Whatever else the user does in the dialog first draws it flat.
#pragma once

#include <functional>

#include "ui/Dialog.h"
#include "ui/Subclass.h"

namespace kiro::ui {

class MenuLabel {
  public:
    // The label needs the style SS_NOTIFY. menuId: a menu resource whose first pop-up is shown; the chosen command is
    // given to chosen. Bind it before the dialog is shown, call Init when it is initialised.
    MenuLabel(Dialog& dialog, int labelId, int menuId, std::function<void(UINT command)> chosen);
    void Init();

  private:
    enum class State { kFlat = 0, kPressed = 1, kHovered = 2 };

    std::optional<LRESULT> OnLabelMessage(UINT message);
    void Press();
    void OpenMenu();
    void Draw(State state);
    void Paint(HDC dc) const;
    RECT Frame() const;  // in the dialog's client area
    bool UnderMouse() const;

    Dialog& dialog_;
    int labelId_;
    int menuId_;
    std::function<void(UINT)> chosen_;
    Subclass subclass_;
    State state_ = State::kFlat;
};

}  // namespace kiro::ui
