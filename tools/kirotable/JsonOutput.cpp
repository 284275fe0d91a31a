#include "JsonOutput.h"

#include "tools/cli/Json.h"

namespace kirotable {

using cli::Json;

namespace {

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

Json LineOf(std::size_t line) { return line > 0 ? Json(line) : Json(); }

Json ToJson(const std::vector<Finding>& findings) {
    Json list = Json::array();
    for (const Finding& finding : findings)
        list.push_back({{"line", LineOf(finding.line)}, {"message", finding.message}});
    return list;
}

void AddMore(Json& entry, const char* name, const Findings& findings) {
    if (findings.More().empty()) return;
    Json& list = entry[name] = Json::array();
    for (const auto& [message, count] : findings.More()) list.push_back({{"message", message}, {"count", count}});
}

Json ToJson(const Section& section, const std::vector<Value>& row) {
    Json object = Json::object();
    for (std::size_t i = 0; i < row.size(); ++i) object[section.columns[i]] = ToJson(row[i]);
    return object;
}

}  // namespace

void PrintJson(const std::vector<CheckedFile>& files, const Totals& totals) {
    Json entries = Json::array();
    for (const CheckedFile& file : files) {
        Json entry = {{"file", file.file}};
        if (!file.failure.empty()) {
            entry["failure"] = file.failure;
        } else {
            entry["kind"] = file.kind->name;
            entry["errors"] = ToJson(file.errors.First());
            AddMore(entry, "moreErrors", file.errors);
            entry["warnings"] = ToJson(file.warnings.First());
            AddMore(entry, "moreWarnings", file.warnings);
        }
        entries.push_back(std::move(entry));
    }
    cli::PrintJson({{"files", entries},
                    {"errors", totals.errors},
                    {"warnings", totals.warnings},
                    {"unreadable", totals.unreadable}});
}

void PrintJson(const TableKind& kind, const TableView& view) {
    Json json = {{"kind", kind.name}};
    for (const auto* values : {&view.fields, &view.counts})
        for (const auto& [name, value] : *values) json[name] = ToJson(value);
    for (const Section& section : view.sections) {
        Json& rows = json[section.name] = Json::array();
        for (const auto& row : section.rows) rows.push_back(ToJson(section, row));
    }
    cli::PrintJson(json);
}

void PrintJson(const TableKind& kind, const std::string& from, const std::string& to,
               const std::vector<Change>& changes) {
    Json list = Json::array();
    for (const Change& change : changes) {
        const char* const what = change.sign == '-' ? "removed" : change.sign == '+' ? "added" : "changed";
        list.push_back({{"change", what}, {"section", change.section}, {"key", change.key}, {"values", change.values}});
    }
    cli::PrintJson({{"kind", kind.name}, {"from", from}, {"to", to}, {"changes", list}});
}

void PrintJson(const std::string& table, const std::vector<std::string>& drawings, const NameCover& cover) {
    const auto record = [&](const TableRow* row) {
        if (!row) return Json();
        Json json = ToJson(*cover.section, *row->values);
        json["line"] = LineOf(row->line);
        return json;
    };
    Json names = Json::array(), unused = Json::array();
    for (const NameCover::Name& name : cover.names)
        names.push_back({{"name", name.text},
                         {"count", name.count},
                         {"covered", !name.byDefault && name.row},
                         {"record", record(name.row)}});
    for (const TableRow* row : cover.unused) unused.push_back(record(row));
    cli::PrintJson({{"kind", cover.kind->name},
                    {"table", table},
                    {"drawings", drawings},
                    {"names", names},
                    {"notCovered", cover.notCovered},
                    {"unused", unused}});
}

}  // namespace kirotable
