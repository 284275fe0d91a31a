#include "dxfout_tables/KrDxfOutTbl_Line.h"

#include "dxfout_tables/KrDxfOutTbl_LStyle.h"
#include "dxfout_tables/KrDxfOutTbl_LWidth.h"
#include "resources/dxfout_tables/KrDxfOutTbl_Line.ids.h"

namespace {

constexpr int kToPolylines = 0;
constexpr int kToLineWidths = 1;

}  // namespace

KrDxfOutTbl_Line::KrDxfOutTbl_Line()
    : TableHub(kDxfOutLineTableDialog, {"線種・線幅割当て", "設定内容を保存しますか？",
                                        "テーブルが変更されています。\n変更内容を保存しますか？"}),
      table_(std::make_unique<DxfOutLineTable>()),
      method_(*this, {kToPolylinesRadio, kToLineWidthsRadio}) {
    // Deliberately no change that "取消" would ask about.
    method_.OnChosen([this](int index) {
        table_->widthType = index;
        Show();
    });
    EditWith<KrDxfOutTbl_LStyle>(kFontLineTypesButton);
    EditWith<KrDxfOutTbl_LWidth>(kWeightLineWidthsButton);
}

template <class Editor>
void KrDxfOutTbl_Line::EditWith(int buttonId) {
    Bind(buttonId, BN_CLICKED, [this] {
        Editor editor;
        editor.SetInfo(this);
        if (editor.DoModal(Handle()) == IDOK) Changed();
    });
}

void KrDxfOutTbl_Line::Read() {
    io_.emplace(Handle());
    io_->ReadLineTable(table_.get());
}

void KrDxfOutTbl_Line::Show() {
    const bool toLineWidths = table_->widthType != 0;
    method_.Select(toLineWidths ? kToLineWidths : kToPolylines);
    Item<kiro::ui::Button>(kWeightLineWidthsButton).Enable(toLineWidths);
}
