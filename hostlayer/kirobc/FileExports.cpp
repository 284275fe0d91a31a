#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>
#include <windows.h>

#include <algorithm>
#include <climits>
#include <cstdint>
#include <memory>
#include <new>
#include <optional>

#include "entry/host/kirobc.h"
#include "hostlayer/kirobc/Guarded.h"
#include "hostlayer/kirobc/PathText.h"

namespace {

// An open file of the C library, which knows text mode.
class HostFile {
  public:
    explicit HostFile(int descriptor) : descriptor_(descriptor) {}
    HostFile(const HostFile&) = delete;
    HostFile& operator=(const HostFile&) = delete;
    ~HostFile() { _close(descriptor_); }
    int Read(void* buffer, unsigned int size) { return _read(descriptor_, buffer, size); }

  private:
    int descriptor_;
};

struct HandleClose {
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using UniqueHandle = std::unique_ptr<void, HandleClose>;

std::optional<DWORD> AccessOf(int flags) {
    switch (flags & (_O_RDONLY | _O_WRONLY | _O_RDWR)) {
        case _O_RDONLY:
            return GENERIC_READ;
        case _O_WRONLY:
            return GENERIC_WRITE;
        case _O_RDWR:
            return GENERIC_READ | GENERIC_WRITE;
        default:
            return std::nullopt;
    }
}

DWORD DispositionOf(int flags) {
    if (!(flags & _O_CREAT)) return flags & _O_TRUNC ? TRUNCATE_EXISTING : OPEN_EXISTING;
    if (flags & _O_EXCL) return CREATE_NEW;
    return flags & _O_TRUNC ? CREATE_ALWAYS : OPEN_ALWAYS;
}

// Not by _wopen: it would refuse a file that another program has open to replace or delete it.
UniqueHandle OpenHandle(const std::wstring& path, int flags, int mode) {
    const std::optional<DWORD> access = AccessOf(flags);
    if (!access || path.empty() || (*access == GENERIC_READ && (flags & _O_TRUNC))) return nullptr;
    const DWORD attributes = mode & _S_IWRITE ? FILE_ATTRIBUTE_NORMAL : FILE_ATTRIBUTE_READONLY;
    const HANDLE handle = CreateFileW(path.c_str(), *access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                      nullptr, DispositionOf(flags), attributes, nullptr);
    if (handle == INVALID_HANDLE_VALUE) return nullptr;
    UniqueHandle file(handle);
    // Names such as CON are devices in any folder; reading one would wait for the user.
    return GetFileType(handle) == FILE_TYPE_DISK ? std::move(file) : nullptr;
}

}  // namespace

void* HxFileIOOpen(const char* path, int flags, int mode) {
    return kirobc::Guarded<void*>(nullptr, [=]() -> void* {
        if (!path) return nullptr;
        UniqueHandle handle = OpenHandle(kirobc::WindowsPath(path), flags, mode);
        if (!handle) return nullptr;
        const int textMode = flags & _O_BINARY ? 0 : _O_TEXT;
        const int descriptor = _open_osfhandle(reinterpret_cast<std::intptr_t>(handle.get()), textMode);
        if (descriptor < 0) return nullptr;
        handle.release();  // the descriptor owns it now
        HostFile* file = new (std::nothrow) HostFile(descriptor);
        if (!file) _close(descriptor);
        return file;
    });
}

int HxFileIORead(void* file, void* buffer, unsigned int size) {
    if (!file || (!buffer && size > 0)) return -1;
    // The C library ends the program when it is asked for more at once.
    return static_cast<HostFile*>(file)->Read(buffer, std::min<unsigned int>(size, INT_MAX));
}

void HxFileIOClose(void* file) { delete static_cast<HostFile*>(file); }
