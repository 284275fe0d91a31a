#include "peliondb/NameList.h"

#include <utility>

NameList::NameList(kiro::ui::HostDialog& dialog, int listId, kiro::ui::GridColumns column, std::function<void()> chosen)
    : grid_(dialog, listId, column, rows_), chosen_(std::move(chosen)) {
    grid_.OnCellMoved([this](int row, int) { Moved(row); });
}

void NameList::Init(int limit, const std::vector<std::string>& names, const NameList* parent) {
    SetRows(names);
    grid_.Init(limit);
    ShowAsChoices();
    if (parent) grid_.Control().SetParentList(&parent->grid_.Control());
}

void NameList::Fill(const std::vector<std::string>& names) {
    SetRows(names);
    grid_.ShowOthers();
    ShowAsChoices();
}

// Not as cells that cannot be edited.
void NameList::ShowAsChoices() const { grid_.Control().SetAvailableFlag(-1, 0, 1); }

void NameList::SetRows(const std::vector<std::string>& names) {
    row_ = -1;
    rows_.Clear();
    for (const std::string& name : names) {
        Row row;
        row[0] = name;
        rows_.Add(std::move(row));
    }
}

std::string NameList::Chosen() const { return HasChoice() ? rows_[grid_.CurrentRow()][0] : std::string(); }

void NameList::Choose(const std::string& name) {
    for (int row = 0; row < rows_.Count(); ++row) {
        if (rows_[row][0] != name) continue;
        grid_.GoTo(row, 0);
        row_ = row;
        return;
    }
}

void NameList::Moved(int row) {
    int clicked = -1;
    int column = -1;
    grid_.Control().GetClickItem(&clicked, &column);
    // A click beside the names chooses nothing.
    if (row < 0 || (row == row_ && clicked != row)) return;
    row_ = row;
    chosen_();
}
