// What a dialog has put into the lists and grids of its template, so that the bare template can be given as much: the
// system's own share of what a dialog takes.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

struct BareContents {
    struct List {
        int id;
        std::vector<std::wstring> entries;
    };
    struct GridSize {
        int id;
        int columns;
        int rows;
    };
    std::vector<List> lists;  // combos
    std::vector<GridSize> grids;
};

// On the dialog's own thread.
BareContents ReadContents(HWND dialog);
void FillBare(HWND dialog, const BareContents& contents);
