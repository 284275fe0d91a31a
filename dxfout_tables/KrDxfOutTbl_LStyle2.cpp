#include "dxfout_tables/KrDxfOutTbl_LStyle2.h"

#include <algorithm>
#include <utility>

#include "dxfout_tables/KrDxfOutTbl_LStyle.h"
#include "resources/dxfout_tables/KrDxfOutTbl_LStyle2.ids.h"
#include "resources/grid.ids.h"
#include "text/NumberText.h"
#include "text/SlotText.h"
#include "ui/MessageBoxes.h"

namespace {

using kiro::ui::GridColumn;
using kiro::ui::GridFault;
using kiro::ui::RowCheck;
using Pattern = DxfOutLineTable::Pattern;

enum PatternColumn { kRowColumn, kNameColumn, kCommentColumn };
enum PitchColumn { kPairColumn, kDrawColumn, kGapColumn };

constexpr GridColumn kPatternColumns[] = {
    {"番号", 1.0}, {"線種名", 3.0, 20, "線種名を入力してください"}, {"注釈", 6.0, 80, "注釈を入力してください"}};
constexpr GridColumn kPitchColumns[] = {{"番号", 3.0},
                                        kiro::ui::OfNumbers({"描画長さ", 3.5, 10, "描画長さを入力してください"}),
                                        kiro::ui::OfNumbers({"空白長さ", 3.5, 10, "空白長さを入力してください"})};

constexpr char kTitle[] = "線種のカスタマイズ";
constexpr int kShownPitches = 2 * kDxfOutShownPairs;
constexpr double kLeastPitch = 0.1;
constexpr double kLargestPitch = 999.0;

constexpr kiro::ui::GridRepeat kRepeated = {"線種名が重複しています。 %d - %d", true};
constexpr kiro::ui::GridStorable kStorable = {",=", "線種名に空白と「,」「=」は使えません %d : %s",
                                              kDxfOutLongestLineType, "線種名が長すぎます（半角66文字以内） %d : %s"};

struct PitchTexts {
    PitchColumn column;
    const char* missing;
    const char* bad;
};
constexpr PitchTexts kPitchTexts[] = {{kDrawColumn, "描画ピッチが入力されていません。 %d", "無効な描画ピッチです。 %d"},
                                      {kGapColumn, "空白ピッチが入力されていません。 %d", "無効な空白ピッチです。 %d"}};

}  // namespace

// ---- A pattern ----

DxfOutPatternRow DxfOutPatternRow::Of(const Pattern& pattern) {
    DxfOutPatternRow row;
    row.opened = pattern;
    row[kNameColumn] = SlotText(pattern.patternName);
    row[kCommentColumn] = SlotText(pattern.patternComment);
    for (int i = 0; i < std::min(pattern.pitchCount, kShownPitches); ++i)
        row.pairs[i / 2][kDrawColumn + i % 2] = NumberText(pattern.pitch[i]);
    return row;
}

int DxfOutPatternRow::Pairs() const {
    const auto end = std::find_if(pairs.begin(), pairs.end(), [](const auto& pair) {
        return pair[kDrawColumn].empty() && pair[kGapColumn].empty();
    });
    return static_cast<int>(end - pairs.begin());
}

std::optional<GridFault> DxfOutPatternRow::PitchFault(KrUtility& utility) const {
    for (int i = 0; i < Pairs(); ++i) {
        for (const PitchTexts& texts : kPitchTexts)
            if (pairs[i][texts.column].empty()) return GridFault{i, texts.column, Formatted(texts.missing, i + 1)};
        for (const PitchTexts& texts : kPitchTexts)
            if (!utility.CheckNumber(pairs[i][texts.column].c_str(), kKrReal, kLeastPitch, kLargestPitch))
                return GridFault{i, texts.column, Formatted(texts.bad, i + 1)};
    }
    return std::nullopt;
}

void DxfOutPatternRow::Check(const RowCheck& check) const {
    const std::string& name = (*this)[kNameColumn];
    const std::string& comment = (*this)[kCommentColumn];
    const auto fail = [&](int column, const char* message) {
        return check.Fail(column, Formatted(message, check.Row() + 1, (*this)[column]));
    };
    if (!check.Given(kNameColumn, "線種名が入力されていません。 %d") || !check.Unlike(kNameColumn, kRepeated) ||
        !check.Storable(kNameColumn, kStorable))
        return;
    if (name.size() + DxfOutPitchText(Stored()).size() > kDxfOutLongestPitches) {
        fail(kNameColumn, "描画長さと空白長さの桁数が多すぎて、ファイルに書けません %d : %s");
    } else if (check.Given(kCommentColumn, "注釈が入力されていません。 %d") &&
               name.size() + comment.size() > kDxfOutLongestComment) {
        fail(kCommentColumn, "注釈が長すぎます（線種名と合わせて半角115文字以内） %d : %s");
    }
}

