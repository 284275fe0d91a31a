#include "benchmarks/BareContents.h"

#include <commctrl.h>

#include <algorithm>
#include <cwchar>
#include <utility>

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
        for (std::size_t column = 0; column < grid.columns.size(); ++column) {
            const std::wstring& text = grid.shown[draw.itemID][column];
            cell.right = cell.left + grid.columns[column].width;
            DrawTextW(draw.hDC, text.c_str(), -1, &cell, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
            cell.left = cell.right;
        }
    }
    return TRUE;
}

std::vector<BareContents::Column> ColumnsOf(HWND list) {
    const auto header = reinterpret_cast<HWND>(SendMessageW(list, LVM_GETHEADER, 0, 0));
    std::vector<BareContents::Column> columns(static_cast<std::size_t>(SendMessageW(header, HDM_GETITEMCOUNT, 0, 0)));
    for (std::size_t i = 0; i < columns.size(); ++i) {
        wchar_t title[260] = L"";
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT | LVCF_WIDTH;
        column.pszText = title;
        column.cchTextMax = 260;
        SendMessageW(list, LVM_GETCOLUMNW, i, reinterpret_cast<LPARAM>(&column));
        columns[i] = {title, column.cx};
    }
    return columns;
}

int HeightOfRows(HWND list) {
    RECT row{};
    row.left = LVIR_BOUNDS;
    return SendMessageW(list, LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&row)) ? row.bottom - row.top : 0;
}

void FillGrid(HWND list, const BareContents::Grid& grid) {
    SendMessageW(list, LVM_SETEXTENDEDLISTVIEWSTYLE, 0, static_cast<LPARAM>(grid.style));
    for (std::size_t i = 0; i < grid.columns.size(); ++i) {
        std::wstring title = grid.columns[i].title;
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT | LVCF_SUBITEM | LVCF_WIDTH;
        column.pszText = title.data();
        column.iSubItem = static_cast<int>(i);
        column.cx = grid.columns[i].width;
        SendMessageW(list, LVM_INSERTCOLUMNW, i, reinterpret_cast<LPARAM>(&column));
    }
    SendMessageW(list, LVM_SETITEMCOUNT, static_cast<WPARAM>(grid.rows), 0);
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
        const auto style = static_cast<DWORD>(SendMessageW(child, LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0));
        std::vector<BareContents::Column> columns = ColumnsOf(child);
        const int rows = static_cast<int>(SendMessageW(child, LVM_GETITEMCOUNT, 0, 0));
        auto shown = ShownRows(child, static_cast<int>(columns.size()), rows);
        contents.grids.push_back({id, style, HeightOfRows(child), std::move(columns), rows, std::move(shown)});
    }
    return contents;
}

int RowHeightOf(const BareContents& contents, int listId) {
    for (const BareContents::Grid& grid : contents.grids)
        if (grid.id == listId) return grid.rowHeight;
    return 0;
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
