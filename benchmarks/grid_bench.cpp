// grid_bench [TIMES]: the figures that a grid editor with many rows is held to. TIMES: how often it is opened and
// closed in search of leaks (200).
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
#include <vector>

#include "benchmarks/BareContents.h"
#include "benchmarks/BenchHost.h"
#include "benchmarks/LeakReport.h"
#include "benchmarks/Measure.h"
#include "driver/Clipboard.h"
#include "driver/Driver.h"
#include "driver/GridDriver.h"
#include "dxfin_tables/KrDxfInTbl_CLayer.h"
#include "entry/host/KrListControl.h"
#include "peliondb/NameList.h"
#include "peliondb/PelionTree.h"
#include "resources/dxfin_tables/KrDxfInTbl_CLayer.ids.h"
#include "resources/grid.ids.h"
#include "resources/peliondb/KrPlInDrive.ids.h"

using namespace kiro::drive;

namespace {

constexpr int kRounds = 30;
constexpr int kFewRows = 16;
constexpr int kMostRows = kDxfInLayerSlots;
constexpr int kHalfRows = 1000;
constexpr int kManyRows = 2001;  // with "OTHER"
constexpr int kSomeRows = 201;
constexpr int kFewRounds = 7;
constexpr int kAllButOther = kDxfInLayerSlots - 1;
constexpr int kSteps = 10;          // of which a figure is the fastest
constexpr double kNotSlower = 1.1;  // what is as fast may measure a little slower
constexpr double kAsQuick = 1.2;
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
    void PressWithControl(WORD key) const {
        BYTE keys[256] = {};
        keys[VK_CONTROL] = 0x80;
        SetKeyboardState(keys);
        Press(key);
        keys[VK_CONTROL] = 0;
        SetKeyboardState(keys);
    }
    void PressWithShift(WORD key) const {
        BYTE keys[256] = {};
        keys[VK_SHIFT] = 0x80;
        SetKeyboardState(keys);
        Press(key);
        keys[VK_SHIFT] = 0;
        SetKeyboardState(keys);
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
    void TellClick(GridPlace place) const {
        NMITEMACTIVATE notice{};
        notice.hdr = {grid_.List(), kGrid, static_cast<UINT>(NM_CLICK)};
        notice.iItem = place.row;
        notice.iSubItem = place.column;
        SendMessageW(dialog_, WM_NOTIFY, kGrid, reinterpret_cast<LPARAM>(&notice));
    }
    void TellChange(GridPlace place) const {
        const KrListNotify notice{grid_.List(), kGrid, kKrListCellChanged, place.row, place.column};
        SendMessageW(dialog_, WM_NOTIFY, kGrid, reinterpret_cast<LPARAM>(&notice));
    }

  private:
    HWND dialog_;
    Grid grid_;
};

// The lists of drives, groups and users, with names of our own.
class NameDialog final : public kiro::ui::HostDialog {
  public:
    static constexpr int kLists = 3;

