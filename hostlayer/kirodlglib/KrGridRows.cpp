#include "KrGridRows.h"

#include <algorithm>

namespace {

constexpr int kMostColumns = 64;

}  // namespace

void GridRows::Reset(int columns, int rows, int limit, Marks marks) {
    limit_ = std::max(limit, 0);
    markKind_ = marks;
    const auto width = static_cast<std::size_t>(std::clamp(columns, 0, kMostColumns));
    const auto count = static_cast<std::size_t>(std::clamp(rows, 0, limit_));
    columns_.assign(width, {});
    cells_.assign(width * count, {});
    marked_.assign(count, false);
}

bool GridRows::InsertRows(int at, int count) {
    if (count < 0 || count > Room() || at < 0 || at > Rows()) return false;
    const auto rows = static_cast<std::size_t>(count);
    marked_.reserve(marked_.size() + rows);  // nothing fails once the cells are in
    cells_.insert(cells_.begin() + static_cast<std::ptrdiff_t>(Index(at, 0)), rows * columns_.size(), GridCell());
    marked_.insert(marked_.begin() + at, rows, false);
    return true;
}

void GridRows::DeleteRows(int at, int count) {
    if (count <= 0 || !HasRow(at) || !HasRow(at + count - 1)) return;
    const auto first = cells_.begin() + static_cast<std::ptrdiff_t>(Index(at, 0));
    cells_.erase(first, cells_.begin() + static_cast<std::ptrdiff_t>(Index(at + count, 0)));
    marked_.erase(marked_.begin() + at, marked_.begin() + at + count);
}

const GridColumn* GridRows::FindColumn(int column) const {
    return column >= 0 && column < Columns() ? &columns_[static_cast<std::size_t>(column)] : nullptr;
}

const GridCell* GridRows::Find(GridPlace place) const {
    return Has(place) ? &cells_[Index(place.row, place.column)] : nullptr;
}

void GridRows::SetAvailable(GridPlace place, bool available) {
    if (GridCell* cell = Find(place)) cell->available = available;
    GridColumn* column = FindColumn(place.column);
    if (place.row != -1 || !column) return;
    column->available = available;
    for (int row = 0; row < Rows(); ++row) cells_[Index(row, place.column)].available.reset();
}

bool GridRows::IsAvailable(GridPlace place) const {
    const GridColumn* column = FindColumn(place.column);
    if (!column || (place.row != -1 && !HasRow(place.row))) return false;
    const GridCell* cell = Find(place);
    return cell ? cell->available.value_or(column->available) : column->available;
}

CellEditing GridRows::EditingOf(GridPlace place) const {
    const GridCell* cell = Find(place);
    if (!cell || !IsAvailable(place)) return {};
    CellEditing editing = FindColumn(place.column)->editing;
    if (cell->combo) editing.combo = cell->combo;
    if (editing.combo && editing.combo->choices.empty()) editing.combo.reset();
    return editing;
}

bool GridRows::CanEdit(GridPlace place) const {
    const GridCell* cell = Find(place);
    if (!cell || !IsAvailable(place)) return false;
    const CellEditing& editing = FindColumn(place.column)->editing;
    const GridCombo* combo = cell->combo ? cell->combo.get() : editing.combo.get();
    return editing.typed || (combo && !combo->choices.empty());
}

int GridRows::FirstEditableColumn() const {
    const auto found = std::find_if(columns_.begin(), columns_.end(),
                                    [](const GridColumn& c) { return c.available && c.editing.Possible(); });
    return found == columns_.end() ? 0 : static_cast<int>(found - columns_.begin());
}

void GridRows::Mark(int row, bool on) {
    if (!HasRow(row) || markKind_ == Marks::kNone) return;
    if (on && markKind_ == Marks::kSingle) ClearMarks();
    marked_[static_cast<std::size_t>(row)] = on;
}

void GridRows::ClearMarks() { std::fill(marked_.begin(), marked_.end(), false); }

// ---- Ranges ----

void GridMarkRange::Begin(int anchor) {
    before_ = rows_.Marked();
    anchor_ = end_ = anchor;
}

bool GridMarkRange::ExtendTo(int row) {
    if (!rows_.HasRow(anchor_) || !rows_.HasRow(row)) return false;
    const auto [first, last] = std::minmax({order_.IndexOf(anchor_), order_.IndexOf(row)});
    const int before = order_.IndexOf(end_);
    bool changed = false;
    for (int index = std::min(first, before); index <= std::max(last, before); ++index) {
        const int i = order_.RowAt(index);
        const bool on = (index >= first && index <= last) || Before(i);
        changed = changed || on != rows_.IsMarked(i);
        rows_.Mark(i, on);
    }
    end_ = row;
    return changed;
}
