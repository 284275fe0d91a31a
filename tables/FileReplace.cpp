#include "tables/FileReplace.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstddef>
#include <cstdio>
#include <memory>
#include <system_error>

#ifdef _WIN32
#include <io.h>
#include <share.h>
#else
#include <sys/file.h>
#include <unistd.h>
#endif

namespace fs = std::filesystem;

namespace {

// A file that is open for writing and for nobody else.
class ExclusiveFile {
  public:
    explicit ExclusiveFile(const fs::path& path);
    ExclusiveFile(const ExclusiveFile&) = delete;
    ExclusiveFile& operator=(const ExclusiveFile&) = delete;
    ~ExclusiveFile() { Close(); }

    bool IsOpen() const { return file_ >= 0; }
    bool Write(std::string_view bytes);
    bool Flush();  // to the medium
    bool Close();
    void TakeModeOf(const fs::path& path);

  private:
    int file_ = -1;
};

constexpr std::size_t kLargestWrite = 1 << 20;

#ifdef _WIN32

ExclusiveFile::ExclusiveFile(const fs::path& path)
    : file_(_wsopen(path.c_str(), _O_WRONLY | _O_CREAT | _O_TRUNC | _O_BINARY, _SH_DENYRW, _S_IREAD | _S_IWRITE)) {}

bool ExclusiveFile::Flush() { return _commit(file_) == 0; }

void ExclusiveFile::TakeModeOf(const fs::path&) {}

int WriteSome(int file, const char* bytes, std::size_t count) {
    return _write(file, bytes, static_cast<unsigned int>(count));
}

bool CloseFile(int file) { return _close(file) == 0; }

void FlushFolder(const fs::path&) {}

#else

ExclusiveFile::ExclusiveFile(const fs::path& path) : file_(open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666)) {
    if (file_ < 0) return;
    // Whoever had the lock until now may have renamed the file away meanwhile.
    struct stat opened {};
    struct stat named {};
    const bool ours = flock(file_, LOCK_EX | LOCK_NB) == 0 && fstat(file_, &opened) == 0 &&
                      stat(path.c_str(), &named) == 0 && opened.st_ino == named.st_ino && ftruncate(file_, 0) == 0;
    if (!ours) Close();
}

bool ExclusiveFile::Flush() { return fsync(file_) == 0; }

void ExclusiveFile::TakeModeOf(const fs::path& path) {
    struct stat old {};
    // A file with a wider mode than wanted is still the user's own: no reason to fail.
    if (stat(path.c_str(), &old) == 0 && fchmod(file_, old.st_mode & 0777) != 0) return;
}

ssize_t WriteSome(int file, const char* bytes, std::size_t count) { return write(file, bytes, count); }

bool CloseFile(int file) { return close(file) == 0; }

// The new name is on the medium only when the folder is.
void FlushFolder(const fs::path& folder) {
    const int file = open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (file < 0) return;
    fsync(file);
    close(file);
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

// A file that is read-only for everybody, the superuser too, is one on purpose.
bool MayBeReplaced(const fs::path& path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (status.type() == fs::file_type::not_found) return true;
    constexpr fs::perms kWritable = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    return status.type() == fs::file_type::regular && (status.permissions() & kWritable) != fs::perms::none;
}

bool WriteNew(const fs::path& beside, const fs::path& target, std::string_view bytes) {
    ExclusiveFile file(beside);
    if (!file.IsOpen()) return false;
    file.TakeModeOf(target);
    if (file.Write(bytes) && file.Flush() && file.Close()) {
        std::error_code error;
        fs::rename(beside, target, error);
        if (!error) return true;
    }
    file.Close();
    std::error_code ignored;
    fs::remove(beside, ignored);
    return false;
}

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

}  // namespace

std::optional<std::string> ReadWholeFile(const fs::path& path) {
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

bool ReplaceWholeFile(const fs::path& path, std::string_view bytes) {
    std::error_code ignored;
    std::error_code error;
    const fs::path target = fs::is_symlink(path, ignored) ? fs::weakly_canonical(path, error) : path;
    if (error || !target.has_filename() || !MayBeReplaced(target)) return false;
    const fs::path beside = target.parent_path() / (fs::path("~") += target.filename());
    if (!WriteNew(beside, target, bytes)) return false;
    FlushFolder(target.parent_path());
    return true;
}

std::string TextModeLines(std::string_view text) {
    std::string lines;
    lines.reserve(text.size() + text.size() / 16);
    for (const char byte : text) {
        if (byte == '\n') lines += '\r';
        lines += byte;
    }
    return lines;
}
