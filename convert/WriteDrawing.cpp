#include <algorithm>
#include <bit>
#include <new>
#include <set>

#include "convert/DrawingFrame.h"
#include "convert/EntityForms.h"
#include "entry/host/kirodxf.h"

namespace convert {

namespace {

constexpr int kSubclassCode = 100, kEmbeddedCode = 101, kGroupCode = 102, kFirstExtendedCode = 1000;
constexpr int kLayerCode = 1003, kHandleCode = 1005;  // in the data of applications

// Codes whose values are handles of other things.
bool IsLink(int code) {
    return (code >= 320 && code <= 369) || (code >= 390 && code <= 399) || code == 480 || code == 481;
}

// Of what all items have, the line type's scale and the visibility, which stay, and what the mapping says anew.
bool IsLeading(int code) {
    constexpr int kCodes[] = {5, 6, 8, 48, 60, 62, 67, 370, 410};
    return std::find(std::begin(kCodes), std::end(kCodes), code) != std::end(kCodes);
}

class Writer {
  public:
    Writer(const ModelContent& content, const Target& target, const ExportSettings& settings, ByteSink& sink,
           Summary& summary)
        : content_(content),
          target_(target),
          settings_(settings),
          summary_(summary),
          version_(settings.params.outputVersion),
          mapping_(content, settings, target.layout > 0, summary),
          out_(sink, settings.params.binaryFormat != 0),
          frame_(content, mapping_, version_, out_) {}
    int Write();

  private:
    // An item that is being written.
    struct Open {
        std::string_view type;
        const EntityForm* form;
        const Item& item;
        bool hasParts;
        double width = 0.0;  // of a polyline by the table; 0: its own
        bool data = false;   // behind the pairs that all items have
    };

    int Check() const;
    bool IsChosen(const Item& item) const;
    bool CanWrite(const Item& item, std::string_view type, const EntityForm* form);
    bool HasBlock(std::string_view name) const { return blockNames_.contains(Folded(name, content_.encoding)); }
    void PutBlocks();
    void PutItems(std::size_t first, std::size_t count, std::uint64_t owner, bool drawing);
    void PutHead(std::string_view type, std::uint64_t handle, std::uint64_t owner, const Item& item, bool paper);
    void PutItem(Open open);
    void PutMarked(Open& open);
    void PutUnmarked(Open& open);
    void PutMarker(Open& open, std::string_view marker);
    void PutData(Open& open, const Pair& pair, const Pair* next);
    void PutBehindMarker(const Open& open, const Pair& pair, const Pair* next);
    void PutExtended(const Pair& pair);
    void PutText(std::string_view type, int code, std::string_view text);
    void NoteValue(std::string_view type, int code) {
        summary_.Note(Fate::kValueNotWritten, std::string(type) + " " + std::to_string(code));
    }

