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
    out_.Put(0, "SECTION");
    out_.Put(2, "HEADER");
    out_.Put(9, "$ACADVER");
    out_.Put(1, kVersionCodes[version_]);
    if (mapping_.TextEncoding() != Encoding::kEuc) {  // which has no name there
        out_.Put(9, "$DWGCODEPAGE");
        out_.Put(3, "ANSI_932");
    }
    out_.Put(9, "$HANDSEED");
    out_.PutHandle(5, handles);
    bool wanted = false;
    auto cursor = content_.store.Read(content_.header);
    for (Pair pair; cursor.Next(pair);) {
        if (pair.code == 9) {
            const auto* found = std::find_if(std::begin(kVariables), std::end(kVariables),
                                             [&](const Variable& variable) { return variable.name == pair.text; });
            wanted = found != std::end(kVariables) && found->firstVersion <= version_;
        }
        if (wanted) out_.Put(pair.code, pair.text);
    }
    out_.Put(0, "ENDSEC");
    out_.Put(0, "SECTION");
    out_.Put(2, "CLASSES");
    out_.Put(0, "ENDSEC");
}

// ---- Tables ----

void DrawingFrame::BeginTable(const char* name, std::size_t count) {
    table_ = NewHandle();
    out_.Put(0, "TABLE");
    out_.Put(2, name);
    out_.PutHandle(5, table_);
    out_.Put(330, "0");
    out_.Put(100, "AcDbSymbolTable");
    out_.Put(70, static_cast<std::int64_t>(std::min<std::size_t>(count, 32767)));
    if (std::string_view(name) == "DIMSTYLE" && version_ >= kVersion2000) out_.Put(100, "AcDbDimStyleTable");
}

void DrawingFrame::BeginEntry(const char* type, const char* marker, const std::string& name, int flags) {
    out_.Put(0, type);
    out_.PutHandle(std::string_view(type) == "DIMSTYLE" ? 105 : 5, NewHandle());
    out_.PutHandle(330, table_);
    out_.Put(100, "AcDbSymbolTableRecord");
    out_.Put(100, marker);
    out_.Put(2, std::string_view(name));
    if (flags >= 0) out_.Put(70, flags);
}

void DrawingFrame::PutTables() {
    out_.Put(0, "SECTION");
    out_.Put(2, "TABLES");
    BeginTable("VPORT", 0);
    out_.Put(0, "ENDTAB");

    BeginTable("LTYPE", mapping_.LineTypes().size() + 3);
    PutLineType("ByBlock", {});
    PutLineType("ByLayer", {});
    PutLineType("Continuous", {"", "Solid line", {}});
    for (const auto& [folded, type] : mapping_.LineTypes()) PutLineType(type.name.c_str(), type);
    out_.Put(0, "ENDTAB");

    const auto& layers = mapping_.Layers();
    BeginTable("LAYER", layers.size());
    for (const auto& [folded, layer] : layers) {
        BeginEntry("LAYER", "AcDbLayerTableRecord", layer.name, layer.flags);
        out_.Put(62, layer.off ? -layer.color : layer.color);
        out_.Put(6, std::string_view(layer.lineType));
        if (version_ >= kVersion2000) out_.Put(370, layer.lineWidth);
    }
    out_.Put(0, "ENDTAB");

    const auto putEntries = [this](const char* name, const std::vector<Entry>& entries, const char* always, auto put) {
        const bool has = std::any_of(entries.begin(), entries.end(), [&](const Entry& entry) {
            return Folded(entry.name, content_.encoding) == Folded(always, content_.encoding);
        });
        BeginTable(name, entries.size() + !has);
        if (!has) put(Entry{always, {}});
        for (const Entry& entry : entries)
            if (!entry.name.empty()) put(entry);
        out_.Put(0, "ENDTAB");
    };
    putEntries("STYLE", content_.styles, "Standard", [this](const Entry& style) { PutStyle(style); });
    for (const char* name : {"VIEW", "UCS"}) {
        BeginTable(name, 0);
        out_.Put(0, "ENDTAB");
    }
    putEntries("APPID", content_.applications, "ACAD", [this](const Entry& application) {
        BeginEntry("APPID", "AcDbRegAppTableRecord", mapping_.Text(application.name), 0);
    });
    putEntries("DIMSTYLE", content_.dimensionStyles, "Standard",
               [this](const Entry& style) { PutDimensionStyle(style); });

    const auto own = std::count_if(content_.blocks.begin(), content_.blocks.end(),
                                   [](const Block& block) { return !IsSpace(block.name); });
    BeginTable("BLOCK_RECORD", static_cast<std::size_t>(own) + 2);
    const auto putRecord = [this](int block, const std::string& name) {
        records_[block] = next_;
        BeginEntry("BLOCK_RECORD", "AcDbBlockTableRecord", name, -1);
    };
    putRecord(kModelSpace, "*Model_Space");
    putRecord(kPaperSpace, "*Paper_Space");
    for (std::size_t i = 0; i < content_.blocks.size(); ++i)
        if (!IsSpace(content_.blocks[i].name)) putRecord(static_cast<int>(i), mapping_.Name(content_.blocks[i].name));
    out_.Put(0, "ENDTAB");
    out_.Put(0, "ENDSEC");
}

