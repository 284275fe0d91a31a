#include "dxfin_tables/KrDxfInTbl_LStyle.h"

#include <cstring>

#include "dxfin_tables/LineWeights.h"
#include "resources/dxfin_tables/KrDxfInTbl_LStyle.ids.h"
#include "text/Numbers.h"
#include "text/SlotText.h"

namespace {

enum Column { kRowColumn, kNameColumn, kFontColumn, kWeightColumn };

constexpr int kLargestFont = 63;

constexpr kiro::ui::GridColumn kColumns[] = {
    {"番号", 1.5},
    {"線種名", 5.5, 20, "線種名を入力してください"},
    {"線種", 1.5, 4, "線種を入力してください", {1, kLargestFont}, "線種を選択してください"},
    {"線幅", 1.5, 4, "線幅を入力してください", {1, kDxfInLargestWeight}, "線幅を選択してください"}};
constexpr kiro::ui::GridForm kForm = {kDxfInLineTypeGridDialog, "線種割当て", "線種割当て", kColumns,
                                      kDxfInLineTypes,          true};

constexpr kiro::ui::GridRepeat kRepeated = {"線種名が重複しています %d,%d : %s", true};
constexpr kiro::ui::GridStorable kStorable = {"=", "線種名に空白と「=」は使えません %d : %s", kDxfInLongestLineType,
                                              "線種名が長すぎます（半角107文字以内） %d : %s"};

}  // namespace

DxfInLineTypeRow DxfInLineTypeRow::New() {
    DxfInLineTypeRow row;
    row[kFontColumn] = row[kWeightColumn] = "1";
    return row;
}

void DxfInLineTypeRow::Check(const kiro::ui::RowCheck& check) const {
    if (check.Given(kNameColumn, "線種名が入力されていません %d : ") && check.Unlike(kNameColumn, kRepeated) &&
        check.Storable(kNameColumn, kStorable) &&
        check.Integer(kFontColumn, 1, kLargestFont, "無効な線種番号です %d : %s")) {
        check.Integer(kWeightColumn, 1, kDxfInLargestWeight, kBadLineWeight);
    }
}

KrDxfInTbl_LStyle::KrDxfInTbl_LStyle(DxfInLineTable& table, std::string drawing)
    : GridEditor(kForm),
      table_(table),
      fromDrawing_(*this, Grid(), kForm.caption, {drawing::NameKind::kLineType, kNameColumn, kStorable},
                   std::move(drawing)) {
    for (int entry = 0; entry < table.lineTypeCount; ++entry) {
        DxfInLineTypeRow row;
        row[kNameColumn] = SlotText(table.lineTypeName[entry]);
        row[kFontColumn] = std::to_string(table.lineTypes[entry].lineFont);
        row[kWeightColumn] = std::to_string(table.lineTypes[entry].lineWeight);
        rows_.Add(std::move(row));
    }
}

void KrDxfInTbl_LStyle::Store() {
    std::memset(table_.lineTypes, 0, sizeof table_.lineTypes);
    std::memset(table_.lineTypeName, 0, sizeof table_.lineTypeName);
    table_.lineTypeCount = 0;
    for (const DxfInLineTypeRow& row : rows_) {
        StoreText(table_.lineTypeName[table_.lineTypeCount], row[kNameColumn]);
        table_.lineTypes[table_.lineTypeCount++] = {
            ReadInteger(row[kFontColumn]).value_or(0), ReadInteger(row[kWeightColumn]).value_or(0), {}};
    }
}
