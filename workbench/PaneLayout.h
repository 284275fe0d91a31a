// Where the workbench's panes are: a hint over the whole width, two panes side by side under it, one below them; each
// pane with its caption above it.
#pragma once

#include <windows.h>

#include <array>

namespace kiro {

constexpr std::size_t kPaneCount = 3;

struct PaneLayout {
    RECT strip;  // behind the hint
    RECT hint;
    std::array<RECT, kPaneCount> captions;
    std::array<RECT, kPaneCount> panes;
};

constexpr int GapOf(int lineHeight) { return lineHeight / 4; }

// For a client area of any size; what has no room is empty.
PaneLayout LayOut(SIZE area, int hintHeight, int lineHeight);

}  // namespace kiro
