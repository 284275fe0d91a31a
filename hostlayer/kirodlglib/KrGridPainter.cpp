#include "KrGridPainter.h"

#include <algorithm>
#include <cmath>
#include <string>

#include "KrSwatch.h"
#include "KrText.h"

namespace {

constexpr COLORREF kErrorColor = RGB(0xC0, 0, 0);
constexpr COLORREF kErrorBackground = RGB(0xFF, 0xE0, 0xE0);
constexpr wchar_t kErrorMark[] = L"！";
constexpr int kHighlightPercent = 25;
constexpr int kSelectedPercent = 45;
constexpr int kUnavailablePercent = 60;
constexpr int kMarkBox = 13;
constexpr int kPatternWidth = 2;
constexpr double kMillimetresPerInch = 25.4;
constexpr double kFinestPattern = 2;      // pixels until it begins anew
constexpr double kLongestLength = 10000;  // millimetres; no screen is wider
constexpr std::size_t kMostShown = 512;   // characters of a cell; no screen is wider

int Scaled(HDC dc, int pixels) { return MulDiv(pixels, GetDeviceCaps(dc, LOGPIXELSX), 96); }

COLORREF Blend(COLORREF base, COLORREF other, int percent) {
    const auto mix = [&](int a, int b) { return static_cast<BYTE>(a + (b - a) * percent / 100); };
    return RGB(mix(GetRValue(base), GetRValue(other)), mix(GetGValue(base), GetGValue(other)),
               mix(GetBValue(base), GetBValue(other)));
}

bool IsDark(COLORREF color) { return GetRValue(color) + GetGValue(color) + GetBValue(color) < 3 * 0x80; }

HBRUSH DcBrush(HDC dc, COLORREF color) {
    SetDCBrushColor(dc, color);
    return static_cast<HBRUSH>(GetStockObject(DC_BRUSH));
}

void Fill(HDC dc, const RECT& area, COLORREF color) { FillRect(dc, &area, DcBrush(dc, color)); }

// The frame's inside is what remains.
void Frame(HDC dc, RECT& area, COLORREF color, int width) {
    for (; width > 0; --width) {
        FrameRect(dc, &area, DcBrush(dc, color));
        InflateRect(&area, -1, -1);
    }
}

std::wstring ShownText(const GridCell& cell) {
    return WideForDisplay(std::string_view(cell.text).substr(0, 2 * kMostShown)).substr(0, kMostShown);
}

void DrawLine(HDC dc, const RECT& area, const std::wstring& text) {
    RECT box = area;
    DrawTextW(dc, text.data(), static_cast<int>(text.size()), &box,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
}

int WidthOf(HDC dc, const std::wstring& text) {
    SIZE size{};
    GetTextExtentPoint32W(dc, text.data(), static_cast<int>(text.size()), &size);
    return size.cx;
}

}  // namespace

void KrGridPainter::ReadColors() {
    HIGHCONTRASTW contrast{};
    contrast.cbSize = sizeof contrast;
    const bool high = SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) &&
                      (contrast.dwFlags & HCF_HIGHCONTRASTON);
    // Our own pale colours suit light ones only.
    systemColorsOnly_ = high || IsDark(GetSysColor(COLOR_WINDOW)) || IsDark(GetSysColor(COLOR_BTNFACE));
}

KrGridPainter::Look KrGridPainter::LookOf(const Shown& shown, const GridPicture& picture) const {
    const GridPlace place = shown.place;
    const GridCell& cell = *rows_.Find(place);
    const bool current = place.row == picture.current.row;
    if (!picture.enabled) return {GetSysColor(COLOR_GRAYTEXT), GetSysColor(COLOR_BTNFACE)};
    if (picture.editing && place == picture.current) return {GetSysColor(COLOR_WINDOWTEXT), GetSysColor(COLOR_WINDOW)};
    // Where only these colours are, they are for the selected cells, or for the current row when there are none.
    const bool emphasised = picture.selected.IsOneCell() ? current : shown.selected;
    if (systemColorsOnly_ && emphasised)
        return picture.focused ? Look{GetSysColor(COLOR_HIGHLIGHTTEXT), GetSysColor(COLOR_HIGHLIGHT)}
                               : Look{GetSysColor(COLOR_BTNTEXT), GetSysColor(COLOR_BTNFACE)};

    const bool available = rows_.IsAvailable(place);
    Look look{GetSysColor(available && !cell.faded ? COLOR_WINDOWTEXT : COLOR_GRAYTEXT), GetSysColor(COLOR_WINDOW)};
    if (systemColorsOnly_) return look;
    // Darker than the system's grey: such texts are read all day, row numbers above all.
    if (!available)
        look = {Blend(look.text, GetSysColor(COLOR_WINDOWTEXT), kUnavailablePercent),
                Blend(look.background, GetSysColor(COLOR_BTNFACE), kUnavailablePercent)};
    if (cell.colors) look = {cell.colors->text, cell.colors->background};
    if (cell.faded) look.text = GetSysColor(COLOR_GRAYTEXT);
    if (current || shown.selected)
        look.background =
            Blend(GetSysColor(COLOR_WINDOW), GetSysColor(picture.focused ? COLOR_HIGHLIGHT : COLOR_BTNSHADOW),
                  shown.selected ? kSelectedPercent : kHighlightPercent);
    if (cell.error) look = {GetSysColor(COLOR_WINDOWTEXT), kErrorBackground};
    return look;
}

