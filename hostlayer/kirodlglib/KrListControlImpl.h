// The grid of a dialog, over a list view with virtual rows. Its operations never throw: one that runs out of memory
// does nothing.
//
// KrListControlImpl.cpp holds the operations, KrListControlMessages.cpp the procedures of its windows,
// KrListControlInput.cpp what windows and operator send, KrListControlCells.cpp what is done with many cells at once,
// KrListControlView.cpp how the rows are looked at. The rows, the list view, the editor, the links and the rest have
// classes of their own; here they work together.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include "KrCellEditor.h"
#include "KrFindBar.h"
#include "KrGridAccessible.h"
#include "KrGridLinks.h"
#include "KrGridOrder.h"
#include "KrGridRows.h"
#include "KrGridSelection.h"
#include "KrGridView.h"
#include "KrTextTip.h"
#include "entry/host/KrListControl.h"

class KrListControlImpl final : public KrListControl,
                                private CellEditorHost,
                                private LinkedGrid,
                                private ReadableGrid,
                                private FindBarHost {
  public:
    explicit KrListControlImpl(KrUtility* utility) : utility_(utility), editor_(*this, utility) {}
    KrListControlImpl(const KrListControlImpl&) = delete;
    KrListControlImpl& operator=(const KrListControlImpl&) = delete;

    void Release() override;

    void InitList(KrWindow dialog, int listId, int columns, int rows, int limit, int selection) override;
    void SetColumn(int column, const char* title, double width) override;
    void SetExtendedStyle(unsigned long style) override;
    void OnDrawItem(KrDrawItem* request) override;
    void DrawItem() override;

    int AddItem() override;
    int InsertItem() override;
    void DeleteItem() override;
    int GetItemCount() const override { return rows_.Rows(); }
    void SetItemText(int row, int column, const char* text) override;
    int GetItemText(int row, int column, char* out, int size) const override;

    void SetEdit(int column, int kind, unsigned int limit, const char* prompt) override;
    void SetCombo(int column, int kind, const KrStringList* choices, const char* prompt) override;
    void SetRowCombo(int row, int column, int kind, const KrStringList* choices, const char* prompt) override;
    void SetEditMode(int row, int column) override;
    int EndEdit() override;
    void CloseComboBox() override;

    void ClickItem() override;
    void ClickCell(int row, int column) override;
    void GetClickItem(int* row, int* column) const override;
    int GetSelectedItem() const override { return current_.row; }
    int GetSelectedColumn() const override { return current_.row < 0 ? -1 : current_.column; }
    void ClearCurrentCell() override;

    void SetErrorFlag(int row, int column, int on) override;
    void ErrorText(const char* text) override;
    void MessageText(const char* text) override;
    void SetAvailableFlag(int row, int column, int available) override;
    int GetAvailableFlag(int row, int column) const override { return rows_.IsAvailable({row, column}); }
    void SetSelectFlag(int row, int on) override;
    int GetSelectFlag(int row) const override { return rows_.IsMarked(row); }
    void ClearSelectFlag() override;
    void SetItemColor(int row, int column, KrColor text, KrColor background) override;
    void SetParentList(KrListControl* parent) override;

    int CheckClassNumber(int row, const char* text) override;
    int CheckRevisionNumber(int row, const char* text) override;

    int InsertRows(int at, int count) override;
    void DeleteRows(int at, int count) override;
    int GetRoom() const override { return rows_.Room(); }
    int GetSelectedRows(int* rows, int count) const override;
    void GetSelectedColumns(int* first, int* last) const override;
    void SelectCells(int firstRow, int firstColumn, int lastRow, int lastColumn) override;
    int GetNextRow(int row) const override;
    int GetPlaceOfRow(int row) const override { return rows_.HasRow(row) ? order_.IndexOf(row) : -1; }
    int GetRowAtPlace(int place) const override { return rows_.HasRow(place) ? order_.RowAt(place) : -1; }
    void SetColumnKinds(int column, unsigned int kinds) override;
    void SetColumnColors(int column, KrColorOf colorOf) override;
    void SetItemPattern(int row, int column, const double* lengths, int count) override;
    int TakesText(int row, int column, const char16_t* wide, char* taken, int takenSize, char* reason,
                  int reasonSize) const override;
    void SetFadedFlag(int row, int column, int on) override;

  private:
    // While one of these lives the object does, also when the dialog releases it in the middle of a message.
    class Busy {
      public:
        explicit Busy(KrListControlImpl& grid) : grid_(grid) { ++grid_.busy_; }
        Busy(const Busy&) = delete;
        Busy& operator=(const Busy&) = delete;
        ~Busy() {
            if (--grid_.busy_ == 0 && grid_.released_) delete &grid_;
        }

      private:
        KrListControlImpl& grid_;
    };
    enum class By { kProgram, kUser };

    ~KrListControlImpl();
    bool Attach(HWND dialog, HWND list);
    bool HookList(HWND list);
    static void UnhookList(HWND list);
    bool JoinDialog(HWND dialog);
    void LeaveDialog();
    void RowsChanged();
    void ColumnsChanged();

    // The current cell.
    void SetCurrent(GridPlace place, By by);
    void Notify(unsigned int code, GridPlace place);
    void Announce(DWORD event, GridPlace place) const;
    bool MakeCurrent();
    void ShowWholeText();
    int Insert(int at);
    bool AddRows(int at, int count);
    bool RemoveRows(int at, int count);

    // The cells that are selected with the current one.
    GridArea Selected() const { return selection_.Area(Current(), order_); }
    bool SelectsByShift() const { return rows_.MarkKind() != GridRows::Marks::kMultiple; }
    void ExtendTo(GridPlace end, bool reveal = true);
    void ExtendWithMouse(POINT point);
    void SelectAll();
    void ForgetSelection();
    void Copy();
    bool OnChord(WPARAM key);
    bool OnFunctionKey(WPARAM key, bool shift);
    bool Ask(int request);

    // How the rows are looked at.
    struct Sorting {
        int column = -1;  // none: the table's order
        bool descending = false;
    };
    void SortBy(int column);
    void Sort();
    void ForgetSorting();
    void FitColumn(int column);
    void OpenFind();
    void OnFind(FindBarHost::Event event) override;
    void FindNext(bool forwards);
    void Find(GridPlace from, bool forwards, bool here);

    // Marks that the user gives.
    bool WantsRange() const;
    void ToggleMark();
    void ExtendMarks(int from);
    void MarksChanged();

    // Editing.
    bool OpenEditor(KrCellEditor::Start start, bool prompts = true);
    bool Commit(bool takeFocus);
    void OnEditor(EditorEvent event) override;
    std::optional<GridPlace> NextToEdit(GridPlace from, bool forwards) const;
    void OpenNext(bool forwards);
    void Taken(const KrStringList* choices, const char* prompt, GridComboPtr& combo) const;

    // For the linked grids, and for programs that read the screen aloud.
    bool TakeEdits() override;
    void DropEdits() override;
    const GridRows& Rows() const override { return rows_; }
    const KrGridView& View() const override { return view_; }
    bool IsSelected(GridPlace place) const override { return Selected().Has(order_.IndexOf(place.row), place.column); }
    GridPlace Current() const override { return current_.row < 0 ? GridPlace{} : current_; }
    void GoTo(GridPlace place) override { ClickCell(place.row, place.column); }

    // Messages of the two windows; none: as usual.
    struct Hook;
    static LRESULT CALLBACK ListProc(HWND, UINT, WPARAM, LPARAM);
    struct Dialog;
    static LRESULT CALLBACK DialogProc(HWND, UINT, WPARAM, LPARAM, UINT_PTR, DWORD_PTR dialog);
    LRESULT UsualOfList(UINT message, WPARAM wParam, LPARAM lParam) const;
    std::optional<LRESULT> OnList(UINT message, WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> OnListMouse(UINT message, WPARAM wParam, LPARAM lParam);
    void RelayToTip(UINT message, WPARAM wParam, LPARAM lParam);
    bool Drag(UINT message, POINT point);
    std::optional<LRESULT> OnListText(UINT message, WPARAM wParam, LPARAM lParam);
    void AfterList(UINT message);
    std::optional<LRESULT> OnHeader(const NMHEADERW& header);
    bool OnKey(WPARAM key);
    void OnCharacter(wchar_t character);
    std::optional<GridPlace> Target(WPARAM key, GridPlace from) const;
    bool Navigate(WPARAM key, bool shift = false);
    void GoOn();
    void MoveTo(GridPlace place, bool marks);
    bool Press(POINT point, bool right);
    std::optional<LRESULT> OnDialog(UINT message, WPARAM wParam, LPARAM lParam);
    void AnswerText(NMLVDISPINFOW& request) const;
    void Dragged(POINT from);
    void BeforeClick(const NMITEMACTIVATE& click);
    void AfterClick(UINT code);

    int CheckNumber(int row, const char* text, const char* message);

    KrUtility* utility_;
    HWND dialog_ = nullptr;
    int listId_ = 0;
    GridRows rows_;
    GridOrder order_;
    GridMarkRange range_{rows_, order_};
    Sorting sorting_;
    GridSelection selection_;
    KrGridView view_{rows_, order_};
    KrCellEditor editor_;
    KrGridLinks links_{*this};
    KrTextTip tip_;
    KrFindBar find_{*this};
    GridPlace findFrom_;   // where the search for what is being typed began
    bool missed_ = false;  // the text was not found
    KrAccessibleOf<KrGridAccessible> accessible_;
    GridPlace current_;  // row -1: none; the column is that of the last one
    GridPlace clicked_;
    bool clickPending_ = false;  // a click that the dialog was told of and ClickItem has not dealt with
    bool clickMarks_ = false;
    bool clickOpens_ = false;
    bool rightPressed_ = false;
    bool dragging_ = false;    // the mouse selects cells
    bool dragged_ = false;     // it did: the release is no click
    bool shifting_ = false;    // the current cell got where it is with Shift held down
    bool errorShown_ = false;  // the last message that the dialog gave
    int busy_ = 0;
    bool released_ = false;
};
