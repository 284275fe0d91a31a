#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "tables/FileBeside.h"

namespace fs = std::filesystem;

namespace {

// Who has the lock may remove the file. A lock ends with its process, however that ends.
bool Lock(int file) { return flock(file, LOCK_EX | LOCK_NB) == 0; }

// Whether the file that is open is still the one of that name.
bool HasName(int file, const SystemPath& path) {
    struct stat opened {};
    struct stat named {};
    return fstat(file, &opened) == 0 && lstat(path.c_str(), &named) == 0 && opened.st_dev == named.st_dev &&
           opened.st_ino == named.st_ino;
}

// -1: the name is taken, or the file cannot be made.
int MakeLocked(const SystemPath& path) {
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0666);
    // Before it had its lock another writer may have taken it for a leftover.
    if (file < 0 || (Lock(file) && HasName(file, path))) return file;
    if (errno != EWOULDBLOCK) unlink(path.c_str());
    close(file);
    errno = EEXIST;
    return -1;
}

void RemoveLeftover(const SystemPath& path) {
    const int file = open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (file < 0) return;
    struct stat status {};
    const bool regular = fstat(file, &status) == 0 && S_ISREG(status.st_mode);
    if (regular && Lock(file) && HasName(file, path)) unlink(path.c_str());
    close(file);
}

// The new name is on the medium only when the folder is.
void FlushFolder(const SystemPath& folder) {
    const int file = open(folder.empty() ? "." : folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (file < 0) return;
    fsync(file);
    close(file);
}

}  // namespace

FileBeside::FileBeside(const SystemPath& target) : target_(target), file_(-1) {
    for (int i = 0; i < kNamesToTry; ++i) {
        path_ = FolderOf(target) + NameBeside(static_cast<std::uint32_t>(getpid()));
        file_ = MakeLocked(path_);
        if (IsOpen() || errno != EEXIST) break;
    }
    struct stat old {};
    // A file with a wider mode than wanted is still the user's own: no reason to fail.
    if (IsOpen() && stat(target.c_str(), &old) == 0 && fchmod(static_cast<int>(file_), old.st_mode & 0777) != 0) return;
}

FileBeside::~FileBeside() {
    if (!IsOpen()) return;
    if (!tookPlace_) unlink(path_.c_str());
    close(static_cast<int>(file_));
}

bool FileBeside::IsOpen() const { return file_ >= 0; }

bool FileBeside::Write(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = write(static_cast<int>(file_), bytes.data(), bytes.size());
        if (written <= 0) return false;
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

bool FileBeside::TakePlace() {
    tookPlace_ = fsync(static_cast<int>(file_)) == 0 && rename(path_.c_str(), target_.c_str()) == 0;
    if (tookPlace_) FlushFolder(FolderOf(target_));
    return tookPlace_;
}

unsigned long LastSystemError() { return static_cast<unsigned long>(errno); }

void RemoveLeftovers(const SystemPath& folder) {
    std::error_code error;
    const fs::directory_iterator files(folder.empty() ? "." : folder, error), end;
    if (error) return;
    for (fs::directory_iterator file = files; file != end; file.increment(error)) {
        if (IsNameBeside(file->path().filename().native())) RemoveLeftover(file->path().native());
        if (error) return;
    }
}

// A file that is read-only for everybody, the superuser too, is one on purpose.
bool MayBeReplaced(const SystemPath& path) {
    std::error_code error;
    const fs::file_status status = fs::status(path, error);
    if (status.type() == fs::file_type::not_found) return true;
    constexpr fs::perms kWritable = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    return status.type() == fs::file_type::regular && (status.permissions() & kWritable) != fs::perms::none;
}

std::optional<SystemPath> TargetOf(const SystemPath& path) {
    std::error_code error;
    if (!fs::is_symlink(path, error)) return path;
    const fs::path target = fs::weakly_canonical(path, error);
    return error ? std::nullopt : std::optional(target.native());
}

SystemPath FolderOf(const SystemPath& path) { return path.substr(0, path.find_last_of('/') + 1); }
