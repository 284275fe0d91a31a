#include "varosdb/KrVrOutParam.h"

#include "resources/varosdb/KrVrOutParam.ids.h"

namespace {

constexpr unsigned int kLabelLimit = 20;
constexpr unsigned int kCapacityLimit = 2;

}  // namespace

const KrVrOutParam::Form KrVrOutParam::kForm = {kVrOutParamDialog,
                                                "Ｖａｒｏｓ 変換パラメータ",
                                                {kVrGroupEdit, kVrUserEdit, kVrCapacityEdit, kCapacityLimit,
                                                 kVrHeightRatioEdit, kVrWidthRatioEdit, kVrKeepParametersCheck},
                                                SaveVrParameter,
                                                ReadVrParameter};

KrVrOutParam::KrVrOutParam(TARNAINFO* info) : DbOutParam(kForm, info) {
    using Block = VrOutParamBlock;
    BindRadios({{*this, {kVrExpandSymbolsRadio, kVrKeepSymbolsRadio}},
                {*this, {kVrNoFrameRadio, kVrFrameRadio, kVrTitleOnlyRadio}},
                {*this, {kVrHiddenRadio, kVrNoHiddenRadio}},
                {*this, {kVrEachViewRadio, kVrOneViewRadio}}});
    // These two count the other way round than those of Pelion.
    BindRadios(&Block::skipDetails, {*this, {kVrDetailsRadio, kVrNoDetailsRadio}}, {0, 1}, 1);
    BindRadios(&Block::skipOverlays, {*this, {kVrOverlaysRadio, kVrNoOverlaysRadio}}, {0, 1}, 1);
    BindText({kVrLabelEdit, kLabelLimit, "ラベル名を入力してください。"});
    BindRatios("文字高倍率を入力してください。", "文字幅倍率を入力してください。");
}

void KrVrOutParam::ShowOwn(const VrOutParamBlock& params) { SetText(kVrLabelEdit, ReadFixedText(params.labelName)); }

std::optional<KrVrOutParam::Fault> KrVrOutParam::OwnFault() const {
    const std::string label = TextOf(kVrLabelEdit);
    if (!label.empty() && label[0] >= 'A' && label[0] <= 'Z' && label.size() < sizeof VrOutParamBlock::labelName)
        return std::nullopt;
    return Fault{kVrLabelEdit, "無効なラベル名です。"};
}

void KrVrOutParam::ReadOwn(VrOutParamBlock& params) const { WriteFixedText(params.labelName, TextOf(kVrLabelEdit)); }
