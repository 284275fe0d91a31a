// Line types to line fonts; line widths, polyline widths and colours to line weights. Names are code page 932.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "tables/TableListing.h"
#include "tables/TableWriter.h"

inline constexpr std::int32_t kDxfInLineTypes = 256;
inline constexpr std::int32_t kDxfInLargestWeight = 16;
// The longest name, in bytes, whose record is read as it was written.
inline constexpr std::size_t kDxfInLongestLineType = 107;
inline constexpr std::int32_t kDxfInPolyWidths = 50;
inline constexpr std::int32_t kDxfInWeightColors = 257;  // 0 to 256

// What DXF knows as line widths, in millimetres.
inline constexpr double kDxfInLineWidths[] = {0.00, 0.05, 0.09, 0.13, 0.15, 0.18, 0.20, 0.25, 0.30, 0.35, 0.40, 0.50,
                                              0.53, 0.60, 0.70, 0.80, 0.90, 1.00, 1.06, 1.20, 1.40, 1.58, 2.00, 2.11};
inline constexpr std::int32_t kDxfInLineWidthCount = 24;
static_assert(sizeof kDxfInLineWidths == kDxfInLineWidthCount * sizeof(double));

struct DxfInLineTable {
    struct LineType {
        std::int32_t lineFont;    // 1 to 63
        std::int32_t lineWeight;  // 1 to 16
        std::int32_t reserved[2];
    };
    struct WidthRange {
        double widthStart;
        double widthEnd;
        double reserved;
    };
    std::int32_t lineTypeCount;
    LineType lineTypes[kDxfInLineTypes];
    char lineTypeName[kDxfInLineTypes][257];
    std::int32_t polWidthSwitch;  // 1: polyline widths become line weights
    std::int32_t polyWidthCount;
    std::int32_t polyWidthWeight[kDxfInPolyWidths];
    WidthRange polyWidths[kDxfInPolyWidths];
    std::int32_t widWidthSwitch;  // 1: line widths become line weights
    double lineWidthValue[kDxfInLineWidthCount];
    std::int32_t lineWidthWeight[kDxfInLineWidthCount];  // 0: none, in a table without LINE-WIDTH records
    std::int32_t colWidthSwitch;                         // 1: colours become line weights
    std::int32_t colorWeightCount;                       // COLOR records that were read
    std::int32_t colorWeight[kDxfInWeightColors];
};

// Sets the defaults and reads the bytes of the file over them. A file that is missing is an empty one.
void ParseDxfInLineTable(std::string_view file, DxfInLineTable& table, TableListing& listing);

// Raises the weights of line widths below 1 to 1, in the table too.
std::string FormatDxfInLineTable(DxfInLineTable& table, const TableHeader& header);
