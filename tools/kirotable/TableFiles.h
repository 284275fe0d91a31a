// Table files by the names that the user gives.
#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>

#include "Commands.h"
#include "Reading.h"

namespace kirotable {

// What keeps a file from being read or written; the text is for the user.
class FileFailure : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

std::filesystem::path PathOf(const std::string& name);
std::string FullName(const std::string& name);

struct OpenedTable {
    const TableKind* kind;
    Reading reading;
};

// Throws FileFailure.
OpenedTable OpenTable(const std::string& name, const CommonOptions& options);

// "file:line: message", printable.
std::string FindingText(const std::string& file, const Finding& finding);

// Says on the standard error that not all lines of a file could be read.
void WarnOfErrors(const std::string& file, const OpenedTable& opened);

}  // namespace kirotable
