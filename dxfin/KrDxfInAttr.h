// How layers, lines, colours, arrows and texts of a drawing are converted: automatically, by tables or both. The tables
// are opened from here.
#pragma once

#include <string>

#include "dxfin_tables/KrDxfInTbl_Layer.h"
#include "entry/host/ParamBlocks.h"
#include "ui/Explanations.h"
#include "ui/HostDialog.h"
#include "ui/WordChoices.h"

class KrDxfInAttr final : public kiro::ui::HostDialog {
  public:
    // The block is written when the dialog is confirmed. drawing: the one to be read, internal form: the tables'
    // editors find names there. "": none is known.
    explicit KrDxfInAttr(DxfInParamBlock& params, std::string drawing = {});

  private:
    void OnInit() override;
    void OnOk() override;

    void BindControls();
    void LayerChosen();
    void TextWidthChosen();
    void TextWidthFollows();
    bool LacksFontTable() const;  // for what is chosen
    void OpenTable(LayerTableUse use) { KrDxfInTbl_Layer::Choose(Utility(), Handle(), use, drawing_); }

    DxfInParamBlock& params_;
    std::string drawing_;
    kiro::ui::RadioGroup layer_;
    kiro::ui::RadioGroup target_;
    kiro::ui::RadioGroup textWidth_;
    kiro::ui::WordChoices<DxfInParamBlock> words_;
    kiro::ui::Explanations explanations_;
};
