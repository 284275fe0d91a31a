#include "Calls.h"

#include <cstdint>
#include <initializer_list>
#include <type_traits>

#include "GuardedMemory.h"
#include "HostCalls.h"
#include "entry/host/kirodxf.h"
#include "entry/host/kirovanteo.h"

namespace kiro {
namespace {

constexpr std::size_t kDrawings = 2048;  // of a record
constexpr std::size_t kMoreDrawings = (kDrawings - 1) * sizeof(TarnaDrawing);

Json Member(const Json& json, const char* name) { return json.contains(name) ? json[name] : Json::object(); }

void CheckMembers(const Json& json, std::initializer_list<const char*> known) {
    if (!json.is_object()) throw RecordError("an object is expected");
    for (const auto& [name, value] : json.items()) {
        bool found = false;
        for (const char* member : known) found = found || name == member;
        if (!found) throw RecordError("there is no " + name + " here");
    }
}

Json Answer(const Export& self, Json returned) {
    Json json = Json::object();
    json["export"] = self.name;
    json["returned"] = std::move(returned);
    return json;
}

// ---- Commands with a record and a parameter block ----

// How one family of commands uses the record: its view of it, and where the address of which block stands.
struct ImportFamily {
    using Params = DxfInParamBlock;
    static void Begin(Params& params) { DxfInReadParam(&params); }  // what the user has kept
    static const RecordView& View() { return kImportView; }
    static const RecordView& ParamView() { return kDxfInParams; }
    static void Attach(TARNAINFO& info, Params* params) { info.input.importParams = params; }
};
struct ExportFamily {
    using Params = DxfOutParamBlock;
    static void Begin(Params& params) { DxfOutReadParam(&params); }
    static const RecordView& View() { return kExportView; }
    static const RecordView& ParamView() { return kDxfOutParams; }
    static void Attach(TARNAINFO& info, Params* params) { info.output.exportParams = params; }
};
template <class Block, const RecordView& record, const RecordView& block, int (*kept)(Block*)>
struct DatabaseFamily {
    using Params = Block;
    // What the user has kept; before that, what the dialog takes but for the names.
    static void Begin(Params& params) {
        if (kept(&params) == 0) return;
        params.drawingCapacity = 64;
        params.textHeightRatio = params.textWidthRatio = 1;
    }
    static const RecordView& View() { return record; }
    static const RecordView& ParamView() { return block; }
    static void Attach(TARNAINFO& info, Params* params) { info.database.dbOutParams = params; }
};
using PlInputFamily = DatabaseFamily<PlOutParamBlock, kDatabaseInputView, kPlOutParams, ReadPlParameter>;
using PlOutputFamily = DatabaseFamily<PlOutParamBlock, kDatabaseOutputView, kPlOutParams, ReadPlParameter>;
using VrInputFamily = DatabaseFamily<VrOutParamBlock, kVarosInputView, kVrOutParams, ReadVrParameter>;
using VrOutputFamily = DatabaseFamily<VrOutParamBlock, kDatabaseOutputView, kVrOutParams, ReadVrParameter>;

template <class Family>
Json StartTarna() {
    GuardedMemory<TARNAINFO> info;
    GuardedMemory<typename Family::Params> params;
    Family::Begin(*params.Get());
    return {{"record", ToJson(Family::View(), info.Bytes())}, {"params", ToJson(Family::ParamView(), params.Bytes())}};
}

template <class Family, auto command>
CallResult RunTarna(const Export& self, const Json& input) {
    GuardedMemory<TARNAINFO> info(kMoreDrawings);
    GuardedMemory<typename Family::Params> params;
    Family::Begin(*params.Get());
    FromJson(Family::View(), Member(input, "record"), info.Bytes());
    FromJson(Family::ParamView(), Member(input, "params"), params.Bytes());
    Family::Attach(*info.Get(), params.Get());
    KiroHostSetDrawingRoom(kDrawings);
    const int returned = command(info.Get());
    CallResult result{Answer(self, returned), returned};
    result.json["record"] = ToJson(Family::View(), info.Bytes());
    result.json["params"] = ToJson(Family::ParamView(), params.Bytes());
    return result;
}

Json StartCatia() {
    GuardedMemory<CATIAINFO> info;
    return {{"record", ToJson(kCatiaView, info.Bytes())}};
}

CallResult RunCatia(const Export& self, const Json& input) {
    GuardedMemory<CATIAINFO> info;
    FromJson(kCatiaView, Member(input, "record"), info.Bytes());
    const int returned = CatiaInputDlg(info.Get());
    CallResult result{Answer(self, returned), returned};
    result.json["record"] = ToJson(kCatiaView, info.Bytes());
    return result;
}

// ---- Commands with numbers. The arrays stand last, so that their end is the guarded one. ----

constexpr Field IntegerField(const char* name, std::size_t offset) {
    return {name, offset, FieldKind::kInteger, sizeof(std::int32_t)};
}
constexpr Field ListField(const char* name, std::size_t offset, std::size_t count) {
    return {name, offset, FieldKind::kInteger, sizeof(std::int32_t), count, 0, true};
}

struct LayerNameArguments {
    std::int32_t mode;
    std::int32_t layerNames[257];
    static constexpr Field kFields[] = {IntegerField("mode", 0), ListField("layerNames", 4, 257)};
    bool Call() { return DxfLayerNameDialog(mode, layerNames); }
};
struct LineTypeArguments {
    std::int32_t lineTypes[64];
    static constexpr Field kFields[] = {ListField("lineTypes", 0, 64)};
    bool Call() { return DxfLineTypeDialog(lineTypes); }
};
struct LineWidthArguments {
    std::int32_t mode;
    std::int32_t lineWidths[17];
    static constexpr Field kFields[] = {IntegerField("mode", 0), ListField("lineWidths", 4, 17)};
    bool Call() { return DxfLineWidthDialog(mode, lineWidths); }
};
struct WarningArguments {
    std::int32_t kind;
    static constexpr Field kFields[] = {IntegerField("kind", 0)};
    bool Call() { return DxfWarningDialog(kind); }
};
struct ErrorArguments {
    std::int32_t errorCode;
    static constexpr Field kFields[] = {IntegerField("errorCode", 0)};
    void Call() { ErrorMessageBox(errorCode); }
};

template <class Arguments>
const RecordView& ViewOf() {
    static const RecordView view{"record", Arguments::kFields};
    return view;
}

template <class Arguments>
Json StartNumbers() {
    GuardedMemory<Arguments> arguments;
    return {{"record", ToJson(ViewOf<Arguments>(), arguments.Bytes())}};
}

template <class Arguments>
CallResult RunNumbers(const Export& self, const Json& input) {
    GuardedMemory<Arguments> arguments;
    FromJson(ViewOf<Arguments>(), Member(input, "record"), arguments.Bytes());
    CallResult result;
    if constexpr (std::is_void_v<decltype(arguments->Call())>) {
        arguments->Call();
        result.json = Answer(self, nullptr);
    } else {
        const bool returned = arguments->Call();
        result = {Answer(self, returned), returned ? 0 : 1};
    }
    result.json["record"] = ToJson(ViewOf<Arguments>(), arguments.Bytes());
    return result;
}

// ---- WarningMessageBox: two texts of any length ----

Json StartWarning() { return {{"record", {{"message", ""}, {"caption", ""}}}}; }

std::string TextOf(const Json& record, const char* name) {
    if (!record.contains(name)) return {};
    if (!record[name].is_string()) throw RecordError(std::string(name) + ": a text is expected");
    return EucFromUtf8(record[name].get_ref<const std::string&>());
}

CallResult RunWarning(const Export& self, const Json& input) {
    const Json record = Member(input, "record");
    CheckMembers(record, {"message", "caption"});
    WarningMessageBox(TextOf(record, "message").c_str(), TextOf(record, "caption").c_str());
    CallResult result{Answer(self, nullptr)};
    result.json["record"] = record;
    return result;
}

template <class Family, auto command>
constexpr Export Tarna(const char* name, const wchar_t* title) {
    return {name, title, RunTarna<Family, command>, StartTarna<Family>};
}
template <class Arguments>
constexpr Export Numbers(const char* name, const wchar_t* title) {
    return {name, title, RunNumbers<Arguments>, StartNumbers<Arguments>};
}

constexpr Export kExports[] = {
    Tarna<ImportFamily, [](TARNAINFO* info) { return DxfInputDlg(info); }>("DxfInputDlg", L"ＤＸＦ／ＤＷＧ読込み"),
    Tarna<ExportFamily, [](TARNAINFO* info) { return DxfOutputDlg(info); }>("DxfOutputDlg", L"ＤＸＦ／ＤＷＧ書込み"),
    Tarna<ImportFamily, [](TARNAINFO* info) { return DxfInputPass(info); }>("DxfInputPass", L"パスワード入力"),
    Tarna<PlInputFamily, [](TARNAINFO* info) { return PlInputDlg(info); }>("PlInputDlg", L"Ｐｅｌｉｏｎ ＤＢ読込み"),
    Tarna<PlOutputFamily, [](TARNAINFO* info) { return PlOutputDlg(info); }>("PlOutputDlg", L"Ｐｅｌｉｏｎ ＤＢ書込み"),
    Tarna<VrInputFamily, [](TARNAINFO* info) { return VrInputDlg(info); }>("VrInputDlg", L"Ｖａｒｏｓ ＤＢ読込み"),
    Tarna<VrOutputFamily, [](TARNAINFO* info) { return VrOutputDlg(info); }>("VrOutputDlg", L"Ｖａｒｏｓ ＤＢ書込み"),
    {"CatiaInputDlg", L"ＣＡＴＩＡ読込み", RunCatia, StartCatia},
    Numbers<LayerNameArguments>("DxfLayerNameDialog", L"レイヤ名"),
    Numbers<LineTypeArguments>("DxfLineTypeDialog", L"線種設定"),
    Numbers<LineWidthArguments>("DxfLineWidthDialog", L"線幅設定"),
    Numbers<WarningArguments>("DxfWarningDialog", L"変換の警告"),
    Numbers<ErrorArguments>("ErrorMessageBox", L"エラー表示"),
    {"WarningMessageBox", L"警告表示", RunWarning, StartWarning},
};

}  // namespace

std::span<const Export> Exports() { return kExports; }

const Export* FindExport(const std::string& name) {
    for (const Export& command : kExports)
        if (name == command.name) return &command;
    return nullptr;
}

CallResult CallExport(const Export& command, const Json& input) {
    if (!input.is_object()) throw RecordError("the record's file must hold a JSON object");
    const bool wrapped = input.contains("record") || input.contains("params");
    // What an earlier call has answered can be given to the next.
    if (wrapped) CheckMembers(input, {"export", "returned", "record", "params", "calls", "model"});
    const HostCalls calls;
    CallResult result = command.run(command, wrapped ? input : Json{{"record", input}});
    result.json["calls"] = calls.List();
    result.json["model"] = HostModel();
    return result;
}

}  // namespace kiro
