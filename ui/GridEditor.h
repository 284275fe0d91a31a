// A dialog that edits a table in one grid. A class per editor states its form and columns once and says how its rows
// are filled and stored; "設定" checks all of them, and only then something is stored.
#pragma once

#include "ui/Grid.h"

namespace kiro::ui {

struct GridForm {
    int templateId;
    const char* title;    // the dialog's
    const char* caption;  // of the box that refuses "設定"
    GridColumns columns;  // column 0 holds the number of the row
    int limit;            // the most rows there may be
    bool rowMenu = false;
    int fixedRows = 0;  // rows from the top on that cannot be moved, named otherwise or deleted
    bool addAboveLast = false;
};

class GridEditorBase : public HostDialog {
  protected:
    GridEditorBase(const GridForm& form, GridModel& rows);

    virtual void Load() {}                                     // first of all, for an editor that owns its file
    virtual void Dress() {}                                    // when the rows are in the grid: flags, colours, choices
    virtual const char* ClickText(int row, int column) const;  // guidance for a cell that became the current one
    virtual void BeforeCheck() {}
    virtual void CheckRow(const RowCheck& check) = 0;
    virtual void RowsMoved() {}           // rows were added, inserted or deleted
    virtual void Store() = 0;             // all rows are valid
    virtual bool Save() { return true; }  // false keeps the dialog open
    // "設定" was refused: the user is told, and taken to the bad cell: the one that ended the check, or else the last
    // that was noted.
    virtual void Refused();

    kiro::ui::Grid& Grid() { return grid_; }
    const GridForm& Form() const { return form_; }

    void OnInit() override;
    void OnOk() override;

  private:
    bool CheckRows();
    void CellMoved(int row, int column);
    void RowsHaveMoved();

    GridForm form_;
    kiro::ui::Grid grid_;
    int row_ = -1;  // the row that was current when the rows were checked last
};

// Made before the dialog that refers to them.
template <class Row>
struct GridEditorRows {
    GridRows<Row> rows_;
};

// Row: derived from GridRow. Its Check(const RowCheck&) const is used unless the editor overrides CheckRow.
template <class Row>
class GridEditor : protected GridEditorRows<Row>, public GridEditorBase {
  protected:
    explicit GridEditor(const GridForm& form) : GridEditorBase(form, this->rows_) {}
    void CheckRow(const RowCheck& check) override {
        if constexpr (requires(const Row& row) { row.Check(check); }) this->rows_[check.Row()].Check(check);
    }
};

}  // namespace kiro::ui
