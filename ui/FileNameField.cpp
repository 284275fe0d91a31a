#include "ui/FileNameField.h"

#include <utility>

namespace kiro::ui {
namespace {

constexpr char kPlaceholder[] = "ファイル名を入力 または［参照］でファイルを選択";
constexpr char kAnyName[] = "*";
constexpr unsigned int kNameLimit = 255;  // characters that can be typed
constexpr COLORREF kPlaceholderColor = RGB(0x80, 0x80, 0x80);

}  // namespace

FileNameField::FileNameField(Dialog& dialog, KrUtility& utility, const Controls& controls,
                             std::function<Chooser()> chooser, std::function<void()> nameSet,
                             std::function<void()> cleared)
    : dialog_(dialog),
      utility_(utility),
      controls_(controls),
      chooser_(std::move(chooser)),
      nameSet_(std::move(nameSet)),
      cleared_(std::move(cleared)),
      recent_(dialog, controls.recentCombo, controls.edit, [this](int index) { OnRecentChosen(index); }) {
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

void FileNameField::Init(const char* recentKey) {
    NameEdit().LimitText(kNameLimit);
    LoadRecent(recentKey);
    Clear();
}

void FileNameField::Clear() {
    name_ = kAnyName;
    entered_ = false;
    Show(kPlaceholder);
    cleared_();
}

bool FileNameField::Readable(const std::string& caption) {
    return !entered_ || dialog_.ReadText(controls_.edit, caption).has_value();
}

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
        cleared_();
    } else if (name_.empty() || name_ == kAnyName) {
        Clear();
    } else {
        nameSet_();
    }
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

void FileNameField::Browse() {
    const Chooser chooser = chooser_();
    chooser.floppy ? utility_.SetFloppy(chooser.key) : utility_.SetKeyword(chooser.key);
    utility_.SetComment(chooser.comment);
    utility_.SetWildcard(name_.c_str());
    if (!utility_.FileDialog(chooser.mode)) return;
    SetName(utility_.GetFileName());
}

void FileNameField::SetName(const std::string& name) {
    name_ = name;
    entered_ = true;
    Show(name);
    NameEdit().ShowEnd();
    nameSet_();
}

void FileNameField::Show(const std::string& text) {
    const Dialog::Loading loading(dialog_);
    NameEdit().SetText(text);
    InvalidateRect(NameEdit().Handle(), nullptr, TRUE);
}

void FileNameField::LoadRecent(const char* key) {
    utility_.GetUsedFile(key, kKrUsedFiles, &recentNames_, &recentMax_, RecentHandle());
}

void FileNameField::ClearRecent(const char* key) {
    const int none = 0;
    utility_.SetUsedFile(key, kKrUsedFiles, &recentNames_, &none);
    LoadRecent(key);
}

void FileNameField::Remember(const char* key) {
    utility_.SetFilePath(&recentNames_, name_.c_str(), RecentHandle(), recentMax_);
    utility_.SetUsedFile(key, kKrUsedFiles, &recentNames_, &recentMax_);
}

void FileNameField::Forget() { utility_.DelFilePath(&recentNames_, name_.c_str(), RecentHandle(), recentMax_); }

}  // namespace kiro::ui
