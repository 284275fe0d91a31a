// Whole files: read at once, and replaced in one step.
#pragma once

#include <cstdio>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

// A path as the system has it: UTF-16 on Windows. (std::filesystem::path converts to it by itself; using that class in
// the library would link half a megabyte of locales.)
using SystemPath = std::filesystem::path::string_type;

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using OwnedFile = std::unique_ptr<std::FILE, FileCloser>;

OwnedFile OpenFile(const SystemPath& path, const char* mode);  // null when it cannot be opened

// Nothing when the file cannot be opened or read.
std::optional<std::string> ReadWholeFile(const SystemPath& path);

class FileBeside;

// Puts bytes in a file's place in one step: they are written into a new file beside it as they come, flushed to the
// medium and renamed over it. At every instant, also when the program or the machine stops, the old file or the new one
// is there, whole. What a stopped writer left beside goes with the next writing in that folder. False, and the old file
// is untouched, when it cannot be done: no room, no right, a read-only file or a folder of that name. Of two writers at
// once each writes a file of its own, and the one that comes last stays; the system may refuse one of them that moment.
// On POSIX systems a link is followed.
class FileReplacement {
  public:
    explicit FileReplacement(SystemPath path);
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;
    ~FileReplacement();  // without TakePlace the old file stays

    bool Write(std::string_view bytes);
    bool TakePlace();

    bool WasOpen() const { return beside_ != nullptr; }  // there was a file beside to write into
    unsigned long Error() const { return error_; }       // the system's code, when that could not be written

  private:
    bool Open();
    bool Put(std::string_view bytes);

    SystemPath path_;
    std::unique_ptr<FileBeside> beside_;
    std::string pending_;
    unsigned long error_ = 0;
    bool good_ = true;
};

bool ReplaceWholeFile(const SystemPath& path, std::string_view bytes);

// "\n" becomes CR LF: what a file has that is written in text mode. Tables have it on every system, because the host
// reads them on Windows.
std::string TextModeLines(std::string_view text);
