#include "dxfout_tables/KrDxfOutTbl_LStyle.h"

#include "dxfout_tables/KrDxfOutTbl_LStyle2.h"
#include "dxfout_tables/KrDxfOutTbl_Line.h"
#include "resources/dxfout_tables/KrDxfOutTbl_LStyle.ids.h"
#include "resources/grid.ids.h"
#include "text/NumberText.h"
#include "text/SlotText.h"
#include "ui/MessageBoxes.h"

namespace {

using kiro::ui::GridColumn;
using kiro::ui::RowCheck;

enum FontColumn { kFontColumn, kTypeColumn };
enum WeightColumn { kWeightColumn, kColorColumn, kWidthColumn };

constexpr int kLargestColor = 255;  // that can be chosen; a file may have -1 and 256
constexpr double kLargestWidth = 999.0;

constexpr GridColumn kFontColumns[] = {{"線種", 3.0},
                                       {"線種名", 7.0, 0, "", {}, "線種を選択してください。", nullptr, true}};
constexpr GridColumn kWeightColumns[] = {
    {"線幅", 3.0},
    kiro::ui::OfColors({"色", 4.0, 4, "色番号を入力してください。", {0, kLargestColor}, "色を選択してください。"}),
    kiro::ui::OfNumbers({"線幅", 3.0, 10, "線幅を入力してください。"})};

constexpr char kTitle[] = "線種・線幅割当て";
constexpr char kRefusal[] = "線幅の割当て";  // deliberately that of the line widths

void CheckFont(const RowCheck& check) { check.Given(kTypeColumn, "線種名が入力されていません"); }

void CheckWeight(const RowCheck& check) {
    if (check.Integer(kColorColumn, 0, kLargestColor, "無効な色番号です  %d"))
        check.Real(kWidthColumn, 0.0, kLargestWidth, "無効な線幅です  %d");
}

}  // namespace

KrDxfOutTbl_LStyle::KrDxfOutTbl_LStyle()
    : HostDialog(kDxfOutLineTypeGridDialog),
      table_(std::make_unique<DxfOutLineTable>()),
      fonts_(*this, kGrid, kFontColumns, fontRows_),
      weights_(*this, kWeightGrid, kWeightColumns, weightRows_) {
    fonts_.CheckRowsWith(CheckFont);
    weights_.CheckRowsWith(CheckWeight);
    for (kiro::ui::Grid* const grid : {&fonts_, &weights_}) {
        grid->NumberRows();
        grid->OnCellMoved([this](int, int) { CellMoved(); });
    }
    On(kCustomizeButton, BN_CLICKED, &KrDxfOutTbl_LStyle::Customize);
}

void KrDxfOutTbl_LStyle::SetInfo(KrDxfOutTbl_Line* hub) {
    hub_ = hub;
    hub->GetTable(table_.get());
    fontRows_.Clear();
    for (const auto& type : table_->fontLineType) fontRows_.Add({{"", std::string(SlotText(type))}});
    weightRows_.Clear();
    for (int i = 0; i < kDxfOutWeights; ++i)
        weightRows_.Add({{"", std::to_string(table_->weightColor[i]), NumberText(table_->weightWidth[i])}});
}

void KrDxfOutTbl_LStyle::OnInit() {
    InitUtility();
    Utility().SetCaption(kTitle);
    if (!HasWeights()) HideWeights();
    fonts_.Init(kDxfOutFonts);
    weights_.Init(kDxfOutWeights);
    weights_.Control().SetParentList(&fonts_.Control());
    OfferPatterns();
    if (HasWeights()) weights_.GoTo(0, kColorColumn);
    fonts_.GoTo(0, kTypeColumn);
    rows_ = CurrentRows();
}

// The widths come from the editor of the line widths then. The line types get the room.
void KrDxfOutTbl_LStyle::HideWeights() const {
    using kiro::ui::Window;
    const Window weights = Item<Window>(kWeightGrid);
    const RECT fonts = Item<Window>(kGrid).RectInParent();
    weights.Show(false);
    SetWindowPos(fonts_.List(), nullptr, 0, 0, weights.RectInParent().right - fonts.left, fonts.bottom - fonts.top,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void KrDxfOutTbl_LStyle::OfferPatterns() {
    std::vector<std::string> names;
    for (int i = 0; i < table_->patternCount; ++i) names.emplace_back(SlotText(table_->patterns[i].patternName));
    fonts_.SetChoices(kTypeColumn, names);
}

void KrDxfOutTbl_LStyle::CellMoved() {
    const auto before = std::exchange(rows_, CurrentRows());
    fonts_.Control().MessageText("");
    if (rows_ != before) Check();
}

// Both grids, whatever is wrong in the first. One that is not shown keeps what the table has.
bool KrDxfOutTbl_LStyle::Check() {
    table_->fontCount = kDxfOutFonts;
    const bool fontsValid = fonts_.Check();
    const bool weightsValid = !HasWeights() || weights_.Check();
    fonts_.ShowFault();
    weights_.ShowFault();
    return fontsValid && weightsValid;
}

void KrDxfOutTbl_LStyle::OnOk() {
    if (!fonts_.EndEdit()) return;
    if (!Check()) return Refused();
    Store();
    hub_->SetTable(table_.get());
    End(IDOK);
}

void KrDxfOutTbl_LStyle::Refused() {
    kiro::ui::Tell(Handle(), "設定内容に誤りがあります。", kRefusal, kiro::ui::Icon::kError);
    kiro::ui::Grid& grid = fonts_.Faults().empty() ? weights_ : fonts_;
    const kiro::ui::GridFault fault = grid.Faults().front();
    grid.GoTo(fault.row, fault.column);
    grid.ShowFault();
    rows_ = CurrentRows();
}

void KrDxfOutTbl_LStyle::Store() {
    for (int i = 0; i < kDxfOutFonts; ++i) StoreText(table_->fontLineType[i], fontRows_[i][kTypeColumn]);
    for (int i = 0; HasWeights() && i < kDxfOutWeights; ++i) {
        table_->weightColor[i] = ReadInteger(weightRows_[i][kColorColumn]).value_or(0);
        table_->weightWidth[i] = RealOf(weightRows_[i][kWidthColumn]);
    }
    FindDxfOutFontPatterns(*table_);
}

// What the grids hold is stored as it is: the editor has to know which patterns are in use. It is checked later.
void KrDxfOutTbl_LStyle::Customize() {
    if (!fonts_.EndEdit()) return;
    Store();
    KrDxfOutTbl_LStyle2 editor;
    editor.SetInfo(this);
    if (editor.DoModal(Handle()) == IDOK) OfferPatterns();
}
