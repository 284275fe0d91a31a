// kirodlglib: the grid of the table editors and choosers. It works on a list view of the dialog's template and holds
// the texts itself. The list view's styles: LVS_REPORT | LVS_OWNERDATA | LVS_OWNERDRAWFIXED | LVS_SINGLESEL |
// LVS_SHOWSELALWAYS. Text is Shift-JIS. Rows and columns count from 0; a row or column that is not there is ignored (a
// text is "", a flag 0).
//
// The grid answers the list view's requests for texts and edits cells in place on its own. There is one current cell,
// which mouse and arrow keys move; the dialog hears of all that as WM_NOTIFY from the list view:
//
//   NM_CLICK, NM_DBLCLK   a cell was clicked: call ClickItem first
//   kKrListCellMoved      the current cell is another one, moved by a key or the right mouse button (KrListNotify)
//   kKrListCellChanged    the user gave a cell another text (KrListNotify)
//   kKrListMarkChanged    the user marked the row or took its mark away, by a click or the space bar, or marked a range
//                         of rows that ends there, with Shift (KrListNotify)
//   kKrListCurrentCell    the current cell is another one, by whatever means: the user, an operation, a row that came
//                         or went; -1 and -1 when there is none any more (KrListNotify). Sent before the others of the
//                         same change. For who watches a grid from outside, such as a test; a dialog goes by the
//                         notifications above.
//   kKrListRequest        a key asks for something that is the dialog's (KrListRequest)
//
// Where several rows can be marked, the arrow and page keys with Shift mark the rows that they go over, and the space
// bar or a click with Shift those from the last mark that was set. It is one notification for all of them:
// GetSelectFlag tells which rows are marked.
//
// Cells can be selected together with the current one, a rectangle on the screen: with Shift and the arrow keys, with
// Ctrl+Shift+Home and End, with Ctrl+A, and with the mouse (Shift and a click, or dragging). The current cell stays
// where it is meanwhile, and is what the dialog's messages are about; it becomes the only one again when it becomes
// another one. Where several rows can be marked, Shift is for the marks, and cells are selected with Ctrl+A and by
// dragging.
//
// Who owns what. The grid has what is seen: the selection, copying it (Ctrl+C: tab-separated lines, as spreadsheets
// have them), and the widths of the columns. Whatever changes rows, or more texts than that of the open cell, is the
// dialog's: it alone knows which rows there may be, what its check says of a text, and what a row has besides its
// texts. So the grid asks the dialog for it (kKrListRequest) and keeps no history: undoing and redoing are the dialog's
// as well, also of the texts that kKrListCellChanged tells of.
//
// Its pop-up menu is the dialog's: WM_CONTEXTMENU with the list view as window, after the current cell has moved to the
// row under the mouse.
#pragma once

#include "KrUtility.h"

struct tagDRAWITEMSTRUCT;
using KrDrawItem = tagDRAWITEMSTRUCT;  // DRAWITEMSTRUCT
using KrColor = std::uint32_t;         // COLORREF, 0x00BBGGRR

constexpr unsigned int kKrListCellMoved = 0xFFFFF800u;  // notification codes below the system's own
constexpr unsigned int kKrListCellChanged = 0xFFFFF801u;
constexpr unsigned int kKrListMarkChanged = 0xFFFFF802u;
constexpr unsigned int kKrListCurrentCell = 0xFFFFF803u;
constexpr unsigned int kKrListRequest = 0xFFFFF804u;

constexpr int kKrSelectNone = -1;  // rows cannot be marked; there is a current cell
constexpr int kKrSelectSingle = 0;
constexpr int kKrSelectMultiple = 1;

// lParam of these notifications but the request; the first three members are an NMHDR.
struct KrListNotify {
    KrWindow list;
    std::uintptr_t listId;
    unsigned int code;
    int row;
    int column;
};

