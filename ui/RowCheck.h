// The check of one row of a grid. A cell that passes loses its mark, one that fails gets it, and its message is kept
// for whoever shows the result. Every check gives whether the cell has passed.
#pragma once

#include <cstddef>
#include <string>

#include "entry/host/KrListControl.h"

namespace kiro::ui {

class Grid;

// The message for a name that another row has as well.
struct GridRepeat {
    const char* format;  // with %d for the row, %d for the other row where bothRows, and %s for the name
    bool bothRows;
};

// What the file of a table can give back of a name.
struct GridStorable {
    const char* separators;  // where the file ends a name; blanks it loses in any case
    const char* separated;   // the message, with %d for the row and %s for the name
    std::size_t longest;     // bytes
    const char* tooLong;
};

class RowCheck {
  public:
    RowCheck(Grid& grid, int row) : grid_(grid), row_(row) {}

    int Row() const { return row_; }
    const std::string& Text(int column) const;

    bool Pass(int column) const;
    bool Fail(int column, std::string message) const;
    // The cell is bad, and the check goes on. It may be a cell of another row, by a RowCheck for that.
    void Note(int column, std::string message) const;

    // The messages have %d for the row and %s for the text where they have them.
    bool Given(int column, const char* missing) const;
    bool Unlike(int column, const GridRepeat& repeat) const;  // the rows below; the first row of a name is marked
    bool Storable(int column, const GridStorable& storable) const;
    // Numbers in half-width characters, from low to high.
    bool Integer(int column, int low, int high, const char* message) const;
    bool Real(int column, double low, double high, const char* message) const;
    // A check of the host's grid, which shows its message itself.
    using HostCheck = int (KrListControl::*)(int row, const char* text);
    bool ByHost(int column, HostCheck check) const;

  private:
    bool Number(int column, int kind, double low, double high, const char* message) const;

    Grid& grid_;
    int row_;
};

}  // namespace kiro::ui
