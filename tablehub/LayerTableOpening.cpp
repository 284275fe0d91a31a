#include "tablehub/LayerTableOpening.h"

#include <algorithm>

#include "tablehub/TableIo.h"
#include "text/SlotText.h"
#include "ui/MessageBoxes.h"

namespace {

constexpr char kCaption[] = "レイヤ変換テーブル";

char LowerCase(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

// Whether the file is one that the chooser lists: its name begins like that, in whatever letter case.
bool IsListed(const std::string& path, const std::string& name) {
    const std::string_view file = FileNameOf(path);
    return std::equal(name.begin(), name.end(), file.begin(), file.begin() + std::min(file.size(), name.size()),
                      [](char left, char right) { return LowerCase(left) == LowerCase(right); });
}

// The path of the chosen file; "" when there is none. A new one gets a name under which it is found again.
std::string Choose(KrUtility& utility, HWND owner, LayerTableUse use, const std::string& name) {
    const bool isNew = use == LayerTableUse::kNew;
    utility.SetCaption(kCaption);
    utility.SetComment(kCaption);
    utility.SetKeyword(kTableKey);
    for (;;) {
        utility.SetWildcard((name + "*").c_str());
        if (!utility.FileDialog(isNew ? kKrChooseNew : kKrChooseExisting)) return {};
        const std::string path = utility.GetFileName();
        if (!isNew || IsListed(path, name)) return path;
        kiro::ui::Tell(owner, "レイヤ変換テーブルの名前は「" + name + "」で始めてください。", kCaption);
    }
}

// Whether the chosen file can be used: a new one must not replace another unasked, nor an existing one be missing.
bool AgreesTo(KrUtility& utility, HWND owner, LayerTableUse use, const std::string& path) {
    using kiro::ui::Default;
    const bool exists = utility.Access(kTableKey, path.c_str()) == 0;
    if (exists == (use == LayerTableUse::kChange)) return true;
    const char* question =
        exists ? "\n\nファイルが既に存在します。上書きしますか。" : "\n\nファイルが見つかりません。作成しますか。";
    return kiro::ui::Ask(owner, path + question, kCaption, kiro::ui::Icon::kError,
                         exists ? Default::kNo : Default::kYes);
}

}  // namespace

void OpenLayerTable(KrUtility& utility, HWND owner, LayerTableUse use, const std::string& name,
                    const std::function<void(const std::string&, bool)>& open) {
    const std::string path = Choose(utility, owner, use, name);
    if (path.empty()) return;
    if (path.size() >= kLongestTablePath) {
        kiro::ui::Tell(owner, "ファイル名が長すぎます", kCaption);
        return;
    }
    if (AgreesTo(utility, owner, use, path)) open(path, use == LayerTableUse::kNew);
}
