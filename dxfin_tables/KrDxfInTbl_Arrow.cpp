#include "dxfin_tables/KrDxfInTbl_Arrow.h"

#include <cmath>
#include <cstring>

#include "entry/host/kirodxf.h"
#include "resources/dxfin_tables/KrDxfInTbl_Arrow.ids.h"
#include "text/NumberText.h"
#include "text/SlotText.h"

namespace {

constexpr int kFixedRows = 4;
constexpr KrColor kFixedText = 0x606060;
constexpr KrColor kFixedBackground = 0xFFFFFF;
constexpr double kSizeUnit = 0.01;  // the table has hundredths
constexpr double kSizeSteps = 100.0;

enum Column { kRowColumn, kNameColumn, kMarkColumn, kAngleColumn, kSizeColumn };

constexpr const char* kAngles[] = {"0", "180", nullptr};

constexpr kiro::ui::GridColumn kColumns[] = {
    {"番号", 1.0},
    // The prompt deliberately lacks its closing bracket.
    {"矢印名（複合図形名）",
     5.0,
     20,
     "矢印名（複合図形名を入力して下さい。",
     {},
     "矢印名を選択してください",
     nullptr,
     true},
    kiro::ui::OfNumbers({"マーク番号", 1.5, 4, "マーク番号を入力して下さい。"}),
    {"角度", 1.0, 0, "", {}, "角度を選択してください", kAngles},
    kiro::ui::OfNumbers({"サイズ", 1.5, 10, "サイズを入力して下さい。"})};
constexpr kiro::ui::GridForm kForm = {kDxfInArrowDialog, "矢印割当て", "矢印割当て", kColumns,
                                      kDxfInArrows,      true,         kFixedRows};

// By column, from the name on.
constexpr const char* kMissing[] = {"矢印名（複合図形名）が入力されていません %d", "マーク番号が入力されていません %d",
                                    "角度が入力されていません %d", "サイズが入力されていません %d"};
constexpr kiro::ui::GridRepeat kRepeated = {"矢印名（複合図形名）が重複しています %d : %s", false};
constexpr kiro::ui::GridStorable kStorable = {"=", "矢印名に空白と「=」は使えません %d : %s", kDxfInLongestArrow,
                                              "矢印名が長すぎます（半角51文字以内） %d : %s"};

}  // namespace

DxfInArrowRow DxfInArrowRow::New() {
    DxfInArrowRow row;
    row[kMarkColumn] = "1";
    row[kAngleColumn] = "180";
    row[kSizeColumn] = "3";
    return row;
}

// Deliberately every angle from 0 to 180, though the file is read with 0 and 180 alone.
void DxfInArrowRow::Check(const kiro::ui::RowCheck& check) const {
    for (int column = kNameColumn; column <= kSizeColumn; ++column) {
        if (!check.Given(column, kMissing[column - kNameColumn])) return;
    }
    if (check.Unlike(kNameColumn, kRepeated) && check.Storable(kNameColumn, kStorable) &&
        check.Integer(kMarkColumn, 1, 4095, "無効なマーク番号です %d : %s") &&
        check.Integer(kAngleColumn, 0, 180, "無効な角度です %d : %s")) {
        check.Real(kSizeColumn, 0.1, 300.0, "無効なサイズです %d : %s");
    }
}

KrDxfInTbl_Arrow::KrDxfInTbl_Arrow(std::string drawing)
    : GridEditor(kForm),
      table_(std::make_unique<DxfInArrowTable>()),
      fromDrawing_(*this, Grid(), kForm.caption, {drawing::NameKind::kArrow, kNameColumn, kStorable},
                   std::move(drawing)) {}

void KrDxfInTbl_Arrow::Load() {
    io_.emplace(Utility(), Handle());
    io_->ReadArrowTable(*table_);
    for (int arrow = 0; arrow < table_->arrowCount; ++arrow) {
        DxfInArrowRow row;
        row[kNameColumn] = SlotText(table_->arrowName[arrow]);
        row[kMarkColumn] = std::to_string(table_->arrows[arrow].arrowMark);
        row[kAngleColumn] = std::to_string(table_->arrows[arrow].arrowAngle);
        row[kSizeColumn] = NumberText(table_->arrows[arrow].arrowSize * kSizeUnit);
        rows_.Add(std::move(row));
    }
}

void KrDxfInTbl_Arrow::Dress() {
    std::vector<std::string> names;
    for (int index = 0; const char* name = dxfinGetArrowName(index); ++index) names.push_back(name);
    Grid().SetChoices(kNameColumn, names);
    for (int row = 0; row < kFixedRows; ++row) {
        Grid().Control().SetItemColor(row, kNameColumn, kFixedText, kFixedBackground);
        Grid().Control().SetAvailableFlag(row, kNameColumn, 0);
    }
}

const char* KrDxfInTbl_Arrow::ClickText(int row, int column) const {
    return column == kNameColumn && row < kFixedRows ? "矢印名（複合図形名）は変更できません。" : "";
}

void KrDxfInTbl_Arrow::Store() {
    std::memset(table_->arrowName, 0, sizeof table_->arrowName);
    table_->arrowCount = 0;
    for (const DxfInArrowRow& row : rows_) {
        StoreText(table_->arrowName[table_->arrowCount], row[kNameColumn]);
        const double size = std::round(RealOf(row[kSizeColumn]) * kSizeSteps);
        table_->arrows[table_->arrowCount++] = {ReadInteger(row[kMarkColumn]).value_or(0),
                                                ReadInteger(row[kAngleColumn]).value_or(0),
                                                static_cast<std::int32_t>(size),
                                                {}};
    }
}
