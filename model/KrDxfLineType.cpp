#include "model/KrDxfLineType.h"

#include <algorithm>

#include "entry/host/kirocontrol.h"
#include "entry/host/kirodxf.h"
#include "entry/host/kirogr.h"
#include "entry/host/kiromdl.h"
#include "model/ModelGrid.h"
#include "resources/grid.ids.h"
#include "resources/model/KrDxfLineType.ids.h"
#include "text/Numbers.h"
#include "text/TextFormat.h"
#include "ui/MessageBoxes.h"

using kiro::ui::GridColumn;
using kiro::ui::RowCheck;

namespace {

enum Column { kNumberColumn, kNameColumn, kPitchColumn };

constexpr char kNamePrompt[] = "線種名を入力して下さい";
constexpr GridColumn Pitch(const char* title, const char* prompt) {
    return kiro::ui::OfNumbers({title, 0.82, 12, prompt});
}
constexpr GridColumn kColumns[] = {{"番号", 0.8},
                                   {"名前", 2.8, 128, kNamePrompt},
                                   Pitch("描画1", "描画ピッチ1を入力して下さい"),
                                   Pitch("空白1", "空白ピッチ1を入力して下さい"),
                                   Pitch("描画2", "描画ピッチ2を入力して下さい"),
                                   Pitch("空白2", "空白ピッチ2を入力して下さい"),
                                   Pitch("描画3", "描画ピッチ3を入力して下さい"),
                                   Pitch("空白3", "空白ピッチ3を入力して下さい"),
                                   Pitch("描画4", "描画ピッチ4を入力して下さい"),
                                   Pitch("空白4", "空白ピッチ4を入力して下さい")};
// For a conversion.
constexpr GridColumn kNameColumns[] = {{"番号", 0.8},   {"名前", 2.8, 128, kNamePrompt},
                                       {"描画1", 0.82}, {"空白1", 0.82},
                                       {"描画2", 0.82}, {"空白2", 0.82},
                                       {"描画3", 0.82}, {"空白3", 0.82},
                                       {"描画4", 0.82}, {"空白4", 0.82}};
static_assert(std::size(kColumns) == kLineTypeColumns && std::size(kNameColumns) == kLineTypeColumns);
static_assert(kLineTypeColumns == kPitchColumn + kHxLinePitches);

constexpr char kTitle[] = "線種設定";
constexpr char kBadPitches[] = "無効なピッチが入力されました";
constexpr char kUnchangedFactor[] = "1.0";
constexpr unsigned int kFactorLength = 20;
constexpr std::int32_t kUsed = 1;
constexpr int kContinuous = 1;  // this line type has no other name, and cannot be edited
constexpr std::size_t kLongestShown = 512;
constexpr std::size_t kLongestRestored = 256;

constexpr int kScaleControls[] = {kPitchFactorLabel,  kPitchFactorEdit,   kPitchFactorEndLabel, kMultiplyPitchesButton,
                                  kPatternDisplayBox, kFixedPatternRadio, kScaledPatternRadio};

HxLineStyle* LineStyle() { return HxModelGetLineStyle(GetActiveModel()); }

}  // namespace

std::span<const std::string> LineTypeRow::PitchCells() const { return std::span(cells).subspan(kPitchColumn); }

KrDxfLineType::KrDxfLineType(const std::int32_t* lineTypes)
    : HostDialog(kDxfLineTypeDialog),
      forConversion_(lineTypes[0] != 0),
      grid_(*this, kGrid, forConversion_ ? kiro::ui::GridColumns(kNameColumns) : kColumns, rows_),
      scaled_(*this, {kFixedPatternRadio, kScaledPatternRadio}) {
    const HxLineStyle* const style = LineStyle();
    for (int number = 1; style && number <= kHxLinePatterns; ++number)
        if (lineTypes[number] == kUsed) AddRow(*style, number);
    grid_.OnCellChanged([this](int row, int) {
        grid_.Control().SetErrorFlag(row, kNumberColumn, 0);
        ShowPattern(row);
    });
    NormaliseOnKillFocus(kPitchFactorEdit);
    On(kPitchFactorEdit, EN_CHANGE, &KrDxfLineType::ShowPatterns);
    BindFocus(kPitchFactorEdit, [this](bool gained) { MakeMultiplyDefault(gained); });
    On(kMultiplyPitchesButton, BN_CLICKED, &KrDxfLineType::Multiply);
    On(kNameLineTypesButton, BN_CLICKED, &KrDxfLineType::NameAll);
    On(kRestoreLineNamesButton, BN_CLICKED, &KrDxfLineType::RestoreNames);
}

