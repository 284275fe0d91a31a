// Line types and line widths: which widths of a drawing are converted by the table. Opens the editors of its four lists
// and owns the file.
#pragma once

#include <memory>
#include <optional>

#include "dxfin_tables/DxfInLineTable.h"
#include "dxfin_tables/KrDxfInTbl_IO.h"
#include "ui/HostDialog.h"
#include "ui/RadioGroup.h"

class KrDxfInTbl_Line final : public kiro::ui::HostDialog {
  public:
    KrDxfInTbl_Line();

  private:
    void OnInit() override;
    void OnOk() override;

    void ConvertPolylines(bool on);
    void ConvertColors(bool on);
    void ConvertWidths(bool on);
    template <class Editor>
    void Edit(int buttonId);

    std::unique_ptr<DxfInLineTable> table_;
    std::optional<KrDxfInTbl_IO> io_;
    kiro::ui::RadioGroup polylines_;
    kiro::ui::RadioGroup colors_;
    kiro::ui::RadioGroup widths_;
};
