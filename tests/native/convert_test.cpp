#include <fstream>
#include <functional>

#include "convert/Convert.h"
#include "drawing/DrawingPairs.h"
#include "entry/host/kirodxf.h"
#include "tests/DrawingText.h"
#include "tests/fuzz/DxfReading.h"
#include "tests/native/TableTest.h"
#include "tools/cli/Text.h"

using namespace convert;

namespace {

constexpr Unicode kUnicode = {cli::FromCp932, cli::ToCp932};

struct Tables {
    std::unique_ptr<DxfInLayerTable> inLayers = std::make_unique<DxfInLayerTable>();
    std::unique_ptr<DxfInLineTable> inLines = std::make_unique<DxfInLineTable>();
    std::unique_ptr<DxfOutLayerTable> outLayers = std::make_unique<DxfOutLayerTable>();
    std::unique_ptr<DxfOutLineTable> outLines = std::make_unique<DxfOutLineTable>();
    ImportSettings import;
    ExportSettings output;

    explicit Tables(const std::string& layersIn = "", const std::string& linesIn = "",
                    const std::string& layersOut = "", const std::string& linesOut = "") {
        ListingText text;
        TableListing listing(text);
        Parse(layersIn, *inLayers, listing);
        Parse(linesIn, *inLines, listing);
        Parse(layersOut, *outLayers, listing);
        Parse(linesOut, *outLines, listing);
        EXPECT_FALSE(listing.HasErrors()) << text.text;
        import.layers = inLayers.get();
        import.lines = inLines.get();
        import.unicode = output.unicode = kUnicode;
        import.params.defaultLineWeight = 9;
        import.params.convertHidden = 1;
        output.layers = outLayers.get();
        output.lines = outLines.get();
        output.params.outputVersion = 3;
    }
};

struct Imported {
    ModelContent content;
    Summary summary;
    int result;
};

Imported Import(const std::string& bytes, const ImportSettings& settings) {
    Imported imported;
    MemorySource source(bytes);
    imported.result = ReadDrawing(source, settings, imported.content, imported.summary);
    return imported;
}

struct Exported final : ByteSink {
    std::string bytes;
    Summary summary;
    int result = 0;
    bool Write(std::string_view more) override {
        bytes += more;
        return true;
    }
};

Exported Export(const ModelContent& content, const ExportSettings& settings, Target target = {0, 1}) {
    Exported exported;
    exported.result = WriteDrawing(content, target, settings, exported, exported.summary);
    return exported;
}

Exported Converted(const std::string& drawing, const Tables& tables) {
    return Export(Import(drawing, tables.import).content, tables.output);
}

std::size_t Count(const Summary& summary, Fate fate, const std::string& detail) {
    const auto found = summary.Notes().find({fate, detail});
    return found == summary.Notes().end() ? 0 : found->second;
}

// The items of a section, one text each, of these codes.
std::vector<std::string> Items(const std::string& bytes, const std::string& section, const std::vector<int>& codes) {
    std::vector<std::string> items;
    MemorySource source(bytes);
    drawing::DrawingPairs pairs(ShortestReal);
    EXPECT_EQ(pairs.Open(source), 0);
    bool inside = false;
    while (pairs.Next()) {
        const int code = pairs.Code();
        if (pairs.IsRecord("ENDSEC")) inside = false;
        if (inside && code == 0) items.emplace_back();
        if (inside && std::find(codes.begin(), codes.end(), code) != codes.end() && !items.empty())
            items.back() += std::to_string(code) + " " + std::string(pairs.Text()) + "/";
        if (code == 2 && pairs.Text() == section && items.empty()) inside = true;
    }
    EXPECT_EQ(pairs.Error(), 0);
    return items;
}

const std::string kLayers =
    "0 LAYER/2 WALL/62 3/6 DASHED/70 0/370 35/0 LAYER/2 B C/62 5/6 CONTINUOUS/70 0/"
    "0 LTYPE/2 DASHED/3 dashes/49 2/49 -1/74 0/0 LTYPE/2 ZIG/49 1/74 2";

TEST(Convert, AttributesFollowTheWordsAndTables) {
    const std::string layers =
        "LAYER WALL = 7\nLAYER Q = 2\nLAYER OTHER = 99\nLAYER-REVISION BC = 8\nCOLOR-REVISION 3 = 33\n"
        "COLOR-CLASS 5 = 55\n";
    const std::string lines = "LINE-TYPE dashed = 12,4\nWIDTH 1, 2 = 5\nLINE-WIDTH 0.35 = 6\nCOLOR 3 = 7\n";
    using Change = std::function<void(Tables&)>;
    const auto words = [](int layer, int type, int width, int color) {
        return Change([=](Tables& t) {
            DxfInParamBlock& p = t.import.params;
            p.layerConversion = layer, p.lineTypeConversion = type, p.lineWidthConversion = width;
            p.colorConversion = color;
        });
    };
    const struct {
        const char* item;
        Change change;
        const char* expected;  // class revision colour font weight
    } cases[] = {
        // "0" is the first layer of all.
        {"0 LINE/8 wall", words(0, 0, 0, 0), "2 1 256 2 1"},
        {"0 LINE/8 NEW/6 ZIG/370 50/62 1", words(0, 0, 0, 1), "4 1 1 5 1"},
        {"0 LINE/8 WALL", [](Tables& t) { t.import.params.layerTarget = 1; }, "1 2 256 2 1"},
        {"0 LINE/8 WALL/62 5", words(1, 0, 1, 1), "7 1 5 2 5"},
        {"0 LINE/8 B C/62 17", words(1, 0, 1, 1), "3 1 17 1 9"},
        {"0 LINE/8 B C", words(2, 1, 2, 2), "99 5 5 1 1"},
        {"0 LINE/8 WALL", words(2, 1, 2, 2), "7 33 3 12 6"},
        {"0 LINE/8 WALL/6 ZIG/370 36", words(2, 2, 2, 2), "7 33 3 1 9"},
        {"0 LINE/8 B C/62 3", [](Tables& t) { t.import.params.lineWidthConversion = 2, t.inLines->widWidthSwitch = 0; },
         "3 1 3 1 7"},
        {"0 LWPOLYLINE/100 AcDbEntity/8 WALL/100 AcDbPolyline/43 1.5", words(2, 2, 2, 0), "7 1 256 12 5"},
        {"0 LINE/8 B C",
         [](Tables& t) {
             t.import.params.layerConversion = 2, t.inLayers->layerSwitch = 1, t.import.params.colorConversion = 2;
         },
         "55 8 5 1 9"},
        {"0 LINE/8 WALL/6 BYBLOCK/370 -2/62 0", words(0, 0, 0, 0), "2 1 0 1 9"},
        {"0 LINE/8 WALL/62 999", words(0, 0, 0, 0), "2 1 256 2 1"},
        {"0 HATCH/100 AcDbEntity/8 WALL/100 AcDbHatch/62 1/8 0", words(0, 0, 0, 0), "2 1 256 2 1"},
    };
    for (const auto& c : cases) {
        Tables tables(layers, lines);
        c.change(tables);
        const Imported imported = Import(Drawing(kLayers, c.item), tables.import);
        ASSERT_EQ(imported.result, 0) << c.item;
        const Attributes& a = imported.content.items.at(0).attributes;
        const int values[] = {a.itemClass, a.revision, a.color, a.font, a.weight};
        std::string text;
        for (const int value : values) text += (text.empty() ? "" : " ") + std::to_string(value);
        EXPECT_EQ(text, c.expected) << c.item;
    }
    Tables tables(layers, lines);
    words(2, 2, 2, 2)(tables);
    const Imported imported = Import(Drawing(kLayers, "0 LINE/8 B C/6 ZIG/370 36"), tables.import);
    EXPECT_EQ(Count(imported.summary, Fate::kLayerNotInTable, "B C -> 99"), 1u);
    EXPECT_EQ(Count(imported.summary, Fate::kLineTypeNotInTable, "ZIG -> 1"), 1u);
    EXPECT_EQ(Count(imported.summary, Fate::kWidthNotAssigned, "0.36"), 1u);
    EXPECT_FALSE(imported.summary.IsComplete());
}

TEST(Convert, WhatFindsNoNumberIsTold) {
    std::string layers, items;
    for (int i = 0; i < 300; ++i) {
        layers += "0 LAYER/2 L" + std::to_string(i) + "/0 LTYPE/2 T" + std::to_string(i) + "/";
        items += "0 LINE/8 L" + std::to_string(i) + "/6 T" + std::to_string(i) + "/370 " + std::to_string(i) + "/";
    }
    const Tables tables;
    const Imported imported = Import(Drawing(layers, items), tables.import);
    std::size_t merged[3] = {};
    for (const auto& [note, count] : imported.summary.Notes()) {
        merged[0] += note.first == Fate::kLayersMerged;
        merged[1] += note.first == Fate::kLineTypesMerged;
        merged[2] += note.first == Fate::kWidthNotAssigned;
    }
    EXPECT_EQ(merged[0], 301u - 256);  // with "0"
    EXPECT_EQ(merged[1], 300u - 59);   // 5 to 63
    EXPECT_EQ(merged[2], 300u - 15);   // 1 to 16 without the default
    EXPECT_EQ(imported.content.items.back().attributes.itemClass, 256);
    EXPECT_EQ(imported.content.items.back().attributes.font, 1);
}

TEST(Convert, PicturesFollowTheNumberScaleAndLayout) {
    const std::string paper = "0 LINE/8 0/0 VIEWPORT/67 1/69 2/0 TEXT/67 1/1 x";
    const struct {
        int number;
        double scale;
        int own;
        const char* items;
        std::string expected;  // pictures of the items
        std::size_t layouts;
    } cases[] = {
        {3, 1.0, 0, "0 LINE/8 0/0 VIEWPORT/67 1/69 1", "3 3 ", 0},
        {3, 1.0, 0, paper.c_str(), "4 3 3 ", 1},
        {3, 1.0, 1, paper.c_str(), "3 -1 -1 ", 1},
        {3, 0.5, 1, paper.c_str(), "3 3 3 ", 0},
        {-3, 1.0, 0, paper.c_str(), "3 3 3 ", 0},
    };
    for (const auto& c : cases) {
        Tables tables;
        tables.import.pictureNumber = c.number;
        tables.import.scale = c.scale;
        tables.import.params.paperSpaceTarget = c.own;
        const Imported imported = Import(Drawing("", c.items), tables.import);
        std::string pictures;
        for (const Item& item : imported.content.items) pictures += std::to_string(item.picture) + " ";
        EXPECT_EQ(pictures, c.expected);
        EXPECT_EQ(imported.content.layouts.size(), c.layouts);
    }
    Tables tables;
    tables.import.params.paperSpaceTarget = 1;
    const Imported imported = Import(Drawing("", paper), tables.import);
    const Exported page = Export(imported.content, tables.output, {1, 0});
    EXPECT_EQ(Items(page.bytes, "ENTITIES", {0, 67}),
              (std::vector<std::string>{"0 LINE/", "0 VIEWPORT/67 1/", "0 TEXT/67 1/"}));
    const Exported picture = Export(imported.content, tables.output, {0, 1});
    EXPECT_EQ(Items(picture.bytes, "ENTITIES", {0}), std::vector<std::string>{"0 LINE/"});
    EXPECT_EQ(Export(imported.content, tables.output, {0, 2}).result, kDxfNoPicture);
    EXPECT_EQ(Export(imported.content, tables.output, {2, 0}).result, kDxfNoLayout);
}

TEST(Convert, TheExportFollowsItsTables) {
    const std::string layersOut =
        "LAYER_CONTROL CLASS\nCLASS 7 = Kabe\nREVISION 33 = Rev\nCOLOR 3 = 30\nCOLOR 256 = 6\n";
    const std::string linesOut = "WIDTH-TYPE 1\nLINE-WIDTH 6 = 0.70\nLINE-FONT1 12 = CHAIN\nPITCH-CHAIN = 4,-1\n";
    const std::string layersIn = "LAYER WALL = 7\nCOLOR-REVISION 3 = 33\n";
    const std::string linesIn = "LINE-TYPE DASHED = 12,4\nLINE-WIDTH 0.35 = 6\n";
    using Change = std::function<void(Tables&)>;
    const struct {
        Change change;
        const char* expected;
    } cases[] = {
        {[](Tables&) {}, "8 Kabe/6 CHAIN/62 30/370 70/"},
        {[](Tables& t) { t.outLayers->layerControl = kLayerControlRevision; }, "8 Rev/6 CHAIN/62 30/370 70/"},
        {[](Tables& t) { t.import.params.colorConversion = 0; }, "8 Kabe/6 CHAIN/62 6/370 70/"},
        {[](Tables& t) { t.output.params.layerConversion = 0; }, "8 WALL/6 CHAIN/62 3/370 70/"},
        {[](Tables& t) { t.output.params.layerConversion = 0, t.import.params.convertLayerNames = 0; },
         "8 7/6 CHAIN/62 3/370 70/"},
        {[](Tables& t) { t.output.params.lineConversion = 0; }, "8 Kabe/62 30/"},
        {[](Tables& t) { t.output.params.outputVersion = 2; }, "8 Kabe/6 CHAIN/62 30/"},
        {[](Tables& t) { t.outLines->widthType = 0, t.outLines->weightColor[5] = 44; }, "8 Kabe/6 CHAIN/62 44/"},
    };
    for (const auto& c : cases) {
        Tables tables(layersIn, linesIn, layersOut, linesOut);
        DxfInParamBlock& in = tables.import.params;
        in.layerConversion = in.lineTypeConversion = in.lineWidthConversion = in.colorConversion = 2;
        in.convertLayerNames = 1;
        tables.output.params.layerConversion = tables.output.params.lineConversion = 1;
        c.change(tables);
        const Exported exported = Converted(Drawing(kLayers, "0 LINE/8 WALL/10 1/20 2"), tables);
        EXPECT_EQ(Items(exported.bytes, "ENTITIES", {8, 6, 62, 370}), std::vector<std::string>{c.expected});
    }
    Tables tables(layersIn, linesIn, layersOut, linesOut);
    tables.output.params.lineConversion = 1;
    const Exported exported = Converted(Drawing(kLayers, "0 LINE/8 WALL"), tables);
    EXPECT_NE(exported.bytes.find(" 73\r\n2\r\n 40\r\n5\r\n 49\r\n4\r\n 74\r\n0\r\n 49\r\n-1\r\n"), std::string::npos);
}

std::string DemoDrawing() {
    std::ifstream file(KIRO_SOURCE "/tools/demo/demo.dxf", std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

const std::string kBlock = "0 BLOCK/8 WALL/2 DOOR/70 2/10 1/20 2/30 0/0 CIRCLE/8 B_C/10 0/20 0/40 2/0 ENDBLK";
const std::string kKinds =
    "0 LINE/8 WALL/62 1/10 1.25/20 2/30 0/11 3/21 4/31 0/0 ARC/8 0/62 2/10 0/20 0/30 0/40 5/50 10/51 20/"
    "0 TEXT/8 B_C/62 3/10 0/20 0/40 2.5/1 text/7 ROMAN/72 1/11 1/21 1/73 2/0 INSERT/8 0/62 4/2 DOOR/10 1/20 1/"
    "0 ATTRIB/8 WALL/62 5/10 1/20 1/40 1/1 v/2 TAG/70 0/0 SEQEND/8 0/62 5/"
    "0 POLYLINE/8 B_C/62 6/10 0/20 0/30 0/70 0/0 VERTEX/8 B_C/62 6/10 1/20 1/30 0/70 0/0 SEQEND/8 B_C/62 6";

// With tables that undo one another a drawing has the same items, layers and colours as before, in every version, text
// and binary; and once more it does not change at all.
TEST(Convert, TheRoundTripKeepsItemsLayersAndColours) {
    const std::string layers = "0 LAYER/2 WALL/62 3/0 LAYER/2 B_C/62 5/0 STYLE/2 ROMAN/3 romans";
    const std::string names[] = {"0", "WALL", "B_C", "OUTLINE"};
    std::string in, out = "LAYER_CONTROL CLASS\n";
    for (int i = 0; i < 4; ++i) {
        in += "LAYER " + names[i] + " = " + std::to_string(10 + i) + "\n";
        out += "CLASS " + std::to_string(10 + i) + " = " + names[i] + "\n";
    }
    for (int i = 1; i < 256; ++i) out += "COLOR " + std::to_string(i) + " = " + std::to_string(i) + "\n";
    Tables tables(in, "", out, "");
    tables.import.params.layerConversion = tables.import.params.colorConversion = 2;
    tables.output.params.layerConversion = 1;
    const std::string demo = DemoDrawing();
    ASSERT_FALSE(demo.empty());
    for (const std::string& drawing : {Drawing(layers, kKinds, kBlock, "AC1009"), demo}) {
        for (int version = kFirstVersion; version <= kLastVersion; ++version)
            for (const int binary : {0, 1}) {
                tables.output.params.outputVersion = version;
                tables.output.params.binaryFormat = binary;
                const Imported imported = Import(drawing, tables.import);
                const Exported once = Export(imported.content, tables.output);
                ASSERT_EQ(once.result, 0);
                EXPECT_TRUE(imported.summary.IsComplete() && once.summary.IsComplete());
                std::vector<int> codes = {0, 1, 2, 7, 8, 72, 10, 11, 20, 40, 50, 51};
                if (binary) codes.resize(6);  // numbers of binary files come in a form of their own
                EXPECT_EQ(Items(once.bytes, "ENTITIES", codes), Items(drawing, "ENTITIES", codes)) << version;
                if (drawing != demo) {
                    EXPECT_EQ(Items(once.bytes, "ENTITIES", {62}), Items(drawing, "ENTITIES", {62}));
                }
                const Imported again = Import(once.bytes, tables.import);
                EXPECT_TRUE(Export(again.content, tables.output).bytes == once.bytes) << version << binary;
            }
    }
}

TEST(Convert, WhatAVersionCannotHoldIsLeftOutAndTold) {
    const std::string items =
        "0 LWPOLYLINE/100 AcDbEntity/8 0/420 255/100 AcDbPolyline/90 2/43 0/0 MLINE/100 AcDbEntity/8 0/340 F/"
        "0 INSERT/100 AcDbEntity/8 0/100 AcDbBlockReference/2 NONE/0 VERTEX/8 0/"
        "0 HATCH/100 AcDbEntity/8 0/102 {ACAD_REACTORS/330 1A/102 }/100 AcDbHatch/71 1/91 1/97 2/330 1/330 2/75 0/"
        "0 LINE/100 AcDbEntity/8 0/370 50/100 AcDbLine/10 0/1001 APP/1005 5F/"
        "0 LINE/5 1/100 AcDbEntity/60 1/8 0/100 AcDbLine/10 7";
    const Tables plain;
    const Imported imported = Import(Drawing("", items), plain.import);
    const auto write = [&](int version, int hiddenSkip) {
        Tables tables;
        tables.output.params.outputVersion = version;
        tables.output.params.hiddenSkip = hiddenSkip;
        return Export(imported.content, tables.output);
    };
    const Exported old = write(1, 1), newer = write(4, 0);
    EXPECT_EQ(Items(old.bytes, "ENTITIES", {0, 370}), std::vector<std::string>{"0 LINE/"});
    EXPECT_EQ(Items(newer.bytes, "ENTITIES", {0, 60, 420, 71, 97, 370, 1005}),
              (std::vector<std::string>{"0 LWPOLYLINE/420 255/", "0 HATCH/71 0/97 0/", "0 LINE/370 50/1005 0/",
                                        "0 LINE/60 1/"}));
    const struct {
        Fate fate;
        const char* detail;
        std::size_t old, newer;
    } notes[] = {
        {Fate::kTypeNotWritten, "LWPOLYLINE", 1, 0}, {Fate::kTypeNotWritten, "MLINE", 1, 1},
        {Fate::kTypeNotWritten, "HATCH", 1, 0},      {Fate::kTypeNotWritten, "VERTEX", 1, 1},
        {Fate::kNoSuchBlock, "NONE", 1, 1},          {Fate::kLinkNotWritten, "HATCH", 0, 1},
        {Fate::kLinkNotWritten, "1005", 1, 1},       {Fate::kWidthNotWritten, "1", 1, 0},
        {Fate::kHiddenLeftOut, "LINE", 1, 0},
    };
    for (const auto& note : notes) {
        EXPECT_EQ(Count(old.summary, note.fate, note.detail), note.old) << note.detail;
        EXPECT_EQ(Count(newer.summary, note.fate, note.detail), note.newer) << note.detail;
    }
    EXPECT_EQ(Count(write(3, 0).summary, Fate::kValueNotWritten, "LWPOLYLINE 420"), 1u);
    EXPECT_EQ(write(0, 0).result, kDxfNotThatVersion);
    EXPECT_EQ(write(8, 0).result, kDxfNotThatVersion);
}

TEST(Convert, HiddenAndUnfinishedItems) {
    const std::string drawing = Drawing(
        "0 LAYER/2 OFF/62 -3/70 0/0 LAYER/2 COLD/62 4/70 1",
        "0 LINE/8 OFF/0 INSERT/8 COLD/2 B/0 ATTRIB/8 0/0 CIRCLE/60 1/8 0/0 POLYLINE/8 0/0 VERTEX/8 0/0 POINT/8 0",
        "0 BLOCK/2 B/0 LINE/8 0/0 ENDBLK/0 BLOCK/2 *Paper_Space0/0 LINE/67 1/8 0/0 ENDBLK");
    Tables tables("", "", "COLOR 4 = 44\n", "");
    tables.import.params.convertHidden = 0;
    const Imported seen = Import(drawing, tables.import);
    EXPECT_EQ(Count(seen.summary, Fate::kHiddenLeftOut, "INSERT"), 1u);
    const std::vector<std::string> kSeen = {"0 POLYLINE/", "0 VERTEX/", "0 SEQEND/", "0 POINT/"};
    EXPECT_EQ(Items(Export(seen.content, tables.output).bytes, "ENTITIES", {0}), kSeen);

    tables.import.params.convertHidden = tables.import.params.convertLayerNames = 1;
    const Imported all = Import(drawing, tables.import);
    EXPECT_TRUE(all.content.layouts.empty());  // only a block has something of the paper space
    const Exported whole = Export(all.content, tables.output);
    EXPECT_EQ(Count(whole.summary, Fate::kOtherLayout, "*Paper_Space0"), 1u);
    EXPECT_EQ(Items(whole.bytes, "ENTITIES", {0}).size(), 9u);
    const auto expectLayers = [&](const std::string& bytes, std::initializer_list<const char*> layers) {
        const auto found = Items(bytes, "LAYER", {2, 62, 70});
        for (const char* layer : layers) EXPECT_EQ(std::count(found.begin(), found.end(), layer), 1) << layer;
    };
    expectLayers(whole.bytes, {"2 OFF/70 0/62 -3/", "2 COLD/70 1/62 4/"});
    tables.output.params.layerConversion = 1;
    tables.outLayers->classLayer[2][0] = 'X';
    tables.outLayers->classLayer[3][0] = 'Y';
    expectLayers(Export(all.content, tables.output).bytes, {"2 X/70 0/62 -7/", "2 Y/70 1/62 44/"});
}

// In the code page of the drawing; what code page 932 lacks comes through as drawings write it.
TEST(Convert, TextsKeepTheirCharacters) {
    const struct {
        const char *page, *bytes;
        int euc;
        const char *sjis, *utf8;
    } cases[] = {
        {"ANSI_932", "\x95\x5C\\U+00E9", 0, "\x95\x5C\\U+00E9",
         "\xE8\xA1\xA8\xC3\xA9"},  // the second byte: a backslash
        {"ANSI_1252", "\xB3\xA4", 1, "\x8A\x43", "\xE6\xB5\xB7"},
        {"ANSI_1252", "\xC4\\U+039B", 0, "\\U+00C4\x83\xA9", "\xC3\x84\xCE\x9B"},
        {"ANSI_1252", "\\U+039B", 0, "\x83\xA9", "\xCE\x9B"},
        {"ansi_1250", "\xB9", 0, "\\U+0105", "\xC4\x85"},
        {"ANSI_1251", "\xC4", 0, "\x84\x44", "\xD0\x94"},
        {"dos850", "\x8E", 0, "\\U+00C4", "\xC3\x84"},
        {"NONE_9", "\x83\x5C", 0, "\x83\x5C", "\xE3\x82\xBD"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.page);
        Tables tables;
        const auto write = [&](const ModelContent& content, int version, int euc) {
            tables.output.params.outputVersion = version;
            tables.output.params.kanjiCode = tables.import.params.kanjiCode = euc;
            return Export(content, tables.output).bytes;
        };
        const auto expect = [](const std::string& text, const std::string& bytes) {
            EXPECT_EQ(Items(bytes, "ENTITIES", {1}), std::vector<std::string>{"1 " + text + "/"});
        };
        tables.import.params.kanjiCode = c.euc;
        const std::string header = std::string("9 $ACADVER/1 AC1015/9 $MENU/1 x/9 $DWGCODEPAGE/3 ") + c.page;
        const std::string items = std::string("0 TEXT/8 0/1 ") + c.bytes;
        const Imported imported =
            Import(Section("HEADER", header) + Section("ENTITIES", items) + Pairs("0 EOF"), tables.import);
        EXPECT_EQ(Count(imported.summary, Fate::kCodePageNotKnown, "NONE_9"), c.page == std::string("NONE_9"));
        expect(c.sjis, write(imported.content, 3, 0));
        const std::string utf8 = write(imported.content, 5, 0);
        expect(c.utf8, utf8);
        expect(c.sjis, write(Import(utf8, tables.import).content, 3, 0));
        const std::string euc = write(imported.content, 3, 1);
        if (c.euc) expect(c.bytes, euc);
        expect(c.sjis, write(Import(euc, tables.import).content, 3, 0));
    }
    Tables tables;
    tables.import.params.convertLayerNames = 1;
    tables.output.params.outputVersion = 5;
    const std::string smile = "0 TEXT/1 \xF0\x9F\x98\x80/";  // has no such form
    EXPECT_EQ(Items(Converted(Drawing("", smile, "", "AC1021"), tables).bytes, "ENTITIES", {0, 1})[0], smile);
    tables.output.params.outputVersion = 2;
    const std::string name(40, 'x');
    const Exported old = Converted(Drawing("", "0 LINE/8 a b/0 LINE/8 " + name), tables);
    const auto layers = Items(old.bytes, "ENTITIES", {8});
    EXPECT_EQ(layers[0], "8 a_b/");
    EXPECT_EQ(layers[1].size(), 2u + 31 + 1);
    EXPECT_EQ(Count(old.summary, Fate::kNameChanged, name), 1u);
}

// What the model's user has made of its line fonts, and what the export's table says of them.
TEST(Convert, LineTypesFollowTheLineFontsOfTheModel) {
    Tables tables("", "", "", "LINE-FONT1 2 = CHAIN\nLINE-FONT1 5 = LONG\nPITCH-LONG = 9,-1\n");
    const std::string items = "0 LINE/8 WALL/0 LINE/8 0/6 ZIG/0 LINE/8 0/6 EVER";
    Imported imported = Import(Drawing(kLayers + "/0 LTYPE/2 EVER/3 -- ./49 1/49 0/49 2", items), tables.import);
    ModelContent& content = imported.content;
    const auto entries = [&](const char* type) {
        std::vector<std::string> found;
        for (const std::string& entry : Items(Export(content, tables.output).bytes, type, {2, 6, 49})) {
            if (entry.empty()) break;  // the table's end
            if (entry.find("By") == entry.npos && !entry.ends_with("Continuous/")) found.push_back(entry);
        }
        return found;
    };
    using Entries = std::vector<std::string>;
    for (const int font : {2, 5, 6}) {
        const LineType type = *content.LineTypeOf(font);
        SetLineFont(content, font, type.name + "_", HostPitches(type));  // whose pattern stays as the drawing has it
    }
    EXPECT_EQ(entries("LTYPE"), (Entries{"2 DASHED_/49 2/49 -1/", "2 EVER_/49 1/49 0/49 2/", "2 ZIG_/49 1/"}));
    SetLineFont(content, 2, "HASEN", {3, 1.5});
    content.fontLineType[9] = content.fontLineType[2];
    SetLineFont(content, 9, "OTHER", {3, 1});
    SetLineFont(content, 6, "EVER", {4, 1, 1, 1});
    SetLineFont(content, 7, "NEW", {8, 2});
    SetLineFont(content, 5, "", {});
    EXPECT_EQ(entries("LTYPE"), (Entries{"2 EVER/49 4/49 -1/49 1/49 -1/", "2 HASEN/49 3/49 -1.5/", "2 NEW/49 8/49 -2/",
                                         "2 OTHER/49 3/49 -1/", "2 ZIG_/49 1/"}));
    EXPECT_EQ(entries("LAYER"), Entries{"2 2/6 HASEN/"});
    tables.output.params.lineConversion = 1;
    const Entries byTable = entries("LTYPE");
    EXPECT_EQ(std::count(byTable.begin(), byTable.end(), "2 CHAIN/49 3/49 -1.5/"), 1);
    EXPECT_EQ(std::count(byTable.begin(), byTable.end(), "2 LONG/49 9/49 -1/"), 1);
}

TEST(Convert, BadInputIsRefused) {
    const std::string good = Drawing(kLayers, kKinds, kBlock);
    Tables tables;
    tables.output.params.binaryFormat = 1;
    const std::string binary = Converted(good, tables).bytes;
    std::string nested, chain;
    for (int i = 0; i < 20000; ++i) {
        nested += "0 BLOCK/2 B/";
        chain += "0 BLOCK/2 B" + std::to_string(i) + "/0 INSERT/8 0/2 B" + std::to_string(i + 1) + "/0 ENDBLK/";
    }
    std::string wrong = binary;
    wrong[wrong.find("CIRCLE") + 7] = '\xFF';  // a code that no value has a form for
    const struct {
        std::string bytes;
        int result;
    } cases[] = {
        {"", kDxfNoDrawing},
        {"hello\nworld\n", kDxfNoDrawing},
        {"AC1015\1\2\3", kDxfDwgDrawing},
        {good.substr(0, good.size() - 4), kDxfCutOff},
        {good.substr(0, good.find("CIRCLE")), kDxfCutOff},
        {binary.substr(0, binary.size() / 2), kDxfCutOff},
        {wrong, kDxfCutOff},
        {Section("ENTITIES", "0 LINE/x 1"), kDxfBadPair},
        {Section("ENTITIES", "0 LINE/2147483647 1"), kDxfBadPair},
        {Section("ENTITIES", "0 LINE/-3 1"), kDxfBadPair},
        {Section("ENTITIES", "0 SECTION"), kDxfBroken},
        {Pairs("0 LINE/8 0"), kDxfNoDrawing},
        {Drawing("", "", nested), kDxfBroken},
        {Drawing("", "", "0 LINE"), kDxfBroken},
        {Pairs("0 SECTION/2 ENTITIES/0 EOF"), kDxfCutOff},
    };
    for (const auto& c : cases) {
        const Imported imported = Import(c.bytes, tables.import);
        EXPECT_EQ(imported.result, c.result) << c.bytes.substr(0, 60);
        EXPECT_TRUE(imported.content.items.empty() && imported.content.blocks.empty());
    }
    const std::string small = Drawing("", "0 LINE/8 A/10 1.5");
    const std::string smallBinary = Converted(small, tables).bytes;
    for (const std::string& whole : {small, smallBinary})
        for (std::size_t size = 0; size + 5 < whole.size(); size += 3)
            EXPECT_NE(Import(whole.substr(0, size), tables.import).result, 0) << size;
    // Text files have no place for the line ends that values of binary ones may have.
    std::string lines = binary;
    lines[lines.find("text") + 2] = '\n';
    tables.output.params.binaryFormat = 0;
    const Exported text = Converted(lines, tables);
    EXPECT_EQ(Items(text.bytes, "ENTITIES", {1})[2], "1 te^Jt/");
    MemorySource failing(good, {}, good.size() / 2);
    ModelContent content;
    Summary summary;
    EXPECT_EQ(ReadDrawing(failing, tables.import, content, summary), kDxfCannotRead);

    const Imported deep = Import(Drawing("", "0 INSERT/8 0/2 B0", chain), tables.import);
    ASSERT_EQ(deep.result, 0);
    const Exported exported = Export(deep.content, tables.output);
    EXPECT_EQ(exported.summary.blocks, 20000u);
    EXPECT_EQ(Count(exported.summary, Fate::kNoSuchBlock, "B20000"), 1u);
    tables.import.params.maxItemCount = 6;
    EXPECT_EQ(Import(good, tables.import).result, 0);
    tables.import.params.maxItemCount = 5;
    EXPECT_EQ(Import(good, tables.import).result, kDxfTooManyItems);
    EXPECT_EQ(Export(Import(Drawing(kLayers, ""), Tables().import).content, tables.output).result, kDxfNothing);
}

}  // namespace
