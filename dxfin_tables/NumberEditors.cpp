// The editors of the lists with one number a row.
#include <span>
#include <string>
#include <vector>

#include "dxfin_tables/KrDxfInTbl_CWidth.h"
#include "dxfin_tables/KrDxfInTbl_Color.h"
#include "dxfin_tables/KrDxfInTbl_LWidth.h"
#include "dxfin_tables/LineWeights.h"
#include "resources/dxfin_tables/KrDxfInTbl_CWidth.ids.h"
#include "resources/dxfin_tables/KrDxfInTbl_Color.ids.h"
#include "resources/dxfin_tables/KrDxfInTbl_LWidth.ids.h"
#include "text/NumberText.h"

namespace {

using kiro::ui::GridColumn;
using kiro::ui::GridForm;
using kiro::ui::NumberRule;

constexpr int kShownColors = 255;  // 1 to 255; 0 and 256 stay as they are
constexpr int kLargestNumber = 256;

template <std::size_t N>
std::span<std::int32_t> ShownColors(std::int32_t (&colors)[N]) {
    return std::span(colors).template subspan<1, kShownColors>();
}

// ---- Colours to classes or revisions ----

constexpr GridColumn kClassColumns[] = {
    kiro::ui::OfColors({"色", 5.0}),
    {"クラス番号", 5.0, 4, "クラス番号を入力してください", {1, kLargestNumber}, "クラス番号を選択してください"}};
constexpr GridColumn kRevisionColumns[] = {kiro::ui::OfColors({"色", 5.0}),
                                           {"レビジョン番号",
                                            5.0,
                                            4,
                                            "レビジョン番号を入力してください",
                                            {1, kLargestNumber},
                                            "レビジョン番号を選択してください"}};
constexpr GridForm kClassForm = {kDxfInColorGridDialog, "色のクラス割当て", "色のクラス割当て", kClassColumns,
                                 kShownColors};
constexpr GridForm kRevisionForm = {kDxfInColorGridDialog, "色のレビジョン割当て", "色のレビジョン割当て",
                                    kRevisionColumns, kShownColors};
constexpr NumberRule kClassRule = {.byHost = &KrListControl::CheckClassNumber};
constexpr NumberRule kRevisionRule = {.byHost = &KrListControl::CheckRevisionNumber};

// ---- Line weights. The caption of the refusal is deliberately that of the line types. ----

constexpr GridColumn kColorColumns[] = {kiro::ui::OfColors({"色番号", 5.0}), LineWeightColumn(5.0)};
constexpr GridForm kColorForm = {kDxfInColorWidthGridDialog, "色の線幅割当て", "線種割当て", kColorColumns,
                                 kShownColors};
constexpr GridColumn kWidthColumns[] = {{"番号", 3.0}, {"線幅", 4.0}, LineWeightColumn(3.0)};
constexpr GridForm kWidthForm = {kDxfInLineWidthGridDialog, "線幅割当て", "線種割当て", kWidthColumns,
                                 kDxfInLineWidthCount};

std::vector<std::string> WidthTexts(const DxfInLineTable& table) {
    std::vector<std::string> texts;
    for (const double width : table.lineWidthValue) texts.push_back(NumberText(width));
    return texts;
}

}  // namespace

KrDxfInTbl_Color::KrDxfInTbl_Color(DxfInLayerTable& table)
    : NumberEditor(table.layerSwitch == 1 ? kClassForm : kRevisionForm,
                   table.layerSwitch == 1 ? kClassRule : kRevisionRule,
                   ShownColors(table.layerSwitch == 1 ? table.colorClass : table.colorRevision)) {}

KrDxfInTbl_CWidth::KrDxfInTbl_CWidth(DxfInLineTable& table)
    : NumberEditor(kColorForm, kLineWeightRule, ShownColors(table.colorWeight)) {}

KrDxfInTbl_LWidth::KrDxfInTbl_LWidth(DxfInLineTable& table)
    : NumberEditor(kWidthForm, kLineWeightRule, table.lineWidthWeight, WidthTexts(table)) {}
