#include "KrFileChooser.h"

#include <commdlg.h>

#include <algorithm>

#include "KrPath.h"

namespace {

constexpr std::size_t kBufferSize = 32768;
constexpr std::wstring_view kAllFiles = L"*.*";

// What the wildcard text means to the chooser.
struct Start {
    std::wstring folder;
    std::wstring pattern;   // "" when only all files are listed
    std::wstring proposed;  // name in the edit
};

std::wstring Extension(const std::wstring& name) {
    const std::size_t dot = name.rfind(L'.');
    return dot == name.npos || dot + 1 == name.size() ? std::wstring() : name.substr(dot + 1);
}

bool IsFolder(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

// The chooser refuses to open at all when the proposed name has one of these.
bool IsProposable(const std::wstring& name) {
    return std::none_of(name.begin(), name.end(), [](wchar_t c) {
        return c < 0x20 || std::wstring_view(L"<>\"|:*?").find(c) != std::wstring_view::npos;
    });
}

// What a new name begins with: a pattern whose only wildcard is the "*" at its end tells it.
std::wstring Beginning(const std::wstring& pattern) {
    const std::size_t wild = pattern.find_first_of(L"*?;");
    return wild + 1 == pattern.size() && pattern.back() == L'*' ? pattern.substr(0, wild) : std::wstring();
}

// The folder part counts only if there is such a folder, so that a stale name does not hide the key's folder.
Start Understand(const ChooserRequest& request) {
    Start start{request.folder, {}, {}};
    std::wstring text = request.wildcard;
    std::replace(text.begin(), text.end(), L'/', L'\\');
    const std::size_t nameStart = text.rfind(L'\\') + 1;  // npos + 1 is 0: no folder
    const std::wstring name = text.substr(nameStart);
    if (nameStart > 0) {
        const std::optional<std::wstring> folder = AbsolutePath(text.substr(0, nameStart), request.folder);
        if (folder && IsFolder(*folder)) start.folder = *folder;
    }
    if (name.find_first_of(L"*?") != name.npos) {
        if (name != kAllFiles) start.pattern = name;
        if (const std::wstring beginning = Beginning(name); !request.existing && IsProposable(beginning))
            start.proposed = beginning;
    } else if (IsProposable(name)) {
        start.proposed = name;
        if (const std::wstring extension = Extension(name); !extension.empty()) start.pattern = L"*." + extension;
    }
    return start;
}

// Pairs of description and pattern, each with its NUL; the list ends with an empty one.
std::wstring Filter(const std::wstring& comment, const std::wstring& pattern) {
    std::wstring filter;
    const auto add = [&filter](const std::wstring& what, const std::wstring& files) {
        filter += what.substr(0, what.find(L'\0')) + L" (" + files + L")";
        filter += L'\0';
        filter += files;
        filter += L'\0';
    };
    if (!pattern.empty()) add(comment, pattern);
    add(L"すべてのファイル", std::wstring(kAllFiles));
    return filter + L'\0';
}

// "*.dxf" gives "dxf". A pattern that leaves the extension open, or has several, gives none.
std::wstring DefaultExtension(const std::wstring& pattern) {
    const std::wstring extension = Extension(pattern);
    return extension.find_first_of(L"*?;") == extension.npos && pattern.find(L';') == pattern.npos ? extension
                                                                                                   : std::wstring();
}

}  // namespace

ChooserResult ChooseFile(const ChooserRequest& request, std::wstring& path) {
    const Start start = Understand(request);
    const std::wstring filter = Filter(request.comment, start.pattern);
    const std::wstring extension = DefaultExtension(start.pattern);
    std::wstring buffer(kBufferSize, L'\0');
    start.proposed.copy(buffer.data(), kBufferSize - 1);

    OPENFILENAMEW chooser{};
    chooser.lStructSize = sizeof chooser;
    chooser.hwndOwner = request.owner;
    chooser.lpstrFilter = filter.c_str();
    chooser.nFilterIndex = 1;
    chooser.lpstrFile = buffer.data();
    chooser.nMaxFile = kBufferSize;
    chooser.lpstrInitialDir = start.folder.c_str();
    chooser.lpstrTitle = request.title.empty() ? nullptr : request.title.c_str();
    chooser.lpstrDefExt = request.existing || extension.empty() ? nullptr : extension.c_str();
    chooser.Flags = OFN_EXPLORER | OFN_NOCHANGEDIR | OFN_PATHMUSTEXIST | OFN_HIDEREADONLY;
    // The questions about a file that is there, or is not, are the dialog's, and no test file is made before them.
    chooser.Flags |= static_cast<DWORD>(request.existing ? 0 : OFN_NOTESTFILECREATE);

    if (!(request.existing ? GetOpenFileNameW(&chooser) : GetSaveFileNameW(&chooser)))
        return CommDlgExtendedError() == 0 ? ChooserResult::kCancelled : ChooserResult::kFailed;
    path.assign(buffer.c_str());
    return ChooserResult::kChosen;
}
