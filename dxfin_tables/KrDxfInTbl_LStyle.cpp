#include "dxfin_tables/KrDxfInTbl_LStyle.h"

#include <cstring>

#include "dxfin_tables/EditorTexts.h"
#include "dxfin_tables/LineWeights.h"
#include "resources/dxfin_tables/KrDxfInTbl_LStyle.ids.h"
#include "text/SlotText.h"

namespace {

enum Column { kRowColumn, kNameColumn, kFontColumn, kWeightColumn };

constexpr int kLargestFont = 63;
constexpr kiro::ui::GridNames kNames = {"線種名が入力されていません %d : ",
                                        "線種名が重複しています %d,%d : %s",
                                        "=",
                                        "線種名に空白と「=」は使えません %d : %s",
                                        kDxfInLongestLineType,
                                        "線種名が長すぎます（半角107文字以内） %d : %s"};

}  // namespace

KrDxfInTbl_LStyle::KrDxfInTbl_LStyle(DxfInLineTable& table) : GridEditor(kDxfInLineTypeGridDialog), table_(table) {}

kiro::ui::GridEditor::Shape KrDxfInTbl_LStyle::Form() const {
    return {"線種割当て", "線種割当て", kDxfInLineTypes, true};
}

std::vector<kiro::ui::GridColumn> KrDxfInTbl_LStyle::Columns() const {
    return {{"番号", 1.5},
            {"線種名", 5.5, 20, "線種名を入力してください"},
            {"線種", 1.5, 4, "線種を入力してください", kLargestFont, "線種を選択してください"},
            {"線幅", 1.5, 4, "線幅を入力してください", kDxfInLargestWeight, "線幅を選択してください"}};
}

void KrDxfInTbl_LStyle::FillRow(int row) {
    SetTextAt(row, kNameColumn, SlotText(table_.lineTypeName[row]));
    SetTextAt(row, kFontColumn, std::to_string(table_.lineTypes[row].lineFont));
    SetTextAt(row, kWeightColumn, std::to_string(table_.lineTypes[row].lineWeight));
}

void KrDxfInTbl_LStyle::FillNewRow(int row) {
    SetTextAt(row, kFontColumn, "1");
    SetTextAt(row, kWeightColumn, "1");
}

bool KrDxfInTbl_LStyle::CheckRow(int row) {
    return CheckName(row, kNameColumn, kNames) &&
           CheckInteger(row, kFontColumn, 1, kLargestFont, "無効な線種番号です %d : %s") &&
           CheckInteger(row, kWeightColumn, 1, kDxfInLargestWeight, kBadLineWeight);
}

void KrDxfInTbl_LStyle::Store() {
    const int rows = Rows();
    std::memset(table_.lineTypes, 0, sizeof table_.lineTypes);
    std::memset(table_.lineTypeName, 0, sizeof table_.lineTypeName);
    for (int row = 0; row < rows; ++row) {
        StoreText(table_.lineTypeName[row], TextAt(row, kNameColumn));
        table_.lineTypes[row].lineFont = NumberAt(row, kFontColumn);
        table_.lineTypes[row].lineWeight = NumberAt(row, kWeightColumn);
    }
    table_.lineTypeCount = rows;
}
