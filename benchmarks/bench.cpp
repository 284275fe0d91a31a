// bench [TIMES]: the figures that the dialogs are held to. TIMES: how often each dialog is opened and closed in search
// of leaks (1000).
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <string>

#include "benchmarks/BenchHost.h"
#include "benchmarks/LeakReport.h"
#include "benchmarks/Measure.h"
#include "entry/host/kirovanteo.h"
#include "resources/catia/KrCatiaIn.ids.h"
#include "resources/catia/KrDxfPass.ids.h"
#include "resources/dxfin/KrDxfIn.ids.h"
#include "resources/dxfin/KrDxfInHelp.ids.h"
#include "resources/dxfout/KrDxfOut.ids.h"
#include "resources/model/KrDxfLineType.ids.h"
#include "resources/model/KrDxfLineWidth.ids.h"
#include "resources/model/KrDxfWarning1.ids.h"
#include "resources/peliondb/KrPlIn.ids.h"
#include "resources/peliondb/KrPlOut.ids.h"
#include "resources/varosdb/KrVrIn.ids.h"
#include "resources/varosdb/KrVrOut.ids.h"
#include "driver/Driver.h"

using namespace kiro::drive;

namespace {

constexpr double kDllLimit = 1024 * 1024;
constexpr std::size_t kLargeFile = std::size_t{300} << 20;
constexpr std::size_t kSmallFile = 5 << 10;

void FillImportDialog(HWND dialog) {
    wchar_t text[16];
    for (int picture = -256; picture <= 256; ++picture) {
        if (picture == 0) continue;
        wsprintfW(text, L"%d", picture);
        SendDlgItemMessageW(dialog, kPictureCombo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
    }
    for (int scale = 1; scale <= 30; ++scale) {
        wsprintfW(text, L"1/%d", scale);
        SendDlgItemMessageW(dialog, kScaleCombo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
    }
}

class Bench {
  public:
    Bench() { info_->input.importParams = &params_; }

    bool Opening() {
        const BenchHost::AutoClose closing(host_);
        const Comparison opening = Compare(
            100, [&] { DxfInputDlg(info_.get()); }, [&] { OpenBareImport(); });
        return Report("import dialog, open and close / the bare template", opening, 1.3);
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

    bool Leaks(int times) {
        std::int32_t values[257] = {};
        CATIAINFO catia{};
        const struct {
            const char* name;
            std::function<void()> run;
            std::function<void()> bare;
        } dialogs[] = {
            {"import dialog", [&] { DxfInputDlg(info_.get()); }, [&] { OpenBareImport(); }},
            {"password dialog", [&] { DxfInputPass(info_.get()); }, [&] { host_.OpenBare(kDxfPassDialog); }},
            {"export frame", [&] { DxfOutputDlg(info_.get()); }, [&] { host_.OpenBare(kDxfOutDialog); }},
            {"Pelion input frame", [&] { PlInputDlg(info_.get()); }, [&] { host_.OpenBare(kPlInDialog); }},
            {"Pelion output frame", [&] { PlOutputDlg(info_.get()); }, [&] { host_.OpenBare(kPlOutDialog); }},
            {"Varos input frame", [&] { VrInputDlg(info_.get()); }, [&] { host_.OpenBare(kVrInDialog); }},
            {"Varos output frame", [&] { VrOutputDlg(info_.get()); }, [&] { host_.OpenBare(kVrOutDialog); }},
            {"CATIA frame", [&] { CatiaInputDlg(&catia); }, [&] { host_.OpenBare(kCatiaInDialog); }},
            {"line type frame", [&] { DxfLineTypeDialog(values); }, [&] { host_.OpenBare(kDxfLineTypeDialog); }},
            {"line width frame", [&] { DxfLineWidthDialog(0, values); }, [&] { host_.OpenBare(kDxfLineWidthDialog); }},
            {"warning frame", [&] { DxfWarningDialog(1); }, [&] { host_.OpenBare(kDxfWarning1Dialog); }},
            {"error box", [&] { ErrorMessageBox(-1); }, [&] { TellBare(); }},
            {"warning box", [&] { WarningMessageBox("text", "caption"); }, [&] { TellBare(); }},
        };
        bool kept = true;
        const BenchHost::AutoClose closing(host_);
        for (const auto& dialog : dialogs) kept = ReportLeaks(dialog.name, times, dialog.run, dialog.bare) && kept;
        return kept;
    }

    // The popups on the way of the mouse over the import dialog.
    bool LeaksOfExplanations(int times) {
        constexpr int kZones[] = {kDataTypeZone, kModeZone, kPictureZone, kMatrixZone, kScaleZone};
        constexpr int kTemplates[] = {kDataTypeHelp, kModeHelp, kPictureHelp, kMatrixHelp, kScaleHelp};
        bool kept = false;
        Drive([&] { return DxfInputDlg(info_.get()); },
              [&] {
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
                  const auto hover = [&] {
                      const auto before = Popups(dialog);
                      MoveMouse(Centre(Control(dialog, kZones[turn++ % 5])));
                      Until("the explanation", [&] { return Popups(dialog).size() == 1 && Popups(dialog) != before; });
                      paint();
                  };
                  const auto bare = [&] {
                      const std::size_t which = turn++ % 5;
                      ExplainBare(dialog, Control(dialog, kZones[which]), kTemplates[which]);
                      paint();
                  };
                  kept = ReportLeaks("explanation", times, hover, bare);
                  Click(dialog, IDCANCEL);
              });
        return kept;
    }

    bool Size() const {
        wchar_t path[MAX_PATH];
        GetModuleFileNameW(host_.Library(), path, MAX_PATH);
        return ReportValue("kirovanteo.dll, stripped", static_cast<double>(std::filesystem::file_size(path)), kDllLimit,
                           "bytes");
    }

  private:
    // The template with the same list entries.
    void OpenBareImport() const { host_.OpenBare(kDxfInDialog, FillImportDialog); }
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
    const int times = argc > 1 ? std::atoi(argv[1]) : 1000;
    UsePrivateDesktop();
    try {
        Bench bench;
        bool kept = bench.Size();
        kept = bench.Opening() && kept;
        kept = bench.VersionLine() && kept;
        kept = bench.Leaks(times) && kept;
        kept = bench.LeaksOfExplanations(times) && kept;
        std::printf("%s\n", kept ? "every figure is kept" : "a figure is missed");
        return kept ? 0 : 1;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "bench: %s\n", failure.what());
        return 2;
    }
}
