// The version of a DXF or DWG file, as the import dialog shows it.
#pragma once

#include <optional>
#include <string>

struct DrawingVersion {
    bool opened = false;
    std::optional<std::string> code;  // such as "AC1015"; none when the file has none where one is looked for
};

// path: internal form.
DrawingVersion ReadDxfVersion(const std::string& path);
DrawingVersion ReadDwgVersion(const std::string& path);

// The line that tells the version: the code with its label, or that there is no such file.
std::string VersionLine(const DrawingVersion& version);
// The line while no file is chosen.
std::string EmptyVersionLine();
