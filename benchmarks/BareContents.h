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
    struct Column {
        std::wstring title;
        int width;  // pixels
    };
    struct Grid {
        int id;
        DWORD style;    // the list view's extended one
        int rowHeight;  // pixels
        std::vector<Column> columns;
        int rows;
        std::vector<std::vector<std::wstring>> shown;  // the texts of the first rows, as many as a page has
    };
    struct Edit {
        int id;
        std::wstring text;
    };
    std::vector<List> lists;  // combos
    std::vector<Grid> grids;
    std::vector<Edit> edits;
    std::vector<int> checked;  // radios and check boxes
};

// On the dialog's own thread. The contents outlive the bare dialog, whose grids draw their texts from them.
BareContents ReadContents(HWND dialog);
int RowHeightOf(const BareContents& contents, int listId);  // 0: no grid
void FillBare(HWND dialog, const BareContents& contents);
