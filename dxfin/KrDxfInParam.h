// The parameters of the import: the character code, how entities are converted, and the limits of the model.
#pragma once

#include "entry/host/ParamBlocks.h"
#include "ui/HostDialog.h"
#include "ui/WordChoices.h"

class KrDxfInParam final : public kiro::ui::HostDialog {
  public:
    // The block is written when the dialog is confirmed; its words of the attribute conversion stay.
    KrDxfInParam(const TarnaImportView& info, DxfInParamBlock& params);

  private:
    void OnInit() override;
    void OnOk() override;

    void ReadBlockData(DxfInParamBlock& words) const;

    DxfInParamBlock& params_;
    bool isDwg_;
    kiro::ui::RadioGroup blockData_;
    kiro::ui::WordChoices<DxfInParamBlock> words_;
};