void KrDxfLineType::AddRow(const HxLineStyle& style, int number) {
    const HxLineStylePattern* const pattern = HxLineStyleGetPattern(const_cast<HxLineStyle*>(&style), number);
    LineTypeRow row;
    row.number = number;
    row[kNumberColumn] = std::to_string(number);
    if (number == kContinuous)
        row[kNameColumn] = "CONTINUOUS";
    else
        row[kNameColumn] = row.name.Open(HxLineStylePatternGetName(pattern), kLongestShown);
    double pitches[kHxLinePitches];
    const int count = std::min(HxLineStylePatternGetPitches(pattern, pitches), kHxLinePitches);
    for (int i = 0; i < count; ++i) row[kPitchColumn + i] = Utility().DtoA(ShownNumber(pitches[i]));
    rows_.Add(std::move(row));
}

void KrDxfLineType::OnInit() {
    InitUtility();
    Utility().SetCaption(kTitle);
    grid_.Init(kHxLinePatterns, forConversion_ ? kKrSelectNone : kKrSelectMultiple);
    for (int row = 0; row < rows_.Count(); ++row) {
        if (rows_[row].number != kContinuous) continue;
        for (int column = 0; column < grid_.Columns(); ++column) grid_.Control().SetAvailableFlag(row, column, 0);
    }
    Item<kiro::ui::Edit>(kPitchFactorEdit).LimitText(kFactorLength);
    Item<kiro::ui::Edit>(kPitchFactorEdit).SetText(kUnchangedFactor);
    scaled_.Select(HxLineStyleIsScaledLineFont(LineStyle()) != 0);
    for (const int control : kScaleControls) Item<kiro::ui::Window>(control).Show(!forConversion_);
    ShowPatterns();
    const int first = rows_.Count() > 1 && rows_[0].number == kContinuous ? 1 : 0;
    if (rows_.Count() > 0) grid_.GoTo(first, grid_.FirstColumnToEdit(first));
}

// ---- What the patterns look like: below their names, by the factor that is typed ----

void KrDxfLineType::ShowPatterns() {
    for (int row = 0; row < rows_.Count(); ++row) ShowPattern(row);
    grid_.Control().DrawItem();
}

void KrDxfLineType::ShowPattern(int row) {
    PitchReading reading = ::ReadPitches(rows_[row].PitchCells(), [this](const std::string& text) {
        return Utility().CheckNumber(text.c_str(), kKrReal, 0.0, kLargestPitch) != 0;
    });
    const std::string factorText = Item<kiro::ui::Edit>(kPitchFactorEdit).Text().value_or("");
    const std::size_t slash = std::min(factorText.find('/'), factorText.size());
    double factor = ReadReal(factorText.substr(0, slash)).value_or(0.0);
    if (slash < factorText.size()) factor /= ReadReal(factorText.substr(slash + 1)).value_or(0.0);
    for (double& pitch : reading.pitches) pitch *= IsPitchFactor(factor) ? factor : 1.0;
    const bool isNone = reading.pitches.empty() && rows_[row][kNameColumn].empty();
    grid_.Control().SetItemPattern(row, kNameColumn, reading.pitches.data(),
                                   reading.bad.empty() && !isNone ? static_cast<int>(reading.pitches.size()) : -1);
}

// Who types a factor and presses Enter wants to multiply.
void KrDxfLineType::MakeMultiplyDefault(bool on) const {
    SendMessageW(Handle(), DM_SETDEFID, static_cast<WPARAM>(on ? kMultiplyPitchesButton : IDOK), 0);
}

// ---- Pitches ----

bool KrDxfLineType::ReadPitches() {
    return CheckModelGrid(grid_, kBadPitches, [this](const RowCheck& check) {
        LineTypeRow& row = rows_[check.Row()];
        PitchReading reading = ::ReadPitches(row.PitchCells(), [this](const std::string& text) {
            return Utility().CheckNumber(text.c_str(), kKrReal, 0.0, kLargestPitch) != 0;
        });
        for (const int cell : reading.bad) check.Note(kPitchColumn + cell, "");
        row.pitches = std::move(reading.pitches);
    });
}

