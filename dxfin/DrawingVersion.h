// The version of a DXF or DWG file, as the import dialog shows it.
#pragma once

#include <optional>
#include <string>

struct DrawingVersion {
    bool opened = false;
    std::optional<std::string> code;  // such as "AC1015"; none when the file has none where one is looked for
};

constexpr int kWholeFile = -1;

// path: internal form. mostPairs: a file that has no version among its first pairs counts as having none.
DrawingVersion ReadDxfVersion(const std::string& path, int mostPairs = kWholeFile);
DrawingVersion ReadDwgVersion(const std::string& path);

// The code with its label; "" when there is none.
std::string VersionText(const DrawingVersion& version);
// The line that tells the version: the code with its label, or that there is no such file.
std::string VersionLine(const DrawingVersion& version);
// The line while no file is chosen.
std::string EmptyVersionLine();
