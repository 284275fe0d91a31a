// Arrow heads to marks. The editor owns its file: it reads it when it opens and writes it when it is confirmed.
#pragma once

#include <memory>

#include "dxfin_tables/DxfInArrowTable.h"
#include "dxfin_tables/KrDxfInTbl_IO.h"
#include "dxfin_tables/RowsFromDrawing.h"
#include "ui/GridEditor.h"

struct DxfInArrowRow : kiro::ui::GridRow<5> {
    static DxfInArrowRow New();
    void Check(const kiro::ui::RowCheck& check) const;
};

class KrDxfInTbl_Arrow final : public kiro::ui::GridEditor<DxfInArrowRow> {
  public:
    // drawing: where F8 finds names; see RowsFromDrawing.
    explicit KrDxfInTbl_Arrow(std::string drawing = {});

  private:
    void Load() override;
    void Dress() override;
    const char* ClickText(int row, int column) const override;
    void Store() override;
    bool Save() override { return io_->WriteArrowTable(*table_); }

    std::unique_ptr<DxfInArrowTable> table_;
    std::optional<KrDxfInTbl_IO> io_;
    RowsFromDrawing fromDrawing_;
};
