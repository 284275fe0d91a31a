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
    // What a row has besides the texts of its cells.
    struct Values {
        std::int32_t ints[8];
        double reals[8];
    };

    void Load() override;
    Shape Form() const override;
    std::vector<kiro::ui::GridColumn> Columns() const override;
    int RowCount() const override { return table_->styleCount; }
    void FillRow(int row) override;
    void FillNewRow(int row) override;
    void RowDeleted(int row) override { values_.erase(values_.begin() + row); }
    const char* ClickText(int row, int column) const override;
    void BeforeCheck() override;
    bool CheckRow(int row) override;
    void Store() override;
    bool Save() override;

    bool CheckName(int row);
    void Explain();

    std::unique_ptr<DxfInStyleTable> table_;
    std::vector<Values> values_;  // by row
    std::vector<int> sameName_;
};
