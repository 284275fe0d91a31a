#include "Conversion.h"

#include <algorithm>
#include <set>

#include "entry/host/kirodxf.h"
#include "hostlayer/kirodxf/FileSink.h"
#include "tools/cli/Drawings.h"
#include "tools/cli/Files.h"

namespace fs = std::filesystem;

namespace kiroconvert {

std::vector<Job> PlanJobs(const std::vector<std::string>& inputs, const std::string& output) {
    const std::vector<std::string> names = cli::Expanded(inputs);
    std::error_code error;
    const fs::path out = cli::PathOf(output);
    const bool folder = fs::is_directory(out, error);
    if (names.size() > 1 && !folder)
        throw cli::Failure(output + ": 複数の図面を書くには、あるフォルダを指定してください");
    std::vector<Job> jobs;
    std::set<std::string> taken;
    for (const std::string& name : names) {
        const fs::path target = folder ? out / cli::PathOf(name).filename().replace_extension(".dxf") : out;
        const std::string text = cli::NameOf(target);
        if (cli::FileKey(cli::NameOf(target.extension())) == ".dwg")
            throw cli::Failure(text + ": " + cli::TextOf(kDxfNotThatVersion));
        if (!taken.insert(cli::FileKey(text)).second)
            throw cli::Failure(text + ": 同じ名前になる図面が 2 つ以上あります");
        if (fs::equivalent(cli::PathOf(name), target, error))
            throw cli::Failure(text + ": 読む図面と同じファイルには書きません");
        jobs.push_back({name, text});
    }
    return jobs;
}

Outcome RunJob(const Job& job, const Settings& settings) {
    Outcome outcome = {job, {}, {}, {}};
    cli::FileSource source;
    convert::ModelContent content;
    int result = source.Open(job.input);
    if (result == 0) result = ReadDrawing(source, settings.import, content, outcome.read);
    FileSink sink(cli::PathOf(job.output).native());
    if (result == 0) {
        const convert::Target target = {static_cast<int>(!content.layouts.empty()), content.modelPicture};
        result = WriteDrawing(content, target, settings.output, sink, outcome.written);
    }
    if (result == 0 && !sink.File().TakePlace()) result = kDxfCannotWrite;
    if (result != 0) outcome.failure = cli::TextOf(result);
    return outcome;
}

int StatusOf(const std::vector<Outcome>& outcomes) {
    int status = kFine;
    for (const Outcome& outcome : outcomes)
        status = std::max(status, !outcome.failure.empty() ? kTrouble : outcome.IsComplete() ? kFine : kFindings);
    return status;
}

}  // namespace kiroconvert
