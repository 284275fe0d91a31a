// One choice among radio buttons, whatever groups the template puts them into. Where every button is a group of its
// own, the system does not keep them exclusive: this does. The record's convention for such buttons is one int32 each
// that is 0 when the button is selected; Flag gives it.
#pragma once

#include <functional>
#include <initializer_list>
#include <vector>

#include "ui/Dialog.h"

namespace kiro::ui {

class RadioGroup {
  public:
    RadioGroup(Dialog& dialog, std::initializer_list<int> controlIds) : dialog_(dialog), controlIds_(controlIds) {}

    // Binds the buttons: a click selects the button, then chosen runs with its index. Call it before the dialog is
    // shown.
    void OnChosen(std::function<void(int index)> chosen);
    // For buttons that are groups of their own: the focus alone must select none. Call it when the dialog is
    // initialised.
    void SelectByClickOnly() const;

    void Select(int index) const;  // -1: none is selected
    int Selected() const;          // -1: none is selected
    int Flag(int index) const { return Selected() == index ? 0 : 1; }
    void SelectByFlags(std::initializer_list<int> flags) const;  // the first that is 0
    void Enable(bool on) const;

  private:
    Dialog& dialog_;
    std::vector<int> controlIds_;
};

}  // namespace kiro::ui
