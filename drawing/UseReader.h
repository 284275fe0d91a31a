// One drawing's part of UsedNames: names as the drawing has them.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <unordered_map>

#include "drawing/CharacterSet.h"
#include "drawing/DrawingPairs.h"
#include "drawing/NameCounts.h"
#include "drawing/UsedNames.h"

namespace drawing {

class UseReader {
  public:
    explicit UseReader(const NameConversion& conversion) : conversion_(conversion) {}
    Result Read(ByteSource& source);
    void AddTo(UsedNames& names) const;

  private:
    enum class Section { kOutside, kUnnamed, kHeader, kTables, kBlocks, kEntities, kOther };
    enum class Record { kNone, kLayer, kDimensionStyle, kBlock, kItem };

    // What dimension styles say of arrow heads, and dimensions in their place: a block's name, or "#" and its handle.
    struct Arrows {
        std::string both, first, second, leader;
        int apart = -1;  // not 0: first and second count, and not both; -1: not said
        auto operator<=>(const Arrows&) const = default;
        void Take(int code, std::string_view text);
    };
    struct ArrowUse {
        std::string style;
        bool leader;
        Arrows own;
        auto operator<=>(const ArrowUse&) const = default;
    };
    struct LayerUse {
        std::size_t items = 0;
        std::size_t lineTypes = 0;  // items that have the layer's
    };

    Result BeginRecord();
    void BeginItem(std::string_view type);
    void TakePair();
    void TakeTablePair(int code, std::string_view text);
    void TakeItemPair(int code);
    void TakeOverride(int code, std::string_view text);
    void EndRecord();
    void EndItem();
    std::string Converted(const std::string& name) const;
    std::string KeyOf(const std::string& name) const;
    std::string BlockOf(const std::string& arrow) const;
    void AddArrows(const ArrowUse& use, std::size_t count, NameCounts<>& blocks) const;

    const NameConversion& conversion_;
    DrawingPairs pairs_{nullptr};  // no name is a real
    CharacterSet characters_;
    Section section_ = Section::kOutside;
    Record record_ = Record::kNone;

    // The record that is open.
    std::string name_, handle_;
    std::string layer_, lineType_, textStyle_;
    bool hasText_ = false;
    bool common_ = false;   // the pairs that all items have, before those of the item's own class
    bool inStyle_ = false;  // data of applications: what stands in the place of the dimension style's
    int overridden_ = -1;   // its group code, when the value comes next
    bool dimension_ = false;
    bool multileader_ = false;
    ArrowUse use_;

    NameCounts<LayerUse> layers_;
    NameCounts<> lineTypes_, textStyles_, arrowHandles_;
    std::map<ArrowUse, std::size_t> arrowUses_;
    std::unordered_map<std::string, std::string> layerLineTypes_;  // by the key of the layer
    std::unordered_map<std::string, Arrows> dimensionStyles_;      // by the key
    std::unordered_map<std::string, std::string> blocks_;          // by their records' handles
};

}  // namespace drawing
