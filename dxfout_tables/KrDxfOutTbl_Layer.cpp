#include "dxfout_tables/KrDxfOutTbl_Layer.h"

#include <utility>

#include "dxfout_tables/KrDxfOutTbl_CLayer.h"
#include "dxfout_tables/KrDxfOutTbl_Color.h"
#include "dxfout_tables/KrDxfOutTbl_PLayer.h"
#include "resources/dxfout_tables/KrDxfOutTbl_Layer.ids.h"
#include "text/SlotText.h"

namespace {

// In the order of the radio buttons.
constexpr std::int32_t kPages[] = {kPagesByPicture, kPagesByClass, kPagesByRevision};
constexpr std::int32_t kPictures[] = {kLayerControlClass, kLayerControlRevision};

}  // namespace

KrDxfOutTbl_Layer::KrDxfOutTbl_Layer(HWND owner)
    : TableHub(kOutLayerTableDialog, {"レイヤ割当て・色割当て", "変更内容を保存しますか？",
                                      "テーブルが変更されています。\n変更内容を保存しますか？"}),
      table_(std::make_unique<DxfOutLayerTable>()),
      io_(owner),
      pages_(*this, {kPagesByPictureRadio, kPagesByClassRadio, kPagesByRevisionRadio}),
      pictures_(*this, {kPicturesByClassRadio, kPicturesByRevisionRadio}) {
    // Deliberately no change that "取消" would ask about.
    pages_.OnChosen([this](int index) { table_->pictureOff = kPages[index]; });
    pictures_.OnChosen([this](int index) { table_->layerControl = kPictures[index]; });
    Bind(kPictureLayersButton, BN_CLICKED, [this] { Run<KrDxfOutTbl_PLayer>(); });
    Bind(kClassLayersButton, BN_CLICKED, [this] { RunClasses(kLayerControlClass); });
    Bind(kRevisionLayersButton, BN_CLICKED, [this] { RunClasses(kLayerControlRevision); });
    Bind(kOutColorsButton, BN_CLICKED, [this] { Run<KrDxfOutTbl_Color>(); });
}

void KrDxfOutTbl_Layer::SetInfo(std::int32_t fullMode, std::int32_t revisionOnly, const DxfOutLayerTable* table) {
    fullMode_ = fullMode != 0;
    revisionOnly_ = revisionOnly != 0;
    SetTable(table);
    io_.ReadLayerTable(table_.get());
}

void KrDxfOutTbl_Layer::Choose(KrUtility& utility, HWND owner, LayerTableUse use) {
    OpenLayerTable(utility, owner, use, "KIRODXF_LAYER", [owner](const std::string& path, bool fresh) {
        const auto table = std::make_unique<DxfOutLayerTable>();
        table->noFileRead = fresh;
        StoreText(table->fileName, path);
        KrDxfOutTbl_Layer hub(owner);
        hub.SetInfo(1, 0, table.get());
        hub.DoModal(owner);
    });
}

// The file was read by SetInfo.
void KrDxfOutTbl_Layer::Read() {
    io_.SetOwner(Handle());
    if (fullMode_) return;
    table_->pictureOff = revisionOnly_ ? kPagesByRevision : kPagesByClass;
    table_->layerControl = revisionOnly_ ? kLayerControlRevision : kLayerControlClass;
}

void KrDxfOutTbl_Layer::Show() {
    pages_.Select(table_->pictureOff == kPagesByPicture ? 0 : table_->pictureOff > 0 ? 1 : 2);
    pictures_.Select(table_->layerControl == kLayerControlRevision ? 1 : 0);
    if (fullMode_) return;
    const auto disable = [this](int id) { Item<kiro::ui::Button>(id).Enable(false); };
    disable(kPagesByPictureRadio);
    disable(kPictureLayersButton);
    disable(revisionOnly_ ? kPagesByClassRadio : kPagesByRevisionRadio);
    disable(revisionOnly_ ? kPicturesByClassRadio : kPicturesByRevisionRadio);
    disable(revisionOnly_ ? kClassLayersButton : kRevisionLayersButton);
}

template <class Editor>
void KrDxfOutTbl_Layer::Run() {
    Editor editor;
    editor.SetInfo(this);
    if (editor.DoModal(Handle()) == IDOK) Changed();
}

// The editor goes by layerControl, which is a choice of its own here.
void KrDxfOutTbl_Layer::RunClasses(DxfOutLayerControl control) {
    const std::int32_t chosen = std::exchange(table_->layerControl, control);
    Run<KrDxfOutTbl_CLayer>();
    table_->layerControl = chosen;
}
