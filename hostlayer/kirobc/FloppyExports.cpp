#include <windows.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "entry/host/FixedText.h"
#include "entry/host/kirobc.h"
#include "entry/host/kirogr.h"
#include "hostlayer/kirobc/DatabaseNames.h"
#include "hostlayer/kirobc/Guarded.h"
#include "hostlayer/kirobc/HomeFolder.h"
#include "hostlayer/kirobc/PathText.h"
#include "hostlayer/kirobc/PelionFloppy.h"
#include "hostlayer/kirobc/QuietDrives.h"
#include "hostlayer/kirocontrol/CallNote.h"
#include "hostlayer/kirodlglib/KrFileHandle.h"

namespace {

constexpr int kSuccess = 0;
constexpr int kFailure = -1;
constexpr char kFloppyKey[] = "#FLOPPY_WIN#";
constexpr wchar_t kDatabase[] = L"PELION";

bool IsFolder(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

// Over the dialog that is open, with its title.
int Refuse(const wchar_t* text) {
    const HWND owner = GetLastActivePopup(Grgetwin(-1));
    wchar_t caption[128] = L"";
    GetWindowTextW(owner, caption, static_cast<int>(std::size(caption)));
    MessageBeep(MB_OK);
    MessageBoxW(owner, text, *caption ? caption : L"フロッピー", MB_OK | MB_ICONEXCLAMATION);
    return kFailure;
}

constexpr wchar_t kNotReady[] = L"フロッピーの準備ができていません。\nフロッピーを確認してください。";

int CheckReadable() {
    const auto floppy = kirobc::FloppyFolder();
    if (!floppy) return Refuse(kNotReady);
    if (IsFolder(kirobc::JoinPath(*floppy, kDatabase))) return kSuccess;
    return Refuse(L"Ｐｅｌｉｏｎのフロッピーではありません。");
}

int PrepareForWriting() {
    const auto floppy = kirobc::FloppyFolder();
    if (!floppy) return Refuse(kNotReady);
    const std::wstring database = kirobc::JoinPath(*floppy, kDatabase);
    CreateDirectoryW(database.c_str(), nullptr);
    // A floppy that is protected shows when something is written.
    const FileHandle probe = OpenFileHandle(kirobc::JoinPath(database, L"~kiro.tmp"), GENERIC_WRITE, 0, CREATE_ALWAYS,
                                            FILE_FLAG_DELETE_ON_CLOSE);
    return probe ? kSuccess : Refuse(L"フロッピーに書き込めません。");
}

// The names of the folders in a folder, in the order of the file system.
std::vector<std::string> Folders(const std::wstring& folder, bool (*wanted)(std::string_view), std::size_t most) {
    std::vector<std::string> names;
    WIN32_FIND_DATAW data;
    const HANDLE find = FindFirstFileW(kirobc::JoinPath(folder, L"*").c_str(), &data);
    if (find == INVALID_HANDLE_VALUE) return names;
    do {
        const std::string name = kirobc::SjisFromWide(data.cFileName);
        if ((data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) && wanted(name)) names.push_back(name);
    } while (names.size() < most && FindNextFileW(find, &data));
    FindClose(find);
    return names;
}

// Fills the slots, each padded with blanks.
template <std::size_t count, std::size_t size>
int List(const std::wstring& folder, bool (*wanted)(std::string_view), std::int32_t& found,
         char (&slots)[count][size]) {
    found = 0;
    if (!IsFolder(folder)) return kFailure;
    for (const std::string& name : Folders(folder, wanted, count)) {
        char(&slot)[size] = slots[found++];
        std::memset(slot, ' ', size);
        std::memcpy(slot, name.data(), std::min(name.size(), size));
    }
    return kSuccess;
}

int ListUsers(const std::wstring& database, TarnaDatabaseView& info) {
    std::string group = ReadFixedText(info.plGroup);
    group.resize(group.find_last_not_of(' ') + 1);
    info.plFloppyUserCount = 0;
    if (!kirobc::IsGroupName(group)) return kFailure;
    wchar_t name[8] = L"";
    MultiByteToWideChar(932, 0, group.c_str(), -1, name, static_cast<int>(std::size(name)));
    return List(kirobc::JoinPath(database, name), kirobc::IsUserName, info.plFloppyUserCount, info.plFloppyUsers);
}

int Answer(int what, TarnaDatabaseView& info) {
    const kirobc::QuietDrives quiet;
    const std::wstring database = kirobc::JoinPath(kirobc::FloppyFolder().value_or(L""), kDatabase);
    switch (what) {
        case 0:
            return CheckReadable();
        case 1:
            return List(database, kirobc::IsGroupName, info.plFloppyGroupCount, info.plFloppyGroups);
        case 2:
            return ListUsers(database, info);
        case 10:
            return PrepareForWriting();
        default:
            return kFailure;
    }
}

}  // namespace

std::optional<std::wstring> kirobc::FloppyFolder() {
    auto folder = FolderOfKey(kFloppyKey, false);
    return folder && IsFolder(*folder) ? folder : std::nullopt;
}

int GetPlFloppy(int what, TARNAINFO* info) {
    const int result = kirobc::Guarded(kFailure, [=] { return info ? Answer(what, info->database) : kFailure; });
    NoteCall("GetPlFloppy", {HostInteger("what", what)}, result);
    return result;
}
