// Table files by the names that the user gives.
#pragma once

#include <string>

#include "Commands.h"
#include "Reading.h"
#include "tools/cli/Files.h"

namespace kirotable {

struct OpenedTable {
    const TableKind* kind;
    Reading reading;
    std::string text;  // of the file, code page 932
    std::string name;  // for messages
};

// "-": the standard input. Throws cli::Failure.
OpenedTable OpenTable(const std::string& name, const CommonOptions& options, const TableKind* otherwise = nullptr);

// "file:line: message", printable.
std::string FindingText(const std::string& file, const Finding& finding);

// Says on the standard error that not all lines of a file could be read.
void WarnOfErrors(const OpenedTable& opened);

// Writes the text of a table, lines ending with "\n", to a file or the standard output; an old file stays beside it.
// The exit status: kFindings when a file is there that may not be replaced. Throws cli::Failure.
int SaveTable(const std::string& text, const std::string& output, const CommonOptions& options);

// How a table says where it is: code page 932.
std::string PathInHeader(const TableKind& kind, const std::string& output);

}  // namespace kirotable
