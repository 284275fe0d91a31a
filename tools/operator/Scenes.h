#pragma once

#include <windows.h>

#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace kiro {

using Windows = std::vector<HWND>;  // what a picture shows, the lowest first

// A dialog of the catalogue in a telling state; how it opens is shown anyway.
struct Scene {
    const char* name;
    const char* dialog;
    Windows (*play)(const std::wstring& drawing);  // what the user does
    bool modified = false;                         // the model has changes that were not saved
};

// Presses a button, and what that opens: a dialog or a box over this one.
Windows Pressed(HWND dialog, int button);

std::span<const Scene> TableScenes();
std::span<const Scene> ChoiceScenes();

// Writes pictures into the folder: every dialog as it opens, every explanation, every scene. drawing: what is typed as
// the name of a file. What cannot be shown, or not whole, is reported on stderr. The number of those.
int PaintScenes(const std::filesystem::path& folder, const std::wstring& drawing);

}  // namespace kiro
