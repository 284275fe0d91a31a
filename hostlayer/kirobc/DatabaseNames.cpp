#include "hostlayer/kirobc/DatabaseNames.h"

#include <windows.h>

#include <algorithm>
#include <string>

#include "entry/host/kirobc.h"
#include "hostlayer/kirobc/Guarded.h"
#include "hostlayer/kirobc/PathText.h"

namespace kirobc {
namespace {

constexpr std::size_t kLongestGroup = 4;  // bytes
constexpr std::size_t kLongestUser = 6;
constexpr std::string_view kNoUsers[] = {"ACCESS", "FORMAT"};  // the database's own folders in a group

// The names of the system's devices are theirs in every folder, also with an extension.
bool IsDevice(std::wstring name) {
    CharUpperBuffW(name.data(), static_cast<DWORD>(name.size()));
    name.resize(std::min(name.find(L'.'), name.size()));
    if (name == L"CON" || name == L"PRN" || name == L"AUX" || name == L"NUL") return true;
    return name.size() == 4 && (name.starts_with(L"COM") || name.starts_with(L"LPT")) && name[3] >= L'1' &&
           name[3] <= L'9';
}

bool IsBlank(wchar_t c) { return c == L' ' || c == L'　'; }

bool IsName(std::string_view sjis, std::size_t longest) {
    if (sjis.empty() || sjis.size() > longest) return false;
    wchar_t text[kLongestUser];
    const int length = MultiByteToWideChar(932, MB_ERR_INVALID_CHARS, sjis.data(), static_cast<int>(sjis.size()), text,
                                           static_cast<int>(std::size(text)));
    const std::wstring name(text, static_cast<std::size_t>(length));
    return !name.empty() && IsFileName(name) && !name.starts_with(L'.') && !name.ends_with(L'.') &&
           !IsBlank(name.front()) && !IsBlank(name.back()) && !IsDevice(name);
}

}  // namespace

bool IsGroupName(std::string_view sjis) { return IsName(sjis, kLongestGroup); }

bool IsUserName(std::string_view sjis) {
    return IsName(sjis, kLongestUser) && std::ranges::find(kNoUsers, sjis) == std::end(kNoUsers);
}

}  // namespace kirobc

int CheckGroupName(const char* name) {
    return kirobc::Guarded(0, [=]() -> int { return name && kirobc::IsGroupName(name); });
}

int CheckUserName(const char* name, int group) {
    return kirobc::Guarded(0, [=]() -> int { return name && group && kirobc::IsUserName(name); });
}
