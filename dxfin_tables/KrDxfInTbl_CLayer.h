// Layers to classes, or layers to revisions: whichever the table's switch says.
#pragma once

#include <string>
#include <vector>

#include "dxfin_tables/DxfInLayerTable.h"
#include "ui/GridEditor.h"

class KrDxfInTbl_CLayer final : public kiro::ui::GridEditor {
  public:
    explicit KrDxfInTbl_CLayer(DxfInLayerTable& table);  // changed when the dialog is confirmed

  private:
    // What differs between classes and revisions.
    struct Mode;
    static const Mode kClasses;
    static const Mode kRevisions;

    Shape Form() const override;
    std::vector<kiro::ui::GridColumn> Columns() const override;
    int RowCount() const override;
    void FillRow(int row) override;
    void FillNewRow(int row) override;
    const char* ClickText(int row, int column) const override;
    bool CheckRow(int row) override;
    void Store() override;

    bool HasOther() const { return numbers_[0] != 0; }

    const Mode& mode_;
    std::int32_t& count_;
    std::int32_t (&numbers_)[kDxfInLayerSlots];
    char (&names_)[kDxfInLayerSlots][257];
};
