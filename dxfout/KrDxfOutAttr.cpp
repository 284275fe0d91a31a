#include "dxfout/KrDxfOutAttr.h"

#include <utility>

#include "dxfout_tables/KrDxfOutTbl_Arrow.h"
#include "dxfout_tables/KrDxfOutTbl_Layer.h"
#include "dxfout_tables/KrDxfOutTbl_Line.h"
#include "dxfout_tables/KrDxfOutTbl_TFont.h"
#include "entry/host/kirodxf.h"
#include "resources/dxfout/KrDxfOutAttr.ids.h"
#include "resources/dxfout/KrDxfOutAttrHelp.ids.h"

namespace {

constexpr char kCaption[] = "属性変換";

// The words are 0 for the first button and 1 for the second, which any other value counts as too.
struct Attribute {
    std::int32_t DxfOutParamBlock::*word;
    int autoRadio;
    int tableRadio;
};
constexpr int kByTable = 1;
constexpr Attribute kAttributes[] = {
    {&DxfOutParamBlock::layerConversion, kOutLayerAutoRadio, kOutLayerTableRadio},
    {&DxfOutParamBlock::lineConversion, kOutLineAutoRadio, kOutLineTableRadio},
    {&DxfOutParamBlock::fontConversion, kOutFontAutoRadio, kOutFontTableRadio},
    {&DxfOutParamBlock::arrowConversion, kOutArrowAutoRadio, kOutArrowTableRadio},
};

// The buttons that open a table, with the choice that makes use of it.
struct TableButton {
    int button;
    int tableRadio;
};
constexpr TableButton kTableButtons[] = {{kOutLayerNewButton, kOutLayerTableRadio},
                                         {kOutLayerChangeButton, kOutLayerTableRadio},
                                         {kOutLineChangeButton, kOutLineTableRadio},
                                         {kOutFontChangeButton, kOutFontTableRadio},
                                         {kOutArrowChangeButton, kOutArrowTableRadio}};

}  // namespace

KrDxfOutAttr::KrDxfOutAttr(TARNAINFO& info, DxfOutParamBlock& params)
    : HostDialog(kDxfOutAttrDialog),
      info_(info),
      params_(params),
      words_(*this),
      // Beside the labels: they cover none that the mouse may go to next.
      explanations_(*this, kiro::ui::ExplanationPopup::Placement::kRightAtZoneLeft,
                    {{kOutLayerHelpLabel, kOutLayerConversionHelp},
                     {kOutColorHelpLabel, kOutColorConversionHelp},
                     {kOutLineHelpLabel, kOutLineConversionHelp},
                     {kOutFontHelpLabel, kOutFontConversionHelp},
                     {kOutArrowHelpLabel, kOutArrowConversionHelp}}) {
    for (const auto& [word, autoRadio, tableRadio] : kAttributes) {
        words_.Radios(word, kiro::ui::RadioGroup(*this, {autoRadio, tableRadio}), {0, 1}, kByTable);
        On(autoRadio, BN_CLICKED, &KrDxfOutAttr::ButtonsFollow);
        On(tableRadio, BN_CLICKED, &KrDxfOutAttr::ButtonsFollow);
    }
    for (const auto& [button, use] : {std::pair(kOutLayerNewButton, LayerTableUse::kNew),
                                      std::pair(kOutLayerChangeButton, LayerTableUse::kChange)}) {
        Bind(button, BN_CLICKED, [this, use = use] { KrDxfOutTbl_Layer::Choose(Utility(), Handle(), use); });
    }
    Bind(kOutLineChangeButton, BN_CLICKED, [this] { KrDxfOutTbl_Line().DoModal(Handle()); });
    Bind(kOutArrowChangeButton, BN_CLICKED, [this] { KrDxfOutTbl_Arrow().DoModal(Handle()); });
    Bind(kOutFontChangeButton, BN_CLICKED, [this] { KrDxfOutTbl_TFont(&info_).DoModal(Handle()); });
}

void KrDxfOutAttr::OnInit() {
    Utility().SetParentWindow(Handle());
    words_.Show(params_);
    ButtonsFollow();
}

void KrDxfOutAttr::ButtonsFollow() {
    for (const auto& [button, tableRadio] : kTableButtons)
        Item<kiro::ui::Button>(button).Enable(Item<kiro::ui::Button>(tableRadio).IsChecked());
}

void KrDxfOutAttr::OnOk() {
    DxfOutParamBlock words = params_;
    words_.Read(words);
    const bool keep = Item<kiro::ui::Button>(kOutKeepSettingsCheck).IsChecked();
    if (keep && !kiro::ui::KeepAsDefault(Handle(), kCaption, words, params_, setdxfotparam, DxfOutWriteParam)) return;
    params_ = words;
    End(IDOK);
}
