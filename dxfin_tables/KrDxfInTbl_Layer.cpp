#include "dxfin_tables/KrDxfInTbl_Layer.h"

#include "dxfin_tables/KrDxfInTbl_CLayer.h"
#include "dxfin_tables/KrDxfInTbl_Color.h"
#include "resources/dxfin_tables/KrDxfInTbl_Layer.ids.h"
#include "text/SlotText.h"

namespace {

constexpr int kToClasses = 0;
constexpr int kToRevisions = 1;

}  // namespace

KrDxfInTbl_Layer::KrDxfInTbl_Layer(const DxfInLayerTable& table, std::int32_t allowBoth, std::int32_t forcedMode,
                                   const std::string& drawing)
    : TableHub(kLayerTableDialog, {"レイヤ割当て・色割当て", "変更内容を保存しますか？",
                                   "テーブルが変更されています。\n変更内容を保存しますか？"}),
      allowBoth_(allowBoth),
      forcedMode_(forcedMode),
      table_(std::make_unique<DxfInLayerTable>(table)),
      mode_(*this, {kLayersToClassesRadio, kLayersToRevisionsRadio}) {
    mode_.OnChosen([this](int index) { ModeChosen(index); });
    for (const int id : {kLayerClassButton, kLayerRevisionButton})
        Edit(id, [this, drawing] { return KrDxfInTbl_CLayer(*table_, drawing); });
    for (const int id : {kColorRevisionButton, kColorClassButton})
        Edit(id, [this] { return KrDxfInTbl_Color(*table_); });
}

void KrDxfInTbl_Layer::Choose(KrUtility& utility, HWND owner, LayerTableUse use, const std::string& drawing) {
    OpenLayerTable(utility, owner, use, "DXFKIRO_LAYER", [&](const std::string& path, bool fresh) {
        const auto table = std::make_unique<DxfInLayerTable>();
        table->noFileRead = fresh;
        StoreText(table->fileName, path);
        KrDxfInTbl_Layer(*table, 1, 0, drawing).DoModal(owner);
    });
}

void KrDxfInTbl_Layer::Read() {
    io_.emplace(Utility(), Handle());
    io_->ReadLayerTable(*table_);
    if (!allowBoth_) table_->layerSwitch = forcedMode_ ? kToRevisions : kToClasses;
}

// Layers and colours always become different attributes.
void KrDxfInTbl_Layer::Show() {
    const bool toRevisions = table_->layerSwitch == kToRevisions;
    mode_.Select(toRevisions ? kToRevisions : kToClasses);
    if (!allowBoth_)
        Item<kiro::ui::Button>(toRevisions ? kLayersToClassesRadio : kLayersToRevisionsRadio).Enable(false);
    for (const int id : {kLayerClassButton, kColorRevisionButton}) Item<kiro::ui::Button>(id).Enable(!toRevisions);
    for (const int id : {kLayerRevisionButton, kColorClassButton}) Item<kiro::ui::Button>(id).Enable(toRevisions);
}

void KrDxfInTbl_Layer::ModeChosen(int index) {
    table_->layerSwitch = index;
    Changed();
    Show();
}
