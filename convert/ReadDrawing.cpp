#include <algorithm>
#include <cmath>
#include <new>
#include <optional>

#include "convert/ImportMapping.h"
#include "drawing/CharacterSet.h"
#include "drawing/DrawingPairs.h"
#include "entry/host/kirodxf.h"
#include "text/Numbers.h"

namespace convert {

namespace {

constexpr int kSubclassCode = 100, kFirstExtendedCode = 1000, kApplicationCode = 1001;
constexpr int kNewer = 8;
constexpr int kWidest = 10000;  // hundredths of a millimetre

int VersionOf(std::string_view code) {
    const auto* found = std::find(std::begin(kVersionCodes), std::end(kVersionCodes), code);
    if (found != std::end(kVersionCodes)) return static_cast<int>(found - kVersionCodes);
    return code > kVersionCodes[kLastVersion] ? kNewer : 0;
}

int Integer(std::string_view text) { return ReadInteger(text).value_or(0); }
double Real(std::string_view text) { return ReadReal(text).value_or(0.0); }

// Names in the order in which they came, found again without regard to case.
template <class Named>
class Names {
  public:
    Names(std::vector<Named>& list, const Encoding& encoding) : list_(list), encoding_(encoding) {
        for (const Named& named : list) rows_.emplace(Folded(named.name, encoding), old_++);
    }
    // Adds what is not there yet.
    int IndexOf(std::string_view name) {
        if (last_ >= 0 && list_[static_cast<std::size_t>(last_)].name == name) return last_;
        const auto [row, isNew] = rows_.emplace(Folded(name, encoding_), static_cast<int>(list_.size()));
        if (isNew) list_.emplace_back().name = name;
        return last_ = row->second;
    }
    // The one to be filled in by the drawing; null when the model had one of that name before.
    Named* Entered(std::string_view name) {
        const int index = IndexOf(name);
        return index < old_ ? nullptr : &list_[static_cast<std::size_t>(index)];
    }
    bool Has(std::string_view name) const { return rows_.contains(Folded(name, encoding_)); }

  private:
    std::vector<Named>& list_;
    const Encoding& encoding_;
    std::unordered_map<std::string, int> rows_;
    int old_ = 0, last_ = -1;
};

class Reader {
  public:
    Reader(const ImportSettings& settings, ModelContent& content, Summary& summary)
        : settings_(settings), content_(content), summary_(summary), mapping_(settings, content, summary) {}
    int Read(ByteSource& source);

  private:
    enum class Section { kOutside, kHeader, kTables, kBlocks, kEntities, kOther };
    enum class Kind { kNone, kHeader, kLayer, kLineType, kEntry, kBlock, kItem };

    int BeginRecord();
    int EndRecord();
    int BeginOfBlocks(std::string_view type);
    void TakePair();
    void TakeVariable(int code, std::string_view text);
    void TakeDrawn(int code, std::string_view text);
    void TakeCommon(int code, std::string_view text);
    void BeginItem(std::string_view type);
    void EndBlock();
    void EndItem();
    void EndLayer(Layer& layer);
    void EndLineType(LineType& type);
    std::string_view InModel(std::string_view text);
    void PlacePictures();

    const ImportSettings& settings_;
    ModelContent& content_;
    Summary& summary_;
    ImportMapping mapping_;
    drawing::DrawingPairs pairs_{ShortestReal};
    Names<Layer> layers_{content_.layers, content_.encoding};
    Names<LineType> lineTypes_{content_.lineTypes, content_.encoding};
    Names<Entry> styles_{content_.styles, content_.encoding};
    Names<Entry> dimensionStyles_{content_.dimensionStyles, content_.encoding};
    Names<Entry> applications_{content_.applications, content_.encoding};
    Names<Block> blocks_{content_.blocks, content_.encoding};
    const std::size_t oldItems_ = content_.items.size(), oldBlocks_ = content_.blocks.size();
    const bool isNew_ = content_.layers.empty();
    Encoding encoding_ = Encoding::kSjis;  // of the drawing
    drawing::CharacterSet characters_;
    std::unordered_map<std::string, std::string> renamed_;  // blocks without a name of their own
    std::string utf8_, converted_;

