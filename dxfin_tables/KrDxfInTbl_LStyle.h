// Line types to line fonts and line weights.
#pragma once

#include <vector>

#include "dxfin_tables/DxfInLineTable.h"
#include "ui/GridEditor.h"

class KrDxfInTbl_LStyle final : public kiro::ui::GridEditor {
  public:
    explicit KrDxfInTbl_LStyle(DxfInLineTable& table);  // changed when the dialog is confirmed

  private:
    Shape Form() const override;
    std::vector<kiro::ui::GridColumn> Columns() const override;
    int RowCount() const override { return table_.lineTypeCount; }
    void FillRow(int row) override;
    void FillNewRow(int row) override;
    bool CheckRow(int row) override;
    void Store() override;

    DxfInLineTable& table_;
};
