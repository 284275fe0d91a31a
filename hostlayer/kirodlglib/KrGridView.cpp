#include "KrGridView.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace {

constexpr int kRowMargin = 8;  // of a row's height beside its line of text, so that a combo fits in
constexpr int kLeastWidth = 16;
constexpr int kTitleMargin = 16;                   // at both sides of a title
constexpr UINT kNoClientChange = 0x0800 | 0x1000;  // SWP_NOCLIENTSIZE, SWP_NOCLIENTMOVE: in no header, but in messages

int Scaled(HDC dc, int pixels) { return MulDiv(pixels, GetDeviceCaps(dc, LOGPIXELSX), 96); }

}  // namespace

// A hidden list view is left alone: to let it draw again would show it.
KrGridView::Still::Still(KrGridView& view)
    : view_(view), holds_(view.list_ && !view.still_ && (GetWindowLongPtrW(view.list_, GWL_STYLE) & WS_VISIBLE) != 0) {
    if (!holds_) return;
    view_.still_ = true;
    view_.Send(WM_SETREDRAW, FALSE);
}

KrGridView::Still::~Still() {
    if (!holds_) return;
    view_.still_ = false;
    view_.Send(WM_SETREDRAW, TRUE);
}

void KrGridView::Attach(HWND list) {
    list_ = list;
    // So that painting the rows leaves an open editor alone.
    const auto style = GetWindowLongPtrW(list, GWL_STYLE);
    if (!(style & WS_CLIPCHILDREN)) SetWindowLongPtrW(list, GWL_STYLE, style | WS_CLIPCHILDREN);
    Send(LVM_SETUNICODEFORMAT, TRUE);
    Measure();
}

void KrGridView::SetExtendedStyle(DWORD style) {
    styled_ = true;
    // Without flicker, where the system can do that.
    Send(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, static_cast<LPARAM>(style | LVS_EX_DOUBLEBUFFER));
}

// ---- Columns and rows ----

void KrGridView::Start() {
    const auto count = static_cast<std::size_t>(rows_.Columns());
    toMake_ = toMake_ || count == 0 || columns_.size() != count;
    columns_.resize(count);
    for (Column& column : columns_) column.share = 0;
    RowsChanged();
}

// The list view lays everything out anew for each thing that it is told: it gets the columns when they are all known.
void KrGridView::MakeColumns() {
    toMake_ = toFit_ = false;
    const Still still(*this);
    if (!styled_) SetExtendedStyle(LVS_EX_FULLROWSELECT);  // or a click would count in the first column only
    while (Send(LVM_DELETECOLUMN, 0)) continue;
    const std::vector<int> widths = WidthsFor(fitted_ = WidthForColumns());
    for (std::size_t column = 0; column < columns_.size(); ++column) {
        LVCOLUMNW description{};
        description.mask = LVCF_TEXT | LVCF_SUBITEM | LVCF_WIDTH;
        description.pszText = columns_[column].title.data();
        description.iSubItem = static_cast<int>(column);
        description.cx = widths[column];
        SendTo(LVM_INSERTCOLUMNW, column, &description);
    }
    CountRows();
}

void KrGridView::SetColumn(int at, const std::wstring& title, double share) {
    Column& column = columns_[static_cast<std::size_t>(at)];
    const bool first = column.share <= 0;
    column.share = share;
    if (column.title != title) {
        column.title = title;
        LVCOLUMNW description{};
        description.mask = LVCF_TEXT;
        description.pszText = column.title.data();
        if (!toMake_) SendTo(LVM_SETCOLUMNW, static_cast<WPARAM>(at), &description);
    }
    // While the columns get their shares one after the other, the last one decides.
    toFit_ = first && at + 1 < rows_.Columns() && columns_.back().share <= 0;
    if (!toFit_) Settle();
}

void KrGridView::Settle() {
    if (toMake_) return MakeColumns();
    FitColumns();
}

void KrGridView::CountRows() const {
    Send(LVM_SETITEMCOUNT, static_cast<WPARAM>(rows_.Rows()), LVSICF_NOINVALIDATEALL | LVSICF_NOSCROLL);
}

// In the order in which no horizontal scroll bar comes for a moment.
void KrGridView::RowsChanged() {
    if (toMake_) return;
    const Still still(*this);
    const bool wider = WidthForColumns() > fitted_;
    if (!wider) FitColumns();
    CountRows();
    if (wider) FitColumns();
    RepaintAll();
}

// A list view that draws nothing itself asks the dialog for its row height before the dialog can know of the grid, and
// asks again when it is told that its size has changed.
void KrGridView::Measure() const {
    RECT area{};
    GetWindowRect(list_, &area);
    WINDOWPOS place{};
    place.hwnd = list_;
    place.cx = area.right - area.left;
    place.cy = area.bottom - area.top;
    place.flags = SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOOWNERZORDER | kNoClientChange;
    SendTo(WM_WINDOWPOSCHANGED, 0, &place);
}

