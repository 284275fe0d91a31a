// What replacing a file asks of the system: one source file for Windows, the only one of this room that knows
// windows.h, and one for POSIX systems.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "tables/FileReplace.h"

// The file that is written beside another one and then takes its place. Nobody has its name before: it is made
// exclusively, and no link is followed. As long as this object lives no other writer takes the file for a leftover.
class FileBeside {
  public:
    explicit FileBeside(const SystemPath& target);
    FileBeside(const FileBeside&) = delete;
    FileBeside& operator=(const FileBeside&) = delete;
    ~FileBeside();  // removes the file, unless it took the other's place

    bool IsOpen() const;
    bool Write(std::string_view bytes);
    bool TakePlace();  // when all of it is on the medium

  private:
    SystemPath target_;
    SystemPath path_;
    std::intptr_t file_;
    bool tookPlace_ = false;
};

unsigned long LastSystemError();

// Removes the files beside that writers left in a folder when they were killed or the machine stopped. The files of
// writers that are still at work stay, and so does everything of another name.
void RemoveLeftovers(const SystemPath& folder);

// Whether there is no such file, or one that is not read-only. A folder may not be replaced.
bool MayBeReplaced(const SystemPath& path);

// What a link leads to, on systems where links are followed; nothing when that cannot be told.
std::optional<SystemPath> TargetOf(const SystemPath& path);

SystemPath FolderOf(const SystemPath& path);  // with the separator, or ""

// "~kiro-", eight hexadecimal digits, ".tmp": without the name of the target, so that a long one has room beside
// itself. Every call gives another name. Whether it is free the system says when the file is made.
SystemPath NameBeside(std::uint32_t process);
bool IsNameBeside(const SystemPath& name);
inline constexpr int kNamesToTry = 100;
