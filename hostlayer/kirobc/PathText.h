// Paths between the host's internal form (absolute, "/" between folders, EUC), code page 932 and what Windows opens.
// Code page 932 is named in every conversion: the system's own code page plays no part.
#pragma once

#include <string>
#include <string_view>

namespace kirobc {

// Both give "" when the text holds something that the other side lacks; nothing is replaced.
std::wstring WideFromEuc(std::string_view text);
std::string SjisFromWide(std::wstring_view text);

// What Windows opens for an internal path; "" when it is no absolute path of a file: neither relative nor a device, nor
// a pattern, nor a stream of a file.
std::wstring WindowsPath(std::string_view internalPath);

// True for one component of a path that can be a file's name.
bool IsFileName(std::wstring_view name);

}  // namespace kirobc
