#include <algorithm>

#include "Commands.h"
#include "JsonOutput.h"
#include "TableFiles.h"
#include "tools/cli/Console.h"

namespace kirotable {

using cli::Print;

namespace {

constexpr char kWarning[] = "警告: ";

void PrintFindings(const CheckedFile& file) {
    std::vector<Finding> findings = file.errors.First();
    for (const Finding& warning : file.warnings.First()) findings.push_back({warning.line, kWarning + warning.message});
    // In the order of the lines; what has none comes last.
    std::stable_sort(findings.begin(), findings.end(),
                     [](const Finding& a, const Finding& b) { return a.line - 1 < b.line - 1; });
    for (const Finding& finding : findings) Print(FindingText(file.file, finding) + "\n");
    const auto more = [&](const Findings& its, const std::string& before) {
        for (const auto& [kind, count] : its.More())
            Print(FindingText(file.file, {0, "ほか " + std::to_string(count) + " 件: " + before + kind}) + "\n");
    };
    more(file.errors, "");
    more(file.warnings, kWarning);
}

CheckedFile CheckFile(const std::string& name, const CommonOptions& options) {
    CheckedFile file;
    file.file = name;
    try {
        OpenedTable opened = OpenTable(name, options);
        file.file = opened.name;
        file.kind = opened.kind;
        for (const std::string& loss : LossesOf(*opened.kind, *opened.reading.table, options.read))
            opened.reading.warnings.Add(0, "書き戻すと変わります: ", loss);
        file.errors = std::move(opened.reading.errors);
        file.warnings = std::move(opened.reading.warnings);
    } catch (const cli::Failure& failure) {
        cli::PrintError(file.failure = failure.what());
    }
    return file;
}

std::string Summary(const Totals& totals) {
    return std::to_string(totals.files) + " ファイル: エラー " + std::to_string(totals.errors) + " 件、警告 " +
           std::to_string(totals.warnings) + " 件、読めないファイル " + std::to_string(totals.unreadable) + " 件\n";
}

}  // namespace

int Check(const std::vector<std::string>& files, const CommonOptions& options) {
    Totals totals;
    std::vector<CheckedFile> checked;
    for (const std::string& name : files) {
        CheckedFile file = CheckFile(name, options);
        ++totals.files;
        totals.errors += file.errors.Count();
        totals.warnings += file.warnings.Count();
        totals.unreadable += !file.failure.empty();
        if (options.json)
            checked.push_back(std::move(file));
        else
            PrintFindings(file);
    }
    if (options.json)
        PrintJson(checked, totals);
    else
        Print(Summary(totals));
    return totals.unreadable > 0 ? cli::kTrouble : totals.errors > 0 ? cli::kFindings : cli::kFine;
}

}  // namespace kirotable
