// grid_bench [TIMES]: the figures that the grid editors of the import tables are held to. TIMES: how often each editor
// is opened and closed in search of leaks (200).
#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "benchmarks/BenchHost.h"
#include "benchmarks/LeakReport.h"
#include "benchmarks/Measure.h"
#include "dxfin/KrDxfInAttr.h"
#include "dxfin_tables/KrDxfInTable.h"
#include "dxfin_tables/KrDxfInTbl_Arrow.h"
#include "dxfin_tables/KrDxfInTbl_CLayer.h"
#include "dxfin_tables/KrDxfInTbl_CWidth.h"
#include "dxfin_tables/KrDxfInTbl_Color.h"
#include "dxfin_tables/KrDxfInTbl_LStyle.h"
#include "dxfin_tables/KrDxfInTbl_LWidth.h"
#include "dxfin_tables/KrDxfInTbl_Layer.h"
#include "dxfin_tables/KrDxfInTbl_Line.h"
#include "dxfin_tables/KrDxfInTbl_PWidth.h"
#include "dxfin_tables/KrDxfInTbl_TFont.h"
#include "dxfin_tables/KrDxfInTbl_TFont2.h"
#include "resources/grid.ids.h"
#include "resources/dxfin/KrDxfInAttr.ids.h"
#include "resources/dxfin_tables/KrDxfInTable.ids.h"
#include "resources/dxfin_tables/KrDxfInTbl_Arrow.ids.h"
#include "resources/dxfin_tables/KrDxfInTbl_CLayer.ids.h"
#include "resources/dxfin_tables/KrDxfInTbl_CWidth.ids.h"
#include "resources/dxfin_tables/KrDxfInTbl_Color.ids.h"
#include "resources/dxfin_tables/KrDxfInTbl_LStyle.ids.h"
#include "resources/dxfin_tables/KrDxfInTbl_LWidth.ids.h"
#include "resources/dxfin_tables/KrDxfInTbl_Layer.ids.h"
#include "resources/dxfin_tables/KrDxfInTbl_Line.ids.h"
#include "resources/dxfin_tables/KrDxfInTbl_PWidth.ids.h"
#include "resources/dxfin_tables/KrDxfInTbl_TFont.ids.h"
#include "driver/GridDriver.h"
#include "driver/Driver.h"

using namespace kiro::drive;

namespace {

constexpr int kRounds = 30;
constexpr int kFewRows = 16;
constexpr int kMostRows = kDxfInLayerSlots;
constexpr int kHalfRows = 1000;
constexpr int kAllButOther = kDxfInLayerSlots - 1;
constexpr int kSteps = 10;          // of which a figure is the fastest
constexpr double kNotSlower = 1.1;  // what is as fast may measure a little slower
constexpr int kNameColumn = 1;
constexpr int kNumberColumn = 2;

using LayerTable = std::unique_ptr<DxfInLayerTable>;

// As many rows as are wanted: the first is "OTHER" where the table is to have it.
LayerTable Layers(int rows, bool hasOther, const char* name = "LAYER_OF_CLASS_%05d") {
    auto table = std::make_unique<DxfInLayerTable>();
    table->layerClass[0] = hasOther;
    table->layerClassCount = rows - (hasOther ? 1 : 0);
    for (int i = 1; i <= table->layerClassCount; ++i) {
        table->layerClass[i] = i % 256 + 1;
        std::snprintf(table->layerClassName[i], sizeof table->layerClassName[i], name, i);
    }
    return table;
}

void Require(bool holds, const char* what) {
    if (!holds) throw Failure(what);
}

// The fastest of some turns: what else runs on the machine can only add to a time, and adds to most of them.
double Fastest(int turns, const std::function<double(int turn)>& work) {
    double fastest = work(0);
    for (int turn = 1; turn < turns; ++turn) fastest = std::min(fastest, work(turn));
    return fastest;
}

// The operator's hands, on the dialog's own thread: a key is dealt with and the screen painted when the call returns.
class Hands {
  public:
    Hands(HWND dialog, int rows) : dialog_(dialog), grid_(dialog, kGrid) {
        Require(grid_.Rows() == rows, "the editor has not the rows of the table");
    }
    void Press(WORD key) const {
        SendMessageW(GetFocus(), WM_KEYDOWN, key, 1);
        Paint();
    }
    void GoTo(int column) const {
        while (grid_.Current().column < column) Press(VK_RIGHT);
        while (grid_.Current().column > column) Press(VK_LEFT);
    }
    void Paint() const { RedrawWindow(dialog_, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN); }
    void OpenCell() const {
        Press(VK_F2);
        Require(GetFocus() != grid_.List() && IsChild(grid_.List(), GetFocus()), "the cell is not open");
    }
    void Expect(GridPlace place) const { Require(grid_.Current() == place, "another cell is the current one"); }
    bool TellsFault() const { return IsGuidanceError(dialog_); }
    const Grid& Rows() const { return grid_; }
    // What the list view sends when a cell is clicked, and the grid when it has another text.
    void Notify(UINT code, GridPlace place = {}) const {
        NMITEMACTIVATE notice{};
        notice.hdr = {grid_.List(), kGrid, code};
        notice.iItem = place.row;
        notice.iSubItem = place.column;
        SendMessageW(dialog_, WM_NOTIFY, kGrid, reinterpret_cast<LPARAM>(&notice));
    }

