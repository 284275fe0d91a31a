#include "convert/ReadDrawing.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <new>
#include <unordered_map>

#include "drawing/DrawingPairs.h"
#include "text/Numbers.h"

namespace convert {

namespace {

constexpr int kSubclassCode = 100, kFirstExtendedCode = 1000, kApplicationCode = 1001;

constexpr const char* kVersions[] = {"AC1012", "AC1014", "AC1015", "AC1018", "AC1021", "AC1024", "AC1027"};
constexpr int kFirstUtf8 = 5, kNewer = 8;

int VersionOf(std::string_view code) {
    const auto* found = std::find(std::begin(kVersions), std::end(kVersions), code);
    if (found != std::end(kVersions)) return 1 + static_cast<int>(found - kVersions);
    return code > kVersions[std::size(kVersions) - 1] ? kNewer : 0;
}

int Integer(std::string_view text) { return ReadInteger(text).value_or(0); }
double Real(std::string_view text) { return ReadReal(text).value_or(0.0); }

// Names in the order in which they came, found again without regard to case.
template <class Named>
class Names {
  public:
    Names(std::vector<Named>& list, const Encoding& encoding) : list_(list), encoding_(encoding) {}

    // Adds what is not there yet.
    int IndexOf(std::string_view name) {
        if (last_ >= 0 && list_[static_cast<std::size_t>(last_)].name == name) return last_;
        const auto [row, isNew] = rows_.emplace(Folded(name, encoding_), static_cast<int>(list_.size()));
        if (isNew) list_.emplace_back().name = name;
        return last_ = row->second;
    }
    Named& operator[](std::string_view name) { return list_[static_cast<std::size_t>(IndexOf(name))]; }

  private:
    std::vector<Named>& list_;
    const Encoding& encoding_;
    std::unordered_map<std::string, int> rows_;
    int last_ = -1;
};

class Reader {
  public:
    Reader(const ImportSettings& settings, ModelContent& content, Summary& summary)
        : settings_(settings), content_(content), summary_(summary), mapping_(settings, content, summary) {}
    Result Read(ByteSource& source);

  private:
    enum class Section { kOutside, kHeader, kTables, kBlocks, kEntities, kOther };
    enum class Kind { kNone, kHeader, kLayer, kLineType, kEntry, kBlock, kItem, kSkipped };

    Result BeginRecord();
    Result EndRecord();
    void TakePair();
    void TakeHeader();
    void TakeDrawn(int code, std::string_view text);
    void BeginSection(std::string_view name);
    void BeginItem(std::string_view type);
    void BeginDrawn();
    void EndItem();
    void EndLayer();
    void EndLineType();
    void PlacePictures();

    const ImportSettings& settings_;
    ModelContent& content_;
    Summary& summary_;
    ImportMapping mapping_;
    drawing::DrawingPairs pairs_;
    Names<Layer> layers_{content_.layers, content_.encoding};
    Names<LineType> lineTypes_{content_.lineTypes, content_.encoding};
    Names<Entry> styles_{content_.styles, content_.encoding};
    Names<Entry> dimensionStyles_{content_.dimensionStyles, content_.encoding};
    Names<Entry> applications_{content_.applications, content_.encoding};

