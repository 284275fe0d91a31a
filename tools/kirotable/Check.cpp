#include <algorithm>

#include "Commands.h"
#include "Console.h"
#include "Json.h"
#include "TableFiles.h"
#include "Text.h"

namespace kirotable {

namespace {

constexpr char kWarning[] = "警告: ";

struct Totals {
    std::size_t files = 0, errors = 0, warnings = 0, unreadable = 0;
};

Json ToJson(const std::vector<Finding>& findings) {
    Json list = Json::array();
    for (const Finding& finding : findings) {
        const Json line = finding.line > 0 ? Json(finding.line) : Json();
        list.push_back({{"line", line}, {"message", finding.message}});
    }
    return list;
}

void PrintFindings(const std::string& file, const Reading& reading) {
    std::vector<Finding> findings = reading.errors;
    for (const Finding& warning : reading.warnings) findings.push_back({warning.line, kWarning + warning.message});
    // In the order of the lines; what has none comes last.
    std::stable_sort(findings.begin(), findings.end(),
                     [](const Finding& a, const Finding& b) { return a.line - 1 < b.line - 1; });
    for (const Finding& finding : findings) Print(FindingText(file, finding) + "\n");
}

Json CheckFile(const std::string& file, const CommonOptions& options, Totals& totals) {
    Json entry = {{"file", file}};
    ++totals.files;
    try {
        OpenedTable opened = OpenTable(file, options);
        Reading& reading = opened.reading;
        for (const std::string& loss : LossesOf(*opened.kind, *reading.table, options.read))
            reading.warnings.push_back({0, "書き戻すと変わります: " + loss});
        if (!options.json) PrintFindings(file, reading);
        totals.errors += reading.errors.size();
        totals.warnings += reading.warnings.size();
        entry["kind"] = opened.kind->name;
        entry["errors"] = ToJson(reading.errors);
        entry["warnings"] = ToJson(reading.warnings);
    } catch (const FileFailure& failure) {
        ++totals.unreadable;
        PrintError(failure.what());
        entry["failure"] = failure.what();
    }
    return entry;
}

std::string Summary(const Totals& totals) {
    return std::to_string(totals.files) + " ファイル: エラー " + std::to_string(totals.errors) + " 件、警告 " +
           std::to_string(totals.warnings) + " 件、読めないファイル " + std::to_string(totals.unreadable) + " 件\n";
}

}  // namespace

int Check(const std::vector<std::string>& files, const CommonOptions& options) {
    Totals totals;
    Json entries = Json::array();
    for (const std::string& file : files) entries.push_back(CheckFile(file, options, totals));
    if (options.json)
        PrintJson({{"files", entries},
                   {"errors", totals.errors},
                   {"warnings", totals.warnings},
                   {"unreadable", totals.unreadable}});
    else
        Print(Summary(totals));
    return totals.unreadable > 0 ? kTrouble : totals.errors > 0 ? kFindings : kFine;
}

}  // namespace kirotable
