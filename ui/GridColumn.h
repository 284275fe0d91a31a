// The columns of a grid, as a dialog states them: one constant table each. Texts are Shift-JIS.
#pragma once

#include <span>

namespace kiro::ui {

// Choices from the first to the last number, both included.
struct GridNumbers {
    int first = 1;
    int last = 0;
    constexpr bool Any() const { return first <= last; }
};

struct GridColumn {
    const char* title;
    double width;            // share of the sum of all widths
    unsigned int typed = 0;  // how many characters can be typed; 0: none
    const char* typedPrompt = "";
    GridNumbers numbers = {};
    const char* choicePrompt = "";
    const char* const* choices = nullptr;  // other choices, up to a null
    bool chosen = false;                   // the choices come when the dialog opens, by Grid::SetChoices
    bool isNumber = false;                 // numbers are typed, though there are none to choose from
    bool isColor = false;                  // colour numbers of DXF: their colours are shown

    constexpr bool CanEdit() const { return typed || numbers.Any() || choices || chosen; }
};

// A column of numbers that are typed.
constexpr GridColumn OfNumbers(GridColumn column) {
    column.isNumber = true;
    return column;
}

// A column of colour numbers.
constexpr GridColumn OfColors(GridColumn column) {
    column.isColor = true;
    return column;
}

using GridColumns = std::span<const GridColumn>;

}  // namespace kiro::ui
