#include "dxfin_tables/KrDxfInTbl_Line.h"

#include "dxfin_tables/KrDxfInTbl_CWidth.h"
#include "dxfin_tables/KrDxfInTbl_LStyle.h"
#include "dxfin_tables/KrDxfInTbl_LWidth.h"
#include "dxfin_tables/KrDxfInTbl_PWidth.h"
#include "resources/dxfin_tables/KrDxfInTbl_Line.ids.h"

namespace {

constexpr int kOn = 0;  // "割当てる"
constexpr int kOff = 1;

}  // namespace

// "取消" deliberately asks nothing, unlike that of the layer table.
KrDxfInTbl_Line::KrDxfInTbl_Line(const std::string& drawing)
    : TableHub(kLineTableDialog, {"線種・線幅割当て", "変更内容を保存しますか？", nullptr}),
      table_(std::make_unique<DxfInLineTable>()),
      polylines_{
          &DxfInLineTable::polWidthSwitch, {*this, {kPolylinesOnRadio, kPolylinesOffRadio}}, kPolylineWidthsButton},
      colors_{&DxfInLineTable::colWidthSwitch, {*this, {kColorsOnRadio, kColorsOffRadio}}, kColorWidthsButton},
      widths_{&DxfInLineTable::widWidthSwitch, {*this, {kWidthsOnRadio, kWidthsOffRadio}}, kLineWidthsButton} {
    // Colours and line widths are never converted together.
    OnSwitch(polylines_, nullptr);
    OnSwitch(colors_, &widths_);
    OnSwitch(widths_, &colors_);
    Edit(kLineTypesButton, [this, drawing] { return KrDxfInTbl_LStyle(*table_, drawing); });
    Edit(kPolylineWidthsButton, [this] { return KrDxfInTbl_PWidth(*table_); });
    Edit(kColorWidthsButton, [this] { return KrDxfInTbl_CWidth(*table_); });
    Edit(kLineWidthsButton, [this] { return KrDxfInTbl_LWidth(*table_); });
}

void KrDxfInTbl_Line::OnSwitch(Switch& which, const Switch* excludes) {
    which.radios.OnChosen([this, &which, excludes](int index) {
        Convert(which, index == kOn);
        if (index == kOn && excludes) Convert(*excludes, false);
        Changed();
    });
}

void KrDxfInTbl_Line::Read() {
    io_.emplace(Utility(), Handle());
    io_->ReadLineTable(*table_);
    if (table_->widWidthSwitch == 1) table_->colWidthSwitch = 0;
}

void KrDxfInTbl_Line::Show() {
    for (const Switch* which : {&polylines_, &colors_, &widths_}) Convert(*which, (*table_).*which->word == 1);
}

void KrDxfInTbl_Line::Convert(const Switch& which, bool on) {
    (*table_).*which.word = on;
    which.radios.Select(on ? kOn : kOff);
    Item<kiro::ui::Button>(which.button).Enable(on);
}
