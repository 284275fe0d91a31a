// What may be wrong with a file name or the file it names, and the words for it.
#pragma once

#include <string>
#include <string_view>

enum class FileProblem {
    kNone,
    // of the name
    kNoName,
    kBadBytes,
    kBadCharacter,
    kPattern,
    kBadEnd,
    kReserved,
    kNoFolder,
    kTooLong,
    // of the file
    kIsFolder,
    kNotFound,
    kFolderNotFound,
    kLocked,
    kDenied,
    kReadOnly,
    kWriteProtected,
    kNotReady,
    kEmptyFile,
    kOther,
    kCount
};

const wchar_t* ProblemText(FileProblem problem);

constexpr std::size_t kMaxNameBytes = 256;  // of the internal path: what the records' name fields hold

struct CheckedName {
    FileProblem problem = FileProblem::kNone;
    std::wstring path;  // absolute; only when there is no problem
};
// Looks at the name alone. pattern: "*" and "?" are allowed behind the last separator.
CheckedName CheckName(std::string_view name, const std::wstring& folder, bool pattern);

FileProblem CheckReadable(const std::wstring& path);
// exists: set when there is such a file, which the caller asks about.
FileProblem CheckWritable(const std::wstring& path, bool& exists);
