#include "dxfout_tables/KrDxfOutTbl_CLayer.h"

#include "resources/dxfout_tables/KrDxfOutTbl_CLayer.ids.h"
#include "resources/grid.ids.h"

namespace {

using kiro::ui::GridColumn;
using kiro::ui::GridForm;
using kiro::ui::GridStorable;

constexpr GridColumn kClassColumns[] = {{"クラス", 1.9}, DxfOutLayerColumn(8.0)};
constexpr GridColumn kRevisionColumns[] = {{"レビジョン", 2.9}, DxfOutLayerColumn(7.0)};

constexpr GridForm FormWith(kiro::ui::GridColumns columns) {
    return {kDxfOutClassGridDialog, "クラスのレイヤ割当て", "クラスのレイヤ割当て", columns, kDxfOutFrame};
}

constexpr char kTooLong[] = "レイヤ名が長すぎます（半角63文字以内） %d : %s";
constexpr GridStorable kClassStorable = {"", kDxfOutLayerBlanks, kDxfOutLongestClassLayer, kTooLong};
constexpr GridStorable kRevisionStorable = {"", kDxfOutLayerBlanks, kDxfOutLongestRevisionLayer, kTooLong};

constexpr DxfOutLayerEditor::List kClasses =
    DxfOutLayerNames<&DxfOutLayerTable::classLayer, kClassStorable>(FormWith(kClassColumns));
// Deliberately with the title of the classes.
constexpr DxfOutLayerEditor::List kRevisions =
    DxfOutLayerNames<&DxfOutLayerTable::revisionLayer, kRevisionStorable>(FormWith(kRevisionColumns));

}  // namespace

KrDxfOutTbl_CLayer::KrDxfOutTbl_CLayer()
    : DxfOutLayerEditor(kClasses), items_(*this, {kByModelRadio, kByCompositeRadio, kByItemRadio}) {
    items_.OnChosen([this](int index) {
        Table().classControl = index;
        if (Grid().EndEdit()) FocusTo(kGrid);
    });
}

void KrDxfOutTbl_CLayer::Load() {
    if (Table().layerControl != kLayerControlClass) Edit(kRevisions);
    const std::int32_t control = Table().classControl;
    items_.Select(control == kClassControlComposite || control == kClassControlItem ? control : kClassControlNone);
    DxfOutLayerEditor::Load();
}
