#include "HostConversion.h"

#include <memory>

#include "HostCalls.h"
#include "entry/host/FixedText.h"
#include "entry/host/ParamBlocks.h"
#include "entry/host/TARNAINFO.h"
#include "entry/host/kirodxf.h"

namespace kiro {
namespace {

int ImportDrawing(const Json& json) {
    const auto info = std::make_unique<TARNAINFO>();
    DxfInParamBlock params{};
    FromJson(kImportView, json["record"], std::as_writable_bytes(std::span(info.get(), 1)));
    FromJson(kDxfInParams, json["params"], std::as_writable_bytes(std::span(&params, 1)));
    setdxfinparam(&params);
    setdxfintblnam(ReadFixedText(info->input.layerTableFileName).c_str());
    return dxfin(ReadFixedText(info->input.inputFileName).c_str(), info.get());
}

int ExportDrawing(const Json& json) {
    const auto info = std::make_unique<TARNAINFO>();
    DxfOutParamBlock params{};
    FromJson(kExportView, json["record"], std::as_writable_bytes(std::span(info.get(), 1)));
    FromJson(kDxfOutParams, json["params"], std::as_writable_bytes(std::span(&params, 1)));
    setdxfotparam(&params);
    setdxfottblnam(ReadFixedText(info->output.layerTableFileName).c_str());
    const bool page = info->output.pictureMode == 0;
    return DxfOutFloppy(info->output.mediaKind != 0, ReadFixedText(info->output.outputFileName).c_str(),
                        page ? info->output.drawingNumber : 0, page ? 0 : info->output.pictureNumber);
}

}  // namespace

std::optional<Json> ConvertAsHost(const CallResult& result) {
    const bool import = result.json["export"] == "DxfInputDlg";
    if (result.exitStatus != 0 || (!import && result.json["export"] != "DxfOutputDlg")) return std::nullopt;
    const HostCalls calls;
    const int code = import ? ImportDrawing(result.json) : ExportDrawing(result.json);
    Json json = {{"returned", code}, {"message", Utf8FromEuc(DxfGetErrorMessage(code))}};
    json["calls"] = calls.List();
    json["model"] = HostModel();
    return json;
}

}  // namespace kiro