Pattern DxfOutPatternRow::Stored() const {
    Pattern pattern = opened;
    StoreText(pattern.patternName, (*this)[kNameColumn]);
    StoreText(pattern.patternComment, (*this)[kCommentColumn]);
    if (!pitchesTouched) return pattern;
    const int shown = 2 * Pairs();
    for (int i = 0; i < shown; ++i) pattern.pitch[i] = RealOf(pairs[i / 2][kDrawColumn + i % 2]);
    // What the grid has no room for stays as long as all its rows are filled.
    pattern.pitchCount = shown < kShownPitches ? shown : std::max(shown, opened.pitchCount);
    std::fill(pattern.pitch + pattern.pitchCount, std::end(pattern.pitch), 0.0);
    return pattern;
}

// ---- The dialog ----

KrDxfOutTbl_LStyle2::KrDxfOutTbl_LStyle2()
    : HostDialog(kDxfOutPatternGridDialog),
      table_(std::make_unique<DxfOutLineTable>()),
      patterns_(*this, kGrid, kPatternColumns, patternRows_),
      pairs_(*this, kPitchGrid, kPitchColumns, pairRows_) {
    patterns_.NumberRows();
    patterns_.OfferRowMenu(
        {.mayDelete = [this](int row) { return MayDelete(row); }, .rowsMoved = [this](int) { RowsMoved(); }});
    patterns_.CheckRowsWith([this](const RowCheck& check) { patternRows_[check.Row()].Check(check); });
    patterns_.OnCellMoved([this](int, int) { CellMoved(); });
    pairs_.NumberRows();
    pairs_.CheckRowsWith([this](const RowCheck& check) { CheckPair(check); });
    pairs_.OnCellMoved([this](int, int) { CellMoved(); });
    pairs_.OnCellChanged([this](int pair, int column) { TakePitch(pair, column); });
}

void KrDxfOutTbl_LStyle2::SetInfo(KrDxfOutTbl_LStyle* lineTypes) {
    lineTypes_ = lineTypes;
    lineTypes->GetTable(table_.get());
    patternRows_.Clear();
    for (int i = 0; i < table_->patternCount; ++i) patternRows_.Add(DxfOutPatternRow::Of(table_->patterns[i]));
    pairRows_.Clear();
    for (int i = 0; i < kDxfOutShownPairs; ++i) pairRows_.Add({});
}

// No pattern is current at first.
void KrDxfOutTbl_LStyle2::OnInit() {
    InitUtility();
    Utility().SetCaption(kTitle);
    patterns_.Init(kDxfOutPatterns);
    pairs_.Init(kDxfOutShownPairs);
    pairs_.Control().SetParentList(&patterns_.Control());
    ShowPitches(-1);
    for (int row = 0; row < patternRows_.Count(); ++row) ShowPattern(row);
}

// Below its name.
void KrDxfOutTbl_LStyle2::ShowPattern(int row) {
    const Pattern pattern = patternRows_[row].Stored();
    patterns_.Control().SetItemPattern(row, kNameColumn, pattern.pitch, pattern.pitchCount);
}

void KrDxfOutTbl_LStyle2::ShowPitches(int row) {
    if (shownHistory_) pairs_.ExchangeHistory(*shownHistory_);
    shownHistory_.reset();
    shown_ = row;
    pairRow_ = -1;
    const DxfOutPatternRow none;
    const DxfOutPatternRow& pattern = row < 0 ? none : patternRows_[row];
    pairs_.Control().ClearCurrentCell();
    for (int pair = 0; pair < kDxfOutShownPairs; ++pair) {
        for (const int column : {kDrawColumn, kGapColumn}) {
            pairs_.SetTextAt(pair, column, pattern.pairs[pair][column]);
            pairs_.Control().SetErrorFlag(pair, column, 0);
        }
    }
    pairs_.ForgetHistory();
    if (row >= 0) {
        shownHistory_ = pattern.history;
        pairs_.ExchangeHistory(*shownHistory_);
    }
    pairs_.Changed();
    pairs_.Control().DrawItem();
    EnableWindow(pairs_.List(), row >= 0);
}

void KrDxfOutTbl_LStyle2::TakePitch(int pair, int column) {
    if (shown_ < 0) return;
    DxfOutPatternRow& pattern = patternRows_[shown_];
    pattern.pairs[pair][column] = pairs_.TextAt(pair, column);
    pattern.pitchesTouched = true;
    pairs_.Changed();
    patterns_.Changed();  // whether the file has room for them
    ShowPattern(shown_);
    patterns_.Control().DrawItem();
}