// What the dialog is asked for. Before it nothing is being edited any more.
constexpr int kKrAskPaste = 1;       // Ctrl+V, Shift+Ins: the clipboard's text from the current cell on
constexpr int kKrAskPasteNames = 2;  // Ctrl+Shift+V: a new row for each line of it
constexpr int kKrAskUndo = 3;        // Ctrl+Z, Alt+BackSpace
constexpr int kKrAskRedo = 4;        // Ctrl+Y, Ctrl+Shift+Z
constexpr int kKrAskInsertRow = 5;   // Ins: above the current row
constexpr int kKrAskDeleteRows = 6;  // Del: the rows of the selected cells
constexpr int kKrAskAddRow = 7;      // Enter or Tab in the last cell that can be edited: a row below it
constexpr int kKrAskFillDown = 8;    // Ctrl+D: the first of the selected texts in all cells below it
constexpr int kKrAskCountUp = 9;     // Ctrl+R: numbers that go on from the first two
constexpr int kKrAskKeys = 10;       // F1: which keys there are
constexpr int kKrAskUsedNames = 11;  // F8: a row for each name that a drawing uses

// lParam of kKrListRequest.
struct KrListRequest {
    KrListNotify notice;  // the current cell
    int request;
    int done;  // the dialog sets 1 when the request was for it, be it done or refused with a message; otherwise the key
               // does what it does without the dialog
};

// The colour that a number stands for; 0 when it stands for none.
using KrColorOf = int (*)(int number, KrColor* color);

// What a column holds, for SetColumnKinds.
constexpr unsigned int kKrCellNumber = 1;  // numbers: full-width digits, signs and points become half-width ones

class KrListControl {
  public:
    virtual void Release() = 0;  // before or after the dialog's windows are gone

    // First call. listId: the list view; rows: empty rows at the start; limit: the most there may be. Called again it
    // starts anew, with other columns and rows; a parent list stays.
    virtual void InitList(KrWindow dialog, int listId, int columns, int rows, int limit, int selection) = 0;
    virtual void SetColumn(int column, const char* title, double width) = 0;  // width: share of the sum of all widths
    virtual void SetExtendedStyle(unsigned long style) = 0;                   // 33: grid lines and full-row selection
    virtual void OnDrawItem(KrDrawItem* request) = 0;  // for the dialog's WM_DRAWITEM of the list view
    virtual void DrawItem() = 0;                       // brings the screen up to date with all that was set

    // AddItem: the new last row. InsertItem: the new row above the current one, or the last when none is. Both: empty
    // texts, no flags; the row becomes the current one and is scrolled to; -1 at the limit.
    virtual int AddItem() = 0;
    virtual int InsertItem() = 0;
    virtual void DeleteItem() = 0;  // the current row; the next one, or the last, becomes current
    virtual int GetItemCount() const = 0;
    virtual void SetItemText(int row, int column, const char* text) = 0;
    virtual int GetItemText(int row, int column, char* out, int size) const = 0;  // length of the whole text

    // How a column is edited: by typing (SetEdit), by a drop-down of choices (SetCombo), or both. A column with neither
    // cannot be edited. kind: 0 for typed text, 1 for choices. limit: characters that can be typed. prompt: guidance
    // while the cell is edited that way; "" leaves the message zone as it is. The choices are copied.
    virtual void SetEdit(int column, int kind, unsigned int limit, const char* prompt) = 0;
    virtual void SetCombo(int column, int kind, const KrStringList* choices, const char* prompt) = 0;
    virtual void SetRowCombo(int row, int column, int kind, const KrStringList* choices, const char* prompt) = 0;
    virtual void SetEditMode(int row, int column) = 0;  // opens the cell for editing
    // Takes what is being edited into the cell, as leaving it does; in the grid's children as well. 0 when the text was
    // refused: the cell is still open, has the focus, and the message zone says why. Not 0 when nothing is open.
    virtual int EndEdit() = 0;
    virtual void CloseComboBox() = 0;  // closes an open drop-down; its cell keeps the choice shown

    virtual void ClickItem() = 0;                     // for NM_CLICK and NM_DBLCLK: the clicked cell becomes current
    virtual void ClickCell(int row, int column) = 0;  // makes the cell current, scrolls to it and takes the focus
    virtual void GetClickItem(int* row, int* column) const = 0;  // the cell clicked last, -1 and -1 for none
    virtual int GetSelectedItem() const = 0;                     // row of the current cell; -1: none
    virtual int GetSelectedColumn() const = 0;                   // column of the current cell; -1: none
    // For a list that is to be filled anew: no cell is current, what was being edited is forgotten, and the first rows
    // are in view. Texts, flags and marks stay.
    virtual void ClearCurrentCell() = 0;

