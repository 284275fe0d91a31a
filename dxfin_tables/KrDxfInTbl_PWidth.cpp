#include "dxfin_tables/KrDxfInTbl_PWidth.h"

#include <algorithm>

#include "dxfin_tables/LineWeights.h"
#include "resources/dxfin_tables/KrDxfInTbl_PWidth.ids.h"
#include "text/NumberText.h"

namespace {

enum Column { kRowColumn, kWidthColumn, kWeightColumn };

constexpr int kMostRows = 50;
constexpr double kLargestWidth = 999.0;

constexpr kiro::ui::GridColumn kColumns[] = {
    {"番号", 3.0}, kiro::ui::OfNumbers({"線幅", 4.0, 10, "ポリラインの線幅を入力して下さい。"}), LineWeightColumn(3.0)};

// A table that a file has filled to the end has a row more.
kiro::ui::GridForm FormOf(const DxfInLineTable& table) {
    kiro::ui::GridForm form = {
        kDxfInPolyWidthGridDialog, "ポリラインの線幅割当て", "線種割当て", kColumns, kMostRows, true};
    form.limit = std::max(kMostRows, table.polyWidthCount + 1);
    form.addAboveLast = true;
    return form;
}

}  // namespace

DxfInBoundaryRow DxfInBoundaryRow::New() {
    DxfInBoundaryRow row;
    row[kWeightColumn] = "1";
    return row;
}

KrDxfInTbl_PWidth::KrDxfInTbl_PWidth(DxfInLineTable& table) : GridEditor(FormOf(table)), table_(table) {
    const int ranges = table.polyWidthCount;
    for (int range = 0; range < ranges; ++range) {
        DxfInBoundaryRow row;
        row[kWidthColumn] = NumberText(table.polyWidths[range].widthStart);
        row[kWeightColumn] = std::to_string(table.polyWidthWeight[range]);
        rows_.Add(std::move(row));
    }
    DxfInBoundaryRow end;
    if (ranges > 0) end[kWidthColumn] = NumberText(table.polyWidths[ranges - 1].widthEnd);
    rows_.Add(std::move(end));
}

void KrDxfInTbl_PWidth::Dress() { Grid().Control().SetAvailableFlag(Grid().Rows() - 1, kWeightColumn, 0); }

// Only the last row has no weight.
void KrDxfInTbl_PWidth::RowsMoved() {
    const int last = Grid().Rows() - 1;
    for (int row = 0; row <= last; ++row) {
        const bool wasLast = !Grid().Control().GetAvailableFlag(row, kWeightColumn);
        if (wasLast == (row == last)) continue;
        Grid().SetTextAt(row, kWeightColumn, wasLast ? "1" : "");
        Grid().Control().SetErrorFlag(row, kWeightColumn, 0);
        Grid().Control().SetAvailableFlag(row, kWeightColumn, wasLast);
    }
}

std::optional<double> KrDxfInTbl_PWidth::WidthAt(int row) const {
    const std::string& text = rows_[row][kWidthColumn];
    if (!Utility().CheckNumber(text.c_str(), kKrReal, 0.0, kLargestWidth)) return std::nullopt;
    return RealOf(text) + 0.0;  // "-0" is 0
}

void KrDxfInTbl_PWidth::BeforeCheck() {
    rowsOfWidth_.clear();
    for (int row = 0; row < rows_.Count(); ++row) {
        if (const auto width = WidthAt(row)) ++rowsOfWidth_[*width];
    }
}

void KrDxfInTbl_PWidth::CheckRow(const kiro::ui::RowCheck& check) {
    const int row = check.Row();
    const std::string& text = check.Text(kWidthColumn);
    const auto fail = [&](const char* message) { check.Fail(kWidthColumn, Formatted(message, row + 1, text)); };
    if (!check.Given(kWidthColumn, "線幅が入力されていません %d")) return;
    const auto width = WidthAt(row);
    // The message deliberately excludes both ends, which are accepted.
    if (!width) return fail("無効な線幅です（0.0＜線幅＜999.0） %d : %s");
    if (rowsOfWidth_[*width] > 1) return fail("線幅が重複しています %d : %s");
    if (row > 0 && *width < WidthAt(row - 1)) return fail("線幅が1つ前より小さい値になってます %d : %s");
    if (row < rows_.Count() - 1) check.Integer(kWeightColumn, 1, kDxfInLargestWeight, kBadLineWeight);
}

void KrDxfInTbl_PWidth::Store() {
    const int ranges = std::clamp(rows_.Count() - 1, 0, kDxfInPolyWidths);
    for (int row = 0; row < ranges; ++row) {
        table_.polyWidths[row] = {WidthAt(row).value_or(0.0), WidthAt(row + 1).value_or(0.0), 0.0};
        table_.polyWidthWeight[row] = ReadInteger(rows_[row][kWeightColumn]).value_or(0);
    }
    table_.polyWidthCount = ranges;
}
