#include "dxfout_tables/KrDxfOutTbl_Arrow.h"

#include <string>
#include <vector>

#include "entry/host/kirodxf.h"
#include "resources/dxfout_tables/KrDxfOutTbl_Arrow.ids.h"
#include "text/Numbers.h"
#include "text/SlotText.h"
#include "text/TextFormat.h"

namespace {

enum Column { kRowColumn, kMarkColumn, kAngleColumn, kNameColumn };

constexpr const char* kAngles[] = {"0", "180", nullptr};

constexpr kiro::ui::GridColumn kColumns[] = {
    {"番号", 1.0},
    kiro::ui::OfNumbers({"マーク番号", 2.0, 4, "マーク番号を入力して下さい。"}),
    kiro::ui::OfNumbers({"角度", 1.5, 4, "角度を入力して下さい。", {}, "角度を選択してください", kAngles}),
    {"矢印名（複合図形名）",
     5.5,
     10,
     "矢印名（複合図形名）を入力して下さい。",
     {},
     "矢印を選択してください",
     nullptr,
     true}};
// The caption of the refusal is deliberately another one than the title.
constexpr kiro::ui::GridForm kForm = {kDxfOutArrowDialog, "矢印割当", "矢印割当て", kColumns, kDxfOutArrows, true};

// By column, from the mark on.
constexpr const char* kMissing[] = {"マーク番号が入力されていません %d", "角度が入力されていません %d",
                                    "矢印名（複合図形名）が入力されていません %d"};
constexpr char kBadAngle[] = "無効な角度です %d : %s";

// A cell that was found valid.
std::int32_t NumberOf(const std::string& text) { return ReadInteger(text).value_or(0); }

bool IsAngle(const kiro::ui::RowCheck& check) {
    if (!check.Integer(kAngleColumn, 0, 180, kBadAngle)) return false;
    const std::string& text = check.Text(kAngleColumn);
    const std::int32_t angle = NumberOf(text);
    return angle == 0 || angle == 180 || check.Fail(kAngleColumn, Formatted(kBadAngle, check.Row() + 1, text));
}

bool IsArrow(const kiro::ui::RowCheck& check) {
    const std::string& text = check.Text(kNameColumn);
    return dxfotCheckArrow(text.c_str())
               ? check.Pass(kNameColumn)
               : check.Fail(kNameColumn, Formatted("無効な矢印名です %d : %s", check.Row() + 1, text));
}

}  // namespace

DxfOutArrowRow DxfOutArrowRow::New() { return {{{"", "1", "180", ""}}}; }

bool DxfOutArrowRow::Check(const kiro::ui::RowCheck& check) const {
    for (int column = kMarkColumn; column <= kNameColumn; ++column) {
        if (!check.Given(column, kMissing[column - kMarkColumn])) return false;
    }
    return check.Integer(kMarkColumn, 1, 4095, "無効なマーク番号です %d : %s") && IsAngle(check) && IsArrow(check);
}

KrDxfOutTbl_Arrow::KrDxfOutTbl_Arrow() : GridEditor(kForm), table_(std::make_unique<DxfOutArrowTable>()) {}

void KrDxfOutTbl_Arrow::Load() {
    io_.emplace(Handle());
    io_->ReadArrowTable(table_.get());
    for (int i = 0; i < table_->arrowCount; ++i) {
        const DxfOutArrowTable::Arrow& arrow = table_->arrows[i];
        rows_.Add(
            {{{"", std::to_string(arrow.mark), std::to_string(arrow.angle), std::string(SlotText(arrow.arrowName))}}});
    }
}

void KrDxfOutTbl_Arrow::Dress() {
    std::vector<std::string> names;
    for (int index = 0; const char* name = dxfotGetArrowName(index); ++index) names.push_back(name);
    Grid().SetChoices(kNameColumn, names);
}

// The next row of a mark is noted, so that in the end all but the first of them are marked. Deliberately the check goes
// on, and the text shown is that of the repetition found last.
void KrDxfOutTbl_Arrow::CheckRow(const kiro::ui::RowCheck& check) {
    const auto mark = [this](int row) { return NumberOf(rows_[row][kMarkColumn]); };
    if (!rows_[check.Row()].Check(check)) return;
    int next = check.Row() + 1;
    while (next < rows_.Count() && mark(next) != mark(check.Row())) ++next;
    if (next < rows_.Count())
        kiro::ui::RowCheck(Grid(), next)
            .Note(kMarkColumn, Formatted("マーク番号が重複しています。 %d : %s", next + 1, rows_[next][kMarkColumn]));
}

void KrDxfOutTbl_Arrow::Store() {
    table_->arrowCount = 0;
    for (const DxfOutArrowRow& row : rows_) {
        DxfOutArrowTable::Arrow& arrow = table_->arrows[table_->arrowCount++];
        arrow.mark = NumberOf(row[kMarkColumn]);
        arrow.angle = NumberOf(row[kAngleColumn]);
        StoreText(arrow.arrowName, row[kNameColumn]);
    }
}
