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
    return IsUtf8() ? std::string(text) : Utf8OfCodePage(page_, text).value_or("");
}

}  // namespace drawing
