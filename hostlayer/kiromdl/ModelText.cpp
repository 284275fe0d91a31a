#include "ModelText.h"

#include <windows.h>

#include "hostlayer/kirobc/EucCodec.h"

namespace {

constexpr UINT kShiftJisPage = 932;

std::wstring Wide(UINT page, std::string_view text) {
    const int size = static_cast<int>(text.size());
    std::wstring wide(text.size(), L'\0');
    wide.resize(static_cast<std::size_t>(
        MultiByteToWideChar(page, 0, text.data(), size, wide.data(), static_cast<int>(wide.size()))));
    return wide;
}

// What has no place there becomes otherwise (null: the system's own), and lost is set.
std::string Sjis(std::wstring_view wide, const char* otherwise, BOOL& lost) {
    std::string sjis(2 * wide.size(), '\0');
    sjis.resize(static_cast<std::size_t>(WideCharToMultiByte(kShiftJisPage, WC_NO_BEST_FIT_CHARS, wide.data(),
                                                             static_cast<int>(wide.size()), sjis.data(),
                                                             static_cast<int>(sjis.size()), otherwise, &lost)));
    return sjis;
}

}  // namespace

std::optional<std::string> SjisFromUtf8(std::string_view utf8) {
    BOOL lost = FALSE;
    const std::string sjis = Sjis(Wide(CP_UTF8, utf8), nullptr, lost);
    return lost ? std::nullopt : std::optional(sjis);
}

std::string NearestSjis(std::string_view utf8) {
    constexpr char kGeta[] = "\x81\xAC";
    BOOL lost = FALSE;
    return Sjis(Wide(CP_UTF8, utf8), kGeta, lost);
}

std::optional<std::string> EucFromUtf8(std::string_view utf8) {
    const auto sjis = SjisFromUtf8(utf8);
    return sjis ? std::optional(kirobc::SjisToEuc(*sjis)) : std::nullopt;
}

std::string ShownAsUtf8(std::string_view sjis) {
    const std::wstring wide = Wide(kShiftJisPage, sjis);
    std::string utf8(3 * wide.size(), '\0');
    utf8.resize(
        static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, wide.data(), static_cast<int>(wide.size()),
                                                     utf8.data(), static_cast<int>(utf8.size()), nullptr, nullptr)));
    return utf8;
}

std::optional<std::string> Utf8FromSjis(std::string_view sjis) {
    const std::string utf8 = ShownAsUtf8(sjis);
    return SjisFromUtf8(utf8) == sjis ? std::optional(utf8) : std::nullopt;
}

std::optional<std::string> Utf8FromEuc(std::string_view euc) {
    const auto utf8 = Utf8FromSjis(kirobc::EucToSjis(euc));
    return utf8 && EucFromUtf8(*utf8) == euc ? utf8 : std::nullopt;
}
