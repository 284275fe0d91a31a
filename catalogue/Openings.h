// What the rows of the catalogue are made of: a dialog, opened over data of one of a few kinds. Each kind is ready to
// be shown: its texts and tables are those of the demonstration, as far as the home folder has them.
#pragma once

#include <windows.h>

#include <memory>
#include <type_traits>
#include <utility>

#include "catalogue/Catalogue.h"
#include "driver/BareDialog.h"
#include "dxfout_tables/KrDxfOutTbl_Layer.h"
#include "entry/host/ParamBlocks.h"
#include "entry/host/TARNAINFO.h"
#include "entry/host/kirogr.h"
#include "ui/Dialog.h"

struct DxfInLayerTable;
struct DxfInLineTable;

namespace kiro {

// While one lives, dialogs of this program have the library's templates and the controls of its style, as the commands
// of the library have them.
class LibraryContext {
  public:
    LibraryContext();
    LibraryContext(const LibraryContext&) = delete;
    LibraryContext& operator=(const LibraryContext&) = delete;
    ~LibraryContext();

  private:
    ui::ScopedResourceModule module_;
    ULONG_PTR cookie_ = 0;
};

template <class T>
std::span<const std::byte> BytesOf(const T& value) {
    return std::as_bytes(std::span(&value, 1));
}

// ---- Commands ----

// What a command returns, as the result of its dialog.
inline INT_PTR Ended(int returned) { return returned == 0 ? IDOK : IDCANCEL; }
inline INT_PTR Ended(bool returned) { return returned ? IDOK : IDCANCEL; }

struct ImportData {
    TARNAINFO info{};
    DxfInParamBlock params{};
};
std::shared_ptr<ImportData> DemoImport(bool dwg);
Opening ImportCommand(bool dwg);
Opening PasswordCommand();

struct ExportData {
    TARNAINFO info{};
    DxfOutParamBlock params{};
};
std::shared_ptr<ExportData> DemoExport(bool dwg = false);
Opening ExportCommand(bool dwg);
Opening ExportParameters(bool dwg);

// A command over a cleared argument of its own.
template <class Argument, class Command>
Opening Cleared(Command command) {
    const auto data = std::make_shared<Argument>();
    return {[data, command] { return Ended(command(*data)); }, {BytesOf(*data)}};
}
// The settings of the demonstration's model; state: the word that tells whether a conversion asks for them.
Opening LayerNames();
Opening LineTypes(std::int32_t state);
Opening LineWidths(std::int32_t mode, std::int32_t state);

// A command that shows nothing but a box.
template <class Command>
Opening BoxOf(Command command) {
    return {[command]() -> INT_PTR {
                command();
                return IDOK;
            },
            {}};
}

// ---- Dialogs that are opened by others, opened directly ----

template <class Make>
INT_PTR RunDialog(Make make) {
    const LibraryContext context;
    return make().DoModal(Grgetwin(-1));
}

// One that is made of nothing but what is stated here.
template <class Dialog, auto... arguments>
Opening Plain() {
    return {[] { return RunDialog([] { return Dialog(arguments...); }); }, {}};
}

std::shared_ptr<DxfInLayerTable> DemoLayers(bool revisions);
std::shared_ptr<DxfInLineTable> DemoLines();

// An editor of a table that its caller owns.
template <class Dialog, class Table>
Opening EditorOf(const std::shared_ptr<Table>& table) {
    return {[table] { return RunDialog([&] { return Dialog(*table); }); }, {BytesOf(*table)}};
}

// A dialog that is given its data by SetInfo.
template <class Dialog, class... Info>
INT_PTR RunGiven(Dialog&& dialog, Info... info) {
    const LibraryContext context;
    dialog.SetInfo(info...);
    return dialog.DoModal(Grgetwin(-1));
}

// A dialog of the export's batch, which writes its medium into the record at once.
template <class Dialog>
Opening OverExport() {
    const auto data = DemoExport();
    constexpr std::size_t behind = offsetof(TarnaExportView, mediaKind) + sizeof TarnaExportView::mediaKind;
    return {[data] { return RunGiven(Dialog(), &data->info); }, {BytesOf(data->info).subspan(behind)}};
}

// A hub over the demonstration's table; layerControl: what its editor of classes and revisions shows.
std::shared_ptr<KrDxfOutTbl_Layer> DemoOutLayers(std::int32_t layerControl);

template <class Editor, std::int32_t layerControl = kLayerControlClass>
Opening OutLayerEditor() {
    const auto hub = DemoOutLayers(layerControl);
    const auto table = std::make_shared<DxfOutLayerTable>();
    hub->GetTable(table.get());
    return {[hub, table] {
                const INT_PTR result = RunGiven(Editor(), hub.get());
                hub->GetTable(table.get());
                return result;
            },
            {BytesOf(*table)}};
}

Opening OutTables();
Opening OutLayerHub();
// The editors of the export's lines, behind a hub that is not shown.
Opening ExportLineTypes();
Opening ExportPatterns();
Opening ExportLineWidths();

Opening LayerHub();
Opening ImportParameters();
Opening ImportBatch();
Opening ImportList();
Opening ImportGoOn();
Opening ImportAttributes();
Opening ExportAttributes();
Opening ExportTextFonts();

}  // namespace kiro
