#include "catalogue/Openings.h"

#include <array>
#include <filesystem>
#include <fstream>

#include "dxfin/KrDxfInAll.h"
#include "dxfin/KrDxfInAttr.h"
#include "dxfin/KrDxfInGoOn.h"
#include "dxfin/KrDxfInList.h"
#include "dxfin/KrDxfInParam.h"
#include "dxfin_tables/KrDxfInTbl_IO.h"
#include "dxfin_tables/KrDxfInTbl_Layer.h"
#include "dxfout/KrDxfOutAttr.h"
#include "dxfout/KrDxfOutParam.h"
#include "dxfout/OutParams.h"
#include "dxfout_tables/KrDxfOutTable.h"
#include "dxfout_tables/KrDxfOutTbl_IO.h"
#include "dxfout_tables/KrDxfOutTbl_LStyle.h"
#include "dxfout_tables/KrDxfOutTbl_LStyle2.h"
#include "dxfout_tables/KrDxfOutTbl_LWidth.h"
#include "dxfout_tables/KrDxfOutTbl_Layer.h"
#include "dxfout_tables/KrDxfOutTbl_Line.h"
#include "dxfout_tables/KrDxfOutTbl_TFont.h"
#include "entry/host/FixedText.h"
#include "entry/host/kirobc.h"
#include "entry/host/kirovanteo.h"
#include "hostlayer/include/KiroHost.h"
#include "model/KrDxfLayerName.h"
#include "model/KrDxfLineType.h"
#include "model/KrDxfLineWidth.h"

