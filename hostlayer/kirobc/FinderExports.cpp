#include <windows.h>

#include <algorithm>
#include <memory>
#include <new>
#include <string>

#include "entry/host/kirobc.h"
#include "hostlayer/kirobc/EucCodec.h"
#include "hostlayer/kirobc/Guarded.h"
#include "hostlayer/kirobc/HomeFolder.h"
#include "hostlayer/kirobc/PathText.h"
#include "hostlayer/kirobc/QuietDrives.h"

namespace {

struct FindCloser {
    void operator()(HANDLE find) const { FindClose(find); }
};

// "" when it is no pattern of names. "?" cannot be converted with the rest: there it stands for what is no character.
std::wstring WidePattern(std::string_view text) {
    std::wstring pattern;
    for (;;) {
        const std::size_t end = std::min(text.find('?'), text.size());
        const std::wstring part = kirobc::WideFromEuc(text.substr(0, end));
        if (part.empty() && end > 0) return {};
        pattern += part;
        if (end == text.size()) break;
        pattern += L'?';
        text.remove_prefix(end + 1);
    }
    return pattern.find_first_of(L"\\/:\"<>|") == std::wstring::npos ? pattern : std::wstring();
}

class FolderFinder final : public HxFileFinder {
  public:
    bool Open(const char* pattern, bool directories) override {
        Close();
        return kirobc::Guarded(false, [=, this] { return pattern && Start(pattern, directories) && Take(); });
    }
    bool Next() override {
        return kirobc::Guarded(false, [this] { return find_ && FindNextFileW(find_.get(), &data_) && Take(); });
    }
    const char* Current() override { return current_.c_str(); }
    void Close() override {
        find_.reset();
        current_.clear();
    }
    void Release() override { delete this; }

  private:
    bool Start(std::string_view pattern, bool directories) {
        const std::size_t slash = pattern.rfind('/');
        if (slash == std::string_view::npos) return false;
        directories_ = directories;
        folder_ = pattern.substr(0, slash + 1);
        const std::wstring folder = kirobc::WindowsPath(folder_);
        const std::wstring names = WidePattern(pattern.substr(slash + 1));
        if (folder.empty() || names.empty()) return false;
        const kirobc::QuietDrives quiet;
        const HANDLE find = FindFirstFileExW(kirobc::JoinPath(folder, names).c_str(), FindExInfoBasic, &data_,
                                             FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH);
        if (find != INVALID_HANDLE_VALUE) find_.reset(find);
        return find_ != nullptr;
    }
    // The entry that was found, or the next that is to be shown.
    bool Take() {
        do {
            current_ = Path();
            if (!current_.empty()) return true;
        } while (FindNextFileW(find_.get(), &data_));
        return false;
    }
    std::string Path() const {
        const std::wstring_view name = data_.cFileName;
        const bool isFolder = data_.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY;
        if (isFolder != directories_ || name == L"." || name == L"..") return {};
        const std::string sjis = kirobc::SjisFromWide(name);
        return sjis.empty() ? sjis : folder_ + kirobc::SjisToEuc(sjis);
    }

    std::unique_ptr<void, FindCloser> find_;
    WIN32_FIND_DATAW data_{};
    std::string folder_;  // EUC, with its "/"
    bool directories_ = false;
    std::string current_;
};

}  // namespace

HxFileFinder* HxFileFinderCreateInstance() { return new (std::nothrow) FolderFinder; }