  private:
    HWND dialog_;
    Grid grid_;
};

class Bench {
  public:
    bool Opening() {
        const LayerTable few = Layers(kFewRows, true);
        const LayerTable most = Layers(kMostRows, true);
        const BenchHost::AutoClose closing(host_);
        const auto open = [&](DxfInLayerTable& table) {
            return Fastest(3, [&](int) { return Milliseconds([&] { Edit(table); }); });
        };
        const Comparison opening = CompareTimes(
            kRounds, [&] { return open(*most); }, [&] { return open(*few); });
        return Report("2,048 rows / 16 rows, open and close", opening, 1.5);
    }

    bool Checking() {
        const LayerTable half = Layers(kHalfRows, false);
        const LayerTable whole = Layers(kAllButOther, false);
        const LayerTable same = Layers(kAllButOther, false, "LAYER_OF_CLASS");
        bool kept = Report("2,047 rows / 1,000 rows, a change taken and checked",
                           CompareTables(*whole, *half, &Bench::ChangeRow), 2.2);
        kept = Report("2,047 rows / 1,000 rows, the check alone", CompareTables(*whole, *half, &Bench::Check), 2.2) &&
               kept;
        return Report("2,047 rows of one name / valid ones, the check alone",
                      CompareTables(*same, *whole, &Bench::Check), kNotSlower) &&
               kept;
    }

    bool Moving() {
        const LayerTable few = Layers(kFewRows, true);
        const LayerTable most = Layers(kMostRows, true);
        bool kept = Report("2,048 rows / 16 rows, selection moved", CompareTables(*most, *few, &Bench::Move), 1.5);
        return Report("2,048 rows / 16 rows, edit started", CompareTables(*most, *few, &Bench::StartEdit), 1.5) && kept;
    }

    bool Leaks(int times);

  private:
    using Step = double (*)(const Hands& hands, int rows);

    void Edit(DxfInLayerTable& table) const {
        const BenchHost::Style style(host_);
        Require(KrDxfInTbl_CLayer(table).DoModal(host_.Owner()) == IDCANCEL, "the editor was not shown");
    }
    Comparison CompareTables(DxfInLayerTable& subject, DxfInLayerTable& floor, Step step) {
        const auto run = [&](DxfInLayerTable& table) {
            const int rows = table.layerClassCount + (table.layerClass[0] ? 1 : 0);
            double time = 0;
            const bool hasFault = std::strcmp(table.layerClassName[1], table.layerClassName[2]) == 0;
            host_.Play([&] { Edit(table); },
                       [&](HWND dialog) {
                           const Hands hands(dialog, rows);
                           time = step(hands, rows);
                           Require(hands.TellsFault() == hasFault, "the rows are not checked");
                       });
            return time;
        };
        return CompareTimes(
            kRounds, [&] { return run(subject); }, [&] { return run(floor); });
    }

    // A class number is typed and taken with Enter, which goes to the next row.
    static double ChangeRow(const Hands& hands, int) {
        hands.GoTo(kNumberColumn);
        return Fastest(kSteps, [&](int turn) {
            const wchar_t* number = turn % 2 ? L"7" : L"8";
            hands.OpenCell();
            SetWindowTextW(GetFocus(), number);
            const double time = Milliseconds([&] { SendMessageW(GetFocus(), WM_KEYDOWN, VK_RETURN, 1); });
            hands.Expect({1, kNumberColumn});
            Require(hands.Rows().Cell(0, kNumberColumn) == number, "the number is not taken");
            hands.Paint();
            hands.Press(VK_UP);
            return time;
        });
    }
    // The same without an editor: the dialog hears of a change and of a click on another row.
    static double Check(const Hands& hands, int) {
        return Fastest(kSteps, [&](int turn) {
            const GridPlace place{1 - turn % 2, kNameColumn};
            hands.Notify(kKrListCellChanged);
            const double time = Milliseconds([&] { hands.Notify(static_cast<UINT>(NM_CLICK), place); });
            hands.Expect(place);
            return time;
        });
    }
    // At the last rows. Nothing has changed, so nothing is checked.
    static double Move(const Hands& hands, int rows) {
        hands.Press(VK_END);
        hands.GoTo(kNameColumn);
        return Fastest(2 * kSteps, [&](int turn) {
            const double time = Milliseconds([&] { hands.Press(turn % 2 ? VK_DOWN : VK_UP); });
            hands.Expect({turn % 2 ? rows - 1 : rows - 2, kNameColumn});
            return time;
        });
    }
    static double StartEdit(const Hands& hands, int) {
        hands.Press(VK_END);
        hands.GoTo(kNameColumn);
        return Fastest(kSteps, [&](int) {
            const double time = Milliseconds([&] { hands.OpenCell(); });
            hands.Press(VK_ESCAPE);
            return time;
        });
    }

