#include "varosdb/KrVrIn.h"

#include <utility>

#include "entry/host/kirobc.h"
#include "resources/varosdb/KrVrIn.ids.h"
#include "text/NumberText.h"

namespace {

constexpr DatabaseInputForm kForm = {
    .dialog = kVrInDialog,
    .fileKey = "#TARNA:DB_R#",
    .fileComment = "ＤＢファイル",
    .file = {kVrInFileEdit, kVrInRecentCombo, kVrInBrowseButton, kiro::ui::WideningCombo::Wide::kWhileOpen},
    .newRadio = kVrInNewRadio,
    .addRadio = kVrInAddRadio,
    .overlayRadio = kVrInOverlayRadio,
    .viewEdit = kVrInViewEdit,
    .viewGuidance = "ビュー名を入力してください。",
    .pictureCombo = kVrInPictureCombo,
    .subModelEdit = kVrInSubModelEdit,
    .subModelGuidance = "サブモデル名を入力してください。",
    .errorsRadio = kVrInErrorsRadio,
    .noErrorsRadio = kVrInNoErrorsRadio,
};

constexpr unsigned int kSpacingTyped = 10;
constexpr double kLeastSpacing = 0.1;
constexpr double kMostSpacing = 10;

}  // namespace

KrVrIn::KrVrIn(TARNAINFO* info)
    : DatabaseInput(kForm,
                    info->database.vrFacom ? "Ｖａｒｏｓ ＤＢ読込み（ＦＡＣＯＭ）" : "Ｖａｒｏｓ ＤＢ読込み（ＩＢＭ）",
                    info) {
    Guide({
        {kVrInCharSpacingEdit, "文字間隔（文字高さに対する比率）を入力してください。"},
        {kVrInLineSpacingEdit, "行間隔（文字高さに対する比率）を入力してください。"},
    });
    NormaliseOnKillFocus(kVrInCharSpacingEdit);
    NormaliseOnKillFocus(kVrInLineSpacingEdit);
}

void KrVrIn::OnInit() {
    DatabaseInput::OnInit();
    for (const auto& [id, spacing] :
         {std::pair(kVrInCharSpacingEdit, info_.vrCharSpacing), std::pair(kVrInLineSpacingEdit, info_.vrLineSpacing)}) {
        Item<kiro::ui::Edit>(id).LimitText(kSpacingTyped);
        Item<kiro::ui::Edit>(id).SetText(NumberText(spacing));
    }
}

bool KrVrIn::CheckOwn() {
    return CheckSpacing(kVrInCharSpacingEdit, "無効な文字間隔です。", charSpacing_) &&
           CheckSpacing(kVrInLineSpacingEdit, "無効な行間隔です。", lineSpacing_);
}

bool KrVrIn::CheckSpacing(int editId, const char* message, double& spacing) {
    const std::string text = Item<kiro::ui::Edit>(editId).Text().value_or(std::string());
    if (!Utility().CheckNumber(text.c_str(), kKrReal, kLeastSpacing, kMostSpacing)) return Refuse(editId, message);
    spacing = RealOf(text);
    return true;
}

void KrVrIn::StoreOwnTexts() {
    info_.vrCharSpacing = charSpacing_;
    info_.vrLineSpacing = lineSpacing_;
}

int KrVrIn::ListDrawings() { return GetVrInputDrawing(&record_); }

void KrVrIn::TakeDrawings() { SetVrInputDrawing(&record_); }
