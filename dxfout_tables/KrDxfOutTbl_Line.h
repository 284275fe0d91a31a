// Line fonts and line weights: how weights are converted. Opens the editors of the table's lists and owns the file.
#pragma once

#include <memory>
#include <optional>

#include "dxfout_tables/DxfOutLineTable.h"
#include "dxfout_tables/KrDxfOutTbl_IO.h"
#include "tablehub/TableHub.h"
#include "ui/RadioGroup.h"

class KrDxfOutTbl_Line final : public TableHub {
  public:
    KrDxfOutTbl_Line();

    // The whole table, for the editors. It is read when the dialog is shown.
    void GetTable(DxfOutLineTable* table) const { *table = *table_; }
    void SetTable(const DxfOutLineTable* table) { *table_ = *table; }

  private:
    void Read() override;
    void Show() override;
    bool Write() override { return io_->WriteLineTable(table_.get()); }

    template <class Editor>
    void EditWith(int buttonId);

    std::unique_ptr<DxfOutLineTable> table_;
    std::optional<KrDxfOutTbl_IO> io_;
    kiro::ui::RadioGroup method_;
};
