// The conversion tables of both directions: how each is read and written, by its type.
#pragma once

#include <string>
#include <string_view>

#include "dxfin_tables/DxfInArrowTable.h"
#include "dxfin_tables/DxfInLayerTable.h"
#include "dxfin_tables/DxfInLineTable.h"
#include "dxfin_tables/DxfInStyleTable.h"
#include "dxfout_tables/DxfOutArrowTable.h"
#include "dxfout_tables/DxfOutLayerTable.h"
#include "dxfout_tables/DxfOutLineTable.h"
#include "dxfout_tables/DxfOutStyleTable.h"

inline constexpr TableHeader kHeader = {"C:\\表\\T", "2024/01/02 03:04:05"};

struct ListingText final : ListingSink {
    std::string text;
    void Write(std::string_view more) override { text += more; }
};

// What the host says of colours and of arrow heads.
inline void ColorOf(int color, std::int16_t* red, std::int16_t* green, std::int16_t* blue) {
    *red = static_cast<std::int16_t>(color % 256), *green = 20, *blue = 30;
}
inline int (*checkArrow)(const char*) = [](const char* name) { return name[0] == 'X' ? 0 : 7; };

inline ListingText unknown;             // what reading export lines has said of unknown keywords
inline std::int32_t outputVersion = 1;  // of the export styles

inline void Parse(std::string_view file, DxfInLayerTable& t, TableListing& l) {
    ParseDxfInLayerTable(file, t, l, ColorOf);
}
inline void Parse(std::string_view file, DxfInLineTable& t, TableListing& l) { ParseDxfInLineTable(file, t, l); }
inline void Parse(std::string_view file, DxfInStyleTable& t, TableListing& l) { ParseDxfInStyleTable(file, t, l); }
inline void Parse(std::string_view file, DxfInArrowTable& t, TableListing& l) { ParseDxfInArrowTable(file, t, l); }
inline void Parse(std::string_view file, DxfOutLayerTable& t, TableListing& l) { ParseDxfOutLayerTable(file, t, l); }
inline void Parse(std::string_view file, DxfOutLineTable& t, TableListing& l) {
    ParseDxfOutLineTable(file, t, l, unknown);
}
inline void Parse(std::string_view file, DxfOutStyleTable& t, TableListing& l) {
    ParseDxfOutStyleTable(file, t, l, outputVersion);
}
inline void Parse(std::string_view file, DxfOutArrowTable& t, TableListing& l) {
    ParseDxfOutArrowTable(file, t, l, checkArrow);
}
inline std::string Format(DxfInLayerTable& t, const TableHeader& h = kHeader) { return FormatDxfInLayerTable(t, h); }
inline std::string Format(DxfInLineTable& t, const TableHeader& h = kHeader) { return FormatDxfInLineTable(t, h); }
inline std::string Format(DxfInStyleTable& t, const TableHeader& h = kHeader) { return FormatDxfInStyleTable(t, h); }
inline std::string Format(DxfInArrowTable& t, const TableHeader& h = kHeader) { return FormatDxfInArrowTable(t, h); }
inline std::string Format(DxfOutLayerTable& t, const TableHeader& h = kHeader) { return FormatDxfOutLayerTable(t, h); }
inline std::string Format(DxfOutLineTable& t, const TableHeader& h = kHeader) { return FormatDxfOutLineTable(t, h); }
inline std::string Format(DxfOutStyleTable& t, const TableHeader& h = kHeader) { return FormatDxfOutStyleTable(t, h); }
inline std::string Format(DxfOutArrowTable& t, const TableHeader& h = kHeader) { return FormatDxfOutArrowTable(t, h); }
