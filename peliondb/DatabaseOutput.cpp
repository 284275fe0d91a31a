#include "peliondb/DatabaseOutput.h"

#include <algorithm>
#include <cstring>

#include "entry/host/FixedText.h"
#include "entry/host/kirobc.h"
#include "peliondb/KrPlOutDraw.h"
#include "text/TextFormat.h"
#include "ui/WaitCursor.h"

using kiro::ui::Edit;
using kiro::ui::Icon;

namespace {

constexpr int kLastNumber = 256;  // of pages and of pictures
constexpr int kAddMode = 1;
constexpr char kEveryModel[] = "*";
constexpr std::size_t kNameBytes = 127;  // of a page or picture, as it is shown

}  // namespace

DatabaseOutput::DatabaseOutput(const DatabaseOutputForm& form, const char* title, TARNAINFO* info)
    : HostDialog(form.dialog),
      record_(*info),
      info_(info->database),
      title_(title),
      file_(
          *this, Utility(), form.file,
          [this] {
              const int chooser = mode_.Selected() == kAddMode ? kKrChooseExisting : kKrChooseNew;
              return kiro::ui::FileNameField::Place{form_.fileKey, form_.fileKey, false, form_.fileComment, chooser};
          },
          kiro::ui::FileNameField::kNoName),
      mode_(*this, {form.newRadio, form.addRadio}),
      form_(form),
      model_(*this, {form.currentModelRadio, form.byNameRadio}),
      data_(*this, {form.pageRadio, form.currentRadio, form.pictureRadio, form.activeRadio}),
      pages_{form.pageCombo, {}},
      pictures_{form.pictureCombo, {}},
      currentPicture_(info->database.dbPicture) {
    BindControls();
}

void DatabaseOutput::BindControls() {
    Guide({
        {form_.file.edit, form_.fileGuidance},
        {form_.patternEdit, "モデル名を入力してください。"},
        {form_.groupEdit, "グループ名を入力してください。"},
        {form_.userEdit, "ユーザ名を入力してください。"},
        {form_.drawingEdit, "図面名を入力してください。"},
        {form_.pageCombo, ""},
        {form_.pictureCombo, ""},
    });
    Bind(form_.pageCombo, CBN_DROPDOWN, [this] { ShowGuidance("ページ番号を選択してください。"); });
    Bind(form_.pictureCombo, CBN_DROPDOWN, [this] { ShowGuidance("ピクチャ番号を選択してください。"); });
    for (const int id : {form_.patternEdit, form_.groupEdit, form_.userEdit, form_.drawingEdit})
        NormaliseOnKillFocus(id);
    mode_.OnChosen(nullptr);
    model_.OnChosen([this](int model) { ModelChosen(model); });
    data_.OnChosen([this](int data) { DataChosen(data); });
    Bind(form_.modelsButton, BN_CLICKED, [this] { ShowModels(); });
    Bind(form_.parametersButton, BN_CLICKED, [this] { OpenParameters(); });
}

void DatabaseOutput::OnInit() {
    InitUtility();
    kiro::ui::Window(Handle()).SetText(title_);
    Utility().SetCaption(title_);
    Utility().SetKeyword(form_.fileKey);
    mode_.Select(0);
    model_.Select(0);
    InitEdit(form_.patternEdit, 32, "");
    InitEdit(form_.groupEdit, 4, ReadFixedText(info_.plGroup));
    InitEdit(form_.userEdit, 6, ReadFixedText(info_.plUser));
    InitEdit(form_.drawingEdit, 20, "");
    SetText(form_.currentEdit, std::to_string(currentPicture_));
    SetText(form_.currentItemsEdit, std::to_string(CurrentItems()));
    SetText(form_.activeItemsEdit, std::to_string(info_.dbActiveListCount));
    // Deliberately at once, whatever becomes of the dialog.
    info_.dbSource = 0;
    info_.dbMode = 0;
    info_.dbModelByName = 0;
    ModelChosen(0);
    file_.Init();
}

void DatabaseOutput::InitEdit(int editId, unsigned int characters, const std::string& text) const {
    Item<Edit>(editId).LimitText(characters);
    SetText(editId, text);
}

void DatabaseOutput::EnableAll(std::initializer_list<int> controlIds, bool on) const {
    for (const int id : controlIds) Item<kiro::ui::Window>(id).Enable(on);
}

// ---- Models ----

