// One choice among radio buttons, whatever groups the template puts them into. Where every button is a group of its
// own, the system does not keep them exclusive: this does.
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

    void Select(int index) const;  // -1: none is selected
    int Selected() const;          // -1: none is selected
    void Enable(bool on) const;

  private:
    Dialog& dialog_;
    std::vector<int> controlIds_;
};

}  // namespace kiro::ui
