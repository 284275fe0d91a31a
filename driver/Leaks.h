// What this process holds at a moment. Compare after a first opening of the same dialog: the first one fills caches.
#pragma once

#include <cstddef>

namespace kiro::drive {

struct Holdings {
    int windows = 0;  // of every kind, hidden and message-only ones too
    int pens = 0;
    int brushes = 0;
    int fonts = 0;
    int bitmaps = 0;
    std::size_t heapBytes = 0;

    // The heap is not compared: its size depends on what else ran.
    bool SameObjects(const Holdings& other) const {
        return windows == other.windows && pens == other.pens && brushes == other.brushes && fonts == other.fonts &&
               bitmaps == other.bitmaps;
    }
};
Holdings CountHoldings();

}  // namespace kiro::drive
