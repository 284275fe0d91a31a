// The line widths that DXF knows, to line weights.
#pragma once

#include <vector>

#include "dxfin_tables/DxfInLineTable.h"
#include "ui/GridEditor.h"

class KrDxfInTbl_LWidth final : public kiro::ui::GridEditor {
  public:
    explicit KrDxfInTbl_LWidth(DxfInLineTable& table);  // changed when the dialog is confirmed

  private:
    Shape Form() const override;
    std::vector<kiro::ui::GridColumn> Columns() const override;
    int RowCount() const override;
    void FillRow(int row) override;
    bool CheckRow(int row) override;
    void Store() override;

    DxfInLineTable& table_;
};
