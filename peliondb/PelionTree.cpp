#include "peliondb/PelionTree.h"

#include <windows.h>

#include <cstddef>
#include <map>

#include "entry/host/kirobc.h"
#include "ui/Probe.h"
#include "ui/QuietDrives.h"
#include "ui/WaitCursor.h"

namespace {

constexpr int kLetters = 26;
constexpr std::size_t kPathEnd = 128;  // bytes; longer paths are left out
constexpr std::size_t kLongestGroup = 4;
constexpr std::size_t kLongestUser = 6;

std::wstring RootOf(char letter) { return {static_cast<wchar_t>(letter), L':', L'\\'}; }

// Letters.
std::string FixedAndRemoteDrives() {
    std::string letters;
    const DWORD present = GetLogicalDrives();
    for (int i = 0; i < kLetters; ++i) {
        const auto letter = static_cast<char>('A' + i);
        const UINT type = present & (1u << i) ? GetDriveTypeW(RootOf(letter).c_str()) : DRIVE_NO_ROOT_DIR;
        if (type == DRIVE_FIXED || type == DRIVE_REMOTE) letters += letter;
    }
    return letters;
}

bool HasDatabase(const std::wstring& root) {
    const kiro::ui::QuietDrives quiet;
    const DWORD attributes = GetFileAttributesW((root + L"PELION").c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

// The names of the folders in a folder of the database. folder: Shift-JIS, with "/" at its end.
PelionNames Folders(const std::string& folder, bool (*wanted)(const std::string& name)) {
    const kiro::ui::WaitCursor cursor;
    if (!kiro::ui::IsAnswering(RootOf(folder.front()))) return {{}, {folder.substr(0, folder.find('/'))}};
    std::vector<std::string> names;
    const HxFileFinderPtr finder(HxFileFinderCreateInstance());
    if (!finder || !finder->Open(HxEucEncoder::Sjis2Euc(folder + "*").c_str(), true)) return {};
    do {
        const std::string path = HxEucEncoder::Euc2Sjis(finder->Current());
        const std::string name = path.substr(path.rfind('/') + 1);
        if (path.size() < kPathEnd && !name.empty() && name.front() != '.' && wanted(name)) names.push_back(name);
    } while (names.size() < kMostPelionNames && finder->Next());
    return {names, {}};
}

}  // namespace

// All of those that may be silent are asked together.
PelionNames PelionDrives() {
    const kiro::ui::WaitCursor cursor;
    std::map<char, kiro::ui::Probe> probes;
    const std::string letters = FixedAndRemoteDrives();
    for (const char letter : letters) {
        const std::wstring root = RootOf(letter);
        if (kiro::ui::MayBeSilent(root)) probes.try_emplace(letter, root, [root] { return HasDatabase(root); });
    }
    PelionNames drives;
    for (const char letter : letters) {
        const auto probe = probes.find(letter);
        const auto has = probe == probes.end() ? HasDatabase(RootOf(letter)) : probe->second.Answer();
        if (!has) drives.silent.push_back({letter, ':'});
        if (has.value_or(false)) drives.names.push_back({letter, ':'});
    }
    return drives;
}

PelionNames PelionGroups(const std::string& drive) {
    return Folders(drive + "/PELION/", [](const std::string& name) { return name.size() <= kLongestGroup; });
}

// The folders ACCESS and FORMAT of a group are the database's own.
PelionNames PelionUsers(const std::string& drive, const std::string& group) {
    return Folders(drive + "/PELION/" + group + "/", [](const std::string& name) {
        return name.size() <= kLongestUser && name != "ACCESS" && name != "FORMAT";
    });
}
