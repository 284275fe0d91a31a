// Where the drawings of the databases are in this host: files below a user's folder, or lines of a file that holds
// several. Names are Shift-JIS; names that code page 932 has not, or that have no room in a record, are left out.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "entry/host/TARNAINFO.h"

namespace kirobc {

using Names = std::vector<std::string>;

constexpr std::size_t kLongestDrawingName = sizeof TarnaDrawing::drawingName - 1;  // bytes

// A file that holds drawings: UTF-8, with its kind in the first line and a name in each of the others.
enum class DrawingFile { kPelion, kVaros };
std::optional<Names> ReadDrawingFile(const std::wstring& path, DrawingFile kind);  // nothing: it is none of the kind

// The drawings of group and user of the record, in the Pelion database on its drive or on the floppy. Nothing when
// there is no such user.
enum class PelionPlace { kDrive, kFloppy };
std::optional<Names> DrawingsOfUser(PelionPlace place, const TarnaDatabaseView& info);

// The files of a folder whose names (without the ending, which they must have) match the pattern of "*" and "?", in
// alphabetical order.
Names FilesOf(const std::wstring& folder, std::wstring_view ending, std::wstring_view pattern, std::size_t longest);

// The same names are equal, whatever the case of their letters.
std::wstring FoldedName(std::string_view sjis);

// How many drawings a record has room for (KiroHostSetDrawingRoom).
std::size_t DrawingRoom();

}  // namespace kirobc
