// A dialog that edits a table in a grid. A class per editor states its columns and says how rows are filled, checked
// and stored; the rest is here: editing works on the grid's texts, "設定" checks all of them, and only then something
// is stored.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "entry/host/KrListControl.h"
#include "resources/grid.ids.h"
#include "ui/HostDialog.h"

namespace kiro::ui {

// A column of a grid. Texts are Shift-JIS.
struct GridColumn {
    const char* title;
    double width;            // share of the sum of all widths
    unsigned int typed = 0;  // how many characters can be typed; 0: none
    const char* typedPrompt = "";
    int numbers = 0;  // choices from "1" to this; 0: none
    const char* choicePrompt = "";
    const char* const* choices = nullptr;  // other choices, up to a null
};

// What a column of names may hold. The messages have %d for the row and %s for the name.
struct GridNames {
    const char* missing;
    const char* repeated;    // with both rows where it has two %d
    const char* separators;  // what the table's file ends a name at
    const char* separated;   // the message for such a name, or one with a blank, which the file would lose
    std::size_t longest;     // bytes that the file gives back
    const char* tooLong;
};

class GridEditor : public HostDialog {
  protected:
    explicit GridEditor(int templateId);

    struct Shape {
        const char* title;          // the dialog's
        const char* caption;        // of the box that refuses "設定"
        int limit;                  // the most rows there may be
        bool rowCommands;           // rows can be added, inserted and deleted
        int fixedRows = 0;          // rows from the top on that cannot be moved, named otherwise or deleted
        bool addAboveLast = false;  // "追加" puts the new row above the last one
    };
    virtual void Load() {}  // first of all, for an editor that owns its file
    virtual Shape Form() const = 0;
    virtual std::vector<GridColumn> Columns() const = 0;
    virtual int RowCount() const = 0;   // at the start
    virtual void FillRow(int row) = 0;  // at the start; the number in column 0 is there already
    virtual void FillNewRow(int) {}     // added or inserted
    virtual void RowDeleted(int) {}
    virtual void RowsMoved() {}                                // after rows were added, inserted or deleted
    virtual const char* ClickText(int row, int column) const;  // guidance for a cell that became the current one
    // What precedes a check of all rows and follows one that all have passed.
    virtual void BeforeCheck() {}
    // One row: false after Fail.
    virtual bool CheckRow(int row) = 0;
    virtual void Store() = 0;             // all rows are valid
    virtual bool Save() { return true; }  // false keeps the dialog open

    // ---- For the checks ----

    int Rows() const { return grid_->GetItemCount(); }
    std::string TextAt(int row, int column) const;
    int NumberAt(int row, int column) const;  // of a cell that holds a valid one
    void SetTextAt(int row, int column, std::string_view text);
    // The cell is as it should be: its mark goes. Always true.
    bool Pass(int row, int column);
    // The cell is marked and the message shown. Always false.
    bool Fail(int row, int column, std::string message);
    // An integer or a real number from low to high, in half-width characters. message: with %d for the row and %s for
    // the text.
    bool CheckInteger(int row, int column, int low, int high, const char* message);
    bool CheckReal(int row, int column, double low, double high, const char* message);
    // The name is there, in no row below, and such that the table's file gives it back. One column of names a grid.
    bool CheckName(int row, int column, const GridNames& names);
    KrListControl& Grid() const { return *grid_; }

    void OnInit() override;
    void OnOk() override;

  private:
    // For each row the next one below with the same text in the column, or -1. Costs one look at each row.
    std::vector<int> SameTextBelow(int column) const;
    bool CheckNumber(int row, int column, int kind, double low, double high, const char* message);
    void SetColumns();
    void FillRows();
    int FirstColumnToEdit(int row) const;
    void Number(int from);
    bool CheckRows();
    void CellMoved();
    std::optional<INT_PTR> Notified(LPARAM lParam);
    std::optional<INT_PTR> ContextMenu(WPARAM wParam, LPARAM lParam);
    POINT MenuPlace(LPARAM lParam) const;
    void RowCommand(UINT command);
    void AddRow(bool insert);
    void DeleteRow();
    void RowsChanged(int from);

    KrListControlPtr grid_;
    int row_ = -1;               // the row that was current when the rows were checked last
    bool checked_ = false;       // nothing has changed since the last check
    std::vector<int> sameName_;  // of this check
    int badRow_ = -1;            // what the last check found
    int badColumn_ = -1;
    std::string message_;
};

}  // namespace kiro::ui
