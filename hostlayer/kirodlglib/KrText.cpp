#include "KrText.h"

#include <windows.h>

#include <algorithm>
#include <cstring>

#include "entry/host/kirobc.h"

namespace {

constexpr UINT kCodePage = 932;
constexpr std::string_view kFullWidthSpace = "\x81\x40";

constexpr bool IsLead(unsigned char c) { return (c >= 0x81 && c <= 0x9F) || (c >= 0xE0 && c <= 0xFC); }
constexpr bool IsTrail(unsigned char c) { return c >= 0x40 && c <= 0xFC && c != 0x7F; }

std::wstring Decode(std::string_view text, DWORD flags) {
    if (text.empty()) return {};
    const int length = static_cast<int>(text.size());
    const int units = MultiByteToWideChar(kCodePage, flags, text.data(), length, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(std::max(units, 0)), L'\0');
    if (units > 0) MultiByteToWideChar(kCodePage, flags, text.data(), length, wide.data(), units);
    return wide;
}

// The bytes 80, A0 and FD to FF are no characters, but the system makes code points of them all the same.
bool HasNonCharacter(std::wstring_view wide) {
    return std::any_of(wide.begin(), wide.end(), [](wchar_t c) {
        return (c >= 0x80 && c <= 0xA0) || (c >= 0xF8F0 && c <= 0xF8F3) || c == 0xFFFD;
    });
}

// Both conversions of kirobc turn what they cannot convert into "?", which is never part of a longer character.
std::optional<std::string> Exact(std::string converted, const std::string& original) {
    if (std::count(converted.begin(), converted.end(), '?') != std::count(original.begin(), original.end(), '?'))
        return std::nullopt;
    return converted;
}

bool IsSpace(std::string_view character) { return character == " " || character == kFullWidthSpace; }

}  // namespace

std::optional<std::wstring> WideFrom932(std::string_view text) {
    std::wstring wide = Decode(text, MB_ERR_INVALID_CHARS);
    if (wide.empty() != text.empty() || HasNonCharacter(wide)) return std::nullopt;
    return wide;
}

std::wstring WideForDisplay(std::string_view text) { return Decode(text, 0); }

std::optional<std::string> To932(std::wstring_view text) {
    const int length = static_cast<int>(text.size());
    const int bytes =
        WideCharToMultiByte(kCodePage, WC_NO_BEST_FIT_CHARS, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string out(static_cast<std::size_t>(std::max(bytes, 0)), '\0');
    WideCharToMultiByte(kCodePage, WC_NO_BEST_FIT_CHARS, text.data(), length, out.data(), bytes, nullptr, nullptr);
    // What comes back the same was held. The system's own word is not asked: it folds a few characters silently.
    if (WideFrom932(out) != text) return std::nullopt;
    return out;
}

std::optional<std::string> EucFrom932(const std::string& text) { return Exact(HxEucEncoder::Sjis2Euc(text), text); }

std::optional<std::string> To932FromEuc(const std::string& text) { return Exact(HxEucEncoder::Euc2Sjis(text), text); }

std::size_t CharacterLength(std::string_view text) {
    if (text.empty()) return 0;
    const bool pair =
        text.size() > 1 && IsLead(static_cast<unsigned char>(text[0])) && IsTrail(static_cast<unsigned char>(text[1]));
    return pair ? 2 : 1;
}

std::string_view WithoutTrailingSpaces(std::string_view text) {
    std::size_t end = 0;
    for (std::size_t i = 0; i < text.size();) {
        const std::string_view character = text.substr(i, CharacterLength(text.substr(i)));
        i += character.size();
        if (!IsSpace(character)) end = i;
    }
    return text.substr(0, end);
}

std::string_view WithoutSpacesAround(std::string_view text) {
    while (IsSpace(text.substr(0, CharacterLength(text)))) text.remove_prefix(CharacterLength(text));
    return WithoutTrailingSpaces(text);
}

bool IsModelName(std::string_view text) {
    constexpr std::string_view kOther = "_-.";
    const std::optional<std::wstring> wide = WideFrom932(text);
    if (!wide) return false;
    return std::all_of(wide->begin(), wide->end(), [&](wchar_t c) {
        const bool ascii = c < 0x80;
        const bool alphanumeric = (c >= L'0' && c <= L'9') || (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z');
        return ascii ? alphanumeric || kOther.find(static_cast<char>(c)) != kOther.npos : c != L'\u3000';
    });
}

void CopyText(std::string_view text, char* out, std::size_t size) {
    if (!out || size == 0) return;
    std::size_t length = 0;
    while (length < text.size()) {
        const std::size_t next = length + CharacterLength(text.substr(length));
        if (next >= size) break;
        length = next;
    }
    std::memmove(out, text.data(), length);
    out[length] = 0;
}
