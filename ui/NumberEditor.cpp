#include "ui/NumberEditor.h"

#include <algorithm>

#include "text/Numbers.h"

namespace kiro::ui {

NumberEditor::NumberEditor(const GridForm& form, const NumberRule& rule, std::span<std::int32_t> numbers,
                           const std::vector<std::string>& labels)
    : GridEditor(form), rule_(rule), numbers_(numbers), column_(static_cast<int>(form.columns.size()) - 1) {
    std::size_t row = 0;
    for (const std::int32_t number : numbers) {
        GridRow<3> cells;
        if (row < labels.size()) cells[1] = labels[row];
        cells[column_] = std::to_string(rule.byHost ? number : std::max(number, rule.low));
        rows_.Add(std::move(cells));
        ++row;
    }
}

void NumberEditor::CheckRow(const RowCheck& check) {
    if (rule_.byHost) {
        check.ByHost(column_, rule_.byHost);
    } else {
        check.Integer(column_, rule_.low, rule_.high, rule_.message);
    }
}

void NumberEditor::Store() {
    auto number = numbers_.begin();
    for (const GridRow<3>& row : rows_) *number++ = ReadInteger(row[column_]).value_or(0);
}

}  // namespace kiro::ui
