// Texts for many cells at once: pasted, filled down, counted up. All of them are checked before one is there to stay.
#include <algorithm>
#include <unordered_map>

#include "text/TextFormat.h"
#include "ui/Grid.h"
#include "ui/GridBlock.h"
#include "ui/MessageBoxes.h"
#include "ui/Text.h"

namespace kiro::ui {
namespace {

constexpr std::size_t kMostPasted = std::size_t{1} << 22;  // UTF-16 units
constexpr int kLongestCell = 2048;                         // bytes
constexpr int kLongestReason = 200;
constexpr char kNoText[] = "クリップボードに文字がありません。";

// None: there is no text, or another program has the clipboard.
std::optional<std::wstring> ClipboardText(HWND owner) {
    if (!OpenClipboard(owner)) return std::nullopt;
    std::optional<std::wstring> text;
    const HANDLE memory = GetClipboardData(CF_UNICODETEXT);
    if (const auto* units = memory ? static_cast<const wchar_t*>(GlobalLock(memory)) : nullptr) {
        try {
            text.emplace(units, wcsnlen(units, std::min(kMostPasted, GlobalSize(memory) / sizeof(wchar_t))));
        } catch (...) {
        }
        GlobalUnlock(memory);
    }
    CloseClipboard();
    return text;
}

// Where the host has shown its own.
std::string UsualReason(const GridColumn& column) {
    return column.numbers.Any() ? Formatted("%d～%d の番号ではありません。", column.numbers.first, column.numbers.last)
                                : std::string("この列には入れられない値です。");
}

// As a message may show it.
std::string Shown(const std::wstring& text) {
    const auto shown = ToSjis(std::wstring_view(text).substr(0, 40));
    return shown ? "「" + *shown + "」 " : "";
}

}  // namespace

// Where a text stands that is being given and one that was there, by column.
struct GridTexts {
    std::unordered_map<std::string, int> kept;
    std::unordered_map<std::string, int> written;
};

// What cells are to hold. What one cannot hold is bad, for a reason.
struct Grid::Filling {
    struct Cell {
        int row;
        int column;
        std::wstring text;
        std::string before = {};
        std::string reason = {};
        bool written = false;
        bool bad = false;
    };

    std::vector<Cell> cells;
    std::map<std::pair<int, int>, std::size_t> places;
    std::map<int, GridTexts> texts;
    int lost = 0;     // lines for which there is no room
    int skipped = 0;  // texts for cells that cannot be edited