namespace kiro {
namespace {

// A dialog over the table of the export's lines. run(hub): opens it.
template <class Run>
Opening OverExportLines(Run run) {
    const auto table = std::make_shared<DxfOutLineTable>();
    KrDxfOutTbl_IO(Grgetwin(-1)).ReadLineTable(table.get());
    return {[table, run] {
                KrDxfOutTbl_Line hub;
                hub.SetTable(table.get());
                const LibraryContext context;
                const INT_PTR result = run(hub);
                hub.GetTable(table.get());
                return result;
            },
            {BytesOf(*table)}};
}
template <class Editor, class Parent>
INT_PTR RunEditorOf(Parent& parent) {
    Editor editor;
    editor.SetInfo(&parent);
    return editor.DoModal(Grgetwin(-1));
}

constexpr char kLayerFile[] = "DXFKIRO_LAYER";
constexpr char kOutLayerFile[] = "KIRODXF_LAYER";

HANDLE StyleContext() {
    static const HANDLE context = drive::MakeStyleContext(GetModuleHandleW(L"kirovanteo.dll"));
    return context;
}

// The table as its file has it; of a layer table, the file that it names.
template <class Table>
std::shared_ptr<Table> Read(std::shared_ptr<Table> table, void (KrDxfInTbl_IO::*read)(Table&)) {
    const KrUtilityPtr utility(KrCreateUtility());
    KrDxfInTbl_IO io(*utility, Grgetwin(-1));
    (io.*read)(*table);
    return table;
}

std::shared_ptr<DxfInLayerTable> NamedLayers() {
    auto table = std::make_shared<DxfInLayerTable>();
    WriteFixedText(table->fileName, kLayerFile);
    return table;
}

std::shared_ptr<DxfOutLayerTable> NamedOutLayers() {
    auto table = std::make_shared<DxfOutLayerTable>();
    WriteFixedText(table->fileName, kOutLayerFile);
    return table;
}

}  // namespace

LibraryContext::LibraryContext() : module_(GetModuleHandleW(L"kirovanteo.dll")) {
    ActivateActCtx(StyleContext(), &cookie_);
}

LibraryContext::~LibraryContext() { DeactivateActCtx(0, cookie_); }

// ---- Records ----

std::shared_ptr<ImportData> DemoImport(bool dwg) {
    auto data = std::make_shared<ImportData>();
    data->info.input.inputIsDwg = dwg;
    data->info.input.importParams = &data->params;
    // Without a font table, which no demonstration has, text widths are converted by the table only.
    data->params.textWidthConversion = 2;
    data->params.defaultLineWeight = 1;
    return data;
}

// A command over its record, of which it may write a part although nothing is confirmed.
template <class Data, class Command>
Opening CommandOver(const std::shared_ptr<Data>& data, Command command, std::size_t part, std::size_t behind) {
    const auto bytes = BytesOf(data->info);
    return {[data, command] { return Ended(command(&data->info)); }, {bytes.first(part), bytes.subspan(behind)}};
}

// "一括変換" hands the name of the layer table over.
Opening ImportCommand(bool dwg) {
    constexpr std::size_t table = offsetof(TarnaImportView, layerTableFileName);
    return CommandOver(DemoImport(dwg), DxfInputDlg, table, table + sizeof TarnaImportView::layerTableFileName);
}

// With tables for layers and text fonts.
std::shared_ptr<ExportData> DemoExport(bool dwg) {
    auto data = std::make_shared<ExportData>();
    data->info.output.outputIsDwg = dwg;
    data->info.output.exportParams = &data->params;
    data->params = KeptOutParams();
    data->params.pidAvailable = 1;
    data->params.layerConversion = 1;
    data->params.fontConversion = 1;
    return data;
}

// When the model's check finds faults, all is written but the host's fields.
Opening ExportCommand(bool dwg) {
    return CommandOver(DemoExport(dwg), DxfOutputDlg, offsetof(TarnaExportView, mediaKind),
                       offsetof(TarnaExportView, exportParams));
}

Opening ExportParameters(bool dwg) {
    const auto data = DemoExport(dwg);
    return {[data] { return RunDialog([&] { return KrDxfOutParam(data->info, data->params); }); }, {BytesOf(*data)}};
}

Opening PasswordCommand() {
    const auto data = DemoImport(true);
    WriteFixedText(data->info.input.inputFileName, HxEucEncoder::Sjis2Euc("/図面/保護図面.dwg"));
    return {[data] { return Ended(DxfInputPass(&data->info)); }, {BytesOf(*data)}};
}

Opening ImportParameters() {
    const auto data = DemoImport(false);
    data->params.splitItemCount = 5000;
    data->params.maxItemCount = 50000;
    data->params.roundingDigits = 4;
    data->params.angleDigits = 3;
    return {[data] { return RunDialog([&] { return KrDxfInParam(data->info.input, data->params); }); },
            {BytesOf(*data)}};
}

// "変換パラメータ" and "属性変換" write their block when they are confirmed.
Opening ImportBatch() {
    const auto data = DemoImport(false);
    WriteFixedText(data->info.input.layerTableFileName, kLayerFile);
    return {[data] { return RunDialog([&] { return KrDxfInAll(data->info.input, data->params); }); },
            {BytesOf(data->info)}};
}

Opening ImportList() {
    constexpr struct {
        const wchar_t* name;
        const char* version;  // null: no drawing
    } kDrawings[] = {{L"１階平面図.dxf", "AC1015"}, {L"２階平面図.dxf", "AC1015"}, {L"断面 A-A.dxf", "AC1018"},
                     {L"詳細図.DXF", "AC1009"},     {L"新しい図面.dxf", "AC1032"}, {L"案内.txt", nullptr}};
    wchar_t folder[kKrPathSize];
    KiroHostGetFolder("#DXF:BATCH#", folder, kKrPathSize);
    for (const auto& drawing : kDrawings) {
        std::ofstream out(std::filesystem::path(folder) / drawing.name, std::ios::binary);
        out << (drawing.version ? std::string("  0\nSECTION\n  2\nHEADER\n  9\n$ACADVER\n  1\n") + drawing.version +
                                      "\n  0\nENDSEC\n  0\nSECTION\n  2\nENTITIES\n  0\nLINE\n  8\n0\n 10\n0.0\n 20\n"
                                      "0.0\n 11\n9.0\n 21\n9.0\n  0\nENDSEC\n  0\nEOF\n"
                                : "memo\n");
    }
    const auto data = DemoImport(false);
    const auto list = std::make_shared<DxfInListInfo>();
    WriteFixedText(list->pattern, "BATCH\\*");
    list->importParams = &data->params;
    return {[data, list] {
                const LibraryContext context;
                KrDxfInList dialog(*list);
                dialog.Search();
                return dialog.DoModal(Grgetwin(-1));
            },
            {BytesOf(*data), BytesOf(*list)}};
}

Opening ImportGoOn() {
    return {[] {
                return RunDialog(
                    [] { return KrDxfInGoOn(BatchKindOf(false).caption, "図面.dxf\nDXFファイルではありません。"); });
            },
            {}};
}

Opening ImportAttributes() {
    const auto data = DemoImport(false);
    return {[data] { return RunDialog([&] { return KrDxfInAttr(data->params); }); }, {BytesOf(*data)}};
}

Opening ExportAttributes() {
    const auto data = DemoExport();
    return {[data] { return RunDialog([&] { return KrDxfOutAttr(data->info, data->params); }); }, {BytesOf(*data)}};
}

// ---- Tables ----

std::shared_ptr<DxfInLayerTable> DemoLayers(bool revisions) {
    const auto table = Read(NamedLayers(), &KrDxfInTbl_IO::ReadLayerTable);
    table->layerSwitch = revisions;
    return table;
}

std::shared_ptr<DxfInLineTable> DemoLines() {
    return Read(std::make_shared<DxfInLineTable>(), &KrDxfInTbl_IO::ReadLineTable);
}

Opening ExportTextFonts() {
    const auto data = DemoExport();
    return {[data] { return RunDialog([&] { return KrDxfOutTbl_TFont(&data->info); }); }, {BytesOf(*data)}};
}

Opening LayerHub() {
    const auto start = NamedLayers();
    return {[start] { return RunDialog([&] { return KrDxfInTbl_Layer(*start, 1, 0); }); }, {BytesOf(*start)}};
}

Opening OutTables() {
    const auto data = std::make_shared<ExportData>();
    data->info.output.exportParams = &data->params;
    return {[data] { return RunGiven(KrDxfOutTable(), &data->info); }, {BytesOf(*data)}};
}

std::shared_ptr<KrDxfOutTbl_Layer> DemoOutLayers(std::int32_t layerControl) {
    const auto table = NamedOutLayers();
    const auto hub = std::make_shared<KrDxfOutTbl_Layer>(Grgetwin(-1));
    hub->SetInfo(1, 0, table.get());
    hub->GetTable(table.get());
    table->layerControl = layerControl;
    hub->SetTable(table.get());
    return hub;
}

Opening OutLayerHub() {
    const auto start = NamedOutLayers();
    return {[start] { return RunGiven(KrDxfOutTbl_Layer(Grgetwin(-1)), 1, 0, start.get()); }, {BytesOf(*start)}};
}

Opening ExportLineTypes() { return OverExportLines(RunEditorOf<KrDxfOutTbl_LStyle, KrDxfOutTbl_Line>); }

Opening ExportPatterns() {
    return OverExportLines([](KrDxfOutTbl_Line& hub) {
        KrDxfOutTbl_LStyle lineTypes;
        lineTypes.SetInfo(&hub);
        return RunEditorOf<KrDxfOutTbl_LStyle2>(lineTypes);
    });
}

Opening ExportLineWidths() { return OverExportLines(RunEditorOf<KrDxfOutTbl_LWidth, KrDxfOutTbl_Line>); }

// ---- Settings of the model ----

namespace {

// The words of a command that has all numbers in use.
template <std::size_t count>
auto AllUsed(std::int32_t state) {
    auto words = std::make_shared<std::array<std::int32_t, count>>();
    words->fill(1);
    words->front() = state;
    return words;
}

}  // namespace

Opening LayerNames() {
    const auto words = AllUsed<257>(0);
    return {[words] { return RunDialog([&] { return KrDxfLayerName(false, words->data()); }); }, {BytesOf(*words)}};
}

Opening LineTypes(std::int32_t state) {
    const auto words = AllUsed<64>(state);
    return {[words] { return RunDialog([&] { return KrDxfLineType(words->data()); }); }, {BytesOf(*words)}};
}

Opening LineWidths(std::int32_t mode, std::int32_t state) {
    const auto words = AllUsed<17>(state);
    return {[words, mode] { return RunDialog([&] { return KrDxfLineWidth(mode, words->data()); }); },
            {BytesOf(*words)}};
}

}  // namespace kiro
