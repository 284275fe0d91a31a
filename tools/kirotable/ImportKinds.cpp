#include "TableKind.h"
#include "dxfin_tables/DxfInArrowTable.h"
#include "dxfin_tables/DxfInLayerTable.h"
#include "dxfin_tables/DxfInLineTable.h"
#include "dxfin_tables/DxfInStyleTable.h"
#include "entry/host/kirodxf.h"
#include "text/SlotText.h"
#include "tools/cli/Text.h"

namespace kirotable {

namespace {

template <std::size_t N>
Value Name(const char (&slot)[N]) {
    return cli::FromCp932(SlotText(slot));
}

void ParseLayer(std::string_view bytes, const ReadOptions&, DxfInLayerTable& table, TableListing& listing,
                ListingSink&) {
    DxfSetColorRGB();
    ParseDxfInLayerTable(bytes, table, listing, DxfGetColorRGB);
}

TableView ViewLayer(const DxfInLayerTable& table) {
    Section classes = {"layerClass", {"layerClassName", "layerClass"}};
    for (std::int32_t i = 0; i <= table.layerClassCount; ++i)
        classes.rows.push_back({Name(table.layerClassName[i]), table.layerClass[i]});
    Section revisions = {"layerRevision", {"layerRevisionName", "layerRevision"}};
    for (std::int32_t i = 0; i <= table.layerRevisionCount; ++i)
        revisions.rows.push_back({Name(table.layerRevisionName[i]), table.layerRevision[i]});
    Section colors = {"color", {"color", "colorClass", "colorRevision", "colorRgb"}};
    for (std::int32_t i = 0; i < kDxfInColors; ++i) {
        const auto& rgb = table.colorRgb[i];
        colors.rows.push_back(
            {i, table.colorClass[i], table.colorRevision[i], Value(std::vector<Value>{rgb[0], rgb[1], rgb[2]})});
    }
    return {{{"layerSwitch", table.layerSwitch}},
            {{"layerClassCount", table.layerClassCount}, {"layerRevisionCount", table.layerRevisionCount}},
            {classes, revisions, colors}};
}

TableView ViewLine(const DxfInLineTable& table) {
    Section types = {"lineTypes", {"lineTypeName", "lineFont", "lineWeight"}};
    for (std::int32_t i = 0; i < table.lineTypeCount; ++i)
        types.rows.push_back({Name(table.lineTypeName[i]), table.lineTypes[i].lineFont, table.lineTypes[i].lineWeight});
    Section ranges = {"polyWidths", {"widthStart", "widthEnd", "polyWidthWeight"}, 2};
    for (std::int32_t i = 0; i < table.polyWidthCount; ++i)
        ranges.rows.push_back({table.polyWidths[i].widthStart, table.polyWidths[i].widthEnd, table.polyWidthWeight[i]});
    Section widths = {"lineWidthWeight", {"lineWidthValue", "lineWidthWeight"}};
    for (std::int32_t i = 0; i < kDxfInLineWidthCount; ++i)
        widths.rows.push_back({table.lineWidthValue[i], table.lineWidthWeight[i]});
    Section colors = {"colorWeight", {"color", "colorWeight"}};
    for (std::int32_t i = 0; i < kDxfInWeightColors; ++i) colors.rows.push_back({i, table.colorWeight[i]});
    return {{{"polWidthSwitch", table.polWidthSwitch},
             {"widWidthSwitch", table.widWidthSwitch},
             {"colWidthSwitch", table.colWidthSwitch}},
            {{"lineTypeCount", table.lineTypeCount},
             {"polyWidthCount", table.polyWidthCount},
             {"colorWeightCount", table.colorWeightCount}},
            {types, ranges, widths, colors}};
}

TableView ViewStyle(const DxfInStyleTable& table) {
    Section styles = {"styles", {"styleName", "I0", "I1", "I2", "I3", "R1", "R2", "R3", "R4", "R5", "R6"}};
    for (std::int32_t i = 0; i < table.styleCount; ++i) {
        std::vector<Value> row = {Name(table.styleName[i])};
        for (std::int32_t n = kStyleI0; n <= kStyleI3; ++n) row.push_back(table.styleInts[i][n]);
        for (std::int32_t r = kStyleR1; r <= kStyleR6; ++r) row.push_back(table.styleReals[i][r]);
        styles.rows.push_back(std::move(row));
    }
    return {{{"oneToTwo", table.oneToTwo},
             {"twoToOne", table.twoToOne},
             {"dimTwoToOne", table.dimTwoToOne},
             {"spaceVertical", table.spaceVertical},
             {"spaceHorizontal", table.spaceHorizontal},
             {"font", table.font},
             {"fontFactor", table.fontFactor},
             {"textSpace", table.textSpace}},
            {{"styleCount", table.styleCount}},
            {styles}};
}

TableView ViewArrow(const DxfInArrowTable& table) {
    Section arrows = {"arrows", {"arrowName", "arrowMark", "arrowAngle", "arrowSize"}};
    for (std::int32_t i = 0; i < table.arrowCount; ++i) {
        const DxfInArrowTable::Arrow& arrow = table.arrows[i];
        arrows.rows.push_back({Name(table.arrowName[i]), arrow.arrowMark, arrow.arrowAngle, arrow.arrowSize});
    }
    return {{}, {{"arrowCount", table.arrowCount}}, {arrows}};
}

}  // namespace

std::unique_ptr<AnyTable> MakeDxfInLayer() {
    return TableOf<DxfInLayerTable, ParseLayer, FormatDxfInLayerTable, ViewLayer>::Make();
}
std::unique_ptr<AnyTable> MakeDxfInLine() {
    return TableOf<DxfInLineTable, ParseDxfInLineTable, FormatDxfInLineTable, ViewLine>::Make();
}
std::unique_ptr<AnyTable> MakeDxfInStyle() {
    return TableOf<DxfInStyleTable, ParseDxfInStyleTable, FormatDxfInStyleTable, ViewStyle>::Make();
}
std::unique_ptr<AnyTable> MakeDxfInArrow() {
    return TableOf<DxfInArrowTable, ParseDxfInArrowTable, FormatDxfInArrowTable, ViewArrow>::Make();
}

}  // namespace kirotable
