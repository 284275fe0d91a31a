// bench [TIMES [DIALOG]]: the figures that the dialogs are held to. TIMES: how often each dialog is opened and closed
// in search of leaks (0, or nothing: each as often as the catalogue says). DIALOG: those of one of the catalogue alone.
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "benchmarks/BareContents.h"
#include "benchmarks/BenchHost.h"
#include "benchmarks/LeakReport.h"
#include "benchmarks/Measure.h"
#include "catalogue/Catalogue.h"
#include "driver/Driver.h"
#include "entry/host/kirovanteo.h"
#include "hostlayer/include/KiroHost.h"
#include "resources/dxfin/KrDxfIn.ids.h"
#include "text/TextFormat.h"

using namespace kiro::drive;

namespace {

constexpr int kExplanations = 1000;
constexpr int kMostEntries = 256;
constexpr double kDllLimit = 1.2e6;
constexpr std::size_t kLargeFile = std::size_t{300} << 20;
constexpr std::size_t kSmallFile = 5 << 10;

class Bench {
  public:
    Bench() { info_->input.importParams = &params_; }

    // By the catalogue: what each dialog leaves behind, and how long it takes to open and close, beside its bare
    // template.
    bool Dialogs(int times, std::string_view only) {
        bool kept = true;
        for (const kiro::CatalogueDialog& dialog : kiro::Catalogue()) {
            if (!only.empty() && only != dialog.name) continue;
            kept = Dialog(dialog, dialog.name, times ? times : dialog.figures.leakTimes) && kept;
        }
        return kept;
    }

    // The export of a model with as many pictures and layouts as there can be: entries of its lists, rows of its grids.
    bool FullModel(int times) {
        std::string json = "{\"pictures\": [";
        for (int i = 1; i <= kMostEntries; ++i)
            json += (i > 1 ? ", " : "") + Formatted("{\"number\": %d, \"itemCount\": %d}", i, i);
        json += "], \"layouts\": [";
        for (int i = 1; i <= kMostEntries; ++i)
            json += (i > 1 ? ", " : "") +
                    Formatted("{\"number\": %d, \"name\": \"LAYOUT-%d\", \"windows\": [%d]}", i, i, i);
        const std::filesystem::path model = host_.Home() / L"full.json";
        std::ofstream(model, std::ios::binary) << json << "]}";
        if (KiroHostLoadModel(model.c_str(), nullptr, 0) != 0) throw Failure("the full model cannot be read");
        bool kept = true;
        for (const char* name : {"export-dxf", "export-pages", "export-pictures"}) {
            const kiro::CatalogueDialog& dialog = *kiro::FindDialog(name);
            kept = Dialog(dialog, std::string(name) + " of 256", times ? times : dialog.figures.leakTimes) && kept;
        }
        return kept;
    }

    bool VersionLine() {
        WriteDrawing(L"small.dxf", TextStart(), "  0\nLINE\n  8\n0\n 10\n1.0\n", kSmallFile);
        WriteDrawing(L"large.dxf", TextStart(), "  0\nLINE\n  8\n0\n 10\n1.0\n", kLargeFile);
        WriteDrawing(L"small_b.dxf", BinaryStart(),
                     std::string("\0LINE\0\x08"
                                 "0\0",
                                 8),
                     kSmallFile);
        WriteDrawing(L"large_b.dxf", BinaryStart(),
                     std::string("\0LINE\0\x08"
                                 "0\0",
                                 8),
                     kLargeFile);
        Comparison text, binary;
        Drive([&] { return DxfInputDlg(info_.get()); },
              [&] {
                  const HWND dialog = Settle();
                  text = CompareTimes(
                      100, [&] { return ShowVersion(dialog, L"large.dxf"); },
                      [&] { return ShowVersion(dialog, L"small.dxf"); });
                  binary = CompareTimes(
                      100, [&] { return ShowVersion(dialog, L"large_b.dxf"); },
                      [&] { return ShowVersion(dialog, L"small_b.dxf"); });
                  Click(dialog, IDCANCEL);
              });
        const bool textKept = Report("version line of a 300 MB text DXF / a 5 KB one", text, 1.2);
        return Report("version line of a 300 MB binary DXF / a 5 KB one", binary, 1.2) && textKept;
    }

    // The popups on the way of the mouse over a dialog.
    bool LeaksOfExplanations(int times) {
        bool kept = true;
        for (const kiro::CatalogueDialog& dialog : kiro::Catalogue()) {
            std::vector<kiro::Explanation> popups;
            for (const kiro::Explanation& explanation : kiro::Explanations())
                if (std::string_view(explanation.dialog) == dialog.name) popups.push_back(explanation);
            if (popups.size() > 1) kept = LeaksOfExplanations(dialog, popups, times) && kept;
        }
        return kept;
    }

    bool Size() const {
        wchar_t path[MAX_PATH];
        GetModuleFileNameW(host_.Library(), path, MAX_PATH);
        return ReportValue("kirovanteo.dll, stripped", static_cast<double>(std::filesystem::file_size(path)), kDllLimit,
                           "bytes");
    }

