#pragma once

#include <string>

#include "Calls.h"

namespace kiro {

// Imports a drawing as a user does: file, picture 2, scale 1/2 and submodel DEMO1 in the import dialog, a picture of
// it, and 処理開始. drawing: what is typed as the file's name.
CallResult RunDemo(const std::wstring& drawing, const std::wstring& picture);

}  // namespace kiro