// The row's mark, at the left of its first cell: a shape and not a colour, and apart from the current row.
RECT KrGridPainter::MarkBox(HDC dc, const RECT& area) const {
    const int size = std::min<int>(Scaled(dc, kMarkBox), area.bottom - area.top);
    const int left = area.left + Scaled(dc, kMargin) / 2;
    const int top = (area.top + area.bottom - size) / 2;
    return {left, top, left + size, top + size};
}

void KrGridPainter::DrawMark(HDC dc, const RECT& area, int row) const {
    RECT box = MarkBox(dc, area);
    const UINT kind = rows_.MarkKind() == GridRows::Marks::kSingle ? DFCS_BUTTONRADIO : DFCS_BUTTONCHECK;
    const UINT state = rows_.IsMarked(row) ? static_cast<UINT>(DFCS_CHECKED) : 0;
    DrawFrameControl(dc, &box, DFC_BUTTON, kind | state | DFCS_FLAT);
}

// Where the text of a cell stands, behind the sign of an error.
RECT KrGridPainter::TextArea(HDC dc, const RECT& area, GridPlace place) const {
    RECT text = area;
    text.left += Scaled(dc, kMargin);
    text.right -= Scaled(dc, kFrame);
    if (place.column == 0 && rows_.MarkKind() != GridRows::Marks::kNone)
        text.left = MarkBox(dc, area).right + Scaled(dc, kMargin) / 2;
    if (rows_.Find(place)->error) text.left += WidthOf(dc, kErrorMark);
    if (rows_.FindColumn(place.column)->editing.colorOf) text.left += SwatchWidth(dc);
    return text;
}

bool KrGridPainter::IsCut(HDC dc, const RECT& area, GridPlace place) const {
    const RECT text = TextArea(dc, area, place);
    return WidthOf(dc, ShownText(*rows_.Find(place))) > std::max<LONG>(text.right - text.left, 0);
}

// Around all selected cells, so that they are found with or without colours.
void KrGridPainter::DrawOutline(HDC dc, const RECT& area, const Shown& shown, const GridPicture& picture) const {
    if (!shown.selected) return;
    const int width = Scaled(dc, 1);
    const COLORREF color = GetSysColor(picture.focused ? COLOR_HIGHLIGHT : COLOR_BTNSHADOW);
    const GridArea& all = picture.selected;
    if (shown.index == all.top) Fill(dc, {area.left, area.top, area.right, area.top + width}, color);
    if (shown.index == all.bottom) Fill(dc, {area.left, area.bottom - width, area.right, area.bottom}, color);
    if (shown.place.column == all.left) Fill(dc, {area.left, area.top, area.left + width, area.bottom}, color);
    if (shown.place.column == all.right) Fill(dc, {area.right - width, area.top, area.right, area.bottom}, color);
}

void KrGridPainter::DrawFrames(HDC dc, const RECT& area, const Shown& shown, const GridPicture& picture) const {
    const GridPlace place = shown.place;
    RECT inside = area;
    // The list view draws its grid lines over the outermost pixels.
    if (place.column > 0) ++inside.left;
    --inside.right;
    --inside.bottom;
    DrawOutline(dc, inside, shown, picture);
    if (place == picture.current) {
        const int color = !picture.focused || !picture.enabled ? COLOR_BTNSHADOW
                          : systemColorsOnly_                  ? COLOR_HIGHLIGHTTEXT
                                                               : COLOR_HIGHLIGHT;
        Frame(dc, inside, GetSysColor(color), Scaled(dc, picture.focused ? kFrame : 1));
    }
    if (place == picture.start) {
        RECT dotted = inside;
        InflateRect(&dotted, -1, -1);
        DrawFocusRect(dc, &dotted);
    }
    if (rows_.Find(place)->error) {
        const bool selected = systemColorsOnly_ && picture.focused &&
                              (picture.selected.IsOneCell() ? place.row == picture.current.row : shown.selected);
        const COLORREF system = GetSysColor(selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT);
        Frame(dc, inside, systemColorsOnly_ ? system : kErrorColor, Scaled(dc, 1));
    }
}

