// Names in slots of fixed size, in code page 932.
#pragma once

#include <cstddef>
#include <cstring>
#include <string>
#include <string_view>

// The start of a text, at most limit bytes of it, which does not end within a double-byte character.
std::string_view CutAtCharacter(std::string_view text, std::size_t limit);

// The name of a file without its folder. A byte that is part of a double-byte character separates nothing.
std::string_view FileNameOf(std::string_view path);

// The same for all names that differ only in the case of ASCII letters.
std::string FoldedName(std::string_view name);

// The text of a slot: up to its NUL or its end.
template <std::size_t N>
std::string_view SlotText(const char (&slot)[N]) {
    const std::string_view all(slot, N);
    return all.substr(0, all.find('\0'));
}

// Stores what has room with a NUL and clears the rest of the slot.
template <std::size_t N>
void StoreText(char (&slot)[N], std::string_view text) {
    text = CutAtCharacter(text, N - 1);
    std::memmove(slot, text.data(), text.size());
    std::memset(slot + text.size(), 0, N - text.size());
}
