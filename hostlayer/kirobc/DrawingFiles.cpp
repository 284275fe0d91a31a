#include "hostlayer/kirobc/DrawingFiles.h"

#include <windows.h>

#include <algorithm>
#include <atomic>

#include "entry/host/FixedText.h"
#include "hostlayer/include/KiroHost.h"
#include "hostlayer/kirobc/DatabaseNames.h"
#include "hostlayer/kirobc/HomeFolder.h"
#include "hostlayer/kirobc/PathText.h"
#include "hostlayer/kirobc/PelionFloppy.h"
#include "hostlayer/kirobc/QuietDrives.h"
#include "hostlayer/kirodlglib/KrFileHandle.h"

namespace kirobc {
namespace {

constexpr std::size_t kMaxFileSize = 1 << 20;  // of a file of drawings: far beyond what a record can list
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kMarks[] = {"KIRO PELION 1", "KIRO VAROS 1"};
constexpr wchar_t kDatabase[] = L"PELION";

std::atomic<std::size_t> drawingRoom{1};

std::wstring Wide(UINT page, std::string_view text) {
    std::wstring wide(text.size(), L'\0');
    wide.resize(static_cast<std::size_t>(MultiByteToWideChar(page, MB_ERR_INVALID_CHARS, text.data(),
                                                             static_cast<int>(text.size()), wide.data(),
                                                             static_cast<int>(wide.size()))));
    return wide;
}

void AddName(Names& names, std::string sjis, std::size_t longest) {
    if (!sjis.empty() && sjis.size() <= longest) names.push_back(std::move(sjis));
}

std::optional<std::string> ReadBytes(const std::wstring& path) {
    const FileHandle file = OpenFileHandle(path, GENERIC_READ, kShareAll, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL);
    std::string bytes(kMaxFileSize + 1, '\0');
    DWORD read = 0;
    if (!file || !ReadFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr) ||
        read > kMaxFileSize) {
        return std::nullopt;
    }
    bytes.resize(read);
    return bytes;
}

std::string_view TakeLine(std::string_view& text) {
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

// "*" stands for any text, "?" for one character.
bool Matches(std::wstring_view name, std::wstring_view pattern) {
    std::size_t n = 0, p = 0, star = pattern.npos, retry = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == L'*') {
            star = p++;
            retry = n;
        } else if (p < pattern.size() && (pattern[p] == L'?' || pattern[p] == name[n])) {
            ++p, ++n;
        } else if (star != pattern.npos) {
            p = star + 1;
            n = ++retry;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of(L'*', p) == pattern.npos;
}

std::wstring Folded(std::wstring name) {
    CharUpperBuffW(name.data(), static_cast<DWORD>(name.size()));
    return name;
}

std::optional<std::wstring> Database(PelionPlace place, const TarnaDatabaseView& info) {
    if (place == PelionPlace::kFloppy) {
        const auto floppy = FloppyFolder();
        return floppy ? std::optional(JoinPath(*floppy, kDatabase)) : std::nullopt;
    }
    const char drive = info.plDrive[0];
    if (drive < 'A' || drive > 'Z') return std::nullopt;
    return static_cast<wchar_t>(drive) + std::wstring(L":\\") + kDatabase;
}

}  // namespace

std::optional<Names> ReadDrawingFile(const std::wstring& path, DrawingFile kind) {
    const QuietDrives quiet;
    const auto bytes = path.empty() ? std::nullopt : ReadBytes(path);
    if (!bytes) return std::nullopt;
    std::string_view text = *bytes;
    if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
    if (TakeLine(text) != kMarks[static_cast<int>(kind)]) return std::nullopt;
    Names names;
    while (!text.empty()) AddName(names, SjisFromWide(Wide(CP_UTF8, TakeLine(text))), kLongestDrawingName);
    return names;
}

std::optional<Names> DrawingsOfUser(PelionPlace place, const TarnaDatabaseView& info) {
    const QuietDrives quiet;
    const auto database = Database(place, info);
    const std::string group = ReadFixedText(info.plGroup), user = ReadFixedText(info.plUser);
    if (!database || !IsGroupName(group) || !IsUserName(user)) return std::nullopt;
    const std::wstring folder = JoinPath(JoinPath(*database, Wide(932, group)), Wide(932, user));
    if (GetFileAttributesW(folder.c_str()) == INVALID_FILE_ATTRIBUTES) return std::nullopt;
    return FilesOf(folder, L"", L"*", kLongestDrawingName);
}

Names FilesOf(const std::wstring& folder, std::wstring_view ending, std::wstring_view pattern, std::size_t longest) {
    std::vector<std::wstring> files;
    WIN32_FIND_DATAW data;
    const HANDLE find = FindFirstFileW(JoinPath(folder, L"*").c_str(), &data);
    if (find == INVALID_HANDLE_VALUE) return {};
    const std::wstring foldedPattern = Folded(std::wstring(pattern)), foldedEnding = Folded(std::wstring(ending));
    do {
        std::wstring name = data.cFileName;
        if ((data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) || !Folded(name).ends_with(foldedEnding)) continue;
        name.resize(name.size() - ending.size());
        if (Matches(Folded(name), foldedPattern)) files.push_back(std::move(name));
    } while (FindNextFileW(find, &data));
    FindClose(find);
    std::ranges::sort(files, {}, Folded);
    Names names;
    for (const std::wstring& file : files) AddName(names, SjisFromWide(file), longest);
    return names;
}

std::wstring FoldedName(std::string_view sjis) { return Folded(Wide(932, sjis)); }

std::size_t DrawingRoom() { return drawingRoom; }

}  // namespace kirobc

void KiroHostSetDrawingRoom(std::size_t drawings) {
    kirobc::drawingRoom = std::clamp<std::size_t>(drawings, 1, kMostDatabaseDrawings);
}
