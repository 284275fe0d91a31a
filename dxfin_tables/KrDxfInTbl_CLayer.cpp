#include "dxfin_tables/KrDxfInTbl_CLayer.h"

#include <algorithm>
#include <cstring>

#include "dxfin_tables/EditorTexts.h"
#include "resources/dxfin_tables/KrDxfInTbl_CLayer.ids.h"
#include "text/SlotText.h"

namespace {

enum Column { kRowColumn, kNameColumn, kNumberColumn };

constexpr int kLargestNumber = 256;
constexpr char kMissing[] = "レイヤ名が入力されていません %d : ";
constexpr char kRepeated[] = "レイヤ名が重複しています %d,%d : %s";
constexpr char kSeparated[] = "レイヤ名に空白と「=」は使えません %d : %s";

}  // namespace

struct KrDxfInTbl_CLayer::Mode {
    const char* title;
    const char* header;
    const char* choosePrompt;
    const char* typePrompt;
    int (KrListControl::*check)(int row, const char* text);
    kiro::ui::GridNames names;
};
const KrDxfInTbl_CLayer::Mode KrDxfInTbl_CLayer::kClasses = {
    "レイヤのクラス割当て",
    "クラス番号",
    "クラス番号を選択してください",
    "クラス番号を入力してください",
    &KrListControl::CheckClassNumber,
    {kMissing, kRepeated, "=", kSeparated, kDxfInLongestClassLayer, "レイヤ名が長すぎます（半角68文字以内） %d : %s"}};
const KrDxfInTbl_CLayer::Mode KrDxfInTbl_CLayer::kRevisions = {
    "レイヤのレビジョン割当て",
    "レビジョン番号",
    "レビジョン番号を選択してください",
    "レビジョン番号を入力してください",
    &KrListControl::CheckRevisionNumber,
    {kMissing, kRepeated, "=", kSeparated, kDxfInLongestRevisionLayer,
     "レイヤ名が長すぎます（半角58文字以内） %d : %s"}};

KrDxfInTbl_CLayer::KrDxfInTbl_CLayer(DxfInLayerTable& table)
    : GridEditor(kDxfInLayerGridDialog),
      mode_(table.layerSwitch == 1 ? kRevisions : kClasses),
      count_(table.layerSwitch == 1 ? table.layerRevisionCount : table.layerClassCount),
      numbers_(table.layerSwitch == 1 ? table.layerRevision : table.layerClass),
      names_(table.layerSwitch == 1 ? table.layerRevisionName : table.layerClassName) {}

// As many layers as the table holds, also where the row of "OTHER" is not shown.
kiro::ui::GridEditor::Shape KrDxfInTbl_CLayer::Form() const {
    return {mode_.title, mode_.title, HasOther() ? kDxfInLayerSlots : kDxfInLayerSlots - 1, true, HasOther() ? 1 : 0};
}

std::vector<kiro::ui::GridColumn> KrDxfInTbl_CLayer::Columns() const {
    return {{"番号", 1.0},
            {"レイヤ名", 6.0, 24, ""},
            {mode_.header, 3.0, 4, mode_.typePrompt, kLargestNumber, mode_.choosePrompt}};
}

int KrDxfInTbl_CLayer::RowCount() const { return std::clamp(count_, 0, kDxfInLayerSlots - 1) + (HasOther() ? 1 : 0); }

void KrDxfInTbl_CLayer::FillRow(int row) {
    const int entry = HasOther() ? row : row + 1;
    SetTextAt(row, kNameColumn, entry == 0 ? "OTHER" : SlotText(names_[entry]));
    SetTextAt(row, kNumberColumn, std::to_string(numbers_[entry]));
    if (entry == 0) Grid().SetAvailableFlag(row, kNameColumn, 0);
}

void KrDxfInTbl_CLayer::FillNewRow(int row) { SetTextAt(row, kNumberColumn, "1"); }

const char* KrDxfInTbl_CLayer::ClickText(int row, int column) const {
    if (column != kNameColumn) return "";
    return row == 0 ? "レイヤ名を変更できません" : "レイヤ名を入力してください";
}

bool KrDxfInTbl_CLayer::CheckRow(int row) {
    if (!CheckName(row, kNameColumn, mode_.names)) return false;
    // The grid shows the message.
    const bool valid = (Grid().*mode_.check)(row, TextAt(row, kNumberColumn).c_str()) != 0;
    return valid ? Pass(row, kNumberColumn) : Fail(row, kNumberColumn, "");
}

// Deliberately the first row is entry 0, whether it is the row of "OTHER" or not.
void KrDxfInTbl_CLayer::Store() {
    const int rows = Rows();
    std::memset(numbers_, 0, sizeof numbers_);
    std::memset(names_, 0, sizeof names_);
    for (int row = 0; row < rows; ++row) {
        StoreText(names_[row], TextAt(row, kNameColumn));
        numbers_[row] = NumberAt(row, kNumberColumn);
    }
    count_ = std::max(rows - 1, 0);
}
