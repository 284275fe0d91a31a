// A table as it was read, with what the reader said to its lines.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "TableKind.h"

namespace kirotable {

struct Finding {
    std::size_t line;  // 0: of the table as a whole
    std::string message;
};

struct Reading {
    std::unique_ptr<AnyTable> table;
    std::vector<Finding> errors;    // as the reader has them
    std::vector<Finding> warnings;  // what a line says and the table has not
};

Reading ReadTable(const TableKind& kind, std::string_view bytes, const ReadOptions& options);

// What is lost or changed when the table is written and read again, one text each; what a table without records would
// lose as well is not counted. Completes the table as the writer does.
std::vector<std::string> LossesOf(const TableKind& kind, AnyTable& table, const ReadOptions& options);

}  // namespace kirotable
