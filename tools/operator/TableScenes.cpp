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
    return Pressed(editor, IDOK);
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

template <int column>
Windows Choices(const std::wstring&) {
    const HWND editor = Settle();
    const Grid grid(editor, kGrid);
    grid.Click(4, column);
    grid.Drop();
    return {editor, grid.ChoiceList()};
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

Windows RowMenu(const std::wstring&) {
    const HWND editor = Settle();
    Grid(editor, kGrid).RightClick(4, 1);
    return {editor, OpenMenu()};
}

// What cannot be pasted is asked for, and then marked.
Windows ClassPasted(const std::wstring&) {
    const HWND editor = Settle();
    Grid(editor, kGrid).Click(2, 1);
    PutOnClipboard(L"外壁\t12\r\n内壁\t300\r\n寸法\t14\r\n");
    KeyHolding(VK_CONTROL, 'V');
    return {editor, ReadBox().window};
}

Windows ClassPastedGood(const std::wstring& drawing) {
    ClassPasted(drawing);
    Answer(ReadBox(), IDYES);
    return {Settle()};
}

Windows ClassSorted(const std::wstring&) {
    const HWND editor = Settle();
    Grid(editor, kGrid).Click(1, 2);
    for (int i = 0; i < 2; ++i) KeyHolding({VK_CONTROL, VK_SHIFT}, 'L');
    return {editor};
}

// The names of a drawing, and in grey those that it does not have.
Windows ClassFromDrawing(const std::wstring& drawing) {
    Settle();
    Key(VK_F8);
    const HWND chooser = Settle();
    Send(Control(chooser, kChooserField), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(drawing.c_str()));
    Click(chooser, IDOK);
    return {Settle()};
}

Windows ClassKeys(const std::wstring&) {
    const HWND editor = Settle();
    Key(VK_F1);
    return {editor, ReadBox().window};
}

// A name that has no room in its column is shown below it.
Windows ClassTip(const std::wstring&) {
    const HWND editor = Settle();
    const Grid grid(editor, kGrid);
    grid.Click(2, 1);
    grid.Write(L"一階平面図の柱と梁と壁と窓と扉と階段と手すり");
    Key(VK_UP);
    HWND tip = nullptr;
    Until("the whole text is shown", [&] {
        tip = FindWindowExW(nullptr, tip, TOOLTIPS_CLASSW, nullptr);
        return tip && GetWindowThreadProcessId(tip, nullptr) == UiThread() && IsWindowVisible(tip);
    });
    return {editor, tip};
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
    {"table-layer-classes-choices", "table-layer-classes", Choices<2>},
    {"table-layer-classes-refused", "table-layer-classes", ClassRefused},
    {"table-layer-classes-marked", "table-layer-classes", ClassMarked},
    {"table-layer-classes-selected", "table-layer-classes", ClassSelected},
    {"table-layer-classes-menu", "table-layer-classes", RowMenu},
    {"table-layer-classes-pasted", "table-layer-classes", ClassPasted},
    {"table-layer-classes-pasted-good", "table-layer-classes", ClassPastedGood},
    {"table-layer-classes-sorted", "table-layer-classes", ClassSorted},
    {"table-layer-classes-drawing", "table-layer-classes", ClassFromDrawing},
    {"table-layer-classes-keys", "table-layer-classes", ClassKeys},
    {"table-layer-classes-tip", "table-layer-classes", ClassTip},
    {"export-table-colors-choices", "export-table-colors", Choices<1>},
    {"export-table-line-types-alone", "export-table-lines", LineTypesAlone},
    {"line-types-marked", "line-types", LineTypesMarked},
    {"line-types-factor", "line-types", LineTypesFactor},
    {"export-table-patterns-chosen", "export-table-patterns", PatternChosen},
};

}  // namespace

std::span<const Scene> TableScenes() { return kScenes; }

}  // namespace kiro
