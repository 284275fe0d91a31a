// The picture of a grid's rows.
#pragma once

#include <windows.h>

#include <vector>

#include "KrGridRows.h"
#include "KrGridSelection.h"

// What a picture depends on besides the rows.
struct GridPicture {
    HFONT font = nullptr;
    std::vector<int> widths;  // of the columns, in pixels
    LONG left = 0;            // of all rows
    LONG right = 0;
    GridPlace current;
    GridArea selected;  // with the current cell; shown when it is more than that
    GridPlace start;    // where the first key would go while there is no current cell
    bool focused = false;
    bool enabled = true;
    bool editing = false;  // an editor stands in the current cell
};

class KrGridPainter {
  public:
    explicit KrGridPainter(const GridRows& rows) : rows_(rows) { ReadColors(); }
    void ReadColors();  // the user has chosen other ones
    void DrawRow(HDC dc, const RECT& area, int index, int row, const GridPicture& picture) const;
    // With the rows' font in the device context.
    bool IsCut(HDC dc, const RECT& area, GridPlace place) const;
    int WidthNeeded(HDC dc, GridPlace place) const;

    static constexpr int kFrame = 2;   // around the current cell, in pixels of 96 dpi as the following
    static constexpr int kMargin = 6;  // between a cell's edge and its text

  private:
    struct Look {
        COLORREF text;
        COLORREF background;
    };
    // A cell, where it is on the screen, and whether it is selected with others.
    struct Shown {
        GridPlace place;
        int index;
        bool selected;
    };
    Look LookOf(const Shown& cell, const GridPicture& picture) const;
    void DrawCell(HDC dc, RECT area, const Shown& cell, const GridPicture& picture) const;
    RECT MarkBox(HDC dc, const RECT& area) const;
    RECT TextArea(HDC dc, const RECT& area, GridPlace place) const;
    void DrawMark(HDC dc, const RECT& area, int row) const;
    void DrawPattern(HDC dc, const RECT& area, const GridCell& cell, COLORREF color) const;
    void DrawFrames(HDC dc, const RECT& area, const Shown& shown, const GridPicture& picture) const;
    void DrawOutline(HDC dc, const RECT& area, const Shown& shown, const GridPicture& picture) const;

    const GridRows& rows_;
    bool systemColorsOnly_ = false;
};
