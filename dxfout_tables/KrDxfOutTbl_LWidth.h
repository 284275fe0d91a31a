// Line weights to the line widths that DXF knows.
#pragma once

#include <memory>

#include "dxfout_tables/DxfOutLineTable.h"
#include "ui/GridEditor.h"

class KrDxfOutTbl_Line;

class KrDxfOutTbl_LWidth final : public kiro::ui::GridEditor<kiro::ui::GridRow<2>> {
  public:
    KrDxfOutTbl_LWidth();

    void SetInfo(KrDxfOutTbl_Line* hub);  // edits a copy of its table; a valid "設定" gives it back

  private:
    void Dress() override;
    void CheckRow(const kiro::ui::RowCheck& check) override;
    void Store() override;

    KrDxfOutTbl_Line* hub_ = nullptr;
    std::unique_ptr<DxfOutLineTable> table_;
};
