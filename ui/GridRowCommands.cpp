// Rows that come and go, and what is undone and redone.
#include <algorithm>
#include <utility>

#include "resources/grid.ids.h"
#include "ui/Grid.h"
#include "ui/Text.h"

namespace kiro::ui {

// ---- What the control asks for ----

bool Grid::Serve(int request) {
    history_.EndLoose();
    refused_.clear();
    Unfade();
    switch (request) {
        case kKrAskPaste:
            return Paste(), true;
        case kKrAskPasteNames:
            return menu_ && (PasteNames(), true);
        case kKrAskUndo:
            return Undo(), true;
        case kKrAskRedo:
            return Redo(), true;
        case kKrAskInsertRow:
            return menu_ && (RowCommand(kInsertRowCommand), true);
        case kKrAskDeleteRows:
            return menu_ && (RowCommand(kDeleteRowCommand), true);
        case kKrAskAddRow:
            return AddRowBelow();
        case kKrAskFillDown:
            return FillDown(), true;
        case kKrAskCountUp:
            return CountUp(), true;
        case kKrAskKeys:
            return ShowKeys(), true;
        case kKrAskUsedNames:
            return addUsed_ && (addUsed_(), true);
        default:
            return false;
    }
}

void Grid::RowCommand(UINT command) {
    Unfade();
    switch (command) {
        case kAddRowCommand:
            AddRow(false);
            break;
        case kInsertRowCommand:
            AddRow(true);
            break;
        case kDeleteRowCommand:
            DeleteRows();
            break;
        default:
            break;
    }
    control_->DrawItem();
    SetFocus(List());
}

void Grid::ShowKeys() const {
    // Two tabs behind a short key: the texts then begin at the same place in any font.
    std::string text = marks_ == kKrSelectMultiple ? "Space\t\t行に印を付ける、消す\n"
                                                     "Shift+矢印\t続けて行に印を付ける\n"
                                                     "Ctrl+A\t\tすべてのセルを選択（ドラッグで一部）\n"
                                                   : "Shift+矢印\tセルを選択（ドラッグでも）\n"
                                                     "Ctrl+Shift+Home、End\n\t\t表の左上、右下まで選択\n"
                                                     "Ctrl+A\t\tすべてのセルを選択\n";
    text +=
        "Ctrl+C\t\tコピー\n"
        "Ctrl+V\t\t貼り付け\n"
        "Ctrl+Z\t\t元に戻す\n"
        "Ctrl+Y\t\tやり直す\n"
        "Ctrl+D\t\t下へ同じ値\n"
        "Ctrl+R\t\t続きの番号\n"
        "Ctrl+F\t\t検索\n"
        "F3\t\t次を検索\n"
        "Ctrl+Shift+L\t列の順に表示（見出しのクリックでも）\n"
        "F2\t\tセルを編集\n"
        "F4\t\t選択肢を開く\n";
    if (menu_)
        text +=
            "Ins\t\t行を挿入\n"
            "Del\t\t行を削除\n";
    if (menu_ && !menu_->addAboveLast) text += "Enter、Tab\t最後のセルで、行を追加\n";
    if (menu_ && NameColumn() >= 0) text += "Ctrl+Shift+V\t名前だけを新しい行に貼り付け\n";
    if (addUsed_) text += "F8\t\t図面にある名前の行を追加\n";
    MessageBoxW(dialog_.Handle(), ToWide(text).c_str(), L"表のキー操作", MB_OK | MB_ICONINFORMATION);
    SetFocus(List());
}

// ---- Rows ----

bool Grid::InsertRows(int at, int count) {
    if (control_->InsertRows(at, count) != count) return false;
    rows_.Insert(at, count);
    Record({.row = at, .count = count, .text = {}, .kept = nullptr, .flags = {}});
    for (int row = at; row < at + count; ++row) ShowRow(row);
    return true;
}

void Grid::TakeRows(int at, int count) {
    GridChange change{.row = at, .count = count, .text = {}, .kept = nullptr, .flags = FlagsOf(at, count)};
    control_->DeleteRows(at, count);
    change.kept = rows_.Take(at, count);
    Record(std::move(change));
}

void Grid::AddRow(bool insert) {
    if (insert && CurrentRow() >= 0 && CurrentRow() < menu_->fixedRows)
        return control_->ErrorText("ここには挿入できません。");
    const bool aboveLast = !insert && menu_->addAboveLast && Rows() > 0;
    if (aboveLast) control_->ClearSelectFlag();
    const int row = aboveLast ? Rows() - 1 : insert && CurrentRow() >= 0 ? CurrentRow() : Rows();
    if (row == Rows() && LastRowIsUnused()) return KeepUnusedRow(), GoTo(row - 1, FirstColumnToEdit(row - 1));
    const Step step(*this);
    if (!InsertRows(row, 1)) return control_->ErrorText("これ以上追加できません。");
    GoTo(row, FirstColumnToEdit(row));
    RowsChanged(row);
}

// Enter or Tab behind the last cell. One row that is not used is enough.
bool Grid::AddRowBelow() {
    if (!menu_ || menu_->addAboveLast || Rows() == 0) return false;
    if (LastRowIsUnused()) return true;
    const Step step(*this);
    const int row = Rows();
    if (!InsertRows(row, 1)) return control_->ErrorText("これ以上追加できません。"), true;
    unused_ = TextsOf(row);
    GoTo(row, FirstColumnToEdit(row));
    RowsChanged(row);
    return true;
}

bool Grid::LastRowIsUnused() const { return !unused_.empty() && Rows() > 0 && unused_ == TextsOf(Rows() - 1); }

std::vector<std::string> Grid::TextsOf(int row) const {
    std::vector<std::string> texts;
    for (int column = numbered_ ? 1 : 0; column < Columns(); ++column) texts.push_back(TextAt(row, column));
    return texts;
}

void Grid::KeepUnusedRow() {
    if (unused_.empty()) return;
    unused_.clear();
    Changed();
}

void Grid::DropUnusedRow() {
    if (!LastRowIsUnused()) return;
    unused_.clear();
    const Step step(*this);
    TakeRows(Rows() - 1, 1);
    RowsChanged(Rows());
}

std::vector<int> Grid::SelectedRows() const {
    std::vector<int> rows(static_cast<std::size_t>(control_->GetSelectedRows(nullptr, 0)));
    control_->GetSelectedRows(rows.data(), static_cast<int>(rows.size()));
    return rows;
}

// All of them or none.
void Grid::DeleteRows() {
    std::vector<int> rows = SelectedRows();
    if (rows.empty()) return;
    std::sort(rows.begin(), rows.end());
    if (rows.front() < menu_->fixedRows) return control_->ErrorText("削除できません。");
    if (menu_->mayDelete && !std::all_of(rows.begin(), rows.end(), menu_->mayDelete)) return;
    if (rows.back() == Rows() - 1) KeepUnusedRow();
    const Step step(*this);
    // The last ones first, and neighbours together.
    for (std::size_t end = rows.size(); end > 0;) {
        std::size_t begin = end - 1;
        while (begin > 0 && rows[begin - 1] == rows[begin] - 1) --begin;
        TakeRows(rows[begin], static_cast<int>(end - begin));
        end = begin;
    }
    RowsChanged(rows.front());
}

bool Grid::AddNames(int column, const std::vector<std::string>& names) {
    const Step step(*this);
    DropUnusedRow();
    const int at = Rows();
    if (names.empty() || !InsertRows(at, static_cast<int>(names.size()))) return false;
    for (std::size_t i = 0; i < names.size(); ++i) Give(at + static_cast<int>(i), column, names[i]);
    GoTo(at, column);
    RowsChanged(at);
    control_->DrawItem();
    return true;
}

void Grid::Fade(const std::vector<int>& rows) {
    Unfade();
    faded_ = rows;
    for (const int row : faded_)
        for (int column = 0; column < Columns(); ++column) control_->SetFadedFlag(row, column, 1);
    control_->DrawItem();
}

// Before rows come or go: they are known by their numbers.
void Grid::Unfade() {
    if (faded_.empty()) return;
    for (const int row : std::exchange(faded_, {}))
        for (int column = 0; column < Columns(); ++column) control_->SetFadedFlag(row, column, 0);
    control_->DrawItem();
}

void Grid::RowsChanged(int from) {
    Changed();
    Number(from);
    if (menu_ && menu_->rowsMoved) menu_->rowsMoved(from);
}

// ---- The history ----

// While the dialog is filled nothing is the user's.
bool Grid::Records() const { return IsWindowVisible(dialog_.Handle()) != FALSE && !toggling_; }

void Grid::Record(GridChange change) {
    if (Records()) history_.Add(std::move(change), Place());
}

void Grid::ReplaceText(int row, int column, std::string text) {
    std::string& held = rows_.Text(row, column);
    std::swap(held, text);
    control_->SetItemText(row, column, held.c_str());
    if (held == text || !columns_[static_cast<std::size_t>(column)].CanEdit()) return;
    Record({.row = row, .column = column, .text = std::move(text), .kept = nullptr, .flags = {}});
}

void Grid::ForgetHistory() {
    history_.Forget();
    refused_.clear();
    unused_.clear();
}

void Grid::ExchangeHistory(GridHistory& other) {
    std::swap(history_, other);
    refused_.clear();
    unused_.clear();
}

void Grid::Undo() {
    GridStep* const step = history_.Undo();
    if (!step) return Tell("これより前には戻せません。");
    Toggle(*step, true);
    const auto [row, column] = step->before;
    GoTo(std::min(row, Rows() - 1), column);
    Tell("元に戻しました。");
}

void Grid::Redo() {
    GridStep* const step = history_.Redo();
    if (!step) return Tell("やり直す操作はありません。");
    Toggle(*step, false);
    const auto [row, column] = step->after;
    GoTo(std::min(row, Rows() - 1), column);
    Tell("やり直しました。");
}

void Grid::Toggle(GridStep& step, bool reverse) {
    std::vector<GridChange>& changes = step.changes;
    toggling_ = true;
    int from = Rows();
    bool rows = false;
    const auto toggle = [&](GridChange& change) {
        if (change.column >= 0) return ToggleText(change);
        rows = true;
        from = std::min(from, change.row);
        ToggleRows(change);
    };
    if (reverse) {
        std::for_each(changes.rbegin(), changes.rend(), toggle);
    } else {
        std::for_each(changes.begin(), changes.end(), toggle);
    }
    Changed();
    if (rows) RowsChanged(std::min(from, Rows()));
    toggling_ = false;
    control_->DrawItem();
}

void Grid::ToggleText(GridChange& change) {
    std::swap(rows_.Text(change.row, change.column), change.text);
    control_->SetItemText(change.row, change.column, TextAt(change.row, change.column).c_str());
    control_->SetErrorFlag(change.row, change.column, 0);
    if (changed_) changed_(change.row, change.column);
}

void Grid::ToggleRows(GridChange& change) {
    if (!change.kept) {
        change.flags = FlagsOf(change.row, change.count);
        control_->DeleteRows(change.row, change.count);
        change.kept = rows_.Take(change.row, change.count);
        return;
    }
    control_->InsertRows(change.row, change.count);
    rows_.Put(change.row, std::move(change.kept));
    for (int row = change.row; row < change.row + change.count; ++row) ShowRow(row);
    for (const GridChange::Flag& flag : change.flags)
        control_->SetAvailableFlag(change.row + flag.row, flag.column, flag.available);
}

// Which cells can be edited though their column cannot, or the other way round.
std::vector<GridChange::Flag> Grid::FlagsOf(int at, int count) const {
    std::vector<GridChange::Flag> flags;
    for (int column = 0; column < Columns(); ++column) {
        const int usual = control_->GetAvailableFlag(-1, column);
        for (int row = 0; row < count; ++row) {
            const int available = control_->GetAvailableFlag(at + row, column);
            if (available != usual) flags.push_back({row, column, available});
        }
    }
    return flags;
}

}  // namespace kiro::ui
