#include "hostlayer/kirobc/HomeFolder.h"

#include <windows.h>

#include <mutex>
#include <utility>

namespace kirobc {
namespace {

constexpr std::string_view kPartCharacters = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789_";
constexpr std::string_view kFloppyKey = "#FLOPPY_WIN#";
constexpr wchar_t kFloppyDrive[] = L"A:\\";

std::mutex homeLock;
std::wstring chosenHome;  // guarded by homeLock; "": the default

// The system functions that fill a buffer tell the length that they need, with the NUL, when it has no room.
template <class Function>
std::wstring SystemText(Function function) {
    std::wstring text(MAX_PATH, L'\0');
    for (;;) {
        const std::size_t length = function(text.data(), static_cast<DWORD>(text.size()));
        const bool whole = length < text.size();
        text.resize(length);
        if (whole) return text;
    }
}

std::wstring Environment(const wchar_t* name) {
    return SystemText([name](wchar_t* out, DWORD size) { return GetEnvironmentVariableW(name, out, size); });
}

std::wstring AbsolutePath(const std::wstring& path) {
    std::wstring full =
        SystemText([&path](wchar_t* out, DWORD size) { return GetFullPathNameW(path.c_str(), size, out, nullptr); });
    const bool driveRoot = full.size() == 3 && full[1] == L':';
    if (full.ends_with(L'\\') && !driveRoot) full.pop_back();
    return full;
}

std::wstring HomeFolder() {
    {
        const std::lock_guard guard(homeLock);
        if (!chosenHome.empty()) return chosenHome;
    }
    if (const std::wstring home = Environment(L"KIRO_HOME"); !home.empty()) return AbsolutePath(home);
    const std::wstring data = Environment(L"LOCALAPPDATA");
    return data.empty() ? data : AbsolutePath(JoinPath(data, L"Kiro"));
}

// "#A:B#" as "A\B".
std::optional<std::wstring> FolderNames(std::string_view key) {
    if (key.empty()) return std::wstring();
    if (key.size() < 3 || !key.starts_with('#') || !key.ends_with('#')) return std::nullopt;
    std::wstring names;
    for (const char c : key.substr(1, key.size() - 2)) {
        if (c == ':' && !names.empty() && !names.ends_with(L'\\')) {
            names += L'\\';
        } else if (kPartCharacters.find(c) != std::string_view::npos) {
            names += static_cast<wchar_t>(c);
        } else {
            return std::nullopt;
        }
    }
    return names.ends_with(L'\\') ? std::nullopt : std::optional(names);
}

void MakeFolder(const std::wstring& folder) {
    if (CreateDirectoryW(folder.c_str(), nullptr) || GetLastError() != ERROR_PATH_NOT_FOUND) return;
    for (std::size_t end = folder.find(L'\\'); end != std::wstring::npos; end = folder.find(L'\\', end + 1)) {
        CreateDirectoryW(folder.substr(0, end).c_str(), nullptr);
    }
    CreateDirectoryW(folder.c_str(), nullptr);
}

}  // namespace

void SetHomeFolder(const wchar_t* folder) {
    std::wstring home = folder && *folder ? AbsolutePath(folder) : std::wstring();
    const std::lock_guard guard(homeLock);
    chosenHome.swap(home);
}

std::optional<std::wstring> FolderOfKey(std::string_view key, bool create) {
    const std::optional<std::wstring> names = FolderNames(key);
    if (!names) return std::nullopt;
    if (key == kFloppyKey && GetDriveTypeW(kFloppyDrive) == DRIVE_REMOVABLE) return kFloppyDrive;

    std::wstring folder = HomeFolder();
    if (folder.empty()) return std::nullopt;
    if (!names->empty()) folder = JoinPath(std::move(folder), *names);
    if (create) MakeFolder(folder);
    return folder;
}

std::wstring JoinPath(std::wstring folder, std::wstring_view name) {
    if (!folder.ends_with(L'\\')) folder += L'\\';
    return folder.append(name);
}

}  // namespace kirobc
