// Text at the border between the library (code page 932 in char) and Windows (UTF-16). The code page is always named,
// so that the system's own does not matter.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kiro::ui {

// Bytes that are no character of code page 932 become U+FFFD.
std::wstring ToWide(std::string_view sjis);

// Nothing when code page 932 cannot hold a character of the text. There is no best fit and no "?": "?" is a wildcard in
// file names.
std::optional<std::string> ToSjis(std::wstring_view text);

// The first character (one or two UTF-16 units) of the text that code page 932 cannot hold; empty when there is none.
std::wstring_view FirstForeignCharacter(std::wstring_view text);

}  // namespace kiro::ui
