#include "varosdb/KrVrOut.h"

#include "entry/host/FixedText.h"
#include "entry/host/kirobc.h"
#include "resources/varosdb/KrVrOut.ids.h"
#include "varosdb/KrVrOutParam.h"

namespace {

constexpr DatabaseOutputForm kForm = {
    .dialog = kVrOutDialog,
    .fileKey = "#TARNA:DB_R#",
    .fileComment = "図面ファイル",
    .file = {kVrOutFileEdit, kVrOutRecentCombo, kVrOutBrowseButton, kiro::ui::WideningCombo::Wide::kWhileOpen, true},
    .fileGuidance = "図面ファイル名を入力してください。",
    .newRadio = kVrOutNewRadio,
    .addRadio = kVrOutAddRadio,
    .currentModelRadio = kVrOutCurrentModelRadio,
    .byNameRadio = kVrOutByNameRadio,
    .patternEdit = kVrOutPatternEdit,
    .modelsButton = kVrOutModelsButton,
    .groupEdit = kVrOutGroupEdit,
    .userEdit = kVrOutUserEdit,
    .drawingEdit = kVrOutDrawingEdit,
    .pageRadio = kVrOutPageRadio,
    .pageCombo = kVrOutPageCombo,
    .currentRadio = kVrOutCurrentRadio,
    .currentEdit = kVrOutCurrentEdit,
    .currentItemsEdit = kVrOutCurrentItemsEdit,
    .pictureRadio = kVrOutPictureRadio,
    .pictureCombo = kVrOutPictureCombo,
    .activeRadio = kVrOutActiveRadio,
    .activeItemsEdit = kVrOutActiveItemsEdit,
    .parametersButton = kVrOutParametersButton,
    .refusesEmptyPicture = false,  // deliberately
};

}  // namespace

KrVrOut::KrVrOut(TARNAINFO* info)
    : DatabaseOutput(kForm,
                     info->database.vrFacom ? "Ｖａｒｏｓ ＤＢ書込み（ＦＡＣＯＭ）" : "Ｖａｒｏｓ ＤＢ書込み（ＩＢＭ）",
                     info) {}

void KrVrOut::OnInit() {
    DatabaseOutput::OnInit();
    EnableAll({kVrOutGroupButton, kVrOutUserButton}, false);
}

int KrVrOut::CheckDrawingName() { return CheckVrDrawingName(&record_); }

std::string KrVrOut::WrongFileText() const {
    return HxEucEncoder::Euc2Sjis(ReadFixedText(info_.patternSlot.dbOutFileName)) +
           "\n\nＸＡＲＶＥＮＴＯファイルではありません。";
}

void KrVrOut::OpenParameters() { KrVrOutParam(&record_).DoModal(Handle()); }
