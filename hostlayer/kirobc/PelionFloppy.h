// The floppy of this host: a folder, in place of the drive. It holds a Pelion database like that of a drive: the folder
// PELION, in it a folder for each group, in those a folder for each user.
#pragma once

#include <optional>
#include <string>

namespace kirobc {

// The folder of the floppy; nothing when there is none in the drive.
std::optional<std::wstring> FloppyFolder();

}  // namespace kirobc
