// Arrow heads to marks. The editor owns its file: it reads it when it opens and writes it when it is confirmed.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "dxfin_tables/DxfInArrowTable.h"
#include "ui/GridEditor.h"

class KrDxfInTbl_Arrow final : public kiro::ui::GridEditor {
  public:
    KrDxfInTbl_Arrow();

  private:
    void Load() override;
    Shape Form() const override;
    std::vector<kiro::ui::GridColumn> Columns() const override;
    int RowCount() const override { return table_->arrowCount; }
    void FillRow(int row) override;
    void FillNewRow(int row) override;
    const char* ClickText(int row, int column) const override;
    bool CheckRow(int row) override;
    void Store() override;
    bool Save() override;

    bool CheckGiven(int row);

    std::unique_ptr<DxfInArrowTable> table_;
    std::vector<const char*> names_;  // what the host offers, up to a null
};
