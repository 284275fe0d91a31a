#include <algorithm>

#include "TableKind.h"
#include "dxfout_tables/DxfOutArrowTable.h"
#include "dxfout_tables/DxfOutLayerTable.h"
#include "dxfout_tables/DxfOutLineTable.h"
#include "dxfout_tables/DxfOutStyleTable.h"
#include "entry/host/kirodxf.h"
#include "text/SlotText.h"
#include "tools/cli/Text.h"

namespace kirotable {

namespace {

template <std::size_t N>
Value Name(const char (&slot)[N]) {
    return cli::FromCp932(SlotText(slot));
}

// Number 0 is no layer of its own: it was spread over the others while they were read.
template <std::size_t N>
Section Layers(std::string_view number, std::string_view name, const char (&names)[kDxfOutLayers][N]) {
    Section layers = {name, {number, name}};
    for (std::int32_t i = 1; i < kDxfOutLayers; ++i) layers.rows.push_back({i, Name(names[i])});
    return layers;
}

TableView ViewLayer(const DxfOutLayerTable& table) {
    Section colors = {"colorMap", {"color", "colorMap"}};
    for (std::int32_t i = 0; i < kDxfOutColors; ++i) colors.rows.push_back({i, table.colorMap[i]});
    return {{{"pictureOff", table.pictureOff},
             {"layerControl", table.layerControl},
             {"spareSlot", table.spareSlot},
             {"classControl", table.classControl}},
            {},
            {Layers("picture", "pictureLayer", table.pictureLayer), Layers("class", "classLayer", table.classLayer),
             Layers("revision", "revisionLayer", table.revisionLayer), colors}};
}

void ParseLine(std::string_view bytes, const ReadOptions&, DxfOutLineTable& table, TableListing& listing,
               ListingSink& unknown) {
    ParseDxfOutLineTable(bytes, table, listing, unknown);
}

TableView ViewLine(const DxfOutLineTable& table) {
    Section fonts = {"fontLineType", {"font", "fontLineType"}};
    for (std::int32_t i = 0; i < kDxfOutFonts; ++i) fonts.rows.push_back({i + 1, Name(table.fontLineType[i])});
    Section widths = {"lineWidth", {"weight", "lineWidth"}};
    for (std::int32_t i = 0; i <= kDxfOutWeights; ++i) widths.rows.push_back({i, table.lineWidth[i]});
    Section weights = {"weightWidth", {"weight", "weightWidth", "weightColor"}};
    for (std::int32_t i = 0; i < kDxfOutWeights; ++i)
        weights.rows.push_back({i + 1, table.weightWidth[i], table.weightColor[i]});
    Section patterns = {"patterns", {"patternName", "patternComment", "pitch"}};
    for (std::int32_t i = 0; i < table.patternCount; ++i) {
        const DxfOutLineTable::Pattern& pattern = table.patterns[i];
        const std::vector<Value> pitch(pattern.pitch, pattern.pitch + pattern.pitchCount);
        patterns.rows.push_back({Name(pattern.patternName), Name(pattern.patternComment), Value(pitch)});
    }
    Section fontPatterns = {"fontPattern", {"font", "fontPattern"}, 1, {}, true};
    for (std::int32_t i = 0; i < std::min(table.fontCount, kDxfOutFonts); ++i)
        fontPatterns.rows.push_back({i + 1, table.fontPattern[i]});
    return {{{"widthType", table.widthType}},
            {{"fontCount", table.fontCount}, {"patternCount", table.patternCount}},
            {fonts, widths, weights, patterns, fontPatterns}};
}

void ParseStyle(std::string_view bytes, const ReadOptions& options, DxfOutStyleTable& table, TableListing& listing,
                ListingSink&) {
    ParseDxfOutStyleTable(bytes, table, listing, options.gx3 ? 0 : 1);
}

TableView ViewStyle(const DxfOutStyleTable& table) {
    Section styles = {"styles", {"styleName", "f1", "f2", "f3", "f4", "f5", "fontFile", "bigFontFile", "f8", "f9"}};
    for (const DxfOutStyleTable::Style& style : table.styles) {
        if (style.styleName[0] == '\0') continue;
        styles.rows.push_back({Name(style.styleName), style.f1, style.f2, style.f3, style.f4, style.f5,
                               Name(style.fontFile), Name(style.bigFontFile), style.f8, style.f9});
    }
    return {{{"twoToOne", table.twoToOne}}, {}, {styles}};
}

void ParseArrow(std::string_view bytes, const ReadOptions&, DxfOutArrowTable& table, TableListing& listing,
                ListingSink&) {
    ParseDxfOutArrowTable(bytes, table, listing, dxfotCheckArrow);
}

TableView ViewArrow(const DxfOutArrowTable& table) {
    Section arrows = {"arrows", {"mark", "angle", "arrowName"}};
    for (std::int32_t i = 0; i < table.arrowCount; ++i)
        arrows.rows.push_back({table.arrows[i].mark, table.arrows[i].angle, Name(table.arrows[i].arrowName)});
    return {{}, {{"arrowCount", table.arrowCount}}, {arrows}};
}

}  // namespace

std::unique_ptr<AnyTable> MakeDxfOutLayer() {
    return TableOf<DxfOutLayerTable, ParseDxfOutLayerTable, FormatDxfOutLayerTable, ViewLayer>::Make();
}
std::unique_ptr<AnyTable> MakeDxfOutLine() {
    return TableOf<DxfOutLineTable, ParseLine, FormatDxfOutLineTable, ViewLine>::Make();
}
std::unique_ptr<AnyTable> MakeDxfOutStyle() {
    return TableOf<DxfOutStyleTable, ParseStyle, FormatDxfOutStyleTable, ViewStyle>::Make();
}
std::unique_ptr<AnyTable> MakeDxfOutArrow() {
    return TableOf<DxfOutArrowTable, ParseArrow, FormatDxfOutArrowTable, ViewArrow>::Make();
}

}  // namespace kirotable
