#include "dxfin_tables/LayerTableOpening.h"

#include <memory>
#include <string>

#include "dxfin_tables/KrDxfInTbl_Layer.h"
#include "entry/host/FixedText.h"
#include "tablehub/TableIo.h"
#include "ui/MessageBoxes.h"

namespace {

constexpr char kCaption[] = "レイヤ変換テーブル";

// Whether the chosen file can be used: a new one must not replace another unasked, nor an existing one be missing.
bool AgreesTo(KrUtility& utility, HWND owner, LayerTableUse use, const std::string& path) {
    const bool exists = utility.Access(kTableKey, path.c_str()) == 0;
    if (exists == (use == LayerTableUse::kChange)) return true;
    const char* question =
        exists ? "\n\nファイルが既に存在します。上書きしますか。" : "\n\nファイルが見つかりません。作成しますか。";
    return kiro::ui::Ask(owner, path + question, kCaption, kiro::ui::Icon::kError);
}

}  // namespace

void OpenLayerTable(KrUtility& utility, HWND owner, LayerTableUse use) {
    const bool isNew = use == LayerTableUse::kNew;
    utility.SetCaption(kCaption);
    utility.SetComment(kCaption);
    utility.SetKeyword(kTableKey);
    utility.SetWildcard("DXFKIRO_LAYER*");
    if (!utility.FileDialog(isNew ? kKrChooseNew : kKrChooseExisting)) return;
    const std::string path = utility.GetFileName();

    const auto table = std::make_unique<DxfInLayerTable>();
    table->noFileRead = isNew;
    if (!WriteFixedText(table->fileName, path)) {
        kiro::ui::Tell(owner, "ファイル名が長すぎます", kCaption);
        return;
    }
    if (AgreesTo(utility, owner, use, path)) KrDxfInTbl_Layer(*table, 1, 0).DoModal(owner);
}
