// Paths in their three forms: what a text says, the real path (absolute, "\", UTF-16 here) and the host's internal path
// (absolute, "/", EUC). All searching for separators is done in UTF-16, since a second byte of 932 may be a "\".
#pragma once

#include <optional>
#include <string>

std::wstring KeyFolder(const char* key);  // "" when the key has none

// How many characters of a path with "\" are its root: "C:\", "\\server\share\"; 0 when there is none.
std::size_t RootLength(const std::wstring& path);

// The absolute path of a real path, an internal path or a name in the folder. None when it cannot be formed: the text
// is empty, depends on a drive's current folder ("C:name"), or names no file ("\\server", a device).
std::optional<std::wstring> AbsolutePath(std::wstring text, const std::wstring& folder);

std::optional<std::string> InternalFromReal(const std::wstring& path);
std::optional<std::string> InternalPath(const std::string& text932, const std::wstring& folder);
std::optional<std::string> RealPath(const std::string& textEuc, const std::wstring& folder);  // in 932
