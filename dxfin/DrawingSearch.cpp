#include "dxfin/DrawingSearch.h"

#include <utility>

#include "tables/FileBeside.h"
#include "ui/Probe.h"
#include "ui/QuietDrives.h"
#include "ui/Text.h"

namespace {

constexpr DWORD kNoDrawing = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_DEVICE;

// What a program that was killed has left of a file is none either.
bool IsDrawing(const WIN32_FIND_DATAW& entry) {
    return !(entry.dwFileAttributes & kNoDrawing) && !IsNameBeside(entry.cFileName);
}

bool IsFolder(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

}  // namespace

DrawingSearch::Start DrawingSearch::Begin(const std::string& pattern) {
    const kiro::ui::QuietDrives quiet;
    Close();
    unnamed_ = 0;
    const std::wstring path = kiro::ui::ToWide(pattern);
    if (!kiro::ui::IsAnswering(path.substr(0, path.rfind(L'\\') + 1))) return Start::kSilent;
    const bool hasWildcard = path.find_first_of(L"*?") != path.npos;
    if (!hasWildcard && IsFolder(path)) return Start::kFolder;
    search_ = FindFirstFileExW(path.c_str(), FindExInfoBasic, &entry_, FindExSearchNameMatch, nullptr,
                               FIND_FIRST_EX_LARGE_FETCH);
    if (search_ == INVALID_HANDLE_VALUE) return GetLastError() == ERROR_FILE_NOT_FOUND ? Start::kNone : Start::kFailed;
    isFile_ = IsDrawing(entry_) || Next();
    return isFile_ ? Start::kFound : Start::kNone;
}

bool DrawingSearch::Take(int count, std::vector<FoundDrawing>& found) {
    for (; isFile_ && count > 0; --count) {
        const std::uint64_t size = (std::uint64_t{entry_.nFileSizeHigh} << 32) | entry_.nFileSizeLow;
        if (auto name = kiro::ui::ToSjis(entry_.cFileName))
            found.push_back({std::move(*name), size});
        else
            ++unnamed_;
        isFile_ = Next();
    }
    return isFile_;
}

bool DrawingSearch::Next() {
    const kiro::ui::QuietDrives quiet;
    while (FindNextFileW(search_, &entry_))
        if (IsDrawing(entry_)) return true;
    Close();
    return false;
}

void DrawingSearch::Close() {
    if (search_ != INVALID_HANDLE_VALUE) FindClose(std::exchange(search_, INVALID_HANDLE_VALUE));
    isFile_ = false;
}
