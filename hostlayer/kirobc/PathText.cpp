#include "hostlayer/kirobc/PathText.h"

#include <windows.h>

#include <algorithm>

#include "hostlayer/kirobc/EucCodec.h"

namespace kirobc {
namespace {

constexpr UINT kCodePage = 932;
constexpr std::size_t kMaxPath = 32767;  // the longest that Windows has

constexpr std::wstring_view kNotInNames = L"\\/:*?\"<>|";

bool IsNameCharacter(wchar_t c) { return c >= L' ' && kNotInNames.find(c) == std::wstring_view::npos; }

bool IsDriveRoot(std::wstring_view path) {
    return path.size() >= 3 && ((path[0] >= L'A' && path[0] <= L'Z') || (path[0] >= L'a' && path[0] <= L'z')) &&
           path[1] == L':' && path[2] == L'\\';
}

// "\\.\" and "\\?\" are the device name spaces; the "?" fails as a character of a name.
bool IsNetworkRoot(std::wstring_view path) {
    return path.size() >= 3 && path.starts_with(L"\\\\") && path[2] != L'.' && path[2] != L'\\';
}

}  // namespace

std::wstring WideFromEuc(std::string_view text) {
    if (text.empty() || text.size() > kMaxPath) return {};
    // "?" can be no part of a path, so one in the result is either the caller's or stands for bytes that are no
    // character.
    const std::string sjis = EucToSjis(text);
    if (sjis.find('?') != std::string::npos) return {};
    std::wstring wide(sjis.size(), L'\0');
    const int length = MultiByteToWideChar(kCodePage, MB_ERR_INVALID_CHARS, sjis.data(), static_cast<int>(sjis.size()),
                                           wide.data(), static_cast<int>(wide.size()));
    wide.resize(static_cast<std::size_t>(length));
    return wide;
}

std::string SjisFromWide(std::wstring_view text) {
    if (text.empty() || text.size() > kMaxPath) return {};
    std::string sjis(text.size() * 2, '\0');
    BOOL replaced = FALSE;
    const int length = WideCharToMultiByte(kCodePage, WC_NO_BEST_FIT_CHARS, text.data(), static_cast<int>(text.size()),
                                           sjis.data(), static_cast<int>(sjis.size()), nullptr, &replaced);
    sjis.resize(replaced ? 0 : static_cast<std::size_t>(length));
    return sjis;
}

std::wstring WindowsPath(std::string_view internalPath) {
    std::wstring path = WideFromEuc(internalPath);
    std::ranges::replace(path, L'/', L'\\');
    if (!IsDriveRoot(path) && !IsNetworkRoot(path)) return {};
    const bool valid =
        std::all_of(path.begin() + 2, path.end(), [](wchar_t c) { return c == L'\\' || IsNameCharacter(c); });
    return valid ? path : std::wstring();
}

bool IsFileName(std::wstring_view name) {
    // Windows drops dots and blanks at a name's end, so a name of nothing else is the folder itself or the one above
    // it.
    return std::ranges::all_of(name, IsNameCharacter) && name.find_last_not_of(L". ") != std::wstring_view::npos;
}

}  // namespace kirobc
