#include "dxfin_tables/DxfInLineTable.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "tables/TableRecords.h"
#include "text/Numbers.h"
#include "text/SlotText.h"

namespace {

constexpr std::size_t kPiece = 127;
constexpr std::int32_t kLargestFont = 63;
constexpr double kLargestWidth = 1000.0;

constexpr std::string_view kBadFont = " ***** 無効な線種番号です (1-%d) *****\n";
constexpr std::string_view kBadWeight = " ***** 無効な線幅番号です (1-%d) *****\n";
constexpr std::string_view kBadWidth = " ***** 無効な線幅です (0.0-999.0) *****\n";  // deliberate: 1000.0 passes
constexpr std::string_view kBadColor = " ***** 無効な色番号です (1-256) *****\n";    // deliberate: 0 passes
constexpr std::string_view kLineTypesFull = " ***** 線種テーブルの容量を超えました (Max. %d) *****\n";
constexpr std::string_view kWidthsFull = " ***** 線幅テーブルの容量を超えました (Max. %d) *****\n";
constexpr std::string_view kColorsFull = " ***** 色テーブルの容量を超えました (Max. %d) *****\n";
constexpr std::string_view kLineTypeForm =
    " ***** 書式が違います *****     LINE-CODE line_code = line_font, line_weight\n";
constexpr std::string_view kWidthForm = " ***** 書式が違います *****     WIDTH width_s, width_e = line_weight\n";
constexpr std::string_view kWidthOrder = " ***** 書式が違います *****     width_s > width_e\n";
constexpr std::string_view kLineWidthForm = " ***** 書式が違います *****     LINE-WIDTH width = weight#\n";

class LineReader : public RecordReader<DxfInLineTable> {
  public:
    using RecordReader::RecordReader;

    Reading LineType(FieldText& fields);
    Reading PolyWidth(FieldText& fields);
    Reading LineWidth(FieldText& fields);
    Reading Color(FieldText& fields);
    Reading ColorSwitch(FieldText& fields) { return Switch(fields, table_.colWidthSwitch); }
    Reading PolySwitch(FieldText& fields) { return Switch(fields, table_.polWidthSwitch); }
    Reading LineSwitch(FieldText& fields) { return Switch(fields, table_.widWidthSwitch); }

  private:
    static Reading Switch(FieldText& fields, std::int32_t& value);

