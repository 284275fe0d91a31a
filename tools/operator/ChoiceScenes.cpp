// What the commands of the databases open on their way, and the CATIA import, in telling states.
#include "Scenes.h"
#include "driver/GridDriver.h"
#include "resources/catia/KrCatiaIn.ids.h"
#include "resources/grid.ids.h"
#include "resources/peliondb/KrPlDraw.ids.h"
#include "resources/peliondb/KrPlInDrive.ids.h"
#include "resources/peliondb/KrPlOutParam.ids.h"
#include "resources/varosdb/KrVrOutParam.ids.h"

namespace kiro {
namespace {

using namespace drive;

Windows UserChosen(const std::wstring&) {
    const HWND dialog = Settle();
    for (const auto& [list, row] : {std::pair(kPlFirstList, 0), {kPlSecondList, 2}, {kPlThirdList, 1}})
        Grid(dialog, list).Click(row, 0);
    return {dialog};
}

Windows DrawingsMarked(const std::wstring&) {
    const HWND dialog = Settle();
    for (const int row : {1, 2, 5}) Grid(dialog, kGrid).Click(row, 1);
    return {dialog};
}

Windows ModelNameRepeated(const std::wstring&) {
    const HWND dialog = Settle();
    const Grid grid(dialog, kGrid);
    grid.Click(1, 1);
    grid.Click(1, 2);
    grid.Write(grid.Cell(4, 2));
    return Pressed(dialog, IDOK);
}

Windows ModelsMarked(const std::wstring&) {
    const HWND dialog = Settle();
    Click(dialog, kSelectAllButton);
    return {dialog};
}

Windows Version3Refused(const std::wstring&) {
    const HWND dialog = Settle();
    Click(dialog, kPlVersion3Radio);
    Type(dialog, kPlCapacityEdit, L"5");
    return Pressed(dialog, IDOK);
}

Windows CatiaFilled(const std::wstring&) {
    const HWND dialog = Settle();
    Focus(dialog, kCatiaFileEdit);
    Type(dialog, kCatiaFileEdit, L"ポンプ.model");
    Click(dialog, kCatiaAddRadio);
    Click(dialog, kCatiaHiddenOnRadio);
    Pick(dialog, kCatiaPictureCombo, 2);
    Focus(dialog, kCatiaPictureCombo);
    return {dialog};
}

constexpr Scene kScenes[] = {
    {"pelion-drives-chosen", "pelion-drives", UserChosen},
    {"pelion-drawings-marked", "pelion-drawings", DrawingsMarked},
    {"pelion-drawing-models-refused", "pelion-drawing-models", ModelNameRepeated},
    {"pelion-models-marked", "pelion-models", ModelsMarked},
    {"pelion-parameters-refused", "pelion-parameters-plw", Version3Refused},
    {"catia-filled", "catia-input", CatiaFilled},
};

}  // namespace

std::span<const Scene> ChoiceScenes() { return kScenes; }

}  // namespace kiro
