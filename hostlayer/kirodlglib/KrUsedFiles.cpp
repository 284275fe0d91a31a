#include "KrUsedFiles.h"

#include <windows.h>

#include <algorithm>
#include <optional>
#include <string_view>

#include "KrFileCheck.h"
#include "KrFileHandle.h"
#include "KrPath.h"
#include "KrText.h"

namespace {

constexpr std::size_t kMaxFileSize = 65536;  // 16 names need a tenth of it: whatever is larger is damaged
constexpr std::size_t kMaxKeyLength = 64;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// "" when there is no home folder. The settings folder is made only to write in it.
std::wstring ListPath(const std::string& key, bool makeFolder) {
    const std::wstring home = KeyFolder("");
    if (home.empty()) return {};
    const std::wstring folder = home + L"\\settings";
    if (makeFolder) CreateDirectoryW(folder.c_str(), nullptr);
    std::wstring path = folder + L"\\used_";
    for (const char c : key.substr(0, kMaxKeyLength)) {
        const bool plain = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
        path += plain ? static_cast<wchar_t>(c) : L'_';
    }
    return path + L".txt";
}

// ---- UTF-8 ----

std::optional<std::wstring> WideFromUtf8(std::string_view text) {
    const int length = static_cast<int>(text.size());
    const int units = MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text.data(), length, nullptr, 0);
    if (units <= 0) return std::nullopt;
    std::wstring wide(static_cast<std::size_t>(units), L'\0');
    MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, text.data(), length, wide.data(), units);
    return wide;
}

std::string Utf8(const std::wstring& wide) {
    const int length = static_cast<int>(wide.size());
    const int bytes = WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, nullptr, 0, nullptr, nullptr);
    std::string text(static_cast<std::size_t>(std::max(bytes, 0)), '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, text.data(), bytes, nullptr, nullptr);
    return text;
}

// ---- Lines ----

bool IsName(std::string_view name) {
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; };
    return !name.empty() && name.size() <= kMaxNameBytes && std::none_of(name.begin(), name.end(), isControl);
}

void AddLine(std::string_view line, std::vector<std::string>& names) {
    if (line.ends_with('\r')) line.remove_suffix(1);
    const std::optional<std::wstring> wide = WideFromUtf8(line);
    const std::optional<std::string> name = wide ? To932(*wide) : std::nullopt;
    if (!name || !IsName(*name)) return;
    const auto same = [&](const std::string& other) { return SameFileName(*name, other); };
    if (std::none_of(names.begin(), names.end(), same)) names.push_back(*name);
}

// A last line without its end was broken off, or reaches past what is read.
void AddLines(std::string_view text, std::vector<std::string>& names) {
    if (text.starts_with(kByteOrderMark)) text.remove_prefix(kByteOrderMark.size());
    for (std::size_t end; names.size() < kMaxUsedFiles && (end = text.find('\n')) != text.npos;) {
        AddLine(text.substr(0, end), names);
        text.remove_prefix(end + 1);
    }
}

bool WriteAll(const FileHandle& file, const std::string& text) {
    DWORD written = 0;
    return WriteFile(file.get(), text.data(), static_cast<DWORD>(text.size()), &written, nullptr) &&
           written == text.size() && FlushFileBuffers(file.get());
}

std::wstring WindowText(HWND window) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(window, text.data(), static_cast<int>(text.size()))));
    return text;
}

}  // namespace

bool LoadUsedFiles(const std::string& key, std::vector<std::string>& names) {
    names.clear();
    const std::wstring path = ListPath(key, false);
    if (path.empty()) return false;
    const FileHandle file = OpenFileHandle(path, GENERIC_READ, kShareAll, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL);
    if (!file) {
        const DWORD error = GetLastError();
        return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
    }
    std::string text(kMaxFileSize, '\0');
    DWORD read = 0;
    if (!ReadFile(file.get(), text.data(), static_cast<DWORD>(text.size()), &read, nullptr)) return false;
    AddLines(std::string_view(text).substr(0, read), names);
    return true;
}

bool SaveUsedFiles(const std::string& key, const std::vector<std::string>& names) {
    const std::wstring path = ListPath(key, true);
    if (path.empty()) return false;
    std::string text;
    for (const std::string& name : names)
        if (const std::optional<std::wstring> wide = WideFrom932(name); wide && IsName(name))
            text += Utf8(*wide) + "\r\n";

    // Nobody else may write the new file meanwhile; the old one is replaced only by a whole one.
    const std::wstring fresh = path + L".new";
    FileHandle file = OpenFileHandle(fresh, GENERIC_WRITE, 0, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL);
    if (!file) return false;
    const bool whole = WriteAll(file, text);
    file.reset();
    if (whole && MoveFileExW(fresh.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
        return true;
    DeleteFileW(fresh.c_str());
    return false;
}

bool SameFileName(const std::string& left, const std::string& right) {
    const std::optional<std::wstring> wideLeft = WideFrom932(left);
    const std::optional<std::wstring> wideRight = WideFrom932(right);
    if (!wideLeft || !wideRight) return left == right;
    return CompareStringOrdinal(wideLeft->data(), static_cast<int>(wideLeft->size()), wideRight->data(),
                                static_cast<int>(wideRight->size()), TRUE) == CSTR_EQUAL;
}

void FillCombo(KrWindow combo, const KrStringList& list) {
    if (!combo) return;
    const std::wstring text = WindowText(combo);  // emptying the list empties the edit, too
    SendMessageW(combo, WM_SETREDRAW, FALSE, 0);
    SendMessageW(combo, CB_RESETCONTENT, 0, 0);
    for (int i = 0; i < list.GetCount(); ++i)
        SendMessageW(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(WideForDisplay(list.GetAt(i)).c_str()));
    if (!text.empty()) {
        const auto index =
            SendMessageW(combo, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(text.c_str()));
        if (index >= 0) SendMessageW(combo, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
        SetWindowTextW(combo, text.c_str());  // nothing in a combo without an edit
    }
    SendMessageW(combo, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(combo, nullptr, TRUE);
}