    NameDialog(const std::vector<std::string>& names, int lists)
        : HostDialog(kPlInDriveDialog), names_(names), used_(lists) {}
    void Refill() {
        for (int i = 0; i < used_; ++i) lists_[i].Fill(names_);
        RedrawWindow(Handle(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    }

  private:
    void OnInit() override {
        InitUtility();
        for (int i = 0; i < kLists; ++i)
            lists_[i].Init(kMostPelionNames, i < used_ ? names_ : std::vector<std::string>(), i ? &lists_[0] : nullptr);
    }

    static constexpr kiro::ui::GridColumn kColumn[] = {{"グループ名", 9.8}};
    const std::vector<std::string>& names_;
    int used_;
    NameList lists_[kLists] = {{*this, kPlFirstList, kColumn, [] {}},
                               {*this, kPlSecondList, kColumn, [] {}},
                               {*this, kPlThirdList, kColumn, [] {}}};
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

    // Lists of names that belong to one another, as drives, groups and users do: opened, and filled anew.
    bool Names() {
        const auto names = [](int count) {
            std::vector<std::string> all;
            for (int i = 0; i < count; ++i) all.push_back(std::to_string(1000 + i));
            return all;
        };
        const auto few = names(kFewRows), most = names(kMostPelionNames);
        bool kept = true;
        for (int lists = 1; lists <= NameDialog::kLists; ++lists) {
            const auto show = [&](const std::vector<std::string>& rows, bool refills) {
                NameDialog dialog(rows, lists);
                double refilling = 0;
                const double shown = Milliseconds([&] {
                    host_.Play(
                        [&] {
                            const BenchHost::Style style(host_);
                            dialog.DoModal(host_.Owner());
                        },
                        [&](HWND) {
                            if (refills)
                                refilling =
                                    Fastest(kSteps, [&](int) { return Milliseconds([&] { dialog.Refill(); }); });
                        });
                });
                return refills ? refilling : shown;
            };
            const std::string what = "512 names / 16 in " + std::to_string(lists) + " linked lists, ";
            for (const bool refills : {false, true}) {
                const Comparison times = CompareTimes(
                    kRounds, [&] { return show(most, refills); }, [&] { return show(few, refills); });
                kept = Report((what + (refills ? "filled anew" : "open and close")).c_str(), times, kAsQuick) && kept;
            }
        }
        return kept;
    }

    // What is done with many cells at once: a step per row, so that it does not matter how many there are.
    bool Blocks() {
        const LayerTable most = Layers(kManyRows, true);
        const LayerTable some = Layers(kSomeRows, true);
        const auto each = [&](const char* what, Step step) {
            const auto perRow = [&](DxfInLayerTable& table) { return Run(table, step) / (table.layerClassCount + 1); };
            const Comparison figure = CompareTimes(
                kFewRounds, [&] { return perRow(*most); }, [&] { return perRow(*some); });
            return Report(std::string("2,001 rows / 201 rows, per row, ") + what, figure, 1.5);
        };
        bool kept = each("pasted", &Bench::PasteRows);
        kept = each("filled down", &Bench::FillDown) && kept;
        kept = each("a paste undone", &Bench::UndoPaste) && kept;
        kept = each("deleted", &Bench::DeleteAll) && kept;
        kept = each("sorted", &Bench::SortRows) && kept;
        kept = each("a text not found", &Bench::FindNothing) && kept;
        const Comparison undo = CompareTimes(
            kFewRounds, [&] { return Run(*most, &Bench::UndoPaste); }, [&] { return Run(*most, &Bench::PasteRows); });
        kept = Report("2,000 rows, a paste undone / the paste", undo, 1.0) && kept;
        const Comparison paste = CompareTimes(
            kFewRounds, [&] { return Run(*most, &Bench::PasteRows); },
            [&] {
                const BenchHost::AutoClose closing(host_);
                return Milliseconds([&] { Edit(*most); });
            });
        return Report("2,000 rows pasted / a table of them opened and closed", paste, 1.5) && kept;
    }

    // What many rows leave behind, beside a bare grid of as many.
    bool Leaks(int times) {
        const LayerTable most = Layers(kMostRows, true);
        BareContents contents;
        host_.Play([&] { Edit(*most); }, [&](HWND dialog) { contents = ReadContents(dialog); });
        const BenchHost::AutoClose closing(host_);
        return ReportLeaks(
            "2,048 rows", times, [&] { Edit(*most); }, [&] { host_.OpenBare(kDxfInLayerGridDialog, contents); });
    }

  private:
    using Step = double (*)(const Hands& hands, int rows);

    void Edit(DxfInLayerTable& table) const {
        const BenchHost::Style style(host_);
        Require(KrDxfInTbl_CLayer(table).DoModal(host_.Owner()) == IDCANCEL, "the editor was not shown");
    }
    double Run(DxfInLayerTable& table, Step step) {
        double time = 0;
        const int rows = table.layerClassCount + 1;
        host_.Play([&] { Edit(table); }, [&](HWND dialog) { time = step(Hands(dialog, rows), rows); });
        return time;
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
            hands.TellChange(place);
            const double time = Milliseconds([&] { hands.TellClick(place); });
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

    // All rows but "OTHER" come from the clipboard, after they were taken out.
    static double PasteRows(const Hands& hands, int rows) {
        std::wstring block;
        for (int i = 1; i < rows; ++i)
            block += L"PASTED_LAYER_" + std::to_wstring(i) + L"\t" + std::to_wstring(i % 256 + 1) + L"\r\n";
        SelectLayers(hands, rows);
        hands.Press(VK_DELETE);
        Require(hands.Rows().Rows() == 1, "the rows are not deleted");
        hands.GoTo(kNameColumn);
        PutOnClipboard(L"OTHER\t1\r\n" + block);
        const double time = Milliseconds([&] { hands.PressWithControl('V'); });
        Require(hands.Rows().Rows() == rows, "the rows are not pasted");
        return time;
    }
    static double UndoPaste(const Hands& hands, int rows) {
        PasteRows(hands, rows);
        const double time = Milliseconds([&] { hands.PressWithControl('Z'); });
        Require(hands.Rows().Rows() == 1, "the paste is not undone");
        return time;
    }
    static double DeleteAll(const Hands& hands, int rows) {
        SelectLayers(hands, rows);
        const double time = Milliseconds([&] { hands.Press(VK_DELETE); });
        Require(hands.Rows().Rows() == 1, "the rows are not deleted");
        return time;
    }
    static double FillDown(const Hands& hands, int rows) {
        SelectLayers(hands, rows);
        const double time = Milliseconds([&] { hands.PressWithControl('D'); });
        Require(hands.Rows().Cell(rows - 1, kNumberColumn) == hands.Rows().Cell(1, kNumberColumn), "nothing is filled");
        return time;
    }
    static double SortRows(const Hands& hands, int rows) {
        NMHEADERW click{};
        click.hdr = {reinterpret_cast<HWND>(SendMessageW(hands.Rows().List(), LVM_GETHEADER, 0, 0)), 0,
                     static_cast<UINT>(HDN_ITEMCLICKW)};
        click.iItem = kNumberColumn;
        const double time =
            Milliseconds([&] { SendMessageW(hands.Rows().List(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&click)); });
        Require(rows < 300 || hands.Rows().Cell(1, kNumberColumn) == hands.Rows().Cell(2, kNumberColumn), "not sorted");
        return time;
    }
    static double FindNothing(const Hands& hands, int) {
        hands.PressWithControl('F');
        const double time = Milliseconds([&] { SetWindowTextW(GetFocus(), L"ない"); });
        Require(hands.TellsFault(), "something is found");
        return time;
    }
    // The numbers of all layers but "OTHER"; the current cell is the first.
    static void SelectLayers(const Hands& hands, int) {
        hands.Press(VK_HOME);
        hands.Press(VK_DOWN);
        hands.GoTo(kNumberColumn);
        hands.PressWithShift(VK_END);
    }

    BenchHost host_;
    GridWatch grids_;
    kiro::ui::ScopedResourceModule module_{host_.Library()};
};

}  // namespace

int main(int argc, char** argv) {
    const int times = argc > 1 ? std::atoi(argv[1]) : 200;
    UsePrivateDesktop();
    try {
        Bench bench;
        bool kept = bench.Blocks();
        kept = bench.Opening() && kept;
        kept = bench.Checking() && kept;
        kept = bench.Moving() && kept;
        kept = bench.Names() && kept;
        kept = bench.Leaks(times) && kept;
        std::printf("%s\n", kept ? "every figure is kept" : "a figure is missed");
        return kept ? 0 : 1;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "grid_bench: %s\n", failure.what());
        return 2;
    }
}
