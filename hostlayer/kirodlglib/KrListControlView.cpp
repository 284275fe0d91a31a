// A grid's list view: its columns and their widths, the height and place of its rows, and their painting.
#include <algorithm>
#include <cmath>

#include "KrGuarded.h"
#include "KrListControlImpl.h"

namespace {

constexpr int kRowMargin = 8;  // of a row's height beside its line of text, so that a combo fits in
constexpr int kLeastWidth = 16;

int Scaled(HWND window, int pixels) {
    const HDC dc = GetDC(window);
    const int scaled = MulDiv(pixels, GetDeviceCaps(dc, LOGPIXELSX), 96);
    ReleaseDC(window, dc);
    return scaled;
}

}  // namespace

bool KrListControlImpl::Attach(HWND dialog, HWND list) {
    if (list_) return list == list_;
    const auto id = reinterpret_cast<UINT_PTR>(this);
    const auto self = reinterpret_cast<DWORD_PTR>(this);
    if (!SetWindowSubclass(dialog, &KrListControlImpl::DialogProc, id, self)) return false;
    if (!SetWindowSubclass(list, &KrListControlImpl::ListProc, id, self)) {
        RemoveWindowSubclass(dialog, &KrListControlImpl::DialogProc, id);
        return false;
    }
    dialog_ = dialog;
    list_ = list;
    listId_ = GetDlgCtrlID(list);
    // So that painting the rows leaves an open editor alone.
    SetWindowLongPtrW(list, GWL_STYLE, GetWindowLongPtrW(list, GWL_STYLE) | WS_CLIPCHILDREN);
    Send(LVM_SETUNICODEFORMAT, TRUE);
    SetExtendedStyle(LVS_EX_FULLROWSELECT);  // or a click would count in the first column only
    return true;
}

void KrListControlImpl::MakeColumns() {
    while (Send(LVM_DELETECOLUMN, 0)) continue;
    for (int column = 0; column < rows_.Columns(); ++column) {
        wchar_t title[] = L"";
        LVCOLUMNW description{};
        description.mask = LVCF_TEXT | LVCF_SUBITEM | LVCF_WIDTH;
        description.pszText = title;
        description.iSubItem = column;
        SendTo(LVM_INSERTCOLUMNW, static_cast<WPARAM>(column), &description);
    }
}

void KrListControlImpl::RowsChanged() {
    FitColumns();  // first, or the list view would show a horizontal scroll bar for a moment
    Send(LVM_SETITEMCOUNT, static_cast<WPARAM>(rows_.Rows()), LVSICF_NOINVALIDATEALL | LVSICF_NOSCROLL);
    RepaintAll();
}

// A list view that draws nothing itself asks the dialog for its row height before the dialog can know of the grid, and
// asks again when its size changes.
void KrListControlImpl::Measure() {
    RECT area{};
    GetWindowRect(list_, &area);
    constexpr UINT kSizeOnly = SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOREDRAW;
    const int width = area.right - area.left;
    const int height = area.bottom - area.top;
    SetWindowPos(list_, nullptr, 0, 0, width, height + 1, kSizeOnly);
    SetWindowPos(list_, nullptr, 0, 0, width, height, kSizeOnly);
}

int KrListControlImpl::RowHeight() const {
    const HDC dc = GetDC(list_);
    const HGDIOBJ font = SelectObject(dc, reinterpret_cast<HFONT>(Send(WM_GETFONT)));
    TEXTMETRICW metric{};
    GetTextMetricsW(dc, &metric);
    SelectObject(dc, font);
    ReleaseDC(list_, dc);
    // A little more, so that the last row that fits ends where the list view does.
    const int least = metric.tmHeight + Scaled(list_, kRowMargin);
    const int room = RoomForRows();
    return room > least ? room / (room / least) : least;
}

// The height inside the list view below the header, without a horizontal scroll bar.
int KrListControlImpl::RoomForRows() const {
    RECT client{};
    GetClientRect(list_, &client);
    if (GetWindowLongPtrW(list_, GWL_STYLE) & WS_HSCROLL) client.bottom += GetSystemMetrics(SM_CYHSCROLL);
    RECT header{};
    if (const auto window = reinterpret_cast<HWND>(Send(LVM_GETHEADER))) GetWindowRect(window, &header);
    return client.bottom - (header.bottom - header.top);
}

