// Text fonts to text styles. Names are code page 932.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "tables/TableListing.h"
#include "tables/TableWriter.h"

inline constexpr std::int32_t kDxfOutStyles = 20;

// The styles that have a use.
enum DxfOutStyleIndex : std::int32_t { kStyleStandard, kStyleBigFont, kStyleTStandard, kStyleTBigFont };

struct DxfOutStyleTable {
    // The values of a STYLE record in the file's order.
    struct Style {
        char styleName[64];
        double f1;             // character width factor, alphanumerics
        std::int16_t f2;       // direction: 2 vertical
        double f3;             // character width factor, kanji
        std::int16_t f4;       // not written
        std::int16_t f5;       // not written
        char fontFile[64];     // f6
        char bigFontFile[64];  // f7; may be empty where the style is no big font
        double f8;             // character drawing factor, alphanumerics
        double f9;             // character drawing factor, kanji

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

// ---- What the file gives back as it was written ----
//
// - the four styles that have a use, under their own names. Another name takes the place of the style before it, so
//   only the first can have one;
// - f1 from 0 on, f3, f8 and f9 above 0, all with six digits; f2 as 2 or 0; twoToOne;
// - of a pair alphanumerics from the style and kanji from its big font: what the other one says is replaced;
// - fontFile, and bigFontFile of a big font, when they are not empty; neither with blanks or commas;
// - all this when the record is no longer than the reader looks at. Its end is lost otherwise.

inline constexpr std::size_t kDxfOutLongestStyle = 72;  // bytes of a record behind its keyword

std::size_t DxfOutStyleBytes(const DxfOutStyleTable::Style& style);  // of the style's record

std::string_view DxfOutStyleName(std::int32_t style);  // the own name of a style that has a use
inline constexpr bool IsDxfOutBigFont(std::int32_t style) { return style == kStyleBigFont || style == kStyleTBigFont; }
// The other one of its pair.
inline constexpr std::int32_t DxfOutStylePartner(std::int32_t style) {
    return IsDxfOutBigFont(style) ? style - 1 : style + 1;
}
