// The exported functions that read and write whole drawings.
#include <algorithm>
#include <memory>
#include <optional>
#include <string>

#include "convert/Convert.h"
#include "entry/host/kirobc.h"
#include "entry/host/kirodxf.h"
#include "hostlayer/kirobc/Guarded.h"
#include "hostlayer/kirobc/HostFiles.h"
#include "hostlayer/kirobc/PathText.h"
#include "hostlayer/kirocontrol/CallNote.h"
#include "hostlayer/kirodxf/CurrentParams.h"
#include "hostlayer/kirodxf/FileSink.h"
#include "hostlayer/kiromdl/ModelFacts.h"

namespace {

constexpr int kByTable = 2;  // words 25 and 27

std::string importTable, exportTable;

void SetTable(std::string& table, const char* name) {
    kirobc::Guarded(0, [&] { return name ? (table = name, 0) : 0; });
}

// ---- Tables ----

struct SilentSink final : ListingSink {
    void Write(std::string_view) override {}
};

std::string TablePath(const std::string& name) {
    return kirobc::WindowsPath(name).empty() ? HxFile::ToFullPath("#DXF:TABLE#", name, false, false) : name;
}

// What cannot be read in it is left out, as in the dialogs, which list it.
template <class Table, class Parse>
std::unique_ptr<Table> ParseTable(const std::string& bytes, Parse parse) {
    auto table = std::make_unique<Table>();
    SilentSink sink;
    TableListing listing(sink);
    parse(bytes, *table, listing, sink);
    return table;
}

// Without a name: the table as it is without a file. False when the file that is named cannot be read.
bool ReadLayerTable(const std::string& name, std::string& bytes) {
    return name.empty() || kirobc::ReadHostFile(TablePath(name).c_str(), bytes) == 0;
}

std::string LineTableBytes(const char* name) {
    std::string bytes;
    kirobc::ReadHostFile(TablePath(name).c_str(), bytes);
    return bytes;
}

// ---- Import ----

int Import(const char* path, const TARNAINFO* info) {
    convert::ImportSettings settings;
    settings.params = CurrentImportParams();
    if (info && info->input.dataType != 0) return kDxfShape;
    if (info) settings.pictureNumber = std::clamp(info->input.pictureNumber, -256, 256);
    if (info && info->input.scale > 1e-6 && info->input.scale < 1e6) settings.scale = info->input.scale;
    std::unique_ptr<DxfInLayerTable> layers;
    std::unique_ptr<DxfInLineTable> lines;
    if (settings.params.layerConversion || settings.params.colorConversion == kByTable) {
        std::string bytes;
        if (!ReadLayerTable(importTable, bytes)) return kDxfNoTable;
        layers = ParseTable<DxfInLayerTable>(bytes, [](auto& text, auto& table, auto& listing, auto&) {
            ParseDxfInLayerTable(text, table, listing, DxfGetColorRGB);
        });
    }
    if (settings.params.lineTypeConversion || settings.params.lineWidthConversion == kByTable)
        lines = ParseTable<DxfInLineTable>(
            LineTableBytes("DXFKIRO_LINE"),
            [](auto& text, auto& table, auto& listing, auto&) { ParseDxfInLineTable(text, table, listing); });
    settings.layers = layers.get();
    settings.lines = lines.get();
    kirobc::FileSource source;
    if (const int error = source.Open(path)) return error;
    return KiroModelImport(&source, &settings, info && info->input.addMode);
}

// ---- Export ----

bool IsForDwg(std::string path) {
    std::string folder = HxFile::ToFullPath("#DWG#", "x", false, false);
    for (std::string* text : {&path, &folder})
        for (char& c : *text)
            if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
    if (!folder.empty()) folder.pop_back();
    return path.ends_with(".dwg") || (!folder.empty() && path.starts_with(folder));
}

int Export(const char* path, int drawing, int picture) {
    if (const int refused = KiroModelWriterError(drawing, picture)) return refused;
    const std::wstring name = kirobc::WindowsPath(path ? path : "");
    if (name.empty()) return kDxfBadName;
    if (IsForDwg(path)) return kDxfNoDwgWriter;
    convert::ExportSettings settings;
    settings.params = CurrentExportParams();
    std::unique_ptr<DxfOutLayerTable> layers;
    std::unique_ptr<DxfOutLineTable> lines;
    if (settings.params.layerConversion) {
        std::string bytes;
        if (!ReadLayerTable(exportTable, bytes)) return kDxfNoTable;
        layers = ParseTable<DxfOutLayerTable>(
            bytes, [](auto& text, auto& table, auto& listing, auto&) { ParseDxfOutLayerTable(text, table, listing); });
    }
    if (settings.params.lineConversion)
        lines = ParseTable<DxfOutLineTable>(LineTableBytes("KIRODXF_LINE"),
                                            [](auto& text, auto& table, auto& listing, auto& sink) {
                                                ParseDxfOutLineTable(text, table, listing, sink);
                                            });
    settings.layers = layers.get();
    settings.lines = lines.get();
    FileSink sink(name);
    const int error = KiroModelExport(&sink, &settings, drawing, picture);
    if (error != 0 && error != kDxfCannotWrite) return error;
    return error == 0 && sink.File().TakePlace() ? 0 : kirobc::WhyNotReplaced(name, sink.File());
}

}  // namespace

void setdxfintblnam(const char* name) {
    SetTable(importTable, name);
    NoteCall("setdxfintblnam", {HostText("name", name)});
}

void setdxfottblnam(const char* name) {
    SetTable(exportTable, name);
    NoteCall("setdxfottblnam", {HostText("name", name)});
}

int DxfIsModelCheck() { return KiroModelIsChecked(); }

int dxfin(const char* path, const TARNAINFO* info) {
    const int error = kirobc::Guarded(static_cast<int>(kDxfNoMemory), [=] { return Import(path, info); });
    NoteCall("dxfin",
             {HostText("path", path), HostInteger("addMode", info ? info->input.addMode : 0),
              HostInteger("pictureNumber", info ? info->input.pictureNumber : 1),
              HostReal("scale", info ? info->input.scale : 1.0)},
             error);
    return error;
}

int DxfOutFloppy(bool floppy, const char* path, int drawing, int picture) {
    const int error = kirobc::Guarded(static_cast<int>(kDxfNoMemory), [=] { return Export(path, drawing, picture); });
    NoteCall("DxfOutFloppy",
             {HostFlag("floppy", floppy), HostText("path", path), HostInteger("drawing", drawing),
              HostInteger("picture", picture)},
             error);
    return error;
}
