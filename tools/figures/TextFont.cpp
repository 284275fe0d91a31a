// text_font_figure import|export OUT.bmp: draws KrDxfInTbl_TFont2.bmp in resources/dxfin_tables or
// KrDxfOutTbl_TFont2.bmp in resources/dxfout_tables, which explain the factors of a text font: two sample characters
// for kanji and two for alphanumerics, with the distances that the factors stand for.
#include <windows.h>

#include <array>
#include <cstdio>
#include <cwchar>

namespace {

constexpr int kWidth = 440;
constexpr int kHeight = 186;
constexpr COLORREF kCell = RGB(205, 225, 245);  // what a character takes up
// Sixteen colours are enough: black, white, the greys of smoothed letters, and the cell with letters on it.
constexpr std::array<COLORREF, 16> kPalette = {RGB(0, 0, 0),       RGB(255, 255, 255), RGB(64, 64, 64),
                                               RGB(96, 96, 96),    RGB(128, 128, 128), RGB(160, 160, 160),
                                               RGB(192, 192, 192), RGB(224, 224, 224), kCell,
                                               RGB(180, 205, 235), RGB(0, 0, 160),     RGB(160, 0, 0),
                                               RGB(32, 32, 32),    RGB(240, 240, 240), RGB(230, 240, 250),
                                               RGB(0, 96, 0)};

struct Panel {
    int left;
    const wchar_t* title;
    const wchar_t* samples[2];
    int pitch;  // from one character to the next
    int drawn;  // the width of a character itself
};
constexpr int kPanelWidth = 220;
using Panels = std::array<Panel, 2>;
constexpr Panels kImport = {{{0, L"漢字", {L"漢", L"字"}, 76, 62}, {kPanelWidth, L"英数字", {L"A", L"B"}, 52, 38}}};
// The export has the factors of kanji and of alphanumerics in different styles.
constexpr Panels kExport = {{{0, L"漢字（BIGFONT、TBIGFONT）", {L"漢", L"字"}, 76, 61},
                             {kPanelWidth, L"英数字（STANDARD、TSTANDARD）", {L"A", L"B"}, 64, 48}}};
constexpr int kFirst = 46;  // the first character, from the panel's left edge
constexpr int kTop = 62;
constexpr int kText = 64;  // the height of the characters

struct BitmapHeader {
    BITMAPINFOHEADER header;
    RGBQUAD colors[kPalette.size()];
};

HFONT MakeFont(int height, int width) {
    return CreateFontW(-height, width, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE, SHIFTJIS_CHARSET, 0, 0,
                       ANTIALIASED_QUALITY, 0, L"MS Gothic");
}

class Figure {
  public:
    explicit Figure(const Panels& panels)
        : dc_(CreateCompatibleDC(nullptr)), small_(MakeFont(12, 0)), large_(MakeFont(kText - 4, 30)) {
        info_.header = {sizeof info_.header, kWidth, kHeight, 1, 4, BI_RGB, 0, 0, 0, kPalette.size(), kPalette.size()};
        for (std::size_t i = 0; i < kPalette.size(); ++i)
            info_.colors[i] = {GetBValue(kPalette[i]), GetGValue(kPalette[i]), GetRValue(kPalette[i]), 0};
        bitmap_ = CreateDIBSection(dc_, reinterpret_cast<BITMAPINFO*>(&info_), DIB_RGB_COLORS, &bits_, nullptr, 0);
        SelectObject(dc_, bitmap_);
        SetBkMode(dc_, TRANSPARENT);
        Fill({0, 0, kWidth, kHeight}, RGB(255, 255, 255));
        for (const Panel& panel : panels) Draw(panel);
        GdiFlush();
    }
    Figure(const Figure&) = delete;
    Figure& operator=(const Figure&) = delete;
    ~Figure() {
        DeleteDC(dc_);
        for (const HGDIOBJ object : {HGDIOBJ{bitmap_}, HGDIOBJ{small_}, HGDIOBJ{large_}}) DeleteObject(object);
    }

