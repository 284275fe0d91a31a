#include "Scenes.h"

#include <cstdio>
#include <functional>
#include <vector>

#include "catalogue/Catalogue.h"
#include "driver/Driver.h"
#include "driver/GridDriver.h"
#include "driver/Picture.h"
#include "hostlayer/include/KiroHost.h"
#include "resources/catia/KrDxfPass.ids.h"
#include "resources/dxfin/KrDxfIn.ids.h"
#include "resources/dxfin/KrDxfInList.ids.h"
#include "resources/dxfout/KrDxfOut.ids.h"
#include "resources/dxfout/KrDxfOutParam.ids.h"
#include "resources/grid.ids.h"
#include "resources/peliondb/KrPlIn.ids.h"
#include "resources/peliondb/KrPlOut.ids.h"

namespace kiro {
namespace {

using namespace drive;

constexpr int kVersionColumn = 3;

Windows Filled(const std::wstring& drawing) {
    const HWND dialog = Settle();
    Focus(dialog, kFileNameEdit);
    Type(dialog, kFileNameEdit, drawing);
    Click(dialog, kAddRadio);
    Focus(dialog, kPictureEdit);
    Type(dialog, kPictureEdit, L"-2");
    return {dialog};
}

Windows AfterStart(const std::wstring& drawing) {
    const HWND dialog = Filled(drawing).front();
    Click(dialog, kNewRadio);
    return Pressed(dialog, IDOK);
}

template <int button>
Windows Opened(const std::wstring&) {
    return Pressed(Settle(), button);
}

Windows PictureRefused(const std::wstring&) {
    const HWND dialog = Settle();
    Focus(dialog, kPictureEdit);
    Type(dialog, kPictureEdit, L"0");
    return Pressed(dialog, IDOK);
}

Windows LabelMenu(const std::wstring&) {
    const HWND dialog = Settle();
    MoveMouse(Centre(Control(dialog, kFileNameLabel)));
    MouseDown();
    MouseUp();
    return {dialog, OpenMenu()};
}

Windows PasswordRefused(const std::wstring&) {
    const HWND dialog = Settle();
    Click(dialog, IDOK);
    Until("the guidance line has an error", [&] { return IsGuidanceError(dialog); });
    return {dialog};
}

Windows PasswordTyped(const std::wstring&) {
    const HWND dialog = Settle();
    TypeKeys(dialog, kPasswordEdit, L"secret");
    return {dialog};
}

// The list of a batch, when it is filled in.
HWND FilledList() {
    const HWND dialog = Settle();
    const Grid grid(dialog, kGrid);
    Until("the versions are there", [&] { return grid.Cell(grid.Rows() - 1, kVersionColumn) != L"…"; });
    return dialog;
}

Windows BatchMarked(const std::wstring&) {
    const HWND dialog = FilledList();
    Click(dialog, kMarkAllButton);
    Grid(dialog, kGrid).Click(2, 0);
    return {dialog};
}

Windows BatchAsks(const std::wstring&) {
    const HWND dialog = FilledList();
    Click(dialog, kMarkAllButton);
    Click(dialog, IDOK);
    if (IsBox(Settle())) Answer(ReadBox(), IDYES);
    Until("a drawing fails", [&] { return Settle() != dialog; });
    return {dialog, Settle()};
}

Windows BatchDone(const std::wstring& drawing) {
    const HWND dialog = BatchAsks(drawing).front();
    Click(Settle(), IDOK);
    Until("the run has ended", [&] { return IsEnabled(dialog, kMarkAllButton); });
    return {dialog};
}

Windows ExportByNumber(const std::wstring&) {
    const HWND dialog = Settle();
    Click(dialog, kOutPictureRadio);
    Focus(dialog, kOutFileNameEdit);
    Type(dialog, kOutFileNameEdit, L"平面図.dxf");
    Focus(dialog, kOutPictureEdit);
    Type(dialog, kOutPictureEdit, L"1");
    return {dialog};
}

Windows ExportLayout(const std::wstring&) {
    const HWND dialog = Settle();
    Click(dialog, kOutLayoutRadio);
    Pick(dialog, kOutLayoutCombo, 1);
    return {dialog};
}

Windows ExportNothing(const std::wstring& drawing) {
    const HWND dialog = ExportByNumber(drawing).front();
    Type(dialog, kOutPictureEdit, L"5");
    return Pressed(dialog, IDOK);
}

Windows NameRepeated(const std::wstring&) {
    const HWND dialog = Settle();
    Click(dialog, k2010Radio);
    Type(dialog, kHatchNameEdit, Text(dialog, kSubmodelNameEdit));
    return Pressed(dialog, IDOK);
}

Windows PelionFile(const std::wstring&) {
    const HWND dialog = Settle();
    Click(dialog, kPlInSecondSourceRadio);
    Focus(dialog, kPlInFileEdit);
    Type(dialog, kPlInFileEdit, L"pump.dos");
    Focus(dialog, kPlInSubModelEdit);
    Type(dialog, kPlInSubModelEdit, L"ポンプ");
    return {dialog};
}

Windows PelionDrawings(const std::wstring& drawing) { return Pressed(PelionFile(drawing).front(), IDOK); }

Windows PelionRefused(const std::wstring&) {
    const HWND dialog = Settle();
    Type(dialog, kPlInViewEdit, L"");
    return Pressed(dialog, IDOK);
}

Windows PelionByName(const std::wstring&) {
    const HWND dialog = Settle();
    Click(dialog, kPlOutDatabaseRadio);
    Click(dialog, kPlOutByNameRadio);
    Type(dialog, kPlOutPatternEdit, L"PUMP*");
    return {dialog};
}

Windows PelionModels(const std::wstring& drawing) { return Pressed(PelionByName(drawing).front(), kPlOutModelsButton); }

constexpr Scene kScenes[] = {
    {"import-dxf-filled", "import-dxf", Filled},
    {"import-picture-refused", "import-dxf", PictureRefused},
    {"import-not-saved", "import-dxf", AfterStart, true},
    {"import-recent-menu", "import-dxf", LabelMenu},
    {"import-chooser", "import-dxf", Opened<kBrowseButton>},
    {"import-list-marked", "import-list", BatchMarked},
    {"import-list-asks", "import-list", BatchAsks},
    {"import-list-done", "import-list", BatchDone},
    {"export-dxf-filled", "export-dxf", ExportByNumber},
    {"export-dwg-layout", "export-dwg", ExportLayout},
    {"export-nothing", "export-dwg", ExportNothing},
    {"export-parameters-refused", "export-parameters", NameRepeated},
    {"pelion-input-filled", "pelion-input", PelionFile},
    {"pelion-input-drawings", "pelion-input", PelionDrawings},
    {"pelion-input-refused", "pelion-input", PelionRefused},
    {"pelion-output-filled", "pelion-output-plw", PelionByName},
    {"pelion-output-models", "pelion-output-plw", PelionModels},
    {"password-typed", "password", PasswordTyped},
    {"password-refused", "password", PasswordRefused},
};

// Nothing is cut by the edge of the desktop, which is small where there is no display.
void ExpectWhole(const Windows& windows) {
    RECT desktop{};
    GetWindowRect(GetDesktopWindow(), &desktop);
    for (const HWND window : windows) {
        RECT area{};
        RECT whole{};
        GetWindowRect(window, &area);
        UnionRect(&whole, &area, &desktop);
        if (!EqualRect(&whole, &desktop))
            throw Failure("it reaches over the desktop's edge: from " + std::to_string(area.left) + "," +
                          std::to_string(area.top) + " to " + std::to_string(area.right) + "," +
                          std::to_string(area.bottom));
    }
}

class Painter {
  public:
    explicit Painter(const std::filesystem::path& folder) : folder_(folder) {
        std::filesystem::create_directories(folder);
    }