int KrGridView::MeasureRow() {
    const HDC dc = GetDC(list_);
    const HGDIOBJ font = SelectObject(dc, reinterpret_cast<HFONT>(Send(WM_GETFONT)));
    TEXTMETRICW metric{};
    GetTextMetricsW(dc, &metric);
    const int least = metric.tmHeight + Scaled(dc, kRowMargin);
    SelectObject(dc, font);
    ReleaseDC(list_, dc);
    // A little more, so that the last row that fits ends where the list view does.
    const int room = RoomForRows();
    return rowHeight_ = room > least ? room / (room / least) : least;
}

// The height inside the list view below the header, without a horizontal scroll bar.
int KrGridView::RoomForRows() const {
    RECT client{};
    GetClientRect(list_, &client);
    if (GetWindowLongPtrW(list_, GWL_STYLE) & WS_HSCROLL) client.bottom += GetSystemMetrics(SM_CYHSCROLL);
    if (GetWindowLongPtrW(list_, GWL_STYLE) & LVS_NOCOLUMNHEADER) return client.bottom;
    // Asked for and not looked at: without columns the header may have no size yet.
    RECT room = client;
    WINDOWPOS header{};
    HDLAYOUT layout{&room, &header};
    if (const auto window = reinterpret_cast<HWND>(Send(LVM_GETHEADER)))
        SendMessageW(window, HDM_LAYOUT, 0, reinterpret_cast<LPARAM>(&layout));
    return client.bottom - header.cy;
}

// The room inside the list view, less a vertical scroll bar when the rows need one.
int KrGridView::WidthForColumns() const {
    RECT client{};
    GetClientRect(list_, &client);
    const auto style = GetWindowLongPtrW(list_, GWL_STYLE);
    if (style & WS_VSCROLL) client.right += GetSystemMetrics(SM_CXVSCROLL);
    const bool scrolls = rows_.Rows() > RoomForRows() / std::max(rowHeight_, 1);
    return client.right - (scrolls ? GetSystemMetrics(SM_CXVSCROLL) : 0);
}

int KrGridView::RowsOnPage() const { return static_cast<int>(Send(LVM_GETCOUNTPERPAGE)); }

// Every column gets its share; the ends are rounded, not the widths, so that no pixel is left over.
std::vector<int> KrGridView::WidthsFor(int width) const {
    double sum = 0;
    for (const Column& column : columns_) sum += column.share;
    std::vector<int> widths;
    double shares = 0;
    int left = 0;
    for (const Column& column : columns_) {
        shares += column.share;
        const int right = sum > 0 ? static_cast<int>(std::lround(width * (shares / sum))) : 0;
        widths.push_back(right - left);
        left = right;
    }
    return widths;
}

void KrGridView::FitColumns() {
    if (!list_ || fitting_ || toMake_) return;
    fitting_ = true;
    toFit_ = false;
    picture_.reset();
    const std::vector<int> widths = WidthsFor(fitted_ = WidthForColumns());
    std::optional<Still> still;
    for (int column = 0; column < rows_.Columns(); ++column) {
        const int width = widths[static_cast<std::size_t>(column)];
        if (ColumnWidth(column) == width || !AnyShare()) continue;
        if (!still) still.emplace(*this);
        Send(LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(column), MAKELPARAM(width, 0));
    }
    fitting_ = false;
}

// The user has given a column another width: it becomes its share, and the columns right of it divide what remains.
void KrGridView::KeepResized(int column) {
    const int count = rows_.Columns();
    if (!rows_.FindColumn(column)) return;
    int left = 0;
    for (int i = 0; i < column; ++i) left += ColumnWidth(i);
    const int room = WidthForColumns() - left;
    const int most = std::max(room - kLeastWidth * (count - 1 - column), kLeastWidth);
    const int width = column == count - 1 ? room : std::clamp(ColumnWidth(column), kLeastWidth, most);
    double others = 0;
    for (int i = column + 1; i < count; ++i) others += Share(i);
    for (int i = 0; i < column; ++i) Share(i) = ColumnWidth(i);
    Share(column) = width;
    for (int i = column + 1; i < count; ++i) Share(i) = others > 0 ? Share(i) * std::max(room - width, 0) / others : 0;
    FitColumns();
}

// ---- Places ----

RECT KrGridView::RectAt(int index) const {
    RECT area{};
    area.left = LVIR_BOUNDS;
    return SendTo(LVM_GETITEMRECT, static_cast<WPARAM>(index), &area) ? area : RECT{};
}

RECT KrGridView::CellRect(GridPlace place) const {
    RECT area = RowRect(place.row);
    for (int column = 0; column < place.column; ++column) area.left += ColumnWidth(column);
    area.right = area.left + ColumnWidth(place.column);
    return area;
}

bool KrGridView::HasFocus() const {
    const HWND focus = GetFocus();
    return list_ && (focus == list_ || IsChild(list_, focus));
}

GridPlace KrGridView::Hit(POINT point) const {
    LVHITTESTINFO hit{};
    hit.pt = point;
    if (!list_ || SendTo(LVM_SUBITEMHITTEST, 0, &hit) < 0) return {};
    const GridPlace place{order_.RowAt(hit.iItem), hit.iSubItem};
    return rows_.Has(place) ? place : GridPlace{};
}

