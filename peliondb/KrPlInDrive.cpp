#include "peliondb/KrPlInDrive.h"

#include "entry/host/FixedText.h"
#include "resources/peliondb/KrPlInDrive.ids.h"
#include "ui/WaitCursor.h"

namespace {

constexpr kiro::ui::GridColumn kDriveColumn[] = {{"ドライブ名", 9.8}};
constexpr kiro::ui::GridColumn kGroupColumn[] = {{"グループ名", 9.8}};
constexpr kiro::ui::GridColumn kUserColumn[] = {{"ユーザ名", 9.8}};

}  // namespace

KrPlInDrive::KrPlInDrive(TARNAINFO* info)
    : NameChooser(kPlInDriveDialog, info),
      drives_(*this, kPlFirstList, kDriveColumn, [this] { DriveChosen(); }),
      groups_(*this, kPlSecondList, kGroupColumn, [this] { GroupChosen(); }),
      users_(*this, kPlThirdList, kUserColumn, [this] { ShowChoice(); }) {
    levels_ = {{&drives_, "ドライブ名を選択してください。", "ドライブが選択されていません。"},
               {&groups_, "グループ名を選択してください。", "グループが選択されていません。"},
               {&users_, "ユーザ名を選択してください。", "ユーザが選択されていません。"}};
}

void KrPlInDrive::OnInit() {
    const kiro::ui::WaitCursor cursor;
    InitUtility();
    const TarnaDatabaseView& info = info_->database;
    drives_.Init(kMostPelionDrives, Drives());
    if (info.plDriveKnown) drives_.Choose({info.plDrive[0], ':'});
    groups_.Init(kMostPelionNames, Groups(), &drives_);
    if (info.plGroupKnown) groups_.Choose(ReadFixedText(info.plGroup));
    users_.Init(kMostPelionNames, Users(), &drives_);
    InitChoice();
}

std::vector<std::string> KrPlInDrive::Drives() {
    PelionNames found = tree_.Drives();
    std::string silent;
    for (const std::string& drive : found.silent) silent += " " + drive;
    if (!silent.empty()) levels_[kDrives].prompt += "（応答なし：" + silent + "）";
    return std::move(found.names);
}

std::vector<std::string> KrPlInDrive::Groups() {
    return drives_.HasChoice() ? Told(kGroups, tree_.Groups(drives_.Chosen())) : std::vector<std::string>();
}

std::vector<std::string> KrPlInDrive::Users() {
    return groups_.HasChoice() ? Told(kUsers, tree_.Users(drives_.Chosen(), groups_.Chosen()))
                               : std::vector<std::string>();
}

std::vector<std::string> KrPlInDrive::Told(Lists list, PelionNames found) {
    levels_[list].none = found.silent.empty() ? "" : "ドライブが応答しません。";
    return std::move(found.names);
}

void KrPlInDrive::DriveChosen() {
    const kiro::ui::WaitCursor cursor;
    groups_.Fill(Groups());
    users_.Fill({});
    ShowChoice();
}

void KrPlInDrive::GroupChosen() {
    const kiro::ui::WaitCursor cursor;
    users_.Fill(Users());
    ShowChoice();
}

void KrPlInDrive::Store() {
    TarnaDatabaseView& info = info_->database;
    // What the lists hold has room: a letter, and names no longer than the database has them.
    WriteFixedText(info.plDrive, drives_.Chosen().substr(0, 1));
    WriteFixedText(info.plGroup, groups_.Chosen());
    WriteFixedText(info.plUser, users_.Chosen());
}
