#include "Conversion.h"

#include <algorithm>
#include <set>

#include "entry/host/kirodxf.h"
#include "hostlayer/kirodxf/DxfErrorText.h"
#include "tables/FileReplace.h"
#include "tools/kirotable/Text.h"

namespace fs = std::filesystem;

namespace kiroconvert {

namespace {

class FileSource final : public ByteSource {
  public:
    explicit FileSource(const fs::path& path) : file_(OpenFile(path.native(), "rb")) {}
    bool IsOpen() const { return file_ != nullptr; }
    int Read(char* buffer, unsigned size) override {
        const std::size_t count = std::fread(buffer, 1, size, file_.get());
        return count == 0 && std::ferror(file_.get()) ? -1 : static_cast<int>(count);
    }

  private:
    OwnedFile file_;
};

class MemorySink final : public ByteSink {
  public:
    bool Write(std::string_view more) override {
        bytes.append(more);
        return true;
    }
    std::string bytes;
};

std::string TextOf(int result) {
    char text[256];
    const std::size_t length = DxfErrorText(result, text, sizeof text);
#ifdef _WIN32
    return kirotable::FromCp932({text, length});  // the messages of the host's libraries are code page 932 there
#else
    return {text, length};
#endif
}

bool Matches(std::string_view name, std::string_view pattern) {
    if (pattern.empty()) return name.empty();
    if (pattern[0] == '*')
        return Matches(name, pattern.substr(1)) || (!name.empty() && Matches(name.substr(1), pattern));
    return !name.empty() && (pattern[0] == '?' || pattern[0] == name[0]) && Matches(name.substr(1), pattern.substr(1));
}

// Names of which some systems take two for one.
std::string Key(std::string name) {
    for (char& c : name)
        if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    return name;
}

std::vector<std::string> Expanded(const std::string& input) {
    std::error_code error;
    const fs::path path = PathOf(input);
    const std::string pattern = NameOf(path.filename());
    if (pattern.find_first_of("*?") == pattern.npos || fs::exists(path, error)) return {input};
    std::string shortest;  // "**" means no more than "*", and takes much longer
    for (const char c : Key(pattern))
        if (c != '*' || !shortest.ends_with('*')) shortest += c;
    std::vector<std::string> names;
    const fs::path folder = path.parent_path();
    for (fs::directory_iterator file(folder.empty() ? "." : folder, error), end; !error && file != end;
         file.increment(error)) {
        const fs::path name = file->path().filename();
        std::error_code ignored;
        if (Matches(Key(NameOf(name)), shortest) && file->is_regular_file(ignored))
            names.push_back(NameOf(folder / name));
    }
    if (names.empty()) throw Failure(input + ": 合うファイルがありません");
    std::sort(names.begin(), names.end());
    return names;
}

}  // namespace

fs::path PathOf(const std::string& name) {
#ifdef _WIN32
    return std::u8string(name.begin(), name.end());
#else
    return name;
#endif
}

std::string NameOf(const fs::path& path) {
#ifdef _WIN32
    const auto name = path.u8string();
    return std::string(name.begin(), name.end());
#else
    return path.native();
#endif
}

std::vector<Job> PlanJobs(const std::vector<std::string>& inputs, const std::string& output) {
    std::vector<std::string> names;
    for (const std::string& input : inputs)
        for (std::string& name : Expanded(input)) names.push_back(std::move(name));
    std::error_code error;
    const fs::path out = PathOf(output);
    const bool folder = fs::is_directory(out, error);
    if (names.size() > 1 && !folder) throw Failure(output + ": 複数の図面を書くには、あるフォルダを指定してください");
    std::vector<Job> jobs;
    std::set<std::string> taken;
    for (const std::string& name : names) {
        const fs::path target = folder ? out / PathOf(name).filename().replace_extension(".dxf") : out;
        const std::string text = NameOf(target);
        if (Key(NameOf(target.extension())) == ".dwg") throw Failure(text + ": " + TextOf(kDxfNotThatVersion));
        if (!taken.insert(Key(text)).second) throw Failure(text + ": 同じ名前になる図面が 2 つ以上あります");
        if (fs::equivalent(PathOf(name), target, error)) throw Failure(text + ": 読む図面と同じファイルには書きません");
        jobs.push_back({name, text});
    }
    return jobs;
}

Outcome RunJob(const Job& job, const Settings& settings) {
    Outcome outcome = {job, {}, {}, {}};
    std::error_code error;
    const fs::path path = PathOf(job.input);
    FileSource source(path);
    if (!fs::is_regular_file(path, error) || !source.IsOpen()) {
        outcome.failure = TextOf(fs::exists(path, error) ? kDxfCannotRead : kDxfNoFile);
        return outcome;
    }
    convert::ModelContent content;
    int result = ReadDrawing(source, settings.import, content, outcome.read);
    MemorySink sink;
    if (result == 0) {
        const convert::Target target = {static_cast<int>(!content.layouts.empty()), content.modelPicture};
        result = WriteDrawing(content, target, settings.output, sink, outcome.written);
    }
    content = {};
    if (result == 0 && !ReplaceWholeFile(PathOf(job.output).native(), sink.bytes)) result = kDxfCannotWrite;
    if (result != 0) outcome.failure = TextOf(result);
    return outcome;
}

int StatusOf(const std::vector<Outcome>& outcomes) {
    int status = kFine;
    for (const Outcome& outcome : outcomes)
        status = std::max(status, !outcome.failure.empty() ? kTrouble : outcome.IsComplete() ? kFine : kFindings);
    return status;
}

}  // namespace kiroconvert