template <class Work>
auto KrGridView::WithFont(Work work) const {
    const HDC dc = GetDC(list_);
    const HGDIOBJ font = SelectObject(dc, reinterpret_cast<HFONT>(Send(WM_GETFONT)));
    const auto result = work(dc);
    SelectObject(dc, font);
    ReleaseDC(list_, dc);
    return result;
}

bool KrGridView::IsCut(GridPlace place) const {
    if (!list_ || !rows_.Has(place)) return false;
    return WithFont([&](HDC dc) { return painter_.IsCut(dc, CellRect(place), place); });
}

int KrGridView::WidthNeeded(GridPlace place) const {
    return WithFont([&](HDC dc) { return painter_.WidthNeeded(dc, place); });
}

int KrGridView::TitleWidth(const std::wstring& title) const {
    return WithFont([&](HDC dc) {
        SIZE size{};
        GetTextExtentPoint32W(dc, title.c_str(), static_cast<int>(title.size()), &size);
        return static_cast<int>(size.cx) + Scaled(dc, kTitleMargin);
    });
}

// ---- The picture ----

// The row before is freed by itself: otherwise a list view may go through all rows in search of it.
void KrGridView::Select(int before, int row) const {
    LVITEMW item{};
    item.stateMask = LVIS_FOCUSED | LVIS_SELECTED;
    if (before >= 0) SendTo(LVM_SETITEMSTATE, static_cast<WPARAM>(order_.IndexOf(before)), &item);
    item.state = row < 0 ? 0 : item.stateMask;
    SendTo(LVM_SETITEMSTATE, static_cast<WPARAM>(order_.IndexOf(row)), &item);
}

// A list view that is told to show a row asks for its texts first, also when it shows it already.
void KrGridView::Reveal(int row) const {
    if (!rows_.HasRow(row)) return;
    const int below = order_.IndexOf(row) - static_cast<int>(Send(LVM_GETTOPINDEX));
    if (below < 0 || below >= RowsOnPage()) Send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(order_.IndexOf(row)), FALSE);
}

void KrGridView::ScrollToTop() const { Reveal(order_.RowAt(0)); }

void KrGridView::Repaint(int row) const {
    // One that is not on the screen is painted whole when it gets there.
    if (!list_ || !rows_.HasRow(row) || !IsWindowVisible(list_)) return;
    const RECT area = RowRect(row);
    InvalidateRect(list_, &area, FALSE);
}

void KrGridView::RepaintAll() {
    if (toMake_ || toFit_) Settle();  // no further column comes
    if (list_ && IsWindowVisible(list_)) InvalidateRect(list_, nullptr, TRUE);
}

void KrGridView::ShowSorting(int column, bool descending) const {
    const auto header = reinterpret_cast<HWND>(Send(LVM_GETHEADER));
    for (int at = 0; header && at < rows_.Columns(); ++at) {
        HDITEMW item{};
        item.mask = HDI_FORMAT;
        SendMessageW(header, HDM_GETITEMW, static_cast<WPARAM>(at), reinterpret_cast<LPARAM>(&item));
        item.fmt &= ~(HDF_SORTUP | HDF_SORTDOWN);
        if (at == column) item.fmt |= descending ? HDF_SORTDOWN : HDF_SORTUP;
        SendMessageW(header, HDM_SETITEMW, static_cast<WPARAM>(at), reinterpret_cast<LPARAM>(&item));
    }
}

GridPicture KrGridView::PictureAt(int index, GridPlace current, const GridArea& selected, bool editing,
                                  bool focused) const {
    GridPicture picture;
    picture.font = reinterpret_cast<HFONT>(Send(WM_GETFONT));
    for (int column = 0; column < rows_.Columns(); ++column) picture.widths.push_back(ColumnWidth(column));
    // A request's rectangle may leave out what the list view keeps free for an icon.
    const RECT area = RectAt(index);
    picture.left = area.left;
    picture.right = area.right;
    picture.current = current;
    picture.selected = selected;
    picture.focused = focused || HasFocus();
    picture.enabled = IsWindowEnabled(list_) != FALSE;
    picture.editing = editing;
    // Before the first key the frame alone shows where it would start.
    if (picture.focused && current.row < 0) picture.start = {order_.RowAt(0), rows_.FirstEditableColumn()};
    return picture;
}

void KrGridView::Draw(const DRAWITEMSTRUCT& request, GridPlace current, const GridArea& selected, bool editing,
                      bool focused) {
    if (!list_ || request.hwndItem != list_ || drawing_ == Drawing::kNot) return;
    const int index = static_cast<int>(request.itemID);
    if (!picture_ || drawing_ == Drawing::kSingly) picture_ = PictureAt(index, current, selected, editing, focused);
    const RECT area{picture_->left, request.rcItem.top, picture_->right, request.rcItem.bottom};
    painter_.DrawRow(request.hDC, area, index, order_.RowAt(index), *picture_);
}
