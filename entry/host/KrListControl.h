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
//
// Where several rows can be marked, the arrow and page keys with Shift mark the rows that they go over, and the space
// bar or a click with Shift those from the last mark that was set. It is one notification for all of them:
// GetSelectFlag tells which rows are marked.
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

constexpr int kKrSelectNone = -1;  // rows cannot be marked; there is a current cell
constexpr int kKrSelectSingle = 0;
constexpr int kKrSelectMultiple = 1;

// lParam of these notifications; the first three members are an NMHDR.
struct KrListNotify {
    KrWindow list;
    std::uintptr_t listId;
    unsigned int code;
    int row;
    int column;
};

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
