// A file that is closed when its owner goes.
#pragma once

#include <windows.h>

#include <memory>
#include <string>

struct FileHandleCloser {
    void operator()(void* file) const { CloseHandle(file); }
};
using FileHandle = std::unique_ptr<void, FileHandleCloser>;

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

// Null when it cannot be opened; GetLastError says why.
inline FileHandle OpenFileHandle(const std::wstring& path, DWORD access, DWORD share, DWORD disposition, DWORD flags) {
    const HANDLE file = CreateFileW(path.c_str(), access, share, nullptr, disposition, flags, nullptr);
    return FileHandle(file == INVALID_HANDLE_VALUE ? nullptr : file);
}
