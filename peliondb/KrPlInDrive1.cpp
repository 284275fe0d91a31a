#include "peliondb/KrPlInDrive1.h"

#include <algorithm>

#include "entry/host/FixedText.h"
#include "entry/host/kirobc.h"
#include "peliondb/PelionTree.h"
#include "resources/peliondb/KrPlInDrive.ids.h"
#include "ui/WaitCursor.h"

namespace {

constexpr kiro::ui::GridColumn kGroupColumn[] = {{"グループ名", 9.8}};
constexpr kiro::ui::GridColumn kUserColumn[] = {{"ユーザ名", 9.8}};

// What GetPlFloppy is asked for.
constexpr int kListGroups = 1;
constexpr int kListUsers = 2;

// Without the blanks that fill the slots.
std::string Trimmed(KrUtility& utility, const std::string& name) {
    return KrEdited(utility, name, &KrUtility::SpaceNull);
}

// A name that the record has no room for cannot be chosen.
template <std::size_t slots, std::size_t size>
std::vector<std::string> Names(KrUtility& utility, std::int32_t count, const char (&names)[slots][size]) {
    std::vector<std::string> trimmed;
    for (std::int32_t i = 0; i < std::clamp<std::int32_t>(count, 0, slots); ++i) {
        std::string name = Trimmed(utility, ReadFixedText(names[i]));
        if (!name.empty() && FitsFixedText(names[i], name)) trimmed.push_back(std::move(name));
    }
    return trimmed;
}

}  // namespace

KrPlInDrive1::KrPlInDrive1(TARNAINFO* info)
    : NameChooser(kPlInDrive1Dialog, info),
      groups_(*this, kPlFirstList, kGroupColumn,
              [this] {
                  users_.Fill(Users());
                  ShowChoice();
              }),
      users_(*this, kPlSecondList, kUserColumn, [this] { ShowChoice(); }) {
    levels_ = {
        {&groups_, "グループ名を選択してください。", "グループが選択されていません。",
         "グループ名の登録がありません。"},
        {&users_, "ユーザ名を選択してください。", "ユーザが選択されていません。", "ユーザ名の登録がありません。"}};
}

void KrPlInDrive1::OnInit() {
    InitUtility();
    groups_.Init(kMostPelionNames, Groups());
    if (info_->database.plGroupKnown) groups_.Choose(Trimmed(Utility(), ReadFixedText(info_->database.plGroup)));
    users_.Init(kMostPelionNames, Users(), &groups_);
    InitChoice();
}

std::vector<std::string> KrPlInDrive1::Groups() const {
    const kiro::ui::WaitCursor cursor;
    if (GetPlFloppy(kListGroups, info_) != 0) return {};
    const TarnaDatabaseView& info = info_->database;
    return Names(Utility(), info.plFloppyGroupCount, info.plFloppyGroups);
}

// The host is asked by the record, which therefore has the group before the dialog is confirmed.
std::vector<std::string> KrPlInDrive1::Users() const {
    if (!groups_.HasChoice()) return {};
    const kiro::ui::WaitCursor cursor;
    TarnaDatabaseView& info = info_->database;
    WriteFixedText(info.plGroup, groups_.Chosen());
    if (GetPlFloppy(kListUsers, info_) != 0) return {};
    return Names(Utility(), info.plFloppyUserCount, info.plFloppyUsers);
}

void KrPlInDrive1::Store() {
    WriteFixedText(info_->database.plGroup, groups_.Chosen());
    WriteFixedText(info_->database.plUser, users_.Chosen());
}
