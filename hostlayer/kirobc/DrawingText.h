// The character sets of drawings. Unicode's tables are the system's, so the caller brings them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace convert {

enum class Encoding : std::uint8_t { kSjis, kEuc, kUtf8 };

struct Unicode {
    std::string (*toUtf8)(std::string_view cp932);  // bytes that are no character become U+FFFD
    std::string (*toCp932)(std::string_view utf8);  // what has no place there becomes "〓"
};

// What code page 932 lacks becomes "\U+XXXX", which every program that reads drawings takes for that character.
std::string Convert(std::string_view text, Encoding from, Encoding to, const Unicode& unicode);

bool IsAscii(std::string_view text);
bool IsLeadByte(char c, Encoding encoding);  // of a double-byte character whose second byte may be an ASCII one

// Names that differ in nothing but the case of ASCII letters are one name in a drawing.
std::string Folded(std::string_view name, Encoding encoding);

}  // namespace convert
