#include "peliondb/PelionTree.h"

#include <windows.h>

#include <cstddef>

#include "entry/host/kirobc.h"
#include "ui/WaitCursor.h"

namespace {

constexpr int kLetters = 26;
constexpr std::size_t kPathEnd = 128;  // bytes; longer paths are left out
constexpr std::size_t kLongestGroup = 4;
constexpr std::size_t kLongestUser = 6;

// A drive without a medium is left out, and not told of by the system.
class QuietErrors {
  public:
    QuietErrors() { SetThreadErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX, &before_); }
    QuietErrors(const QuietErrors&) = delete;
    QuietErrors& operator=(const QuietErrors&) = delete;
    ~QuietErrors() { SetThreadErrorMode(before_, nullptr); }

  private:
    DWORD before_ = 0;
};

bool HasDatabase(wchar_t letter) {
    const std::wstring root = {letter, L':', L'\\'};
    const UINT type = GetDriveTypeW(root.c_str());
    if (type != DRIVE_FIXED && type != DRIVE_REMOTE) return false;
    const DWORD attributes = GetFileAttributesW((root + L"PELION").c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

// The names of the folders in a folder of the database. folder: Shift-JIS, with "/" at its end.
std::vector<std::string> Folders(const std::string& folder, bool (*wanted)(const std::string& name)) {
    const kiro::ui::WaitCursor cursor;
    std::vector<std::string> names;
    const HxFileFinderPtr finder(HxFileFinderCreateInstance());
    if (!finder || !finder->Open(HxEucEncoder::Sjis2Euc(folder + "*").c_str(), true)) return names;
    do {
        const std::string path = HxEucEncoder::Euc2Sjis(finder->Current());
        const std::string name = path.substr(path.rfind('/') + 1);
        if (path.size() < kPathEnd && !name.empty() && name.front() != '.' && wanted(name)) names.push_back(name);
    } while (names.size() < kMostPelionNames && finder->Next());
    return names;
}

}  // namespace

std::vector<std::string> PelionDrives() {
    const kiro::ui::WaitCursor cursor;  // a drive that does not answer takes its time
    const QuietErrors quiet;
    std::vector<std::string> drives;
    const DWORD present = GetLogicalDrives();
    for (int i = 0; i < kLetters; ++i) {
        if ((present & (1u << i)) && HasDatabase(static_cast<wchar_t>(L'A' + i)))
            drives.push_back({static_cast<char>('A' + i), ':'});
    }
    return drives;
}

std::vector<std::string> PelionGroups(const std::string& drive) {
    return Folders(drive + "/PELION/", [](const std::string& name) { return name.size() <= kLongestGroup; });
}

// The folders ACCESS and FORMAT of a group are the database's own.
std::vector<std::string> PelionUsers(const std::string& drive, const std::string& group) {
    return Folders(drive + "/PELION/" + group + "/", [](const std::string& name) {
        return name.size() <= kLongestUser && name != "ACCESS" && name != "FORMAT";
    });
}