    const ModelContent& content_;
    const Target& target_;
    const ExportSettings& settings_;
    Summary& summary_;
    int version_;
    ExportMapping mapping_;
    DxfWriter out_;
    DrawingFrame frame_;
    std::set<std::string> blockNames_;
    std::vector<std::pair<int, Pair>> sorted_;  // the pairs of an item by their subclass
};

int Writer::Write() {
    if (const int error = Check()) return error;
    for (const Block& block : content_.blocks) {
        mapping_.LayerOf(block.attributes, content_.modelPicture);
        if (!IsSpace(block.name)) blockNames_.insert(Folded(block.name, content_.encoding));
    }
    std::size_t chosen = 0;
    for (const Item& item : content_.items) {
        if (item.inBlock || IsChosen(item)) mapping_.LayerOf(item.attributes, item.picture);
        chosen += IsChosen(item);
    }
    if (chosen == 0) return kDxfNothing;
    const DxfOutParamBlock& params = settings_.params;
    if ((params.submodelExpand || params.compositeExpand || params.symbolExpand) && !blockNames_.empty())
        summary_.Note(Fate::kNotExpanded, "BLOCK", blockNames_.size());

    const std::size_t entries = content_.blocks.size() + content_.layers.size() + content_.lineTypes.size() +
                                content_.styles.size() + content_.dimensionStyles.size() + content_.applications.size();
    frame_.PutHeader(std::bit_ceil(0x1000 + 2 * content_.items.size() + 4 * entries));
    frame_.PutTables();
    PutBlocks();
    out_.Put({{0, "SECTION"}, {2, "ENTITIES"}});
    PutItems(0, content_.items.size(), 0, true);
    out_.Put(0, "ENDSEC");
    frame_.PutObjects();
    return out_.Finish() ? 0 : kDxfCannotWrite;
}

int Writer::Check() const {
    if (version_ < kFirstVersion || version_ > kLastVersion) return kDxfNotThatVersion;
    if (target_.layout > 0) return target_.layout <= static_cast<int>(content_.layouts.size()) ? 0 : kDxfNoLayout;
    const bool known = target_.picture > 0 && target_.picture < kNumbers && content_.pictures[target_.picture] > 0.0;
    return known ? 0 : kDxfNoPicture;
}

bool Writer::IsChosen(const Item& item) const {
    if (item.inBlock) return false;
    if (target_.layout <= 0) return item.picture == target_.picture;
    const std::vector<int>& windows = content_.layouts[static_cast<std::size_t>(target_.layout) - 1].windows;
    return item.picture == -target_.layout || std::find(windows.begin(), windows.end(), item.picture) != windows.end();
}

void Writer::PutBlocks() {
    out_.Put({{0, "SECTION"}, {2, "BLOCKS"}});
    for (const int space : {DrawingFrame::kModelSpace, DrawingFrame::kPaperSpace}) {
        frame_.BeginBlock(space, space == DrawingFrame::kModelSpace ? "*Model_Space" : "*Paper_Space", "0", nullptr);
        frame_.EndBlock(space, "0");
    }
    for (std::size_t i = 0; i < content_.blocks.size(); ++i) {
        const Block& block = content_.blocks[i];
        if (IsSpace(block.name)) {
            if (block.count > 0) summary_.Note(Fate::kOtherLayout, block.name, block.count);
            continue;
        }
        const std::string layer = mapping_.LayerOf(block.attributes, content_.modelPicture);  // blocks are part of it
        const int index = static_cast<int>(i);
        frame_.BeginBlock(index, mapping_.Name(block.name), layer, &block.pairs);
        PutItems(block.first, block.count, frame_.RecordOf(index), false);
        frame_.EndBlock(index, layer);
        ++summary_.blocks;
    }
    out_.Put(0, "ENDSEC");
}

// ---- Items with their parts ----

bool Writer::CanWrite(const Item& item, std::string_view type, const EntityForm* form) {
    const bool isPart = type == "VERTEX" || type == "ATTRIB" || type == "SEQEND";
    if (settings_.params.hiddenSkip && item.hidden) {
        summary_.Note(Fate::kHiddenLeftOut, std::string(type));
    } else if (type == "VIEWPORT" && !item.paper && content_.store.FindInteger(item.pairs, 69) == 1) {
        summary_.Note(Fate::kMadeAnew, std::string(type));  // the paper space itself, in which there is nothing
    } else if (!form || form->firstVersion > version_ || isPart || (type == "VIEWPORT" && !item.paper)) {
        summary_.Note(Fate::kTypeNotWritten, std::string(type));
    } else if (type == "INSERT" && !HasBlock(content_.store.Find(item.pairs, 2))) {
        mapping_.Note(Fate::kNoSuchBlock, content_.store.Find(item.pairs, 2));
    } else {
        return true;
    }
    return false;
}

// Of the drawing itself (owner 0) those that are chosen, each in its space.
void Writer::PutItems(std::size_t first, std::size_t count, std::uint64_t owner, bool drawing) {
    const std::size_t end = first + count;
    for (std::size_t i = first, next = first; i < end; i = next) {
        const Item& item = content_.items[i];
        for (next = i + 1; next < end && content_.items[next].part;) ++next;
        if (drawing && !IsChosen(item)) continue;
        const std::string_view type = content_.store.Find(item.pairs, 0);
        const EntityForm* const form = FormOf(type);
        if (!CanWrite(item, type, form)) continue;
        const bool paper = drawing && item.paper && target_.layout > 0;
        const int space = paper ? DrawingFrame::kPaperSpace : DrawingFrame::kModelSpace;
        const std::uint64_t handle = frame_.NewHandle();
        const bool hasParts = next > i + 1 || type == "POLYLINE";
        bool ended = !hasParts;
        PutHead(type, handle, drawing ? frame_.RecordOf(space) : owner, item, paper);
        PutItem({type, form, item, hasParts});
        for (std::size_t part = i + 1; part < next; ++part) {
            const Item& inner = content_.items[part];
            const std::string_view innerType = content_.store.Find(inner.pairs, 0);
            PutHead(innerType, frame_.NewHandle(), handle, inner, paper);
            PutItem({innerType, FormOf(innerType), inner, false});
            ended |= innerType == "SEQEND";
        }
        if (!ended) PutHead("SEQEND", frame_.NewHandle(), handle, item, paper);
        ++summary_.items;
    }
}

void Writer::PutHead(std::string_view type, std::uint64_t handle, std::uint64_t owner, const Item& item, bool paper) {
    const Attributes& attributes = item.attributes;
    out_.Put(0, type);
    out_.PutHandle(5, handle);
    out_.PutHandle(330, owner);
    out_.Put(kSubclassCode, "AcDbEntity");
    if (paper) out_.Put(67, "1");
    out_.Put(8, mapping_.LayerOf(attributes, item.picture));
    if (const std::string* lineType = mapping_.LineTypeOf(attributes)) out_.Put(6, *lineType);
    if (const std::optional<int> color = mapping_.ColorOf(attributes)) out_.PutNumber(62, *color);
    const bool line = type.ends_with("POLYLINE") || type == "VERTEX" || type == "SEQEND";
    if (const std::optional<int> width = mapping_.WidthOf(attributes, line)) out_.PutNumber(370, *width);
}

void Writer::PutItem(Open open) {
    if (open.type.ends_with("POLYLINE") || open.type == "VERTEX")
        open.width = mapping_.PolyWidthOf(open.item.attributes);
    open.item.markers ? PutMarked(open) : PutUnmarked(open);
}

void Writer::PutMarked(Open& open) {
    bool inGroup = false, embedded = false;
    auto cursor = content_.store.Read(open.item.pairs);
    Pair pair, next;
    cursor.Next(next);  // the type
    for (bool more = cursor.Next(next); more;) {
        pair = next;
        more = cursor.Next(next);
        if (inGroup || (pair.code == kGroupCode && pair.text.starts_with("{"))) {
            inGroup = pair.code != kGroupCode || pair.text != "}";
        } else if (pair.code >= kFirstExtendedCode) {
            PutExtended(pair);
        } else if (embedded || pair.code == kEmbeddedCode) {
            if (!embedded) NoteValue(open.type, kEmbeddedCode);
            embedded = true;
        } else if (pair.code == kSubclassCode) {
            if (pair.text != "AcDbEntity") PutMarker(open, pair.text);
        } else {
            PutData(open, pair, more ? &next : nullptr);
        }
    }
}

// Each subclass with its pairs in their order, behind those that all items have and before those of applications.
void Writer::PutUnmarked(Open& open) {
    constexpr int kLeading = -1, kExtended = 3;
    const PairRun& pairs = open.item.pairs;
    SubclassForm subclasses[3];
    std::copy(std::begin(open.form->subclasses), std::end(open.form->subclasses), subclasses);
    const bool array = content_.store.FindInteger(pairs, 70) > 1 || content_.store.FindInteger(pairs, 71) > 1;
    SubclassesByFlags(open.type, open.type == "INSERT" ? array : content_.store.FindInteger(pairs, 70), subclasses);
    sorted_.clear();
    auto cursor = content_.store.Read(pairs);
    Pair pair;
    for (cursor.Next(pair); cursor.Next(pair);)
        sorted_.emplace_back(pair.code >= kFirstExtendedCode ? kExtended
                             : IsLeading(pair.code)          ? kLeading
                                                             : SubclassOf(subclasses, pair.code),
                             pair);
    for (int part = kLeading; part <= kExtended; ++part) {
        const bool isClass = part > kLeading && part < kExtended;
        if (isClass && !subclasses[part].marker) continue;
        if (isClass) PutMarker(open, subclasses[part].marker);
        for (const auto& [place, one] : sorted_)
            if (place == part) part == kExtended ? PutExtended(one) : PutData(open, one, nullptr);
    }
}

// ---- Pairs ----

void Writer::PutMarker(Open& open, std::string_view marker) {
    out_.Put(kSubclassCode, marker);
    if (!open.data && open.hasParts) out_.Put(66, "1");
    open.data = true;
}

void Writer::PutData(Open& open, const Pair& pair, const Pair* next) {
    const auto [code, text] = pair;
    if (open.data) return PutBehindMarker(open, pair, next);
    const bool trueColor = code >= 420 && code <= 449;
    const bool stays = trueColor && version_ >= kVersion2004 && !mapping_.ColorsByTable();
    if (code == 48 || code == 60 || stays) return PutText(open.type, code, text);
    if (trueColor) NoteValue(open.type, code);
    // The others are written anew, or are caches and housekeeping.
}

void Writer::PutBehindMarker(const Open& open, const Pair& pair, const Pair* next) {
    const auto [code, text] = pair;
    const std::string_view type = open.type;
    const bool hatch = type == "HATCH", insert = type == "INSERT", dimension = type == "DIMENSION";
    if (IsLink(code)) {
        if (!hatch && text != "0") summary_.Note(Fate::kLinkNotWritten, std::string(type));
    } else if (FirstVersionOf(type, code) > version_ || (code == 38 && !open.item.markers)) {
        if (text != "0" && text != "0.0") NoteValue(type, code);
    } else if (code == 66 && (insert || type.ends_with("POLYLINE"))) {
        return;
    } else if (hatch && code == 97 && next && next->code == 330) {
        summary_.Note(Fate::kLinkNotWritten, std::string(type));
        out_.Put(97, "0");
    } else if (hatch && code == 71) {
        out_.Put(71, "0");  // no longer tied to its boundary
    } else if (code == 2 && (insert || dimension)) {
        if (insert || HasBlock(text)) out_.Put(code, mapping_.Name(text));
    } else if (code == 7 || (code == 3 && (dimension || type == "LEADER" || type == "TOLERANCE"))) {
        out_.Put(code, mapping_.Name(text));
    } else if (open.width == 0.0) {
        PutText(type, code, text);
    } else if (code != 40 && code != 41 && code != 43) {
        PutText(type, code, text);
        if (code == 70 && type == "LWPOLYLINE") out_.PutReal(43, open.width);
        if (code == 30 && type == "POLYLINE") out_.PutReal(40, open.width), out_.PutReal(41, open.width);
    }
}

// The data of applications. What links to other things in it would link to something else now.
void Writer::PutExtended(const Pair& pair) {
    const bool link = pair.code == kLayerCode || pair.code == kHandleCode;
    if (link && pair.text != "0") summary_.Note(Fate::kLinkNotWritten, std::to_string(pair.code));
    PutText("", pair.code, link ? std::string_view("0") : pair.text);
}

void Writer::PutText(std::string_view type, int code, std::string_view text) {
    const bool plain = IsAscii(text) && text.find('\\') == text.npos;
    if (!out_.Put(code, plain ? text : std::string_view(mapping_.Text(text)))) NoteValue(type, code);
}

}  // namespace

int WriteDrawing(const ModelContent& content, const Target& target, const ExportSettings& settings, ByteSink& sink,
                 Summary& summary) try {
    return Writer(content, target, settings, sink, summary).Write();
} catch (const std::bad_alloc&) {
    return kDxfNoMemory;
}

}  // namespace convert
