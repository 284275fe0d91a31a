// Text styles to text fonts. The editor owns its file: it reads it when it opens and writes it when it is confirmed.
#pragma once

#include <memory>

#include "dxfin_tables/DxfInStyleTable.h"
#include "dxfin_tables/KrDxfInTbl_IO.h"
#include "dxfin_tables/RowsFromDrawing.h"
#include "ui/GridEditor.h"

struct DxfInStyleRow : kiro::ui::GridRow<8> {
    static DxfInStyleRow New();
    void Check(const kiro::ui::RowCheck& check) const;

    DxfInStyleValues values;  // with what the grid does not show
};

class KrDxfInTbl_TFont final : public kiro::ui::GridEditor<DxfInStyleRow> {
  public:
    // drawing: where F8 finds names; see RowsFromDrawing.
    explicit KrDxfInTbl_TFont(std::string drawing = {});

  private:
    void Load() override;
    void Dress() override;
    const char* ClickText(int row, int column) const override;
    void Store() override;
    bool Save() override { return io_->WriteStyleTable(*table_); }

    void Explain();

    std::unique_ptr<DxfInStyleTable> table_;
    std::optional<KrDxfInTbl_IO> io_;
    RowsFromDrawing fromDrawing_;
};
