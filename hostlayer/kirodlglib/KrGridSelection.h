// The cells that are selected together with the current one: a rectangle on the screen, from the current cell to the
// one where the selection ends. Knows no window.
#pragma once

#include <algorithm>

#include "KrGridOrder.h"
#include "KrGridRows.h"

// Rows as indexes on the screen. Nothing: top is -1.
struct GridArea {
    int top = -1;
    int left = -1;
    int bottom = -1;
    int right = -1;
    bool operator==(const GridArea&) const = default;
    bool Has(int index, int column) const {
        return top >= 0 && index >= top && index <= bottom && column >= left && column <= right;
    }
    bool IsOneCell() const { return top == bottom && left == right; }
};

class GridSelection {
  public:
    GridPlace End() const { return end_; }  // row -1: the current cell alone
    void ExtendTo(GridPlace end) { end_ = end; }
    void Forget() { end_ = {}; }
    GridArea Area(GridPlace current, const GridOrder& order) const {
        if (current.row < 0) return {};
        const GridPlace end = end_.row < 0 ? current : end_;
        const auto [top, bottom] = std::minmax({order.IndexOf(current.row), order.IndexOf(end.row)});
        const auto [left, right] = std::minmax({current.column, end.column});
        return {top, left, bottom, right};
    }

  private:
    GridPlace end_;
};
