#include "convert/DrawingFrame.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "text/Numbers.h"

namespace convert {

namespace {

constexpr const char* kVersionCodes[] = {"", "AC1012", "AC1014", "AC1015", "AC1018", "AC1021", "AC1024", "AC1027"};

// What of a header is the drawing's own and means the same in every version.
struct Variable {
    std::string_view name;
    int firstVersion = kFirstVersion;
};
constexpr Variable kVariables[] = {
    {"$INSBASE"}, {"$EXTMIN"}, {"$EXTMAX"},   {"$LIMMIN"},    {"$LIMMAX"},         {"$LTSCALE"},
    {"$PDMODE"},  {"$PDSIZE"}, {"$PLINEGEN"}, {"$PSLTSCALE"}, {"$LUNITS"},         {"$LUPREC"},
    {"$AUNITS"},  {"$AUPREC"}, {"$TEXTSIZE"}, {"$DIMSCALE"},  {"$MEASUREMENT", 2}, {"$INSUNITS", kVersion2000},
};

struct Range {
    int first, last;
};
// The values of a dimension style that name nothing else in the drawing.
constexpr Range kDimensionCodes[] = {{3, 4}, {40, 48}, {71, 78}, {140, 148}, {170, 179}, {270, 289}, {371, 372}};

bool IsDimensionCode(int code, int version) {
    if (code >= 371 && version < kVersion2000) return false;
    return std::any_of(std::begin(kDimensionCodes), std::end(kDimensionCodes),
                       [code](const Range& range) { return code >= range.first && code <= range.last; });
}

}  // namespace

void DrawingFrame::PutHeader(std::uint64_t handles) {
    out_.Put({{0, "SECTION"}, {2, "HEADER"}, {9, "$ACADVER"}, {1, kVersionCodes[version_]}});
    // EUC has no name there.
    if (mapping_.TextEncoding() != Encoding::kEuc) out_.Put({{9, "$DWGCODEPAGE"}, {3, "ANSI_932"}});
    out_.Put(9, "$HANDSEED");
    out_.PutHandle(5, handles);
    bool wanted = false;
    auto cursor = content_.store.Read(content_.header);
    for (Pair pair; cursor.Next(pair);) {
        if (pair.code == 9)
            wanted = std::any_of(std::begin(kVariables), std::end(kVariables), [&](const Variable& variable) {
                return variable.name == pair.text && variable.firstVersion <= version_;
            });
        if (wanted) out_.Put(pair.code, pair.text);
    }
    out_.Put({{0, "ENDSEC"}, {0, "SECTION"}, {2, "CLASSES"}, {0, "ENDSEC"}});
}

// ---- Tables ----

void DrawingFrame::BeginTable(std::string_view name, std::size_t count) {
    table_ = NewHandle();
    out_.Put({{0, "TABLE"}, {2, name}});
    out_.PutHandle(5, table_);
    out_.Put({{330, "0"}, {100, "AcDbSymbolTable"}});
    out_.PutNumber(70, static_cast<std::int64_t>(std::min<std::size_t>(count, 32767)));
    if (name == "DIMSTYLE" && version_ >= kVersion2000) out_.Put(100, "AcDbDimStyleTable");
}

void DrawingFrame::BeginEntry(std::string_view type, std::string_view marker, std::string_view name, int flags) {
    out_.Put(0, type);
    out_.PutHandle(type == "DIMSTYLE" ? 105 : 5, NewHandle());
    out_.PutHandle(330, table_);
    out_.Put({{100, "AcDbSymbolTableRecord"}, {100, marker}, {2, name}});
    if (flags >= 0) out_.PutNumber(70, flags);
}

void DrawingFrame::PutTables() {
    const auto putTable = [this](const char* name, std::size_t count, auto putEntries) {
        BeginTable(name, count);
        putEntries();
        out_.Put(0, "ENDTAB");
    };
    const auto putNamed = [&](const char* name, const std::vector<Entry>& entries, const char* always, auto put) {
        const bool has = std::any_of(entries.begin(), entries.end(), [&](const Entry& entry) {
            return Folded(entry.name, content_.encoding) == Folded(always, content_.encoding);
        });
        putTable(name, entries.size() + !has, [&] {
            if (!has) put(Entry{always, {}});
            for (const Entry& entry : entries)
                if (!entry.name.empty()) put(entry);
        });
    };
    out_.Put({{0, "SECTION"}, {2, "TABLES"}});
    putTable("VPORT", 0, [] {});
    putTable("LTYPE", mapping_.LineTypes().size() + 3, [this] {
        for (const char* name : {"ByBlock", "ByLayer"}) PutLineType({name, "", {}});
        PutLineType({"Continuous", "Solid line", {}});
        for (const auto& [folded, type] : mapping_.LineTypes()) PutLineType(type);
    });
    putTable("LAYER", mapping_.Layers().size(), [this] {
        for (const auto& [folded, layer] : mapping_.Layers()) PutLayer(layer);
    });
    putNamed("STYLE", content_.styles, "Standard", [this](const Entry& style) { PutStyle(style); });
    putTable("VIEW", 0, [] {});
    putTable("UCS", 0, [] {});
    putNamed("APPID", content_.applications, "ACAD", [this](const Entry& application) {
        BeginEntry("APPID", "AcDbRegAppTableRecord", mapping_.Text(application.name), 0);
    });
    putNamed("DIMSTYLE", content_.dimensionStyles, "Standard",
             [this](const Entry& style) { PutDimensionStyle(style); });
    const auto own = std::count_if(content_.blocks.begin(), content_.blocks.end(),
                                   [](const Block& block) { return !IsSpace(block.name); });
    putTable("BLOCK_RECORD", static_cast<std::size_t>(own) + 2, [this] { PutBlockRecords(); });
    out_.Put(0, "ENDSEC");
}

void DrawingFrame::PutBlockRecords() {
    const auto put = [this](int block, const std::string& name) {
        records_[block] = next_;
        BeginEntry("BLOCK_RECORD", "AcDbBlockTableRecord", name, -1);
    };
    put(kModelSpace, "*Model_Space");
    put(kPaperSpace, "*Paper_Space");
    for (std::size_t i = 0; i < content_.blocks.size(); ++i)
        if (!IsSpace(content_.blocks[i].name)) put(static_cast<int>(i), mapping_.Name(content_.blocks[i].name));
}

void DrawingFrame::PutLineType(const LineTypeOut& type) {
    BeginEntry("LTYPE", "AcDbLinetypeTableRecord", type.name, 0);
    out_.Put({{3, type.comment}, {72, "65"}});
    out_.PutNumber(73, static_cast<std::int64_t>(type.pitches.size()));
    double length = 0;
    for (const double pitch : type.pitches) length += std::abs(pitch);
    out_.PutReal(40, length);
    for (const double pitch : type.pitches) out_.PutReal(49, pitch), out_.Put(74, "0");
}

void DrawingFrame::PutLayer(const LayerOut& layer) {
    BeginEntry("LAYER", "AcDbLayerTableRecord", layer.name, layer.flags);
    out_.PutNumber(62, layer.off ? -layer.color : layer.color);
    out_.Put(6, layer.lineType);
    if (version_ >= kVersion2000) out_.PutNumber(370, layer.lineWidth);
}

void DrawingFrame::PutStyle(const Entry& style) {
    const std::string_view handle = content_.store.Find(style.pairs, 5);
    if (!handle.empty()) styleHandles_[std::string(handle)] = next_;
    BeginEntry("STYLE", "AcDbTextStyleTableRecord", mapping_.Name(style.name), 0);
    constexpr std::pair<int, const char*> kDefaults[] = {{40, "0.0"}, {41, "1.0"}, {50, "0.0"}, {71, "0"},
                                                         {42, "2.5"}, {3, "txt"},  {4, ""}};
    for (const auto& [code, value] : kDefaults) {
        const std::string_view own = content_.store.Find(style.pairs, code);
        out_.Put(code, own.empty() ? value : mapping_.Text(own));
    }
}

void DrawingFrame::PutDimensionStyle(const Entry& style) {
    BeginEntry("DIMSTYLE", "AcDbDimStyleTableRecord", mapping_.Name(style.name), 0);
    auto cursor = content_.store.Read(style.pairs);
    for (Pair pair; cursor.Next(pair) && pair.code < 1000;) {
        const auto text = pair.code == 340 ? styleHandles_.find(pair.text) : styleHandles_.end();
        if (text != styleHandles_.end())
            out_.PutHandle(340, text->second);
        else if (IsDimensionCode(pair.code, version_))
            out_.Put(pair.code, mapping_.Text(pair.text));
        else if (pair.code >= 340 && pair.code <= 369 && pair.text != "0")
            mapping_.Note(Fate::kLinkNotWritten, "DIMSTYLE");
    }
}

// ---- Blocks and objects ----

void DrawingFrame::PutPartOfBlock(int block, std::string_view type, std::string_view layer, std::string_view marker) {
    out_.Put(0, type);
    out_.PutHandle(5, NewHandle());
    out_.PutHandle(330, RecordOf(block));
    out_.Put(100, "AcDbEntity");
    if (block == kPaperSpace) out_.Put(67, "1");
    out_.Put({{8, layer}, {100, marker}});
}

void DrawingFrame::BeginBlock(int block, const std::string& name, const std::string& layer, const PairRun* pairs) {
    const auto own = [&](int code, const char* otherwise) {
        const std::string_view text = pairs ? content_.store.Find(*pairs, code) : std::string_view();
        return text.empty() ? std::string(otherwise) : mapping_.Text(text);
    };
    PutPartOfBlock(block, "BLOCK", layer, "AcDbBlockBegin");
    out_.Put(2, name);
    constexpr int kFlagsToKeep = 15;  // anonymous, with attributes, the kinds of external references
    out_.PutNumber(70, ReadInteger(own(70, "0")).value_or(0) & kFlagsToKeep);
    for (const int code : {10, 20, 30}) out_.Put(code, own(code, "0.0"));
    out_.Put({{3, name}, {1, own(1, "")}});
}

void DrawingFrame::EndBlock(int block, const std::string& layer) {
    PutPartOfBlock(block, "ENDBLK", layer, "AcDbBlockEnd");
}

// The dictionary that every drawing has, with the one of groups, which is empty.
void DrawingFrame::PutObjects() {
    const std::uint64_t root = NewHandle(), groups = NewHandle();
    out_.Put({{0, "SECTION"}, {2, "OBJECTS"}});
    for (const std::uint64_t handle : {root, groups}) {
        out_.Put(0, "DICTIONARY");
        out_.PutHandle(5, handle);
        out_.PutHandle(330, handle == root ? 0 : root);
        out_.Put(100, "AcDbDictionary");
        if (version_ >= kVersion2000) out_.Put(281, "1");
        if (handle != root) continue;
        out_.Put(3, "ACAD_GROUP");
        out_.PutHandle(350, groups);
    }
    out_.Put({{0, "ENDSEC"}, {0, "EOF"}});
}

}  // namespace convert
