#include "dxfout_tables/KrDxfOutTbl_TFont.h"

#include <limits>
#include <string>
#include <utility>

#include "dxfout_tables/KrDxfOutTbl_TFont2.h"
#include "resources/dxfout_tables/KrDxfOutTbl_TFont.ids.h"
#include "text/NumberText.h"
#include "text/SlotText.h"

namespace {

using Style = DxfOutStyleTable::Style;

constexpr int kStyles = kStyleTBigFont + 1;  // that have a use: one a row
constexpr int kVertical = 2;                 // f2

enum Column { kRowColumn, kNameColumn, kDirectionColumn, kFirstFactor, kFontColumn = 7, kBigFontColumn };

constexpr const char* kDirections[] = {"横", "縦", nullptr};

constexpr kiro::ui::GridColumn kColumns[] = {
    {"番号", 0.65},
    {"書体名", 1.3, 20},
    {"横／縦", 0.9, 0, "", {}, "横／縦を選択してください。", kDirections},
    kiro::ui::OfNumbers({"幅係数(漢字)", 1.45, 10, "文字幅係数（漢字）を入力して下さい。"}),
    kiro::ui::OfNumbers({"幅係数(英数)", 1.45, 10, "文字幅係数（英数）を入力して下さい。"}),
    kiro::ui::OfNumbers({"描画係数(漢字)", 1.65, 10, "文字描画係数（漢字）を入力して下さい。"}),
    kiro::ui::OfNumbers({"描画係数(英数)", 1.65, 10, "文字描画係数（英数）を入力して下さい。"}),
    {"フォント", 1.75, 40, "フォントファイル名を入力して下さい。"},
    {"ビッグフォント", 1.75, 40, "ビッグフォントファイル名を入力して下さい。"}};
constexpr kiro::ui::GridForm kForm = {kDxfOutTextFontDialog, "文字フォント割当て", "文字フォント割当て", kColumns,
                                      kStyles};

constexpr kiro::ui::GridRepeat kRepeated = {"書体名が重複しています %d : %s", false};
// How long a text may be depends on the rest of its record.
constexpr std::size_t kAnyLength = std::string::npos;
constexpr kiro::ui::GridStorable kStorableName = {",", "書体名に空白と「,」は使えません %d : %s", kAnyLength, ""};
constexpr kiro::ui::GridStorable kStorableFont = {",", "フォントファイル名に空白と「,」は使えません %d : %s",
                                                  kAnyLength, ""};
constexpr kiro::ui::GridStorable kStorableBigFont = {",", "ビッグフォントファイル名に空白と「,」は使えません %d : %s",
                                                     kAnyLength, ""};
constexpr char kOtherName[] = "この行の書体名は「%s」です %d : %s";
constexpr char kTooLong[] = "1行に書ける長さを半角%d文字分超えています %d : %s";
constexpr char kBadWidth[] = "無効な文字幅係数です %d : %s";
constexpr char kBadDrawing[] = "無効な文字描画係数です %d : %s";

// The factors from column 3 on, with the range that the file has for them.
struct Factor {
    double Style::*value;
    bool ofKanji;
    double low;
    const char* bad;
};
constexpr double kAboveZero = std::numeric_limits<double>::min();
constexpr double kLargestFactor = 999.0;
constexpr Factor kFactors[] = {{&Style::f3, true, kAboveZero, kBadWidth},
                               {&Style::f1, false, 0.0, kBadWidth},
                               {&Style::f9, true, kAboveZero, kBadDrawing},
                               {&Style::f8, false, kAboveZero, kBadDrawing}};

bool IsFactor(int column) { return column >= kFirstFactor && column < kFontColumn; }

// The factors of kanji belong to the big font of a pair and those of alphanumerics to the other style. The reader of
// the file replaces what the partner says.
bool BelongsTo(int row, int column) { return kFactors[column - kFirstFactor].ofKanji == IsDxfOutBigFont(row); }

}  // namespace

bool DxfOutStyleRow::HasOwnName(int row) const { return (*this)[kNameColumn] == DxfOutStyleName(row); }

Style DxfOutStyleRow::Values() const {
    Style values = style;
    StoreText(values.styleName, (*this)[kNameColumn]);
    values.f2 = (*this)[kDirectionColumn] == kDirections[0] ? 0 : kVertical;
    int column = kFirstFactor;
    for (const Factor& factor : kFactors) values.*factor.value = RealOf((*this)[column++]);
    StoreText(values.fontFile, (*this)[kFontColumn]);
    StoreText(values.bigFontFile, (*this)[kBigFontColumn]);
    return values;
}

void DxfOutStyleRow::Check(const kiro::ui::RowCheck& check) const {
    if (CheckName(check) && CheckFactors(check) && CheckFonts(check)) CheckLength(check);
}

bool DxfOutStyleRow::CheckName(const kiro::ui::RowCheck& check) const {
    if (!check.Given(kNameColumn, "書体名が入力されていません %d") || !check.Unlike(kNameColumn, kRepeated) ||
        !check.Storable(kNameColumn, kStorableName)) {
        return false;
    }
    const int row = check.Row();
    if (row == kStyleStandard || HasOwnName(row)) return true;
    return check.Fail(kNameColumn, Formatted(kOtherName, DxfOutStyleName(row), row + 1, (*this)[kNameColumn]));
}