  private:
    // How long it takes to open and close, beside its bare template, and what it leaves behind.
    bool Dialog(const kiro::CatalogueDialog& dialog, const std::string& name, int leakTimes) {
        const kiro::Opening opening = dialog.prepare();
        const auto run = [&] { opening.run(); };
        BareContents contents;
        if (dialog.templateId) host_.Play(run, [&](HWND window) { contents = ReadContents(window); });
        const auto bare = [&] {
            if (!dialog.templateId) return TellBare();
            host_.OpenBare(dialog.templateId, contents);
        };
        const BenchHost::AutoClose closing(host_);
        bool kept = true;
        if (dialog.templateId)
            kept = Report(name + ", open and close / the bare template", Compare(dialog.figures.openings, run, bare),
                          dialog.figures.openLimit);
        return ReportLeaks(name.c_str(), leakTimes, run, bare) && kept;
    }

    bool LeaksOfExplanations(const kiro::CatalogueDialog& entry, const std::vector<kiro::Explanation>& popups,
                             int times) {
        bool kept = false;
        Drive(entry.prepare().run, [&] {
            const HWND dialog = Settle();
            std::size_t turn = 0;
            // Everything is painted before the next step: what the system keeps depends on what was painted.
            const auto paint = [&] {
                for (const HWND popup : Popups(dialog)) {
                    RedrawWindow(popup, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
                }
                RedrawWindow(dialog, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
                Sync();
            };
            const auto next = [&] { return popups[turn++ % popups.size()]; };
            const auto hover = [&] {
                const auto before = Popups(dialog);
                MoveMouse(Centre(Control(dialog, next().zone)));
                Until("the explanation", [&] { return Popups(dialog).size() == 1 && Popups(dialog) != before; });
                paint();
            };
            const auto bare = [&] {
                const kiro::Explanation which = next();
                ExplainBare(dialog, Control(dialog, which.zone), which.templateId);
                paint();
            };
            // The same one is there at the end as at the beginning.
            const int each = static_cast<int>(popups.size());
            kept =
                ReportLeaks(std::string("explanation of ") + entry.name, (times + each - 1) / each * each, hover, bare);
            Click(dialog, IDCANCEL);
        });
        return kept;
    }
    void TellBare() const {
        const BenchHost::Style style(host_);
        MessageBoxW(host_.Owner(), L"text", L" ", MB_OK | MB_ICONHAND);
    }
    // A template of an explanation, shown over the dialog below the zone and destroyed; the dialog paints what it
    // covered.
    void ExplainBare(HWND dialog, HWND zone, int templateId) const {
        RECT rect{};
        GetWindowRect(zone, &rect);
        const BenchHost::Style style(host_);  // of the user's thread, which makes this popup
        const HWND popup = CreateDialogParamW(
            host_.Library(), MAKEINTRESOURCEW(templateId), dialog,
            [](HWND, UINT, WPARAM, LPARAM) -> INT_PTR { return FALSE; }, 0);
        SetWindowPos(popup, nullptr, rect.left, rect.bottom + 5, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        SetWindowRgn(popup, CreateRectRgn(0, 0, 5000, 5000), FALSE);
        ShowWindow(popup, SW_SHOWNOACTIVATE);
        RedrawWindow(popup, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
        DestroyWindow(popup);
        RedrawWindow(dialog, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    }
    static std::string TextStart() { return "  0\nSECTION\n  2\nHEADER\n  9\n$ACADVER\n  1\nAC1015\n  0\nENDSEC\n"; }
    static std::string BinaryStart() {
        return std::string("AutoCAD Binary DXF\r\n\x1A\0\0SECTION\0\2HEADER\0\x09$ACADVER\0\1AC1009\0\0ENDSEC\0", 65);
    }
    void WriteDrawing(const wchar_t* name, const std::string& start, const std::string& item, std::size_t size) const {
        std::string block;
        while (block.size() < (std::size_t{1} << 16)) block += item;
        std::ofstream out(host_.Home() / L"DXF" / name, std::ios::binary);
        out << start;
        for (std::size_t written = start.size(); written < size;) {
            const std::size_t bytes = (std::min)(block.size(), size - written);
            out.write(block.data(), static_cast<std::streamsize>(bytes));
            written += bytes;
        }
    }
    // How long the dialog takes when the name's edit is left.
    static double ShowVersion(HWND dialog, const wchar_t* name) {
        Focus(dialog, kFileNameEdit);
        Type(dialog, kFileNameEdit, name);
        const double time = Milliseconds([&] { Focus(dialog, kSubModelEdit); });
        if (Text(dialog, kVersionText).find(L"AC10") == std::wstring::npos) throw Failure("no version is shown");
        return time;
    }

    BenchHost host_;
    std::unique_ptr<TARNAINFO> info_ = std::make_unique<TARNAINFO>();
    DxfInParamBlock params_{};
};

}  // namespace

int main(int argc, char** argv) {
    const int times = argc > 1 ? std::atoi(argv[1]) : 0;
    const std::string_view only = argc > 2 ? argv[2] : "";
    UsePrivateDesktop();
    try {
        Bench bench;
        bool kept = true;
        if (only.empty()) {
            kept = bench.Size();
            kept = bench.VersionLine() && kept;
        }
        // First: when tens of thousands of windows have been there, Wine tells a dialog of itself by another number,
        // and the mouse is over none.
        if (only.empty() || only == "explanations")
            kept = bench.LeaksOfExplanations(times ? times : kExplanations) && kept;
        kept = bench.Dialogs(times, only) && kept;
        if (only.empty() || only == "full") kept = bench.FullModel(times) && kept;
        std::printf("%s\n", kept ? "every figure is kept" : "a figure is missed");
        return kept ? 0 : 1;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "bench: %s\n", failure.what());
        return 2;
    }
}
