// How layers and colours, lines, text fonts and arrows of a drawing are written: automatically or by tables. The tables
// are opened from here.
#pragma once

#include "entry/host/ParamBlocks.h"
#include "entry/host/TARNAINFO.h"
#include "ui/Explanations.h"
#include "ui/HostDialog.h"
#include "ui/WordChoices.h"

class KrDxfOutAttr final : public kiro::ui::HostDialog {
  public:
    // The block is written when the dialog is confirmed. The record is that of the export: its own block tells the text
    // fonts' table which version is to be written.
    KrDxfOutAttr(TARNAINFO& info, DxfOutParamBlock& params);

  private:
    void OnInit() override;
    void OnOk() override;

    void ButtonsFollow();

    TARNAINFO& info_;
    DxfOutParamBlock& params_;
    kiro::ui::WordChoices<DxfOutParamBlock> words_;
    kiro::ui::Explanations explanations_;
};
