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

#include "benchmarks/Measure.h"
#include "entry/host/kirovanteo.h"
#include "hostlayer/include/KiroHost.h"
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
#include "tests/driver/Driver.h"
#include "tests/driver/Leaks.h"

using namespace kiro::drive;

namespace {

constexpr int kManifestId = 2;
// The heap's own lists and the system's caches.
constexpr double kMemoryNoise = 16 * 1024;
constexpr double kDllLimit = 1024 * 1024;
constexpr std::size_t kLargeFile = std::size_t{300} << 20;
constexpr std::size_t kSmallFile = 5 << 10;

// The owner of every dialog. A dialog that has nothing left to do is shown and painted: then it is closed.
LRESULT CALLBACK OwnerProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_ENTERIDLE && wParam == MSGF_DIALOGBOX && GetPropW(window, L"AutoClose")) {
        PostMessageW(reinterpret_cast<HWND>(lParam), WM_COMMAND, IDCANCEL, 0);
    }
    return DefWindowProcW(window, message, wParam, lParam);
}

HWND MakeOwner() {
    WNDCLASSW definition{};
    definition.lpfnWndProc = OwnerProcedure;
    definition.hInstance = GetModuleHandleW(nullptr);
    definition.lpszClassName = L"KiroBench";
    RegisterClassW(&definition);
    return CreateWindowW(L"KiroBench", L"bench", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 900, 700, nullptr, nullptr,
                         definition.hInstance, nullptr);
}

// The controls of the current style, as the commands have them.
HANDLE MakeContext(HMODULE library) {
    wchar_t path[MAX_PATH];
    GetModuleFileNameW(library, path, MAX_PATH);
    ACTCTXW definition{};
    definition.cbSize = sizeof definition;
    definition.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID | ACTCTX_FLAG_HMODULE_VALID;
    definition.hModule = library;
    definition.lpSource = path;
    definition.lpResourceName = MAKEINTRESOURCEW(kManifestId);
    return CreateActCtxW(&definition);
}