    // The user does something and says what there is to see.
    void Paint(const char* name, const char* dialog, const std::function<Windows()>& user) {
        try {
            const Opening opening = FindDialog(dialog)->prepare();
            Drive(opening.run, [&] {
                const Windows windows = user();
                ExpectWhole(windows);
                Picture(windows, folder_ / (std::string(name) + ".png"));
                CancelEverything();
            });
        } catch (const std::exception& error) {
            std::fprintf(stderr, "%s: %s\n", name, error.what());
            ++failures_;
        }
    }
    int Failures() const { return failures_; }

  private:
    std::filesystem::path folder_;
    int failures_ = 0;
};

Windows Explained(int zone) {
    const HWND dialog = Settle();
    // From somewhere else, for only a mouse that moves opens an explanation.
    MoveMouse(Centre(Control(dialog, IDCANCEL)));
    SyncInput();
    MoveMouse(Centre(Control(dialog, zone)));
    // An explanation that opens while the mouse still moves may go and come again.
    HWND popup = nullptr;
    Until("the explanation opens and stays", [&] {
        const HWND before = popup;
        const auto popups = Popups(dialog);
        popup = popups.empty() || !SyncInput() ? nullptr : popups.front();
        return popup && popup == before;
    });
    return {dialog, popup};
}

}  // namespace

Windows Pressed(HWND dialog, int button) {
    Click(dialog, button);
    const HWND next = Settle();
    if (next == dialog) throw Failure("nothing opens");
    return {dialog, next};
}

int PaintScenes(const std::filesystem::path& folder, const std::wstring& drawing) {
    Painter painter(folder);
    for (const CatalogueDialog& dialog : Catalogue())
        painter.Paint(dialog.name, dialog.name, [] { return Windows{Settle()}; });
    for (const Explanation& explanation : Explanations())
        painter.Paint(explanation.name, explanation.dialog, [&] { return Explained(explanation.zone); });
    for (const std::span<const Scene> scenes : {std::span<const Scene>(kScenes), TableScenes(), ChoiceScenes()}) {
        for (const Scene& scene : scenes) {
            KiroHostSetModified(scene.modified);
            painter.Paint(scene.name, scene.dialog, [&] { return scene.play(drawing); });
        }
    }
    return painter.Failures();
}

}  // namespace kiro
