#include "dxfin_tables/DxfInLayerTable.h"

#include <algorithm>
#include <cstring>

#include "tables/TableRecords.h"
#include "text/Numbers.h"
#include "text/SlotText.h"

namespace {

constexpr std::size_t kPiece = 256;
constexpr std::int32_t kLargestNumber = 256;  // of classes and revisions
constexpr std::int32_t kLastNamed = kDxfInLayerSlots - 1;
constexpr std::string_view kOther = "OTHER";

constexpr std::string_view kBadClass = " ***** 無効なクラス番号です (1-%d) *****\n";
constexpr std::string_view kBadRevision = " ***** 無効なレビジョン番号です (1-%d) *****\n";
// Deliberately one text for all colours, though COLOR takes 1 to 255 and the other records 0 to 256.
constexpr std::string_view kBadColor = " ***** 無効な色番号です (0-255) *****\n";
constexpr std::string_view kBadRgb = " ***** 無効な R,G,B 値です (0-255) *****\n";
constexpr std::string_view kBadSwitch = " ***** 無効な値です (0 or 1) *****\n";
constexpr std::string_view kFull = " ***** テーブルの容量を超えました (Max. %d) *****\n";
constexpr std::string_view kLayerForm = " ***** 書式が違います *****       LAYER  layer_name = class#\n";
constexpr std::string_view kColorClassForm = " ***** 書式が違います *****       COLOR-CLASS  color# = class#\n";
constexpr std::string_view kColorRevisionForm =
    " ***** 書式が違います *****       COLOR-REVISION  color# = revision#\n";
constexpr std::string_view kColorForm = " ***** 書式が違います *****       COLOR  color# = R, G, B\n";

class LayerReader : public RecordReader<DxfInLayerTable> {
  public:
    using RecordReader::RecordReader;

    Reading Class(FieldText& fields) { return Layer(fields, ClassesOf(table_), kBadClass); }
    Reading Revision(FieldText& fields) { return Layer(fields, RevisionsOf(table_), kBadRevision); }
    Reading ColorClass(FieldText& fields) { return Color(fields, table_.colorClass, kBadClass, kColorClassForm); }
    Reading ColorRevision(FieldText& fields) {
        return Color(fields, table_.colorRevision, kBadRevision, kColorRevisionForm);
    }
    Reading ColorRgb(FieldText& fields);
    Reading Switch(FieldText& fields);