// At the cell's lower end, in its true size. Too fine a pattern for the screen is an unbroken line.
void KrGridPainter::DrawPattern(HDC dc, const RECT& area, const GridCell& cell, COLORREF color) const {
    const double unit = GetDeviceCaps(dc, LOGPIXELSX) / kMillimetresPerInch;
    const LONG bottom = area.bottom - Scaled(dc, kFrame + 1);
    const LONG top = bottom - Scaled(dc, kPatternWidth);
    const LONG right = area.right - Scaled(dc, kMargin);
    const double left = area.left + Scaled(dc, kMargin);
    double period = 0;
    for (const double length : *cell.pattern) period += std::clamp(length, 0.0, kLongestLength) * unit;
    if (period < kFinestPattern) return Fill(dc, {std::lround(left), top, right, bottom}, color);
    const auto count = cell.pattern->size();
    double at = left;
    for (std::size_t i = 0; at < right; i = (i + 1) % count) {
        const double end = at + std::clamp((*cell.pattern)[i], 0.0, kLongestLength) * unit;
        const LONG from = std::lround(at);
        // A length that is hardly there is a dot.
        if (i % 2 == 0) Fill(dc, {from, top, std::min(std::max(std::lround(end), from + 1), right), bottom}, color);
        at = end;
    }
}

int KrGridPainter::WidthNeeded(HDC dc, GridPlace place) const {
    const RECT text = TextArea(dc, RECT{}, place);
    return WidthOf(dc, ShownText(*rows_.Find(place))) + static_cast<int>(text.left - text.right) + 1;
}

void KrGridPainter::DrawCell(HDC dc, RECT area, const Shown& shown, const GridPicture& picture) const {
    const GridPlace place = shown.place;
    const GridCell& cell = *rows_.Find(place);
    const Look look = LookOf(shown, picture);
    Fill(dc, area, look.background);
    DrawFrames(dc, area, shown, picture);
    if (place.column == 0 && rows_.MarkKind() != GridRows::Marks::kNone) DrawMark(dc, area, place.row);
    if (cell.pattern) {
        DrawPattern(dc, area, cell, look.text);
        area.bottom -= Scaled(dc, 2 * kPatternWidth);  // the text makes room
    }
    area = TextArea(dc, area, place);
    RECT before = area;
    if (const KrColorOf colorOf = rows_.FindColumn(place.column)->editing.colorOf) {
        before.left -= SwatchWidth(dc);
        if (const auto color = ColorOfText(cell.text, colorOf)) DrawSwatch(dc, before, *color, look.text);
    }
    if (cell.error) {
        before.left -= WidthOf(dc, kErrorMark);
        SetTextColor(dc, systemColorsOnly_ ? look.text : kErrorColor);
        DrawLine(dc, before, kErrorMark);
    }
    SetTextColor(dc, look.text);
    if (area.left < area.right && !cell.text.empty()) DrawLine(dc, area, ShownText(cell));
}

void KrGridPainter::DrawRow(HDC dc, const RECT& area, int index, int row, const GridPicture& picture) const {
    const HGDIOBJ font = SelectObject(dc, picture.font);
    const int mode = SetBkMode(dc, TRANSPARENT);
    const COLORREF color = GetTextColor(dc);
    RECT cell = area;
    cell.right = cell.left;
    for (int column = 0; column < rows_.Columns() && rows_.HasRow(row); ++column) {
        cell.right = cell.left + picture.widths[static_cast<std::size_t>(column)];
        const bool selected = !picture.selected.IsOneCell() && picture.selected.Has(index, column);
        if (RectVisible(dc, &cell)) DrawCell(dc, cell, {{row, column}, index, selected}, picture);
        cell.left = cell.right;
    }
    if (cell.right < area.right) Fill(dc, {cell.right, area.top, area.right, area.bottom}, GetSysColor(COLOR_WINDOW));
    SetTextColor(dc, color);
    SetBkMode(dc, mode);
    SelectObject(dc, font);
}
