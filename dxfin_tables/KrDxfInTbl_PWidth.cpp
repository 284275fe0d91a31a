#include "dxfin_tables/KrDxfInTbl_PWidth.h"

#include <algorithm>

#include "dxfin_tables/EditorTexts.h"
#include "dxfin_tables/LineWeights.h"
#include "resources/dxfin_tables/KrDxfInTbl_PWidth.ids.h"

namespace {

enum Column { kRowColumn, kWidthColumn, kWeightColumn };

constexpr int kMostRows = 50;
constexpr double kLargestWidth = 999.0;

}  // namespace

KrDxfInTbl_PWidth::KrDxfInTbl_PWidth(DxfInLineTable& table) : GridEditor(kDxfInPolyWidthGridDialog), table_(table) {}

// A table that a file has filled to the end has a row more.
kiro::ui::GridEditor::Shape KrDxfInTbl_PWidth::Form() const {
    return {"ポリラインの線幅割当て", "線種割当て", std::max(kMostRows, RowCount()), true, 0, true};
}

std::vector<kiro::ui::GridColumn> KrDxfInTbl_PWidth::Columns() const {
    return {{"番号", 3.0}, {"線幅", 4.0, 10, "ポリラインの線幅を入力して下さい。"}, LineWeightColumn(3.0)};
}

void KrDxfInTbl_PWidth::FillRow(int row) {
    if (row < table_.polyWidthCount) {
        SetTextAt(row, kWidthColumn, NumberText(table_.polyWidths[row].widthStart));
        SetTextAt(row, kWeightColumn, std::to_string(table_.polyWidthWeight[row]));
        return;
    }
    if (row > 0) SetTextAt(row, kWidthColumn, NumberText(table_.polyWidths[row - 1].widthEnd));
    Grid().SetAvailableFlag(row, kWeightColumn, 0);
}

void KrDxfInTbl_PWidth::FillNewRow(int row) { SetTextAt(row, kWeightColumn, "1"); }

// Only the last row has no weight.
void KrDxfInTbl_PWidth::RowsMoved() {
    const int last = Rows() - 1;
    for (int row = 0; row <= last; ++row) {
        const bool wasLast = !Grid().GetAvailableFlag(row, kWeightColumn);
        if (wasLast == (row == last)) continue;
        SetTextAt(row, kWeightColumn, wasLast ? "1" : "");
        Pass(row, kWeightColumn);
        Grid().SetAvailableFlag(row, kWeightColumn, wasLast);
    }
}

std::optional<double> KrDxfInTbl_PWidth::WidthAt(int row) const {
    const std::string text = TextAt(row, kWidthColumn);
    if (!Utility().CheckNumber(text.c_str(), kKrReal, 0.0, kLargestWidth)) return std::nullopt;
    return RealOf(text) + 0.0;  // "-0" is 0
}

void KrDxfInTbl_PWidth::BeforeCheck() {
    rowsOfWidth_.clear();
    for (int row = 0; row < Rows(); ++row) {
        if (const auto width = WidthAt(row)) ++rowsOfWidth_[*width];
    }
}

bool KrDxfInTbl_PWidth::CheckRow(int row) {
    const std::string text = TextAt(row, kWidthColumn);
    if (text.empty()) return Fail(row, kWidthColumn, Formatted("線幅が入力されていません %d", row + 1));
    const auto width = WidthAt(row);
    // The message deliberately excludes both ends, which are accepted.
    if (!width) {
        return Fail(row, kWidthColumn, Formatted("無効な線幅です（0.0＜線幅＜999.0） %d : %s", row + 1, text));
    }
    if (rowsOfWidth_[*width] > 1) {
        return Fail(row, kWidthColumn, Formatted("線幅が重複しています %d : %s", row + 1, text));
    }
    if (row > 0 && *width < WidthAt(row - 1)) {
        return Fail(row, kWidthColumn, Formatted("線幅が1つ前より小さい値になってます %d : %s", row + 1, text));
    }
    Pass(row, kWidthColumn);
    return row == Rows() - 1 || CheckInteger(row, kWeightColumn, 1, kDxfInLargestWeight, kBadLineWeight);
}

void KrDxfInTbl_PWidth::Store() {
    const int ranges = std::clamp(Rows() - 1, 0, kDxfInPolyWidths);
    for (int row = 0; row < ranges; ++row) {
        table_.polyWidths[row] = {WidthAt(row).value_or(0.0), WidthAt(row + 1).value_or(0.0), 0.0};
        table_.polyWidthWeight[row] = NumberAt(row, kWeightColumn);
    }
    table_.polyWidthCount = ranges;
}
