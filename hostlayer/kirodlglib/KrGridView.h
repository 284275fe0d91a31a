// The list view that shows a grid: its columns and their widths, where its rows and cells are, what the mouse hits, and
// the painting. Without a list view (not attached yet, or gone) nothing happens and nothing is hit.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "KrGridOrder.h"
#include "KrGridPainter.h"
#include "KrGridRows.h"
#include "KrGridSelection.h"

class KrGridView {
  public:
    KrGridView(const GridRows& rows, const GridOrder& order) : rows_(rows), order_(order), painter_(rows) {}

    void Attach(HWND list);
    void Detach() { list_ = nullptr; }
    HWND List() const { return list_; }
    LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        return list_ ? SendMessageW(list_, message, wParam, lParam) : 0;
    }
    LRESULT SendTo(UINT message, WPARAM wParam, void* data) const {
        return Send(message, wParam, reinterpret_cast<LPARAM>(data));
    }
    void SetExtendedStyle(DWORD style);

    // ---- Columns and rows ----

    void Start();                                                         // the rows are new ones
    void SetColumn(int column, const std::wstring& title, double share);  // share: of the sum of all shares
    void RowsChanged();                                                   // their number
    int MeasureRow();  // how high a row is to be, when the list view asks
    int RowsOnPage() const;
    bool NeedsFit() const { return !toMake_ && WidthForColumns() != fitted_; }
    void FitColumns();
    void KeepResized(int column);

    // ---- Places ----

    const GridOrder& Order() const { return order_; }
    RECT RowRect(int row) const { return RectAt(order_.IndexOf(row)); }
    RECT CellRect(GridPlace place) const;
    GridPlace Hit(POINT point) const;
    int WidthNeeded(GridPlace place) const;           // of its column, so that the cell's text is seen whole
    int TitleWidth(const std::wstring& title) const;  // of a column with such a title
    bool IsCut(GridPlace place) const;                // the cell is too narrow for its text
    bool HasFocus() const;                            // or its editor has

    // ---- The picture ----

    void Select(int before, int row) const;  // the list view's own selection; -1: none
    void Reveal(int row) const;
    void ScrollToTop() const;
    void Repaint(int row) const;
    void RepaintAll();
    void ReadColors() { painter_.ReadColors(); }
    // focused: what belongs to the list view has the focus, though it is not its child.
    void Draw(const DRAWITEMSTRUCT& request, GridPlace current, const GridArea& selected, bool editing, bool focused);
    // kAll: the rows that follow are drawn from what the first of them finds.
    enum class Drawing { kSingly, kAll, kNot };
    void Draws(Drawing drawing) {
        picture_.reset();
        drawing_ = drawing;
    }
    void ShowSorting(int column, bool descending) const;  // in the head; -1: none

    // While one lives, the list view takes what it is told without laying itself out for each step.
    class Still {
      public:
        explicit Still(KrGridView& view);
        Still(const Still&) = delete;
        Still& operator=(const Still&) = delete;
        ~Still();

      private:
        KrGridView& view_;
        bool holds_;
    };

  private:
    template <class Work>
    auto WithFont(Work work) const;
    RECT RectAt(int index) const;
    void MakeColumns();
    void Settle();
    void CountRows() const;
    void Measure() const;
    std::vector<int> WidthsFor(int width) const;
    GridPicture PictureAt(int index, GridPlace current, const GridArea& selected, bool editing, bool focused) const;
    int RoomForRows() const;
    int WidthForColumns() const;
    int ColumnWidth(int column) const {
        return static_cast<int>(Send(LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column)));
    }
    double& Share(int column) { return columns_[static_cast<std::size_t>(column)].share; }
    bool AnyShare() const {
        return std::any_of(columns_.begin(), columns_.end(), [](const Column& column) { return column.share > 0; });
    }

    const GridRows& rows_;
    const GridOrder& order_;
    KrGridPainter painter_;
    HWND list_ = nullptr;
    struct Column {
        std::wstring title;
        double share = 0;
    };
    std::vector<Column> columns_;
    bool styled_ = false;  // by the dialog, or by us since it did not
    bool toMake_ = false;  // the list view does not have them yet
    bool toFit_ = false;   // some have shares that they do not show yet
    int fitted_ = 0;       // the width that the columns fill
    int rowHeight_ = 0;    // as the list view was told
    bool fitting_ = false;
    bool still_ = false;
    Drawing drawing_ = Drawing::kSingly;
    std::optional<GridPicture> picture_;  // of the rows that are drawn
};
