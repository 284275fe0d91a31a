#include "dxfin/KrDxfInAttr.h"

#include <utility>
#include <vector>

#include "dxfin_tables/KrDxfInTbl_Arrow.h"
#include "dxfin_tables/KrDxfInTbl_Line.h"
#include "dxfin_tables/KrDxfInTbl_TFont.h"
#include "entry/host/kirodxf.h"
#include "resources/dxfin/KrDxfInAttr.ids.h"
#include "resources/dxfin/KrDxfInAttrHelp.ids.h"
#include "ui/MessageBoxes.h"

namespace {

constexpr char kCaption[] = "属性変換";

constexpr int kAutomatic = 0;  // the first button of a group
constexpr int kTextWidthByTable = 1;

std::vector<std::int32_t> LineWeights() {
    std::vector<std::int32_t> weights;
    for (int index = 0; const int weight = DxfGetLineWeight(index); ++index) weights.push_back(weight);
    return weights;
}

}  // namespace

KrDxfInAttr::KrDxfInAttr(DxfInParamBlock& params, std::string drawing)
    : HostDialog(kDxfInAttrDialog),
      params_(params),
      drawing_(std::move(drawing)),
      layer_(*this, {kLayerAutoRadio, kLayerBothRadio, kLayerTableRadio}),
      target_(*this, {kTargetClassRadio, kTargetRevisionRadio}),
      textWidth_(*this, {kTextWidthAutoRadio, kTextWidthTableRadio}),
      words_(*this),
      // Beside the labels: they cover none that the mouse may go to next. The pages KrDxfInAttr1 to KrDxfInAttr6.
      explanations_(*this, kiro::ui::ExplanationPopup::Placement::kRightAtZoneLeft,
                    {{kLayerHelpLabel, kLayerConversionHelp},
                     {kLineTypeHelpLabel, kLineTypeConversionHelp},
                     {kLineWidthHelpLabel, kLineWidthConversionHelp},
                     {kColorHelpLabel, kColorConversionHelp},
                     {kArrowHelpLabel, kArrowConversionHelp},
                     {kTextWidthHelpLabel, kTextWidthConversionHelp}}) {
    using Block = DxfInParamBlock;
    const auto group = [this](std::initializer_list<int> ids) { return kiro::ui::RadioGroup(*this, ids); };
    words_.Radios(&Block::layerConversion, layer_, {0, 1, 2});
    words_.Radios(&Block::layerTarget, target_, {0, 1});
    words_.CheckBox(&Block::convertLayerNames, kLayerNamesCheck);
    words_.Radios(&Block::lineTypeConversion, group({kLineTypeAutoRadio, kLineTypeBothRadio, kLineTypeTableRadio}),
                  {0, 1, 2});
    words_.Radios(&Block::lineWidthConversion,
                  group({kLineWidthAuto1Radio, kLineWidthAuto2Radio, kLineWidthTableRadio}), {0, 1, 2});
    words_.Numbers(&Block::defaultLineWeight, kDefaultWeightCombo, LineWeights());
    words_.Radios(&Block::colorConversion, group({kColorAuto1Radio, kColorAuto2Radio, kColorTableRadio}), {0, 1, 2});
    words_.Radios(&Block::arrowConversion, group({kArrowAutoRadio, kArrowTableRadio}), {0, 2});
    words_.Radios(&Block::textWidthConversion, textWidth_, {0, 2});
    BindControls();
}

void KrDxfInAttr::BindControls() {
    layer_.OnChosen([this](int) { LayerChosen(); });
    textWidth_.OnChosen([this](int) { TextWidthChosen(); });
    for (const int id : {kLayerNewButton, kColorNewButton}) {
        Bind(id, BN_CLICKED, [this] { OpenTable(LayerTableUse::kNew); });
    }
    for (const int id : {kLayerChangeButton, kColorChangeButton}) {
        Bind(id, BN_CLICKED, [this] { OpenTable(LayerTableUse::kChange); });
    }
    for (const int id : {kLineTypeChangeButton, kLineWidthChangeButton}) {
        Bind(id, BN_CLICKED, [this] { KrDxfInTbl_Line(drawing_).DoModal(Handle()); });
    }
    Bind(kArrowChangeButton, BN_CLICKED, [this] { KrDxfInTbl_Arrow(drawing_).DoModal(Handle()); });
    Bind(kTextWidthChangeButton, BN_CLICKED, [this] { KrDxfInTbl_TFont(drawing_).DoModal(Handle()); });
}

void KrDxfInAttr::OnInit() {
    Utility().SetParentWindow(Handle());
    words_.Show(params_);
    // What could not be confirmed is not offered at the start.
    if (LacksFontTable()) textWidth_.Select(kTextWidthByTable);
    LayerChosen();
    TextWidthFollows();
}

// The target is for layers that no table assigns.
void KrDxfInAttr::LayerChosen() {
    const bool automatic = layer_.Selected() == kAutomatic;
    target_.Enable(automatic);
    for (const int id : {kLayerNewButton, kLayerChangeButton}) Item<kiro::ui::Button>(id).Enable(!automatic);
}

bool KrDxfInAttr::LacksFontTable() const { return textWidth_.Selected() == kAutomatic && !params_.fontTablePresent; }

void KrDxfInAttr::TextWidthChosen() {
    if (LacksFontTable()) {
        kiro::ui::Tell(Handle(), "ファイル DXFFONTTABLE.DAT がありません。", kCaption);
        // The focus goes along: a radio button that has it without being selected is clicked when it comes back.
        textWidth_.Select(kTextWidthByTable);
        FocusTo(kTextWidthTableRadio);
    }
    TextWidthFollows();
}

void KrDxfInAttr::TextWidthFollows() {
    Item<kiro::ui::Button>(kTextWidthChangeButton).Enable(textWidth_.Selected() == kTextWidthByTable);
}

void KrDxfInAttr::OnOk() {
    if (LacksFontTable()) {
        kiro::ui::Tell(Handle(), "ファイル DXFFONTTABLE.DAT がありません。\n文字幅変換の自動変換は選択できません。",
                       kCaption);
        FocusTo(kTextWidthTableRadio);
        return;
    }
    DxfInParamBlock words = params_;
    words_.Read(words);
    const bool keep = Item<kiro::ui::Button>(kKeepSettingsCheck).IsChecked();
    if (keep && !kiro::ui::KeepAsDefault(Handle(), kCaption, words, params_, setdxfinparam, DxfInWriteParam)) return;
    params_ = words;
    End(IDOK);
}
