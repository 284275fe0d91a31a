// The narrow combo beside an edit, of which only the arrow shows. For a while it reaches over the edit, so that its
// list is as wide as both together; its field shows what the edit says, whether that is an entry or not. Its template
// style is NARROW_COMBO_STYLE.
#pragma once

#include <functional>

#include "ui/Dialog.h"

namespace kiro::ui {

class WideningCombo {
  public:
    // When it is wide: while it has the focus, or while its list is open; then the edit gets the focus when the list
    // closes.
    enum class Wide { kWithFocus, kWhileOpen };

    // chosen runs with the index of the entry that the user decided on. Moving through the open list with the arrow
    // keys is no decision yet; closing it is. Make it before the dialog is shown.
    WideningCombo(Dialog& dialog, int comboId, int editId, std::function<void(int index)> chosen,
                  Wide wide = Wide::kWithFocus);

    ComboBox Combo() const { return dialog_.Item<ComboBox>(comboId_); }

  private:
    void Init();
    void Widen();
    void Restore();
    void Draw(const DRAWITEMSTRUCT& request) const;
    void OnDropDown();
    void OnSelChange();
    void OnCloseUp();
    void Choose();

    Dialog& dialog_;
    int comboId_;
    int editId_;
    std::function<void(int)> chosen_;
    bool whileOpen_;
    RECT narrow_{};
    bool wide_ = false;
    int before_ = -1;        // what was selected when the list opened
    bool focused_ = false;   // and whether it had the focus then
    bool moved_ = false;     // the selection moved while the list was open
    bool accepted_ = false;  // and the list was closed on it
};

}  // namespace kiro::ui
