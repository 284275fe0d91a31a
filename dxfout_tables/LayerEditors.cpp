// What the editors of the lists share, and those that are data alone.
#include "dxfout_tables/DxfOutLayerEditor.h"
#include "dxfout_tables/KrDxfOutTbl_Color.h"
#include "dxfout_tables/KrDxfOutTbl_Layer.h"
#include "dxfout_tables/KrDxfOutTbl_PLayer.h"
#include "resources/dxfout_tables/KrDxfOutTbl_Color.ids.h"
#include "resources/dxfout_tables/KrDxfOutTbl_PLayer.ids.h"
#include "text/Numbers.h"
#include "text/TextFormat.h"

void DxfOutLayerEditor::SetInfo(KrDxfOutTbl_Layer* hub) {
    hub_ = hub;
    table_ = std::make_unique<DxfOutLayerTable>();
    hub_->GetTable(table_.get());
}

void DxfOutLayerEditor::Edit(const List& list) {
    list_ = &list;
    Grid().UseColumns(list.form.columns);
}

void DxfOutLayerEditor::Load() {
    for (int entry = 1; entry <= Form().limit; ++entry) rows_.Add({{"", list_->text(*table_, entry)}});
}

void DxfOutLayerEditor::Dress() {
    if (rows_.Count() == kDxfOutFrame)
        Grid().SetTextAt(kDxfOutFrame - 1, kNumberColumn, Formatted("%d 図枠", kDxfOutFrame));
}

void DxfOutLayerEditor::Store() {
    int entry = 1;
    for (const auto& row : rows_) list_->keep(*table_, entry++, row[kTextColumn]);
    hub_->SetTable(table_.get());
}

namespace {

using kiro::ui::GridColumn;

// ---- Pictures to layers ----

constexpr GridColumn kPictureColumns[] = {{"ピクチャ", 2.0}, DxfOutLayerColumn(8.0)};
constexpr kiro::ui::GridStorable kPictureStorable = {"", kDxfOutLayerBlanks, kDxfOutLongestPictureLayer,
                                                     "レイヤ名が長すぎます（半角65文字以内） %d : %s"};
constexpr DxfOutLayerEditor::List kPictureLayers = DxfOutLayerNames<&DxfOutLayerTable::pictureLayer, kPictureStorable>(
    {kDxfOutPictureGridDialog, "ピクチャのレイヤ割当て", "ピクチャのレイヤ割当て", kPictureColumns, kDxfOutFrame});

// ---- Colours to colours. The caption of the refusal is deliberately another one than the title. ----

constexpr int kLastColor = kDxfOutColors - 1;
constexpr GridColumn kColorColumns[] = {
    {"色", 5.0},
    kiro::ui::OfColors({"色", 5.0, 4, "色番号を入力してください。", {0, kDxfOutMaxColor}, "色を選択してください。"})};
constexpr DxfOutLayerEditor::List kColors = {
    {kDxfOutColorGridDialog, "色割当て", "色の色割当て", kColorColumns, kLastColor},
    [](const DxfOutLayerTable& table, int entry) { return std::to_string(table.colorMap[entry]); },
    [](DxfOutLayerTable& table, int entry, const std::string& text) {
        table.colorMap[entry] = ReadInteger(text).value_or(0);
    },
    [](const kiro::ui::RowCheck& check) {
        check.Integer(DxfOutLayerEditor::kTextColumn, 0, kDxfOutMaxColor, "無効な色番号です。");
    }};

}  // namespace

KrDxfOutTbl_PLayer::KrDxfOutTbl_PLayer() : DxfOutLayerEditor(kPictureLayers) {}

KrDxfOutTbl_Color::KrDxfOutTbl_Color() : DxfOutLayerEditor(kColors) {}
