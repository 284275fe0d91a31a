// The list of numbered things that both choosers are.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

struct ChooserRow {
    int number;
    std::wstring text;
    std::wstring items;  // how many it has
};

struct ListChooser {
    const wchar_t* title;
    const wchar_t* prompt;
    const wchar_t* nothing;  // instead of the prompt, when there are no rows
    const wchar_t* textTitle;
    int textAlignment;  // LVCFMT_LEFT or LVCFMT_RIGHT
    int textPercent;    // of the list's width
    bool many;          // more than one row can be chosen
    int current;        // the number whose row is chosen at first; the first one's when there is no such row
    std::vector<ChooserRow> rows;
};

// The numbers of the chosen rows in the list's order; none when it was cancelled or could not be opened.
std::vector<int> Choose(HWND owner, const ListChooser& chooser);
