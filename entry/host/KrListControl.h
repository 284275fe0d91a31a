// kirodlglib: the grid of the table editors. Text is Shift-JIS. Rows and columns count from 0.
#pragma once

#include "KrUtility.h"

struct tagDRAWITEMSTRUCT;
using KrDrawItem = tagDRAWITEMSTRUCT;  // DRAWITEMSTRUCT
using KrColor = std::uint32_t;         // COLORREF, 0x00BBGGRR

class KrListControl {
  public:
    virtual void Release() = 0;

    // listId: a list view of the dialog; rows: shown at first; limit: the most there may ever be; selection: -1 none,
    // 0 single, 1 multiple.
    virtual void InitList(KrWindow dialog, int listId, int columns, int rows, int limit, int selection) = 0;
    virtual void SetColumn(int column, const char* title, double width) = 0;  // width: share of the sum of all widths
    virtual void SetExtendedStyle(unsigned long style) = 0;                   // 33 = grid lines and full-row selection
    virtual void OnDrawItem(KrDrawItem* request) = 0;                         // for the dialog's WM_DRAWITEM
    virtual void DrawItem() = 0;                                              // redraws the whole grid

    virtual int AddItem() = 0;      // the new last row, or -1 at the limit
    virtual int InsertItem() = 0;   // the new row above the selected one, or -1
    virtual void DeleteItem() = 0;  // the selected row
    virtual int GetItemCount() const = 0;
    virtual void SetItemText(int row, int column, const char* text) = 0;
    virtual int GetItemText(int row, int column, char* out, int size) const = 0;  // length of the whole text

    // kind 0: text. limit: characters that can be typed. prompt: guidance while the cell is edited.
    virtual void SetEdit(int column, int kind, unsigned int limit, const char* prompt) = 0;
    virtual void SetCombo(int column, int kind, const KrStringList* choices, const char* prompt) = 0;
    virtual void SetRowCombo(int row, int column, int kind, const KrStringList* choices, const char* prompt) = 0;
    virtual void SetEditMode(int row, int column) = 0;  // opens the cell for editing
    virtual void CloseComboBox() = 0;

    virtual void ClickItem() = 0;                     // for the list's click notification
    virtual void ClickCell(int row, int column) = 0;  // as if the cell had been clicked
    virtual void GetClickItem(int* row, int* column) const = 0;
    virtual int GetSelectedItem() const = 0;    // -1: none
    virtual int GetSelectedColumn() const = 0;  // -1: none

    virtual void SetErrorFlag(int row, int column, int on) = 0;
    virtual void ErrorText(const char* text) = 0;
    virtual void MessageText(const char* text) = 0;
    virtual void SetAvailableFlag(int row, int column, int on) = 0;
    virtual int GetAvailableFlag(int row, int column) const = 0;
    virtual void SetSelectFlag(int row, int on) = 0;
    virtual int GetSelectFlag(int row) const = 0;
    virtual void ClearSelectFlag() = 0;
    virtual void SetItemColor(int row, int column, KrColor text, KrColor background) = 0;
    virtual void SetParentList(KrListControl* parent) = 0;

    // 1 to 256, with a message of its own in the message zone; not 0 when valid.
    virtual int CheckClassNumber(int row, const char* text) = 0;
    virtual int CheckRevisionNumber(int row, const char* text) = 0;

  protected:
    ~KrListControl() = default;
};

KIRODLGLIB_API KrListControl* KrCreateListControl(KrUtility* utility);
