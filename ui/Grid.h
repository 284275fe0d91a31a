// A grid of a dialog: the host's control over a list view, the columns it has, the rows it shows, their check, the menu
// and keys by which rows come and go, pasting and filling, and the history of all that. A dialog may have several. Make
// it before the dialog is shown and call Init when that is initialised.
//
// Grid.cpp has the rows, their check and what the control tells; GridRowCommands.cpp rows that come and go, and the
// history; GridFilling.cpp texts for many cells at once.
#pragma once

#include <functional>
#include <initializer_list>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "entry/host/KrListControl.h"
#include "ui/GridColumn.h"
#include "ui/GridHistory.h"
#include "ui/GridModel.h"
#include "ui/HostDialog.h"
#include "ui/RowCheck.h"

namespace kiro::ui {

struct GridFault {
    int row;
    int column;
    std::string message;  // empty: the host has shown its own
};

class Grid {
  public:
    // The rows may be filled until Init, and must outlive this.
    Grid(HostDialog& dialog, int listId, GridColumns columns, GridModel& rows);

    // ---- What the dialog states before Init ----

    void UseColumns(GridColumns columns) { columns_ = columns; }  // others than those it was made with
    // Column 0 holds the number of the row, counted from 1.
    void NumberRows() { numbered_ = true; }
    // The row menu: "追加", "挿入" and "削除".
    struct RowMenu {
        int fixedRows = 0;                        // from the top on, that cannot be moved or deleted
        bool addAboveLast = false;                // "追加" puts the new row above the last one
        std::function<bool(int row)> mayDelete;   // none: every row; false when the user was told why not
        std::function<void(int from)> rowsMoved;  // rows were added, inserted or deleted
    };
    void OfferRowMenu(RowMenu menu) { menu_ = std::move(menu); }
    // F8: rows for the names that a drawing uses, which the dialog knows.
    void OfferUsedNames(std::function<void()> add) { addUsed_ = std::move(add); }

    using RowChecker = std::function<void(const RowCheck& check)>;
    void CheckRowsWith(RowChecker check, std::function<void()> before = nullptr);

    // The user has moved to another cell, given one another text, or marked a row.
    void OnCellMoved(std::function<void(int row, int column)> moved) { moved_ = std::move(moved); }
    void OnCellChanged(std::function<void(int row, int column)> changed) { changed_ = std::move(changed); }
    void OnMarked(std::function<void()> marked) { marked_ = std::move(marked); }

    // limit: the most rows there may be. marks: kKrSelectNone, kKrSelectSingle or kKrSelectMultiple.
    void Init(int limit, int marks = kKrSelectNone);
    // After Init, when the rows are others as a whole: no cell is current then and none is marked.
    void ShowOthers();

    // ---- Rows and cells ----

    KrListControl& Control() const { return *control_; }
    HWND List() const;
    int Rows() const { return rows_.Count(); }
    int Columns() const { return static_cast<int>(columns_.size()); }
    const std::string& TextAt(int row, int column) const { return rows_.Text(row, column); }
    // A text that the user could have given is part of what he undoes, once the dialog is shown: of the same step as
    // what else changes with it.
    void SetTextAt(int row, int column, std::string_view text);
    // The rows are other ones now, or show something else: nothing of before can be undone.
    void ForgetHistory();
    // The rows show something else for a while, of which this is the history.
    void ExchangeHistory(GridHistory& other);
    void ShowRow(int row);  // after its texts were changed elsewhere
    // For a run over many rows: what has changed in one is painted, where it is on the screen; it is brought there.
    void RepaintRow(int row) const;
    void Reveal(int row) const;
    std::vector<int> RowsOnScreen() const;
    // New rows behind the last one, each with one of the names, as one step; the first becomes the current one.
    bool AddNames(int column, const std::vector<std::string>& names);
    void Fade(const std::vector<int>& rows);  // in grey until the user does something else; nothing else changes
    void SetChoices(int column, const std::vector<std::string>& choices);
    int CurrentRow() const { return control_->GetSelectedItem(); }
    void GoTo(int row, int column) const { control_->ClickCell(row, column); }
    int FirstColumnToEdit(int row) const;  // where the user can start to type at once
    // What is being edited is taken; false when it was refused. A row that Enter or Tab has added behind the last one
    // and that was not used goes again (until then it is not checked).
    bool EndEdit();

    // ---- Checking ----

