// The conversion tables behind the import dialog, each with the demonstration's tables.
#include "driver/Driver.h"
#include "Scenes.h"
#include "resources/dxfin/KrDxfIn.ids.h"
#include "resources/dxfin/KrDxfInAttr.ids.h"
#include "resources/dxfin_tables/KrDxfInTable.ids.h"
#include "resources/dxfin_tables/KrDxfInTbl_Layer.ids.h"
#include "resources/dxfin_tables/KrDxfInTbl_Line.ids.h"
#include "resources/dxfin_tables/KrDxfInTbl_TFont.ids.h"
#include "resources/grid.ids.h"
#include "driver/GridDriver.h"

namespace kiro {
namespace {

using namespace drive;

constexpr int kChooserName = 0x47C;  // the system chooser's file-name combo

bool IsRadio(HWND control) { return (Send(control, WM_GETDLGCODE) & DLGC_RADIOBUTTON) != 0; }

// The windows from the import dialog on, each behind a button of the one before; a radio button opens none.
template <int... buttons>
Windows Behind(const std::wstring&) {
    Windows windows{Settle()};
    for (const int button : {kAttributesButton, buttons...}) {
        Click(windows.back(), button);
        if (IsRadio(Control(windows.back(), button))) continue;
        HWND next = Settle();
        if (HWND name = GetDlgItem(next, kChooserName)) {
            Send(name, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(L"DXFKIRO_LAYER"));
            Click(next, IDOK);
            next = Settle();
        }
        if (next == windows.back()) throw Failure("no dialog opens");
        windows.push_back(next);
    }
    return windows;
}

// Only the dialog of interest.
template <int... buttons>
Windows Alone(const std::wstring& drawing) {
    return {Behind<buttons...>(drawing).back()};
}

constexpr auto& kClasses = Alone<kColorChangeButton, kLayerClassButton>;

Windows ClassRefused(const std::wstring& drawing) {
    const HWND editor = kClasses(drawing).back();
    const Grid grid(editor, kGrid);
    grid.Click(3, 2);
    grid.Write(L"300");
    Click(editor, IDOK);
    return {editor, ReadBox().window};
}

Windows ClassMarked(const std::wstring& drawing) {
    const HWND editor = ClassRefused(drawing).front();
    Answer(ReadBox(), IDOK);
    return {editor};
}

Windows ClassTyped(const std::wstring& drawing) {
    const HWND editor = kClasses(drawing).back();
    const Grid grid(editor, kGrid);
    grid.Click(4, 1);
    grid.Keys(L"鉄骨柱");
    return {editor};
}

Windows ClassChoices(const std::wstring& drawing) {
    const HWND editor = kClasses(drawing).back();
    const Grid grid(editor, kGrid);
    grid.Click(4, 2);
    grid.Drop();
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    Send(grid.Editor(), CB_GETCOMBOBOXINFO, 0, reinterpret_cast<LPARAM>(&info));
    return {editor, info.hwndList};
}

Windows RowMenu(const std::wstring& drawing) {
    const HWND editor = kClasses(drawing).back();
    Grid(editor, kGrid).RightClick(4, 1);
    return {editor, OpenMenu()};
}

constexpr Scene kScenes[] = {
    {"table-layer", "DxfInputDlg", u8"{}", Behind<kColorChangeButton>},
    {"table-layer-classes", "DxfInputDlg", u8"{}", kClasses},
    {"table-layer-classes-typed", "DxfInputDlg", u8"{}", ClassTyped},
    {"table-layer-classes-choices", "DxfInputDlg", u8"{}", ClassChoices},
    {"table-layer-classes-refused", "DxfInputDlg", u8"{}", ClassRefused},
    {"table-layer-classes-marked", "DxfInputDlg", u8"{}", ClassMarked},
    {"table-layer-classes-menu", "DxfInputDlg", u8"{}", RowMenu},
    {"table-colors", "DxfInputDlg", u8"{}", Alone<kColorChangeButton, kColorRevisionButton>},
    {"table-lines", "DxfInputDlg", u8"{}", Behind<kLineTypeChangeButton>},
    {"table-line-types", "DxfInputDlg", u8"{}", Alone<kLineTypeChangeButton, kLineTypesButton>},
    {"table-polylines", "DxfInputDlg", u8"{}", Alone<kLineTypeChangeButton, kPolylineWidthsButton>},
    {"table-color-widths", "DxfInputDlg", u8"{}", Alone<kLineTypeChangeButton, kColorWidthsButton>},
    {"table-line-widths", "DxfInputDlg", u8"{}", Alone<kLineTypeChangeButton, kWidthsOnRadio, kLineWidthsButton>},
    {"table-fonts", "DxfInputDlg", u8"{}", Alone<kTextWidthTableRadio, kTextWidthChangeButton>},
    {"table-fonts-help", "DxfInputDlg", u8"{}", Alone<kTextWidthTableRadio, kTextWidthChangeButton, kExplainButton>},
    {"table-launcher", nullptr, u8"{}", AsItOpens, false, kInTableDialog},
    {"table-arrows", "DxfInputDlg", u8"{}", Alone<kArrowChangeButton>},
};

}  // namespace

std::span<const Scene> TableScenes() { return kScenes; }

}  // namespace kiro