    bool Save(const wchar_t* path) const {
        constexpr DWORD kBytes = (kWidth * 4 + 31) / 32 * 4 * kHeight;
        constexpr DWORD kBitsAt = sizeof(BITMAPFILEHEADER) + sizeof(BitmapHeader);
        const BITMAPFILEHEADER file{0x4D42, kBitsAt + kBytes, 0, 0, kBitsAt};
        std::FILE* out = _wfopen(path, L"wb");
        if (!out) return false;
        const bool written = std::fwrite(&file, sizeof file, 1, out) == 1 &&
                             std::fwrite(&info_, sizeof info_, 1, out) == 1 && std::fwrite(bits_, kBytes, 1, out) == 1;
        return std::fclose(out) == 0 && written;
    }

  private:
    void Fill(RECT area, COLORREF color) const {
        SetDCBrushColor(dc_, color);
        FillRect(dc_, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
    }
    void Write(RECT area, const wchar_t* text, HFONT font, UINT format) const {
        SelectObject(dc_, font);
        DrawTextW(dc_, text, -1, &area, DT_CENTER | DT_NOPREFIX | format);
    }
    void Line(int x0, int y0, int x1, int y1) const {
        MoveToEx(dc_, x0, y0, nullptr);
        LineTo(dc_, x1, y1);
    }
    // An arrow head that points from (-dx, -dy) to the point.
    void Head(int x, int y, int dx, int dy) const {
        const POINT corners[] = {
            {x, y}, {x - dx * 6 - dy * 3, y - dy * 6 - dx * 3}, {x - dx * 6 + dy * 3, y - dy * 6 + dx * 3}};
        SelectObject(dc_, GetStockObject(BLACK_BRUSH));
        Polygon(dc_, corners, 3);
    }
    // A width with the lines that lead to it from a character's edge.
    void Width(int from, int to, int edge, int at, const wchar_t* name) const {
        const bool below = at > edge;
        for (const int x : {from, to}) Line(x, edge, x, at + (below ? 6 : -4));
        Line(from, at, to, at);
        Head(from, at, -1, 0);
        Head(to, at, 1, 0);
        Write({from - 60, below ? at + 3 : at - 17, to + 60, below ? at + 17 : at - 3}, name, small_, DT_SINGLELINE);
    }
    void Height(int panel, int x) const {
        const int at = x - 14, bottom = kTop + kText;
        Line(at, kTop, at, bottom);
        Head(at, kTop, 0, -1);
        Head(at, bottom - 1, 0, 1);
        for (const int y : {kTop, bottom - 1}) Line(at - 5, y, x - 3, y);
        Write({panel + 2, kTop + kText / 2 - 22, at - 4, kTop + kText / 2 + 22}, L"文字\n高さ", small_, 0);
    }
    void Draw(const Panel& panel) const {
        Write({panel.left, 4, panel.left + kPanelWidth, 20}, panel.title, small_, DT_SINGLELINE);
        const int first = panel.left + kFirst;
        int x = first;
        for (const wchar_t* sample : panel.samples) {
            const RECT area{x, kTop, x + panel.drawn, kTop + kText};
            Fill(area, kCell);
            Write(area, sample, large_, DT_VCENTER | DT_SINGLELINE | DT_NOCLIP);
            FrameRect(dc_, &area, static_cast<HBRUSH>(GetStockObject(BLACK_BRUSH)));
            x += panel.pitch;
        }
        Width(first, first + panel.drawn, kTop - 4, kTop - 18, L"文字描画係数");
        Width(first, first + panel.pitch, kTop + kText + 4, kTop + kText + 20, L"文字幅係数");
        Height(panel.left, first);
    }

    BitmapHeader info_{};
    void* bits_ = nullptr;
    HDC dc_;
    HFONT small_;
    HFONT large_;
    HBITMAP bitmap_ = nullptr;
};

}  // namespace

int wmain(int count, wchar_t** arguments) {
    const bool isExport = count == 3 && std::wcscmp(arguments[1], L"export") == 0;
    if (count != 3 || (!isExport && std::wcscmp(arguments[1], L"import") != 0)) {
        std::fputs("usage: text_font_figure import|export OUT.bmp\n", stderr);
        return 2;
    }
    if (Figure(isExport ? kExport : kImport).Save(arguments[2])) return 0;
    std::fputs("text_font_figure: the file cannot be written\n", stderr);
    return 1;
}
