// Ranges of polyline widths to line weights. The grid shows the ranges as a column of boundaries: a range reaches from
// its row to the next, and the last row is only an end.
#pragma once

#include <optional>
#include <unordered_map>

#include "dxfin_tables/DxfInLineTable.h"
#include "ui/GridEditor.h"

struct DxfInBoundaryRow : kiro::ui::GridRow<3> {
    static DxfInBoundaryRow New();
};

class KrDxfInTbl_PWidth final : public kiro::ui::GridEditor<DxfInBoundaryRow> {
  public:
    explicit KrDxfInTbl_PWidth(DxfInLineTable& table);  // changed when the dialog is confirmed

  private:
    void Dress() override;
    void RowsMoved() override;
    void BeforeCheck() override;
    void CheckRow(const kiro::ui::RowCheck& check) override;
    void Store() override;

    std::optional<double> WidthAt(int row) const;

    DxfInLineTable& table_;
    std::unordered_map<double, int> rowsOfWidth_;
};