    Section section_ = Section::kOutside;
    Kind kind_ = Kind::kNone;
    Names<Entry>* table_ = nullptr;
    PairRun run_;
    Item item_;
    Drawn drawn_;
    bool common_ = false;    // the pairs that all items have, before those of the item's own class
    bool extended_ = false;  // the data of applications, behind all others
    bool inBlock_ = false, keepsBlock_ = false, sawViews_ = false, ownerIsHidden_ = false;
    int renamings_ = 0;
    char parts_ = 0;          // the item that is open takes: 'V' vertices, 'A' attributes
    bool dimension_ = false;  // its code 3 names a style
    bool names_ = false;      // its code 2 names a block
    std::string name_;        // of an entry or a block
};

int Reader::Read(ByteSource& source) {
    if (const int error = pairs_.Open(source)) return error;
    encoding_ = settings_.params.kanjiCode ? Encoding::kEuc : Encoding::kSjis;
    if (isNew_) content_.encoding = encoding_;
    layers_.IndexOf("0");
    while (pairs_.Next()) {
        if (pairs_.Code() != 0) {
            TakePair();
            continue;
        }
        if (const int error = EndRecord()) return error;
        if (const int error = BeginRecord()) return error;
    }
    if (pairs_.Error()) return pairs_.Error();
    if (section_ != Section::kOutside) return kDxfCutOff;
    mapping_.AssignLayers();
    PlacePictures();
    return 0;
}

// ---- Records ----

int Reader::BeginRecord() {
    const std::string_view type = pairs_.Text();
    kind_ = Kind::kNone;
    name_.clear();
    run_ = content_.store.Begin();
    if (type == "SECTION" || type == "ENDSEC") {
        if (inBlock_ || (type == "SECTION") != (section_ == Section::kOutside)) return kDxfBroken;
        section_ = type == "SECTION" ? Section::kOther : Section::kOutside;
        kind_ = type == "SECTION" ? Kind::kHeader : Kind::kNone;
        return 0;
    }
    if (section_ == Section::kOutside) return kDxfNoDrawing;
    if (section_ == Section::kHeader) return kDxfBroken;
    if (section_ == Section::kBlocks) return BeginOfBlocks(type);
    if (section_ == Section::kEntities) return BeginItem(type), 0;
    if (section_ == Section::kTables) {
        table_ = type == "STYLE" ? &styles_ : type == "DIMSTYLE" ? &dimensionStyles_ : &applications_;
        if (type == "STYLE" || type == "DIMSTYLE" || type == "APPID") kind_ = Kind::kEntry;
        if (type == "LAYER") kind_ = Kind::kLayer;
        if (type == "LTYPE") kind_ = Kind::kLineType;
    }
    if (kind_ == Kind::kNone && type != "TABLE" && type != "ENDTAB") summary_.Note(Fate::kMadeAnew, std::string(type));
    return 0;
}

int Reader::BeginOfBlocks(std::string_view type) {
    if ((type == "BLOCK") == inBlock_) return kDxfBroken;
    BeginItem(type);
    if (type == "BLOCK") {
        kind_ = Kind::kBlock;
        inBlock_ = true;
    } else if (type == "ENDBLK") {
        // Those of the spaces stand for what is in another section.
        if (!keepsBlock_ && content_.blocks.back().count == 0 && IsSpace(content_.blocks.back().name))
            content_.blocks.pop_back();
        kind_ = Kind::kNone;
        inBlock_ = keepsBlock_ = false;
    }
    return 0;
}

void Reader::BeginItem(std::string_view type) {
    kind_ = Kind::kItem;
    item_ = {};
    drawn_ = {};
    common_ = true;
    extended_ = false;
    item_.part =
        (type == "VERTEX" && parts_ == 'V') || (type == "ATTRIB" && parts_ == 'A') || (type == "SEQEND" && parts_ != 0);
    if (!item_.part) parts_ = type == "POLYLINE" ? 'V' : type == "INSERT" ? 'A' : '\0';
    if (type == "SEQEND") parts_ = 0;
    dimension_ = type == "DIMENSION" || type == "LEADER" || type == "TOLERANCE";
    names_ = type == "INSERT" || type == "DIMENSION";
    if (type != "BLOCK" && type != "ENDBLK") content_.store.Add(run_, 0, type);
}

// A drawing that is added to another may have another encoding.
std::string_view Reader::InModel(std::string_view text) {
    const bool otherPage = encoding_ == Encoding::kUtf8 && !characters_.IsUtf8();
    if (!otherPage && (encoding_ == content_.encoding || IsAscii(text))) return text;
    if (otherPage && IsAscii(text) && text.find("\\U+") == text.npos) return text;
    if (otherPage) text = utf8_ = characters_.ToUtf8(text);
    return converted_ = Convert(text, encoding_, content_.encoding, settings_.unicode);
}

void Reader::TakePair() {
    const int code = pairs_.Code();
    if (kind_ == Kind::kNone) return;
    std::string_view text = InModel(pairs_.Text());
    if (kind_ == Kind::kHeader && section_ == Section::kOther) {
        if (code != 2) return;
        section_ = text == "HEADER"     ? Section::kHeader
                   : text == "TABLES"   ? Section::kTables
                   : text == "BLOCKS"   ? Section::kBlocks
                   : text == "ENTITIES" ? Section::kEntities
                                        : Section::kOther;
        if (section_ != Section::kHeader) kind_ = Kind::kNone;
        return;
    }
    if (!pairs_.IsWhole()) summary_.Note(Fate::kTextCut, std::to_string(code));
    if (code == 2 && names_ && kind_ == Kind::kItem && !renamed_.empty())
        if (const auto name = renamed_.find(Folded(text, content_.encoding)); name != renamed_.end())
            text = name->second;
    content_.store.Add(run_, code, text);
    if (kind_ == Kind::kHeader) {
        TakeVariable(code, text);
    } else if (kind_ == Kind::kItem || kind_ == Kind::kBlock) {
        TakeDrawn(code, text);
    }
    if (code == 2 && name_.empty()) name_ = text;
}

// A user who says that drawings are EUC knows better than their code page.
void Reader::TakeVariable(int code, std::string_view text) {
    if (!characters_.Take(code, text)) summary_.Note(Fate::kCodePageNotKnown, std::string(text));
    if (!characters_.IsJapanese() && encoding_ == Encoding::kSjis) encoding_ = Encoding::kUtf8;
    if (characters_.IsUtf8()) encoding_ = Encoding::kUtf8;
    if (isNew_) content_.version = VersionOf(characters_.Version()), content_.encoding = encoding_;
}

// What of an item the host knows. In drawings without subclass markers all pairs are taken for common ones.
void Reader::TakeDrawn(int code, std::string_view text) {
    if (code >= kFirstExtendedCode) {
        extended_ = true;
        if (code == kApplicationCode) applications_.IndexOf(text);
    } else if (code == kSubclassCode) {
        item_.markers = true;
        common_ = text == "AcDbEntity";
    } else {
        if (code == 7 || (code == 3 && dimension_)) (code == 7 ? styles_ : dimensionStyles_).IndexOf(text);
        if ((code == 40 || code == 41 || code == 43) && (parts_ == 'V' || item_.markers))
            drawn_.polyWidth = std::max(drawn_.polyWidth, Real(text));
        if (common_ && !extended_) TakeCommon(code, text);
    }
}

void Reader::TakeCommon(int code, std::string_view text) {
    if (code == 8) drawn_.layer = layers_.IndexOf(text);
    if (code == 62) drawn_.color = ReadInteger(text, kByBlock, kByLayer).value_or(kByLayer);
    if (code == 370) drawn_.lineWidth = std::clamp(Integer(text), -3, kWidest);
    if (code == 60) item_.hidden = Integer(text) != 0;
    if (code == 67) item_.paper = Integer(text) != 0;
    if (code != 6) return;
    const std::string folded = Folded(text, content_.encoding);
    drawn_.lineTypeFrom = folded == "BYLAYER" ? From::kLayer : folded == "BYBLOCK" ? From::kBlock : From::kItem;
    drawn_.lineType = drawn_.lineTypeFrom == From::kItem ? lineTypes_.IndexOf(text) : -1;
}

int Reader::EndRecord() {
    if (kind_ == Kind::kHeader && section_ == Section::kHeader && isNew_) content_.header = run_;
    if (kind_ == Kind::kLayer)
        if (Layer* const layer = layers_.Entered(name_)) EndLayer(*layer);
    if (kind_ == Kind::kLineType)
        if (LineType* const type = lineTypes_.Entered(name_)) EndLineType(*type);
    if (kind_ == Kind::kEntry)
        if (Entry* const entry = table_->Entered(name_)) entry->pairs = run_;
    if (kind_ == Kind::kBlock) EndBlock();
    if (kind_ == Kind::kItem) EndItem();
    const int limit = settings_.params.maxItemCount;
    return limit > 0 && summary_.items > static_cast<std::size_t>(limit) ? kDxfTooManyItems : 0;
}

// A block that the model has already stays as it is there. One without a name of its own is another one each time.
void Reader::EndBlock() {
    std::string name = name_;
    if (blocks_.Has(name) && !IsSpace(name) && name.starts_with('*')) {
        while (blocks_.Has(name)) name = name_.substr(0, 2) + std::to_string(++renamings_);
        renamed_[Folded(name_, content_.encoding)] = name;
    }
    keepsBlock_ = blocks_.Has(name) && !IsSpace(name);
    if (keepsBlock_)
        return summary_.Note(Fate::kBlockKept, Convert(name, content_.encoding, Encoding::kUtf8, settings_.unicode));
    Block block = {name, run_, mapping_.Map(drawn_), content_.items.size(), 0};
    if (IsSpace(name)) return content_.blocks.push_back(std::move(block));
    *blocks_.Entered(name) = std::move(block);
}

void Reader::EndItem() {
    if (keepsBlock_) return;
    const bool line = content_.store.Find(item_.pairs = run_, 0).ends_with("POLYLINE");
    if (!line) drawn_.polyWidth = 0.0;
    item_.attributes = mapping_.Map(drawn_);
    const Layer& layer = content_.layers[static_cast<std::size_t>(drawn_.layer)];
    item_.hidden |= layer.off || (layer.flags & 1);
    if (item_.part) item_.hidden = ownerIsHidden_;
    ownerIsHidden_ = item_.hidden;
    if (item_.hidden && !settings_.params.convertHidden) {
        if (!item_.part) summary_.Note(Fate::kHiddenLeftOut, std::string(content_.store.Find(run_, 0)));
        return;
    }
    item_.inBlock = inBlock_;
    sawViews_ |= item_.paper && !inBlock_ && content_.store.FindInteger(run_, 69) != 1;
    if (!item_.part) ++summary_.items;
    content_.items.push_back(item_);
    if (inBlock_) ++content_.blocks.back().count;
}

// ---- Tables ----

void Reader::EndLayer(Layer& layer) {
    auto cursor = content_.store.Read(run_);
    for (Pair pair; cursor.Next(pair) && pair.code < kFirstExtendedCode;) {
        if (pair.code == 62) {
            const int color = Integer(pair.text);
            layer.off = color < 0;
            layer.color = std::clamp(color < 0 ? -std::max(color, -255) : color, 1, 255);
        }
        if (pair.code == 6) layer.lineType = lineTypes_.IndexOf(pair.text);
        if (pair.code == 370) layer.lineWidth = std::clamp(Integer(pair.text), -3, kWidest);
        if (pair.code == 70) layer.flags = Integer(pair.text) & 5;
    }
}

void Reader::EndLineType(LineType& type) {
    auto cursor = content_.store.Read(run_);
    type.pitches.clear();
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
    const int page = static_cast<int>(content_.layouts.size()) + 1;
    const int paper = !layout ? first : own ? -page : first;
    const int model = layout && !own ? std::min(first + 1, kNumbers - 1) : first;
    for (auto item = content_.items.begin() + static_cast<std::ptrdiff_t>(oldItems_); item != content_.items.end();
         ++item) {
        item->paper &= layout;
        item->picture = static_cast<std::int16_t>(item->paper ? paper : model);
    }
    content_.pictures[model] = settings_.scale;
    content_.modelPicture = model;
    if (layout) content_.layouts.push_back({own ? std::vector<int>{model} : std::vector<int>{paper, model}});
    if (layout && !own) content_.pictures[paper] = 1.0;
    summary_.blocks = content_.blocks.size() - oldBlocks_;
}

}  // namespace

int ReadDrawing(ByteSource& source, const ImportSettings& settings, ModelContent& content, Summary& summary) {
    const PairRun end = content.store.Begin();
    const std::size_t items = content.items.size();
    std::optional<ModelTables> before;
    int result = kDxfNoMemory;
    try {
        before = content;
        result = Reader(settings, content, summary).Read(source);
    } catch (const std::bad_alloc&) {
    }
    if (result != 0 && before) {
        static_cast<ModelTables&>(content) = std::move(*before);
        content.items.resize(items);
        content.store.CutAt(end);
    }
    return result;
}

}  // namespace convert
