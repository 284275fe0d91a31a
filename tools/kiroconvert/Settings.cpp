// The settings of a conversion: defaults, tables of a folder, parameters of a file.
#include <iterator>
#include <nlohmann/json.hpp>

#include "Conversion.h"
#include "tables/FileReplace.h"
#include "tools/cli/Console.h"
#include "tools/cli/Files.h"
#include "tools/cli/Text.h"

namespace kiroconvert {

namespace {

using nlohmann::json;

constexpr int kTableAndAutomatic = 1, kByTable = 2;

template <class Block>
struct Field {
    const char* name;
    std::int32_t Block::*member;
};

constexpr Field<DxfInParamBlock> kImportFields[] = {
    {"kanjiCode", &DxfInParamBlock::kanjiCode},
    {"maxItemCount", &DxfInParamBlock::maxItemCount},
    {"convertHidden", &DxfInParamBlock::convertHidden},
    {"paperSpaceTarget", &DxfInParamBlock::paperSpaceTarget},
    {"layerConversion", &DxfInParamBlock::layerConversion},
    {"convertLayerNames", &DxfInParamBlock::convertLayerNames},
    {"lineTypeConversion", &DxfInParamBlock::lineTypeConversion},
    {"lineWidthConversion", &DxfInParamBlock::lineWidthConversion},
    {"defaultLineWeight", &DxfInParamBlock::defaultLineWeight},
    {"colorConversion", &DxfInParamBlock::colorConversion},
    {"layerTarget", &DxfInParamBlock::layerTarget},
};

constexpr Field<DxfOutParamBlock> kExportFields[] = {
    {"outputVersion", &DxfOutParamBlock::outputVersion},
    {"binaryFormat", &DxfOutParamBlock::binaryFormat},
    {"kanjiCode", &DxfOutParamBlock::kanjiCode},
    {"hiddenSkip", &DxfOutParamBlock::hiddenSkip},
    {"layerConversion", &DxfOutParamBlock::layerConversion},
    {"lineConversion", &DxfOutParamBlock::lineConversion},
    {"submodelExpand", &DxfOutParamBlock::submodelExpand},
    {"symbolExpand", &DxfOutParamBlock::symbolExpand},
    {"compositeExpand", &DxfOutParamBlock::compositeExpand},
};

constexpr const char* kVersionNames[] = {"GX-3", "R13", "R14", "2000", "2004", "2007", "2010", "2013"};

template <class Block, std::size_t N>
void TakeFields(const json& values, const std::string& where, const Field<Block> (&fields)[N], Block& block) {
    if (!values.is_object()) throw cli::Failure(where + " は {...} で書いてください");
    for (const auto& [name, value] : values.items()) {
        const auto* field = std::find_if(std::begin(fields), std::end(fields),
                                         [&key = name](const Field<Block>& known) { return key == known.name; });
        if (field == std::end(fields)) throw cli::Failure(where + "." + name + " という項目は使えません");
        if (!value.is_number_integer() || value < 0 || value > 999999999)
            throw cli::Failure(where + "." + name + " は 0 以上の整数で書いてください");
        block.*(field->member) = value;
    }
}

struct SilentSink final : ListingSink {
    void Write(std::string_view) override {}
};

// Null when the folder has no such file.
template <class Table, class Parse>
std::unique_ptr<Table> ReadTable(const std::string& folder, const char* file, Parse parse) {
    const std::filesystem::path path = cli::PathOf(folder) / file;
    std::error_code error;
    if (!std::filesystem::exists(path, error)) return nullptr;
    const auto bytes = ReadWholeFile(path.native());
    if (!bytes) throw cli::Failure(cli::NameOf(path) + ": 読めません");
    auto table = std::make_unique<Table>();
    SilentSink sink;
    TableListing listing(sink);
    parse(*bytes, *table, listing, sink);
    if (listing.HasErrors())
        cli::PrintError(cli::NameOf(path) + ": 読めない行があります。kirotable check で調べてください");
    return table;
}

}  // namespace

int VersionOf(const std::string& name) {
    const auto* found = std::find(std::begin(kVersionNames), std::end(kVersionNames), name);
    return found == std::end(kVersionNames) ? 0 : static_cast<int>(found - kVersionNames);
}

// Without a table everything is automatic, and nothing is left out.
Settings DefaultSettings() {
    Settings settings;
    settings.import.unicode = settings.output.unicode = {cli::FromCp932, cli::ToCp932};
    settings.import.params.convertHidden = 1;
    settings.import.params.paperSpaceTarget = 1;
    settings.import.params.convertLayerNames = 1;
    settings.import.params.defaultLineWeight = 1;
    settings.output.params.outputVersion = convert::kLastVersion;
    return settings;
}

void ReadTables(const std::string& folder, Settings& settings) {
    settings.inLayers =
        ReadTable<DxfInLayerTable>(folder, "DXFKIRO_LAYER", [](auto bytes, auto& table, auto& listing, auto&) {
            // How colours look plays no part.
            ParseDxfInLayerTable(bytes, table, listing,
                                 [](int, std::int16_t* r, std::int16_t* g, std::int16_t* b) { *r = *g = *b = 0; });
        });
    settings.inLines = ReadTable<DxfInLineTable>(
        folder, "DXFKIRO_LINE",
        [](auto bytes, auto& table, auto& listing, auto&) { ParseDxfInLineTable(bytes, table, listing); });
    settings.outLayers = ReadTable<DxfOutLayerTable>(
        folder, "KIRODXF_LAYER",
        [](auto bytes, auto& table, auto& listing, auto&) { ParseDxfOutLayerTable(bytes, table, listing); });
    settings.outLines = ReadTable<DxfOutLineTable>(
        folder, "KIRODXF_LINE",
        [](auto bytes, auto& table, auto& listing, auto& sink) { ParseDxfOutLineTable(bytes, table, listing, sink); });
    if (!settings.inLayers && !settings.inLines && !settings.outLayers && !settings.outLines)
        throw cli::Failure(folder + ": 変換テーブルがありません");
    DxfInParamBlock& import = settings.import.params;
    if (settings.inLayers) import.layerConversion = kTableAndAutomatic, import.colorConversion = kByTable;
    if (settings.inLines) import.lineTypeConversion = kTableAndAutomatic, import.lineWidthConversion = kByTable;
    settings.output.params.layerConversion = settings.outLayers != nullptr;
    settings.output.params.lineConversion = settings.outLines != nullptr;
    settings.import.layers = settings.inLayers.get();
    settings.import.lines = settings.inLines.get();
    settings.output.layers = settings.outLayers.get();
    settings.output.lines = settings.outLines.get();
}

void ReadParameters(const std::string& file, Settings& settings) {
    const auto bytes = ReadWholeFile(cli::PathOf(file).native());
    if (!bytes) throw cli::Failure(file + ": 読めません");
    const json values = json::parse(*bytes, nullptr, false);
    if (!values.is_object())
        throw cli::Failure(file + ": 書式が違います。{\"importParams\": {...}} のように書いてください");
    for (const auto& [name, value] : values.items()) {
        if (name == "importParams")
            TakeFields(value, file + ": importParams", kImportFields, settings.import.params);
        else if (name == "exportParams")
            TakeFields(value, file + ": exportParams", kExportFields, settings.output.params);
        else if (name == "scale" && value.is_number() && value > 1e-6 && value < 1e6)
            settings.import.scale = value;
        else
            throw cli::Failure(file + ": " + name + " という項目は使えないか、値が違います");
    }
}

}  // namespace kiroconvert
