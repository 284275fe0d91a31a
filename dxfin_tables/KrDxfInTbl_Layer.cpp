#include "dxfin_tables/KrDxfInTbl_Layer.h"

#include "dxfin_tables/KrDxfInTbl_CLayer.h"
#include "dxfin_tables/KrDxfInTbl_Color.h"
#include "resources/dxfin_tables/KrDxfInTbl_Layer.ids.h"
#include "ui/MessageBoxes.h"

namespace {

constexpr char kCaption[] = "レイヤ割当て・色割当て";

constexpr int kToClasses = 0;
constexpr int kToRevisions = 1;

}  // namespace

KrDxfInTbl_Layer::KrDxfInTbl_Layer(const DxfInLayerTable& table, std::int32_t allowBoth, std::int32_t forcedMode)
    : HostDialog(kLayerTableDialog),
      allowBoth_(allowBoth),
      forcedMode_(forcedMode),
      table_(std::make_unique<DxfInLayerTable>(table)),
      mode_(*this, {kLayersToClassesRadio, kLayersToRevisionsRadio}) {
    mode_.OnChosen([this](int index) { ModeChosen(index); });
    for (const int id : {kLayerClassButton, kLayerRevisionButton}) On(id, BN_CLICKED, &KrDxfInTbl_Layer::EditLayers);
    for (const int id : {kColorRevisionButton, kColorClassButton}) On(id, BN_CLICKED, &KrDxfInTbl_Layer::EditColors);
}

void KrDxfInTbl_Layer::OnInit() {
    Utility().SetParentWindow(Handle());
    io_.emplace(Utility(), Handle());
    io_->ReadLayerTable(*table_);
    if (!allowBoth_) {
        table_->layerSwitch = forcedMode_ ? kToRevisions : kToClasses;
        Item<kiro::ui::Button>(forcedMode_ ? kLayersToClassesRadio : kLayersToRevisionsRadio).Enable(false);
    }
    ShowMode();
}

// Layers and colours always become different attributes.
void KrDxfInTbl_Layer::ShowMode() {
    const bool toRevisions = table_->layerSwitch == kToRevisions;
    mode_.Select(toRevisions ? kToRevisions : kToClasses);
    for (const int id : {kLayerClassButton, kColorRevisionButton}) Item<kiro::ui::Button>(id).Enable(!toRevisions);
    for (const int id : {kLayerRevisionButton, kColorClassButton}) Item<kiro::ui::Button>(id).Enable(toRevisions);
}

void KrDxfInTbl_Layer::ModeChosen(int index) {
    table_->layerSwitch = index;
    tableChanged_ = true;
    ShowMode();
}

void KrDxfInTbl_Layer::EditLayers() {
    if (KrDxfInTbl_CLayer(*table_).DoModal(Handle()) == IDOK) tableChanged_ = true;
}

void KrDxfInTbl_Layer::EditColors() {
    if (KrDxfInTbl_Color(*table_).DoModal(Handle()) == IDOK) tableChanged_ = true;
}

// A table that could not be written stays open, so that nothing is lost.
void KrDxfInTbl_Layer::OnOk() {
    const bool save = kiro::ui::Ask(Handle(), "変更内容を保存しますか？", kCaption, kiro::ui::Icon::kQuestion);
    if (!save || io_->WriteLayerTable(*table_)) End(IDOK);
}

void KrDxfInTbl_Layer::OnCancel() {
    const bool save = tableChanged_ && kiro::ui::Ask(Handle(), "テーブルが変更されています。\n変更内容を保存しますか？",
                                                     kCaption, kiro::ui::Icon::kQuestion);
    if (!save || io_->WriteLayerTable(*table_)) End(IDCANCEL);
}
