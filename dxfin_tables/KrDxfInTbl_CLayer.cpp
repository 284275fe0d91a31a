#include "dxfin_tables/KrDxfInTbl_CLayer.h"

#include <algorithm>
#include <cstring>

#include "resources/dxfin_tables/KrDxfInTbl_CLayer.ids.h"
#include "text/Numbers.h"
#include "text/SlotText.h"

namespace {

enum Column { kRowColumn, kNameColumn, kNumberColumn };

constexpr int kLargestNumber = 256;
constexpr char kMissing[] = "レイヤ名が入力されていません %d : ";
constexpr kiro::ui::GridRepeat kRepeated = {"レイヤ名が重複しています %d,%d : %s", true};
constexpr char kSeparated[] = "レイヤ名に空白と「=」は使えません %d : %s";

constexpr kiro::ui::GridColumn kClassColumns[] = {
    {"番号", 1.0},
    {"レイヤ名", 6.0, 24},
    {"クラス番号", 3.0, 4, "クラス番号を入力してください", {1, kLargestNumber}, "クラス番号を選択してください"}};
constexpr kiro::ui::GridColumn kRevisionColumns[] = {{"番号", 1.0},
                                                     {"レイヤ名", 6.0, 24},
                                                     {"レビジョン番号",
                                                      3.0,
                                                      4,
                                                      "レビジョン番号を入力してください",
                                                      {1, kLargestNumber},
                                                      "レビジョン番号を選択してください"}};

}  // namespace

struct KrDxfInTbl_CLayer::Mode {
    kiro::ui::GridForm form;
    kiro::ui::RowCheck::HostCheck check;
    kiro::ui::GridStorable storable;
};
const KrDxfInTbl_CLayer::Mode KrDxfInTbl_CLayer::kClasses = {
    {kDxfInLayerGridDialog, "レイヤのクラス割当て", "レイヤのクラス割当て", kClassColumns, kDxfInLayerSlots, true},
    &KrListControl::CheckClassNumber,
    {"=", kSeparated, kDxfInLongestClassLayer, "レイヤ名が長すぎます（半角68文字以内） %d : %s"}};
const KrDxfInTbl_CLayer::Mode KrDxfInTbl_CLayer::kRevisions = {
    {kDxfInLayerGridDialog, "レイヤのレビジョン割当て", "レイヤのレビジョン割当て", kRevisionColumns, kDxfInLayerSlots,
     true},
    &KrListControl::CheckRevisionNumber,
    {"=", kSeparated, kDxfInLongestRevisionLayer, "レイヤ名が長すぎます（半角58文字以内） %d : %s"}};

DxfInLayerRow DxfInLayerRow::New() {
    DxfInLayerRow row;
    row[kNumberColumn] = "1";
    return row;
}

// As many layers as the table holds, also where the row of "OTHER" is not shown.
kiro::ui::GridForm KrDxfInTbl_CLayer::FormOf(const DxfInLayerTable& table) {
    const bool revisions = table.layerSwitch == 1;
    kiro::ui::GridForm form = (revisions ? kRevisions : kClasses).form;
    if ((revisions ? table.layerRevision : table.layerClass)[0] != 0) {
        form.fixedRows = 1;
    } else {
        --form.limit;
    }
    return form;
}

KrDxfInTbl_CLayer::KrDxfInTbl_CLayer(DxfInLayerTable& table, std::string drawing)
    : GridEditor(FormOf(table)),
      mode_(table.layerSwitch == 1 ? kRevisions : kClasses),
      list_(table.layerSwitch == 1 ? RevisionsOf(table) : ClassesOf(table)),
      hasOther_(list_.numbers[0] != 0),
      fromDrawing_(*this, Grid(), mode_.form.caption, {drawing::NameKind::kLayer, kNameColumn, mode_.storable},
                   std::move(drawing)) {
    for (int entry = hasOther_ ? 0 : 1; entry <= std::clamp(list_.count, 0, kDxfInLayerSlots - 1); ++entry) {
        DxfInLayerRow row;
        row[kNameColumn] = entry == 0 ? "OTHER" : SlotText(list_.names[entry]);
        row[kNumberColumn] = std::to_string(list_.numbers[entry]);
        rows_.Add(std::move(row));
    }
}

void KrDxfInTbl_CLayer::Dress() {
    if (hasOther_) Grid().Control().SetAvailableFlag(0, kNameColumn, 0);
}

const char* KrDxfInTbl_CLayer::ClickText(int row, int column) const {
    if (column != kNameColumn) return "";
    return row == 0 ? "レイヤ名を変更できません" : "レイヤ名を入力してください";
}

void KrDxfInTbl_CLayer::CheckRow(const kiro::ui::RowCheck& check) {
    if (check.Given(kNameColumn, kMissing) && check.Unlike(kNameColumn, kRepeated) &&
        check.Storable(kNameColumn, mode_.storable)) {
        check.ByHost(kNumberColumn, mode_.check);
    }
}

// Deliberately the first row is entry 0, whether it is the row of "OTHER" or not.
void KrDxfInTbl_CLayer::Store() {
    std::memset(list_.numbers, 0, sizeof list_.numbers);
    std::memset(list_.names, 0, sizeof list_.names);
    int entry = 0;
    for (const DxfInLayerRow& row : rows_) {
        StoreText(list_.names[entry], row[kNameColumn]);
        list_.numbers[entry] = ReadInteger(row[kNumberColumn]).value_or(0);
        ++entry;
    }
    list_.count = std::max(entry - 1, 0);
}
