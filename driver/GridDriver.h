// The operator at a grid: reads its cells from the list view, points at them, and types into the open editor.
//
//     const Grid grid(dialog, 4029);
//     grid.Click(3, 1);          // makes the cell current
//     grid.Write(L"表題");       // types over its text and presses Enter
//     EXPECT_EQ(L"表題", grid.Cell(3, 1));
//
// Like everything in Driver.h: for the user function, and a Failure when a user could not do it.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <cstring>
#include <functional>
#include <initializer_list>
#include <string>

#include "driver/Clipboard.h"
#include "driver/Driver.h"
#include "driver/GridWatch.h"

namespace kiro::drive {

// Presses something while a key is held down, such as Shift. What is posted leaves the state of the keys as it is, so
// that is set in the dialog's input, to which this thread attaches itself for the moment.
inline void Holding(std::initializer_list<WORD> held, const std::function<void()>& press) {
    const auto hold = [&](BYTE state) {
        BYTE keys[256];
        if (!GetKeyboardState(keys)) throw Failure("the keyboard has no state");
        for (const WORD key : held) keys[key] = state;
        SetKeyboardState(keys);
    };
    if (!AttachThreadInput(GetCurrentThreadId(), UiThread(), TRUE)) throw Failure("the keyboard does not obey");
    hold(0x80);
    press();
    hold(0);
    AttachThreadInput(GetCurrentThreadId(), UiThread(), FALSE);
}

inline void Holding(WORD held, const std::function<void()>& press) { Holding({held}, press); }

inline void KeyHolding(std::initializer_list<WORD> held, WORD key) {
    Holding(held, [&] { Key(key); });
}

inline void KeyHolding(WORD held, WORD key) { KeyHolding({held}, key); }

// The text of a cell, by the list view's own word.
inline std::wstring CellText(HWND list, int row, int column) {
    wchar_t text[260] = L"";
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = text;
    item.cchTextMax = 260;
    Send(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
    return text;
}

class Grid {
  public:
    Grid(HWND dialog, int listId) : list_(Control(dialog, listId)) {}

    // ---- Reading ----

    HWND List() const { return list_; }
    int Rows() const { return static_cast<int>(Send(list_, LVM_GETITEMCOUNT)); }
    std::wstring Cell(int row, int column) const { return CellText(list_, row, column); }
    GridPlace Current() const { return CurrentCell(list_); }
    bool IsSelected(int row) const {  // by the list view's own word, as screen readers hear it
        return Send(list_, LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_SELECTED) != 0;
    }
    int TopRow() const { return static_cast<int>(Send(list_, LVM_GETTOPINDEX)); }
    RECT Area(int row, int column) const {  // of a cell, in the list view
        RECT area{};
        area.left = LVIR_BOUNDS;
        Send(list_, LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&area));
        for (int i = 0; i < column; ++i) area.left += Width(i);
        area.right = area.left + Width(column);
        return area;
    }
    int Width(int column) const {
        return static_cast<int>(Send(list_, LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column)));
    }
    // A pixel of a cell, counted from its upper left corner; from its lower right one when negative.
    COLORREF Pixel(int row, int column, int x, int y) const {
        RedrawWindow(list_, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
        const RECT area = Area(row, column);
        const HDC dc = GetDC(list_);
        const COLORREF color =
            GetPixel(dc, x < 0 ? area.right + x : area.left + x, y < 0 ? area.bottom + y : area.top + y);
        ReleaseDC(list_, dc);
        return color;
    }

    // ---- The open editor ----

    HWND Editor() const {  // an edit or a combo box; null: no cell is open
        for (const wchar_t* name : {L"Edit", L"ComboBox"})
            for (HWND window = nullptr; (window = FindWindowExW(list_, window, name, nullptr));)
                if (IsWindowVisible(window)) return window;
        return nullptr;
    }
    bool IsOpen() const { return Editor() != nullptr; }
    std::wstring Typed() const { return kiro::drive::Text(Opened()); }
    bool IsDropped() const { return Send(Opened(), CB_GETDROPPEDSTATE) != 0; }
    int Choices() const { return static_cast<int>(Send(Opened(), CB_GETCOUNT)); }
    // The keys of a text, to whatever has the focus: the open editor, or the grid, whose current cell opens then.
    void Keys(const std::wstring& text) const {
        for (const wchar_t unit : text) {
            PostMessageW(Focused(), WM_CHAR, unit, 1);
            Sync();
        }
    }
    void Write(const std::wstring& text) const {
        if (!IsOpen() && text.empty()) Key(VK_F2);
        if (IsOpen()) Send(Focused(), EM_SETSEL, 0, -1);
        Keys(text.empty() ? L"\b" : text);
        Key(VK_RETURN);
    }
    void SetText(const std::wstring& text) const {  // as an input method may put it in, whatever the limit
        const HWND window = Focused();
        Send(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
    }
    void Paste(const std::wstring& text) const {
        PutOnClipboard(text);
        PostMessageW(Focused(), WM_PASTE, 0, 0);
        Sync();
    }
    void Drop() const {  // Alt+Down; a posted key cannot hold another one down
        PostMessageW(Focused(), WM_SYSKEYDOWN, VK_DOWN, 0x20000001);
        Sync();
        if (!IsDropped()) throw Failure("no choices are offered");
    }
    HWND ChoiceList() const {
        COMBOBOXINFO info{};
        info.cbSize = sizeof info;
        Send(Opened(), CB_GETCOMBOBOXINFO, 0, reinterpret_cast<LPARAM>(&info));
        return info.hwndList;
    }
    // Picks from the choices with the mouse.
    void Choose(int index) const {
        if (!IsOpen() || !IsDropped()) Drop();
        const HWND list = ChoiceList();
        Send(list, LB_SETTOPINDEX, static_cast<WPARAM>(index));
        RECT item{};
        Send(list, LB_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
        const LPARAM point = MAKELPARAM(item.left + 2, item.top + 2);
        PostMessageW(list, WM_LBUTTONDOWN, MK_LBUTTON, point);
        PostMessageW(list, WM_LBUTTONUP, 0, point);
        Sync();
        Sync();  // what the combo posted when it took the choice
    }

    // ---- Pointing ----

    void Click(int row, int column) const { Press(WM_LBUTTONDOWN, WM_LBUTTONUP, row, column); }
    void DoubleClick(int row, int column) const {
        Click(row, column);
        Press(WM_LBUTTONDBLCLK, WM_LBUTTONUP, row, column);
    }
    void RightClick(int row, int column) const { Press(WM_RBUTTONDOWN, WM_RBUTTONUP, row, column); }

  private:
    HWND Opened() const {
        const HWND editor = Editor();
        if (!editor) throw Failure("no cell is open");
        return editor;
    }
    HWND Focused() const {
        const HWND focus = FocusWindow();
        if (focus != list_ && !IsChild(list_, focus)) throw Failure("the grid has not the focus");
        return focus;
    }
    void Press(UINT down, UINT up, int row, int column) const {
        Send(list_, LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
        const RECT area = Area(row, column);
        const LPARAM point = MAKELPARAM((area.left + area.right) / 2, (area.top + area.bottom) / 2);
        PostMessageW(list_, down, MK_LBUTTON, point);
        PostMessageW(list_, up, 0, point);
        Sync();
    }

    HWND list_;
};

// Goes to a cell with the mouse and types over its text.
inline void Change(const Grid& grid, int row, int column, const std::wstring& text) {
    grid.Click(row, column);
    grid.Write(text);
}

}  // namespace kiro::drive
