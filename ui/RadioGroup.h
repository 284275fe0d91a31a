// One choice among radio buttons, whatever groups the template puts them into. Where every button is a group of its
// own, the system neither keeps them exclusive nor goes from one to another with the arrow keys: this does. The Tab key
// then stops at the selected button, as it does within a group.
#pragma once

#include <functional>
#include <initializer_list>
#include <memory>
#include <vector>

#include "ui/Dialog.h"

namespace kiro::ui {

class RadioGroup {
  public:
    // Make it before the dialog is shown.
    RadioGroup(Dialog& dialog, std::initializer_list<int> controlIds);

    // Binds the buttons: a click selects the button, then chosen (which may be null) runs with its index. Call it
    // before the dialog is shown; the group itself need not stay.
    void OnChosen(std::function<void(int index)> chosen);

    void Select(int index) const;  // -1: none is selected
    int Selected() const;          // -1: none is selected
    void Enable(bool on) const;

  private:
    class ArrowKeys;

    Button At(std::size_t index) const { return dialog_.Item<Button>(controlIds_[index]); }

    Dialog& dialog_;
    std::vector<int> controlIds_;
    std::shared_ptr<ArrowKeys> arrowKeys_;  // of all copies
};

}  // namespace kiro::ui
