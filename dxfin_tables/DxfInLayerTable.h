// Layers to classes or revisions, colours to classes and revisions. Names are code page 932.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "tables/TableListing.h"
#include "tables/TableWriter.h"

inline constexpr std::int32_t kDxfInLayerSlots = 2048;  // "OTHER" and the named layers
inline constexpr std::int32_t kDxfInColors = 257;       // 0 to 256

// The longest names, in bytes, whose records are read as they were written.
inline constexpr std::size_t kDxfInLongestClassLayer = 68;
inline constexpr std::size_t kDxfInLongestRevisionLayer = 58;

// About a megabyte: never on the stack.
struct DxfInLayerTable {
    std::int32_t noFileRead;   // not 0: the file is not to be read
    char fileName[260];        // base name of the file
    std::int32_t layerSwitch;  // 0: layers become classes, 1: revisions
    std::int32_t reserved[3];
    // Entry 0 is "OTHER" and is not counted: every layer that is not named.
    std::int32_t layerClassCount;
    std::int32_t layerClass[kDxfInLayerSlots];
    char layerClassName[kDxfInLayerSlots][257];
    std::int32_t layerRevisionCount;
    std::int32_t layerRevision[kDxfInLayerSlots];
    char layerRevisionName[kDxfInLayerSlots][257];
    std::int32_t colorClass[kDxfInColors];
    std::int32_t colorRevision[kDxfInColors];
    std::int32_t colorRgb[kDxfInColors][3];  // red, green, blue, 0 to 255
};

// One of the two lists.
struct DxfInLayerList {
    std::int32_t& count;
    std::int32_t (&numbers)[kDxfInLayerSlots];
    char (&names)[kDxfInLayerSlots][257];
};
inline DxfInLayerList ClassesOf(DxfInLayerTable& table) {
    return {table.layerClassCount, table.layerClass, table.layerClassName};
}
inline DxfInLayerList RevisionsOf(DxfInLayerTable& table) {
    return {table.layerRevisionCount, table.layerRevision, table.layerRevisionName};
}

// How the host says what a colour looks like.
using DxfInColorSource = void (*)(int color, std::int16_t* red, std::int16_t* green, std::int16_t* blue);

// Sets the defaults (all but noFileRead and fileName) and reads the bytes of the file over them. A file that is missing
// or is not to be read is an empty one.
void ParseDxfInLayerTable(std::string_view file, DxfInLayerTable& table, TableListing& listing,
                          DxfInColorSource colors);

std::string FormatDxfInLayerTable(const DxfInLayerTable& table, const TableHeader& header);