void KrDxfLineType::Multiply() {
    if (!grid_.EndEdit()) return;
    NormaliseAll();
    if (!ReadPitches()) return;
    std::vector<int> selected;
    for (int row = 0; row < rows_.Count(); ++row)
        if (grid_.Control().GetSelectFlag(row)) selected.push_back(row);
    if (selected.empty()) return TellInGuidance(grid_, "線種が選択されていません");
    const std::optional<double> factor = ReadFactor();
    if (!factor) return;
    if (ChangesPitches(*factor) &&
        kiro::ui::Ask(Handle(), Formatted("線種ピッチに倍率(%s)をかけます。\nよろしいですか。", factorText_), kTitle)) {
        for (const int row : selected) MultiplyRow(row, *factor);
    }
    Item<kiro::ui::Edit>(kPitchFactorEdit).SetText(kUnchangedFactor);
    BackToGrid(grid_);
}

std::optional<double> KrDxfLineType::ReadFactor() {
    const auto text = ReadText(kPitchFactorEdit, kTitle);
    if (!text) return std::nullopt;
    double factor = 0.0;
    if (Utility().CheckScale(text->c_str(), &factor) && IsPitchFactor(factor)) {
        factorText_ = *text;
        return factor;
    }
    TellInGuidance(grid_, "無効な倍率です");
    FocusTo(kPitchFactorEdit);
    return std::nullopt;
}

void KrDxfLineType::MultiplyRow(int row, double factor) {
    const std::vector<double>& pitches = rows_[row].pitches;
    for (int i = 0; i < kHxLinePitches; ++i) {
        const auto index = static_cast<std::size_t>(i);
        const bool given = index < pitches.size();
        grid_.SetTextAt(row, kPitchColumn + i,
                        given ? Utility().DtoA(ShownNumber(ScaledPitch(pitches[index], factor))) : "");
    }
    ShowPattern(row);
}

// ---- Names. The first row is left out deliberately, by its place: it is the continuous line's. ----

void KrDxfLineType::NameAll() {
    if (!grid_.EndEdit()) return;
    ClearMarks(grid_);
    for (int row = 1; row < rows_.Count(); ++row)
        grid_.SetTextAt(row, kNameColumn, "LTYPE" + std::to_string(rows_[row].number));
    ShowPatterns();
    BackToGrid(grid_);
}

void KrDxfLineType::RestoreNames() {
    if (!grid_.EndEdit()) return;
    HxLineStyle* const style = LineStyle();
    if (!style) return TellInGuidance(grid_, kNoLineStyle);
    ClearMarks(grid_);
    for (int row = 1; row < rows_.Count(); ++row) {
        const char* const name = HxLineStylePatternGetName(HxLineStyleGetPattern(style, rows_[row].number));
        grid_.SetTextAt(row, kNameColumn, rows_[row].name.Open(name, kLongestRestored));
    }
    ShowPatterns();
    BackToGrid(grid_);
}

bool KrDxfLineType::IsRepeated(int row) const {
    const std::string& name = rows_[row][kNameColumn];
    for (int above = 0; !name.empty() && above < row; ++above)
        if (dxfstrcmp(rows_[above][kNameColumn].c_str(), name.c_str()) == 0) return true;
    return false;
}

bool KrDxfLineType::CheckNames() {
    return CheckModelGrid(grid_, "線種名が重複しています。または入力されていません。",
                          [this](const RowCheck& check) {
                              const LineTypeRow& row = rows_[check.Row()];
                              if (row[kNameColumn].empty() && !row.pitches.empty()) check.Note(kNumberColumn, "");
                              if (IsRepeated(check.Row())) check.Note(kNameColumn, "");
                          }) &&
           CheckModelGrid(grid_, kNameTooLong, [this](const RowCheck& check) {
               if (!rows_[check.Row()].name.HasRoom(check.Text(kNameColumn))) check.Note(kNameColumn, "");
           });
}

// ---- The end ----

void KrDxfLineType::OnOk() {
    if (!grid_.EndEdit() || !ReadPitches() || !CheckNames()) return;
    HxLineStyle* const style = LineStyle();
    if (!style) return TellInGuidance(grid_, kNoLineStyle);
    Store(style);
    lftpattern(style, HxModelGetDraftingScale(GetActiveModel()));
    Rpt101(2);
    End(IDOK);
}

void KrDxfLineType::Store(HxLineStyle* style) {
    for (const LineTypeRow& row : rows_) {
        HxLineStylePattern* const pattern = HxLineStyleGetPattern(style, row.number);
        HxLineStylePatternSetName(pattern, row.name.Stored(row[kNameColumn]).c_str());
        HxLineStylePatternSet(pattern, static_cast<int>(row.pitches.size()), row.pitches.data());
    }
    HxLineStyleEnableScaledLineFont(style, scaled_.Selected() == 1);
}
