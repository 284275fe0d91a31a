// Texts of this program are UTF-8; those of tables and their readers are code page 932.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace cli {

void AppendUtf8(std::string& out, char32_t character);
std::string FromCp932(std::string_view text);  // bytes that are no character become U+FFFD
std::string ToCp932(std::string_view text);    // what has no place there becomes "〓"
// The same, but it becomes "\U+XXXX", as in drawings.
std::string ToCp932Escaped(std::string_view text);

bool IsUtf8(std::string_view text);   // all of it is well-formed
bool IsCp932(std::string_view text);  // every byte is part of a character

// For a terminal: control characters and what is no UTF-8 become U+FFFD.
std::string Printable(std::string_view text);

// Columns on a terminal: double-byte characters of code page 932 take two.
std::size_t ColumnsOf(std::string_view text);

}  // namespace cli
