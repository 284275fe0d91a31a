// Line weights, which all editors of the line table have a column of.
#pragma once

#include "dxfin_tables/DxfInLineTable.h"
#include "ui/NumberEditor.h"

inline constexpr char kBadLineWeight[] = "無効な線幅番号です %d : %s";

constexpr kiro::ui::GridColumn LineWeightColumn(double width) {
    return {"線幅", width, 4, "線幅を入力して下さい。", {1, kDxfInLargestWeight}, "線幅を選択して下さい。"};
}

inline constexpr kiro::ui::NumberRule kLineWeightRule = {1, kDxfInLargestWeight, kBadLineWeight};
