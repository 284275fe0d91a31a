// Layers to classes, or layers to revisions: whichever the table's switch says.
#pragma once

#include "dxfin_tables/DxfInLayerTable.h"
#include "dxfin_tables/RowsFromDrawing.h"
#include "ui/GridEditor.h"

struct DxfInLayerRow : kiro::ui::GridRow<3> {
    static DxfInLayerRow New();
};

class KrDxfInTbl_CLayer final : public kiro::ui::GridEditor<DxfInLayerRow> {
  public:
    // The table is changed when the dialog is confirmed. drawing: where F8 finds names; see RowsFromDrawing.
    explicit KrDxfInTbl_CLayer(DxfInLayerTable& table, std::string drawing = {});

  private:
    // What differs between classes and revisions.
    struct Mode;
    static const Mode kClasses;
    static const Mode kRevisions;
    static kiro::ui::GridForm FormOf(const DxfInLayerTable& table);

    void Dress() override;
    const char* ClickText(int row, int column) const override;
    void CheckRow(const kiro::ui::RowCheck& check) override;
    void Store() override;

    const Mode& mode_;
    DxfInLayerList list_;
    bool hasOther_;  // entry 0 has a row
    RowsFromDrawing fromDrawing_;
};
