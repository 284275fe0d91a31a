#include "dxfin_tables/KrDxfInTbl_TFont.h"

#include <algorithm>
#include <cstring>

#include "dxfin_tables/KrDxfInTbl_TFont2.h"
#include "resources/dxfin_tables/KrDxfInTbl_TFont.ids.h"
#include "text/NumberText.h"
#include "text/SlotText.h"

namespace {

constexpr int kFixedRows = 4;
constexpr int kVertical = 2;  // the direction of a style

enum Column { kRowColumn, kNameColumn, kDirectionColumn, kFirstFactor };

constexpr const char* kDirections[] = {"横", "縦", nullptr};

constexpr kiro::ui::GridColumn kColumns[] = {
    {"番号", 0.65},
    {"書体名", 1.5, 20},
    {"横／縦", 0.84, 0, "", {}, "横／縦を選択してください。", kDirections},
    kiro::ui::OfNumbers({"幅係数(漢字)", 1.5, 10, "文字幅係数（漢字）を入力して下さい。"}),
    kiro::ui::OfNumbers({"幅係数(英数)", 1.5, 10, "文字幅係数（英数）を入力して下さい。"}),
    kiro::ui::OfNumbers({"行間隔", 0.9, 10, "行間隔係数を入力して下さい。"}),
    kiro::ui::OfNumbers({"描画係数(漢字)", 1.7, 10, "文字描画係数（漢字）を入力して下さい。"}),
    kiro::ui::OfNumbers({"描画係数(英数)", 1.7, 10, "文字描画係数（英数）を入力して下さい。"})};
constexpr kiro::ui::GridForm kForm = {
    kDxfInTextFontDialog, "文字フォント割当て", "文字フォント割当て", kColumns, kDxfInStyles, true, kFixedRows};

constexpr kiro::ui::GridRepeat kRepeated = {"書体名が重複しています %d : %s", false};
constexpr kiro::ui::GridStorable kStorable = {",", "書体名に空白と「,」は使えません %d : %s", kDxfInLongestStyle,
                                              "書体名が長すぎます（半角45文字以内） %d : %s"};
constexpr char kBadWidth[] = "無効な文字幅係数です %d : %s";
constexpr char kBadSpacing[] = "無効な行間隔係数です %d : %s";
constexpr char kBadDrawing[] = "無効な文字描画係数です %d : %s";

// The factors from column 3 on. A drawing factor is at most the width factor in another column.
struct Factor {
    DxfInStyleReal real;
    double stored;  // what the table has more than the grid
    const char* start;
    double low;
    double high;
    int widthColumn;
    const char* bad;
};
constexpr Factor kFactors[] = {{kStyleR1, 0.0, "1.1875", 0.1, 10.0, 0, kBadWidth},
                               {kStyleR2, 0.0, "0.95", 0.1, 10.0, 0, kBadWidth},
                               {kStyleR3, 1.0, "0.4", 0.01, 10.0, 0, kBadSpacing},
                               {kStyleR5, 0.0, "0.95", 0.1, 0.0, kFirstFactor, kBadDrawing},
                               {kStyleR6, 0.0, "0.75", 0.1, 0.0, kFirstFactor + 1, kBadDrawing}};

}  // namespace

DxfInStyleRow DxfInStyleRow::New() {
    DxfInStyleRow row{{}, kDxfInNewStyle};
    row[kDirectionColumn] = kDirections[0];
    int column = kFirstFactor;
    for (const Factor& factor : kFactors) row[column++] = factor.start;
    return row;
}

void DxfInStyleRow::Check(const kiro::ui::RowCheck& check) const {
    if (!check.Given(kNameColumn, "書体名が入力されていません %d") || !check.Unlike(kNameColumn, kRepeated) ||
        !check.Storable(kNameColumn, kStorable)) {
        return;
    }
    int column = kFirstFactor;
    for (const Factor& factor : kFactors) {
        const double high = factor.widthColumn ? RealOf((*this)[factor.widthColumn]) : factor.high;
        if (!check.Real(column++, factor.low, high, factor.bad)) return;
    }
}

KrDxfInTbl_TFont::KrDxfInTbl_TFont(std::string drawing)
    : GridEditor(kForm),
      table_(std::make_unique<DxfInStyleTable>()),
      fromDrawing_(*this, Grid(), kForm.caption, {drawing::NameKind::kTextStyle, kNameColumn, kStorable},
                   std::move(drawing)) {
    On(kExplainButton, BN_CLICKED, &KrDxfInTbl_TFont::Explain);
}

void KrDxfInTbl_TFont::Load() {
    io_.emplace(Utility(), Handle());
    io_->ReadStyleTable(*table_);
    for (int style = 0; style < table_->styleCount; ++style) {
        DxfInStyleRow row;
        std::copy_n(table_->styleInts[style], 8, row.values.ints);
        std::copy_n(table_->styleReals[style], 8, row.values.reals);
        row[kNameColumn] = SlotText(table_->styleName[style]);
        row[kDirectionColumn] = kDirections[row.values.ints[kStyleI1] == 0 ? 0 : 1];
        int column = kFirstFactor;
        for (const Factor& factor : kFactors) row[column++] = NumberText(row.values.reals[factor.real] - factor.stored);
        rows_.Add(std::move(row));
    }
}

void KrDxfInTbl_TFont::Dress() {
    for (int row = 0; row < kFixedRows; ++row) Grid().Control().SetAvailableFlag(row, kNameColumn, 0);
}

const char* KrDxfInTbl_TFont::ClickText(int row, int column) const {
    return column == kNameColumn && row < kFixedRows ? "書体名は変更できません。" : "";
}

void KrDxfInTbl_TFont::Store() {
    std::memset(table_->styleName, 0, sizeof table_->styleName);
    table_->styleCount = 0;
    for (const DxfInStyleRow& row : rows_) {
        const int style = table_->styleCount++;
        DxfInStyleValues values = row.values;
        StoreText(table_->styleName[style], row[kNameColumn]);
        values.ints[kStyleI1] = row[kDirectionColumn] == kDirections[0] ? 0 : kVertical;
        int column = kFirstFactor;
        for (const Factor& factor : kFactors) values.reals[factor.real] = RealOf(row[column++]) + factor.stored;
        std::copy_n(values.ints, 8, table_->styleInts[style]);
        std::copy_n(values.reals, 8, table_->styleReals[style]);
    }
}

void KrDxfInTbl_TFont::Explain() {
    if (Grid().EndEdit()) KrDxfInTbl_TFont2().DoModal(Handle());
}
