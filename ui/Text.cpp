#include "ui/Text.h"

#include <windows.h>

namespace kiro::ui {
namespace {

constexpr UINT kCodePage = 932;

bool IsSurrogatePair(std::wstring_view text, std::size_t at) {
    return at + 1 < text.size() && IS_SURROGATE_PAIR(text[at], text[at + 1]);
}

constexpr wchar_t kNoCharacter = 0xFFFD;

// What the system makes of bytes that are no character is a character that code page 932 has; so those are found here.
std::wstring ToWideByCharacter(std::string_view sjis) {
    std::wstring out;
    for (std::size_t at = 0; at < sjis.size();) {
        const bool pair = IsDBCSLeadByteEx(kCodePage, static_cast<BYTE>(sjis[at])) && at + 1 < sjis.size();
        wchar_t unit = 0;
        const int units =
            MultiByteToWideChar(kCodePage, MB_ERR_INVALID_CHARS, sjis.data() + at, pair ? 2 : 1, &unit, 1);
        out += units == 1 ? unit : kNoCharacter;
        at += pair && units == 1 ? 2u : 1u;
    }
    return out;
}

}  // namespace

std::wstring ToWide(std::string_view sjis) {
    const int bytes = static_cast<int>(sjis.size());
    if (bytes == 0) return {};
    const int length = MultiByteToWideChar(kCodePage, MB_ERR_INVALID_CHARS, sjis.data(), bytes, nullptr, 0);
    if (length <= 0) return ToWideByCharacter(sjis);
    std::wstring out(static_cast<std::size_t>(length), L'\0');
    MultiByteToWideChar(kCodePage, 0, sjis.data(), bytes, out.data(), length);
    return out;
}

std::optional<std::string> ToSjis(std::wstring_view text) {
    if (text.empty()) return std::string();
    const int units = static_cast<int>(text.size());
    BOOL foreign = FALSE;
    const int length =
        WideCharToMultiByte(kCodePage, WC_NO_BEST_FIT_CHARS, text.data(), units, nullptr, 0, nullptr, &foreign);
    if (length <= 0 || foreign) return std::nullopt;
    std::string out(static_cast<std::size_t>(length), '\0');
    WideCharToMultiByte(kCodePage, WC_NO_BEST_FIT_CHARS, text.data(), units, out.data(), length, nullptr, &foreign);
    // A character that comes back as another one was not held, whatever the system says of best fits.
    if (foreign || ToWide(out) != text) return std::nullopt;
    return out;
}

std::wstring_view FirstForeignCharacter(std::wstring_view text) {
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t units = IsSurrogatePair(text, at) ? 2 : 1;
        const std::wstring_view character = text.substr(at, units);
        if (!ToSjis(character)) return character;
        at += units;
    }
    return {};
}

}  // namespace kiro::ui
