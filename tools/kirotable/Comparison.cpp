#include "Comparison.h"

#include <charconv>
#include <deque>
#include <map>

#include "tools/cli/Text.h"

namespace kirotable {

namespace {

using Row = std::vector<Value>;

template <class T>
std::string Digits(T number) {
    char digits[400];
    return std::string(digits, std::to_chars(digits, digits + sizeof digits, number).ptr);
}

std::string ValuesOf(const Section& section, const Row& row) {
    std::string text;
    for (std::size_t i = section.keys; i < row.size(); ++i) {
        if (!text.empty()) text += ", ";
        text += section.columns[i];
        text += " = " + TextOf(row[i]);
    }
    return text;
}

std::string DifferencesOf(const Section& section, const Row& from, const Row& to) {
    std::string text;
    for (std::size_t i = section.keys; i < from.size(); ++i) {
        if (from[i] == to[i]) continue;
        if (!text.empty()) text += ", ";
        text += section.columns[i];
        text += " " + TextOf(from[i]) + " -> " + TextOf(to[i]);
    }
    return text;
}

void CompareRows(const Section& from, const Section& to, std::vector<Change>& changes) {
    std::map<std::string, std::deque<const Row*>> rows;
    for (const Row& row : to.rows) rows[KeyOf(to, row)].push_back(&row);
    for (const Row& row : from.rows) {
        const std::string key = KeyOf(from, row);
        auto& twins = rows[key];
        if (twins.empty()) {
            changes.push_back({'-', from.name, key, ValuesOf(from, row)});
            continue;
        }
        const std::string differences = DifferencesOf(from, row, *twins.front());
        if (!differences.empty()) changes.push_back({'~', from.name, key, differences});
        twins.pop_front();
    }
    for (const Row& row : to.rows) {
        const std::string key = KeyOf(to, row);
        auto& left = rows[key];
        if (left.empty() || left.front() != &row) continue;
        changes.push_back({'+', to.name, key, ValuesOf(to, row)});
        left.pop_front();
    }
}

}  // namespace

std::string TextOf(const Value& value) {
    switch (value.type) {
        case Value::Type::kInteger:
            return Digits(value.integer);
        case Value::Type::kReal:
            return Digits(value.real);
        case Value::Type::kText:
            return value.text;
        case Value::Type::kList:
            break;
    }
    std::string text;
    for (const Value& item : value.list) text += (text.empty() ? "" : ",") + TextOf(item);
    return text;
}

std::string TextOf(const Change& change) {
    std::string text = {change.sign, ' '};
    text += change.section;
    text += change.key.empty() ? "" : " " + change.key;
    return cli::Printable(text + ": " + change.values);
}

std::string KeyOf(const Section& section, const std::vector<Value>& row) {
    std::string key;
    for (std::size_t i = 0; i < section.keys; ++i) key += (i == 0 ? "" : "-") + TextOf(row[i]);
    return key;
}

std::vector<Change> Compare(const TableView& from, const TableView& to) {
    std::vector<Change> changes;
    for (std::size_t i = 0; i < from.fields.size(); ++i) {
        const auto& [name, old] = from.fields[i];
        const Value& now = to.fields[i].second;
        if (old != now) changes.push_back({'~', name, "", TextOf(old) + " -> " + TextOf(now)});
    }
    for (std::size_t i = 0; i < from.sections.size(); ++i)
        if (!from.sections[i].derived) CompareRows(from.sections[i], to.sections[i], changes);
    return changes;
}

}  // namespace kirotable
