#include "dxfin_tables/KrDxfInTbl_CWidth.h"

#include "dxfin_tables/LineWeights.h"
#include "resources/dxfin_tables/KrDxfInTbl_CWidth.ids.h"

namespace {

constexpr int kWeightColumn = 1;
constexpr int kShownColors = 255;  // 1 to 255; 0 and 256 stay as they are

}  // namespace

KrDxfInTbl_CWidth::KrDxfInTbl_CWidth(DxfInLineTable& table) : GridEditor(kDxfInColorWidthGridDialog), table_(table) {}

// The caption of the refusal is deliberately that of the line types, here and in the other editors of line widths.
kiro::ui::GridEditor::Shape KrDxfInTbl_CWidth::Form() const {
    return {"色の線幅割当て", "線種割当て", kShownColors, false};
}

std::vector<kiro::ui::GridColumn> KrDxfInTbl_CWidth::Columns() const {
    return {{"色番号", 5.0}, LineWeightColumn(5.0)};
}

int KrDxfInTbl_CWidth::RowCount() const { return kShownColors; }

void KrDxfInTbl_CWidth::FillRow(int row) { SetTextAt(row, kWeightColumn, std::to_string(table_.colorWeight[row + 1])); }

bool KrDxfInTbl_CWidth::CheckRow(int row) {
    return CheckInteger(row, kWeightColumn, 1, kDxfInLargestWeight, kBadLineWeight);
}

void KrDxfInTbl_CWidth::Store() {
    for (int row = 0; row < kShownColors; ++row) table_.colorWeight[row + 1] = NumberAt(row, kWeightColumn);
}