void DatabaseOutput::ModelChosen(int model) {
    const bool byName = model == 1;
    SetText(form_.patternEdit, kEveryModel);
    SetText(form_.drawingEdit, "");
    info_.dbOutModelCount = 0;
    EnableAll({form_.patternEdit, form_.modelsButton}, byName);
    EnableAll({form_.drawingEdit, form_.currentRadio, form_.activeRadio}, !byName);
    EnableAll({form_.pageRadio, form_.pictureRadio}, true);
    if (byName) {
        ListAll(pages_);
        ListAll(pictures_);
    } else {
        ListExisting();
    }
    data_.Select(byName ? kPicture : kCurrent);
    FollowData(byName ? kPicture : kCurrent);
}

void DatabaseOutput::ShowModels() {
    const auto pattern = ReadText(form_.patternEdit, title_);
    if (!pattern) return;
    // As many characters as can be typed have room.
    WriteFixedText(info_.patternSlot.dbModelPattern, *pattern);
    int found = 0;
    {
        const kiro::ui::WaitCursor cursor;
        found = GetPlOutputModel(&record_);
    }
    if (found > 0 && info_.dbOutModelCount > 0) {
        KrPlOutDraw(&record_).DoModal(Handle());
    } else {
        Utility().ErrorText("該当するモデルが見つかりません。");
    }
}

// ---- Data ----

int DatabaseOutput::CurrentItems() const {
    if (currentPicture_ < 1 || currentPicture_ > kLastNumber) return 0;
    return info_.dbPictureCounts[currentPicture_ - 1];
}

// Those that exist, and which choices there are by that.
void DatabaseOutput::ListExisting() {
    ListExisting(pages_, info_.dbPageCounts, info_.dbPageNames);
    ListExisting(pictures_, info_.dbPictureCounts, info_.dbPictureNames);
    EnableAll({form_.pageRadio}, HasData(kPage));
    EnableAll({form_.activeRadio}, HasData(kActive));
}

void DatabaseOutput::ListExisting(Numbers& numbers, const std::int32_t (&counts)[256],
                                  const char (&names)[257][257]) const {
    const auto combo = Item<kiro::ui::ComboBox>(numbers.combo);
    combo.ResetContent();
    numbers.ofEntries.clear();
    for (int number = 1; number <= kLastNumber; ++number) {
        if (counts[number - 1] == 0) continue;
        const std::string name = HxEucEncoder::Euc2Sjis(ReadFixedText(names[number]), kNameBytes);
        combo.AddString(Formatted("%3d : %s", number, name));
        numbers.ofEntries.push_back(number);
    }
}

// Models by name have pages and pictures that nobody knows here.
void DatabaseOutput::ListAll(Numbers& numbers) const {
    const auto combo = Item<kiro::ui::ComboBox>(numbers.combo);
    combo.ResetContent();
    numbers.ofEntries.clear();
    for (int number = 1; number <= kLastNumber; ++number) {
        combo.AddString(std::to_string(number));
        numbers.ofEntries.push_back(number);
    }
    combo.SetCurSel(0);
}

int DatabaseOutput::Chosen(const Numbers& numbers) const {
    const int entry = Item<kiro::ui::ComboBox>(numbers.combo).GetCurSel();
    return entry < 0 ? 0 : numbers.ofEntries[static_cast<std::size_t>(entry)];
}

bool DatabaseOutput::HasData(int data) const {
    if (data == kPage) return !pages_.ofEntries.empty();
    if (data == kPicture) return !pictures_.ofEntries.empty();
    return data != kActive || info_.dbActiveListCount > 0;
}

void DatabaseOutput::DataChosen(int data) {
    constexpr const char* kNothing[] = {"図面配置情報がありません", "", "ピクチャにデータがありません",
                                        "アクティブリストにデータがありません"};
    if (!HasData(data)) {
        kiro::ui::Tell(Handle(), kNothing[data], title_);
        data = kCurrent;
        data_.Select(data);
        FocusTo(form_.currentRadio);
    }
    FollowData(data);
    if (data == kPage) Item<kiro::ui::ComboBox>(pages_.combo).SetCurSel(0);
    if (data == kPicture) Item<kiro::ui::ComboBox>(pictures_.combo).SetCurSel(0);
}

void DatabaseOutput::FollowData(int data) {
    EnableAll({pages_.combo}, data == kPage);
    EnableAll({pictures_.combo}, data == kPicture);
}

// ---- Confirmation ----

