// What differs between two tables of one kind.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "TableKind.h"

namespace kirotable {

struct Change {
    char sign;                 // "-" only in the old table, "+" only in the new one, "~" in both with other values
    std::string_view section;  // or the name of a field
    std::string key;           // of the row; empty for a field
    std::string values;
};

std::string TextOf(const Value& value);
std::string TextOf(const Change& change);  // in one line, printable
std::string KeyOf(const Section& section, const std::vector<Value>& row);

// Rows are matched by their keys, those with the same key one after the other; their order does not count. Both views
// are of one kind.
std::vector<Change> Compare(const TableView& from, const TableView& to);

}  // namespace kirotable
