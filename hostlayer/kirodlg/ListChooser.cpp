#include "ListChooser.h"

#include <commctrl.h>

#include "ListChooser.ids.h"

namespace {

extern "C" IMAGE_DOS_HEADER __ImageBase;  // this DLL, whose template it is

constexpr int kNumberPercent = 18;  // of the list's width

struct Opened {
    const ListChooser& chooser;
    std::vector<int> chosen;  // has room for all rows: nothing in the dialog's procedure takes memory
};

HWND List(HWND dialog) { return GetDlgItem(dialog, kChooserList); }

void SetColumns(HWND dialog, const ListChooser& chooser) {
    const HWND list = List(dialog);
    RECT area{};
    GetClientRect(list, &area);
    const int width = static_cast<int>(area.right) - GetSystemMetricsForDpi(SM_CXVSCROLL, GetDpiForWindow(dialog));
    const struct {
        const wchar_t* title;
        int alignment;
        int percent;
    } columns[] = {{L"番号", LVCFMT_LEFT, kNumberPercent},
                   {chooser.textTitle, chooser.textAlignment, chooser.textPercent},
                   {L"アイテム数", LVCFMT_RIGHT, 100 - kNumberPercent - chooser.textPercent}};
    int index = 0;
    for (const auto& column : columns) {
        LVCOLUMNW entry{};
        entry.mask = LVCF_FMT | LVCF_WIDTH | LVCF_TEXT;
        entry.fmt = column.alignment;
        entry.cx = width * column.percent / 100;
        entry.pszText = const_cast<wchar_t*>(column.title);
        SendMessageW(list, LVM_INSERTCOLUMNW, static_cast<WPARAM>(index++), reinterpret_cast<LPARAM>(&entry));
    }
}

void SetCell(HWND list, int row, int column, const wchar_t* text) {
    LVITEMW item{};
    item.mask = LVIF_TEXT;
    item.iItem = row;
    item.iSubItem = column;
    item.pszText = const_cast<wchar_t*>(text);
    SendMessageW(list, column == 0 ? LVM_INSERTITEMW : LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
}

void SetRows(HWND list, const ListChooser& chooser) {
    int row = 0;
    int current = 0;
    for (const ChooserRow& source : chooser.rows) {
        wchar_t number[16];
        wsprintfW(number, L"%d", source.number);
        SetCell(list, row, 0, number);
        SetCell(list, row, 1, source.text.c_str());
        SetCell(list, row, 2, source.items.c_str());
        if (source.number == chooser.current) current = row;
        ++row;
    }
    ListView_SetItemState(list, current, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    ListView_EnsureVisible(list, current, FALSE);
}

// The result is FALSE when the focus has been set.
INT_PTR Fill(HWND dialog, const ListChooser& chooser) {
    const HWND list = List(dialog);
    if (!chooser.many) SetWindowLongPtrW(list, GWL_STYLE, GetWindowLongPtrW(list, GWL_STYLE) | LVS_SINGLESEL);
    ListView_SetExtendedListViewStyle(list, LVS_EX_FULLROWSELECT);
    SetWindowTextW(dialog, chooser.title);
    SetDlgItemTextW(dialog, kChooserPrompt, chooser.rows.empty() ? chooser.nothing : chooser.prompt);
    SetColumns(dialog, chooser);
    SetRows(list, chooser);
    EnableWindow(GetDlgItem(dialog, IDOK), !chooser.rows.empty());
    if (!chooser.rows.empty()) return TRUE;
    SendMessageW(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(GetDlgItem(dialog, IDCANCEL)), TRUE);
    return FALSE;
}

void Confirm(HWND dialog, Opened& opened) {
    const HWND list = List(dialog);
    for (int row = -1; (row = ListView_GetNextItem(list, row, LVNI_SELECTED)) >= 0;)
        opened.chosen.push_back(opened.chooser.rows[static_cast<std::size_t>(row)].number);
    if (!opened.chosen.empty()) EndDialog(dialog, IDOK);
}

void OnNotify(HWND dialog, const NMHDR& header) {
    if (header.idFrom != kChooserList) return;
    if (header.code == LVN_ITEMCHANGED)
        EnableWindow(GetDlgItem(dialog, IDOK), ListView_GetSelectedCount(header.hwndFrom) > 0);
    if (header.code == NM_DBLCLK && reinterpret_cast<const NMITEMACTIVATE&>(header).iItem >= 0)
        SendMessageW(dialog, WM_COMMAND, IDOK, 0);
}

INT_PTR CALLBACK OnMessage(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrW(dialog, DWLP_USER, lParam);
        return Fill(dialog, reinterpret_cast<const Opened*>(lParam)->chooser);
    }
    auto* opened = reinterpret_cast<Opened*>(GetWindowLongPtrW(dialog, DWLP_USER));
    if (message == WM_NOTIFY && opened) OnNotify(dialog, *reinterpret_cast<const NMHDR*>(lParam));
    if (message != WM_COMMAND || !opened) return FALSE;
    if (LOWORD(wParam) == IDOK) Confirm(dialog, *opened);
    if (LOWORD(wParam) == IDCANCEL) EndDialog(dialog, IDCANCEL);
    return TRUE;
}

}  // namespace

// What the system gives as the dialog's result is none when its message loop was broken off: the numbers tell.
std::vector<int> Choose(HWND owner, const ListChooser& chooser) {
    const INITCOMMONCONTROLSEX controls = {sizeof controls, ICC_LISTVIEW_CLASSES};
    InitCommonControlsEx(&controls);
    Opened opened{chooser, {}};
    opened.chosen.reserve(chooser.rows.size());
    DialogBoxParamW(reinterpret_cast<HINSTANCE>(&__ImageBase), MAKEINTRESOURCEW(kListChooserDialog), owner, OnMessage,
                    reinterpret_cast<LPARAM>(&opened));
    return opened.chosen;
}
