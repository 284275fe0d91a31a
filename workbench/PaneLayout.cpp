#include "PaneLayout.h"

#include <algorithm>

namespace kiro {

PaneLayout LayOut(SIZE area, int hintHeight, int lineHeight) {
    const int gap = GapOf(lineHeight);
    const int strip = hintHeight + 2 * gap;
    const int width = static_cast<int>(area.cx);
    const int height = static_cast<int>(area.cy);
    const auto place = [&](int left, int top, int right, int bottom) {
        const auto x = [&](int value) { return std::clamp(value, 0, width); };
        const auto y = [&](int value) { return std::clamp(value, 0, height); };
        return RECT{x(left), y(top), std::max(x(left), x(right)), std::max(y(top), y(bottom))};
    };
    // The lower pane has a quarter of what the hint and the captions leave, but some lines in a small window.
    const int rest = std::max(0, height - strip - 2 * (lineHeight + gap) - gap);
    const int upper = strip + gap + lineHeight;
    const int upperEnd = upper + rest - std::max(rest / 4, std::min(rest / 2, 4 * lineHeight));
    const int lower = upperEnd + gap + lineHeight;
    const int middle = width / 2;

    PaneLayout layout{};
    layout.strip = place(0, 0, width, strip);
    layout.hint = place(gap, gap, width - gap, gap + hintHeight);
    layout.captions = {place(gap, upper - lineHeight, middle - gap / 2, upper),
                       place(middle + gap / 2, upper - lineHeight, width - gap, upper),
                       place(gap, lower - lineHeight, width - gap, lower)};
    layout.panes = {place(gap, upper, middle - gap / 2, upperEnd),
                    place(middle + gap / 2, upper, width - gap, upperEnd),
                    place(gap, lower, width - gap, height - gap)};
    return layout;
}

}  // namespace kiro
