// Text styles to text fonts. The editor owns its file: it reads it when it opens and writes it when it is confirmed.
#pragma once

#include <memory>
#include <vector>

#include "dxfin_tables/DxfInStyleTable.h"
#include "ui/GridEditor.h"

class KrDxfInTbl_TFont final : public kiro::ui::GridEditor {
  public:
    KrDxfInTbl_TFont();

  private:
    void Load() override;
    Shape Form() const override;
    std::vector<kiro::ui::GridColumn> Columns() const override;
    int RowCount() const override { return table_->styleCount; }
    void FillRow(int row) override;
    void FillNewRow(int row) override;
    void RowDeleted(int row) override { values_.erase(values_.begin() + row); }
    const char* ClickText(int row, int column) const override;
    bool CheckRow(int row) override;
    void Store() override;
    bool Save() override;

    void Explain();

    std::unique_ptr<DxfInStyleTable> table_;
    std::vector<DxfInStyleValues> values_;  // by row, with what the grid does not show
};
