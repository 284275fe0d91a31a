#include "dxfin_tables/KrDxfInTbl_TFont.h"

#include <algorithm>
#include <cstring>

#include "dxfin_tables/EditorTexts.h"
#include "dxfin_tables/KrDxfInTbl_IO.h"
#include "dxfin_tables/KrDxfInTbl_TFont2.h"
#include "resources/dxfin_tables/KrDxfInTbl_TFont.ids.h"
#include "text/SlotText.h"

namespace {

constexpr int kFixedRows = 4;
constexpr int kVertical = 2;  // the direction of a style

enum Column { kRowColumn, kNameColumn, kDirectionColumn, kFirstFactor };

constexpr kiro::ui::GridNames kNames = {"書体名が入力されていません %d",
                                        "書体名が重複しています %d : %s",
                                        ",",
                                        "書体名に空白と「,」は使えません %d : %s",
                                        kDxfInLongestStyle,
                                        "書体名が長すぎます（半角45文字以内） %d : %s"};
constexpr const char* kDirections[] = {"横", "縦", nullptr};
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

KrDxfInTbl_TFont::KrDxfInTbl_TFont() : GridEditor(kDxfInTextFontDialog), table_(std::make_unique<DxfInStyleTable>()) {
    On(kExplainButton, BN_CLICKED, &KrDxfInTbl_TFont::Explain);
}

void KrDxfInTbl_TFont::Load() {
    KrDxfInTbl_IO(Utility(), Handle()).ReadStyleTable(*table_);
    for (int row = 0; row < table_->styleCount; ++row) {
        DxfInStyleValues& values = values_.emplace_back();
        std::copy_n(table_->styleInts[row], 8, values.ints);
        std::copy_n(table_->styleReals[row], 8, values.reals);
    }
}

kiro::ui::GridEditor::Shape KrDxfInTbl_TFont::Form() const {
    return {"文字フォント割当て", "文字フォント割当て", kDxfInStyles, true, kFixedRows};
}

std::vector<kiro::ui::GridColumn> KrDxfInTbl_TFont::Columns() const {
    return {{"番号", 0.65},
            {"書体名", 1.5, 20, ""},
            {"横／縦", 0.84, 0, "", 0, "横／縦を選択してください。", kDirections},
            {"幅係数(漢字)", 1.5, 10, "文字幅係数（漢字）を入力して下さい。"},
            {"幅係数(英数)", 1.5, 10, "文字幅係数（英数）を入力して下さい。"},
            {"行間隔", 0.9, 10, "行間隔係数を入力して下さい。"},
            {"描画係数(漢字)", 1.7, 10, "文字描画係数（漢字）を入力して下さい。"},
            {"描画係数(英数)", 1.7, 10, "文字描画係数（英数）を入力して下さい。"}};
}

void KrDxfInTbl_TFont::FillRow(int row) {
    const DxfInStyleValues& values = values_[static_cast<std::size_t>(row)];
    SetTextAt(row, kNameColumn, SlotText(table_->styleName[row]));
    SetTextAt(row, kDirectionColumn, kDirections[values.ints[kStyleI1] == 0 ? 0 : 1]);
    int column = kFirstFactor;
    for (const Factor& factor : kFactors)
        SetTextAt(row, column++, NumberText(values.reals[factor.real] - factor.stored));
    if (row < kFixedRows) Grid().SetAvailableFlag(row, kNameColumn, 0);
}

void KrDxfInTbl_TFont::FillNewRow(int row) {
    values_.insert(values_.begin() + row, kDxfInNewStyle);
    SetTextAt(row, kDirectionColumn, kDirections[0]);
    int column = kFirstFactor;
    for (const Factor& factor : kFactors) SetTextAt(row, column++, factor.start);
}

const char* KrDxfInTbl_TFont::ClickText(int row, int column) const {
    return column == kNameColumn && row < kFixedRows ? "書体名は変更できません。" : "";
}

bool KrDxfInTbl_TFont::CheckRow(int row) {
    if (!CheckName(row, kNameColumn, kNames)) return false;
    int column = kFirstFactor;
    for (const Factor& factor : kFactors) {
        const double high = factor.widthColumn ? RealOf(TextAt(row, factor.widthColumn)) : factor.high;
        if (!CheckReal(row, column++, factor.low, high, factor.bad)) return false;
    }
    return true;
}

void KrDxfInTbl_TFont::Store() {
    const int rows = Rows();
    std::memset(table_->styleName, 0, sizeof table_->styleName);
    for (int row = 0; row < rows; ++row) {
        DxfInStyleValues& values = values_[static_cast<std::size_t>(row)];
        StoreText(table_->styleName[row], TextAt(row, kNameColumn));
        values.ints[kStyleI1] = TextAt(row, kDirectionColumn) == kDirections[0] ? 0 : kVertical;
        int column = kFirstFactor;
        for (const Factor& factor : kFactors) values.reals[factor.real] = RealOf(TextAt(row, column++)) + factor.stored;
        std::copy_n(values.ints, 8, table_->styleInts[row]);
        std::copy_n(values.reals, 8, table_->styleReals[row]);
    }
    table_->styleCount = rows;
}

bool KrDxfInTbl_TFont::Save() { return KrDxfInTbl_IO(Utility(), Handle()).WriteStyleTable(*table_); }

void KrDxfInTbl_TFont::Explain() {
    if (Grid().EndEdit()) KrDxfInTbl_TFont2().DoModal(Handle());
}
