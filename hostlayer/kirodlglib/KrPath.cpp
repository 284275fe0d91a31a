#include "KrPath.h"

#include <windows.h>

#include <algorithm>
#include <cwctype>

#include "KrText.h"
#include "hostlayer/include/KiroHost.h"

namespace {

constexpr std::size_t kMaxWidePath = 1024;
constexpr std::wstring_view kShare = L"\\\\";

bool IsDriveLetter(wchar_t c) { return (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z'); }

bool StartsWithDrive(const std::wstring& path) { return path.size() >= 2 && IsDriveLetter(path[0]) && path[1] == L':'; }

// "\\?\" and "\\.\" lead past the file system's rules, to devices too.
bool IsDevicePath(const std::wstring& path) { return path.starts_with(L"\\\\?\\") || path.starts_with(L"\\\\.\\"); }

// None for what would depend on more than the text and the folder.
std::optional<std::wstring> Anchored(const std::wstring& text, const std::wstring& folder) {
    if (RootLength(text) > 0) return text;
    const bool rooted = text.starts_with(L'\\');
    if (text.empty() || folder.empty() || text.starts_with(kShare) || text.find(L':') != text.npos) return std::nullopt;
    if (!rooted) return folder + L'\\' + text;
    const std::size_t root = RootLength(folder + L'\\');
    if (root == 0) return std::nullopt;
    return (folder + L'\\').substr(0, root - 1) + text;
}

}  // namespace

std::wstring KeyFolder(const char* key) {
    wchar_t folder[kMaxWidePath];
    const std::size_t length = KiroHostGetFolder(key ? key : "", folder, kMaxWidePath);
    return length < kMaxWidePath ? std::wstring(folder, length) : std::wstring();
}

std::size_t RootLength(const std::wstring& path) {
    if (StartsWithDrive(path)) return path.size() > 2 && path[2] == L'\\' ? 3 : 0;
    if (!path.starts_with(kShare)) return 0;
    const std::size_t serverEnd = path.find(L'\\', kShare.size());
    if (serverEnd == path.npos || serverEnd == kShare.size()) return 0;
    const std::size_t shareEnd = path.find(L'\\', serverEnd + 1);
    if (shareEnd == path.npos || shareEnd == serverEnd + 1) return 0;
    return shareEnd + 1;
}

std::optional<std::wstring> AbsolutePath(std::wstring text, const std::wstring& folder) {
    std::replace(text.begin(), text.end(), L'/', L'\\');
    if (text.find(L'\0') != text.npos) return std::nullopt;
    const std::optional<std::wstring> anchored = Anchored(text, folder);
    if (!anchored) return std::nullopt;
    wchar_t full[kMaxWidePath];
    const DWORD length = GetFullPathNameW(anchored->c_str(), kMaxWidePath, full, nullptr);
    if (length == 0 || length >= kMaxWidePath) return std::nullopt;
    std::wstring path(full, length);
    if (IsDevicePath(path)) return std::nullopt;
    if (StartsWithDrive(path)) path[0] = static_cast<wchar_t>(std::towupper(path[0]));
    return path;
}

std::optional<std::string> InternalFromReal(const std::wstring& path) {
    std::wstring slashes = path;
    std::replace(slashes.begin(), slashes.end(), L'\\', L'/');
    const std::optional<std::string> text = To932(slashes);
    return text ? EucFrom932(*text) : std::nullopt;
}

std::optional<std::string> InternalPath(const std::string& text932, const std::wstring& folder) {
    const std::optional<std::wstring> wide = WideFrom932(text932);
    const std::optional<std::wstring> path = wide ? AbsolutePath(*wide, folder) : std::nullopt;
    return path ? InternalFromReal(*path) : std::nullopt;
}

std::optional<std::string> RealPath(const std::string& textEuc, const std::wstring& folder) {
    const std::optional<std::string> text = To932FromEuc(textEuc);
    const std::optional<std::wstring> wide = text ? WideFrom932(*text) : std::nullopt;
    const std::optional<std::wstring> path = wide ? AbsolutePath(*wide, folder) : std::nullopt;
    return path ? To932(*path) : std::nullopt;
}