    // A cell marked as an error is drawn so that it is found at once, with or without colours.
    virtual void SetErrorFlag(int row, int column, int on) = 0;
    virtual void ErrorText(const char* text) = 0;    // in the utility's message zone, marked as an error
    virtual void MessageText(const char* text) = 0;  // the same as guidance; "" clears
    // available 0: the cell cannot be edited, though its column can. row -1: the whole column.
    virtual void SetAvailableFlag(int row, int column, int available) = 0;
    virtual int GetAvailableFlag(int row, int column) const = 0;
    virtual void SetSelectFlag(int row, int on) = 0;  // marks a row; single: the only one
    virtual int GetSelectFlag(int row) const = 0;
    virtual void ClearSelectFlag() = 0;
    virtual void SetItemColor(int row, int column, KrColor text, KrColor background) = 0;
    // The rows of this grid tell more about the current row of the parent: the pitches of a pattern, the groups of a
    // drive. What is being edited here belongs to that row, so it is taken before the parent's current cell becomes
    // another one, and the dialog hears of it first. As long as it is refused, the parent's current cell stays; when
    // the parent's row is deleted it is forgotten. Nothing else is shared: each grid has its own rows, current cell and
    // scrolling, and the dialog fills the child when the parent's row has changed. Null: no parent. A parent can have
    // several children and a parent of its own. A link ends with either grid.
    virtual void SetParentList(KrListControl* parent) = 0;

    // A class or revision number: 1 to 256, written with half-width digits alone. Not 0 when valid; otherwise a message
    // with the row, counted from 1, and the text is shown as an error.
    virtual int CheckClassNumber(int row, const char* text) = 0;
    virtual int CheckRevisionNumber(int row, const char* text) = 0;

    // ---- Many rows and cells at once ----

    // Empty rows above row at, or behind the last when at is the number of rows: all of them, or none when there is no
    // room or what is being edited was refused; how many. The current cell stays that of its row.
    virtual int InsertRows(int at, int count) = 0;
    // What is being edited is forgotten when its row goes. When the current row goes, the next one or the last becomes
    // current.
    virtual void DeleteRows(int at, int count) = 0;
    virtual int GetRoom() const = 0;  // how many rows there may be more

    // The rows of the selected cells, in the order in which they are seen; at most count of them are written. How many
    // there are: 1 when the current cell is the only one, 0 when none is current.
    virtual int GetSelectedRows(int* rows, int count) const = 0;
    virtual void GetSelectedColumns(int* first, int* last) const = 0;  // -1 and -1: none
    // The current cell becomes the first one, and is scrolled to.
    virtual void SelectCells(int firstRow, int firstColumn, int lastRow, int lastColumn) = 0;
    virtual int GetNextRow(int row) const = 0;  // the row that is seen below; -1: none
    // Where a row is seen, counted from the top as the list view counts its items; and which row is seen there. -1:
    // none.
    virtual int GetPlaceOfRow(int row) const = 0;
    virtual int GetRowAtPlace(int place) const = 0;

    // kinds: kKrCell..., or-ed.
    virtual void SetColumnKinds(int column, unsigned int kinds) = 0;
    // Beside the numbers of the column, and of its choices, their colours are shown. Null: none.
    virtual void SetColumnColors(int column, KrColorOf colorOf) = 0;
    // Below the text of the cell a line with this pattern is shown: lengths drawn and left blank in turn, in
    // millimetres on the screen. count 0: an unbroken line; -1: none. To those who do not see it the lengths are told.
    virtual void SetItemPattern(int row, int column, const double* lengths, int count) = 0;
    // Whether the operator could give the cell this text, by typing or by choosing: not 0 when he could. Otherwise the
    // reason, for him; "" for a cell that cannot be edited. A text that is taken is written to taken as the cell would
    // hold it, without the blanks around it and with its digits as its column has them. wide: UTF-16.
    virtual int TakesText(int row, int column, const char16_t* wide, char* taken, int takenSize, char* reason,
                          int reasonSize) const = 0;
    // A cell whose text is shown in grey, whatever its colours. It can be edited as before.
    virtual void SetFadedFlag(int row, int column, int on) = 0;

  protected:
    ~KrListControl() = default;
};

// A new grid that shows its messages in the utility's message zone, or null when there is no memory. The utility must
// outlive it.
KIRODLGLIB_API KrListControl* KrCreateListControl(KrUtility* utility);

struct KrListControlRelease {
    void operator()(KrListControl* grid) const { grid->Release(); }
};
using KrListControlPtr = std::unique_ptr<KrListControl, KrListControlRelease>;
