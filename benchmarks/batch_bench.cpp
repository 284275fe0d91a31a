// batch_bench: the figures that the batch of the import is held to.
#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "benchmarks/BenchHost.h"
#include "benchmarks/Measure.h"
#include "driver/Driver.h"
#include "driver/GridDriver.h"
#include "dxfin/KrDxfInList.h"
#include "dxfin/ModelBatch.h"
#include "entry/host/FixedText.h"
#include "hostlayer/include/KiroHost.h"
#include "resources/dxfin/KrDxfInList.ids.h"
#include "resources/grid.ids.h"

using namespace kiro::drive;

namespace {

constexpr int kRounds = 30;
constexpr int kFew = 50;
constexpr int kHalf = 2500;
constexpr int kMany = 5000;
constexpr int kConverted = 100;
constexpr int kSmallDrawing = 1000;  // lines; some 50 KB
constexpr int kVersionColumn = 3;
constexpr double kKeyLimit = 50;  // milliseconds: what a user does not notice

void Require(bool holds, const char* what) {
    if (!holds) throw Failure(what);
}

std::string Drawing(int lines) {
    std::string text =
        "  0\nSECTION\n  2\nHEADER\n  9\n$ACADVER\n  1\nAC1015\n  0\nENDSEC\n  0\nSECTION\n  2\nENTITIES\n";
    for (int i = 0; i < lines; ++i) text += "  0\nLINE\n  8\nWALLS\n 10\n0.0\n 20\n0.0\n 11\n1.0\n 21\n2.0\n";
    return text + "  0\nENDSEC\n  0\nEOF\n";
}

class Bench {
  public:
    Bench() {
        WriteDrawings(L"FEW", kFew);
        WriteDrawings(L"HALF", kHalf);
        WriteDrawings(L"MANY", kMany);
        WriteDrawings(L"RUN", kConverted, kSmallDrawing);
    }

    // From the button "一覧" to the painted list, and its end in the middle of the reading.
    bool Opening() {
        const BenchHost::AutoClose closing(host_);
        const auto open = [this](const char* pattern) { return [this, pattern] { Open(pattern); }; };
        return Report("list of 5,000 drawings / of 50, open and close",
                      Compare(kRounds, open("MANY\\*"), open("FEW\\*")), 1.5);
    }

    // From there until all rows are in the list: of as many files twice as long, and no more.
    bool Filling() {
        const auto fill = [this](const char* pattern, int count) {
            return Milliseconds([&] {
                Drive([&] { Open(pattern); },
                      [&] {
                          const HWND dialog = Settle();
                          Until("the rows are there", [&] { return Grid(dialog, kGrid).Rows() == count; });
                          Click(dialog, IDCANCEL);
                      });
            });
        };
        return Report("list of 5,000 drawings / of 2,500, until its rows are there",
                      CompareTimes(
                          kRounds, [&] { return fill("MANY\\*", kMany); }, [&] { return fill("HALF\\*", kHalf); }),
                      2.2);
    }

    // A key, while the versions of 5,000 drawings are read: until it is dealt with and painted.
    bool Keys() {
        std::vector<double> times;
        Drive([&] { Open("MANY\\*"); },
              [&] {
                  const HWND dialog = Settle();
                  const Grid grid(dialog, kGrid);
                  Until("the rows are there", [&] { return grid.Rows() == kMany; });
                  while (grid.Cell(kMany - 1, kVersionColumn) == L"…") {
                      Pause();  // what is read beside the keys comes after all that is posted
                      const int row = grid.Current().row;
                      times.push_back(Milliseconds([&] {
                          Key(VK_DOWN);
                          Require(grid.Current().row == row + 1, "the key is not dealt with");
                      }));
                  }
                  Click(dialog, IDCANCEL);
              });
        Require(times.size() > 100, "the list was filled at once");
        std::ranges::sort(times);
        return ReportValue("a key while the list of 5,000 fills in, 99 of 100", times[times.size() * 99 / 100],
                           kKeyLimit, "ms");
    }