    Section section_ = Section::kOutside;
    Kind kind_ = Kind::kNone;
    Names<Entry>* table_ = nullptr;
    std::string headerName_;
    PairRun run_;
    Item item_;
    Drawn drawn_;
    bool common_ = false;    // the pairs that all items have, before those of the item's own class
    bool extended_ = false;  // the data of applications, behind all others
    bool inBlock_ = false;
    bool sawViews_ = false;
    bool ownerIsHidden_ = false;
    char parts_ = 0;          // the item that is open takes: 'V' vertices, 'A' attributes
    bool dimension_ = false;  // its code 3 names a style
    std::string name_;        // of an entry or a block
};

Result Reader::Read(ByteSource& source) {
    if (const Result error = pairs_.Open(source)) return error;
    content_.encoding = settings_.params.kanjiCode ? Encoding::kEuc : Encoding::kSjis;
    layers_.IndexOf("0");
    while (pairs_.Next()) {
        if (pairs_.Code() != 0) {
            TakePair();
            continue;
        }
        if (const Result error = EndRecord()) return error;
        if (const Result error = BeginRecord()) return error;
    }
    if (pairs_.Error()) return pairs_.Error();
    if (section_ != Section::kOutside) return kCutOff;
    mapping_.AssignLayers();
    PlacePictures();
    return kDone;
}

// ---- Records ----

Result Reader::BeginRecord() {
    const std::string_view type = pairs_.Text();
    kind_ = Kind::kNone;
    name_.clear();
    run_ = content_.store.Begin();
    if (type == "SECTION" || type == "ENDSEC") {
        if (inBlock_ || (type == "SECTION") != (section_ == Section::kOutside)) return kBroken;
        section_ = type == "SECTION" ? Section::kOther : Section::kOutside;
        kind_ = type == "SECTION" ? Kind::kHeader : Kind::kNone;
        return kDone;
    }
    switch (section_) {
        case Section::kOutside:
            return kNoDrawing;
        case Section::kHeader:
            return kBroken;
        case Section::kTables:
            table_ = type == "STYLE"      ? &styles_
                     : type == "DIMSTYLE" ? &dimensionStyles_
                     : type == "APPID"    ? &applications_
                                          : nullptr;
            kind_ = type == "LAYER" ? Kind::kLayer : type == "LTYPE" ? Kind::kLineType : Kind::kSkipped;
            if (table_) kind_ = Kind::kEntry;
            if (type == "TABLE" || type == "ENDTAB") kind_ = Kind::kNone;
            break;
        case Section::kBlocks:
            if (type == "BLOCK" || type == "ENDBLK") {
                if (inBlock_ == (type == "BLOCK")) return kBroken;
                inBlock_ = !inBlock_;
                // Those of the spaces stand for what is in another section.
                if (!inBlock_ && content_.blocks.back().count == 0 && IsSpace(content_.blocks.back().name))
                    content_.blocks.pop_back();
                kind_ = inBlock_ ? Kind::kBlock : Kind::kNone;
                parts_ = 0;
                BeginDrawn();
                return kDone;
            }
            if (!inBlock_) return kBroken;
            BeginItem(type);
            break;
        case Section::kEntities:
            BeginItem(type);
            break;
        case Section::kOther:
            kind_ = Kind::kSkipped;
            break;
    }
    if (kind_ == Kind::kSkipped) summary_.Note(Fate::kMadeAnew, std::string(type));
    return kDone;
}

void Reader::BeginItem(std::string_view type) {
    kind_ = Kind::kItem;
    BeginDrawn();
    item_.part =
        (type == "VERTEX" && parts_ == 'V') || (type == "ATTRIB" && parts_ == 'A') || (type == "SEQEND" && parts_ != 0);
    if (!item_.part) parts_ = type == "POLYLINE" ? 'V' : type == "INSERT" ? 'A' : '\0';
    if (type == "SEQEND") parts_ = 0;
    dimension_ = type == "DIMENSION" || type == "LEADER" || type == "TOLERANCE";
    content_.store.Add(run_, 0, type);
}

void Reader::BeginDrawn() {
    item_ = {};
    drawn_ = {};
    common_ = true;
    extended_ = false;
}

void Reader::TakePair() {
    const int code = pairs_.Code();
    const std::string_view text = pairs_.Text();
    if (kind_ == Kind::kNone || kind_ == Kind::kSkipped) return;
    if (kind_ == Kind::kHeader && section_ == Section::kOther) {
        if (code == 2) BeginSection(text);
        return;
    }
    if (!pairs_.IsWhole()) summary_.Note(Fate::kTextCut, std::to_string(code));
    content_.store.Add(run_, code, text);
    if (kind_ == Kind::kHeader)
        TakeHeader();
    else if (kind_ == Kind::kItem || kind_ == Kind::kBlock)
        TakeDrawn(code, text);
    if (code == 2 && name_.empty()) name_ = text;
}

void Reader::BeginSection(std::string_view name) {
    section_ = name == "HEADER"     ? Section::kHeader
               : name == "TABLES"   ? Section::kTables
               : name == "BLOCKS"   ? Section::kBlocks
               : name == "ENTITIES" ? Section::kEntities
                                    : Section::kOther;
    if (section_ != Section::kHeader) kind_ = Kind::kNone;
}

void Reader::TakeHeader() {
    if (pairs_.Code() == 9) {
        headerName_ = pairs_.Text();
    } else if (headerName_ == "$ACADVER" && pairs_.Code() == 1) {
        content_.version = VersionOf(pairs_.Text());
        if (content_.version >= kFirstUtf8) content_.encoding = Encoding::kUtf8;
    }
}

// What of an item the host knows. In drawings without subclass markers all pairs are taken for common ones.
void Reader::TakeDrawn(int code, std::string_view text) {
    if (code >= kFirstExtendedCode) {
        extended_ = true;
        if (code == kApplicationCode) applications_.IndexOf(text);
        return;
    }
    if (code == kSubclassCode) {
        item_.markers = true;
        common_ = text == "AcDbEntity";
        return;
    }
    if (code == 7 || (code == 3 && dimension_)) {
        (code == 7 ? styles_ : dimensionStyles_).IndexOf(text);
    } else if ((code >= 40 && code <= 43) && (parts_ == 'V' || item_.markers)) {
        if (code != 42) drawn_.polyWidth = std::max(drawn_.polyWidth, Real(text));
    }
    if (!common_ || extended_) return;
    switch (code) {
        case 8:
            drawn_.layer = layers_.IndexOf(text);
            break;
        case 6: {
            const std::string folded = Folded(text, content_.encoding);
            drawn_.lineTypeFrom = folded == "BYLAYER" ? From::kLayer : folded == "BYBLOCK" ? From::kBlock : From::kItem;
            drawn_.lineType = drawn_.lineTypeFrom == From::kItem ? lineTypes_.IndexOf(text) : -1;
            break;
        }
        case 62: {
            const int color = Integer(text);
            drawn_.color = color >= 0 && color <= kByLayer ? color : kByLayer;
            break;
        }
        case 370:
            drawn_.lineWidth = std::clamp(Integer(text), -3, 10000);
            break;
        case 60:
            item_.hidden = Integer(text) != 0;
            break;
        case 67:
            item_.paper = Integer(text) != 0;
            break;
    }
}

Result Reader::EndRecord() {
    switch (kind_) {
        case Kind::kHeader:
            if (section_ == Section::kHeader) content_.header = run_;
            break;
        case Kind::kLayer:
            EndLayer();
            break;
        case Kind::kLineType:
            EndLineType();
            break;
        case Kind::kEntry:
            (*table_)[name_].pairs = run_;
            break;
        case Kind::kBlock:
            content_.blocks.push_back({name_, run_, mapping_.Map(drawn_), content_.items.size(), 0});
            break;
        case Kind::kItem:
            EndItem();
            break;
        case Kind::kNone:
        case Kind::kSkipped:
            break;
    }
    const int limit = settings_.params.maxItemCount;
    return limit > 0 && summary_.items > static_cast<std::size_t>(limit) ? kTooManyItems : kDone;
}

void Reader::EndItem() {
    const bool line = content_.store.Find(item_.pairs = run_, 0).ends_with("POLYLINE");
    if (!line) drawn_.polyWidth = 0.0;
    item_.attributes = mapping_.Map(drawn_);
    item_.hidden |= content_.layers[static_cast<std::size_t>(drawn_.layer)].IsHidden();
    if (item_.part) item_.hidden = ownerIsHidden_;
    ownerIsHidden_ = item_.hidden;
    if (item_.hidden && !settings_.params.convertHidden) {
        if (!item_.part) summary_.Note(Fate::kHiddenLeftOut, std::string(content_.store.Find(run_, 0)));
        return;
    }
    item_.inBlock = inBlock_;
    sawViews_ |= item_.paper && !inBlock_ && Integer(content_.store.Find(run_, 69)) != 1;
    if (!item_.part) ++summary_.items;
    content_.items.push_back(item_);
    if (inBlock_) ++content_.blocks.back().count;
}

// ---- Tables ----

void Reader::EndLayer() {
    Layer& layer = layers_[name_];
    auto cursor = content_.store.Read(run_);
    for (Pair pair; cursor.Next(pair) && pair.code < kFirstExtendedCode;) {
        if (pair.code == 62) {
            const int color = Integer(pair.text);
            layer.off = color < 0;
            layer.color = std::clamp(color < 0 ? -std::max(color, -255) : color, 1, 255);
        } else if (pair.code == 6) {
            layer.lineType = lineTypes_.IndexOf(pair.text);
        } else if (pair.code == 370) {
            layer.lineWidth = std::clamp(Integer(pair.text), -3, 10000);
        } else if (pair.code == 70) {
            layer.flags = Integer(pair.text) & 5;
        }
    }
}

void Reader::EndLineType() {
    LineType& type = lineTypes_[name_];
    auto cursor = content_.store.Read(run_);
    for (Pair pair; cursor.Next(pair) && pair.code < kFirstExtendedCode;) {
        if (pair.code == 3) type.comment = pair.text;
        if (pair.code == 49) type.pitches.push_back(Real(pair.text));
        if (pair.code == 74) type.plain &= Integer(pair.text) == 0;
    }
}

// ---- Pictures ----

// A positive picture at the scale 1 keeps the drawing's layout: the paper space goes to that picture, or by the
// parameters to the layout's own one, and the model space to the next. Otherwise all goes to one picture; of a drawing
// without a layout that is the model space.
void Reader::PlacePictures() {
    const int first = std::clamp(std::abs(settings_.pictureNumber), 1, kNumbers - 1);
    const bool layout = settings_.pictureNumber > 0 && settings_.scale == 1.0 && sawViews_;
    const bool own = settings_.params.paperSpaceTarget != 0;
    const int paper = !layout ? first : own ? -1 : first;
    const int model = layout && !own ? std::min(first + 1, kNumbers - 1) : first;
    for (Item& item : content_.items) {
        item.paper &= layout;
        item.picture = static_cast<std::int16_t>(item.paper ? paper : model);
    }
    content_.pictures[model] = settings_.scale;
    content_.modelPicture = model;
    if (layout) content_.layouts.push_back({own ? std::vector<int>{model} : std::vector<int>{paper, model}});
    if (layout && !own) content_.pictures[paper] = 1.0;
    summary_.blocks = content_.blocks.size();
}

}  // namespace

bool IsSpace(std::string_view block) {
    const std::string name = Folded(block, Encoding::kUtf8);
    return name.starts_with("*MODEL_SPACE") || name.starts_with("$MODEL_SPACE") || name.starts_with("*PAPER_SPACE") ||
           name.starts_with("$PAPER_SPACE");
}

Result ReadDrawing(ByteSource& source, const ImportSettings& settings, ModelContent& content, Summary& summary) {
    Result result = kNoMemory;
    try {
        content = {};
        result = Reader(settings, content, summary).Read(source);
    } catch (const std::bad_alloc&) {
    }
    if (result != kDone) content = {};
    return result;
}

}  // namespace convert
