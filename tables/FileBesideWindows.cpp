#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>

#include "tables/FileBeside.h"

namespace {

constexpr std::size_t kLargestWrite = 1 << 20;

HANDLE HandleOf(std::intptr_t file) { return reinterpret_cast<HANDLE>(file); }

std::wstring FullPath(const std::wstring& path) {
    std::wstring full(GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
    full.resize(GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    return full;
}

}  // namespace

// Shared with nobody, so that another writer cannot remove it before it has its final name. Written through, the new
// name is on the medium when it is there.
FileBeside::FileBeside(const SystemPath& target) : target_(target) {
    for (int i = 0; i < kNamesToTry; ++i) {
        path_ = FolderOf(target) + NameBeside(GetCurrentProcessId());
        file_ = reinterpret_cast<std::intptr_t>(
            CreateFileW(path_.c_str(), GENERIC_WRITE | DELETE, 0, nullptr, CREATE_NEW,
                        FILE_ATTRIBUTE_NORMAL | FILE_FLAG_OPEN_REPARSE_POINT | FILE_FLAG_WRITE_THROUGH, nullptr));
        if (IsOpen() || GetLastError() != ERROR_FILE_EXISTS) break;
    }
}

FileBeside::~FileBeside() {
    if (!IsOpen()) return;
    FILE_DISPOSITION_INFO remove = {TRUE};
    if (!tookPlace_) SetFileInformationByHandle(HandleOf(file_), FileDispositionInfo, &remove, sizeof remove);
    CloseHandle(HandleOf(file_));
}

bool FileBeside::IsOpen() const { return HandleOf(file_) != INVALID_HANDLE_VALUE; }

bool FileBeside::Write(std::string_view bytes) {
    while (!bytes.empty()) {
        const auto size = static_cast<DWORD>(std::min(bytes.size(), kLargestWrite));
        DWORD written = 0;
        if (!WriteFile(HandleOf(file_), bytes.data(), size, &written, nullptr) || written == 0) return false;
        bytes.remove_prefix(written);
    }
    return true;
}

// By the handle: from the first byte on there is no moment at which the file is nobody's.
bool FileBeside::TakePlace() {
    if (!FlushFileBuffers(HandleOf(file_))) return false;
    const std::wstring full = FullPath(target_);
    const std::size_t bytes = full.size() * sizeof(wchar_t);
    const std::size_t size = sizeof(FILE_RENAME_INFO) + bytes;  // the NUL is in the first of them
    const auto memory = std::make_unique<std::byte[]>(size);
    auto* const info = reinterpret_cast<FILE_RENAME_INFO*>(memory.get());
    info->ReplaceIfExists = TRUE;
    info->FileNameLength = static_cast<DWORD>(bytes);
    std::memcpy(info->FileName, full.data(), bytes);
    tookPlace_ = SetFileInformationByHandle(HandleOf(file_), FileRenameInfo, info, static_cast<DWORD>(size));
    return tookPlace_;
}

unsigned long LastSystemError() { return GetLastError(); }

// What another writer has open cannot be deleted.
void RemoveLeftovers(const SystemPath& folder) {
    WIN32_FIND_DATAW found;
    const HANDLE search = FindFirstFileW((folder + L"~kiro-*.tmp").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return;
    do {
        constexpr DWORD kNotOurs = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT | FILE_ATTRIBUTE_READONLY;
        const bool ours = !(found.dwFileAttributes & kNotOurs) && IsNameBeside(found.cFileName);
        if (ours) DeleteFileW((folder + found.cFileName).c_str());
    } while (FindNextFileW(search, &found));
    FindClose(search);
}

bool MayBeReplaced(const SystemPath& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return GetLastError() == ERROR_FILE_NOT_FOUND || GetLastError() == ERROR_PATH_NOT_FOUND;
    return !(attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY));
}

std::optional<SystemPath> TargetOf(const SystemPath& path) { return path; }

SystemPath FolderOf(const SystemPath& path) { return path.substr(0, path.find_last_of(L"\\/:") + 1); }
