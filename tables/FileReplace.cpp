#include "tables/FileReplace.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <memory>
#include <system_error>

#ifdef _WIN32
#include <windows.h>

#include <io.h>
#include <share.h>
#else
#include <sys/file.h>
#include <unistd.h>
#endif

#ifndef _WIN32
namespace fs = std::filesystem;
#endif

namespace {

// A file that is open for writing and for nobody else.
class ExclusiveFile {
  public:
    explicit ExclusiveFile(const SystemPath& path);
    ExclusiveFile(const ExclusiveFile&) = delete;
    ExclusiveFile& operator=(const ExclusiveFile&) = delete;
    ~ExclusiveFile() { Close(); }

    bool IsOpen() const { return file_ >= 0; }
    bool Write(std::string_view bytes);
    bool Flush();  // to the medium
    bool Close();
    void TakeModeOf(const SystemPath& path);

  private:
    int file_ = -1;
};

constexpr std::size_t kLargestWrite = 1 << 20;
constexpr SystemPath::value_type kBeside = '~';  // before the name of the file that is being written

#ifdef _WIN32

ExclusiveFile::ExclusiveFile(const SystemPath& path)
    : file_(_wsopen(path.c_str(), _O_WRONLY | _O_CREAT | _O_TRUNC | _O_BINARY, _SH_DENYRW, _S_IREAD | _S_IWRITE)) {}

bool ExclusiveFile::Flush() { return _commit(file_) == 0; }

void ExclusiveFile::TakeModeOf(const SystemPath&) {}

int WriteSome(int file, const char* bytes, std::size_t count) {
    return _write(file, bytes, static_cast<unsigned int>(count));
}

bool CloseFile(int file) { return _close(file) == 0; }

void FlushFolder(const SystemPath&) {}

bool MayBeReplaced(const SystemPath& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES)
        return GetLastError() == ERROR_FILE_NOT_FOUND || GetLastError() == ERROR_PATH_NOT_FOUND;
    return !(attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_READONLY));
}

bool Rename(const SystemPath& from, const SystemPath& to) {
    return MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH);
}

void Remove(const SystemPath& path) { DeleteFileW(path.c_str()); }

std::optional<SystemPath> TargetOf(const SystemPath& path) { return path; }

#else

ExclusiveFile::ExclusiveFile(const SystemPath& path) : file_(open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666)) {
    if (file_ < 0) return;
    // Whoever had the lock until now may have renamed the file away meanwhile.
    struct stat opened {};
    struct stat named {};
    const bool ours = flock(file_, LOCK_EX | LOCK_NB) == 0 && fstat(file_, &opened) == 0 &&
                      stat(path.c_str(), &named) == 0 && opened.st_ino == named.st_ino && ftruncate(file_, 0) == 0;
    if (!ours) Close();
}

bool ExclusiveFile::Flush() { return fsync(file_) == 0; }

void ExclusiveFile::TakeModeOf(const SystemPath& path) {
    struct stat old {};
    // A file with a wider mode than wanted is still the user's own: no reason to fail.
    if (stat(path.c_str(), &old) == 0 && fchmod(file_, old.st_mode & 0777) != 0) return;
}

ssize_t WriteSome(int file, const char* bytes, std::size_t count) { return write(file, bytes, count); }

bool CloseFile(int file) { return close(file) == 0; }

// The new name is on the medium only when the folder is.
void FlushFolder(const SystemPath& folder) {
    const int file = open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (file < 0) return;
    fsync(file);
    close(file);
}

// A file that is read-only for everybody, the superuser too, is one on purpose.
bool MayBeReplaced(const SystemPath& path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (status.type() == fs::file_type::not_found) return true;
    constexpr fs::perms kWritable = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    return status.type() == fs::file_type::regular && (status.permissions() & kWritable) != fs::perms::none;
}

bool Rename(const SystemPath& from, const SystemPath& to) { return rename(from.c_str(), to.c_str()) == 0; }

void Remove(const SystemPath& path) { unlink(path.c_str()); }

// What a link leads to; nothing when that cannot be told.
std::optional<SystemPath> TargetOf(const SystemPath& path) {
    std::error_code error;
    if (!fs::is_symlink(path, error)) return path;
    const fs::path target = fs::weakly_canonical(path, error);
    return error ? std::nullopt : std::optional(target.native());
}

#endif

bool ExclusiveFile::Write(std::string_view bytes) {
    while (!bytes.empty()) {
        const auto written = WriteSome(file_, bytes.data(), std::min(bytes.size(), kLargestWrite));
        if (written <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

bool ExclusiveFile::Close() {
    if (file_ < 0) return true;
    const bool closed = CloseFile(file_);
    file_ = -1;
    return closed;
}

// With the separator at its end.
std::size_t FolderLength(const SystemPath& path) {
#ifdef _WIN32
    return path.find_last_of(L"\\/:") + 1;
#else
    return path.find_last_of('/') + 1;
#endif
}

bool WriteNew(const SystemPath& beside, const SystemPath& target, std::string_view bytes) {
    ExclusiveFile file(beside);
    if (!file.IsOpen()) return false;
    file.TakeModeOf(target);
    if (file.Write(bytes) && file.Flush() && file.Close() && Rename(beside, target)) return true;
    file.Close();
    Remove(beside);
    return false;
}

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

}  // namespace

std::optional<std::string> ReadWholeFile(const SystemPath& path) {
#ifdef _WIN32
    const std::unique_ptr<std::FILE, FileCloser> file(_wfopen(path.c_str(), L"rb"));
#else
    const std::unique_ptr<std::FILE, FileCloser> file(std::fopen(path.c_str(), "rb"));
#endif
    if (!file) return std::nullopt;
    std::string bytes;
    char piece[16384];
    while (const std::size_t count = std::fread(piece, 1, sizeof piece, file.get())) bytes.append(piece, count);
    if (std::ferror(file.get())) return std::nullopt;
    return bytes;
}

bool ReplaceWholeFile(const SystemPath& path, std::string_view bytes) {
    const std::optional<SystemPath> target = TargetOf(path);
    if (!target) return false;
    const std::size_t name = FolderLength(*target);
    if (name == target->size() || !MayBeReplaced(*target)) return false;
    SystemPath beside = *target;
    beside.insert(name, 1, kBeside);
    if (!WriteNew(beside, *target, bytes)) return false;
    FlushFolder(target->substr(0, name));
    return true;
}

std::string TextModeLines(std::string_view text) {
    std::string lines;
    lines.reserve(text.size() + text.size() / 16);
    for (const char c : text) {
        if (c == '\n') lines += '\r';
        lines += c;
    }
    return lines;
}
