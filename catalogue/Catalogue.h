// Every dialog of the library: its name, its template, and how it is opened with something to show. The pictures, the
// figures, the random plays and the golden text all go by this table: a new dialog is one row of it.
#pragma once

#include <windows.h>

#include <cstddef>
#include <functional>
#include <span>
#include <string_view>
#include <vector>

namespace kiro {

// A dialog with the data that it is opened over.
struct Opening {
    // Opens it over the host's main window and returns when it is closed: IDOK when it was confirmed, IDCANCEL when
    // not.
    std::function<INT_PTR()> run;
    // What only a confirmation may change.
    std::vector<std::span<const std::byte>> kept;
};

constexpr int kNoTemplate = 0;  // a message box

// What a dialog is held to beside its bare template, which is given the same entries, columns and rows.
struct DialogFigures {
    double openLimit;  // how many times as long it takes to open and close, at most
    int openings;      // of which that is the median
    int leakTimes;     // how often it is opened in search of what it leaves behind
};
constexpr DialogFigures kSimple{1.2, 100, 1000};
constexpr DialogFigures kForms{1.2, 100, 200};       // long lists and many fields
constexpr DialogFigures kHasGrid{1.2, 50, 200};      // the bare grid has its columns, rows and look
constexpr DialogFigures kReadsFile{1.4, 50, 200};    // a table that takes a megabyte of memory
constexpr DialogFigures kLooksAround{1.6, 50, 200};  // asks for each of its files whether it is there

struct CatalogueDialog {
    const char* name;
    int templateId;
    Opening (*prepare)();
    const DialogFigures& figures = kSimple;
    const wchar_t* ownTable = nullptr;  // a file that only a confirmation may change
};

std::span<const CatalogueDialog> Catalogue();
const CatalogueDialog* FindDialog(std::string_view name);  // null when there is none

// A popup that a dialog shows while the mouse rests on one of its statics.
struct Explanation {
    const char* name;
    const char* dialog;  // of the catalogue
    int zone;
    int templateId;
};

std::span<const Explanation> Explanations();

}  // namespace kiro
