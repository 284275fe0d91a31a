#pragma once

#include <windows.h>

#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace kiro {

using Windows = std::vector<HWND>;  // what a picture shows, the lowest first

struct Scene {
    const char* name;
    const char* command;                           // null: a dialog that no command opens
    const char8_t* input;                          // of the command, as JSON
    Windows (*play)(const std::wstring& drawing);  // what the user does
    bool modified = false;                         // the model has changes that were not saved
    int bareTemplate = 0;                          // of a dialog without a command, shown as it stands in the resources
};

Windows AsItOpens(const std::wstring& drawing);  // the dialog, without anything done

std::span<const Scene> TableScenes();

// Writes a picture of every scene into the folder: each dialog and popup as it opens and in a telling state. A scene
// that cannot be played is reported on stderr. The number of those.
int PaintScenes(const std::filesystem::path& folder, const std::wstring& drawing);

}  // namespace kiro
