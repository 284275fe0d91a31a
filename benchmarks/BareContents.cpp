#include "benchmarks/BareContents.h"

#include <commctrl.h>

#include <algorithm>
#include <cwchar>

#include "driver/GridDriver.h"

namespace {

bool HasClass(HWND window, const wchar_t* name) {
    wchar_t text[32];
    return GetClassNameW(window, text, 32) > 0 && std::wcscmp(text, name) == 0;
}

std::vector<std::wstring> EntriesOf(HWND combo) {
    std::vector<std::wstring> entries(static_cast<std::size_t>(SendMessageW(combo, CB_GETCOUNT, 0, 0)));
    for (std::size_t i = 0; i < entries.size(); ++i) {
        entries[i].resize(static_cast<std::size_t>(SendMessageW(combo, CB_GETLBTEXTLEN, i, 0)));
        SendMessageW(combo, CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(entries[i].data()));
    }
    return entries;
}

std::vector<std::vector<std::wstring>> ShownRows(HWND list, int columns, int rows) {
    std::vector<std::vector<std::wstring>> shown;
    const int page = static_cast<int>(SendMessageW(list, LVM_GETCOUNTPERPAGE, 0, 0)) + 1;
    for (int row = 0; row < (std::min)(rows, page); ++row) {
        auto& texts = shown.emplace_back();
        for (int column = 0; column < columns; ++column) texts.push_back(kiro::drive::CellText(list, row, column));
    }
    return shown;
}

// Draws what the list views of a bare dialog leave to their owner: the texts of the row, and nothing else.
LRESULT CALLBACK DrawGrids(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR contents) {
    if (message != WM_DRAWITEM) return DefSubclassProc(dialog, message, wParam, lParam);
    const auto& draw = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
    for (const BareContents::Grid& grid : reinterpret_cast<const BareContents*>(contents)->grids) {
        if (grid.id != static_cast<int>(wParam) || draw.itemID >= grid.shown.size()) continue;
        FillRect(draw.hDC, &draw.rcItem, GetSysColorBrush(COLOR_WINDOW));
        RECT cell = draw.rcItem;
        const int width = static_cast<int>(cell.right - cell.left) / (std::max)(grid.columns, 1);
        for (const std::wstring& text : grid.shown[draw.itemID]) {
            cell.right = cell.left + width;
            DrawTextW(draw.hDC, text.c_str(), -1, &cell, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
            cell.left = cell.right;
        }
    }
    return TRUE;
}

void FillGrid(HWND list, const BareContents::Grid& size) {
    RECT client{};
    GetClientRect(list, &client);
    const int width = static_cast<int>(client.right) / (std::max)(size.columns, 1);
    wchar_t title[] = L"番号";
    for (int i = 0; i < size.columns; ++i) {
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT | LVCF_SUBITEM | LVCF_WIDTH;
        column.pszText = title;
        column.iSubItem = i;
        column.cx = width;
        SendMessageW(list, LVM_INSERTCOLUMNW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&column));
    }
    SendMessageW(list, LVM_SETITEMCOUNT, static_cast<WPARAM>(size.rows), 0);
}

}  // namespace

BareContents ReadContents(HWND dialog) {
    BareContents contents;
    for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        const int id = GetDlgCtrlID(child);
        if (HasClass(child, L"ComboBox")) contents.lists.push_back({id, EntriesOf(child)});
        if (HasClass(child, L"Button") && SendMessageW(child, BM_GETCHECK, 0, 0) == BST_CHECKED)
            contents.checked.push_back(id);
        if (HasClass(child, L"Edit") && GetWindowTextLengthW(child) > 0) {
            wchar_t text[260];
            GetWindowTextW(child, text, 260);
            contents.edits.push_back({id, text});
        }
        if (!HasClass(child, L"SysListView32")) continue;
        const auto header = reinterpret_cast<HWND>(SendMessageW(child, LVM_GETHEADER, 0, 0));
        const int columns = static_cast<int>(SendMessageW(header, HDM_GETITEMCOUNT, 0, 0));
        const int rows = static_cast<int>(SendMessageW(child, LVM_GETITEMCOUNT, 0, 0));
        contents.grids.push_back({id, columns, rows, ShownRows(child, columns, rows)});
    }
    return contents;
}

void FillBare(HWND dialog, const BareContents& contents) {
    for (const BareContents::List& list : contents.lists)
        for (const std::wstring& entry : list.entries)
            SendDlgItemMessageW(dialog, list.id, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(entry.c_str()));
    for (const BareContents::Edit& edit : contents.edits) SetDlgItemTextW(dialog, edit.id, edit.text.c_str());
    for (const int id : contents.checked) SendDlgItemMessageW(dialog, id, BM_SETCHECK, BST_CHECKED, 0);
    if (contents.grids.empty()) return;
    SetWindowSubclass(dialog, DrawGrids, 0, reinterpret_cast<DWORD_PTR>(&contents));
    for (const BareContents::Grid& grid : contents.grids) FillGrid(GetDlgItem(dialog, grid.id), grid);
}
