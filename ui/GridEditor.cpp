#include "ui/GridEditor.h"

#include "resources/grid.ids.h"
#include "ui/MessageBoxes.h"

namespace kiro::ui {

GridEditorBase::GridEditorBase(const GridForm& form, GridModel& rows)
    : HostDialog(form.templateId), form_(form), grid_(*this, kGrid, form_.columns, rows) {
    grid_.NumberRows();
    if (form_.rowMenu) {
        grid_.OfferRowMenu({form_.fixedRows, form_.addAboveLast, nullptr, [this](int) { RowsHaveMoved(); }});
    }
    grid_.CheckRowsWith([this](const RowCheck& check) { CheckRow(check); }, [this] { BeforeCheck(); });
    grid_.OnCellMoved([this](int row, int column) { CellMoved(row, column); });
}

const char* GridEditorBase::ClickText(int, int) const { return ""; }

void GridEditorBase::OnInit() {
    InitUtility();
    Load();
    Window(Handle()).SetText(form_.title);
    Utility().SetCaption(form_.title);
    grid_.Init(form_.limit);
    Dress();
    if (grid_.Rows() > 0) grid_.GoTo(0, grid_.FirstColumnToEdit(0));
}

bool GridEditorBase::CheckRows() {
    const bool valid = grid_.Check();
    if (!valid) grid_.ShowFault(grid_.Faults().size() - 1);
    return valid;
}

void GridEditorBase::CellMoved(int row, int column) {
    const bool moved = std::exchange(row_, row) != row;
    grid_.Control().MessageText(ClickText(row, column));
    if (moved) CheckRows();
}

// The row that has come is being filled: it is checked when the user leaves it.
void GridEditorBase::RowsHaveMoved() {
    RowsMoved();
    row_ = grid_.CurrentRow();
    grid_.Control().MessageText(ClickText(row_, grid_.Control().GetSelectedColumn()));
}

void GridEditorBase::OnOk() {
    if (!grid_.EndEdit()) return;
    if (!CheckRows()) return Refused();
    Store();
    if (Save()) End(IDOK);
}

void GridEditorBase::Refused() {
    Tell(Handle(), "設定内容に誤りがあります。", form_.caption, Icon::kError);
    const GridFault fault = grid_.Faults().back();
    grid_.GoTo(fault.row, fault.column);
    row_ = fault.row;
    CheckRows();
}

}  // namespace kiro::ui
