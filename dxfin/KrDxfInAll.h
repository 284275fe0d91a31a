// Many drawings in one command, each into a model of its own: which files, on which medium, by which table.
#pragma once

#include <string>

#include "dxfin/KrDxfInList.h"
#include "entry/host/ParamBlocks.h"
#include "entry/host/TARNAINFO.h"
#include "tablehub/LayerTableField.h"
#include "ui/HostDialog.h"
#include "ui/RadioGroup.h"

class KrDxfInAll final : public kiro::ui::HostDialog {
  public:
    // The record's layer table is a name in Shift-JIS; nothing of the record is written. params: its block, or what
    // stands in for it.
    KrDxfInAll(const TarnaImportView& info, DxfInParamBlock& params);

  private:
    void OnInit() override;
    void OnOk() override {}  // its button is there and cannot be pressed

    void OpenList();
    void OpenParameters();
    void OpenAttributes();

    bool ReadPattern(DxfInListInfo& list);
    bool ReadTable(DxfInListInfo& list) const;
    void UseKeyword() const;
    bool Refuse(const std::string& message);

    const TarnaImportView& info_;
    DxfInParamBlock& params_;
    const BatchKind& kind_;
    kiro::ui::RadioGroup mode_;
    kiro::ui::RadioGroup medium_;
    LayerTableField table_;
};
