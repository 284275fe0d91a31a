#include "Commands.h"

#include <ctime>
#include <optional>

#include "Comparison.h"
#include "JsonOutput.h"
#include "Reading.h"
#include "TableFiles.h"
#include "tools/cli/Console.h"

namespace kirotable {

using cli::PrintError;

namespace {

std::string WrittenText(AnyTable& table, const TableKind& kind, const std::string& output) {
    return table.Write({PathInHeader(kind, output), MakeDateText(std::time(nullptr))});
}

// The text to write for a table that was read, when nothing is lost that was not given up.
std::optional<std::string> TextToWrite(const OpenedTable& opened, const std::string& target, bool inPlace,
                                       const CommonOptions& options) {
    const Reading& reading = opened.reading;
    for (const Finding& error : reading.errors.First()) PrintError(FindingText(opened.name, error));
    const auto losses = LossesOf(*opened.kind, *reading.table, options.read);
    std::string written = WrittenText(*reading.table, *opened.kind, target);
    for (const std::string& loss : losses) PrintError(opened.name + ": 書き戻すと変わります: " + loss);
    const bool damaged = reading.errors.Count() > 0 || !losses.empty();
    if (damaged && !options.dropErrors)
        PrintError(opened.name + ": 元のとおりに書き戻せないので書きません。よければ --drop-errors を付けてください");
    const std::size_t comments = OwnComments(opened.text, written);
    const bool kept = comments > 0 && inPlace && !options.dropComments;
    if (comments > 0)
        PrintError(opened.name + ": 自分で書いた注釈 " + std::to_string(comments) + " 行は、書き直すと残りません" +
                   (kept ? "。よければ --drop-comments を付けてください" : ""));
    if (kept || (damaged && !options.dropErrors)) return std::nullopt;
    return written;
}

}  // namespace

int Format(const std::string& file, const std::string& output, const CommonOptions& options) {
    const OpenedTable opened = OpenTable(file, options);
    const std::string& target = output.empty() ? file : output;
    const bool inPlace = target != cli::kStandard && cli::FullName(file) == cli::FullName(target);
    const auto written = TextToWrite(opened, target, inPlace, options);
    return written ? SaveTable(*written, target, options) : cli::kFindings;
}

int New(const TableKind& kind, const std::string& file, const std::string& output, const CommonOptions& options) {
    if (file.empty()) {
        const Reading empty = ReadTable(kind, {}, options.read);
        return SaveTable(WrittenText(*empty.table, kind, output), output, options);
    }
    const OpenedTable opened = OpenTable(file, options);
    const auto written = TextToWrite(opened, output, false, options);
    return written ? SaveTable(*written, output, options) : cli::kFindings;
}

int Diff(const std::string& from, const std::string& to, const CommonOptions& options) {
    const TableKind* const kinds[] = {KindOfFile(cli::PathOf(from)), KindOfFile(cli::PathOf(to))};
    const OpenedTable left = OpenTable(from, options, kinds[1]), right = OpenTable(to, options, kinds[0]);
    if (left.kind != right.kind) throw cli::Failure(from + " と " + to + " は種類が違います");
    for (const OpenedTable* opened : {&left, &right}) WarnOfErrors(*opened);
    const auto changes = Compare(left.reading.table->View(), right.reading.table->View());
    if (options.json)
        PrintJson(*left.kind, from, to, changes);
    else
        for (const Change& change : changes) cli::Print(TextOf(change) + "\n");
    return changes.empty() ? cli::kFine : cli::kFindings;
}

}  // namespace kirotable
