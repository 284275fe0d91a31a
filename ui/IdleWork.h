// What a dialog does beside its user, in slices between the messages: keys, the mouse and painting come first. It goes
// on under message boxes and ends with the dialog.
#pragma once

#include <functional>

#include "ui/Dialog.h"

namespace kiro::ui {

class IdleWork {
  public:
    // slice: some milliseconds of the work; false when it is done. Make it before the dialog is shown. What a slice
    // throws ends the dialog, as in any handler.
    IdleWork(Dialog& dialog, std::function<bool()> slice);

    void Start();  // or go on; from the dialog's initialisation on
    void Pause();
    bool IsDone() const { return done_; }

  private:
    Dialog& dialog_;
    std::function<bool()> slice_;
    bool done_ = false;
};

}  // namespace kiro::ui
