// The home folder of a program that shows dialogs: the demonstration's drawing, conversion tables
// and databases in their places.
#pragma once

#include <filesystem>

namespace kiro {

// Makes the folder anew, from the demonstration's files in the source (UTF-8; tables become Shift-JIS), and the host
// takes it as its home. Throws when a file cannot be read or written.
void MakeDemoHome(const std::filesystem::path& home);

}  // namespace kiro
