// Pictures, classes and revisions to layers; colours to colours. Names are code page 932.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "tables/TableListing.h"
#include "tables/TableWriter.h"

inline constexpr std::int32_t kDxfOutLayers = 258;    // 0 to 257; 0 is what a file gives for all others
inline constexpr std::int32_t kDxfOutFrame = 257;     // the number of the drawing frame
inline constexpr std::int32_t kDxfOutColors = 257;    // 0 to 256
inline constexpr std::int32_t kDxfOutMaxColor = 255;  // of the drawing

// The longest names, in bytes, whose records are read as they were written. Those of revisions fill their field.
inline constexpr std::size_t kDxfOutLongestPictureLayer = 65;
inline constexpr std::size_t kDxfOutLongestClassLayer = 63;
inline constexpr std::size_t kDxfOutLongestRevisionLayer = 63;

// Values of pictureOff: what layers are made of when drawing pages are converted.
inline constexpr std::int32_t kPagesByPicture = 0;
inline constexpr std::int32_t kPagesByClass = kDxfOutFrame;
inline constexpr std::int32_t kPagesByRevision = -kDxfOutFrame;  // deliberately never read so: it comes back as 257

enum DxfOutLayerControl : std::int32_t { kLayerControlNone, kLayerControlClass, kLayerControlRevision };
enum DxfOutClassControl : std::int32_t { kClassControlNone, kClassControlComposite, kClassControlItem };

// 150 kilobytes: not on the stack.
struct DxfOutLayerTable {
    std::int32_t noFileRead;    // not 0: the file is not to be read
    char fileName[260];         // full path of the file
    std::int32_t pictureOff;    // drawing pages: 0, 257 or -257
    std::int32_t layerControl;  // pictures: DxfOutLayerControl
    std::int32_t spareSlot;     // 257
    std::int32_t classControl;  // items in composite items: DxfOutClassControl
    char pictureLayer[kDxfOutLayers][257];
    char classLayer[kDxfOutLayers][257];
    char revisionLayer[kDxfOutLayers][64];
    std::int32_t colorMap[kDxfOutColors];  // 0 to 255

    bool operator==(const DxfOutLayerTable&) const = default;
};

// Sets the defaults (all but noFileRead and fileName) and reads the bytes of the file over them. A file that is missing
// or is not to be read is an empty one.
void ParseDxfOutLayerTable(std::string_view file, DxfOutLayerTable& table, TableListing& listing);

std::string FormatDxfOutLayerTable(const DxfOutLayerTable& table, const TableHeader& header);
