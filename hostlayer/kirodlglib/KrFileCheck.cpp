#include "KrFileCheck.h"

#include <windows.h>

#include <algorithm>
#include <iterator>
#include <optional>

#include "KrFileHandle.h"
#include "KrPath.h"
#include "KrText.h"
#include "hostlayer/kirobc/QuietDrives.h"

namespace {

constexpr const wchar_t* kProblemTexts[] = {
    L"",
    L"ファイル名を入力してください。",
    L"ファイル名に、文字として正しくないコードがあります。",
    L"ファイル名に使えない文字があります。（< > \" | : など）",
    L"ワイルドカード（* ?）は、ここでは使えません。",
    L"ファイル名やフォルダ名の末尾に、空白やピリオドは使えません。",
    L"システムが予約している名前（CON、NUL、COM1 など）は使えません。",
    L"ファイルを置くフォルダを用意できません。",
    L"ファイル名が長すぎます。フォルダ名を含めて半角２５６文字以内にしてください。",
    L"フォルダが指定されています。ファイルを指定してください。",
    L"ファイルが見つかりません。",
    L"フォルダが見つかりません。",
    L"ほかのプログラムが使用しているため、ファイルを開けません。",
    L"ファイルへのアクセスが許可されていません。",
    L"ファイルが読み取り専用のため、書き込めません。",
    L"媒体が書き込み禁止になっています。",
    L"ドライブの準備ができていません。媒体を確認してください。",
    L"ファイルの内容が空です。",
    L"ファイルを開けません。",
};
static_assert(std::size(kProblemTexts) == static_cast<std::size_t>(FileProblem::kCount));

constexpr struct {
    DWORD error;
    FileProblem problem;
} kSystemErrors[] = {
    {ERROR_FILE_NOT_FOUND, FileProblem::kNotFound},      {ERROR_PATH_NOT_FOUND, FileProblem::kFolderNotFound},
    {ERROR_BAD_NETPATH, FileProblem::kFolderNotFound},   {ERROR_BAD_NET_NAME, FileProblem::kFolderNotFound},
    {ERROR_SHARING_VIOLATION, FileProblem::kLocked},     {ERROR_LOCK_VIOLATION, FileProblem::kLocked},
    {ERROR_ACCESS_DENIED, FileProblem::kDenied},         {ERROR_WRITE_PROTECT, FileProblem::kWriteProtected},
    {ERROR_NOT_READY, FileProblem::kNotReady},           {ERROR_NO_MEDIA_IN_DRIVE, FileProblem::kNotReady},
    {ERROR_UNRECOGNIZED_VOLUME, FileProblem::kNotReady}, {ERROR_INVALID_NAME, FileProblem::kBadCharacter},
    {ERROR_FILENAME_EXCED_RANGE, FileProblem::kTooLong},
};

FileProblem SystemProblem(DWORD error) {
    for (const auto& row : kSystemErrors)
        if (row.error == error) return row.problem;
    return FileProblem::kOther;
}

// ---- Names ----

constexpr std::wstring_view kDevices[] = {L"CON", L"PRN", L"AUX", L"NUL", L"CONIN$", L"CONOUT$", L"CLOCK$"};
constexpr std::wstring_view kNumberedDevices[] = {L"COM", L"LPT"};  // with a digit from 1 to 9

bool SameName(std::wstring_view left, std::wstring_view right) {
    return CompareStringOrdinal(left.data(), static_cast<int>(left.size()), right.data(),
                                static_cast<int>(right.size()), TRUE) == CSTR_EQUAL;
}

// "NUL.txt" and "NUL .txt" are the device too.
bool IsReserved(std::wstring_view component) {
    std::wstring_view base = component.substr(0, component.find(L'.'));
    base = base.substr(0, base.find_last_not_of(L' ') + 1);
    for (const std::wstring_view device : kDevices)
        if (SameName(base, device)) return true;
    if (base.size() != 4 || base[3] < L'1' || base[3] > L'9') return false;
    return std::any_of(std::begin(kNumberedDevices), std::end(kNumberedDevices),
                       [&](std::wstring_view device) { return SameName(base.substr(0, 3), device); });
}

bool IsDots(std::wstring_view component) { return component == L"." || component == L".."; }

FileProblem CheckComponent(std::wstring_view component, bool pattern) {
    constexpr std::wstring_view kForbidden = L"<>\"|:";
    for (const wchar_t c : component)
        if (c < 0x20 || c == 0x7F || kForbidden.find(c) != kForbidden.npos) return FileProblem::kBadCharacter;
    if (!pattern && component.find_first_of(L"*?") != component.npos) return FileProblem::kPattern;
    if (component.empty() || IsDots(component)) return FileProblem::kNone;
    if (component.back() == L' ' || component.back() == L'.') return FileProblem::kBadEnd;
    return IsReserved(component) ? FileProblem::kReserved : FileProblem::kNone;
}

FileProblem CheckComponents(std::wstring_view components, bool pattern) {
    for (;;) {
        const std::size_t separator = components.find(L'\\');
        const bool last = separator == components.npos;
        const std::wstring_view component = components.substr(0, separator);
        const FileProblem problem = CheckComponent(component, pattern && last);
        if (problem != FileProblem::kNone) return problem;
        if (last) return component.empty() || IsDots(component) ? FileProblem::kIsFolder : FileProblem::kNone;
        components.remove_prefix(separator + 1);
    }
}

// ---- Files ----

// Whether a new file may be made is known only by making one; it goes with its handle.
FileProblem CheckCreatable(const std::wstring& path) {
    const std::wstring folder = path.substr(0, path.rfind(L'\\') + 1);
    const DWORD attributes = GetFileAttributesW(folder.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) {
        const FileProblem problem = SystemProblem(GetLastError());
        return problem == FileProblem::kNotFound ? FileProblem::kFolderNotFound : problem;
    }
    if (!(attributes & FILE_ATTRIBUTE_DIRECTORY)) return FileProblem::kFolderNotFound;
    const FileHandle file = OpenFileHandle(path, GENERIC_WRITE | DELETE, 0, CREATE_NEW,
                                           FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE);
    return file ? FileProblem::kNone : SystemProblem(GetLastError());
}

}  // namespace

