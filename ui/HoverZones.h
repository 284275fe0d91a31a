// Rectangles of a dialog that the mouse may rest on. Hidden statics of the template say where they are.
#pragma once

#include <functional>
#include <vector>

#include "ui/Dialog.h"

namespace kiro::ui {

class HoverZones {
  public:
    // changed runs when the mouse moves onto a zone or off it: the index of the zone under the mouse, or -1. Bind it
    // before the dialog is shown.
    HoverZones(Dialog& dialog, std::vector<int> staticIds, std::function<void(int index)> changed);

    RECT Zone(int index) const;  // in the dialog's client area

  private:
    void Follow();
    void Leave() { MoveTo(-1); }
    void MoveTo(int index);
    int Under(POINT screenPoint) const;
    UINT_PTR TimerId() const { return reinterpret_cast<UINT_PTR>(this); }

    Dialog& dialog_;
    std::vector<int> staticIds_;
    std::function<void(int)> changed_;
    int current_ = -1;
};

}  // namespace kiro::ui
