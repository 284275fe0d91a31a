#include "peliondb/KrPlOutParam.h"

#include "resources/peliondb/KrPlOutParam.ids.h"
#include "text/SlotText.h"

namespace {

constexpr unsigned int kDriveLimit = 1;
constexpr unsigned int kCapacityLimit = 4;
constexpr int kMostCapacityOfVersion3 = 9999;  // in K

}  // namespace

const KrPlOutParam::Form KrPlOutParam::kForm = {kPlOutParamDialog,
                                                "Ｐｅｌｉｏｎ 変換パラメータ",
                                                {kPlGroupEdit, kPlUserEdit, kPlCapacityEdit, kCapacityLimit,
                                                 kPlHeightRatioEdit, kPlWidthRatioEdit, kPlKeepParametersCheck},
                                                SavePlParameter,
                                                ReadPlParameter};

KrPlOutParam::KrPlOutParam(TARNAINFO* info)
    : DbOutParam(kForm, info),
      version_(*this, {kPlVersion2Radio, kPlVersion3Radio}),
      precision_(*this, {kPlSinglePrecisionRadio, kPlDoublePrecisionRadio}) {
    using Block = PlOutParamBlock;
    constexpr int kNone = -1;
    BindRadios(&Block::version, version_, {0, 1}, 1);
    BindRadios(&Block::doublePrecision, precision_, {0, 1}, 1);
    BindRadios({{*this, {kPlExpandSymbolsRadio, kPlKeepSymbolsRadio}},
                {*this, {kPlNoFrameRadio, kPlFrameRadio, kPlTitleOnlyRadio}},
                {*this, {kPlHiddenRadio, kPlNoHiddenRadio}},
                {*this, {kPlEachViewRadio, kPlOneViewRadio}}});
    // Deliberately no button shows another value, which then stays.
    BindRadios(&Block::detailMode, {*this, {kPlNoDetailsRadio, kPlDetailsRadio, kPlCompositeDetailsRadio}}, {0, 1, 4},
               kNone);
    BindRadios(&Block::convertOverlays, {*this, {kPlNoOverlaysRadio, kPlOverlaysRadio}}, {0, 1}, 1);
    version_.OnChosen([this](int) { VersionChosen(); });
    BindText({kPlDriveEdit, kDriveLimit, "ドライブ名を入力してください。"});
    // Deliberately "下さい".
    BindRatios("文字高倍率を入力して下さい。", "文字幅倍率を入力してください。");
}

void KrPlOutParam::ShowOwn(const PlOutParamBlock& params) {
    const bool hasDrive = info_->database.plwVariant != 0;
    if (hasDrive) SetText(kPlDriveLabel, "ドライブ名");
    Item<kiro::ui::Edit>(kPlDriveEdit).Show(hasDrive);
    SetText(kPlDriveEdit, ReadFixedText(params.drive));
    VersionChosen();
}

// Version 3 knows double precision alone.
void KrPlOutParam::VersionChosen() {
    if (IsVersion3()) precision_.Select(1);
    precision_.Enable(!IsVersion3());
    SetText(kPlCapacityRange, IsVersion3() ? "10 ～ 9999K" : "10 ～ 64K");
}

int KrPlOutParam::MostCapacity() const { return IsVersion3() ? kMostCapacityOfVersion3 : kMostCapacity; }

// Deliberately also where the drive is hidden; the focus stays where it is then.
std::optional<KrPlOutParam::Fault> KrPlOutParam::OwnFault() const {
    const std::string drive = TextOf(kPlDriveEdit);
    if (!drive.empty() && drive[0] >= 'A' && drive[0] <= 'Z') return std::nullopt;
    return Fault{info_->database.plwVariant ? kPlDriveEdit : IDOK, "無効なドライブ名です。"};
}

void KrPlOutParam::ReadOwn(PlOutParamBlock& params) const { StoreText(params.drive, TextOf(kPlDriveEdit)); }
