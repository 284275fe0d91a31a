#include "model/ModelGrid.h"

#include <utility>

#include "ui/MessageBoxes.h"

bool CheckModelGrid(kiro::ui::Grid& grid, const char* message, kiro::ui::Grid::RowChecker check) {
    ClearMarks(grid);
    grid.CheckRowsWith(std::move(check));
    grid.Changed();
    if (grid.Check(kiro::ui::Grid::Extent::kAll)) return true;
    // A number that is marked stands for its row.
    const kiro::ui::GridFault first = grid.Faults().front();
    grid.GoTo(first.row, first.column > 0 ? first.column : grid.FirstColumnToEdit(first.row));
    TellInGuidance(grid, message);
    return false;
}

void TellInGuidance(const kiro::ui::Grid& grid, const char* error) {
    kiro::ui::DefaultBeep();
    grid.Control().ErrorText(error);
}

void BackToGrid(const kiro::ui::Grid& grid) {
    grid.Control().DrawItem();
    SetFocus(grid.List());
}

void ClearMarks(const kiro::ui::Grid& grid) {
    for (int row = 0; row < grid.Rows(); ++row)
        for (int column = 0; column < grid.Columns(); ++column) grid.Control().SetErrorFlag(row, column, 0);
    grid.Control().MessageText("");
}
