// Marks to arrow heads. The editor owns its file: it reads it when it opens and writes it when it is confirmed.
#pragma once

#include <memory>
#include <optional>

#include "dxfout_tables/DxfOutArrowTable.h"
#include "dxfout_tables/KrDxfOutTbl_IO.h"
#include "ui/GridEditor.h"

struct DxfOutArrowRow : kiro::ui::GridRow<4> {
    static DxfOutArrowRow New();
    bool Check(const kiro::ui::RowCheck& check) const;
};

class KrDxfOutTbl_Arrow final : public kiro::ui::GridEditor<DxfOutArrowRow> {
  public:
    KrDxfOutTbl_Arrow();

  private:
    void Load() override;
    void Dress() override;
    void CheckRow(const kiro::ui::RowCheck& check) override;
    void Store() override;
    bool Save() override { return io_->WriteArrowTable(table_.get()); }

    std::unique_ptr<DxfOutArrowTable> table_;
    std::optional<KrDxfOutTbl_IO> io_;
};
