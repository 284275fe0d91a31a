// Marks to arrow heads. Names are code page 932.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "tables/TableListing.h"
#include "tables/TableWriter.h"

inline constexpr std::int32_t kDxfOutArrows = 256;

struct DxfOutArrowTable {
    struct Arrow {
        std::int32_t mark;   // 1 to 4095
        std::int32_t angle;  // 0 or 180
        char arrowName[257];

        bool operator==(const Arrow&) const = default;
    };
    std::int32_t arrowCount;
    Arrow arrows[kDxfOutArrows];

    bool operator==(const DxfOutArrowTable&) const = default;
};

// Not 0: the host knows an arrow head of that name.
using DxfOutArrowCheck = int (*)(const char* name);

// Clears the table and reads the bytes of the file. Where there is no file the caller keeps the table as it was.
void ParseDxfOutArrowTable(std::string_view file, DxfOutArrowTable& table, TableListing& listing,
                           DxfOutArrowCheck checkArrow);

std::string FormatDxfOutArrowTable(const DxfOutArrowTable& table, const TableHeader& header);
