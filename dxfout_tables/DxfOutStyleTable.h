// Text fonts to text styles. Names are code page 932.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "tables/TableListing.h"
#include "tables/TableWriter.h"

inline constexpr std::int32_t kDxfOutStyles = 20;

// The styles that have a use.
enum DxfOutStyleIndex : std::int32_t { kStyleStandard, kStyleBigFont, kStyleTStandard, kStyleTBigFont };

struct DxfOutStyleTable {
    // The values of a STYLE record in the file's order; what they mean is the host's affair.
    struct Style {
        char styleName[64];
        double f1;
        std::int16_t f2;
        double f3;
        std::int16_t f4;       // not written
        std::int16_t f5;       // not written
        char fontFile[64];     // f6
        char bigFontFile[64];  // f7; may be empty
        double f8;
        double f9;

        bool operator==(const Style&) const = default;
    };
    std::int32_t twoToOne;  // 0 off, 1 on
    Style styles[kDxfOutStyles];

    bool operator==(const DxfOutStyleTable&) const = default;
};

// Sets the defaults for an output version (0: GX-3) and reads the bytes of the file over them. A file that is missing
// is an empty one.
void ParseDxfOutStyleTable(std::string_view file, DxfOutStyleTable& table, TableListing& listing,
                           std::int32_t outputVersion);

std::string FormatDxfOutStyleTable(const DxfOutStyleTable& table, const TableHeader& header);
