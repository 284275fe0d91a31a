#include "drawing/CharacterSet.h"

#include <charconv>

namespace drawing {

bool CharacterSet::Take(int code, std::string_view text) {
    if (code == 9) variable_ = text;
    if (code == 1 && variable_ == "$ACADVER") version_ = text;
    if (code != 3 || variable_ != "$DWGCODEPAGE") return true;
    // "ANSI_1252", "dos850"
    text.remove_prefix(text.find_last_not_of("0123456789") + 1);
    int page = kJapanesePage;
    std::from_chars(text.data(), text.data() + text.size(), page);
    const bool known = Utf8OfCodePage(page, "").has_value();
    if (known) page_ = page;
    return known;
}

std::string CharacterSet::ToUtf8(std::string_view text) const {
    return IsUtf8() ? std::string(text) : Unescaped(Utf8OfCodePage(page_, text).value_or(""));
}

std::string Unescaped(std::string text) {
    constexpr std::size_t kLength = 7;
    for (std::size_t at = 0; (at = text.find("\\U+", at)) != text.npos; ++at) {
        unsigned value = 0;
        const char* const digits = text.data() + at + 3;
        const bool whole = text.size() - at >= kLength;
        if (!whole || std::from_chars(digits, digits + 4, value, 16).ptr != digits + 4) continue;
        if (value < 0x80 || (value >= 0xD800 && value < 0xE000)) continue;
        std::string character;
        if (value < 0x800)
            character = {static_cast<char>(0xC0 | value >> 6)};
        else
            character = {static_cast<char>(0xE0 | value >> 12), static_cast<char>(0x80 | (value >> 6 & 0x3F))};
        text.replace(at, kLength, character += static_cast<char>(0x80 | (value & 0x3F)));
    }
    return text;
}

}  // namespace drawing