    // Stops at the first bad row, or goes on and finds all of them; what was only noted never stops it. Without a
    // change since the last check its result still holds. True when all is well.
    enum class Extent { kFirst, kAll };
    bool Check(Extent extent = Extent::kFirst);
    const std::vector<GridFault>& Faults() const { return faults_; }
    void ShowFault(std::size_t index = 0);  // its message, in the message zone
    void Changed() { valid_ = false; }      // something that the check looks at has changed

  private:
    friend class RowCheck;

    void Fill();
    void SetColumns();
    void Number(int from);
    void CheckRow(int row);
    bool Pass(int row, int column);
    int SameTextBelow(int row, int column);
    std::optional<INT_PTR> Notified(LPARAM lParam);
    void TakeChange(int row, int column);
    void Moved();
    std::optional<INT_PTR> ContextMenu(LPARAM lParam);
    POINT MenuPlace(LPARAM lParam) const;

    // ---- Rows that come and go ----

    void ShowKeys() const;
    bool Serve(int request);  // false: nothing for this grid
    void RowCommand(UINT command);
    void AddRow(bool insert);
    bool AddRowBelow();
    bool InsertRows(int at, int count);
    void TakeRows(int at, int count);
    void DeleteRows();
    void RowsChanged(int from);
    std::vector<int> SelectedRows() const;
    std::vector<std::string> TextsOf(int row) const;
    bool LastRowIsUnused() const;
    void DropUnusedRow();
    void Unfade();
    void KeepUnusedRow();  // from now on it is one as the others are
    void Tell(const char* text) const { control_->MessageText(text); }

    // ---- The history ----

    // While one lives all changes are one step.
    class Step {
      public:
        explicit Step(Grid& grid) : grid_(grid) { grid.history_.Begin(grid.Place()); }
        Step(const Step&) = delete;
        Step& operator=(const Step&) = delete;
        ~Step() {
            if (!done_) Done();
        }
        bool Done() {  // whether anything has changed
            done_ = true;
            return grid_.history_.End(grid_.Place());
        }

      private:
        Grid& grid_;
        bool done_ = false;
    };
    GridHistory::Place Place() const { return {control_->GetSelectedItem(), control_->GetSelectedColumn()}; }
    bool Records() const;
    void Record(GridChange change);
    void ReplaceText(int row, int column, std::string text);
    void Undo();
    void Redo();
    void Toggle(GridStep& step, bool reverse);
    void ToggleText(GridChange& change);
    void ToggleRows(GridChange& change);
    std::vector<GridChange::Flag> FlagsOf(int at, int count) const;

    // ---- Texts for many cells ----

    struct Filling;
    void Paste();
    void PasteNames();
    void FillDown();
    void CountUp();
    void FillRows(const std::vector<int>& rows, int left, int right,
                  const std::function<std::optional<std::wstring>(int column, int index)>& text, int first);
    bool Fill(Filling& filling, const std::function<void(Filling&)>& prepare);
    void Want(Filling& filling, int row, int column, std::wstring text) const;
    void WriteWanted(Filling& filling);
    void Give(int row, int column, std::string text);
    void CheckWritten(Filling& filling);
    bool TakeBackBad(int row);
    int Repeated(int row, int column) const;
    bool WantsGoodOnes(const Filling& filling) const;
    void MarkBad(const Filling& filling);
    void TellDone(const char* format, int rows, const Filling& filling) const;
    std::vector<int> RowsFrom(int first, int count);
    GridHistory::Place Start() const;
    int NameColumn() const;

    HostDialog& dialog_;
    int listId_;
    GridColumns columns_;
    GridModel& rows_;
    KrListControlPtr control_;
    bool numbered_ = false;
    int limit_ = 0;
    int marks_ = kKrSelectNone;
    std::optional<RowMenu> menu_;
    RowChecker checkRow_;
    std::function<void()> beforeCheck_;
    std::function<void(int, int)> moved_;
    std::function<void(int, int)> changed_;
    std::function<void()> marked_;
    std::function<void()> addUsed_;
    bool valid_ = false;  // the result of the last check holds
    bool ended_ = false;  // a fault was found that ends the check
    std::vector<GridFault> faults_;
    std::map<int, std::vector<int>> sameBelow_;  // of this check, by column: the next row with the same text, or -1
    GridHistory history_;
    bool toggling_ = false;  // texts come from the history
    Filling* filling_ = nullptr;
    std::set<std::pair<int, int>> refused_;  // cells that were not pasted over: marked until something else is done
    std::vector<int> faded_;                 // rows
    std::vector<std::string> unused_;        // the texts of a row that Enter or Tab has added
};

}  // namespace kiro::ui
