// The texts of a model file, which is UTF-8, in the host's encodings and back.
#pragma once

#include <optional>
#include <string>
#include <string_view>

// Nothing when code page 932, and so EUC, lacks one of the characters.
std::optional<std::string> SjisFromUtf8(std::string_view utf8);
std::optional<std::string> EucFromUtf8(std::string_view utf8);

// Nothing when these bytes are not exactly what comes of a text.
std::optional<std::string> Utf8FromSjis(std::string_view sjis);
std::optional<std::string> Utf8FromEuc(std::string_view euc);

// Whatever the bytes are: what is no character becomes U+FFFD, what code page 932 lacks becomes "〓".
std::string ShownAsUtf8(std::string_view sjis);
std::string NearestSjis(std::string_view utf8);
