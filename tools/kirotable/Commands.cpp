#include "Commands.h"

#include <ctime>

#include "Comparison.h"
#include "Console.h"
#include "Reading.h"
#include "TableFiles.h"
#include "Text.h"
#include "tables/FileReplace.h"

namespace fs = std::filesystem;

namespace kirotable {

namespace {

constexpr char kStandardOutput[] = "-";

// Writes a table to a file or to the standard output; what stands there is the file's business alone.
void WriteTable(AnyTable& table, const TableKind& kind, const std::string& output) {
    const bool toFile = output != kStandardOutput;
    const std::string path = toFile ? ToCp932(FullName(output)) : std::string(kind.file);
    const std::string text = TextModeLines(table.Write({path, MakeDateText(std::time(nullptr))}));
    if (!toFile)
        Print(text);
    else if (!ReplaceWholeFile(PathOf(output), text))
        throw FileFailure(output + ": 書けません。前のファイルがあれば、そのまま残っています");
}

}  // namespace

int Format(const std::string& file, const std::string& output, const CommonOptions& options) {
    OpenedTable opened = OpenTable(file, options);
    const Reading& reading = opened.reading;
    for (const Finding& error : reading.errors) PrintError(FindingText(file, error));
    const auto losses = LossesOf(*opened.kind, *reading.table, options.read);
    for (const std::string& loss : losses) PrintError(file + ": 書き戻すと変わります: " + loss);
    if ((!reading.errors.empty() || !losses.empty()) && !options.force) {
        PrintError(file + ": 元のとおりに書き戻せないので書きません。よければ --force を付けてください");
        return kFindings;
    }
    WriteTable(*reading.table, *opened.kind, output.empty() ? file : output);
    return kFine;
}

int New(const TableKind& kind, const std::string& output, const CommonOptions& options) {
    std::error_code error;
    if (output != kStandardOutput && !options.force && fs::exists(PathOf(output), error)) {
        PrintError(output + ": すでにあるので書きません。置き換えてよければ --force を付けてください");
        return kFindings;
    }
    WriteTable(*ReadTable(kind, {}, options.read).table, kind, output);
    return kFine;
}

int Diff(const std::string& from, const std::string& to, const CommonOptions& options) {
    const OpenedTable left = OpenTable(from, options), right = OpenTable(to, options);
    if (left.kind != right.kind) throw FileFailure(from + " と " + to + " は種類が違います");
    for (const auto& [file, opened] : {std::pair(&from, &left), std::pair(&to, &right)}) WarnOfErrors(*file, *opened);
    const auto changes = Compare(left.reading.table->View(), right.reading.table->View());
    for (const Change& change : changes) Print(TextOf(change) + "\n");
    return changes.empty() ? kFine : kFindings;
}

}  // namespace kirotable
