#include <algorithm>

#include "Commands.h"
#include "Comparison.h"
#include "Console.h"
#include "Json.h"
#include "TableFiles.h"
#include "Text.h"

namespace kirotable {

namespace {

using Cells = std::vector<std::string>;

Json ToJson(const Value& value) {
    switch (value.type) {
        case Value::Type::kInteger:
            return value.integer;
        case Value::Type::kReal:
            return value.real;
        case Value::Type::kText:
            return value.text;
        case Value::Type::kList:
            break;
    }
    Json list = Json::array();
    for (const Value& item : value.list) list.push_back(ToJson(item));
    return list;
}

Json ToJson(const TableKind& kind, const TableView& view) {
    Json json = {{"kind", kind.name}};
    for (const auto* values : {&view.fields, &view.counts})
        for (const auto& [name, value] : *values) json[name] = ToJson(value);
    for (const Section& section : view.sections) {
        Json& rows = json[section.name] = Json::array();
        for (const auto& row : section.rows) {
            Json object = Json::object();
            for (std::size_t i = 0; i < row.size(); ++i) object[section.columns[i]] = ToJson(row[i]);
            rows.push_back(std::move(object));
        }
    }
    return json;
}

// Consecutive numbers with the same values are one line, such as "5-257".
std::vector<Cells> LinesOf(const Section& section) {
    std::vector<Cells> lines;
    std::string first;
    std::int32_t last = 0;
    for (const auto& row : section.rows) {
        Cells line;
        for (const Value& value : row) line.push_back(Printable(TextOf(value)));
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
        for (std::size_t i = 0; i < line.size(); ++i) widths[i] = std::max(widths[i], ColumnsOf(line[i]));
    for (const Cells& line : lines) {
        std::string text = " ";
        for (std::size_t i = 0; i < line.size(); ++i) {
            text += " " + line[i];
            if (i + 1 < line.size()) text.append(widths[i] - ColumnsOf(line[i]) + 1, ' ');
        }
        Print(text.substr(0, text.find_last_not_of(' ') + 1) + "\n");
    }
}

void PrintView(const TableKind& kind, const TableView& view) {
    Print(std::string(kind.name) + "  " + std::string(kind.title) + "\n");
    std::vector<Cells> fields;
    for (const auto* values : {&view.fields, &view.counts})
        for (const auto& [name, value] : *values) fields.push_back({std::string(name), TextOf(value)});
    if (!fields.empty()) Print("\n"), PrintLines(fields);
    for (const Section& section : view.sections) {
        std::vector<Cells> lines = LinesOf(section);
        lines.insert(lines.begin(), Cells(section.columns.begin(), section.columns.end()));
        Print("\n[" + std::string(section.name) + "]\n");
        PrintLines(lines);
    }
}

}  // namespace

int Show(const std::string& file, const CommonOptions& options) {
    const OpenedTable opened = OpenTable(file, options);
    WarnOfErrors(file, opened);
    const TableView view = opened.reading.table->View();
    if (options.json)
        PrintJson(ToJson(*opened.kind, view));
    else
        PrintView(*opened.kind, view);
    return kFine;
}

}  // namespace kirotable
