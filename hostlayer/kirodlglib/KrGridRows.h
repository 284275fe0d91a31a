// What a grid holds: how its columns are edited, and the texts and flags of its rows. Knows no window. Text is
// Shift-JIS. Rows and columns that are not there are ignored.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "KrGridOrder.h"
#include "entry/host/KrListControl.h"

using GridChoices = std::vector<std::string>;

// One way to choose, shared by all cells that have it.
struct GridCombo {
    GridChoices choices;
    std::string prompt;
};
using GridComboPtr = std::shared_ptr<const GridCombo>;

// How a cell is edited: by typing, by choosing, or both.
struct CellEditing {
    bool typed = false;
    std::size_t limit = 0;  // characters
    std::string prompt;
    GridComboPtr combo;      // null: nothing to choose from
    unsigned int kinds = 0;  // kKrCell...
    KrColorOf colorOf = nullptr;

    bool Possible() const { return typed || combo; }
};

struct GridColumn {
    std::string title;
    bool available = true;
    CellEditing editing;
};

struct GridColors {
    std::uint32_t text;
    std::uint32_t background;
};

// A short text lies in the cell itself, so that a row costs no allocation of its own.
struct GridCell {
    std::string text;
    GridComboPtr combo;  // instead of its column's
    std::optional<GridColors> colors;
    std::optional<bool> available;                       // none: as its column
    std::shared_ptr<const std::vector<double>> pattern;  // lengths in millimetres; empty: an unbroken line
    bool error = false;
    bool faded = false;
};

struct GridPlace {
    int row = -1;
    int column = -1;
    bool operator==(const GridPlace&) const = default;
};

class GridRows {
  public:
    enum class Marks { kNone, kSingle, kMultiple };

    void Reset(int columns, int rows, int limit, Marks marks);
    int Rows() const { return static_cast<int>(marked_.size()); }
    int Columns() const { return static_cast<int>(columns_.size()); }
    bool HasRow(int row) const { return row >= 0 && row < Rows(); }
    bool Has(GridPlace place) const { return HasRow(place.row) && FindColumn(place.column); }

    bool InsertRows(int at, int count);  // all of them; false when there is no room
    void DeleteRows(int at, int count);
    int Room() const { return limit_ - Rows(); }

    const GridColumn* FindColumn(int column) const;  // null when it is not there
    GridColumn* FindColumn(int column) { return const_cast<GridColumn*>(std::as_const(*this).FindColumn(column)); }
    const GridCell* Find(GridPlace place) const;
    GridCell* Find(GridPlace place) { return const_cast<GridCell*>(std::as_const(*this).Find(place)); }

    // Row -1: the column and all its cells.
    void SetAvailable(GridPlace place, bool available);
    bool IsAvailable(GridPlace place) const;
    CellEditing EditingOf(GridPlace place) const;  // not possible for a cell that is not available
    bool CanEdit(GridPlace place) const;
    int FirstEditableColumn() const;  // by its column; 0 when there is none

    Marks MarkKind() const { return markKind_; }
    bool IsMarked(int row) const { return HasRow(row) && marked_[static_cast<std::size_t>(row)]; }
    void Mark(int row, bool on);
    void ClearMarks();
    const std::vector<bool>& Marked() const { return marked_; }

  private:
    std::size_t Index(int row, int column) const {
        return static_cast<std::size_t>(row) * columns_.size() + static_cast<std::size_t>(column);
    }

    std::vector<GridColumn> columns_;
    std::vector<GridCell> cells_;  // row by row
    std::vector<bool> marked_;     // one for each row
    int limit_ = 0;
    Marks markKind_ = Marks::kNone;
};

// The rows that Shift marks: all from the anchor to the row where the range ends, as they are seen. A row that leaves
// the range gets the mark back that it had before.
class GridMarkRange {
  public:
    GridMarkRange(GridRows& rows, const GridOrder& order) : rows_(rows), order_(order) {}
    void Begin(int anchor);
    void Forget() { anchor_ = -1; }  // rows came or went, or were marked by the program
    bool HasBegun() const { return anchor_ >= 0; }
    bool ExtendTo(int row);  // true when a mark is another one

  private:
    bool Before(int row) const { return before_[static_cast<std::size_t>(row)]; }

    GridRows& rows_;
    const GridOrder& order_;
    int anchor_ = -1;
    int end_ = -1;
    std::vector<bool> before_;
};
