#include "dxfin/KrDxfInAttr.h"

#include <algorithm>
#include <string>

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

// The pages KrDxfInAttr1 to KrDxfInAttr6, in the order of the groups.
constexpr int kPages[] = {kLayerConversionHelp, kLineTypeConversionHelp, kLineWidthConversionHelp,
                          kColorConversionHelp, kArrowConversionHelp,    kTextWidthConversionHelp};

}  // namespace

KrDxfInAttr::KrDxfInAttr(DxfInParamBlock& params)
    : HostDialog(kDxfInAttrDialog),
      params_(params),
      layer_(*this, {kLayerAutoRadio, kLayerBothRadio, kLayerTableRadio}),
      target_(*this, {kTargetClassRadio, kTargetRevisionRadio}),
      textWidth_(*this, {kTextWidthAutoRadio, kTextWidthTableRadio}),
      choices_{
          {&DxfInParamBlock::layerConversion, layer_, {0, 1, 2}},
          {&DxfInParamBlock::layerTarget, target_, {0, 1}},
          {&DxfInParamBlock::lineTypeConversion,
           {*this, {kLineTypeAutoRadio, kLineTypeBothRadio, kLineTypeTableRadio}},
           {0, 1, 2}},
          {&DxfInParamBlock::lineWidthConversion,
           {*this, {kLineWidthAuto1Radio, kLineWidthAuto2Radio, kLineWidthTableRadio}},
           {0, 1, 2}},
          {&DxfInParamBlock::colorConversion,
           {*this, {kColorAuto1Radio, kColorAuto2Radio, kColorTableRadio}},
           {0, 1, 2}},
          {&DxfInParamBlock::arrowConversion, {*this, {kArrowAutoRadio, kArrowTableRadio}}, {0, 2}},
          {&DxfInParamBlock::textWidthConversion, textWidth_, {0, 2}},
      },
      zones_(*this,
             {kLayerHelpLabel, kLineTypeHelpLabel, kLineWidthHelpLabel, kColorHelpLabel, kArrowHelpLabel,
              kTextWidthHelpLabel},
             [this](int zone) { HelpZoneChanged(zone); }) {
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
        Bind(id, BN_CLICKED, [this] { KrDxfInTbl_Line().DoModal(Handle()); });
    }
    Bind(kArrowChangeButton, BN_CLICKED, [this] { KrDxfInTbl_Arrow().DoModal(Handle()); });
    Bind(kTextWidthChangeButton, BN_CLICKED, [this] { KrDxfInTbl_TFont().DoModal(Handle()); });
}

void KrDxfInAttr::OnInit() {
    Utility().SetParentWindow(Handle());
    InitChoices();
    InitWeights();
    Item<kiro::ui::Button>(kLayerNamesCheck).SetCheck(params_.convertLayerNames != 0);
    LayerChosen();
    TextWidthFollows();
}

// A value that no button has shows the first one.
void KrDxfInAttr::InitChoices() {
    for (const Choice& choice : choices_) {
        const auto found = std::find(choice.values.begin(), choice.values.end(), params_.*choice.word);
        choice.radios.Select(found == choice.values.end() ? kAutomatic
                                                          : static_cast<int>(found - choice.values.begin()));
    }
}

void KrDxfInAttr::InitWeights() {
    const auto combo = Item<kiro::ui::ComboBox>(kDefaultWeightCombo);
    int selected = 0;
    for (int index = 0; const int weight = DxfGetLineWeight(index); ++index) {
        combo.AddString(std::to_string(weight));
        if (weight == params_.defaultLineWeight) selected = index;
    }
    combo.SetCurSel(selected);
}

// The target is for layers that no table assigns.
void KrDxfInAttr::LayerChosen() {
    const bool automatic = layer_.Selected() == kAutomatic;
    target_.Enable(automatic);
    for (const int id : {kLayerNewButton, kLayerChangeButton}) Item<kiro::ui::Button>(id).Enable(!automatic);
}

void KrDxfInAttr::TextWidthChosen() {
    if (textWidth_.Selected() == kAutomatic && !params_.fontTablePresent) {
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

void KrDxfInAttr::HelpZoneChanged(int zone) {
    help_.reset();
    if (zone < 0) return;
    // Beside the labels: it covers none that the mouse may go to next.
    help_ = std::make_unique<KrDxfInHelp>(kPages[zone], KrDxfInHelp::Placement::kRightAtZoneLeft);
    help_->Open(Handle(), zones_.Zone(zone));
}

DxfInParamBlock KrDxfInAttr::Chosen() const {
    DxfInParamBlock words = params_;
    for (const Choice& choice : choices_) {
        words.*choice.word = choice.values[static_cast<std::size_t>(choice.radios.Selected())];
    }
    words.convertLayerNames = Item<kiro::ui::Button>(kLayerNamesCheck).IsChecked();
    words.defaultLineWeight = DxfGetLineWeight(Item<kiro::ui::ComboBox>(kDefaultWeightCombo).GetCurSel());
    return words;
}

void KrDxfInAttr::OnOk() {
    if (textWidth_.Selected() == kAutomatic && !params_.fontTablePresent) {
        kiro::ui::Tell(Handle(), "ファイル DXFFONTTABLE.DAT がありません。\n文字幅変換の自動変換は選択できません。",
                       kCaption);
        return;
    }
    const DxfInParamBlock words = Chosen();
    if (Item<kiro::ui::Button>(kKeepSettingsCheck).IsChecked() && !Keep(words)) return;
    params_ = words;
    End(IDOK);
}

// On a failure the dialog stays open: the user can take the mark off "設定を保存する" and go on.
bool KrDxfInAttr::Keep(const DxfInParamBlock& words) {
    setdxfinparam(&words);
    if (DxfInWriteParam() == 0) return true;
    setdxfinparam(&params_);
    kiro::ui::Tell(Handle(), "設定を保存できません。", kCaption);
    return false;
}
