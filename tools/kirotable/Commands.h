// What the program does. Each command returns the exit status; what it cannot read or write it throws as cli::Failure.
#pragma once

#include <string>
#include <vector>

#include "Charset.h"
#include "TableKind.h"
#include "tools/cli/Status.h"

namespace kirotable {

// Names of files as they were given, "-" for the standard input and output.
struct CommonOptions {
    const TableKind* kind = nullptr;  // null: by the file's name
    ReadOptions read;
    Charset from = Charset::kCp932;
    std::string name;  // of the standard input
    bool json = false;
    bool force = false;         // a file that exists may be replaced
    bool dropComments = false;  // what the writer does not write may be lost
    bool dropErrors = false;
    bool noBackup = false;
    bool euc = false;  // drawings before 2007 are EUC
};

int Check(const std::vector<std::string>& files, const CommonOptions& options);
int Show(const std::string& file, const CommonOptions& options);
int Format(const std::string& file, const std::string& output, const CommonOptions& options);  // "": the file itself
// file: records for the new table; "": none.
int New(const TableKind& kind, const std::string& file, const std::string& output, const CommonOptions& options);
int Diff(const std::string& from, const std::string& to, const CommonOptions& options);

// What a table says of the names that drawings use.
int Coverage(const std::string& table, const std::vector<std::string>& drawings, const CommonOptions& options);
// Adds the names that a table lacks: to a table of its own, or to one that is there (into).
int Collect(const std::vector<std::string>& drawings, const std::string& output, const std::string& into,
            const CommonOptions& options);

}  // namespace kirotable