bool DxfOutStyleRow::CheckFactors(const kiro::ui::RowCheck& check) const {
    int column = kFirstFactor;
    for (const Factor& factor : kFactors) {
        const int at = column++;
        if (BelongsTo(check.Row(), at) && !check.Real(at, factor.low, kLargestFactor, factor.bad)) return false;
    }
    return true;
}

bool DxfOutStyleRow::CheckFonts(const kiro::ui::RowCheck& check) const {
    return check.Given(kFontColumn, "フォントファイル名が入力されていません %d") &&
           check.Storable(kFontColumn, kStorableFont) &&
           (!IsDxfOutBigFont(check.Row()) ||
            check.Given(kBigFontColumn, "ビッグフォントファイル名が入力されていません %d")) &&
           check.Storable(kBigFontColumn, kStorableBigFont);
}

// The longest text that can be changed is the one to be made shorter.
bool DxfOutStyleRow::CheckLength(const kiro::ui::RowCheck& check) const {
    Style values = Values();
    StoreText(values.styleName, "");
    StoreText(values.fontFile, "");
    StoreText(values.bigFontFile, "");
    std::size_t bytes = DxfOutStyleBytes(values);
    int longest = kFontColumn;
    for (const int column : {kNameColumn, kFontColumn, kBigFontColumn}) {
        const std::size_t size = (*this)[column].size();
        bytes += size;
        if (size > (*this)[longest].size() && (column != kNameColumn || !HasOwnName(check.Row()))) longest = column;
    }
    if (bytes <= kDxfOutLongestStyle) return true;
    const auto excess = static_cast<std::int32_t>(bytes - kDxfOutLongestStyle);
    return check.Fail(longest, Formatted(kTooLong, excess, check.Row() + 1, (*this)[longest]));
}

KrDxfOutTbl_TFont::KrDxfOutTbl_TFont(const TARNAINFO* info)
    : GridEditor(kForm), info_(info), table_(std::make_unique<DxfOutStyleTable>()) {
    Grid().OnCellChanged([this](int row, int column) { CellChanged(row, column); });
    On(kOutExplainButton, BN_CLICKED, &KrDxfOutTbl_TFont::Explain);
}

void KrDxfOutTbl_TFont::Load() {
    io_.emplace(Handle());
    io_->ReadStyleTable(info_, table_.get());
    for (int index = 0; index < kStyles; ++index) {
        DxfOutStyleRow row;
        row.style = table_->styles[index];
        row[kNameColumn] = SlotText(row.style.styleName);
        row[kDirectionColumn] = kDirections[row.style.f2 == kVertical ? 1 : 0];
        int column = kFirstFactor;
        for (const Factor& factor : kFactors) row[column++] = NumberText(row.style.*factor.value);
        row[kFontColumn] = SlotText(row.style.fontFile);
        row[kBigFontColumn] = SlotText(row.style.bigFontFile);
        rows_.Add(std::move(row));
    }
    Item<kiro::ui::Button>(kTwoToOneCheck).SetCheck(table_->twoToOne != 0);
}

void KrDxfOutTbl_TFont::Dress() {
    for (int row = 0; row < kStyles; ++row) {
        OfferName(row);
        for (int column = kFirstFactor; column < kFontColumn; ++column) {
            if (!BelongsTo(row, column)) Grid().Control().SetAvailableFlag(row, column, 0);
        }
    }
}

// A name that a file has put in the place of the own one can be put right.
void KrDxfOutTbl_TFont::OfferName(int row) {
    Grid().Control().SetAvailableFlag(row, kNameColumn, !rows_[row].HasOwnName(row));
}

const char* KrDxfOutTbl_TFont::ClickText(int row, int column) const {
    if (column == kNameColumn && rows_[row].HasOwnName(row)) return "書体名は変更できません。";
    if (!IsFactor(column) || BelongsTo(row, column)) return "";
    return IsDxfOutBigFont(row) ? "英数字の係数は、上の行と同じ値になります。上の行で変更してください。"
                                : "漢字の係数は、下の行と同じ値になります。下の行で変更してください。";
}

void KrDxfOutTbl_TFont::CellChanged(int row, int column) {
    if (column == kNameColumn) OfferName(row);
    if (!IsFactor(column)) return;
    Grid().SetTextAt(DxfOutStylePartner(row), column, Grid().TextAt(row, column));
    Grid().Control().DrawItem();
}

void KrDxfOutTbl_TFont::Store() {
    Style* style = table_->styles;
    for (const DxfOutStyleRow& row : rows_) *style++ = row.Values();
    table_->twoToOne = Item<kiro::ui::Button>(kTwoToOneCheck).IsChecked();
}

void KrDxfOutTbl_TFont::Explain() {
    if (Grid().EndEdit()) KrDxfOutTbl_TFont2().DoModal(Handle());
}
