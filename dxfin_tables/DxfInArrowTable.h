// Arrow heads to marks. Names are code page 932.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "tables/TableListing.h"
#include "tables/TableWriter.h"

inline constexpr std::int32_t kDxfInArrows = 256;
// The longest name, in bytes, with which all records are read as they were written: every name is padded to it.
inline constexpr std::size_t kDxfInLongestArrow = 51;

struct DxfInArrowTable {
    struct Arrow {
        std::int32_t arrowMark;   // 1 to 4095; of the default arrows also what a refused record said
        std::int32_t arrowAngle;  // 0 or 180
        std::int32_t arrowSize;
        std::int32_t reserved[5];
    };
    std::int32_t arrowCount;
    Arrow arrows[kDxfInArrows];
    char arrowName[kDxfInArrows][257];
};

// Sets the defaults and reads the bytes of the file over them. A file that is missing is an empty one.
void ParseDxfInArrowTable(std::string_view file, DxfInArrowTable& table, TableListing& listing);

std::string FormatDxfInArrowTable(const DxfInArrowTable& table, const TableHeader& header);
