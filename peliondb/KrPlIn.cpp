#include "peliondb/KrPlIn.h"

#include "entry/host/kirobc.h"
#include "peliondb/KrPlInDrive.h"
#include "peliondb/KrPlInDrive1.h"
#include "resources/peliondb/KrPlIn.ids.h"
#include "ui/WaitCursor.h"

namespace {

constexpr DatabaseInputForm kForm = {
    .dialog = kPlInDialog,
    .fileKey = "#TARNA:DOS#",
    .fileComment = "ＤＯＳファイル",
    .file = {kPlInFileEdit, kPlInRecentCombo, kPlInBrowseButton, kiro::ui::WideningCombo::Wide::kWhileOpen},
    .newRadio = kPlInNewRadio,
    .addRadio = kPlInAddRadio,
    .overlayRadio = kPlInOverlayRadio,
    .viewEdit = kPlInViewEdit,
    .viewGuidance = "入力するビュー名を入力してください",
    .pictureCombo = kPlInPictureCombo,
    .subModelEdit = kPlInSubModelEdit,
    .subModelGuidance = "サブモデル名を入力してください",
    .errorsRadio = kPlInErrorsRadio,
    .noErrorsRadio = kPlInNoErrorsRadio,
};

constexpr int kSecond = 1;  // of the sources
constexpr int kFloppy = 2;
constexpr int kReady = 0;  // what is asked of the floppy, and that it is

}  // namespace

const KrPlIn::Variant KrPlIn::kPelion = {"Ｐｅｌｉｏｎ ＤＢ読込み", {"ＤＢファイル", "ＤＯＳファイル"}, 1, false};
const KrPlIn::Variant KrPlIn::kPlw = {"ＰＬ／Ｗ ＤＢ読込み", {"ＤＯＳファイル", "ＰＬ／Ｗ"}, 0, true};

KrPlIn::KrPlIn(TARNAINFO* info)
    : DatabaseInput(kForm, VariantOf(*info).title, info),
      variant_(VariantOf(*info)),
      symbols_(*this, {kPlInExpandRadio, kPlInExistingSymbolRadio, kPlInNewSymbolRadio}),
      source_(*this, {kPlInFirstSourceRadio, kPlInSecondSourceRadio, kPlInFloppyRadio}) {
    symbols_.OnChosen(nullptr);
    source_.OnChosen([this](int source) { SourceChosen(source); });
}

void KrPlIn::OnInit() {
    DatabaseInput::OnInit();
    symbols_.Select(0);
    source_.Select(0);
    Item<kiro::ui::Window>(kPlInFirstSourceRadio).SetText(variant_.sources[0]);
    Item<kiro::ui::Window>(kPlInSecondSourceRadio).SetText(variant_.sources[1]);
    SourceChosen(0);
}

void KrPlIn::SourceChosen(int source) {
    if (source == kFloppy) {
        const kiro::ui::WaitCursor cursor;
        if (GetPlFloppy(kReady, &record_) != kReady) {
            source = 0;
            source_.Select(source);
            FocusTo(kPlInFirstSourceRadio);
        }
    }
    file_.Enable(source == variant_.fileSource);
}

void KrPlIn::StoreOwnChoices() {
    info_.plSymbolMode = symbols_.Selected();
    info_.dbSource = source_.Selected();
}

std::string KrPlIn::SubModelForRecord(const std::string& sjis) const { return HxEucEncoder::Sjis2Euc(sjis); }

// Deliberately the real path, where the record otherwise has internal ones; but in EUC as they are.
std::string KrPlIn::FileForRecord() const {
    char path[kKrPathSize];
    const std::string internal = file_.InternalPath();
    path[internal.copy(path, sizeof path - 1)] = 0;
    return Utility().RealPathName(nullptr, path, sizeof path) ? HxEucEncoder::Sjis2Euc(path) : std::string();
}

bool KrPlIn::ChoosePlace() {
    const bool floppy = info_.dbSource == kFloppy;
    const bool drive = variant_.choosesDrive && info_.dbSource == kSecond;
    if (!floppy && !drive) return true;
    info_.plDriveKnown = 0;
    info_.plGroupKnown = 0;
    info_.plSelectSettingMode = 0;
    return (floppy ? KrPlInDrive1(&record_).DoModal(Handle()) : KrPlInDrive(&record_).DoModal(Handle())) == IDOK;
}

int KrPlIn::ListDrawings() { return GetPlInputDrawing(&record_); }

void KrPlIn::TakeDrawings() { SetPlInputDrawing(&record_); }
