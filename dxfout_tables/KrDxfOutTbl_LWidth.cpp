#include "dxfout_tables/KrDxfOutTbl_LWidth.h"

#include <cmath>

#include "dxfout_tables/KrDxfOutTbl_Line.h"
#include "entry/host/kirodxf.h"
#include "resources/dxfout_tables/KrDxfOutTbl_LWidth.ids.h"
#include "text/NumberText.h"

namespace {

enum Column { kWeightColumn, kWidthColumn };

constexpr double kLargestWidth = 2.11;
constexpr char kBadWidth[] = "無効な線幅です  %d";

// Deliberately both columns have the same title.
constexpr kiro::ui::GridColumn kColumns[] = {{"線幅", 5.0},
                                             {"線幅", 5.0, 0, "", {}, "線幅を選択してください。", nullptr, true}};
constexpr kiro::ui::GridForm kForm = {kDxfOutLineWidthGridDialog, "線幅割当て", "線幅の割当て", kColumns,
                                      kDxfOutWeights};

std::int32_t HundredthsOf(double width) { return static_cast<std::int32_t>(std::floor(width * 100 + 0.5)); }

bool IsStandard(std::int32_t hundredths) {
    for (int i = 0; i < kDxfLineWidths; ++i)
        if (HundredthsOf(DxfGetLineWidth(i)) == hundredths) return true;
    return false;
}

}  // namespace

KrDxfOutTbl_LWidth::KrDxfOutTbl_LWidth() : GridEditor(kForm), table_(std::make_unique<DxfOutLineTable>()) {}

void KrDxfOutTbl_LWidth::SetInfo(KrDxfOutTbl_Line* hub) {
    hub_ = hub;
    hub->GetTable(table_.get());
    rows_.Clear();
    for (int weight = 1; weight <= kDxfOutWeights; ++weight)
        rows_.Add({{std::to_string(weight), NumberText(table_->lineWidth[weight] * 0.01)}});
}

void KrDxfOutTbl_LWidth::Dress() {
    std::vector<std::string> widths;
    for (int i = 0; i < kDxfLineWidths; ++i) widths.push_back(NumberText(DxfGetLineWidth(i)));
    Grid().SetChoices(kWidthColumn, widths);
}

void KrDxfOutTbl_LWidth::CheckRow(const kiro::ui::RowCheck& check) {
    if (check.Real(kWidthColumn, 0.0, kLargestWidth, kBadWidth) &&
        !IsStandard(HundredthsOf(RealOf(check.Text(kWidthColumn)))))
        check.Fail(kWidthColumn, Formatted(kBadWidth, check.Row() + 1));
}

// Weight 0 is not shown and keeps its width.
void KrDxfOutTbl_LWidth::Store() {
    int weight = 1;
    for (const kiro::ui::GridRow<2>& row : rows_) table_->lineWidth[weight++] = HundredthsOf(RealOf(row[kWidthColumn]));
    hub_->SetTable(table_.get());
}
