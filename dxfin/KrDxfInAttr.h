// How layers, lines, colours, arrows and texts of a drawing are converted: automatically, by tables or both. The tables
// are opened from here.
#pragma once

#include <memory>
#include <vector>

#include "dxfin/KrDxfInHelp.h"
#include "dxfin_tables/LayerTableOpening.h"
#include "entry/host/ParamBlocks.h"
#include "ui/HostDialog.h"
#include "ui/HoverZones.h"
#include "ui/RadioGroup.h"

class KrDxfInAttr final : public kiro::ui::HostDialog {
  public:
    // The block is written when the dialog is confirmed.
    explicit KrDxfInAttr(DxfInParamBlock& params);

  private:
    // A choice and the word of the block that it sets, with the value of each of its radio buttons.
    struct Choice {
        std::int32_t DxfInParamBlock::*word;
        kiro::ui::RadioGroup radios;
        std::vector<std::int32_t> values;
    };

    void OnInit() override;
    void OnOk() override;

    void BindControls();
    void InitChoices();
    void InitWeights();
    void LayerChosen();
    void TextWidthChosen();
    void TextWidthFollows();
    void OpenTable(LayerTableUse use) { OpenLayerTable(Utility(), Handle(), use); }
    void HelpZoneChanged(int zone);

    DxfInParamBlock Chosen() const;
    bool Keep(const DxfInParamBlock& words);

    DxfInParamBlock& params_;
    kiro::ui::RadioGroup layer_;
    kiro::ui::RadioGroup target_;
    kiro::ui::RadioGroup textWidth_;
    std::vector<Choice> choices_;
    kiro::ui::HoverZones zones_;
    std::unique_ptr<KrDxfInHelp> help_;
};
