// Colours to revisions, or colours to classes: whichever the layers are not converted to.
#pragma once

#include <vector>

#include "dxfin_tables/DxfInLayerTable.h"
#include "ui/GridEditor.h"

class KrDxfInTbl_Color final : public kiro::ui::GridEditor {
  public:
    explicit KrDxfInTbl_Color(DxfInLayerTable& table);  // changed when the dialog is confirmed

  private:
    Shape Form() const override;
    std::vector<kiro::ui::GridColumn> Columns() const override;
    int RowCount() const override;
    void FillRow(int row) override;
    bool CheckRow(int row) override;
    void Store() override;

    bool classMode_;
    std::int32_t (&numbers_)[kDxfInColors];
};
