#include "peliondb/PelionTree.h"

#include <windows.h>

#include <cstddef>
#include <map>
#include <memory>
#include <utility>

#include "entry/host/kirobc.h"
#include "ui/Probe.h"
#include "ui/QuietDrives.h"

namespace {

constexpr int kLetters = 26;
constexpr std::size_t kPathEnd = 128;  // bytes; longer paths are left out
constexpr std::size_t kLongestGroup = 4;
constexpr std::size_t kLongestUser = 6;

std::wstring RootOf(char letter) { return {static_cast<wchar_t>(letter), L':', L'\\'}; }

bool HasDatabase(const std::wstring& root) {
    const kiro::ui::QuietDrives quiet;
    const DWORD attributes = GetFileAttributesW((root + L"PELION").c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

// The names of the folders in a folder of the database. folder: Shift-JIS, with "/" at its end.
std::vector<std::string> Folders(const std::string& folder, bool (*wanted)(const std::string& name)) {
    std::vector<std::string> names;
    const HxFileFinderPtr finder(HxFileFinderCreateInstance());
    if (!finder || !finder->Open(HxEucEncoder::Sjis2Euc(folder + "*").c_str(), true)) return {};
    do {
        const std::string path = HxEucEncoder::Euc2Sjis(finder->Current());
        const std::string name = path.substr(path.rfind('/') + 1);
        if (path.size() < kPathEnd && !name.empty() && name.front() != '.' && wanted(name)) names.push_back(name);
    } while (names.size() < kMostPelionNames && finder->Next());
    return names;
}

}  // namespace

bool PelionTree::MayBeSilent(char letter) const {
    const bool fixed = fixed_.find(letter) != fixed_.npos;
    return kiro::ui::MayBeSilent(RootOf(letter), fixed ? DRIVE_FIXED : DRIVE_REMOTE);
}

// All of those that may be silent are asked together.
PelionNames PelionTree::Drives() {
    fixed_.clear();
    std::map<char, kiro::ui::Probe> probes;
    std::string letters;
    const DWORD present = GetLogicalDrives();
    for (int i = 0; i < kLetters; ++i) {
        const auto letter = static_cast<char>('A' + i);
        const std::wstring root = RootOf(letter);
        const UINT type = present & (1u << i) ? GetDriveTypeW(root.c_str()) : DRIVE_NO_ROOT_DIR;
        if (type == DRIVE_FIXED) fixed_ += letter;
        if (type != DRIVE_FIXED && type != DRIVE_REMOTE) continue;
        letters += letter;
        if (MayBeSilent(letter)) probes.try_emplace(letter, root, [root] { return HasDatabase(root); });
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

// A drive may fall silent in the middle of it: one of another computer is looked through by the probe's thread.
PelionNames PelionTree::Look(const std::string& folder, bool (*wanted)(const std::string& name)) const {
    if (!MayBeSilent(folder.front())) return {Folders(folder, wanted), {}};
    const auto names = std::make_shared<std::vector<std::string>>();
    const kiro::ui::Probe probe(RootOf(folder.front()), [=] {
        *names = Folders(folder, wanted);
        return true;
    });
    if (!probe.Answer()) return {{}, {folder.substr(0, folder.find('/'))}};
    return {std::move(*names), {}};
}

PelionNames PelionTree::Groups(const std::string& drive) const {
    return Look(drive + "/PELION/", [](const std::string& name) { return name.size() <= kLongestGroup; });
}

// The folders ACCESS and FORMAT of a group are the database's own.
PelionNames PelionTree::Users(const std::string& drive, const std::string& group) const {
    return Look(drive + "/PELION/" + group + "/", [](const std::string& name) {
        return name.size() <= kLongestUser && name != "ACCESS" && name != "FORMAT";
    });
}
