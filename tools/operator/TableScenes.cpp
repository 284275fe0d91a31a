// The grid editors at work.
#include "Scenes.h"
#include "driver/Driver.h"
#include "driver/GridDriver.h"
#include "resources/dxfout_tables/KrDxfOutTbl_Line.ids.h"
#include "resources/grid.ids.h"
#include "resources/model/KrDxfLineType.ids.h"

namespace kiro {
namespace {

using namespace drive;

Windows ClassRefused(const std::wstring&) {
    const HWND editor = Settle();
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

Windows ClassTyped(const std::wstring&) {
    const HWND editor = Settle();
    const Grid grid(editor, kGrid);
    grid.Click(4, 1);
    grid.Keys(L"鉄骨柱");
    return {editor};
}

Windows ClassChoices(const std::wstring&) {
    const HWND editor = Settle();
    const Grid grid(editor, kGrid);
    grid.Click(4, 2);
    grid.Drop();
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    Send(grid.Editor(), CB_GETCOMBOBOXINFO, 0, reinterpret_cast<LPARAM>(&info));
    return {editor, info.hwndList};
}

// Cells selected, and a text that is looked for.
Windows ClassSelected(const std::wstring&) {
    const HWND editor = Settle();
    const Grid grid(editor, kGrid);
    grid.Click(1, 1);
    KeyHolding(VK_CONTROL, 'F');
    for (const wchar_t unit : std::wstring(L"柱")) PostMessageW(FocusWindow(), WM_CHAR, unit, 1);
    Sync();
    Focus(editor, kGrid);
    for (const int key : {VK_RIGHT, VK_DOWN, VK_DOWN}) KeyHolding(VK_SHIFT, static_cast<WORD>(key));
    return {editor};
}

Windows ColorChoices(const std::wstring&) {
    const HWND editor = Settle();
    const Grid grid(editor, kGrid);
    grid.Click(4, 1);
    grid.Drop();
    COMBOBOXINFO info{};
    info.cbSize = sizeof info;
    Send(grid.Editor(), CB_GETCOMBOBOXINFO, 0, reinterpret_cast<LPARAM>(&info));
    return {editor, info.hwndList};
}

Windows RowMenu(const std::wstring&) {
    const HWND editor = Settle();
    Grid(editor, kGrid).RightClick(4, 1);
    return {editor, OpenMenu()};
}

Windows PatternChosen(const std::wstring&) {
    const HWND editor = Settle();
    Grid(editor, kGrid).Click(5, 1);
    return {editor};
}

// The line types without the weights.
Windows LineTypesAlone(const std::wstring&) {
    const HWND hub = Settle();
    Click(hub, kToLineWidthsRadio);
    Click(hub, kFontLineTypesButton);
    return {Settle()};
}

// A pattern without its last blank, and patterns to be multiplied.
Windows LineTypesMarked(const std::wstring&) {
    const HWND dialog = Settle();
    const Grid grid(dialog, kGrid);
    grid.Click(2, 5);
    grid.Write(L"");
    for (const int row : {3, 4}) grid.Click(row, 0);
    Click(dialog, IDOK);
    return {dialog};
}

Windows LineTypesFactor(const std::wstring&) {
    const HWND dialog = Settle();
    const Grid grid(dialog, kGrid);
    for (const int row : {2, 3}) grid.Click(row, 0);
    Type(dialog, kPitchFactorEdit, L"1/2");
    Focus(dialog, kPitchFactorEdit);
    return {dialog};
}

constexpr Scene kScenes[] = {
    {"table-layer-classes-typed", "table-layer-classes", ClassTyped},
    {"table-layer-classes-choices", "table-layer-classes", ClassChoices},
    {"table-layer-classes-refused", "table-layer-classes", ClassRefused},
    {"table-layer-classes-marked", "table-layer-classes", ClassMarked},
    {"table-layer-classes-selected", "table-layer-classes", ClassSelected},
    {"table-layer-classes-menu", "table-layer-classes", RowMenu},
    {"export-table-colors-choices", "export-table-colors", ColorChoices},
    {"export-table-line-types-alone", "export-table-lines", LineTypesAlone},
    {"line-types-marked", "line-types", LineTypesMarked},
    {"line-types-factor", "line-types", LineTypesFactor},
    {"export-table-patterns-chosen", "export-table-patterns", PatternChosen},
};

}  // namespace

std::span<const Scene> TableScenes() { return kScenes; }

}  // namespace kiro
