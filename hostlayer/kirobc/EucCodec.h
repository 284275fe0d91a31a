// EUC-JP with the extensions of eucJP-ms to code page 932 and back. Portable: no table of the system is used, so the
// result is the same on every machine.
//
// What is a character is what code page 932 has: ASCII and the control characters, half-width katakana, JIS X 0208, NEC
// row 13, the IBM extensions (932: FA40-FC4B, EUC: three-byte codes) and the 1880 user-defined characters (932:
// F040-F9FC, EUC: F5A1-FEFE and 8FF5A1-8FFEFE). A character that 932 has more than once comes out under the one code
// that Windows gives it, so EDxx and EExx become FAxx to FCxx.
//
// Whatever is no character becomes "?": one for a pair or triple of the right form that has no character, one for a
// character that is broken off. The byte after a broken-off character is never part of it, so a stray lead byte hides
// no NUL, "/" or digit that follows.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kirobc {

// Results are never longer than the text times this. To 932: at most one byte for each. To EUC: two for each half-width
// katakana, three for a pair.
constexpr std::size_t kMaxSjisPerEuc = 1;
constexpr std::size_t kMaxEucPerSjis = 2;

std::string EucToSjis(std::string_view text);
std::string SjisToEuc(std::string_view text);

struct Converted {
    std::size_t whole = 0;    // length of the whole result
    std::size_t written = 0;  // of which so many bytes were written; they end at a character's end
};

// Writes at most limit bytes, and no NUL of its own. Nothing follows the first character that has no room.
Converted EucToSjis(std::string_view text, char* out, std::size_t limit) noexcept;
Converted SjisToEuc(std::string_view text, char* out, std::size_t limit) noexcept;

}  // namespace kirobc
