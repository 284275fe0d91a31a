#include "peliondb/DatabaseInput.h"

#include "entry/host/FixedText.h"
#include "entry/host/kirocontrol.h"
#include "entry/host/kiromdl.h"
#include "peliondb/KrPlInDraw1.h"
#include "peliondb/KrPlInDraw2.h"
#include "ui/WaitCursor.h"

namespace {

constexpr int kLastPicture = 256;  // 0 stands for each drawing's own
constexpr std::size_t kViewBytes = 2;
// Deliberately two limits: more than 28 characters cannot be typed, and up to 30 are allowed.
constexpr unsigned int kSubModelTyped = 28;
constexpr std::size_t kSubModelBytes = 30;

constexpr int kNewMode = 0;

}  // namespace

DatabaseInput::DatabaseInput(const DatabaseInputForm& form, const char* title, TARNAINFO* info)
    : HostDialog(form.dialog),
      record_(*info),
      info_(info->database),
      title_(title),
      file_(*this, Utility(), form.file,
            [&form] {
                return kiro::ui::FileNameField::Place{form.fileKey, form.fileKey, false, form.fileComment,
                                                      kKrChooseExisting};
            }),
      form_(form),
      mode_(*this, {form.newRadio, form.addRadio, form.overlayRadio}),
      errors_(*this, {form.errorsRadio, form.noErrorsRadio}) {
    Guide({
        {form.viewEdit, form.viewGuidance},
        {form.subModelEdit, form.subModelGuidance},
        {form.file.edit, "図面ファイル名を入力してください。ワイルドカード文字が使用できます。"},
    });
    NormaliseOnKillFocus(form.viewEdit);
    NormaliseOnKillFocus(form.subModelEdit);
    mode_.OnChosen(nullptr);
    errors_.OnChosen(nullptr);
}

void DatabaseInput::OnInit() {
    InitUtility();
    kiro::ui::Window(Handle()).SetText(title_);
    Utility().SetCaption(title_);
    Utility().SetKeyword(form_.fileKey);
    Utility().SetComment(form_.fileComment);
    mode_.Select(kNewMode);
    errors_.Select(0);
    Item<kiro::ui::Edit>(form_.viewEdit).LimitText(kViewBytes);
    Item<kiro::ui::Edit>(form_.viewEdit).SetText("0");
    Item<kiro::ui::Edit>(form_.subModelEdit).LimitText(kSubModelTyped);
    Item<kiro::ui::Edit>(form_.subModelEdit).SetText("DSUB");
    const auto pictures = Item<kiro::ui::ComboBox>(form_.pictureCombo);
    for (int picture = 0; picture <= kLastPicture; ++picture) pictures.AddString(std::to_string(picture));
    pictures.SetCurSel(0);
    file_.Init();
}

// ---- Confirmation ----

void DatabaseInput::OnOk() {
    NormaliseAll();
    if (!CheckView() || !CheckOwn() || !CheckSubModel() || !CheckFileName()) return;
    // Deliberately before the windows that follow: it stays in the record when the user goes back from one of them.
    StoreChoices();
    if (IsFromFile() &&
        !file_.Confirm(title_, kiro::ui::FileNameField::Pattern::kGoesOn, kiro::ui::FileNameField::NameCheck::kNone)) {
        return;
    }
    StoreTexts();
    if (!AgreesToLoseModel() || !ChooseDrawings()) return;
    try {
        file_.Remember();
    } catch (...) {
        // The drawings are chosen: that is confirmed also when there is no memory for a list.
    }
    End(IDOK);
}

bool DatabaseInput::Refuse(int editId, const char* message) {
    RefuseInGuidance(editId, message, title_, kiro::ui::Icon::kWarning, false);
    return false;
}

bool DatabaseInput::CheckView() {
    const auto view = ReadText(form_.viewEdit, title_);
    if (!view) return false;
    view_ = *view;
    if (view_.empty()) return Refuse(form_.viewEdit, "入力ビュー名が入力されていません。");
    return view_.size() <= kViewBytes || Refuse(form_.viewEdit, "無効な入力ビュー名です。");
}

bool DatabaseInput::CheckSubModel() {
    const auto name = ReadText(form_.subModelEdit, title_);
    if (!name) return false;
    subModel_ = *name;
    if (subModel_.empty()) return Refuse(form_.subModelEdit, "サブモデル名が入力されていません。");
    if (subModel_.size() > kSubModelBytes) {
        return Refuse(form_.subModelEdit, "サブモデル名が長すぎます。（半角で30文字）");
    }
    return Utility().CheckModelName(subModel_.c_str()) ||
           Refuse(form_.subModelEdit, "サブモデル名に無効な文字があります。");
}

// Of every source: only the user can have emptied the field, in which he still is then.
bool DatabaseInput::CheckFileName() {
    return file_.Take(title_) && (!file_.Name().empty() || Refuse(form_.file.edit, "ファイル名が入力されていません。"));
}

void DatabaseInput::StoreChoices() {
    info_.dbMode = mode_.Selected();
    info_.dbNoErrorOutput = errors_.Selected();
    StoreOwnChoices();
}

void DatabaseInput::StoreTexts() {
    StoreOwnTexts();
    // What was checked fits.
    WriteFixedText(info_.dbInputView, view_);
    WriteFixedText(info_.dbSubModelName, SubModelForRecord(subModel_));
    // A name that no file is read by may be one that has no room: then there is none.
    if (!WriteFixedText(info_.dbFileName, FileForRecord())) WriteFixedText(info_.dbFileName, "");
    info_.dbPicture = Item<kiro::ui::ComboBox>(form_.pictureCombo).GetCurSel();
}

bool DatabaseInput::AgreesToLoseModel() {
    if (info_.dbMode != kNewMode || !GetActiveModel()->IsModified()) return true;
    return kiro::ui::Ask(Handle(), "モデルが保存されていません。\nモデルが壊れます。\nよろしいですか。", title_,
                         kiro::ui::Icon::kWarning, kiro::ui::Default::kNo);
}

bool DatabaseInput::ChooseDrawings() {
    if (!ChoosePlace()) return false;
    int list = 0;
    {
        const kiro::ui::WaitCursor cursor;
        list = ListDrawings();
    }
    if (list < 0) {
        kiro::ui::Tell(Handle(), "図面が登録されていません。", title_);
        return false;
    }
    const INT_PTR result =
        list == 0 ? KrPlInDraw1(&record_).DoModal(Handle()) : KrPlInDraw2(&record_).DoModal(Handle());
    if (result != IDOK) return false;
    TakeDrawings();
    return true;
}
