// Line types and line widths: which widths of a drawing are converted by the table. Opens the editors of its four lists
// and owns the file.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "dxfin_tables/DxfInLineTable.h"
#include "dxfin_tables/KrDxfInTbl_IO.h"
#include "tablehub/TableHub.h"
#include "ui/RadioGroup.h"

class KrDxfInTbl_Line final : public TableHub {
  public:
    // drawing: where the editor of line types finds names; see RowsFromDrawing.
    explicit KrDxfInTbl_Line(const std::string& drawing = {});

  private:
    // "割当てる" and "割当てない", the switch that they set, and the editor that is of use then.
    struct Switch {
        std::int32_t DxfInLineTable::*word;
        kiro::ui::RadioGroup radios;
        int button;
    };

    void Read() override;
    void Show() override;
    bool Write() override { return io_->WriteLineTable(*table_); }

    void OnSwitch(Switch& which, const Switch* excludes);
    void Convert(const Switch& which, bool on);

    std::unique_ptr<DxfInLineTable> table_;
    std::optional<KrDxfInTbl_IO> io_;
    Switch polylines_;
    Switch colors_;
    Switch widths_;
};
