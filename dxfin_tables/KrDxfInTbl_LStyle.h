// Line types to line fonts and line weights.
#pragma once

#include "dxfin_tables/DxfInLineTable.h"
#include "ui/GridEditor.h"

struct DxfInLineTypeRow : kiro::ui::GridRow<4> {
    static DxfInLineTypeRow New();
    void Check(const kiro::ui::RowCheck& check) const;
};

class KrDxfInTbl_LStyle final : public kiro::ui::GridEditor<DxfInLineTypeRow> {
  public:
    explicit KrDxfInTbl_LStyle(DxfInLineTable& table);  // changed when the dialog is confirmed

  private:
    void Store() override;

    DxfInLineTable& table_;
};
