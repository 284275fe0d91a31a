#include "dxfin_tables/KrDxfInTbl_LWidth.h"

#include <algorithm>

#include "dxfin_tables/EditorTexts.h"
#include "dxfin_tables/LineWeights.h"
#include "resources/dxfin_tables/KrDxfInTbl_LWidth.ids.h"

namespace {

enum Column { kRowColumn, kWidthColumn, kWeightColumn };

}  // namespace

KrDxfInTbl_LWidth::KrDxfInTbl_LWidth(DxfInLineTable& table) : GridEditor(kDxfInLineWidthGridDialog), table_(table) {}

kiro::ui::GridEditor::Shape KrDxfInTbl_LWidth::Form() const {
    return {"線幅割当て", "線種割当て", kDxfInLineWidthCount, false};
}

std::vector<kiro::ui::GridColumn> KrDxfInTbl_LWidth::Columns() const {
    return {{"番号", 3.0}, {"線幅", 4.0}, LineWeightColumn(3.0)};
}

int KrDxfInTbl_LWidth::RowCount() const { return kDxfInLineWidthCount; }

void KrDxfInTbl_LWidth::FillRow(int row) {
    SetTextAt(row, kWidthColumn, NumberText(table_.lineWidthValue[row]));
    // A width without a weight is written with 1.
    SetTextAt(row, kWeightColumn, std::to_string(std::max(table_.lineWidthWeight[row], 1)));
}

bool KrDxfInTbl_LWidth::CheckRow(int row) {
    return CheckInteger(row, kWeightColumn, 1, kDxfInLargestWeight, kBadLineWeight);
}

void KrDxfInTbl_LWidth::Store() {
    for (int row = 0; row < kDxfInLineWidthCount; ++row) table_.lineWidthWeight[row] = NumberAt(row, kWeightColumn);
}
