// What the program does. Each command returns the exit status; what it cannot read or write ends it with kTrouble.
#pragma once

#include <string>
#include <vector>

#include "TableKind.h"

namespace kirotable {

constexpr int kFine = 0;
constexpr int kFindings = 1;  // or differences, or a refusal
constexpr int kTrouble = 2;

// Names of files as they were given; kind null: by the file's name. "-" as output: the standard output.
struct CommonOptions {
    const TableKind* kind = nullptr;
    ReadOptions read;
    bool json = false;
    bool force = false;
};

int Check(const std::vector<std::string>& files, const CommonOptions& options);
int Show(const std::string& file, const CommonOptions& options);
int Format(const std::string& file, const std::string& output, const CommonOptions& options);  // "": the file itself
int New(const TableKind& kind, const std::string& output, const CommonOptions& options);
int Diff(const std::string& from, const std::string& to, const CommonOptions& options);

}  // namespace kirotable