    // A whole run against the same conversions without a window.
    bool Run() {
        return Report("run over 100 small drawings / the single conversions",
                      CompareTimes(
                          kRounds, [this] { return RunList(); }, [this] { return Singles(); }),
                      1.1);
    }

  private:
    void WriteDrawings(const wchar_t* folder, int count, int lines = 1) const {
        const auto path = host_.Home() / L"DXF" / folder;
        std::filesystem::create_directories(path);
        const std::string text = Drawing(lines);
        for (int i = 0; i < count; ++i)
            std::ofstream(path / (L"図面" + std::to_wstring(i) + L".dxf"), std::ios::binary) << text;
    }
    void Open(const char* pattern) const {
        const BenchHost::Style style(host_);
        DxfInListInfo info{};
        WriteFixedText(info.pattern, pattern);
        KrDxfInList list(info);
        Require(list.Search() == DrawingSearch::Start::kFound, "no drawings are found");
        Require(list.DoModal(host_.Owner()) == IDCANCEL, "the list was not shown");
    }
    // By the host: from the moment in which the user's model is put aside until it is back. The user looks at no window
    // meanwhile, which would take its share of the time.
    struct Clock {
        double begin = 0;
        std::atomic<double> time = 0;
    };
    static void Tick(void* context, const KiroHostCall* call) {
        if (std::strcmp(call->name, "SxfModelInit") != 0) return;
        auto& clock = *static_cast<Clock*>(context);
        LARGE_INTEGER now{}, second{};
        QueryPerformanceCounter(&now);
        QueryPerformanceFrequency(&second);
        const double at = 1000.0 * static_cast<double>(now.QuadPart) / static_cast<double>(second.QuadPart);
        call->arguments[1].integer == kSxfModelBack ? clock.time = at - clock.begin : clock.begin = at;
    }
    double RunList() const {
        Clock clock;
        KiroHostObserveCalls(&Tick, &clock);
        Drive([&] { Open("RUN\\*"); },
              [&] {
                  const HWND dialog = Settle();
                  const Grid grid(dialog, kGrid);
                  Until("the versions are there", [&] { return grid.Cell(kConverted - 1, kVersionColumn) != L"…"; });
                  Click(dialog, kMarkAllButton);
                  Click(dialog, IDOK);
                  if (IsBox(Settle())) Answer(ReadBox(), IDYES);  // the models of the round before
                  Until("the run has ended", [&] { return clock.time > 0; });
                  Until("the list can be used", [&] { return IsEnabled(dialog, kMarkAllButton); });
                  Require(Text(dialog, kDrawingCount).find(L" 0 件") != std::wstring::npos,
                          "a drawing was not converted");
                  Click(dialog, IDCANCEL);
              });
        KiroHostObserveCalls(nullptr, nullptr);
        return clock.time;
    }
    double Singles() const {
        const KrUtilityPtr utility(KrCreateUtility());
        const ModelAside aside;
        return Milliseconds([&] {
            for (int i = 0; i < kConverted; ++i) {
                const std::string name = "図面" + std::to_string(i);
                const std::string drawing = KrInternalPath(*utility, "#DXF#", "RUN\\" + name + ".dxf");
                Require(ConvertDrawing(drawing, FileOfModel(*utility, name).path).empty(),
                        "a drawing was not converted");
            }
        });
    }

    BenchHost host_;
    kiro::ui::ScopedResourceModule module_{host_.Library()};
};

}  // namespace

int main() {
    UsePrivateDesktop();
    try {
        Bench bench;
        bool kept = bench.Opening();
        kept = bench.Filling() && kept;
        kept = bench.Keys() && kept;
        kept = bench.Run() && kept;
        std::printf("%s\n", kept ? "every figure is kept" : "a figure is missed");
        return kept ? 0 : 1;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "batch_bench: %s\n", failure.what());
        return 2;
    }
}
