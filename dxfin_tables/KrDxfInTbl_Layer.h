// Layers and colours: which of them become classes and which revisions. Opens the editors of both lists and owns the
// file.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "dxfin_tables/DxfInLayerTable.h"
#include "dxfin_tables/KrDxfInTbl_IO.h"
#include "ui/HostDialog.h"
#include "ui/RadioGroup.h"

class KrDxfInTbl_Layer final : public kiro::ui::HostDialog {
  public:
    // Of the table only fileName and noFileRead count: the rest comes from the file.
    // allowBoth 0: only the mode forcedMode can be chosen (0: layers become classes, otherwise revisions).
    KrDxfInTbl_Layer(const DxfInLayerTable& table, std::int32_t allowBoth, std::int32_t forcedMode);

  private:
    void OnInit() override;
    void OnOk() override;
    void OnCancel() override;

    void ShowMode();
    void ModeChosen(int index);
    void EditLayers();
    void EditColors();

    std::int32_t allowBoth_;
    std::int32_t forcedMode_;
    std::unique_ptr<DxfInLayerTable> table_;
    std::optional<KrDxfInTbl_IO> io_;
    bool tableChanged_ = false;
    kiro::ui::RadioGroup mode_;
};
