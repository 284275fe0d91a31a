// Ranges of polyline widths to line weights. The grid shows the ranges as a column of boundaries: a range reaches from
// its row to the next, and the last row is only an end.
#pragma once

#include <optional>
#include <unordered_map>
#include <vector>

#include "dxfin_tables/DxfInLineTable.h"
#include "ui/GridEditor.h"

class KrDxfInTbl_PWidth final : public kiro::ui::GridEditor {
  public:
    explicit KrDxfInTbl_PWidth(DxfInLineTable& table);  // changed when the dialog is confirmed

  private:
    Shape Form() const override;
    std::vector<kiro::ui::GridColumn> Columns() const override;
    int RowCount() const override { return table_.polyWidthCount + 1; }
    void FillRow(int row) override;
    void FillNewRow(int row) override;
    void RowsMoved() override;
    void BeforeCheck() override;
    bool CheckRow(int row) override;
    void Store() override;

    std::optional<double> WidthAt(int row) const;

    DxfInLineTable& table_;
    std::unordered_map<double, int> rowsOfWidth_;
};
