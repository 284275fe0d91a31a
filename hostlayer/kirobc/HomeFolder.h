// The folders of the file-type keys, under the home folder. Folders have no "\" at the end, except the root of a drive.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kirobc {

// Null or "": the default again.
void SetHomeFolder(const wchar_t* folder);

// "#A:B#" is A\B under the home folder and "" the home folder itself; parts are of A-Z, 0-9 and "_". "#FLOPPY_WIN#" is
// the floppy drive where there is one. Nothing for a malformed key, and on a system that names no home folder. create:
// the folder is made when it is missing; that it could not be made shows when it is used.
std::optional<std::wstring> FolderOfKey(std::string_view key, bool create);

std::wstring JoinPath(std::wstring folder, std::wstring_view name);

}  // namespace kirobc
