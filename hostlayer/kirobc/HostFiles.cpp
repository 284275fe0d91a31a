#include "hostlayer/kirobc/HostFiles.h"

#include "entry/host/kirodxf.h"
#include "hostlayer/kirobc/PathText.h"

namespace kirobc {

namespace {

constexpr struct {
    DWORD error;
    int code;
} kSystemErrors[] = {
    {ERROR_FILE_NOT_FOUND, kDxfNoFile},        {ERROR_PATH_NOT_FOUND, kDxfNoFolder},
    {ERROR_BAD_NETPATH, kDxfNoFolder},         {ERROR_BAD_NET_NAME, kDxfNoFolder},
    {ERROR_SHARING_VIOLATION, kDxfFileInUse},  {ERROR_LOCK_VIOLATION, kDxfFileInUse},
    {ERROR_NOT_READY, kDxfMediumNotReady},     {ERROR_NO_MEDIA_IN_DRIVE, kDxfMediumNotReady},
    {ERROR_WRITE_PROTECT, kDxfWriteProtected},
};

int CodeOf(DWORD error, int otherwise) {
    for (const auto& row : kSystemErrors)
        if (row.error == error) return row.code;
    return otherwise;
}

}  // namespace

// Looked for afterwards, because the replacing takes several steps.
int WhyNotReplaced(const std::wstring& path, const FileReplacement& file) {
    if (file.Error() == ERROR_DISK_FULL || file.Error() == ERROR_HANDLE_DISK_FULL) return kDxfDiskFull;
    const std::wstring folder = path.substr(0, path.find_last_of(L'\\') + 1);
    if (GetFileAttributesW(folder.c_str()) == INVALID_FILE_ATTRIBUTES) {
        const int code = CodeOf(GetLastError(), kDxfNoFolder);
        return code == kDxfNoFile ? kDxfNoFolder : code;
    }
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES) {
        if (attributes & FILE_ATTRIBUTE_DIRECTORY) return kDxfCannotCreate;
        if (attributes & FILE_ATTRIBUTE_READONLY) return kDxfWriteProtected;
        if (!OpenFileHandle(path, DELETE, kShareAll, OPEN_EXISTING, 0)) return CodeOf(GetLastError(), kDxfCannotCreate);
    }
    return file.WasOpen() ? kDxfCannotWrite : kDxfCannotCreate;
}

int FileSource::Open(const char* path) {
    const std::wstring name = WindowsPath(path ? path : "");
    if (name.empty()) return kDxfBadName;
    file_ = OpenFileHandle(name, GENERIC_READ, kShareAll, OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN);
    if (!file_) {
        const int code = CodeOf(GetLastError(), kDxfCannotOpen);
        return code == kDxfNoFolder ? kDxfNoFile : code;
    }
    // Names such as CON are devices in any folder; reading one would wait for the user.
    return GetFileType(file_.get()) == FILE_TYPE_DISK ? 0 : kDxfBadName;
}

int FileSource::Read(char* buffer, unsigned size) {
    DWORD count = 0;
    return ReadFile(file_.get(), buffer, size, &count, nullptr) ? static_cast<int>(count) : -1;
}

int ReadHostFile(const char* path, std::string& bytes) {
    FileSource source;
    if (const int error = source.Open(path)) return error;
    bytes.clear();
    char piece[16 * 1024];
    int count = 0;
    while ((count = source.Read(piece, sizeof piece)) > 0) bytes.append(piece, static_cast<std::size_t>(count));
    return count < 0 ? kDxfCannotRead : 0;
}

int ReplaceHostFile(const char* path, std::string_view bytes) {
    const std::wstring name = WindowsPath(path ? path : "");
    if (name.empty()) return kDxfBadName;
    FileReplacement file(name);
    return file.Write(bytes) && file.TakePlace() ? 0 : WhyNotReplaced(name, file);
}

}  // namespace kirobc
