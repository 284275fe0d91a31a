// Text fonts to text styles: the four styles that have a use. The editor owns its file: it reads it when it opens and
// writes it when it is confirmed.
#pragma once

#include <memory>
#include <optional>

#include "dxfout_tables/DxfOutStyleTable.h"
#include "dxfout_tables/KrDxfOutTbl_IO.h"
#include "entry/host/TARNAINFO.h"
#include "ui/GridEditor.h"

struct DxfOutStyleRow : kiro::ui::GridRow<9> {
    void Check(const kiro::ui::RowCheck& check) const;
    bool HasOwnName(int row) const;
    DxfOutStyleTable::Style Values() const;

    DxfOutStyleTable::Style style;  // as it was read, with what the grid does not show

  private:
    bool CheckName(const kiro::ui::RowCheck& check) const;
    bool CheckFactors(const kiro::ui::RowCheck& check) const;
    bool CheckFonts(const kiro::ui::RowCheck& check) const;
    bool CheckLength(const kiro::ui::RowCheck& check) const;
};

class KrDxfOutTbl_TFont final : public kiro::ui::GridEditor<DxfOutStyleRow> {
  public:
    // Without a record, or without export parameters in it, the defaults are those of GX-3.
    explicit KrDxfOutTbl_TFont(const TARNAINFO* info);

  private:
    void Load() override;
    void Dress() override;
    const char* ClickText(int row, int column) const override;
    void Store() override;
    bool Save() override { return io_->WriteStyleTable(table_.get()); }

    void OfferName(int row);
    void CellChanged(int row, int column);
    void Explain();

    const TARNAINFO* info_;
    std::unique_ptr<DxfOutStyleTable> table_;
    std::optional<KrDxfOutTbl_IO> io_;
};