    BenchHost host_;
    GridWatch grids_;
    kiro::ui::ScopedResourceModule module_{host_.Library()};
};

// ---- Leaks ----

// The columns and rows that a grid has. The library draws the rows.
template <int kColumns, int kRows>
void FillGrid(HWND dialog) {
    const HWND list = GetDlgItem(dialog, kGrid);
    wchar_t title[] = L"番号";
    for (int i = 0; i < kColumns; ++i) {
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT | LVCF_SUBITEM | LVCF_WIDTH;
        column.pszText = title;
        column.iSubItem = i;
        column.cx = 50;
        SendMessageW(list, LVM_INSERTCOLUMNW, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&column));
    }
    SendMessageW(list, LVM_SETITEMCOUNT, kRows, 0);
}

bool Bench::Leaks(int times) {
    const LayerTable layers = Layers(kMostRows, true);
    const auto lines = std::make_unique<DxfInLineTable>();
    const HWND owner = host_.Owner();
    DxfInParamBlock params{};
    const struct {
        const char* name;
        std::function<INT_PTR()> run;
        int bareTemplate;
        void (*fill)(HWND);
    } editors[] = {
        {"layers", [&] { return KrDxfInTbl_CLayer(*layers).DoModal(owner); }, kDxfInLayerGridDialog,
         FillGrid<3, kMostRows>},
        {"colours", [&] { return KrDxfInTbl_Color(*layers).DoModal(owner); }, kDxfInColorGridDialog, FillGrid<3, 256>},
        {"line types", [&] { return KrDxfInTbl_LStyle(*lines).DoModal(owner); }, kDxfInLineTypeGridDialog,
         FillGrid<4, 16>},
        {"polyline widths", [&] { return KrDxfInTbl_PWidth(*lines).DoModal(owner); }, kDxfInPolyWidthGridDialog,
         FillGrid<3, 16>},
        {"colour widths", [&] { return KrDxfInTbl_CWidth(*lines).DoModal(owner); }, kDxfInColorWidthGridDialog,
         FillGrid<3, 256>},
        {"line widths", [&] { return KrDxfInTbl_LWidth(*lines).DoModal(owner); }, kDxfInLineWidthGridDialog,
         FillGrid<3, 24>},
        {"text fonts", [&] { return KrDxfInTbl_TFont().DoModal(owner); }, kDxfInTextFontDialog, FillGrid<9, 16>},
        {"text font factors", [&] { return KrDxfInTbl_TFont2().DoModal(owner); }, kDxfInTextFontHelpDialog, nullptr},
        {"arrows", [&] { return KrDxfInTbl_Arrow().DoModal(owner); }, kDxfInArrowDialog, FillGrid<4, 16>},
        {"layer table", [&] { return KrDxfInTbl_Layer(*layers, 1, 0).DoModal(owner); }, kLayerTableDialog, nullptr},
        {"line table", [&] { return KrDxfInTbl_Line().DoModal(owner); }, kLineTableDialog, nullptr},
        {"attributes", [&] { return KrDxfInAttr(params).DoModal(owner); }, kDxfInAttrDialog, nullptr},
        {"launcher", [&] { return KrDxfInTable().DoModal(owner); }, kInTableDialog, nullptr},
    };
    bool kept = true;
    const BenchHost::AutoClose closing(host_);
    const BenchHost::Style style(host_);
    for (const auto& editor : editors) {
        const auto run = [&] { Require(editor.run() == IDCANCEL, "an editor was not shown, or not cancelled"); };
        kept = ReportLeaks(editor.name, times, run, [&] { host_.OpenBare(editor.bareTemplate, editor.fill); }) && kept;
    }
    return kept;
}

}  // namespace

int main(int argc, char** argv) {
    const int times = argc > 1 ? std::atoi(argv[1]) : 200;
    UsePrivateDesktop();
    try {
        Bench bench;
        bool kept = bench.Opening();
        kept = bench.Checking() && kept;
        kept = bench.Moving() && kept;
        kept = bench.Leaks(times) && kept;
        std::printf("%s\n", kept ? "every figure is kept" : "a figure is missed");
        return kept ? 0 : 1;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "grid_bench: %s\n", failure.what());
        return 2;
    }
}
