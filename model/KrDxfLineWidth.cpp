#include "model/KrDxfLineWidth.h"

#include <utility>

#include "entry/host/kirocontrol.h"
#include "entry/host/kirodxf.h"
#include "entry/host/kirogr.h"
#include "entry/host/kiromdl.h"
#include "model/LineNumbers.h"
#include "model/ModelGrid.h"
#include "resources/grid.ids.h"
#include "resources/model/KrDxfLineWidth.ids.h"
#include "text/NumberText.h"

using kiro::ui::GridColumn;
using kiro::ui::RowCheck;

namespace {

enum Column { kNumberColumn, kWidthColumn };
enum Display { kNone, kByNumber, kReal };  // the radio buttons, and what the journal has for them

constexpr char kChoicePrompt[] = "線幅を選択して下さい";
constexpr unsigned int kWidthLength = 12;
// A width can be typed as well as chosen: empty is none.
constexpr GridColumn kStandardColumns[] = {
    {"番号", 4.0}, kiro::ui::OfNumbers({"線幅", 6.0, kWidthLength, kChoicePrompt, {}, kChoicePrompt, nullptr, true})};
constexpr GridColumn kFreeColumns[] = {{"番号", 4.0},
                                       kiro::ui::OfNumbers({"線幅", 6.0, kWidthLength, "線幅を入力して下さい"})};

constexpr std::int32_t kUsed = 1;
constexpr double kLargestFreeWidth = 10.0;

HxLineStyle* LineStyle() { return HxModelGetLineStyle(GetActiveModel()); }

}  // namespace

KrDxfLineWidth::KrDxfLineWidth(std::int32_t mode, const std::int32_t* lineWidths)
    : HostDialog(kDxfLineWidthDialog),
      standardOnly_(mode == 0),
      forConversion_(lineWidths[0] != 0),
      grid_(*this, kGrid, standardOnly_ ? kStandardColumns : kFreeColumns, rows_),
      display_(*this, {kNoDisplayRadio, kDisplayByNumberRadio, kRealDisplayRadio}) {
    for (int i = 0; i < kDxfLineWidths; ++i) standard_.push_back(DxfGetLineWidth(i));
    for (int number = 1; number <= kHxLineWidths; ++number) {
        if (lineWidths[number] != kUsed) continue;
        LineWidthRow row;
        row.number = number;
        row[kNumberColumn] = std::to_string(number);
        rows_.Add(std::move(row));
    }
    display_.OnChosen([this](int display) { DisplayChosen(display); });
    Bind(kWidthsFromPitchButton, BN_CLICKED, [this] { Refill(Source::kPitch); });
    Bind(kRestoreWidthsButton, BN_CLICKED, [this] { Refill(Source::kModel); });
    On(kNoWidthsButton, BN_CLICKED, &KrDxfLineWidth::ClearAll);
    On(kSaveWidthsButton, BN_CLICKED, &KrDxfLineWidth::Save);
}

void KrDxfLineWidth::OnInit() {
    InitUtility();
    grid_.Init(kHxLineWidths);
    FillFrom(Source::kModel);
    if (standardOnly_) {
        std::vector<std::string> choices;
        for (std::size_t i = 1; i < standard_.size(); ++i) choices.push_back(Utility().DtoA(standard_[i]));
        grid_.SetChoices(kWidthColumn, choices);
        grid_.Control().SetAvailableFlag(0, kWidthColumn, 0);
        MakeRoom();
    }
    Item<kiro::ui::Window>(kSaveWidthsButton).Show(true);
    ShowDisplay(LineStyle());
    const int first = standardOnly_ && rows_.Count() > 1 ? 1 : 0;
    if (rows_.Count() > 0) grid_.GoTo(first, grid_.FirstColumnToEdit(first));
}

