// Layers and colours: which of them become classes and which revisions. Opens the editors of both lists and owns the
// file.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "dxfin_tables/DxfInLayerTable.h"
#include "dxfin_tables/KrDxfInTbl_IO.h"
#include "tablehub/LayerTableOpening.h"
#include "tablehub/TableHub.h"
#include "ui/RadioGroup.h"

class KrDxfInTbl_Layer final : public TableHub {
  public:
    // Of the table only fileName and noFileRead count: the rest comes from the file.
    // allowBoth 0: only the mode forcedMode can be chosen (0: layers become classes, otherwise revisions).
    // drawing: where the editors of layers find names; see RowsFromDrawing.
    KrDxfInTbl_Layer(const DxfInLayerTable& table, std::int32_t allowBoth, std::int32_t forcedMode,
                     const std::string& drawing = {});

    // Lets the user choose a table and opens it. The owner is the utility's parent window.
    static void Choose(KrUtility& utility, HWND owner, LayerTableUse use, const std::string& drawing = {});

  private:
    void Read() override;
    void Show() override;
    bool Write() override { return io_->WriteLayerTable(*table_); }

    void ModeChosen(int index);

    std::int32_t allowBoth_;
    std::int32_t forcedMode_;
    std::unique_ptr<DxfInLayerTable> table_;
    std::optional<KrDxfInTbl_IO> io_;
    kiro::ui::RadioGroup mode_;
};
