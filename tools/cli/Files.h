// Files by the names that the user gives: UTF-8 on Windows, elsewhere bytes as they are.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "Status.h"

namespace cli {

inline constexpr char kStandard[] = "-";  // the standard input or output

std::filesystem::path PathOf(const std::string& name);
std::string NameOf(const std::filesystem::path& path);
std::string FullName(const std::string& name);

// The files that a name with "*" or "?" in its last part fits, by name; any other name itself. Throws Failure when
// there are none.
std::vector<std::string> Expanded(const std::string& name);
std::vector<std::string> Expanded(const std::vector<std::string>& names);

// A name on which systems agree that take two spellings for one file and those that do not.
std::string FileKey(std::string name);

}  // namespace cli
