// Line fonts to line types; line weights to colours and polyline widths. From here the user goes on to the patterns
// that the line types are chosen from.
#pragma once

#include <memory>
#include <utility>

#include "dxfout_tables/DxfOutLineTable.h"
#include "ui/Grid.h"

class KrDxfOutTbl_Line;

class KrDxfOutTbl_LStyle final : public kiro::ui::HostDialog {
  public:
    KrDxfOutTbl_LStyle();

    void SetInfo(KrDxfOutTbl_Line* hub);  // edits a copy of its table; a valid "設定" gives it back
    // That copy, for the editor of the patterns.
    void GetTable(DxfOutLineTable* table) const { *table = *table_; }
    void SetTable(const DxfOutLineTable* table) { *table_ = *table; }

  private:
    void OnInit() override;
    void OnOk() override;

    bool HasWeights() const { return table_->widthType == 0; }
    void HideWeights() const;
    void OfferPatterns();
    std::pair<int, int> CurrentRows() const { return {fonts_.CurrentRow(), weights_.CurrentRow()}; }
    void CellMoved();
    bool Check();
    void Refused();
    void Store();
    void Customize();

    KrDxfOutTbl_Line* hub_ = nullptr;
    std::unique_ptr<DxfOutLineTable> table_;
    kiro::ui::GridRows<kiro::ui::GridRow<2>> fontRows_;
    kiro::ui::GridRows<kiro::ui::GridRow<3>> weightRows_;
    kiro::ui::Grid fonts_;
    kiro::ui::Grid weights_;
    std::pair<int, int> rows_ = {-1, -1};  // the current ones when the grids were checked last
};
