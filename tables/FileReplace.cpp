#include "tables/FileReplace.h"

#include <algorithm>
#include <atomic>
#include <cstring>
#include <utility>

#include "tables/FileBeside.h"

namespace {

constexpr std::string_view kStart = "~kiro-", kEnd = ".tmp";
constexpr std::string_view kDigits = "0123456789abcdef";
constexpr int kDigitCount = 8;
constexpr std::size_t kPiece = 1 << 20;

}  // namespace

SystemPath NameBeside(std::uint32_t process) {
    static std::atomic<std::uint32_t> count = 0;
    const std::uint32_t number = process * 4096 + count++;
    SystemPath name(kStart.begin(), kStart.end());
    for (std::uint32_t digit = kDigitCount; digit-- > 0;) name += kDigits[number >> digit * 4 & 0xF];
    return name.append(kEnd.begin(), kEnd.end());
}

bool IsNameBeside(const SystemPath& name) {
    if (name.size() != kStart.size() + kDigitCount + kEnd.size()) return false;
    const auto isDigit = [](auto c) { return std::find(kDigits.begin(), kDigits.end(), c) != kDigits.end(); };
    const auto digits = name.begin() + kStart.size();
    return std::equal(kStart.begin(), kStart.end(), name.begin()) &&
           std::all_of(digits, digits + kDigitCount, isDigit) &&
           std::equal(kEnd.begin(), kEnd.end(), digits + kDigitCount);
}

OwnedFile OpenFile(const SystemPath& path, const char* mode) {
#ifdef _WIN32
    return OwnedFile(_wfopen(path.c_str(), std::wstring(mode, mode + std::strlen(mode)).c_str()));
#else
    return OwnedFile(std::fopen(path.c_str(), mode));
#endif
}

std::optional<std::string> ReadWholeFile(const SystemPath& path) {
    const OwnedFile file = OpenFile(path, "rb");
    if (!file) return std::nullopt;
    std::string bytes;
    char piece[16384];
    while (const std::size_t count = std::fread(piece, 1, sizeof piece, file.get())) bytes.append(piece, count);
    if (std::ferror(file.get())) return std::nullopt;
    return bytes;
}

FileReplacement::FileReplacement(SystemPath path) : path_(std::move(path)) {}

FileReplacement::~FileReplacement() = default;

bool FileReplacement::Write(std::string_view bytes) {
    // Written through, small pieces would each wait for the medium.
    if (pending_.empty() && bytes.size() >= kPiece) return Put(bytes);
    pending_.append(bytes);
    if (pending_.size() < kPiece) return good_;
    Put(pending_);
    pending_.clear();
    return good_;
}

bool FileReplacement::TakePlace() {
    if (!Put(pending_) || beside_->TakePlace()) return good_;
    error_ = LastSystemError();
    return good_ = false;
}

bool FileReplacement::Open() {
    const std::optional<SystemPath> target = TargetOf(path_);
    if (!target || !MayBeReplaced(*target)) return false;
    const SystemPath folder = FolderOf(*target);
    if (folder.size() == target->size()) return false;
    RemoveLeftovers(folder);
    auto beside = std::make_unique<FileBeside>(*target);
    if (beside->IsOpen())
        beside_ = std::move(beside);
    else
        error_ = LastSystemError();
    return WasOpen();
}

bool FileReplacement::Put(std::string_view bytes) {
    good_ = good_ && (WasOpen() || Open());
    if (!good_ || beside_->Write(bytes)) return good_;
    error_ = LastSystemError();
    return good_ = false;
}

bool ReplaceWholeFile(const SystemPath& path, std::string_view bytes) {
    FileReplacement file(path);
    return file.Write(bytes) && file.TakePlace();
}

std::string TextModeLines(std::string_view text) {
    std::string lines;
    lines.reserve(text.size() + text.size() / 16);
    for (const char c : text) {
        if (c == '\n') lines += '\r';
        lines += c;
    }
    return lines;
}