    bool defaultTypes_ = true;
    bool defaultRange_ = true;
};

constexpr Keyword<LineReader> kKeywords[] = {
    {"LINE-TYPE ", &LineReader::LineType},
    {"LINE_TYPE ", &LineReader::LineType},
    {"WIDTH ", &LineReader::PolyWidth},
    {"LINE-WIDTH ", &LineReader::LineWidth},
    {"LINE_WIDTH ", &LineReader::LineWidth},
    {"COLOR ", &LineReader::Color},
    {"COLWIDTH-SWITCH ", &LineReader::ColorSwitch},
    {"COLWIDTH_SWITCH ", &LineReader::ColorSwitch},
    {"POLWIDTH-SWITCH ", &LineReader::PolySwitch},
    {"POLWIDTH_SWITCH ", &LineReader::PolySwitch},
    {"WIDWIDTH-SWITCH ", &LineReader::LineSwitch},
    {"WIDWIDTH_SWITCH ", &LineReader::LineSwitch},
};

void ClearLineTypes(DxfInLineTable& table) {
    table.lineTypeCount = 0;
    std::fill(std::begin(table.lineTypes), std::end(table.lineTypes), DxfInLineTable::LineType());
    // The writer goes by the names, not by the count.
    for (char(&name)[257] : table.lineTypeName) StoreText(name, "");
}

void AddLineType(DxfInLineTable& table, std::string_view name, std::int32_t font, std::int32_t weight) {
    table.lineTypes[table.lineTypeCount] = {font, weight, {0, 0}};
    StoreText(table.lineTypeName[table.lineTypeCount], name);
    ++table.lineTypeCount;
}

void AddRange(DxfInLineTable& table, double start, double end, std::int32_t weight) {
    table.polyWidths[table.polyWidthCount] = {start, end, 0.0};
    table.polyWidthWeight[table.polyWidthCount] = weight;
    ++table.polyWidthCount;
}

Reading LineReader::LineType(FieldText& fields) {
    const auto parts = fields.Cut("=,,");
    if (!parts) return Refuse(kLineTypeForm);
    const auto font = ReadInteger((*parts)[1], 1, kLargestFont);
    if (!font) return Refuse(kBadFont, kLargestFont);
    const auto weight = ReadInteger((*parts)[2], 1, kDxfInLargestWeight);
    if (!weight) return Refuse(kBadWeight, kDxfInLargestWeight);
    if (std::exchange(defaultTypes_, false)) ClearLineTypes(table_);
    if (table_.lineTypeCount >= kDxfInLineTypes) return Full(kLineTypesFull, kDxfInLineTypes);
    AddLineType(table_, (*parts)[0], *font, *weight);
    return Reading::kGoOn;
}

Reading LineReader::PolyWidth(FieldText& fields) {
    const auto parts = fields.Cut(",=,");
    if (!parts) return Refuse(kWidthForm);
    const auto start = ReadReal((*parts)[0], 0.0, kLargestWidth);
    const auto end = ReadReal((*parts)[1], 0.0, kLargestWidth);
    if (!start || !end) return Refuse(kBadWidth);
    if (*start > *end) return Refuse(kWidthOrder);
    const auto weight = ReadInteger((*parts)[2], 1, kDxfInLargestWeight);
    if (!weight) return Refuse(kBadWeight, kDxfInLargestWeight);
    if (std::exchange(defaultRange_, false)) table_.polyWidthCount = 0;
    if (table_.polyWidthCount >= kDxfInPolyWidths) return Full(kWidthsFull, kDxfInPolyWidths);
    AddRange(table_, *start, *end, *weight);
    table_.polWidthSwitch = 1;
    return Reading::kGoOn;
}

Reading LineReader::LineWidth(FieldText& fields) {
    const auto parts = fields.Cut("=,");
    if (!parts) return Refuse(kLineWidthForm);
    const auto width = ReadReal((*parts)[0]);
    const auto weight = ReadInteger((*parts)[1], 1, kDxfInLargestWeight);
    if (!width || !weight) return Refuse(kLineWidthForm);
    // Exactly: both numbers are the double next to the same decimal number.
    const auto* found = std::find(std::begin(kDxfInLineWidths), std::end(kDxfInLineWidths), *width);
    if (found == std::end(kDxfInLineWidths)) return Refuse(kLineWidthForm);
    table_.lineWidthWeight[found - std::begin(kDxfInLineWidths)] = *weight;
    table_.widWidthSwitch = 1;
    return Reading::kGoOn;
}

Reading LineReader::Color(FieldText& fields) {
    const auto parts = fields.Cut("=,");
    const auto color = ReadInteger(parts ? (*parts)[0] : fields.Rest(), 0, kDxfInWeightColors - 1);
    if (!color) return Refuse(kBadColor);
    // A record without "=" has no message of its own: its weight is missing.
    const auto weight = parts ? ReadInteger((*parts)[1], 1, kDxfInLargestWeight) : std::nullopt;
    if (!weight) return Refuse(kBadWeight, kDxfInLargestWeight);
    if (table_.colorWeightCount >= kDxfInWeightColors) return Full(kColorsFull, kDxfInWeightColors);
    table_.colorWeight[*color] = *weight;
    ++table_.colorWeightCount;
    table_.colWidthSwitch = 1;
    return Reading::kGoOn;
}

// Deliberately silent about other values.
Reading LineReader::Switch(FieldText& fields, std::int32_t& value) {
    const auto parts = fields.Cut(",");
    if (const auto given = parts ? ReadInteger((*parts)[0], 0, 1) : std::nullopt) value = *given;
    return Reading::kGoOn;
}

void SetDefaults(DxfInLineTable& table) {
    table = {};
    AddLineType(table, "CONTINUOUS", 1, 1);
    AddLineType(table, "DASHED", 2, 1);
    AddLineType(table, "CENTER", 3, 1);
    AddLineType(table, "PHANTOM", 4, 1);
    AddRange(table, 0.0, 999.0, 1);
    std::copy(std::begin(kDxfInLineWidths), std::end(kDxfInLineWidths), table.lineWidthValue);
    std::fill(std::begin(table.colorWeight), std::end(table.colorWeight), 1);
}

// A width without a weight takes that of the next wider one that has one, behind the last the largest of all.
void CompleteLineWidths(DxfInLineTable& table) {
    auto& weights = table.lineWidthWeight;
    std::int32_t next = *std::max_element(std::begin(weights), std::end(weights));
    for (auto weight = std::rbegin(weights); weight != std::rend(weights); ++weight) {
        if (*weight == 0) *weight = next;
        next = *weight;
    }
}

}  // namespace

void ParseDxfInLineTable(std::string_view file, DxfInLineTable& table, TableListing& listing) {
    SetDefaults(table);
    LineReader reader(table, listing);
    ReadRecords(file, kPiece, kKeywords, reader, listing);
    CompleteLineWidths(table);
}

std::string FormatDxfInLineTable(DxfInLineTable& table, const TableHeader& header) {
    TableWriter out(header, kPiece);
    out.Add("/ Convert Line Type to Line Font No.\n/\n");
    for (std::int32_t i = 0; i < kDxfInLineTypes; ++i) {
        const std::string_view name = SlotText(table.lineTypeName[i]);
        const DxfInLineTable::LineType& type = table.lineTypes[i];
        if (!name.empty()) out.Add("LINE-TYPE  %s = %d,%d\n", name, type.lineFont, type.lineWeight);
    }
    out.Add("/\n");
    for (std::int32_t i = 0; i < kDxfInLineWidthCount; ++i) {
        table.lineWidthWeight[i] = std::max(table.lineWidthWeight[i], 1);
        out.Add("LINE-WIDTH  %4.2f = %d\n", kDxfInLineWidths[i], table.lineWidthWeight[i]);
    }
    if (table.polyWidthCount > 0) out.Add("/\n/ Convert Polyline Width to Line Weight No.\n");
    for (std::int32_t i = 0; i < std::min(table.polyWidthCount, kDxfInPolyWidths); ++i) {
        const DxfInLineTable::WidthRange& range = table.polyWidths[i];
        out.Add("WIDTH  %g, %g = %d\n", range.widthStart, range.widthEnd, table.polyWidthWeight[i]);
    }
    if (table.colWidthSwitch) {
        out.Add("/\n/ Convert Color to Line Weight No.\n");
        for (std::int32_t color = 1; color <= 255; ++color)
            out.Add("COLOR  %d = %d\n", color, table.colorWeight[color]);
    }
    out.Add("/\n");
    out.Add("POLWIDTH-SWITCH  %d\n", table.polWidthSwitch);
    out.Add("COLWIDTH-SWITCH  %d\n", table.colWidthSwitch);
    out.Add("WIDWIDTH-SWITCH  %d\n", table.widWidthSwitch);
    return std::move(out).Finish();
}