// Message boxes send no WM_ENTERIDLE: they are answered when they become active.
LRESULT CALLBACK AnswerBoxes(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HCBT_ACTIVATE && IsBox(reinterpret_cast<HWND>(wParam))) {
        PostMessageW(reinterpret_cast<HWND>(wParam), WM_COMMAND, IDOK, 0);
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

class Bench {
  public:
    Bench() : owner_(MakeOwner()), library_(GetModuleHandleW(L"kirovanteo.dll")), context_(MakeContext(library_)) {
        wchar_t temp[MAX_PATH];
        GetTempPathW(MAX_PATH, temp);
        home_ = std::filesystem::path(temp) / (L"kirobench_" + std::to_wstring(GetCurrentProcessId()));
        std::filesystem::create_directories(home_ / L"DXF");
        KiroHostSetHome(home_.c_str());
        KiroHostLoadModel(nullptr, nullptr, 0);
        KiroHostSetMainWindow(owner_);
        info_->input.importParams = &params_;
    }
    ~Bench() {
        ReleaseActCtx(context_);
        std::error_code ignored;
        std::filesystem::remove_all(home_, ignored);
    }

    bool Opening() {
        AutoClose(true);
        const Comparison opening = Compare(
            100, [&] { DxfInputDlg(info_.get()); }, [&] { OpenBare(kDxfInDialog); });
        AutoClose(false);
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
            {"import dialog", [&] { DxfInputDlg(info_.get()); }, [&] { OpenBare(kDxfInDialog); }},
            {"password dialog", [&] { DxfInputPass(info_.get()); }, [&] { OpenBare(kDxfPassDialog); }},
            {"export frame", [&] { DxfOutputDlg(info_.get()); }, [&] { OpenBare(kDxfOutDialog); }},
            {"Pelion input frame", [&] { PlInputDlg(info_.get()); }, [&] { OpenBare(kPlInDialog); }},
            {"Pelion output frame", [&] { PlOutputDlg(info_.get()); }, [&] { OpenBare(kPlOutDialog); }},
            {"Varos input frame", [&] { VrInputDlg(info_.get()); }, [&] { OpenBare(kVrInDialog); }},
            {"Varos output frame", [&] { VrOutputDlg(info_.get()); }, [&] { OpenBare(kVrOutDialog); }},
            {"CATIA frame", [&] { CatiaInputDlg(&catia); }, [&] { OpenBare(kCatiaInDialog); }},
            {"line type frame", [&] { DxfLineTypeDialog(values); }, [&] { OpenBare(kDxfLineTypeDialog); }},
            {"line width frame", [&] { DxfLineWidthDialog(0, values); }, [&] { OpenBare(kDxfLineWidthDialog); }},
            {"warning frame", [&] { DxfWarningDialog(1); }, [&] { OpenBare(kDxfWarning1Dialog); }},
            {"error box", [&] { ErrorMessageBox(-1); }, [&] { TellBare(); }},
            {"warning box", [&] { WarningMessageBox("text", "caption"); }, [&] { TellBare(); }},
        };
        bool kept = true;
        AutoClose(true);
        const HHOOK hook = SetWindowsHookExW(WH_CBT, AnswerBoxes, nullptr, GetCurrentThreadId());
        for (const auto& dialog : dialogs) kept = ReportLeaks(dialog.name, times, dialog.run, dialog.bare) && kept;
        UnhookWindowsHookEx(hook);
        AutoClose(false);
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
        GetModuleFileNameW(library_, path, MAX_PATH);
        return ReportValue("kirovanteo.dll, stripped", static_cast<double>(std::filesystem::file_size(path)), kDllLimit,
                           "bytes");
    }

  private:
    void AutoClose(bool on) const {
        if (on) {
            SetPropW(owner_, L"AutoClose", owner_);
        } else {
            RemovePropW(owner_, L"AutoClose");
        }
    }

    // A template of the library and nothing else; the import dialog's with the same list entries.
    void OpenBare(int templateId) const {
        ULONG_PTR cookie = 0;
        ActivateActCtx(context_, &cookie);
        DialogBoxParamW(
            library_, MAKEINTRESOURCEW(templateId), owner_,
            [](HWND dialog, UINT message, WPARAM wParam, LPARAM id) -> INT_PTR {
                if (message == WM_INITDIALOG && id == kDxfInDialog) FillBare(dialog);
                if (message == WM_COMMAND && LOWORD(wParam) == IDCANCEL) EndDialog(dialog, IDCANCEL);
                return message == WM_INITDIALOG;
            },
            templateId);
        DeactivateActCtx(0, cookie);
    }
    void TellBare() const {
        ULONG_PTR cookie = 0;
        ActivateActCtx(context_, &cookie);
        MessageBoxW(owner_, L"text", L" ", MB_OK | MB_ICONHAND);
        DeactivateActCtx(0, cookie);
    }
    // A template of an explanation, shown over the dialog below the zone and destroyed; the dialog paints what it
    // covered.
    void ExplainBare(HWND dialog, HWND zone, int templateId) const {
        ULONG_PTR cookie = 0;
        ActivateActCtx(context_, &cookie);  // of the user's thread, which makes this popup
        RECT rect{};
        GetWindowRect(zone, &rect);
        const HWND popup = CreateDialogParamW(
            library_, MAKEINTRESOURCEW(templateId), dialog, [](HWND, UINT, WPARAM, LPARAM) -> INT_PTR { return FALSE; },
            0);
        SetWindowPos(popup, nullptr, rect.left, rect.bottom + 5, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        SetWindowRgn(popup, CreateRectRgn(0, 0, 5000, 5000), FALSE);
        ShowWindow(popup, SW_SHOWNOACTIVATE);
        RedrawWindow(popup, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
        DestroyWindow(popup);
        DeactivateActCtx(0, cookie);
        RedrawWindow(dialog, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    }
    static void FillBare(HWND dialog) {
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

    static std::string TextStart() { return "  0\nSECTION\n  2\nHEADER\n  9\n$ACADVER\n  1\nAC1015\n  0\nENDSEC\n"; }
    static std::string BinaryStart() {
        return std::string("AutoCAD Binary DXF\r\n\x1A\0\0SECTION\0\2HEADER\0\x09$ACADVER\0\1AC1009\0\0ENDSEC\0", 65);
    }
    void WriteDrawing(const wchar_t* name, const std::string& start, const std::string& item, std::size_t size) const {
        std::string block;
        while (block.size() < (std::size_t{1} << 16)) block += item;
        std::ofstream out(home_ / L"DXF" / name, std::ios::binary);
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

    // What the bare system windows leave behind is the system's own; it is measured beside and taken off.
    static bool ReportLeaks(const std::string& name, int times, const std::function<void()>& run,
                            const std::function<void()>& bare) {
        const Growth ours = Grow(times, run);
        const Growth floor = Grow(times, bare);
        const std::string what = std::to_string(times) + " times " + name;
        const bool objects = ReportValue(what + ": windows, GDI objects", ours.objects - floor.objects, 0, "more");
        return ReportValue(what + ": private memory", ours.bytes - floor.bytes, kMemoryNoise, "bytes more") && objects;
    }
    struct Growth {
        int objects;
        double bytes;
    };
    static Growth Grow(int times, const std::function<void()>& work) {
        for (int i = 0; i < 20; ++i) work();
        const Holdings before = CountHoldings();
        for (int i = 0; i < times; ++i) work();
        const Holdings after = CountHoldings();
        return {Objects(after) - Objects(before),
                static_cast<double>(after.heapBytes) - static_cast<double>(before.heapBytes)};
    }
    static int Objects(const Holdings& held) {
        return held.windows + held.pens + held.brushes + held.fonts + held.bitmaps;
    }

    HWND owner_;
    HMODULE library_;
    HANDLE context_;
    std::filesystem::path home_;
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
