// Line fonts to line types with their patterns; line weights to line widths or to colours and polyline widths. Names
// and comments are code page 932.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "tables/TableListing.h"
#include "tables/TableWriter.h"

inline constexpr std::int32_t kDxfOutFonts = 63;
inline constexpr std::int32_t kDxfOutFileFonts = 15;  // fontCount of a table that was read
inline constexpr std::int32_t kDxfOutWeights = 16;
inline constexpr std::int32_t kDxfOutPatterns = 256;
inline constexpr std::int32_t kDxfOutPitches = 20;  // of one pattern

// What the file gives back as it was written, in bytes: a name that LINE-FONT1 records have too; a name with the
// DxfOutPitchText of its pattern; a name with its comment. Blanks of a name and around a comment are lost.
inline constexpr std::size_t kDxfOutLongestLineType = 66;
inline constexpr std::size_t kDxfOutLongestPitches = 69;
inline constexpr std::size_t kDxfOutLongestComment = 115;

// 190 kilobytes: not on the stack.
struct DxfOutLineTable {
    struct Pattern {
        char patternName[257];
        char patternComment[257];
        std::int32_t pitchCount;
        double pitch[kDxfOutPitches];  // dash, gap, dash ..., none negative

        bool operator==(const Pattern&) const = default;
    };
    std::int32_t fontCount;                      // line fonts that have a fontPattern
    std::int32_t fontPattern[kDxfOutFonts];      // [font - 1]: number of the pattern from 1 on, 0: none
    char fontLineType[kDxfOutFonts][257];        // [font - 1]
    std::int32_t widthType;                      // 0: line weights become coloured wide polylines, 1: line widths
    std::int32_t lineWidth[kDxfOutWeights + 1];  // [weight], 0 too; hundredths of a millimetre
    double weightWidth[kDxfOutWeights];          // [weight - 1]
    std::int32_t weightColor[kDxfOutWeights];    // [weight - 1]; -1 to 256
    std::int32_t patternCount;
    Pattern patterns[kDxfOutPatterns];  // what is behind patternCount is cleared

    bool operator==(const DxfOutLineTable&) const = default;
};

// Sets the defaults and reads the bytes of the file over them. A file that is missing is an empty one. unknown takes
// what the program is to write to its standard output about lines with an unknown keyword, which are no errors.
void ParseDxfOutLineTable(std::string_view file, DxfOutLineTable& table, TableListing& listing, ListingSink& unknown);

// The pitches as the file has them, dashes positive and gaps negative; "" when there are none.
std::string DxfOutPitchText(const DxfOutLineTable::Pattern& pattern);

// Sets fontPattern for fontCount fonts. Of several patterns of one name the last counts.
void FindDxfOutFontPatterns(DxfOutLineTable& table);

std::string FormatDxfOutLineTable(const DxfOutLineTable& table, const TableHeader& header);
