#include "drawing/UseReader.h"

#include <algorithm>
#include <charconv>
#include <iterator>

#include "text/SlotText.h"

namespace drawing {

namespace {

constexpr int kSubclassCode = 100, kFirstExtendedCode = 1000, kApplicationCode = 1001;
constexpr int kDimensionStyleCode = 3, kMultileaderArrowCode = 342;
constexpr std::string_view kStandard = "STANDARD", kContinuous = "CONTINUOUS";
constexpr std::string_view kByLayer = "BYLAYER", kByBlock = "BYBLOCK";

// Texts that need not say their style.
constexpr std::string_view kTexts[] = {"TEXT", "MTEXT", "ATTRIB", "ATTDEF"};

int NumberOf(std::string_view text) {
    int number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

// Handles are numbers: letter case and leading zeros do not count.
std::string HandleKey(std::string_view handle) {
    handle.remove_prefix(std::min(handle.find_first_not_of('0'), handle.size()));
    return FoldedName(handle);
}

}  // namespace

Result UseReader::Read(ByteSource& source) {
    if (const Result error = pairs_.Open(source)) return error;
    while (pairs_.Next()) {
        if (pairs_.Code() != 0) {
            TakePair();
            continue;
        }
        EndRecord();
        if (const Result error = BeginRecord()) return error;
    }
    EndRecord();
    return pairs_.Error() ? pairs_.Error() : section_ == Section::kOutside ? kDone : kCutOff;
}

// ---- Records ----

Result UseReader::BeginRecord() {
    const std::string_view type = pairs_.Text();
    record_ = Record::kNone;
    if (type == "SECTION" || type == "ENDSEC") {
        if ((type == "SECTION") != (section_ == Section::kOutside)) return kBroken;
        section_ = type == "SECTION" ? Section::kUnnamed : Section::kOutside;
    } else if (section_ == Section::kOutside) {
        return kNoDrawing;
    } else if (section_ == Section::kTables) {
        record_ = type == "LAYER"          ? Record::kLayer
                  : type == "DIMSTYLE"     ? Record::kDimensionStyle
                  : type == "BLOCK_RECORD" ? Record::kBlock
                                           : Record::kNone;
        name_.clear();
        handle_.clear();
        lineType_ = kContinuous;
        use_.own = {};
    } else if (section_ == Section::kEntities || section_ == Section::kBlocks) {
        BeginItem(type);
    }
    return kDone;
}

void UseReader::BeginItem(std::string_view type) {
    if (type == "VERTEX" || type == "SEQEND" || type == "BLOCK" || type == "ENDBLK") return;
    record_ = Record::kItem;
    layer_ = "0";
    lineType_.clear();
    textStyle_.clear();
    common_ = true;
    inStyle_ = false;
    overridden_ = -1;
    hasText_ = std::find(std::begin(kTexts), std::end(kTexts), type) != std::end(kTexts);
    multileader_ = type == "MULTILEADER" || type == "MLEADER";
    dimension_ = type.ends_with("DIMENSION") || type == "LEADER";
    if (dimension_) use_ = {std::string(kStandard), type == "LEADER", {}};
}

void UseReader::TakePair() {
    const int code = pairs_.Code();
    if (record_ == Record::kItem) return TakeItemPair(code);
    const std::string_view text = pairs_.Text();
    switch (section_) {
        case Section::kUnnamed:
            if (code == 2)
                section_ = text == "HEADER"     ? Section::kHeader
                           : text == "TABLES"   ? Section::kTables
                           : text == "BLOCKS"   ? Section::kBlocks
                           : text == "ENTITIES" ? Section::kEntities
                                                : Section::kOther;
            break;
        case Section::kHeader:
            characters_.Take(code, text);
            break;
        case Section::kTables:
            if (record_ != Record::kNone) TakeTablePair(code, text);
            break;
        case Section::kBlocks:
        case Section::kEntities:
        case Section::kOutside:
        case Section::kOther:
            break;
    }
}

void UseReader::TakeTablePair(int code, std::string_view text) {
    if (code == 2)
        name_ = text;
    else if (record_ == Record::kLayer && code == 6)
        lineType_ = text;
    else if (record_ == Record::kBlock && code == 5)
        handle_ = text;
    else if (record_ == Record::kDimensionStyle)
        use_.own.Take(code, text);
}

// In drawings without subclass markers all pairs are taken for common ones.
void UseReader::TakeItemPair(int code) {
    switch (code) {
        case 8:
            if (common_) layer_ = pairs_.Text();
            break;
        case 6:
            if (common_) lineType_ = pairs_.Text();
            break;
        case 7:
            textStyle_ = pairs_.Text();
            break;
        case kSubclassCode:
            common_ = pairs_.Text() == "AcDbEntity";
            break;
        case kDimensionStyleCode:
            if (dimension_ && !pairs_.Text().empty()) use_.style = pairs_.Text();
            break;
        case kMultileaderArrowCode:
            if (multileader_) ++arrowHandles_[pairs_.Text()];
            break;
        default:
            if (dimension_ && code >= kFirstExtendedCode) TakeOverride(code, pairs_.Text());
    }
}

// 1001 ACAD, 1000 DSTYLE, 1002 {, then pairs of the style's group code (1070) and a value of any kind, 1002 }.
void UseReader::TakeOverride(int code, std::string_view text) {
    if (code == kApplicationCode || code == 1002) {
        if (code == kApplicationCode || text == "}") inStyle_ = false;
        overridden_ = -1;
    } else if (!inStyle_) {
        inStyle_ = code == 1000 && text == "DSTYLE";
    } else if (overridden_ < 0) {
        overridden_ = NumberOf(text);
    } else {
        use_.own.Take(overridden_, text);
        overridden_ = -1;
    }
}

void UseReader::Arrows::Take(int code, std::string_view text) {
    constexpr int kFirstHandle = 341;  // those before had names
    std::string* const arrow = code == 5 || code == 342   ? &both
                               : code == 6 || code == 343 ? &first
                               : code == 7 || code == 344 ? &second
                               : code == kFirstHandle     ? &leader
                                                          : nullptr;
    if (arrow) *arrow = code >= kFirstHandle ? "#" + HandleKey(text) : std::string(text);
    if (code == 173) apart = NumberOf(text);
}

void UseReader::EndRecord() {
    switch (record_) {
        case Record::kLayer:
            layerLineTypes_[KeyOf(name_)] = lineType_;
            break;
        case Record::kDimensionStyle:
            dimensionStyles_[KeyOf(name_)] = use_.own;
            break;
        case Record::kBlock:
            // Blocks without a name of their own are no arrow heads, and there may be very many.
            if (!name_.starts_with('*')) blocks_[HandleKey(handle_)] = name_;
            break;
        case Record::kItem:
            EndItem();
            break;
        case Record::kNone:
            break;
    }
    record_ = Record::kNone;
}

void UseReader::EndItem() {
    LayerUse& layer = layers_[layer_];
    ++layer.items;
    if (lineType_.empty() || (lineType_.size() == kByLayer.size() && FoldedName(lineType_) == kByLayer))
        ++layer.lineTypes;
    else
        ++lineTypes_[lineType_];
    if (hasText_ && textStyle_.empty()) textStyle_ = kStandard;
    if (!textStyle_.empty()) ++textStyles_[textStyle_];
    if (dimension_) ++arrowUses_[use_];
}

// ---- What comes of them ----

std::string UseReader::BlockOf(const std::string& arrow) const {
    if (!arrow.starts_with('#')) return arrow;
    const auto block = blocks_.find(arrow.substr(1));
    return block == blocks_.end() ? "" : block->second;
}

void UseReader::AddArrows(const ArrowUse& use, std::size_t count, NameCounts<>& blocks) const {
    Arrows arrows = use.own;
    if (const auto style = dimensionStyles_.find(KeyOf(use.style)); style != dimensionStyles_.end()) {
        const Arrows& its = style->second;
        for (std::string Arrows::*arrow : {&Arrows::both, &Arrows::first, &Arrows::second, &Arrows::leader})
            if ((arrows.*arrow).empty()) arrows.*arrow = its.*arrow;
        if (arrows.apart < 0) arrows.apart = its.apart;
    }
    if (use.leader) {
        // Leaders have had a head of their own since there are handles in styles.
        const bool named = !arrows.both.starts_with('#');
        blocks[BlockOf(arrows.leader.empty() && named ? arrows.both : arrows.leader)] += count;
    } else if (arrows.apart <= 0) {
        blocks[BlockOf(arrows.both)] += count;
    } else {
        const std::string first = BlockOf(arrows.first), second = BlockOf(arrows.second);
        blocks[first] += count;
        if (second != first) blocks[second] += count;
    }
}

std::string UseReader::Converted(const std::string& name) const {
    if (conversion_.ofOlder && !characters_.IsUtf8()) return conversion_.ofOlder(name);
    return characters_.IsJapanese() ? name : conversion_.ofUtf8(characters_.ToUtf8(name));
}

std::string UseReader::KeyOf(const std::string& name) const { return FoldedName(Converted(name)); }

void UseReader::AddTo(UsedNames& names) const {
    const auto add = [&](NameKind kind, const std::string& name, std::size_t count) {
        if (!name.empty() && count > 0) names.Add(kind, Converted(name), count);
    };
    for (const auto& [name, use] : layers_) {
        add(NameKind::kLayer, name, use.items);
        const auto layer = layerLineTypes_.find(KeyOf(name));
        add(NameKind::kLineType, layer == layerLineTypes_.end() ? std::string(kContinuous) : layer->second,
            use.lineTypes);
    }
    for (const auto& [name, count] : lineTypes_)
        if (KeyOf(name) != kByBlock) add(NameKind::kLineType, name, count);
    for (const auto& [name, count] : textStyles_) add(NameKind::kTextStyle, name, count);
    NameCounts<> arrows;
    for (const auto& [use, count] : arrowUses_) AddArrows(use, count, arrows);
    for (const auto& [handle, count] : arrowHandles_) arrows[BlockOf("#" + HandleKey(handle))] += count;
    for (const auto& [name, count] : arrows) add(NameKind::kArrow, name, count);
}

}  // namespace drawing
