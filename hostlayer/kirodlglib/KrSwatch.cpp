#include "KrSwatch.h"

#include <algorithm>
#include <charconv>

namespace {

constexpr int kSwatch = 12, kBehind = 5;  // pixels of 96 dpi

int Scaled(HDC dc, int pixels) { return MulDiv(pixels, GetDeviceCaps(dc, LOGPIXELSX), 96); }

void Fill(HDC dc, const RECT& area, COLORREF color) {
    SetDCBrushColor(dc, color);
    FillRect(dc, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

}  // namespace

int SwatchWidth(HDC dc) { return Scaled(dc, kSwatch + kBehind); }

void DrawSwatch(HDC dc, const RECT& area, COLORREF color, COLORREF frame) {
    const int size = std::min<int>(Scaled(dc, kSwatch), area.bottom - area.top);
    const int top = (area.top + area.bottom - size) / 2;
    RECT swatch{area.left, top, area.left + size, top + size};
    Fill(dc, swatch, frame);
    InflateRect(&swatch, -Scaled(dc, 1), -Scaled(dc, 1));
    Fill(dc, swatch, color);
}

std::optional<COLORREF> ColorOfText(std::string_view text, KrColorOf colorOf) {
    int number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    KrColor color = 0;
    if (!colorOf || read.ec != std::errc() || read.ptr != text.data() + text.size() || !colorOf(number, &color))
        return std::nullopt;
    return color;
}