void KrDxfOutTbl_LStyle2::CellMoved() {
    const int row = patterns_.CurrentRow();
    const bool pairMoved = std::exchange(pairRow_, pairs_.CurrentRow()) != pairs_.CurrentRow();
    patterns_.Control().MessageText("");
    const bool patternMoved = row != shown_;
    if (patternMoved) ShowPitches(row);
    if (patternMoved || pairMoved) Check();
}

void KrDxfOutTbl_LStyle2::RowsMoved() {
    patterns_.Control().MessageText("");
    ShowPitches(patterns_.CurrentRow());
    for (int row = 0; row < patternRows_.Count(); ++row) ShowPattern(row);
}

// ---- Patterns in use ----

bool KrDxfOutTbl_LStyle2::MayDelete(int row) const {
    if (!IsInUse(patternRows_[row])) return true;
    kiro::ui::Tell(Handle(), "使用されています。削除できません。", kTitle, kiro::ui::Icon::kError);
    return false;
}

bool KrDxfOutTbl_LStyle2::IsUsed(std::string_view name) const {
    return std::any_of(std::begin(table_->fontLineType), std::end(table_->fontLineType),
                       [name](const auto& type) { return SlotText(type) == name; });
}

// The line fonts keep the name that a pattern had: one that was given another goes only when a third has its old name.
bool KrDxfOutTbl_LStyle2::IsInUse(const DxfOutPatternRow& row) const {
    const std::string_view before = SlotText(row.opened.patternName);
    return IsUsed(row[kNameColumn]) ||
           (!before.empty() && IsUsed(before) &&
            std::none_of(patternRows_.begin(), patternRows_.end(),
                         [before](const DxfOutPatternRow& other) { return other[kNameColumn] == before; }));
}

// ---- Checking and storing ----

bool KrDxfOutTbl_LStyle2::Check() {
    badPitchesOf_ = -1;
    if (patterns_.Check()) return CheckPitches();
    patterns_.ShowFault();
    return false;
}

// Those that are shown, and those of other patterns that the user has touched: an unusual pattern of the file does not
// keep the user from giving another one its comment.
bool KrDxfOutTbl_LStyle2::CheckPitches() {
    for (int row = 0; row < patternRows_.Count(); ++row) {
        const DxfOutPatternRow& pattern = patternRows_[row];
        if (row != shown_ && !pattern.pitchesTouched) continue;
        const std::optional<GridFault> fault = pattern.PitchFault(Utility());
        if (!fault) continue;
        badPitchesOf_ = row;
        if (row != shown_) patterns_.Control().ErrorText((fault->message + " : " + pattern[kNameColumn]).c_str());
        break;
    }
    pairs_.Check();
    if (badPitchesOf_ == shown_) pairs_.ShowFault();
    return badPitchesOf_ < 0;
}

void KrDxfOutTbl_LStyle2::CheckPair(const RowCheck& check) const {
    if (shown_ < 0) return;
    for (const PitchTexts& texts : kPitchTexts) check.Pass(texts.column);
    const std::optional<GridFault> fault = patternRows_[shown_].PitchFault(Utility());
    if (fault && fault->row == check.Row()) check.Fail(fault->column, fault->message);
}

void KrDxfOutTbl_LStyle2::OnOk() {
    if (!patterns_.EndEdit()) return;
    if (!Check()) return Refused();
    Store();
    lineTypes_->SetTable(table_.get());
    End(IDOK);
}

void KrDxfOutTbl_LStyle2::Refused() {
    kiro::ui::Tell(Handle(), "設定内容に誤りがあります。", kTitle, kiro::ui::Icon::kError);
    const GridFault at = badPitchesOf_ < 0 ? patterns_.Faults().front() : GridFault{badPitchesOf_, kNameColumn, ""};
    patterns_.GoTo(at.row, at.column);
    if (at.row != shown_) ShowPitches(at.row);
    Check();
    if (badPitchesOf_ < 0) return;
    const GridFault pitch = pairs_.Faults().front();
    pairs_.GoTo(pitch.row, pitch.column);
    pairRow_ = pitch.row;
}

void KrDxfOutTbl_LStyle2::Store() {
    table_->patternCount = 0;
    for (const DxfOutPatternRow& row : patternRows_) table_->patterns[table_->patternCount++] = row.Stored();
    std::fill(table_->patterns + table_->patternCount, std::end(table_->patterns), Pattern());
}
