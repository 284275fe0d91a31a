#include "catia/KrCatiaIn.h"

#include "entry/host/FixedText.h"
#include "resources/catia/KrCatiaIn.ids.h"
#include "ui/MessageBoxes.h"

namespace {

constexpr char kCaption[] = "ＣＡＴＩＡ読込み";
constexpr char kKey[] = "#CATIA:DB#";
constexpr char kComment[] = "CATIAモデル";
constexpr int kPictures = 256;

kiro::ui::FileNameField::Place FilePlace() { return {kKey, kKey, false, kComment, kKrChooseExisting}; }

}  // namespace

KrCatiaIn::KrCatiaIn(CATIAINFO* info)
    : HostDialog(kCatiaInDialog),
      info_(*info),
      file_(*this, Utility(), {kCatiaFileEdit, kCatiaRecentCombo, kCatiaBrowseButton}, FilePlace),
      mode_(*this, {kCatiaNewRadio, kCatiaAddRadio}),
      hidden_(*this, {kCatiaHiddenOffRadio, kCatiaHiddenOnRadio}) {
    Guide({{kCatiaFileEdit, "ファイル名を入力してください。ワイルドカード文字が使えます。"},
           {kCatiaPictureCombo, "格納先ピクチャを選択してください。"}});
}

kiro::ui::ComboBox KrCatiaIn::Picture() const { return Item<kiro::ui::ComboBox>(kCatiaPictureCombo); }

void KrCatiaIn::OnInit() {
    InitUtility();
    Utility().SetCaption(kCaption);
    Utility().SetKeyword(kKey);
    Utility().SetComment(kComment);
    mode_.Select(0);
    hidden_.Select(0);
    for (int picture = 1; picture <= kPictures; ++picture) Picture().AddString(std::to_string(picture));
    Picture().SetCurSel(0);
    file_.Init();
}

void KrCatiaIn::OnOk() {
    if (!file_.Confirm(kCaption, kiro::ui::FileNameField::Pattern::kGoesOn)) return;
    const std::string path = file_.InternalPath();
    if (path.empty() || !WriteFixedText(info_.fileName, path)) {
        kiro::ui::Tell(Handle(), "ファイル名が長すぎます", kCaption);
        return FocusTo(kCatiaFileEdit);
    }
    info_.pictureNumber = Picture().GetCurSel() + 1;
    info_.addMode = mode_.Selected() == 1 ? 1 : 0;
    info_.convertHidden = hidden_.Selected() == 1 ? 1 : 0;
    try {
        file_.Remember();
    } catch (...) {
        // The record is written: what remains is confirmed also when there is no memory for a list.
    }
    End(IDOK);
}
