#include "dxfin/KrDxfInParam.h"

#include <string>

#include "entry/host/TARNAINFO.h"
#include "entry/host/kirodxf.h"
#include "entry/host/kiromdl.h"
#include "resources/dxfin/KrDxfInParam.ids.h"
#include "ui/MessageBoxes.h"

namespace {

constexpr char kTitle[] = "読込み：変換パラメータ";
constexpr char kRefusalCaption[] = "読込み 変換パラメータ";

// Deliberately ten times what the labels show.
constexpr int kLeastSplitCount = 100;
constexpr int kLeastMaxCount = 1000;
constexpr int kMostDigits = 7;
constexpr unsigned int kNumberCharacters = 10;

constexpr int kSymbols = 1;  // the word of block data
// What the buttons of block data mean, in their order: its word, and that of overwriting, which is for symbols alone.
constexpr struct {
    std::int32_t blockData;
    std::int32_t overwrite;
} kBlockData[] = {{0, 0}, {kSymbols, 0}, {kSymbols, 1}, {2, 0}};

int BlockDataButton(const DxfInParamBlock& words) {
    if (words.blockData == kSymbols) return words.symbolOverwrite ? 2 : 1;
    return words.blockData == 2 ? 3 : 0;
}

}  // namespace

KrDxfInParam::KrDxfInParam(const TarnaImportView& info, DxfInParamBlock& params)
    : HostDialog(kDxfInParamDialog),
      params_(params),
      isDwg_(info.inputIsDwg != 0),
      blockData_(*this, {kBlockToItemRadio, kSymbolKeepRadio, kSymbolOverwriteRadio, kBlockToSubModelRadio}),
      words_(*this, kiro::ui::OddWords::kKept) {
    using Block = DxfInParamBlock;
    constexpr int kAnyOther = 1;  // the second button shows every value but 0
    const auto pair = [this](std::int32_t Block::*word, int first, int second) {
        words_.Radios(word, kiro::ui::RadioGroup(*this, {first, second}), {0, 1}, kAnyOther);
    };
    pair(&Block::kanjiCode, kFromSjisRadio, kFromEucRadio);
    pair(&Block::fill, kFillStringRadio, kFillRadio);
    pair(&Block::dimension, kDimensionLineRadio, kDimensionItemRadio);
    pair(&Block::textAngle, kTextByAngleRadio, kTextByPointsRadio);
    pair(&Block::convertHidden, kHiddenOffRadio, kHiddenOnRadio);
    pair(&Block::viewZone, kViewZoneOffRadio, kViewZoneOnRadio);
    pair(&Block::lineBreaks, kLineBreaksOffRadio, kLineBreaksOnRadio);
    pair(&Block::paperSpaceTarget, kPaperToPictureRadio, kPaperToLayoutRadio);
    words_.Radios(&Block::singleRounding,
                  kiro::ui::RadioGroup(*this, {kRoundingOffRadio, kRoundingSignificantRadio, kRoundingGivenRadio}),
                  {0, 1, 2}, 2);
    words_.Entries(
        &Block::dimensionAngle, kAngleRuleCombo,
        {"0 : データに依存", "1 : P4-P0 で角度を求める", "2 : P3-P0 で角度を求める", "3 : 寸法値の角度 + 90"});
    words_.Number(&Block::splitItemCount, kSplitCountEdit, kLeastSplitCount, HxItemMaxSrCount(),
                  "無効な分割アイテム数です");
    words_.Number(&Block::maxItemCount, kMaxCountEdit, kLeastMaxCount, HxPermItemDbGetMaxItemCount(),
                  "無効な最大アイテム数です");
    words_.Number(&Block::roundingDigits, kRoundingEdit, 0, kMostDigits, "無効な丸め桁数です");
    words_.Number(&Block::angleDigits, kAngleRoundingEdit, 0, kMostDigits, "無効な丸め桁数です");

    static constexpr char kDigits[] = "丸めを行う小数点以下桁数を入力してください。";
    Guide({{kSplitCountEdit, "分割アイテム数を入力してください。"},
           {kMaxCountEdit, "最大アイテム数を入力してください。"},
           {kRoundingEdit, kDigits},
           {kAngleRoundingEdit, kDigits}});
    for (const int id : {kSplitCountEdit, kMaxCountEdit, kRoundingEdit, kAngleRoundingEdit}) NormaliseOnKillFocus(id);
}

void KrDxfInParam::OnInit() {
    InitUtility();
    kiro::ui::Window(Handle()).SetText(kTitle);
    for (const int id : {kSplitCountEdit, kMaxCountEdit, kRoundingEdit, kAngleRoundingEdit})
        Item<kiro::ui::Edit>(id).LimitText(kNumberCharacters);
    words_.Show(params_);
    blockData_.Select(BlockDataButton(params_));
    if (isDwg_) {
        kiro::ui::RadioGroup(*this, {kFromSjisRadio, kFromEucRadio}).Select(0);
        Item<kiro::ui::Button>(kFromEucRadio).Enable(false);
    }
    Item<kiro::ui::Window>(kSplitCountRange).SetText(" 10 ～ " + std::to_string(HxItemMaxSrCount()));
    Item<kiro::ui::Window>(kMaxCountRange).SetText("100 ～ " + std::to_string(HxPermItemDbGetMaxItemCount()));
}

void KrDxfInParam::ReadBlockData(DxfInParamBlock& words) const {
    const int chosen = blockData_.Selected();
    if (chosen < 0 || chosen == BlockDataButton(words)) return;
    words.blockData = kBlockData[chosen].blockData;
    if (words.blockData == kSymbols) words.symbolOverwrite = kBlockData[chosen].overwrite;
}

void KrDxfInParam::OnOk() {
    NormaliseAll();
    if (const auto fault = words_.FirstFault(Utility())) {
        kiro::ui::Tell(Handle(), fault->message, kRefusalCaption);
        FocusTo(kSplitCountEdit);  // deliberately, whichever field it is
        return;
    }
    DxfInParamBlock words = params_;
    words_.Read(words);
    ReadBlockData(words);
    if (isDwg_) words.kanjiCode = 0;
    const bool keep = Item<kiro::ui::Button>(kKeepParametersCheck).IsChecked();
    if (keep && !kiro::ui::KeepAsDefault(Handle(), kRefusalCaption, words, params_, setdxfinparam, DxfInWriteParam))
        return;
    params_ = words;
    End(IDOK);
}