const wchar_t* ProblemText(FileProblem problem) { return kProblemTexts[static_cast<std::size_t>(problem)]; }

CheckedName CheckName(std::string_view name, const std::wstring& folder, bool pattern) {
    if (name.empty()) return {FileProblem::kNoName, {}};
    std::optional<std::wstring> text = WideFrom932(name);
    if (!text) return {FileProblem::kBadBytes, {}};
    std::replace(text->begin(), text->end(), L'/', L'\\');
    const std::size_t root = RootLength(*text);
    const FileProblem problem = CheckComponents(std::wstring_view(*text).substr(root), pattern);
    if (problem != FileProblem::kNone) return {problem, {}};
    if (root == 0 && folder.empty()) return {FileProblem::kNoFolder, {}};

    std::optional<std::wstring> path = AbsolutePath(*text, folder);
    if (!path) return {name.size() > kMaxNameBytes ? FileProblem::kTooLong : FileProblem::kBadCharacter, {}};
    const std::optional<std::string> internal = InternalFromReal(*path);
    if (!internal) return {FileProblem::kBadBytes, {}};
    if (internal->size() > kMaxNameBytes) return {FileProblem::kTooLong, {}};
    return {FileProblem::kNone, std::move(*path)};
}

FileProblem CheckReadable(const std::wstring& path) {
    const kirobc::QuietDrives quiet;
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY)) return FileProblem::kIsFolder;
    const FileHandle file = OpenFileHandle(path, GENERIC_READ, kShareAll, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL);
    if (!file) return SystemProblem(GetLastError());
    if (GetFileType(file.get()) != FILE_TYPE_DISK) return FileProblem::kReserved;
    LARGE_INTEGER size{};
    if (!GetFileSizeEx(file.get(), &size)) return FileProblem::kOther;
    return size.QuadPart == 0 ? FileProblem::kEmptyFile : FileProblem::kNone;
}

FileProblem CheckWritable(const std::wstring& path, bool& exists) {
    const kirobc::QuietDrives quiet;
    exists = false;
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return CheckCreatable(path);
    if (attributes & FILE_ATTRIBUTE_DIRECTORY) return FileProblem::kIsFolder;
    if (attributes & FILE_ATTRIBUTE_READONLY) return FileProblem::kReadOnly;
    const FileHandle file = OpenFileHandle(path, GENERIC_WRITE, kShareAll, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL);
    if (!file) return SystemProblem(GetLastError());
    if (GetFileType(file.get()) != FILE_TYPE_DISK) return FileProblem::kReserved;
    exists = true;
    return FileProblem::kNone;
}