// The room inside the list view, less a vertical scroll bar when the rows need one.
int KrListControlImpl::WidthForColumns() const {
    RECT client{};
    GetClientRect(list_, &client);
    const auto style = GetWindowLongPtrW(list_, GWL_STYLE);
    if (style & WS_VSCROLL) client.right += GetSystemMetrics(SM_CXVSCROLL);
    const RECT first = RowRect(0);
    const int height = first.bottom > first.top ? static_cast<int>(first.bottom - first.top) : RowHeight();
    return client.right - (rows_.Rows() > RoomForRows() / height ? GetSystemMetrics(SM_CXVSCROLL) : 0);
}

// Every column gets its share; the ends are rounded, not the widths, so that no pixel is left over.
void KrListControlImpl::FitColumns() {
    if (!list_ || fitting_ || rows_.Columns() == 0) return;
    fitting_ = true;
    const int width = fitted_ = WidthForColumns();
    double sum = 0;
    for (int column = 0; column < rows_.Columns(); ++column) sum += rows_.FindColumn(column)->share;
    double shares = 0;
    int left = 0;
    for (int column = 0; column < rows_.Columns() && sum > 0; ++column) {
        shares += rows_.FindColumn(column)->share;
        const int right = static_cast<int>(std::lround(width * (shares / sum)));
        if (ColumnWidth(column) != right - left)
            Send(LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(column), MAKELPARAM(right - left, 0));
        left = right;
    }
    fitting_ = false;
    if (editor_.IsOpen()) editor_.Place(CellRect(current_));
}

// The user has given a column another width: it becomes its share, and the columns right of it divide what remains.
void KrListControlImpl::KeepResized(int column) {
    const int count = rows_.Columns();
    if (!rows_.FindColumn(column)) return;
    int left = 0;
    for (int i = 0; i < column; ++i) left += ColumnWidth(i);
    const int room = WidthForColumns() - left;
    const int most = std::max(room - kLeastWidth * (count - 1 - column), kLeastWidth);
    const int width = column == count - 1 ? room : std::clamp(ColumnWidth(column), kLeastWidth, most);
    double others = 0;
    for (int i = column + 1; i < count; ++i) others += rows_.FindColumn(i)->share;
    for (int i = 0; i < count; ++i) {
        double& share = rows_.FindColumn(i)->share;
        if (i > column) share = others > 0 ? share * std::max(room - width, 0) / others : 0;
        if (i <= column) share = i == column ? width : ColumnWidth(i);
    }
    FitColumns();
}

RECT KrListControlImpl::RowRect(int row) const {
    RECT area{};
    area.left = LVIR_BOUNDS;
    return SendTo(LVM_GETITEMRECT, static_cast<WPARAM>(row), &area) ? area : RECT{};
}

RECT KrListControlImpl::CellRect(GridPlace place) const {
    RECT area = RowRect(place.row);
    for (int column = 0; column < place.column; ++column) area.left += ColumnWidth(column);
    area.right = area.left + ColumnWidth(place.column);
    return area;
}

bool KrListControlImpl::HasFocus() const {
    const HWND focus = GetFocus();
    return list_ && (focus == list_ || IsChild(list_, focus));
}

void KrListControlImpl::Repaint(int row) const {
    if (!rows_.HasRow(row)) return;
    const RECT area = RowRect(row);
    if (list_) InvalidateRect(list_, &area, FALSE);
}

void KrListControlImpl::RepaintAll() const {
    if (list_) InvalidateRect(list_, nullptr, TRUE);
}

void KrListControlImpl::DrawItem() { RepaintAll(); }

void KrListControlImpl::OnDrawItem(KrDrawItem* request) {
    Guarded([&] {
        if (!request || !list_ || request->hwndItem != list_) return;
        GridPicture picture;
        picture.font = reinterpret_cast<HFONT>(Send(WM_GETFONT));
        for (int column = 0; column < rows_.Columns(); ++column) picture.widths.push_back(ColumnWidth(column));
        picture.current = current_;
        picture.focused = HasFocus();
        picture.enabled = IsWindowEnabled(list_) != FALSE;
        picture.editing = editor_.IsOpen();
        // Before the first key the frame alone shows where it would start.
        if (picture.focused && current_.row < 0) picture.start = {0, rows_.FirstEditableColumn()};
        // The request's rectangle may leave out what the list view keeps free for an icon.
        const int row = static_cast<int>(request->itemID);
        RECT area = RowRect(row);
        area.top = request->rcItem.top;
        area.bottom = request->rcItem.bottom;
        painter_.DrawRow(request->hDC, area, row, picture);
    });
}
