// Learns the current cells of a host's grids from what the grids tell their dialogs (kKrListCurrentCell), so that any
// host's grid will do.
#pragma once

#include <windows.h>

namespace kiro::drive {

// A cell of a grid; {-1, -1}: none.
struct GridPlace {
    int row = -1;
    int column = -1;
    bool operator==(const GridPlace&) const = default;
};

// Listens to the dialogs of this thread while it lives. Drive has one; who opens dialogs otherwise makes one before.
class GridWatch {
  public:
    GridWatch();
    GridWatch(const GridWatch&) = delete;
    GridWatch& operator=(const GridWatch&) = delete;
    ~GridWatch();

  private:
    HHOOK hook_;
};

GridPlace CurrentCell(HWND list);

}  // namespace kiro::drive
