#include <algorithm>

#include "Commands.h"
#include "Comparison.h"
#include "JsonOutput.h"
#include "TableFiles.h"
#include "tools/cli/Console.h"
#include "tools/cli/Text.h"

namespace kirotable {

namespace {

using Cells = std::vector<std::string>;

// Consecutive numbers with the same values are one line, such as "5-257".
std::vector<Cells> LinesOf(const Section& section) {
    std::vector<Cells> lines;
    std::string first;
    std::int32_t last = 0;
    for (const auto& row : section.rows) {
        Cells line;
        for (const Value& value : row) line.push_back(cli::Printable(TextOf(value)));
        const bool numbered = row[0].type == Value::Type::kInteger;
        const bool same = numbered && !lines.empty() && row[0].integer == last + 1 &&
                          std::equal(line.begin() + 1, line.end(), lines.back().begin() + 1, lines.back().end());
        if (same)
            lines.back()[0] = first + "-" + line[0];
        else
            first = line[0], lines.push_back(std::move(line));
        last = row[0].integer;
    }
    return lines;
}

void PrintLines(const std::vector<Cells>& lines) {
    std::vector<std::size_t> widths(lines.front().size());
    for (const Cells& line : lines)
        for (std::size_t i = 0; i < line.size(); ++i) widths[i] = std::max(widths[i], cli::ColumnsOf(line[i]));
    for (const Cells& line : lines) {
        std::string text = " ";
        for (std::size_t i = 0; i < line.size(); ++i) {
            text += " " + line[i];
            if (i + 1 < line.size()) text.append(widths[i] - cli::ColumnsOf(line[i]) + 1, ' ');
        }
        cli::Print(text.substr(0, text.find_last_not_of(' ') + 1) + "\n");
    }
}

void PrintView(const TableKind& kind, const TableView& view) {
    cli::Print(std::string(kind.name) + "  " + std::string(kind.title) + "\n");
    std::vector<Cells> fields;
    for (const auto* values : {&view.fields, &view.counts})
        for (const auto& [name, value] : *values) fields.push_back({std::string(name), TextOf(value)});
    if (!fields.empty()) cli::Print("\n"), PrintLines(fields);
    for (const Section& section : view.sections) {
        std::vector<Cells> lines = LinesOf(section);
        lines.insert(lines.begin(), Cells(section.columns.begin(), section.columns.end()));
        cli::Print("\n[" + std::string(section.name) + "]\n");
        PrintLines(lines);
    }
}

}  // namespace

int Show(const std::string& file, const CommonOptions& options) {
    const OpenedTable opened = OpenTable(file, options);
    WarnOfErrors(opened);
    const TableView view = opened.reading.table->View();
    if (options.json)
        PrintJson(*opened.kind, view);
    else
        PrintView(*opened.kind, view);
    return cli::kFine;
}

}  // namespace kirotable
