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

struct CatalogueDialog {
    const char* name;
    int templateId;
    Opening (*prepare)();
    const wchar_t* ownTable = nullptr;  // a file that only a confirmation may change
    double openLimit = 1.3;             // of its time to open and close, as a multiple of the bare template's
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
