// Text styles to text fonts. Names are code page 932.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "tables/TableListing.h"
#include "tables/TableWriter.h"

inline constexpr std::int32_t kDxfInStyles = 256;

// Positions in styleInts and styleReals; the others are not used.
enum DxfInStyleInt : std::int32_t {
    kStyleI0 = 0,  // not in the file
    kStyleI1 = 1,  // direction: 0 horizontal, 2 vertical
    kStyleI2 = 2,
    kStyleI3 = 3,
};
enum DxfInStyleReal : std::int32_t {
    kStyleR1 = 1,  // character width factor, kanji
    kStyleR2 = 2,  // character width factor, alphanumerics
    kStyleR3 = 3,  // line spacing factor plus 1.0
    kStyleR4 = 4,
    kStyleR5 = 5,  // character drawing factor, kanji
    kStyleR6 = 6,  // character drawing factor, alphanumerics
};

struct DxfInStyleValues {
    std::int32_t ints[8];
    double reals[8];
};
// Of a style that nothing is known of. (I0 is not 0 in the default styles.)
inline constexpr DxfInStyleValues kDxfInNewStyle = {{0, 0, 1, 1}, {0, 1.1875, 1.0, 1.4, 0.2, 0.95, 0.75}};

// The longest name, in bytes, whose record is read as it was written, when the factors R1, R2, R3, R5 and R6 are what
// the editor takes (0.1 to 10) and R4 is 0 or not below 1e-99. With any values that the reader takes it is 28: a real
// number may need 12 characters.
inline constexpr std::size_t kDxfInLongestStyle = 45;

struct DxfInStyleTable {
    std::int32_t oneToTwo;     // 0 off, 1 on
    std::int32_t twoToOne;     // 0 off, 1 on
    std::int32_t dimTwoToOne;  // 0 off, 1 on
    std::int32_t styleCount;
    std::int32_t styleInts[kDxfInStyles][8];
    char styleName[kDxfInStyles][129];
    double styleReals[kDxfInStyles][8];
    // From the SPACE, FONT and TEXT_SPACE records, which are read and not written. 0: not given.
    double spaceVertical;
    double spaceHorizontal;
    std::int32_t font;
    double fontFactor;
    double textSpace;
};

// Sets the defaults and reads the bytes of the file over them. A file that is missing is an empty one.
void ParseDxfInStyleTable(std::string_view file, DxfInStyleTable& table, TableListing& listing);

std::string FormatDxfInStyleTable(const DxfInStyleTable& table, const TableHeader& header);
