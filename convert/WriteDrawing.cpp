#include "convert/WriteDrawing.h"

#include <algorithm>
#include <bit>
#include <new>
#include <set>

#include "convert/DrawingFrame.h"
#include "convert/EntityForms.h"
#include "text/Numbers.h"

namespace convert {

namespace {

constexpr int kSubclassCode = 100, kEmbeddedCode = 101, kGroupCode = 102, kFirstExtendedCode = 1000;

int Integer(std::string_view text) { return ReadInteger(text).value_or(0); }

// Codes whose values are handles of other things.
bool IsLink(int code) {
    return (code >= 320 && code <= 369) || (code >= 390 && code <= 399) || code == 480 || code == 481;
}

// What all items have and the mapping says anew, or what is a copy of it.
bool IsCommon(int code) {
    return code == 5 || code == 6 || code == 8 || code == 62 || code == 67 || code == 370 || code == 410;
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
    Result Write();

  private:
    // An item that is being written.
    struct Open {
        std::string_view type;
        const EntityForm* form;
        const Item& item;
        bool hasParts;
        bool data = false;  // behind the pairs that all items have
    };

    Result Check();
    bool IsChosen(const Item& item) const;
    bool CanWrite(const Item& item, std::string_view type, const EntityForm* form);
    void PutBlocks();
    void PutItems(std::size_t first, std::size_t count, std::uint64_t owner, bool drawing);
    void PutHead(std::string_view type, std::uint64_t handle, std::uint64_t owner, const Attributes& attributes,
                 int picture, bool paper);
    void PutItem(Open& open);
    void PutMarked(Open& open);
    void PutUnmarked(Open& open);
    void PutMarker(Open& open, std::string_view marker);
    void PutData(Open& open, const Pair& pair, const Pair* next);
    void PutExtended(const Pair& pair);
    void PutText(std::string_view type, int code, std::string_view text);

    const ModelContent& content_;
    const Target& target_;
    const ExportSettings& settings_;
    Summary& summary_;
    int version_;
    ExportMapping mapping_;
    PairOutput out_;
    DrawingFrame frame_;
    std::set<std::string> blockNames_;
    int modelPicture_ = 1;  // blocks count as part of it
};

Result Writer::Write() {
    if (const Result error = Check()) return error;
    modelPicture_ = content_.modelPicture;
    for (const Block& block : content_.blocks) {
        mapping_.LayerOf(block.attributes, modelPicture_);
        if (!IsSpace(block.name)) blockNames_.insert(Folded(block.name, content_.encoding));
    }
    std::size_t chosen = 0;
    for (const Item& item : content_.items) {
        if (item.inBlock || IsChosen(item)) mapping_.LayerOf(item.attributes, item.picture);
        chosen += IsChosen(item);
    }
    if (chosen == 0) return kNothing;
    if (settings_.params.submodelExpand || settings_.params.compositeExpand || settings_.params.symbolExpand)
        if (!blockNames_.empty()) summary_.Note(Fate::kNotExpanded, "BLOCK", blockNames_.size());

    const std::size_t entries = content_.blocks.size() + content_.layers.size() + content_.lineTypes.size() +
                                content_.styles.size() + content_.dimensionStyles.size() + content_.applications.size();
    frame_.PutHeader(std::bit_ceil(0x1000 + 2 * content_.items.size() + 4 * entries));
    frame_.PutTables();
    PutBlocks();
    out_.Put(0, "SECTION");
    out_.Put(2, "ENTITIES");
    PutItems(0, content_.items.size(), 0, true);
    out_.Put(0, "ENDSEC");
    frame_.PutObjects();
    return out_.Finish() ? kDone : kCannotWrite;
}

Result Writer::Check() {
    if (version_ < kFirstVersion || version_ > kLastVersion) return kVersionNotWritten;
    if (target_.layout > 0)
        return static_cast<std::size_t>(target_.layout) <= content_.layouts.size() ? kDone : kNoLayout;
    return target_.picture > 0 && target_.picture < kNumbers && content_.pictures[target_.picture] > 0 ? kDone
                                                                                                       : kNoPicture;
}

bool Writer::IsChosen(const Item& item) const {
    if (item.inBlock) return false;
    if (target_.layout <= 0) return item.picture == target_.picture;
    const std::vector<int>& windows = content_.layouts[static_cast<std::size_t>(target_.layout) - 1].windows;
    return item.picture == -target_.layout || std::find(windows.begin(), windows.end(), item.picture) != windows.end();
}

void Writer::PutBlocks() {
    out_.Put(0, "SECTION");
    out_.Put(2, "BLOCKS");
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
        const std::string layer = mapping_.LayerOf(block.attributes, modelPicture_);
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
    } else if (type == "VIEWPORT" && !item.paper && Integer(content_.store.Find(item.pairs, 69)) == 1) {
        summary_.Note(Fate::kMadeAnew, std::string(type));  // the paper space itself, in which there is nothing
    } else if (!form || form->firstVersion > version_ || isPart || (type == "VIEWPORT" && !item.paper)) {
        summary_.Note(Fate::kTypeNotWritten, std::string(type));
    } else if (type == "INSERT" &&
               !blockNames_.contains(Folded(content_.store.Find(item.pairs, 2), content_.encoding))) {
        mapping_.Note(Fate::kNoSuchBlock, content_.store.Find(item.pairs, 2));
    } else {
        return true;
    }
    return false;
}

// Of the drawing itself (owner 0) those that are chosen, each in its space.
void Writer::PutItems(std::size_t first, std::size_t count, std::uint64_t owner, bool drawing) {
    const std::size_t end = first + count;
    for (std::size_t i = first; i < end;) {
        const Item& item = content_.items[i];
        std::size_t next = i + 1;
        while (next < end && content_.items[next].part) ++next;
        const std::string_view type = content_.store.Find(item.pairs, 0);
        const EntityForm* const form = FormOf(type);
        if ((!drawing || IsChosen(item)) && CanWrite(item, type, form)) {
            const bool paper = drawing && item.paper && target_.layout > 0;
            const int space = paper ? DrawingFrame::kPaperSpace : DrawingFrame::kModelSpace;
            const std::uint64_t handle = frame_.NewHandle();
            Open open = {type, form, item, next > i + 1 || type == "POLYLINE"};
            PutHead(type, handle, drawing ? frame_.RecordOf(space) : owner, item.attributes, item.picture, paper);
            PutItem(open);
            bool ended = !open.hasParts;
            for (std::size_t part = i + 1; part < next; ++part) {
                const Item& inner = content_.items[part];
                Open sub = {content_.store.Find(inner.pairs, 0), nullptr, inner, false};
                sub.form = FormOf(sub.type);
                PutHead(sub.type, frame_.NewHandle(), handle, inner.attributes, inner.picture, paper);
                PutItem(sub);
                ended |= sub.type == "SEQEND";
            }
            if (!ended) PutHead("SEQEND", frame_.NewHandle(), handle, item.attributes, item.picture, paper);
            ++summary_.items;
        }
        i = next;
    }
}

void Writer::PutHead(std::string_view type, std::uint64_t handle, std::uint64_t owner, const Attributes& attributes,
                     int picture, bool paper) {
    out_.Put(0, type);
    out_.PutHandle(5, handle);
    out_.PutHandle(330, owner);
    out_.Put(kSubclassCode, "AcDbEntity");
    if (paper) out_.Put(67, "1");
    out_.Put(8, std::string_view(mapping_.LayerOf(attributes, picture)));
    if (const std::string* lineType = mapping_.LineTypeOf(attributes)) out_.Put(6, std::string_view(*lineType));
    if (const std::optional<int> color = mapping_.ColorOf(attributes)) out_.Put(62, *color);
    const bool line = type.ends_with("POLYLINE") || type == "VERTEX" || type == "SEQEND";
    if (const std::optional<int> width = mapping_.WidthOf(attributes, line)) out_.Put(370, *width);
}

void Writer::PutItem(Open& open) {
    if (open.item.markers)
        PutMarked(open);
    else
        PutUnmarked(open);
}

void Writer::PutMarked(Open& open) {
    bool inGroup = false, embedded = false;
    auto cursor = content_.store.Read(open.item.pairs);
    Pair pair, next;
    cursor.Next(next);  // the type
    bool more = cursor.Next(next);
    while (more) {
        pair = next;
        more = cursor.Next(next);
        if (inGroup || (pair.code == kGroupCode && pair.text.starts_with("{"))) {
            inGroup = pair.code != kGroupCode || pair.text != "}";
        } else if (pair.code >= kFirstExtendedCode) {
            PutExtended(pair);
        } else if (embedded || pair.code == kEmbeddedCode) {
            if (!embedded) mapping_.Note(Fate::kValueNotWritten, std::string(open.type) + " 101");
            embedded = true;
        } else if (pair.code == kSubclassCode) {
            if (pair.text != "AcDbEntity") PutMarker(open, pair.text);
        } else {
            PutData(open, pair, more ? &next : nullptr);
        }
    }
}

void Writer::PutUnmarked(Open& open) {
    const PairRun& pairs = open.item.pairs;
    SubclassForm subclasses[3];
    std::copy(std::begin(open.form->subclasses), std::end(open.form->subclasses), subclasses);
    const bool array = Integer(content_.store.Find(pairs, 70)) > 1 || Integer(content_.store.Find(pairs, 71)) > 1;
    SubclassesByFlags(open.type, open.type == "INSERT" ? array : Integer(content_.store.Find(pairs, 70)), subclasses);
    const auto isOfAnother = [&](const SubclassForm& mine, int code) {
        return std::any_of(std::begin(subclasses), std::end(subclasses), [&](const SubclassForm& other) {
            return &other != &mine && other.marker && other.codes && HasCode(other.codes, code);
        });
    };
    const auto putAll = [&](auto wanted) {
        auto cursor = content_.store.Read(pairs);
        Pair pair;
        for (cursor.Next(pair); cursor.Next(pair);)
            if (wanted(pair.code)) pair.code >= kFirstExtendedCode ? PutExtended(pair) : PutData(open, pair, nullptr);
    };
    const auto isLeading = [](int code) { return code == 48 || code == 60 || IsCommon(code); };
    putAll([&](int code) { return isLeading(code); });
    for (const SubclassForm& subclass : subclasses) {
        if (!subclass.marker) break;
        PutMarker(open, subclass.marker);
        putAll([&](int code) {
            if (isLeading(code) || code >= kFirstExtendedCode) return false;
            return subclass.codes ? HasCode(subclass.codes, code) : !isOfAnother(subclass, code);
        });
    }
    putAll([](int code) { return code >= kFirstExtendedCode; });
}

// ---- Pairs ----

void Writer::PutMarker(Open& open, std::string_view marker) {
    out_.Put(kSubclassCode, marker);
    if (!open.data && open.hasParts) out_.Put(66, "1");
    open.data = true;
}

void Writer::PutData(Open& open, const Pair& pair, const Pair* next) {
    const auto [code, text] = pair;
    const std::string_view type = open.type;
    const bool hatch = type == "HATCH", polyline = type.ends_with("POLYLINE"), insert = type == "INSERT";
    const double width = polyline || type == "VERTEX" ? mapping_.PolyWidthOf(open.item.attributes) : 0.0;
    if (!open.data) {
        const bool trueColor = code >= 420 && code <= 449;
        if (code == 48 || code == 60) return PutText(type, code, text);
        if (trueColor && version_ >= kVersion2004 && !mapping_.ColorsByTable()) return PutText(type, code, text);
        if (trueColor) mapping_.Note(Fate::kValueNotWritten, std::string(type) + " " + std::to_string(code));
        return;  // the others are written anew, or are caches and housekeeping
    }
    if (IsLink(code)) {
        if (!hatch && text != "0") summary_.Note(Fate::kLinkNotWritten, std::string(type));
    } else if (FirstVersionOf(type, code) > version_ || (code == 38 && !open.item.markers)) {
        if (text != "0" && text != "0.0")
            summary_.Note(Fate::kValueNotWritten, std::string(type) + " " + std::to_string(code));
    } else if (code == 66 && (insert || polyline)) {
        return;
    } else if (hatch && code == 97 && next && next->code == 330) {
        summary_.Note(Fate::kLinkNotWritten, std::string(type));
        out_.Put(97, "0");
    } else if (hatch && code == 71) {
        out_.Put(71, "0");  // no longer tied to its boundary
    } else if ((code == 2 && (insert || type == "DIMENSION")) || code == 7 ||
               (code == 3 && (type == "DIMENSION" || type == "LEADER" || type == "TOLERANCE"))) {
        const bool block = code == 2 && !insert;
        if (!block || blockNames_.contains(Folded(text, content_.encoding)))
            out_.Put(code, std::string_view(mapping_.Name(text)));
    } else if (width > 0.0 && (code == 40 || code == 41 || code == 43)) {
        return;
    } else {
        PutText(type, code, text);
        if (width > 0.0 && code == 70 && type == "LWPOLYLINE") out_.PutReal(43, width);
        if (width > 0.0 && code == 30 && type == "POLYLINE") out_.PutReal(40, width), out_.PutReal(41, width);
    }
}

// The data of applications. What links to other things in it would link to something else now.
void Writer::PutExtended(const Pair& pair) {
    constexpr int kLayerCode = 1003, kHandleCode = 1005;
    const bool link = pair.code == kLayerCode || pair.code == kHandleCode;
    if (link && pair.text != "0") summary_.Note(Fate::kLinkNotWritten, std::to_string(pair.code));
    PutText("", pair.code, link ? std::string_view("0") : pair.text);
}

void Writer::PutText(std::string_view type, int code, std::string_view text) {
    const bool plain = IsAscii(text) && text.find('\\') == text.npos;
    if (plain ? out_.Put(code, text) : out_.Put(code, std::string_view(mapping_.Text(text)))) return;
    summary_.Note(Fate::kValueNotWritten, std::string(type) + " " + std::to_string(code));
}

}  // namespace

Result WriteDrawing(const ModelContent& content, const Target& target, const ExportSettings& settings, ByteSink& sink,
                    Summary& summary) {
    try {
        return Writer(content, target, settings, sink, summary).Write();
    } catch (const std::bad_alloc&) {
        return kNoMemory;
    }
}

}  // namespace convert
