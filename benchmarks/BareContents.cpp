#include "benchmarks/BareContents.h"

#include <commctrl.h>

#include <cwchar>

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

// The columns and rows alone: the library draws the texts.
void FillGrid(HWND list, const BareContents::GridSize& size) {
    wchar_t title[] = L"番号";
    for (int i = 0; i < size.columns; ++i) {
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT | LVCF_SUBITEM | LVCF_WIDTH;
        column.pszText = title;
        column.iSubItem = i;
        column.cx = 50;
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
        if (!HasClass(child, L"SysListView32")) continue;
        const auto header = reinterpret_cast<HWND>(SendMessageW(child, LVM_GETHEADER, 0, 0));
        contents.grids.push_back({id, static_cast<int>(SendMessageW(header, HDM_GETITEMCOUNT, 0, 0)),
                                  static_cast<int>(SendMessageW(child, LVM_GETITEMCOUNT, 0, 0))});
    }
    return contents;
}

void FillBare(HWND dialog, const BareContents& contents) {
    for (const BareContents::List& list : contents.lists)
        for (const std::wstring& entry : list.entries)
            SendDlgItemMessageW(dialog, list.id, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(entry.c_str()));
    for (const BareContents::GridSize& grid : contents.grids) FillGrid(GetDlgItem(dialog, grid.id), grid);
}
