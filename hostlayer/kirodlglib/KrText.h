// Code page 932 and UTF-16. The code page is always named: the system's own may be another. A text that cannot be held
// on the other side is refused and never turned into "?", which is a pattern character in file names.
#pragma once

#include <optional>
#include <string>
#include <string_view>

std::optional<std::wstring> WideFrom932(std::string_view text);  // none: a byte is no character
std::optional<std::string> To932(std::wstring_view text);        // none: a character that 932 does not have
std::wstring WideForDisplay(std::string_view text);              // what is no character is shown as the system does

std::optional<std::string> EucFrom932(const std::string& text);  // none: a character that the other side does not have
std::optional<std::string> To932FromEuc(const std::string& text);

// The length in bytes of the character that starts here; a lead byte without its second byte is one byte.
std::size_t CharacterLength(std::string_view text);

// Without the spaces around it, half and full width.
std::string_view WithoutTrailingSpaces(std::string_view text);
std::string_view WithoutSpacesAround(std::string_view text);

bool IsModelName(std::string_view text);  // every character is one that the host's model names may hold

// Writes as much as has room, to a character's end, and a NUL.
void CopyText(std::string_view text, char* out, std::size_t size);
