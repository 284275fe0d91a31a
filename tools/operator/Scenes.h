#pragma once

#include <filesystem>
#include <string>

namespace kiro {

// Writes a picture of every scene into the folder: each dialog and popup as it opens and in a telling state. A scene
// that cannot be played is reported on stderr. The number of those.
int PaintScenes(const std::filesystem::path& folder, const std::wstring& drawing);

}  // namespace kiro
