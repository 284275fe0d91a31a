#include "dxfin_tables/KrDxfInTbl_Line.h"

#include "dxfin_tables/KrDxfInTbl_CWidth.h"
#include "dxfin_tables/KrDxfInTbl_LStyle.h"
#include "dxfin_tables/KrDxfInTbl_LWidth.h"
#include "dxfin_tables/KrDxfInTbl_PWidth.h"
#include "resources/dxfin_tables/KrDxfInTbl_Line.ids.h"
#include "ui/MessageBoxes.h"

namespace {

constexpr int kOn = 0;  // "割当てる"
constexpr int kOff = 1;

}  // namespace

KrDxfInTbl_Line::KrDxfInTbl_Line()
    : HostDialog(kLineTableDialog),
      table_(std::make_unique<DxfInLineTable>()),
      polylines_(*this, {kPolylinesOnRadio, kPolylinesOffRadio}),
      colors_(*this, {kColorsOnRadio, kColorsOffRadio}),
      widths_(*this, {kWidthsOnRadio, kWidthsOffRadio}) {
    // Colours and line widths are never converted together.
    polylines_.OnChosen([this](int index) { ConvertPolylines(index == kOn); });
    colors_.OnChosen([this](int index) {
        ConvertColors(index == kOn);
        if (index == kOn) ConvertWidths(false);
    });
    widths_.OnChosen([this](int index) {
        ConvertWidths(index == kOn);
        if (index == kOn) ConvertColors(false);
    });
    Edit<KrDxfInTbl_LStyle>(kLineTypesButton);
    Edit<KrDxfInTbl_PWidth>(kPolylineWidthsButton);
    Edit<KrDxfInTbl_CWidth>(kColorWidthsButton);
    Edit<KrDxfInTbl_LWidth>(kLineWidthsButton);
}

template <class Editor>
void KrDxfInTbl_Line::Edit(int buttonId) {
    Bind(buttonId, BN_CLICKED, [this] { Editor(*table_).DoModal(Handle()); });
}

void KrDxfInTbl_Line::OnInit() {
    Utility().SetParentWindow(Handle());
    io_.emplace(Utility(), Handle());
    io_->ReadLineTable(*table_);
    const bool widths = table_->widWidthSwitch == 1;
    ConvertPolylines(table_->polWidthSwitch == 1);
    ConvertColors(table_->colWidthSwitch == 1 && !widths);
    ConvertWidths(widths);
}

void KrDxfInTbl_Line::ConvertPolylines(bool on) {
    table_->polWidthSwitch = on;
    polylines_.Select(on ? kOn : kOff);
    Item<kiro::ui::Button>(kPolylineWidthsButton).Enable(on);
}

void KrDxfInTbl_Line::ConvertColors(bool on) {
    table_->colWidthSwitch = on;
    colors_.Select(on ? kOn : kOff);
    Item<kiro::ui::Button>(kColorWidthsButton).Enable(on);
}

void KrDxfInTbl_Line::ConvertWidths(bool on) {
    table_->widWidthSwitch = on;
    widths_.Select(on ? kOn : kOff);
    Item<kiro::ui::Button>(kLineWidthsButton).Enable(on);
}

// A table that could not be written stays open, so that nothing is lost. "取消" deliberately asks nothing, unlike that
// of the layer table.
void KrDxfInTbl_Line::OnOk() {
    const bool save =
        kiro::ui::Ask(Handle(), "変更内容を保存しますか？", "線種・線幅割当て", kiro::ui::Icon::kQuestion);
    if (!save || io_->WriteLineTable(*table_)) End(IDOK);
}
