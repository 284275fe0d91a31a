#include "peliondb/KrPlOut.h"

#include "entry/host/FixedText.h"
#include "entry/host/kirobc.h"
#include "peliondb/KrPlInDrive.h"
#include "peliondb/KrPlInDrive1.h"
#include "peliondb/KrPlOutParam.h"
#include "resources/peliondb/KrPlOut.ids.h"
#include "ui/Probe.h"
#include "ui/WaitCursor.h"

namespace {

constexpr DatabaseOutputForm kForm = {
    .dialog = kPlOutDialog,
    .fileKey = "#TARNA:DOS#",
    .fileComment = "ＤＯＳファイル",
    .file = {kPlOutFileEdit, kPlOutRecentCombo, kPlOutBrowseButton, kiro::ui::WideningCombo::Wide::kWhileOpen, true},
    .fileGuidance = "図面ファイル名を入力してください。ワイルドカード文字が使用できます。",
    .newRadio = kPlOutNewRadio,
    .addRadio = kPlOutAddRadio,
    .currentModelRadio = kPlOutCurrentModelRadio,
    .byNameRadio = kPlOutByNameRadio,
    .patternEdit = kPlOutPatternEdit,
    .modelsButton = kPlOutModelsButton,
    .groupEdit = kPlOutGroupEdit,
    .userEdit = kPlOutUserEdit,
    .drawingEdit = kPlOutDrawingEdit,
    .pageRadio = kPlOutPageRadio,
    .pageCombo = kPlOutPageCombo,
    .currentRadio = kPlOutCurrentRadio,
    .currentEdit = kPlOutCurrentEdit,
    .currentItemsEdit = kPlOutCurrentItemsEdit,
    .pictureRadio = kPlOutPictureRadio,
    .pictureCombo = kPlOutPictureCombo,
    .activeRadio = kPlOutActiveRadio,
    .activeItemsEdit = kPlOutActiveItemsEdit,
    .parametersButton = kPlOutParametersButton,
    .refusesEmptyPicture = true,
};

constexpr int kToFile = 0;  // dbSource
constexpr int kToDatabase = 1;
constexpr int kToFloppy = 2;

constexpr int kForWriting = 10;  // what is asked of the floppy
constexpr int kReady = 0;

}  // namespace

KrPlOut::KrPlOut(TARNAINFO* info)
    : DatabaseOutput(kForm, info->database.plwVariant ? "ＰＬ／Ｗ ＤＢ書込み" : "Ｐｅｌｉｏｎ ＤＢ書込み", info),
      plw_(info->database.plwVariant != 0),
      destination_(*this, {kPlOutFileRadio, kPlOutDatabaseRadio, kPlOutFloppyRadio}) {
    Guide({{kPlOutDriveEdit, "ドライブ名を入力してください。"}});
    NormaliseOnKillFocus(kPlOutDriveEdit);
    destination_.OnChosen([this](int destination) { DestinationChosen(destination); });
    On(kPlOutDriveButton, BN_CLICKED, &KrPlOut::ChooseDrive);
    On(kPlOutGroupButton, BN_CLICKED, &KrPlOut::ChooseGroup);
    On(kPlOutUserButton, BN_CLICKED, &KrPlOut::ChooseUser);
}

void KrPlOut::OnInit() {
    DatabaseOutput::OnInit();
    InitEdit(kPlOutDriveEdit, 1, ReadFixedText(info_.plDrive));
    destination_.Select(kFile);
    FollowDestination(kFile);
    if (plw_) return SetText(kPlOutDriveLabel, "ドライブ名");
    Item<kiro::ui::Window>(kPlOutDatabaseRadio).SetText("フロッピー");
    for (const int id : {kPlOutFloppyRadio, kPlOutDriveEdit, kPlOutDriveButton}) Item<kiro::ui::Window>(id).Show(false);
}

// ---- The destination ----

int KrPlOut::Source() const {
    const int destination = destination_.Selected();
    if (destination == kFile) return kToFile;
    return plw_ && destination == kSecond ? kToDatabase : kToFloppy;
}

void KrPlOut::DestinationChosen(int destination) {
    FollowDestination(destination);
    info_.dbSource = Source();
    if (info_.dbSource != kToFloppy) return;
    const kiro::ui::WaitCursor cursor;
    if (GetPlFloppy(kForWriting, &record_) == kReady) return;
    destination_.Select(kFile);
    FocusTo(kPlOutFileRadio);
    FollowDestination(kFile);
    info_.dbSource = kToFile;
}

void KrPlOut::FollowDestination(int destination) {
    mode_.Enable(destination == kFile);
    file_.Enable(destination == kFile);
    EnableAll({kPlOutDriveEdit, kPlOutDriveButton}, destination == kSecond);
    EnableAll({kPlOutGroupButton, kPlOutUserButton}, destination != kFile);
}

void KrPlOut::ChooseDrive() { ChoosePlace(false, false); }

void KrPlOut::ChooseGroup() { ChoosePlace(true, false); }

void KrPlOut::ChooseUser() { ChoosePlace(true, true); }

// What is known is preselected.
void KrPlOut::ChoosePlace(bool driveKnown, bool groupKnown) {
    info_.plDriveKnown = driveKnown;
    info_.plGroupKnown = groupKnown;
    info_.plSelectSettingMode = 1;
    if (driveKnown) WriteFixedText(info_.plDrive, Item<kiro::ui::Edit>(kPlOutDriveEdit).Text().value_or(""));
    if (groupKnown) WriteFixedText(info_.plGroup, Item<kiro::ui::Edit>(kPlOutGroupEdit).Text().value_or(""));
    // Deliberately the drives also where the second choice is the floppy.
    const INT_PTR result = destination_.Selected() == kThird ? KrPlInDrive1(&record_).DoModal(Handle())
                                                             : KrPlInDrive(&record_).DoModal(Handle());
    if (result != IDOK) return;
    SetText(kPlOutDriveEdit, ReadFixedText(info_.plDrive));
    SetText(kPlOutGroupEdit, ReadFixedText(info_.plGroup));
    SetText(kPlOutUserEdit, ReadFixedText(info_.plUser));
}

// ---- Confirmation ----

bool KrPlOut::CheckOwn() {
    // Where no drive is asked for, one that has no room is no drive.
    if (Source() != kToDatabase) return true;
    if (!CheckText(kPlOutDriveEdit, info_.plDrive, {"ドライブ名が入力されていません。", "無効なドライブ名です。"}))
        return false;
    // The host will look for drawings there.
    return kiro::ui::IsAnswering(Item<kiro::ui::Window>(kPlOutDriveEdit).WideText() + L":\\") ||
           Refuse(kPlOutDriveEdit, "ドライブが応答しません。");
}

void KrPlOut::StoreOwn() {
    StoreText(info_.plDrive, kPlOutDriveEdit);
    info_.dbSource = Source();
}

int KrPlOut::CheckDrawingName() { return CheckPlDrawingName(&record_); }

bool KrPlOut::Overwrites() {
    if (IsToFile()) return DatabaseOutput::Overwrites();
    return kiro::ui::Ask(Handle(), "図面名が重複しています。\n上書きしますか。", title_, kiro::ui::Icon::kWarning,
                         kiro::ui::Default::kNo);
}

void KrPlOut::OpenParameters() { KrPlOutParam(&record_).DoModal(Handle()); }
