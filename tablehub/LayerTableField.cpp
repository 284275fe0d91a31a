#include "tablehub/LayerTableField.h"

#include <utility>

#include "entry/host/kirobc.h"
#include "tablehub/TableIo.h"
#include "ui/MessageBoxes.h"

namespace {

constexpr unsigned int kNameLimit = 256;  // characters

}  // namespace

LayerTableField::LayerTableField(kiro::ui::HostDialog& dialog, const Controls& controls, const char* pattern,
                                 std::string given)
    : dialog_(dialog),
      controls_(controls),
      pattern_(pattern),
      given_(std::move(given)),
      shown_(KrEdited(dialog.Utility(), given_, &KrUtility::ToSJIS)) {
    dialog.Bind(controls.browseButton, BN_CLICKED, [this] { Browse(); });
}

void LayerTableField::Init() {
    dialog_.Item<kiro::ui::Edit>(controls_.edit).LimitText(kNameLimit);
    Show(shown_);
}

void LayerTableField::Browse() const {
    KrUtility& utility = dialog_.Utility();
    utility.SetKeyword(kTableKey);
    utility.SetComment("レイヤ変換テーブルファイル");
    utility.SetWildcard(pattern_);
    if (utility.FileDialog(kKrChooseExisting)) Show(utility.GetFileName());
}

void LayerTableField::Show(const std::string& name) const {
    dialog_.Item<kiro::ui::Edit>(controls_.edit).SetText(name);
    dialog_.Item<kiro::ui::Edit>(controls_.edit).ShowEnd();
}

void LayerTableField::Refuse(const char* message, const std::string& caption, int controlId) const {
    kiro::ui::Tell(dialog_.Handle(), message, caption);
    dialog_.FocusTo(controlId);
}

std::optional<std::string> LayerTableField::Confirm(const std::string& caption, std::size_t room) const {
    const auto name = dialog_.ReadText(controls_.edit, caption);
    if (!name || name->empty()) return name;
    const bool untouched = *name == shown_;
    const bool shownWhole = HxEucEncoder::Sjis2Euc(shown_) == given_;
    if (!untouched || shownWhole) {
        std::string path = KrInternalPath(dialog_.Utility(), kTableKey, *name);
        if (!path.empty() && path.size() < room) return path;
    }
    if (untouched) return given_;
    Refuse("レイヤ変換テーブルのファイル名が無効です", caption, controls_.browseButton);
    return std::nullopt;
}
