// The version of a DXF or DWG file, as the import dialog shows it.
#pragma once

#include <optional>
#include <string>

// The version code of a file, such as "AC1015"; empty when the file has none where one is looked for. Nothing when the
// file cannot be opened. path: internal form.
std::optional<std::string> ReadDxfVersion(const std::string& path);
std::optional<std::string> ReadDwgVersion(const std::string& path);

// The line that tells the version: the code with its label, or that there is no such file.
std::string VersionLine(const std::optional<std::string>& version);
// The line while no file is chosen.
std::string EmptyVersionLine();
