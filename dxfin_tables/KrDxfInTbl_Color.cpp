#include "dxfin_tables/KrDxfInTbl_Color.h"

#include "resources/dxfin_tables/KrDxfInTbl_Color.ids.h"

namespace {

constexpr int kNumberColumn = 1;
constexpr int kShownColors = 255;  // 1 to 255; 0 and 256 stay as they are
constexpr int kLargestNumber = 256;

}  // namespace

KrDxfInTbl_Color::KrDxfInTbl_Color(DxfInLayerTable& table)
    : GridEditor(kDxfInColorGridDialog),
      classMode_(table.layerSwitch == 1),
      numbers_(classMode_ ? table.colorClass : table.colorRevision) {}

kiro::ui::GridEditor::Shape KrDxfInTbl_Color::Form() const {
    const char* title = classMode_ ? "色のクラス割当て" : "色のレビジョン割当て";
    return {title, title, kShownColors, false};
}

std::vector<kiro::ui::GridColumn> KrDxfInTbl_Color::Columns() const {
    if (classMode_) {
        return {{"色", 5.0},
                {"クラス番号", 5.0, 4, "クラス番号を入力してください", kLargestNumber, "クラス番号を選択してください"}};
    }
    return {{"色", 5.0},
            {"レビジョン番号", 5.0, 4, "レビジョン番号を入力してください", kLargestNumber,
             "レビジョン番号を選択してください"}};
}

int KrDxfInTbl_Color::RowCount() const { return kShownColors; }

void KrDxfInTbl_Color::FillRow(int row) { SetTextAt(row, kNumberColumn, std::to_string(numbers_[row + 1])); }

bool KrDxfInTbl_Color::CheckRow(int row) {
    const std::string text = TextAt(row, kNumberColumn);
    const bool valid = classMode_ ? Grid().CheckClassNumber(row, text.c_str()) != 0
                                  : Grid().CheckRevisionNumber(row, text.c_str()) != 0;
    // The grid shows the message.
    return valid ? Pass(row, kNumberColumn) : Fail(row, kNumberColumn, "");
}

void KrDxfInTbl_Color::Store() {
    for (int row = 0; row < kShownColors; ++row) numbers_[row + 1] = NumberAt(row, kNumberColumn);
}