    Cell* Written(int row, int column) {
        const auto found = places.find({row, column});
        return found != places.end() && cells[found->second].written ? &cells[found->second] : nullptr;
    }
    int Bad() const {
        return static_cast<int>(std::count_if(cells.begin(), cells.end(), [](const Cell& cell) { return cell.bad; }));
    }
    bool IsAny() const {
        return std::any_of(cells.begin(), cells.end(), [](const Cell& cell) { return cell.written; });
    }
};

// ---- Writing ----

void Grid::Want(Filling& filling, int row, int column, std::wstring text) const {
    if (column >= Columns()) return;
    if (columns_[static_cast<std::size_t>(column)].CanEdit() && control_->GetAvailableFlag(row, column)) {
        filling.cells.push_back({row, column, std::move(text)});
    } else {
        ++filling.skipped;
    }
}

// What its cell cannot take becomes bad; the rest is written.
void Grid::WriteWanted(Filling& filling) {
    for (std::size_t i = 0; i < filling.cells.size(); ++i) {
        Filling::Cell& cell = filling.cells[i];
        char taken[kLongestCell];
        char reason[kLongestReason];
        const auto* units = reinterpret_cast<const char16_t*>(cell.text.c_str());
        if (control_->TakesText(cell.row, cell.column, units, taken, sizeof taken, reason, sizeof reason)) {
            filling.places[{cell.row, cell.column}] = i;
            cell.written = true;
            cell.before = TextAt(cell.row, cell.column);
            Give(cell.row, cell.column, taken);
        } else {
            cell.bad = true;
            cell.reason = reason;
        }
    }
}

void Grid::Give(int row, int column, std::string text) {
    ReplaceText(row, column, std::move(text));
    if (changed_) changed_(row, column);
}

// The other row that has the same text: one that had it before, or one that is given it further up. None for a text
// that is not being given.
int Grid::Repeated(int row, int column) const {
    if (!filling_->Written(row, column)) return -1;
    GridTexts& texts = filling_->texts[column];
    if (texts.kept.empty() && texts.written.empty()) {
        for (int at = 0; at < Rows(); ++at)
            (filling_->Written(at, column) ? texts.written : texts.kept).try_emplace(TextAt(at, column), at);
    }
    const std::string& text = TextAt(row, column);
    if (const auto kept = texts.kept.find(text); kept != texts.kept.end()) return kept->second;
    const int first = texts.written.try_emplace(text, row).first->second;
    return first < row ? first : -1;
}

// A fault is that of a text that is being given, there or in the row that was checked. It goes back to what was there.
bool Grid::TakeBackBad(int row) {
    faults_.clear();
    ended_ = false;
    CheckRow(row);
    for (const GridFault& fault : faults_) {
        Filling::Cell* cell = filling_->Written(fault.row, fault.column);
        if (!cell) cell = filling_->Written(row, fault.column);
        if (!cell) continue;
        cell->written = false;
        cell->bad = true;
        cell->reason =
            fault.message.empty() ? UsualReason(columns_[static_cast<std::size_t>(cell->column)]) : fault.message;
        if (const auto texts = filling_->texts.find(cell->column); texts != filling_->texts.end()) {
            const auto given = texts->second.written.find(TextAt(cell->row, cell->column));
            if (given != texts->second.written.end() && given->second == cell->row) texts->second.written.erase(given);
            texts->second.kept.try_emplace(cell->before, cell->row);
        }
        Give(cell->row, cell->column, cell->before);
        if (beforeCheck_) beforeCheck_();
        return true;
    }
    return false;
}

void Grid::CheckWritten(Filling& filling) {
    filling_ = &filling;
    if (beforeCheck_) beforeCheck_();
    for (int row = 0; row < Rows(); ++row)
        while (TakeBackBad(row)) continue;
    filling_ = nullptr;
    faults_.clear();
    Changed();
}

// One step, or nothing when some of it is bad and the user does not want the rest. The preparation makes the rows that
// are needed and says what goes where; it is called once more when only the good part is wanted.
bool Grid::Fill(Filling& filling, const std::function<void(Filling&)>& prepare) {
    const auto [row, column] = Place();
    const auto run = [&] {
        Step step(*this);
        prepare(filling);
        WriteWanted(filling);
        CheckWritten(filling);
        return step.Done();
    };
    const bool made = run();
    Tell("");  // what the checks have said
    const int bad = filling.Bad();
    if (bad == 0 && filling.lost == 0) return filling.IsAny();
    if (made) {
        const auto step = history_.TakeBack();
        Toggle(*step, true);
    }
    GoTo(row, column);
    if (!WantsGoodOnes(filling)) return false;
    run();
    return true;
}

bool Grid::WantsGoodOnes(const Filling& filling) const {
    std::string text;
    if (filling.lost > 0) text += Formatted("表に入らない行が %d 行あります。\n", filling.lost);
    const auto first =
        std::find_if(filling.cells.begin(), filling.cells.end(), [](const Filling::Cell& cell) { return cell.bad; });
    if (first != filling.cells.end()) {
        text += Formatted("入れられない値が %d 個あります。最初の値は %d 行目の「%s」の列です。\n", filling.Bad(),
                          first->row + 1, columns_[static_cast<std::size_t>(first->column)].title);
        text += Shown(first->text) + first->reason + "\n";
    }
    const std::string caption = ToSjis(Window(dialog_.Handle()).WideText()).value_or("");
    if (!filling.IsAny()) {
        kiro::ui::Tell(dialog_.Handle(), text + "\n何も変更しませんでした。", caption);
        return false;
    }
    return Ask(dialog_.Handle(), text + "\n入れられる値だけを入れますか。\n（「いいえ」では何も変わりません。）",
               caption, Icon::kWarning, Default::kNo);
}

// Until something else is done.
void Grid::MarkBad(const Filling& filling) {
    for (const Filling::Cell& cell : filling.cells) {
        if (!cell.bad) continue;
        control_->SetErrorFlag(cell.row, cell.column, 1);
        refused_.insert({cell.row, cell.column});
    }
    control_->DrawItem();
}

// ---- The clipboard ----

// From a row on, as they are seen. New ones are added where that can be.
std::vector<int> Grid::RowsFrom(int first, int count) {
    const auto seen = [&] {
        std::vector<int> rows;
        for (int row = first; row >= 0 && row < Rows() && static_cast<int>(rows.size()) < count;
             row = control_->GetNextRow(row))
            rows.push_back(row);
        return rows;
    };
    std::vector<int> rows = seen();
    const int missing = std::min(count - static_cast<int>(rows.size()), control_->GetRoom());
    if (!menu_ || missing <= 0) return rows;
    const int at = menu_->addAboveLast && Rows() > 0 ? Rows() - 1 : Rows();
    if (!InsertRows(at, missing)) return rows;
    RowsChanged(at);
    return seen();
}

void Grid::Paste() {
    const auto text = ClipboardText(List());
    if (!text || text->empty()) return control_->ErrorText(kNoText);
    const GridBlock block = ReadGridBlock(*text);
    const auto [row, column] = Start();
    int left = 0;
    int right = 0;
    control_->GetSelectedColumns(&left, &right);
    const std::vector<int> selected = SelectedRows();
    const bool fillsAll = selected.size() > block.size() && selected.size() % block.size() == 0;
    const std::size_t height = fillsAll ? selected.size() : block.size();
    std::size_t width = 0;
    for (const auto& line : block) width = std::max(width, line.size());
    const int top = selected.empty() ? row : selected.front();
    const int from = selected.empty() ? column : left;
    // A column of texts fills all columns that are selected when they are the same for each.
    const std::size_t columns = width == 1 && right > left ? static_cast<std::size_t>(right - left + 1) : width;
    std::vector<int> rows;
    Filling filling;
    const bool pasted = Fill(filling, [&](Filling& fill) {
        const Filling before = std::exchange(fill, {});
        rows = RowsFrom(top, static_cast<int>(height));
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const auto& line = block[i % block.size()];
            for (std::size_t at = 0; at < columns; ++at) {
                if (width > 1 && at >= line.size()) continue;
                Want(fill, rows[i], from + static_cast<int>(at), line[width == 1 ? 0 : at]);
            }
        }
        fill.lost = static_cast<int>(height - rows.size());
    });
    if (!pasted) return;
    const int last = std::min(from + static_cast<int>(columns), Columns()) - 1;
    control_->SelectCells(rows.front(), from, rows.back(), last);
    MarkBad(filling);
    TellDone("%d 行に貼り付けました。", static_cast<int>(rows.size()), filling);
}