void DatabaseOutput::OnOk() {
    NormaliseAll();
    if ((IsToFile() && !CheckFile()) || !CheckOwn() ||
        !CheckText(form_.groupEdit, info_.plGroup,
                   {"グループ名が入力されていません。", "グループ名が長すぎます。（半角で5文字）"}) ||
        !CheckText(form_.userEdit, info_.plUser,
                   {"ユーザ名が入力されていません。", "ユーザ名が長すぎます。（半角で7文字）"}) ||
        !CheckModels()) {
        return;
    }
    // Deliberately before the host looks at the names, which it finds there.
    Store();
    if (!StoreData() || !AcceptsNames()) return;
    try {
        file_.Remember();
    } catch (...) {
        // The record is written: that is confirmed also when there is no memory for a list.
    }
    End(IDOK);
}

bool DatabaseOutput::Refuse(int controlId, const char* message) {
    RefuseInGuidance(controlId, message, title_, Icon::kError, true);
    return false;
}

void DatabaseOutput::TellError(const std::string& message) const {
    kiro::ui::Tell(Handle(), message, title_, Icon::kError);
}

bool DatabaseOutput::CheckFile() {
    using kiro::ui::FileNameField;
    if (!file_.Take(title_)) return false;
    if (!file_.HasName() || file_.IsPattern()) return Refuse(form_.file.edit, "図面ファイル名が入力されていません。");
    Utility().SetKeyword(form_.fileKey);
    if (!Utility().CheckFileName(file_.Name().c_str()))
        return Refuse(form_.file.edit, "図面ファイル名に無効な文字があります。");
    if (!file_.Confirm(title_, FileNameField::Pattern::kStays, FileNameField::NameCheck::kNone)) return false;
    return FitsFixedText(info_.patternSlot.dbOutFileName, file_.InternalPath()) ||
           Refuse(form_.file.edit, "図面ファイル名が長すぎます。");
}

bool DatabaseOutput::CheckText(int editId, std::size_t bytes, const TextWords& words) {
    const auto text = ReadText(editId, title_);
    if (!text) return false;
    if (text->empty()) return Refuse(editId, words.missing);
    return text->size() <= bytes || Refuse(editId, words.tooLong);
}

bool DatabaseOutput::CheckModels() {
    if (!IsByName()) {
        return CheckText(form_.drawingEdit, info_.dbDrawingName,
                         {"図面名が入力されていません。", "図面名が長すぎます。（半角で23文字）"});
    }
    const int count = std::clamp(info_.dbOutModelCount, 0, kMostDatabaseDrawings);
    const TarnaDrawing* drawings = info_.dbDrawings;
    return std::any_of(drawings, drawings + count, [](const TarnaDrawing& drawing) { return drawing.selected != 0; }) ||
           Refuse(form_.modelsButton, "モデルが選択されていません。");
}

// What was checked fits; of what nobody asked for, nothing is stored in part.
void DatabaseOutput::StoreText(char* field, std::size_t size, int editId) const {
    const std::string text = Item<Edit>(editId).Text().value_or(std::string());
    std::memset(field, 0, size);
    if (text.size() < size) text.copy(field, text.size());
}

void DatabaseOutput::Store() {
    // The pattern of the models' names behind it stays. A name that is not written to may be one that has no room.
    const std::string file = file_.HasName() ? file_.InternalPath() : std::string();
    if (!WriteFixedText(info_.patternSlot.dbOutFileName, file)) WriteFixedText(info_.patternSlot.dbOutFileName, "");
    StoreText(info_.plGroup, form_.groupEdit);
    StoreText(info_.plUser, form_.userEdit);
    StoreText(info_.dbDrawingName, form_.drawingEdit);
    info_.dbMode = mode_.Selected();
    info_.dbModelByName = IsByName() ? 1 : 0;
    StoreOwn();
}

bool DatabaseOutput::StoreData() {
    const int data = data_.Selected();
    info_.dbOutPage = data == kPage ? Chosen(pages_) : 0;
    info_.dbPicture = data == kPicture ? Chosen(pictures_) : data == kCurrent ? currentPicture_ : 0;
    info_.dbFromActiveList = data == kActive ? 1 : 0;
    if (data != kCurrent || !form_.refusesEmptyPicture || CurrentItems() > 0) return true;
    TellError("出力するアイテムがありません。");
    return false;
}

bool DatabaseOutput::AcceptsNames() {
    constexpr int kWritable = 0;
    constexpr int kExists = 1;
    int answer = kWritable;
    {
        const kiro::ui::WaitCursor cursor;
        answer = CheckDrawingName();
    }
    if (answer == kExists) return Overwrites();
    if (answer != kWritable) TellError(WrongFileText());
    return answer == kWritable;
}

bool DatabaseOutput::Overwrites() {
    TellError("図面名が重複しています。");
    return false;
}