// "線幅なし" stands where the three were.
void KrDxfLineWidth::MakeRoom() const {
    Item<kiro::ui::Window>(kNoWidthsButton).Show(true);
    const auto move = [this](int control, RECT place) {
        MapDialogRect(Handle(), &place);
        SetWindowPos(Item<kiro::ui::Window>(control).Handle(), nullptr, place.left, place.top, place.right - place.left,
                     place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
    };
    move(IDOK, {139, 153, 177, 167});
    move(IDCANCEL, {181, 153, 218, 167});
    move(kSaveWidthsButton, {222, 153, 260, 167});
}

void KrDxfLineWidth::ShowDisplay(const HxLineStyle* style) {
    const Display byNumber = HxLineStyleIsLineWeightEnabled(style) ? kByNumber : kNone;
    chosen_ = HxLineStyleIsRealLineWeight(style) ? kReal : byNumber;
    display_.Select(chosen_);
    for (const int control : {kWidthDisplayBox, kNoDisplayRadio, kDisplayByNumberRadio, kRealDisplayRadio})
        Item<kiro::ui::Window>(control).Show(!forConversion_);
}

// The system counts it as a click when a radio button takes the focus: the Tab key must get past it.
void KrDxfLineWidth::DisplayChosen(int display) {
    if (std::exchange(chosen_, display) != display) BackToGrid(grid_);
}

// ---- Filling ----

std::string KrDxfLineWidth::WidthText(double width) const { return Utility().DtoA(ShownNumber(width)); }

void KrDxfLineWidth::FillFrom(Source source) {
    const HxLineStyle* const style = LineStyle();
    WidthSnapper snapper(standard_);
    for (int row = 0; row < rows_.Count(); ++row) {
        const int number = rows_[row].number;
        double width = HxLineStyleGetLineWidth(style, number);
        if (source == Source::kPitch) {
            const double wanted = HxLineStyleGetLineWeightPitch(style) * number;
            width = standardOnly_ && number > 1 ? snapper.Snap(wanted) : wanted;
        }
        if (standardOnly_ && number == 1) width = 0.0;
        grid_.SetTextAt(row, kWidthColumn, width == 0.0 && number != 1 ? "" : WidthText(width));
    }
}

void KrDxfLineWidth::Refill(Source source) {
    if (!grid_.EndEdit()) return;
    if (!LineStyle()) return TellInGuidance(grid_, kNoLineStyle);
    ClearMarks(grid_);
    FillFrom(source);
    BackToGrid(grid_);
}

void KrDxfLineWidth::ClearAll() {
    if (!grid_.EndEdit()) return;
    ClearMarks(grid_);
    for (int row = 1; row < rows_.Count(); ++row) grid_.SetTextAt(row, kWidthColumn, "0.0");
    BackToGrid(grid_);
}

// ---- Checking ----

bool KrDxfLineWidth::Check() {
    const double least = standardOnly_ ? standard_.front() : 0.0;
    const double largest = standardOnly_ ? standard_.back() : kLargestFreeWidth;
    if (!CheckModelGrid(grid_, "線幅が設定されていません", [this](const RowCheck& check) {
            if (forConversion_ && check.Row() > 0 && check.Text(kWidthColumn).empty()) check.Note(kWidthColumn, "");
        }))
        return false;
    if (!CheckModelGrid(grid_, "無効な入力があります", [&](const RowCheck& check) {
            const std::string& text = check.Text(kWidthColumn);
            if (!text.empty() && !Utility().CheckNumber(text.c_str(), kKrReal, least, largest))
                check.Note(kWidthColumn, "");
        }))
        return false;
    ReadWidths();
    return !standardOnly_ || CheckStandard();
}

void KrDxfLineWidth::ReadWidths() {
    for (int row = 0; row < rows_.Count(); ++row) {
        double& width = rows_[row].width;
        width = RealOf(rows_[row][kWidthColumn]);
        grid_.SetTextAt(row, kWidthColumn, width == 0.0 && row > 0 ? "" : WidthText(width));
    }
}

bool KrDxfLineWidth::CheckStandard() {
    return CheckModelGrid(grid_, "無効な線幅が設定されています", [this](const RowCheck& check) {
        const double width = rows_[check.Row()].width;
        if (check.Row() > 0 && width != 0.0 && !IsStandardWidth(width, standard_)) check.Note(kWidthColumn, "");
    });
}

// ---- Writing ----

bool KrDxfLineWidth::Write() {
    if (!grid_.EndEdit() || !Check()) return false;
    HxLineStyle* const style = LineStyle();
    if (!style) {
        TellInGuidance(grid_, kNoLineStyle);
        return false;
    }
    for (const LineWidthRow& row : rows_) HxLineStyleSetLineWidth(style, row.number, row.width);
    if (!forConversion_) WriteDisplay(style);
    WriteJournal(style);
    return true;
}

void KrDxfLineWidth::WriteDisplay(HxLineStyle* style) const {
    const int display = display_.Selected();
    HxLineStyleEnableLineWeight(style, display != kNone);
    HxLineStyleRealLineWeight(style, display == kReal);
    clearUserPen();
}

// An entry is the number of a setting with its value behind it; the last call of an entry closes it.
void KrDxfLineWidth::WriteJournal(const HxLineStyle* style) const {
    constexpr int kWidthEntry = 38, kSettingEntry = 34, kDisplaySetting = 12;
    for (int number = 1; number <= kHxLineWidths; ++number) {
        LogoutMDF(kWidthEntry, 1, number, false, false);
        LogoutSCL(HxLineStyleGetLineWidth(style, number), false, true);
    }
    LogoutMDF(kSettingEntry, 1, kDisplaySetting, false, false);
    LogoutSCL(display_.Selected(), false, true);
}

void KrDxfLineWidth::OnOk() {
    if (!Write()) return;
    LogoutMDF(35, 1, 90, false, true);
    Rpt101(2);
    End(IDOK);
}

void KrDxfLineWidth::Save() {
    if (!Write()) return;
    LogoutMDF(34, 1, 215, false, true);
    d161907cnsout();
    Rpt101(2);
    End(IDOK);
}