void Grid::TellDone(const char* format, int rows, const Filling& filling) const {
    std::string text = Formatted(format, rows);
    if (const int bad = filling.Bad()) text += Formatted("入れなかった値 %d 個に印を付けました。", bad);
    if (filling.skipped > 0) text += "編集できない列の値は除きました。";
    Tell(text.c_str());
}

// Where there is no current cell: the first one that can be edited.
GridHistory::Place Grid::Start() const {
    const auto place = Place();
    return place.first < 0 ? GridHistory::Place{0, FirstColumnToEdit(0)} : place;
}

// The column of names: the first one that is typed and has no numbers.
int Grid::NameColumn() const {
    for (int column = 0; column < Columns(); ++column) {
        const GridColumn& of = columns_[static_cast<std::size_t>(column)];
        if (of.typed && !of.isNumber && !of.numbers.Any()) return column;
    }
    return -1;
}

void Grid::PasteNames() {
    const auto text = ClipboardText(List());
    const int column = NameColumn();
    if (column < 0) return control_->ErrorText("この表には名前の列がありません。");
    if (!text || text->empty()) return control_->ErrorText(kNoText);
    std::vector<std::wstring> names;
    for (auto& line : ReadGridBlock(*text))
        if (line[0].find_first_not_of(L" \u3000") != std::wstring::npos) names.push_back(std::move(line[0]));
    int at = 0;
    Filling filling;
    const bool pasted = Fill(filling, [&](Filling& fill) {
        std::size_t index = 0;
        // A name that is not good gets no row.
        if (!fill.cells.empty()) std::erase_if(names, [&](const std::wstring&) { return fill.cells[index++].bad; });
        const int lost = std::exchange(fill, {}).lost;
        const auto count = std::min(static_cast<int>(names.size()), control_->GetRoom());
        fill.lost = lost + static_cast<int>(names.size()) - count;
        names.resize(static_cast<std::size_t>(count));
        at = menu_->addAboveLast && Rows() > 0 ? Rows() - 1 : Rows();
        if (count <= 0 || !InsertRows(at, count)) return;
        RowsChanged(at);
        for (int i = 0; i < count; ++i) Want(fill, at + i, column, names[static_cast<std::size_t>(i)]);
    });
    if (!pasted) return;
    control_->SelectCells(at, column, at + static_cast<int>(names.size()) - 1, column);
    control_->DrawItem();
    TellDone("%d 行を追加しました。", static_cast<int>(names.size()), filling);
}

