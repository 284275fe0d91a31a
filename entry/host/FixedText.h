// Reading and writing the fixed text fields of the records. The field's width is the only bound that is trusted: a
// field without a NUL is a text as long as the field.
#pragma once

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

// The text of a field: up to its first NUL or its end.
template <std::size_t N>
std::string ReadFixedText(const char (&field)[N]) {
    const void* end = std::memchr(field, 0, N);
    return std::string(field, end ? static_cast<std::size_t>(static_cast<const char*>(end) - field) : N);
}

// True when the text and its NUL have room in the field.
template <std::size_t N>
constexpr bool FitsFixedText(const char (&)[N], std::string_view text) {
    return text.size() < N;
}

// Stores a text with its NUL and clears the rest of the field, so that nothing of an earlier, longer text stays behind.
// A text that has no room is not stored; the field is then as before and the result is false.
template <std::size_t N>
bool WriteFixedText(char (&field)[N], std::string_view text) {
    if (!FitsFixedText(field, text)) return false;
    std::memmove(field, text.data(), text.size());
    std::memset(field + text.size(), 0, N - text.size());
    return true;
}