  private:
    Reading Layer(FieldText& fields, DxfInLayerList list, std::string_view badNumber);
    Reading Color(FieldText& fields, std::int32_t (&numbers)[kDxfInColors], std::string_view badNumber,
                  std::string_view form);
};

constexpr Keyword<LayerReader> kKeywords[] = {
    {"LAYER ", &LayerReader::Class, 7, 74},
    // Deliberately read from column 7 too: the layer A of a LAYER-CLASS record is stored as CLASSA.
    {"LAYER-CLASS ", &LayerReader::Class, 7, 74},
    {"LAYER_CLASS ", &LayerReader::Class, 7, 74},
    {"LAYER-REVISION ", &LayerReader::Revision, 16, 64},
    {"LAYER_REVISION ", &LayerReader::Revision, 16, 64},
    {"COLOR-CLASS ", &LayerReader::ColorClass, 13, 64},
    {"COLOR_CLASS ", &LayerReader::ColorClass, 13, 64},
    {"COLOR-REVISION ", &LayerReader::ColorRevision, 16, 64},
    {"COLOR_REVISION ", &LayerReader::ColorRevision, 16, 64},
    {"COLOR ", &LayerReader::ColorRgb, 7, 64},
    {"LAYER-SWITCH ", &LayerReader::Switch, 14, 64},
    {"LAYER_SWITCH ", &LayerReader::Switch, 14, 64},
};

Reading LayerReader::Layer(FieldText& fields, DxfInLayerList list, std::string_view badNumber) {
    const auto parts = fields.Cut("=,");
    if (!parts) return Refuse(kLayerForm);
    const auto [name, numberText] = *parts;
    const auto number = ReadInteger(numberText, 1, kLargestNumber);
    if (!number) return Refuse(badNumber, kLargestNumber);
    if (name == kOther) {
        list.numbers[0] = *number;
        return Reading::kGoOn;
    }
    if (list.count >= kLastNamed) return Full(kFull, kDxfInLayerSlots);
    ++list.count;
    list.numbers[list.count] = *number;
    StoreText(list.names[list.count], name);
    return Reading::kGoOn;
}

Reading LayerReader::Color(FieldText& fields, std::int32_t (&numbers)[kDxfInColors], std::string_view badNumber,
                           std::string_view form) {
    const auto parts = fields.Cut("=,");
    if (!parts) return Refuse(form);
    const auto color = ReadInteger((*parts)[0], 0, kDxfInColors - 1);
    if (!color) return Refuse(kBadColor);
    const auto number = ReadInteger((*parts)[1], 1, kLargestNumber);
    if (!number) return Refuse(badNumber, kLargestNumber);
    numbers[*color] = *number;
    return Reading::kGoOn;
}

Reading LayerReader::ColorRgb(FieldText& fields) {
    const auto parts = fields.Cut("=,,,");
    if (!parts) return Refuse(kColorForm);
    const auto color = ReadInteger((*parts)[0], 1, 255);
    if (!color) return Refuse(kBadColor);
    std::int32_t rgb[3];
    for (std::size_t i = 0; i < 3; ++i) {
        const auto value = ReadInteger((*parts)[i + 1]);
        // Deliberately only the low 16 bits count: 65536 is a 0.
        rgb[i] = value ? *value & 0xFFFF : 0xFFFF;
        if (rgb[i] > 255) return Refuse(kBadRgb);
    }
    std::copy_n(rgb, 3, table_.colorRgb[*color]);
    return Reading::kGoOn;
}

Reading LayerReader::Switch(FieldText& fields) {
    const auto parts = fields.Cut(",");
    const auto value = parts ? ReadInteger((*parts)[0], 0, 1) : std::nullopt;
    if (!value) return Refuse(kBadSwitch);
    table_.layerSwitch = *value;
    return Reading::kGoOn;
}

void SetDefaults(DxfInLayerList list) {
    list.count = 0;
    std::memset(list.numbers, 0, sizeof list.numbers);
    std::memset(list.names, 0, sizeof list.names);
    list.numbers[0] = kLargestNumber;
    StoreText(list.names[0], kOther);
}

void SetDefaults(DxfInLayerTable& table, DxfInColorSource colors) {
    table.layerSwitch = 0;
    std::memset(table.reserved, 0, sizeof table.reserved);
    SetDefaults(ClassesOf(table));
    SetDefaults(RevisionsOf(table));
    for (std::int32_t color = 0; color < kDxfInColors; ++color) {
        table.colorClass[color] = table.colorRevision[color] = std::max(color, 1);
        std::int16_t rgb[3] = {};
        colors(color, &rgb[0], &rgb[1], &rgb[2]);
        std::copy_n(rgb, 3, table.colorRgb[color]);
    }
}

}  // namespace

void ParseDxfInLayerTable(std::string_view file, DxfInLayerTable& table, TableListing& listing,
                          DxfInColorSource colors) {
    SetDefaults(table, colors);
    LayerReader reader(table, listing);
    ReadRecords(file, kPiece, kKeywords, reader, listing);
}

std::string FormatDxfInLayerTable(const DxfInLayerTable& table, const TableHeader& header) {
    TableWriter out(header, kPiece);
    out.Add("/ LAYER-SWITCH switch\n");
    out.Add("/              switch = 0 : Layer To Class\n");
    out.Add("/                     = 1 : Layer To Revision\n");
    out.Add("/\n");
    out.Add("LAYER-SWITCH %d\n", table.layerSwitch);
    out.Add("/\n/ Convert Layer to Class\n");
    for (std::int32_t i = 0; i <= std::min(table.layerClassCount, kLastNamed); ++i) {
        const std::string_view name = SlotText(table.layerClassName[i]);
        if (!name.empty()) out.Add("LAYER %s = %d\n", name, table.layerClass[i]);
    }
    out.Add("/\n/ Convert Layer to Revision\n");
    for (std::int32_t i = 0; i <= std::min(table.layerRevisionCount, kLastNamed); ++i)
        out.Add("LAYER-REVISION %s = %d\n", SlotText(table.layerRevisionName[i]), table.layerRevision[i]);
    // Deliberately neither colours 0 and 256 nor the red, green and blue values.
    out.Add("/\n/ Convert Color to Revision\n");
    for (std::int32_t color = 1; color <= 255; ++color)
        out.Add("COLOR-REVISION %3d = %3d\n", color, table.colorRevision[color]);
    out.Add("/\n/ Convert Color to Class\n");
    for (std::int32_t color = 1; color <= 255; ++color)
        out.Add("COLOR-CLASS %3d = %3d\n", color, table.colorClass[color]);
    return std::move(out).Finish();
}
