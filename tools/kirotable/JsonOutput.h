// What the commands show as JSON, all in one place: the library takes long to compile.
#pragma once

#include <string>
#include <vector>

#include "Comparison.h"
#include "NameUse.h"
#include "Reading.h"

namespace kirotable {

struct CheckedFile {
    std::string file;
    const TableKind* kind = nullptr;
    Findings errors, warnings;
    std::string failure;  // "": it was read
};

struct Totals {
    std::size_t files = 0, errors = 0, warnings = 0, unreadable = 0;
};

void PrintJson(const std::vector<CheckedFile>& files, const Totals& totals);
void PrintJson(const TableKind& kind, const TableView& view);
void PrintJson(const TableKind& kind, const std::string& from, const std::string& to,
               const std::vector<Change>& changes);
void PrintJson(const std::string& table, const std::vector<std::string>& drawings, const NameCover& cover);

}  // namespace kirotable
