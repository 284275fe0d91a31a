// Pictures of windows as PNG files, also where there is no display.
#pragma once

#include <windows.h>

#include <filesystem>
#include <vector>

namespace kiro::drive {

// A window as it is on the screen, frame and shape included. A Failure when the file cannot be written.
void Picture(HWND window, const std::filesystem::path& png);
// Several windows as they lie over one another, the lowest first; white between them.
void Picture(const std::vector<HWND>& windows, const std::filesystem::path& png);

}  // namespace kiro::drive
