#include "ui/FileNameField.h"

#include <utility>

#include "ui/MessageBoxes.h"
#include "ui/Probe.h"
#include "ui/Text.h"

namespace kiro::ui {
namespace {

constexpr char kPlaceholder[] = "ファイル名を入力 または［参照］でファイルを選択";
constexpr unsigned int kNameLimit = 255;  // characters that can be typed
constexpr COLORREF kPlaceholderColor = RGB(0x80, 0x80, 0x80);

}  // namespace

FileNameField::FileNameField(Dialog& dialog, KrUtility& utility, const Controls& controls, std::function<Place()> place,
                             const char* emptyName, std::function<void()> nameSet, std::function<void()> cleared)
    : dialog_(dialog),
      utility_(utility),
      controls_(controls),
      place_(std::move(place)),
      emptyName_(emptyName),
      nameSet_(std::move(nameSet)),
      cleared_(std::move(cleared)),
      recent_(
          dialog, controls.recentCombo, controls.edit, [this](int index) { OnRecentChosen(index); }, controls.wide),
      name_(emptyName) {
    dialog.BindFocus(controls.edit, [this](bool gained) { OnFocus(gained); });
    dialog.Bind(controls.edit, EN_CHANGE, [this] { OnChange(); });
    dialog.Bind(controls.browseButton, BN_CLICKED, [this] { Browse(); });
    dialog.BindMessage(WM_CTLCOLOREDIT, [this](WPARAM wParam, LPARAM lParam) -> std::optional<INT_PTR> {
        if (entered_ || reinterpret_cast<HWND>(lParam) != NameEdit().Handle()) return std::nullopt;
        const auto dc = reinterpret_cast<HDC>(wParam);
        SetTextColor(dc, kPlaceholderColor);
        SetBkColor(dc, GetSysColor(COLOR_WINDOW));
        return reinterpret_cast<INT_PTR>(GetSysColorBrush(COLOR_WINDOW));
    });
}

void FileNameField::Init() {
    NameEdit().LimitText(kNameLimit);
    LoadRecent();
    Clear();
}

void FileNameField::Clear() {
    name_ = emptyName_;
    entered_ = false;
    Show(kPlaceholder);
    if (cleared_) cleared_();
}

bool FileNameField::HasName() const {
    const bool isNone = name_.empty() || name_ == emptyName_ || name_ == kPlaceholder;
    return !isNone && !(controls_.anyIsNone && name_ == kAnyName);
}

void FileNameField::Enable(bool on) const {
    for (const int id : {controls_.edit, controls_.recentCombo, controls_.browseButton})
        dialog_.Item<Window>(id).Enable(on);
}

std::string FileNameField::InternalPath() const { return KrInternalPath(utility_, place_().key, name_); }

void FileNameField::OnFocus(bool gained) {
    if (gained) {
        if (entered_) return;
        entered_ = true;
        Show(name_);
        NameEdit().SelectAll();
        return;
    }
    Normalise();
    if (!NameEdit().Text()) {
        if (cleared_) cleared_();  // a text that is no name, and stays to be put right
    } else if (!HasName()) {
        Clear();
    } else if (nameSet_) {
        nameSet_();
    }
}

bool FileNameField::Take(const std::string& caption) {
    Normalise();
    return !entered_ || dialog_.ReadText(controls_.edit, caption);
}

void FileNameField::Normalise() {
    const auto text = NameEdit().Text();
    if (!entered_ || !text) return;
    name_ = KrEdited(utility_, *text, &KrUtility::KillFocus);
    if (name_ != *text) Show(name_);
}

void FileNameField::OnChange() {
    // A text that cannot be read counts as no name until it is confirmed, and is refused then.
    name_ = NameEdit().Text().value_or(std::string());
    entered_ = true;
}

void FileNameField::OnRecentChosen(int index) {
    const std::string name = KrEdited(utility_, recent_.Combo().GetLBText(index), &KrUtility::ExceptSpace);
    if (name.empty()) return;
    utility_.SetFilePath(&recentNames_, name.c_str(), RecentHandle(), recentMax_);
    SetName(name);
    dialog_.FocusTo(controls_.edit);
}

bool FileNameField::Browse() {
    const Place place = place_();
    place.floppy ? utility_.SetFloppy(place.chooserKey) : utility_.SetKeyword(place.chooserKey);
    utility_.SetComment(place.comment);
    utility_.SetWildcard(name_.c_str());
    if (!utility_.FileDialog(place.mode)) return false;
    SetName(utility_.GetFileName());
    return true;
}

bool FileNameField::Refuse() {
    dialog_.FocusTo(controls_.edit);
    return false;
}

bool FileNameField::Confirm(const std::string& caption, Pattern pattern, NameCheck check) {
    if (!Take(caption)) return false;
    const Place place = place_();
    utility_.SetKeyword(place.key);
    if (check == NameCheck::kByHost && !utility_.CheckFile(name_.c_str())) return Refuse();
    if (IsPattern()) {
        if (!Browse() || pattern == Pattern::kStays) return Refuse();
        utility_.SetKeyword(place.key);
    }
    return (Answers(place, caption) && Access(place)) || Refuse();
}

// A name whose drive or share does not answer now stays on the recently used ones.
bool FileNameField::Answers(const Place& place, const std::string& caption) const {
    char path[kKrPathSize];
    const std::string internal = InternalPath();
    path[internal.copy(path, sizeof path - 1)] = 0;
    if (!utility_.RealPathName(place.key, path, sizeof path) || IsAnswering(ToWide(path))) return true;
    Tell(dialog_.Handle(), name_ + "\n\nフォルダが応答しません。\nネットワークの接続を確認してください。", caption);
    return false;
}

bool FileNameField::Access(const Place& place) {
    if (place.mode == kKrChooseNew) return utility_.CheckOutputFile(name_.c_str()) != 0;
    if (utility_.CheckInputFile(name_.c_str())) return true;
    // Off the list that shows; the kept one follows when a name is remembered.
    utility_.DelFilePath(&recentNames_, name_.c_str(), RecentHandle(), recentMax_);
    return false;
}

void FileNameField::SetName(const std::string& name) {
    name_ = name;
    entered_ = true;
    Show(name);
    NameEdit().ShowEnd();
    if (nameSet_) nameSet_();
}

void FileNameField::Show(const std::string& text) {
    const Dialog::Loading loading(dialog_);
    NameEdit().SetText(text);
    InvalidateRect(NameEdit().Handle(), nullptr, TRUE);
}

void FileNameField::LoadRecent() {
    utility_.GetUsedFile(place_().key, kKrUsedFiles, &recentNames_, &recentMax_, RecentHandle());
}

void FileNameField::ClearRecent() {
    const int none = 0;
    utility_.SetUsedFile(place_().key, kKrUsedFiles, &recentNames_, &none);
    LoadRecent();
}

void FileNameField::Remember() {
    if (HasName() && !IsPattern()) utility_.SetFilePath(&recentNames_, name_.c_str(), RecentHandle(), recentMax_);
    utility_.SetUsedFile(place_().key, kKrUsedFiles, &recentNames_, &recentMax_);
}

}  // namespace kiro::ui