// ---- Filling ----

// The first of the selected texts in all below it; where one row is selected, the text above it.
void Grid::FillDown() {
    std::vector<int> rows = SelectedRows();
    int left = 0;
    int right = 0;
    control_->GetSelectedColumns(&left, &right);
    if (rows.size() == 1) {
        int above = 0;
        while (above < Rows() && control_->GetNextRow(above) != rows[0]) ++above;
        if (above == Rows()) rows.clear();
        rows.insert(rows.begin(), above);
    }
    if (rows.size() < 2) return control_->ErrorText("上に値がありません。");
    FillRows(
        rows, left, right, [&](int column, int) { return ToWide(TextAt(rows[0], column)); }, 1);
}

void Grid::CountUp() {
    const std::vector<int> rows = SelectedRows();
    int left = 0;
    int right = 0;
    control_->GetSelectedColumns(&left, &right);
    if (rows.size() < 3) return control_->ErrorText("はじめの 2 行と続きの行を選択してください。");
    std::map<int, GridSeries> series;
    for (int column = left; column <= right; ++column) {
        if (!columns_[static_cast<std::size_t>(column)].CanEdit()) continue;
        const auto of = GridSeries::From(TextAt(rows[0], column), TextAt(rows[1], column));
        if (of) series.emplace(column, *of);
    }
    if (series.empty()) return control_->ErrorText("はじめの 2 行が番号ではないので、続けられません。");
    FillRows(
        rows, left, right,
        [&](int column, int index) -> std::optional<std::wstring> {
            const auto found = series.find(column);
            if (found == series.end()) return std::nullopt;
            return ToWide(found->second.At(index));
        },
        2);
}

void Grid::FillRows(const std::vector<int>& rows, int left, int right,
                    const std::function<std::optional<std::wstring>(int column, int index)>& text, int first) {
    Filling filling;
    const bool filled = Fill(filling, [&](Filling& fill) {
        fill = {};
        for (int index = first; index < static_cast<int>(rows.size()); ++index)
            for (int column = left; column <= right; ++column)
                if (auto given = text(column, index))
                    Want(fill, rows[static_cast<std::size_t>(index)], column, std::move(*given));
    });
    if (!filled) return;
    control_->SelectCells(rows.front(), left, rows.back(), right);
    MarkBad(filling);
    TellDone("%d 行に入れました。", static_cast<int>(rows.size()) - first, filling);
}

}  // namespace kiro::ui
