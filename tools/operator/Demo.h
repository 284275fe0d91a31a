#pragma once

#include <filesystem>
#include <string>

#include "Calls.h"

namespace kiro {

// Imports a drawing as a user does: file, picture 2, scale 1/2 and submodel DEMO1 in the import dialog, a picture of
// it, and 処理開始. drawing: what is typed as the file's name.
CallResult DemoImport(const std::wstring& drawing, const std::filesystem::path& picture);

// Exports picture 2 of the model in version 2010, which is chosen among the parameters; a picture of the export dialog.
CallResult DemoExport(const std::wstring& drawing, const std::filesystem::path& picture);

// Reads the first drawings of a DOS file of Pelion into new models; a picture of their list.
CallResult DemoDrawings(const std::wstring& dosFile, const std::filesystem::path& picture);

}  // namespace kiro
