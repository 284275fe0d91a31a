#include "Demo.h"

#include "driver/GridDriver.h"
#include "driver/Picture.h"
#include "resources/dxfin/KrDxfIn.ids.h"
#include "resources/dxfout/KrDxfOut.ids.h"
#include "resources/dxfout/KrDxfOutParam.ids.h"
#include "resources/grid.ids.h"
#include "resources/peliondb/KrPlIn.ids.h"

namespace kiro {
namespace {

using namespace drive;

void PickText(HWND dialog, int comboId, const std::wstring& text) {
    const auto items = Items(dialog, comboId);
    for (std::size_t i = 0; i < items.size(); ++i)
        if (items[i] == text) return Pick(dialog, comboId, static_cast<int>(i));
    throw Failure("the list " + std::to_string(comboId) + " has no such entry");
}

void FillIn(HWND dialog, const std::wstring& drawing) {
    Focus(dialog, kFileNameEdit);
    Type(dialog, kFileNameEdit, drawing);
    PickText(dialog, kPictureCombo, L"2");
    PickText(dialog, kScaleCombo, L"1/2");
    // The file name has lost the focus: the dialog has looked into the file and tells its version.
    Focus(dialog, kSubModelEdit);
    Type(dialog, kSubModelEdit, L"DEMO1");
}

// Yes to every question; any other message is the end of the demonstration.
void AgreeToQuestions() {
    while (Settle()) {
        const Box box = ReadBox();
        if (!GetDlgItem(box.window, IDYES)) throw Failure("the dialog refuses: " + Utf8FromWide(box.text));
        Answer(box, IDYES);
    }
}

// The names of the blocks, as a host has them.
Json StartParams() {
    Json params = {{"outputVersion", 3}, {"curveDivision", 10}};
    for (const char* kind : {"submodel", "symbol", "mark", "fcs", "composite", "hatch", "dimension"})
        params[std::string(kind) + "Block"] = kind;
    return params;
}

void ChooseVersion(HWND dialog) {
    Click(dialog, kOutParametersButton);
    const HWND parameters = Settle();
    Click(parameters, k2010Radio);
    Click(parameters, IDOK);
    if (Settle() != dialog) throw Failure("the parameters are refused");
}

}  // namespace

CallResult DemoImport(const std::wstring& drawing, const std::filesystem::path& picture) {
    return Drive(
        [] {
            return CallExport(*FindExport("DxfInputDlg"), {{"params", {{"convertLayerNames", 1}}}});
        },
        [&] {
            const HWND dialog = Settle();
            FillIn(dialog, drawing);
            Picture(dialog, picture);
            Click(dialog, IDOK);
            AgreeToQuestions();
        });
}

CallResult DemoExport(const std::wstring& drawing, const std::filesystem::path& picture) {
    return Drive(
        [] {
            return CallExport(*FindExport("DxfOutputDlg"), {{"params", StartParams()}});
        },
        [&] {
            const HWND dialog = Settle();
            ChooseVersion(dialog);
            Click(dialog, kOutPictureRadio);
            Focus(dialog, kOutPictureEdit);
            Type(dialog, kOutPictureEdit, L"2");
            Focus(dialog, kOutFileNameEdit);
            Type(dialog, kOutFileNameEdit, drawing);
            Picture(dialog, picture);
            Click(dialog, IDOK);
            AgreeToQuestions();
        });
}

CallResult DemoDrawings(const std::wstring& dosFile, const std::filesystem::path& picture) {
    return Drive([] { return CallExport(*FindExport("PlInputDlg"), Json::object()); },
                 [&] {
                     const HWND dialog = Settle();
                     Click(dialog, kPlInAddRadio);  // the model that was imported stays
                     Click(dialog, kPlInSecondSourceRadio);
                     Focus(dialog, kPlInFileEdit);
                     Type(dialog, kPlInFileEdit, dosFile);
                     Click(dialog, IDOK);
                     const HWND list = Settle();
                     if (list == dialog || IsBox(list)) throw Failure("the drawings are not listed");
                     for (int row = 0; row < 2; ++row) Grid(list, kGrid).Click(row, 0);
                     Picture(list, picture);
                     Click(list, IDOK);
                 });
}

}  // namespace kiro
