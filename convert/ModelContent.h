// What a model holds of a drawing: its items in their order with all of their group pairs, and what the host knows them
// by: class, revision, colour, line font, line weight and picture. Texts have the drawing's own encoding.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "convert/Encoding.h"
#include "convert/PairStore.h"

namespace convert {

inline constexpr int kNumbers = 257;  // classes and revisions: 1 to 256
inline constexpr int kFonts = 64;     // line fonts: 1 to 63
inline constexpr int kWeights = 17;   // line weights: 1 to 16
inline constexpr int kByBlock = 0;
inline constexpr int kByLayer = 256;  // as a colour

// Whose line type or line width an item has. kDefault: the width that lines have by default.
enum class From : std::uint8_t { kItem, kLayer, kBlock, kDefault };

struct Attributes {
    std::int32_t layer = 0;  // index
    std::int16_t itemClass = 1;
    std::int16_t revision = 1;
    std::int16_t color = kByLayer;  // 0 by block, 256 by layer
    std::uint8_t font = 1;
    std::uint8_t weight = 1;
    From fontFrom = From::kLayer;
    From weightFrom = From::kLayer;
};

struct Item {
    PairRun pairs;  // the first one has code 0 and the type
    Attributes attributes;
    std::int16_t picture = 0;  // 1 to 256; -1: the own picture of layout 1
    bool paper = false;        // of the paper space
    bool hidden = false;
    bool inBlock = false;  // and not of the drawing itself
    bool part = false;     // of the item before: VERTEX, ATTRIB, SEQEND
    bool markers = false;  // has subclass markers, as all drawings but the oldest have them
};

struct Layer {
    std::string name;
    int color = 7;      // 1 to 255
    int lineType = -1;  // index; -1: none, a continuous line
    int lineWidth = -3;
    int flags = 0;  // as in the drawing: 1 frozen, 4 locked
    bool off = false;
    int itemClass = 0;  // 0: not assigned yet
    int revision = 0;
    bool IsHidden() const { return off || (flags & 1); }
};

struct LineType {
    std::string name;
    std::string comment;
    std::vector<double> pitches;  // as in the drawing: gaps are negative
    bool plain = true;            // without texts and shapes
};

// An entry of a table of which the host has no notion of its own.
struct Entry {
    std::string name;
    PairRun pairs;  // none: something names it, and the drawing does not say what it is
};

struct Block {
    std::string name;
    PairRun pairs;
    Attributes attributes;
    std::size_t first = 0;  // of the items
    std::size_t count = 0;
};

bool IsSpace(std::string_view block);  // the block of a space or a layout, by its name

struct Layout {
    std::vector<int> windows;  // the pictures that they show
};

struct ModelContent {
    Encoding encoding = Encoding::kSjis;
    int version = 0;  // as DxfOutParamBlock counts: 1 R13 ... 7 2013; 0 older, 8 newer
    PairStore store;
    PairRun header;
    std::deque<Item> items;  // of the blocks and of the drawing itself, with their parts
    std::vector<Block> blocks;
    std::vector<Layer> layers;  // 0: "0"
    std::vector<LineType> lineTypes;
    std::vector<Entry> styles, dimensionStyles, applications;
    double pictures[kNumbers] = {};  // the scales of those that are used; 0: it is not
    int modelPicture = 0;            // the one with the model space of the drawing read last
    std::vector<Layout> layouts;     // numbered from 1

    bool layersAreRevisions = false;
    std::string classNames[kNumbers], revisionNames[kNumbers];  // "": none
    int fontLineType[kFonts] = {};                              // index + 1; 0: the host's own line font
    int weightWidth[kWeights] = {};                             // hundredths of a millimetre + 1; 0: not known
};

}  // namespace convert
