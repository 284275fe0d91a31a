// What a model holds of drawings: their items in their order with all of their group pairs, and what the host knows
// them by: class, revision, colour, line font, line weight and picture. Texts have the encoding of the first drawing.
#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "hostlayer/kirobc/DrawingText.h"

namespace convert {

struct Pair {
    int code;
    std::string_view text;  // lives as long as the store
};

// Pairs that were added one after the other.
struct PairRun {
    std::uint32_t block = 0, offset = 0, count = 0;
};

// Group pairs in memory: four bytes and the text for each, so that a drawing takes about the room of its file.
class PairStore {
  public:
    PairRun Begin() const;
    void Add(PairRun& run, int code, std::string_view text);  // to the run that was begun last
    void CutAt(const PairRun& run);                           // what was added since that was begun

    class Cursor {
      public:
        Cursor(const PairStore& store, const PairRun& run) : store_(store), rest_(run) {}
        bool Next(Pair& pair);

      private:
        const PairStore& store_;
        PairRun rest_;
    };
    Cursor Read(const PairRun& run) const { return {*this, run}; }
    // The text of the first pair with that code; empty when there is none. The same as a number.
    std::string_view Find(const PairRun& run, int code) const;
    int FindInteger(const PairRun& run, int code) const;

  private:
    static constexpr std::size_t kBlock = 64 * 1024;
    std::deque<std::string> blocks_;  // each with its room from the start: what is in one never moves
};

inline constexpr int kNumbers = 257;                // classes, revisions and pictures: 1 to 256
inline constexpr int kFonts = 64;                   // line fonts: 1 to 63
inline constexpr int kWeights = 17;                 // line weights: 1 to 16
inline constexpr int kByBlock = 0, kByLayer = 256;  // as a colour

// Whose line type or line width an item has. kDefault: the width that lines have by default.
enum class From : std::uint8_t { kItem, kLayer, kBlock, kDefault };

struct Attributes {
    std::int32_t layer = 0;  // index
    std::int16_t itemClass = 1, revision = 1;
    std::int16_t color = kByLayer;  // 0 by block, 256 by layer
    std::uint8_t font = 1, weight = 1;
    From fontFrom = From::kLayer, weightFrom = From::kLayer;
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
    int itemClass = 0, revision = 0;  // 0: not assigned yet
};

struct LineType {
    std::string name, comment;
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
    std::size_t first = 0, count = 0;  // of the items
};

bool IsSpace(std::string_view block);  // the block of a space or a layout, by its name

struct Layout {
    std::vector<int> windows;  // the pictures that they show
};

// All but the items and the pairs.
struct ModelTables {
    Encoding encoding = Encoding::kSjis;
    int version = 0;  // as DxfOutParamBlock counts: 1 R13 ... 7 2013; 0 older, 8 newer
    PairRun header;
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

    const LineType* LineTypeOf(int font) const {  // null: none
        const int index = fontLineType[font];
        return index ? &lineTypes[static_cast<std::size_t>(index) - 1] : nullptr;
    }
};

struct ModelContent : ModelTables {
    PairStore store;
    std::deque<Item> items;  // of the blocks and of the drawings themselves, with their parts
};

inline constexpr std::size_t kHostPitches = 8;  // that a pattern of the host has: a drawn and a blank length in turn
std::vector<double> HostPitches(const LineType& type);

// What the host's user has made of a line font. Its line type follows, and with it the layers that have it; where
// another font has it too, the font gets one of its own. A pattern that is still HostPitches stays what it is.
void SetLineFont(ModelTables& tables, int font, const std::string& name, const std::vector<double>& pitches);

}  // namespace convert
