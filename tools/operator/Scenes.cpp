#include "Scenes.h"

#include <cstdio>
#include <functional>
#include <vector>

#include "driver/BareDialog.h"
#include "Calls.h"
#include "driver/Driver.h"
#include "driver/Picture.h"
#include "hostlayer/include/KiroHost.h"
#include "resources/catia/KrDxfPass.ids.h"
#include "resources/dxfin/KrDxfIn.ids.h"
#include "resources/dxfin/KrDxfInAttr.ids.h"

namespace kiro {
namespace {

using namespace drive;
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
    Click(dialog, IDOK);
    return {dialog, ReadBox().window};
}

template <int zone>
Windows Hovered(const std::wstring&) {
    const HWND dialog = Settle();
    // From somewhere else, for only a mouse that moves opens an explanation.
    MoveMouse(Centre(Control(dialog, kSubModelEdit)));
    MoveMouse(Centre(Control(dialog, zone)));
    Until("the explanation opens", [&] { return !Popups(dialog).empty(); });
    return {dialog, Popups(dialog).front()};
}

template <int button>
Windows Opened(const std::wstring&) {
    const HWND dialog = Settle();
    Click(dialog, button);
    const HWND next = Settle();
    if (next == dialog) throw Failure("no dialog opens");
    return {dialog, next};
}

template <int label>
Windows Explained(const std::wstring& drawing) {
    Windows windows = Opened<kAttributesButton>(drawing);
    const HWND attributes = windows.back();
    MoveMouse(Centre(Control(attributes, kKeepSettingsCheck)));
    MoveMouse(Centre(Control(attributes, label)));
    Until("the explanation opens", [&] { return !Popups(attributes).empty(); });
    windows.push_back(Popups(attributes).front());
    return windows;
}

Windows PictureRefused(const std::wstring&) {
    const HWND dialog = Settle();
    Focus(dialog, kPictureEdit);
    Type(dialog, kPictureEdit, L"0");
    Click(dialog, IDOK);
    return {dialog, ReadBox().window};
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

Windows AfterYes(const std::wstring&) {
    Answer(ReadBox(), IDYES);
    return {Settle()};
}

constexpr Scene kScenes[] = {
    {"import-dxf", "DxfInputDlg", u8"{}", AsItOpens},
    {"import-dxf-filled", "DxfInputDlg", u8"{}", Filled},
    {"import-dwg", "DxfInputDlg", u8R"({"inputIsDwg": 1})", AsItOpens},
    {"import-help-type", "DxfInputDlg", u8"{}", Hovered<kDataTypeZone>},
    {"import-help-mode", "DxfInputDlg", u8"{}", Hovered<kModeZone>},
    {"import-help-picture", "DxfInputDlg", u8"{}", Hovered<kPictureZone>},
    {"import-help-matrix", "DxfInputDlg", u8"{}", Hovered<kMatrixZone>},
    {"import-help-scale", "DxfInputDlg", u8"{}", Hovered<kScaleZone>},
    {"import-picture-refused", "DxfInputDlg", u8"{}", PictureRefused},
    {"import-not-saved", "DxfInputDlg", u8"{}", AfterStart, true},
    {"import-recent-menu", "DxfInputDlg", u8"{}", LabelMenu},
    {"import-chooser", "DxfInputDlg", u8"{}", Opened<kBrowseButton>},
    {"import-parameters", "DxfInputDlg", u8"{}", Opened<kParametersButton>},
    {"import-attributes", "DxfInputDlg", u8"{}", Opened<kAttributesButton>},
    {"attributes-help-layer", "DxfInputDlg", u8"{}", Explained<kLayerHelpLabel>},
    {"attributes-help-line-type", "DxfInputDlg", u8"{}", Explained<kLineTypeHelpLabel>},
    {"attributes-help-line-width", "DxfInputDlg", u8"{}", Explained<kLineWidthHelpLabel>},
    {"attributes-help-color", "DxfInputDlg", u8"{}", Explained<kColorHelpLabel>},
    {"attributes-help-arrow", "DxfInputDlg", u8"{}", Explained<kArrowHelpLabel>},
    {"attributes-help-text-width", "DxfInputDlg", u8"{}", Explained<kTextWidthHelpLabel>},
    {"import-batch", "DxfInputDlg", u8"{}", Opened<kBatchButton>},
    {"password", "DxfInputPass", u8R"({"inputFileName": "/図面/保護図面.dwg"})", AsItOpens},
    {"password-typed", "DxfInputPass", u8R"({"inputFileName": "/図面/保護図面.dwg"})", PasswordTyped},
    {"password-refused", "DxfInputPass", u8R"({"inputFileName": "/図面/保護図面.dwg"})", PasswordRefused},
    {"export", "DxfOutputDlg", u8"{}", AsItOpens},
    {"pelion-input", "PlInputDlg", u8"{}", AsItOpens},
    {"pelion-output", "PlOutputDlg", u8"{}", AsItOpens},
    {"varos-input", "VrInputDlg", u8"{}", AsItOpens},
    {"varos-output", "VrOutputDlg", u8"{}", AsItOpens},
    {"catia-input", "CatiaInputDlg", u8"{}", AsItOpens},
    {"layer-names-question", "DxfLayerNameDialog", u8"{}", AsItOpens},
    {"layer-names", "DxfLayerNameDialog", u8"{}", AfterYes},
    {"layer-names-error", "DxfLayerNameDialog", u8R"({"layerNames": [1]})", AsItOpens},
    {"line-types", "DxfLineTypeDialog", u8"{}", AsItOpens},
    {"line-types-question", "DxfLineTypeDialog", u8R"({"lineTypes": [1]})", AsItOpens},
    {"line-types-error", "DxfLineTypeDialog", u8R"({"lineTypes": [-1]})", AsItOpens},
    {"line-widths", "DxfLineWidthDialog", u8"{}", AsItOpens},
    {"line-widths-question", "DxfLineWidthDialog", u8R"({"lineWidths": [1]})", AsItOpens},
    {"line-widths-error", "DxfLineWidthDialog", u8R"({"lineWidths": [-1]})", AsItOpens},
    {"conversion-warning", "DxfWarningDialog", u8R"({"kind": 1})", AsItOpens},
    {"error-box", "ErrorMessageBox", u8R"({"errorCode": 1})", AsItOpens},
    {"warning-box", "WarningMessageBox",
     u8R"({"message": "変換できない要素があります。\nエラーリストを確認してください。", "caption": "ＤＸＦ読込み"})",
     AsItOpens},
};

// What the user finds in a dialog that no command opens.
void OpenBare(int templateId) {
    const HMODULE library = GetModuleHandleW(L"kirovanteo.dll");
    const HANDLE context = MakeStyleContext(library);
    ULONG_PTR cookie = 0;
    ActivateActCtx(context, &cookie);
    OpenBareDialog(library, templateId, nullptr);
    DeactivateActCtx(0, cookie);
    ReleaseActCtx(context);
}

bool Paint(const Scene& scene, const std::filesystem::path& folder, const std::wstring& drawing) {
    KiroHostSetModified(scene.modified);
    try {
        const Json input = Json::parse(reinterpret_cast<const char*>(scene.input));
        Drive(
            [&] { scene.command ? void(CallExport(*FindExport(scene.command), input)) : OpenBare(scene.bareTemplate); },
            [&] {
                Picture(scene.play(drawing), folder / (std::string(scene.name) + ".png"));
                CancelEverything();
            });
        return true;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s: %s\n", scene.name, error.what());
        return false;
    }
}

}  // namespace

Windows AsItOpens(const std::wstring&) { return {Settle()}; }

int PaintScenes(const std::filesystem::path& folder, const std::wstring& drawing) {
    std::filesystem::create_directories(folder);
    int failures = 0;
    for (const std::span<const Scene> scenes : {std::span<const Scene>(kScenes), TableScenes()}) {
        for (const Scene& scene : scenes) failures += !Paint(scene, folder, drawing);
    }
    return failures;
}

}  // namespace kiro
