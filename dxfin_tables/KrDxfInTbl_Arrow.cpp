#include "dxfin_tables/KrDxfInTbl_Arrow.h"

#include <cmath>
#include <cstring>

#include "dxfin_tables/EditorTexts.h"
#include "dxfin_tables/KrDxfInTbl_IO.h"
#include "entry/host/kirodxf.h"
#include "resources/dxfin_tables/KrDxfInTbl_Arrow.ids.h"
#include "text/SlotText.h"

namespace {

constexpr int kFixedRows = 4;
constexpr KrColor kFixedText = 0x606060;
constexpr KrColor kFixedBackground = 0xFFFFFF;
constexpr double kSizeUnit = 0.01;  // the table has hundredths
constexpr double kSizeSteps = 100.0;

enum Column { kRowColumn, kNameColumn, kMarkColumn, kAngleColumn, kSizeColumn };

constexpr const char* kAngles[] = {"0", "180", nullptr};
constexpr kiro::ui::GridNames kNames = {"矢印名（複合図形名）が入力されていません %d",
                                        "矢印名（複合図形名）が重複しています %d : %s",
                                        "=",
                                        "矢印名に空白と「=」は使えません %d : %s",
                                        kDxfInLongestArrow,
                                        "矢印名が長すぎます（半角51文字以内） %d : %s"};
// By column, from the name on.
constexpr const char* kMissing[] = {"矢印名（複合図形名）が入力されていません %d", "マーク番号が入力されていません %d",
                                    "角度が入力されていません %d", "サイズが入力されていません %d"};

}  // namespace

KrDxfInTbl_Arrow::KrDxfInTbl_Arrow() : GridEditor(kDxfInArrowDialog), table_(std::make_unique<DxfInArrowTable>()) {
    for (int index = 0; const char* name = dxfinGetArrowName(index); ++index) names_.push_back(name);
    names_.push_back(nullptr);
}

void KrDxfInTbl_Arrow::Load() { KrDxfInTbl_IO(Utility(), Handle()).ReadArrowTable(*table_); }

kiro::ui::GridEditor::Shape KrDxfInTbl_Arrow::Form() const {
    return {"矢印割当て", "矢印割当て", kDxfInArrows, true, kFixedRows};
}

std::vector<kiro::ui::GridColumn> KrDxfInTbl_Arrow::Columns() const {
    return {{"番号", 1.0},
            // The prompt deliberately lacks its closing bracket.
            {"矢印名（複合図形名）", 5.0, 20, "矢印名（複合図形名を入力して下さい。", 0, "矢印名を選択してください",
             names_.data()},
            {"マーク番号", 1.5, 4, "マーク番号を入力して下さい。"},
            {"角度", 1.0, 0, "", 0, "角度を選択してください", kAngles},
            {"サイズ", 1.5, 10, "サイズを入力して下さい。"}};
}

void KrDxfInTbl_Arrow::FillRow(int row) {
    const DxfInArrowTable::Arrow& arrow = table_->arrows[row];
    SetTextAt(row, kNameColumn, SlotText(table_->arrowName[row]));
    SetTextAt(row, kMarkColumn, std::to_string(arrow.arrowMark));
    SetTextAt(row, kAngleColumn, std::to_string(arrow.arrowAngle));
    SetTextAt(row, kSizeColumn, NumberText(arrow.arrowSize * kSizeUnit));
    if (row >= kFixedRows) return;
    Grid().SetItemColor(row, kNameColumn, kFixedText, kFixedBackground);
    Grid().SetAvailableFlag(row, kNameColumn, 0);
}

void KrDxfInTbl_Arrow::FillNewRow(int row) {
    SetTextAt(row, kMarkColumn, "1");
    SetTextAt(row, kAngleColumn, "180");
    SetTextAt(row, kSizeColumn, "3");
}

const char* KrDxfInTbl_Arrow::ClickText(int row, int column) const {
    return column == kNameColumn && row < kFixedRows ? "矢印名（複合図形名）は変更できません。" : "";
}

bool KrDxfInTbl_Arrow::CheckGiven(int row) {
    for (int column = kNameColumn; column <= kSizeColumn; ++column) {
        if (TextAt(row, column).empty()) return Fail(row, column, Formatted(kMissing[column - kNameColumn], row + 1));
    }
    return true;
}

// Deliberately every angle from 0 to 180, though the file is read with 0 and 180 alone.
bool KrDxfInTbl_Arrow::CheckRow(int row) {
    return CheckGiven(row) && CheckName(row, kNameColumn, kNames) &&
           CheckInteger(row, kMarkColumn, 1, 4095, "無効なマーク番号です %d : %s") &&
           CheckInteger(row, kAngleColumn, 0, 180, "無効な角度です %d : %s") &&
           CheckReal(row, kSizeColumn, 0.1, 300.0, "無効なサイズです %d : %s");
}

void KrDxfInTbl_Arrow::Store() {
    const int rows = Rows();
    std::memset(table_->arrowName, 0, sizeof table_->arrowName);
    for (int row = 0; row < rows; ++row) {
        StoreText(table_->arrowName[row], TextAt(row, kNameColumn));
        table_->arrows[row] = {NumberAt(row, kMarkColumn),
                               NumberAt(row, kAngleColumn),
                               static_cast<std::int32_t>(std::lround(RealOf(TextAt(row, kSizeColumn)) * kSizeSteps)),
                               {}};
    }
    table_->arrowCount = rows;
}

bool KrDxfInTbl_Arrow::Save() { return KrDxfInTbl_IO(Utility(), Handle()).WriteArrowTable(*table_); }