void DrawingFrame::PutLineType(const char* name, const LineTypeOut& type) {
    BeginEntry("LTYPE", "AcDbLinetypeTableRecord", name, 0);
    out_.Put(3, std::string_view(type.comment));
    out_.Put(72, 65);
    out_.Put(73, static_cast<std::int64_t>(type.pitches.size()));
    double length = 0;
    for (const double pitch : type.pitches) length += std::abs(pitch);
    out_.PutReal(40, length);
    for (const double pitch : type.pitches) {
        out_.PutReal(49, pitch);
        out_.Put(74, "0");
    }
}

void DrawingFrame::PutStyle(const Entry& style) {
    const std::string_view handle = content_.store.Find(style.pairs, 5);
    if (!handle.empty()) styleHandles_[std::string(handle)] = next_;
    BeginEntry("STYLE", "AcDbTextStyleTableRecord", mapping_.Name(style.name), 0);
    constexpr std::pair<int, const char*> kDefaults[] = {{40, "0.0"}, {41, "1.0"}, {50, "0.0"}, {71, "0"},
                                                         {42, "2.5"}, {3, "txt"},  {4, ""}};
    for (const auto& [code, value] : kDefaults) {
        const std::string_view own = content_.store.Find(style.pairs, code);
        out_.Put(code, std::string_view(own.empty() ? std::string(value) : mapping_.Text(own)));
    }
}

void DrawingFrame::PutDimensionStyle(const Entry& style) {
    BeginEntry("DIMSTYLE", "AcDbDimStyleTableRecord", mapping_.Name(style.name), 0);
    auto cursor = content_.store.Read(style.pairs);
    for (Pair pair; cursor.Next(pair) && pair.code < 1000;) {
        const auto text = pair.code == 340 ? styleHandles_.find(std::string(pair.text)) : styleHandles_.end();
        if (text != styleHandles_.end())
            out_.PutHandle(340, text->second);
        else if (IsDimensionCode(pair.code, version_))
            out_.Put(pair.code, std::string_view(mapping_.Text(pair.text)));
        else if (pair.code >= 340 && pair.code <= 369 && pair.text != "0")
            mapping_.Note(Fate::kLinkNotWritten, "DIMSTYLE");
    }
}

// ---- Blocks and objects ----

void DrawingFrame::BeginBlock(int block, const std::string& name, const std::string& layer, const PairRun* pairs) {
    const auto own = [&](int code, const char* otherwise) {
        const std::string_view text = pairs ? content_.store.Find(*pairs, code) : std::string_view();
        return text.empty() ? std::string(otherwise) : mapping_.Text(text);
    };
    out_.Put(0, "BLOCK");
    out_.PutHandle(5, NewHandle());
    out_.PutHandle(330, RecordOf(block));
    out_.Put(100, "AcDbEntity");
    if (block == kPaperSpace) out_.Put(67, "1");
    out_.Put(8, std::string_view(layer));
    out_.Put(100, "AcDbBlockBegin");
    out_.Put(2, std::string_view(name));
    constexpr int kFlagsToKeep = 15;  // anonymous, with attributes, the kinds of external references
    out_.Put(70, ReadInteger(own(70, "0")).value_or(0) & kFlagsToKeep);
    for (const int code : {10, 20, 30}) out_.Put(code, std::string_view(own(code, "0.0")));
    out_.Put(3, std::string_view(name));
    out_.Put(1, std::string_view(own(1, "")));
}

void DrawingFrame::EndBlock(int block, const std::string& layer) {
    out_.Put(0, "ENDBLK");
    out_.PutHandle(5, NewHandle());
    out_.PutHandle(330, RecordOf(block));
    out_.Put(100, "AcDbEntity");
    if (block == kPaperSpace) out_.Put(67, "1");
    out_.Put(8, std::string_view(layer));
    out_.Put(100, "AcDbBlockEnd");
}

// The dictionary that every drawing has, with the one of groups, which is empty.
void DrawingFrame::PutObjects() {
    const std::uint64_t root = NewHandle(), groups = NewHandle();
    out_.Put(0, "SECTION");
    out_.Put(2, "OBJECTS");
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
    out_.Put(0, "ENDSEC");
    out_.Put(0, "EOF");
}

}  // namespace convert
