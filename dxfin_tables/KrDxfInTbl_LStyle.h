// Line types to line fonts and line weights.
#pragma once

#include "dxfin_tables/DxfInLineTable.h"
#include "dxfin_tables/RowsFromDrawing.h"
#include "ui/GridEditor.h"

struct DxfInLineTypeRow : kiro::ui::GridRow<4> {
    static DxfInLineTypeRow New();
    void Check(const kiro::ui::RowCheck& check) const;
};

class KrDxfInTbl_LStyle final : public kiro::ui::GridEditor<DxfInLineTypeRow> {
  public:
    // The table is changed when the dialog is confirmed. drawing: where F8 finds names; see RowsFromDrawing.
    explicit KrDxfInTbl_LStyle(DxfInLineTable& table, std::string drawing = {});

  private:
    void Store() override;

    DxfInLineTable& table_;
    RowsFromDrawing fromDrawing_;
};
