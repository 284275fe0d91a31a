#include "drawing/UsedNames.h"

#include <gtest/gtest.h>

#include "tests/DrawingText.h"
#include "tests/fuzz/DxfReading.h"

using namespace drawing;

namespace {

Result Add(const std::string& file, UsedNames& names, std::size_t failAt = std::string::npos) {
    MemorySource source(file, "", failAt);
    const auto ofUtf8 = [](std::string_view text) { return "<" + std::string(text) + ">"; };
    return names.Add(source, {ofUtf8, nullptr});
}

std::string Show(const UsedNames& names, NameKind kind) {
    std::string out;
    for (const UsedName& used : names.SortedByUse(kind)) out += used.name + "=" + std::to_string(used.count) + " ";
    return out.substr(0, out.find_last_not_of(' ') + 1);
}

std::string Used(NameKind kind, const std::string& file) {
    UsedNames names;
    EXPECT_EQ(Add(file, names), kDone);
    return Show(names, kind);
}

TEST(UsedNames, LayersOfItemsInTheDrawingAndItsBlocks) {
    const std::string file = Drawing("0 TABLE/2 LAYER/0 LAYER/2 UNUSED/0 ENDTAB",
                                     "0 LINE/8 Wall/0 LINE/8 WALL/0 CIRCLE/0 POLYLINE/8 P/0 VERTEX/8 V/0 SEQEND/8 V/"
                                     "0 POINT/100 AcDbEntity/8 Wall/100 AcDbPoint/8 none/0 LINE/8 \x83\x61/"
                                     "0 LINE/8 \x83\x41",
                                     "0 BLOCK/8 B/2 DOOR/0 ARC/8 IN BLOCK/0 ENDBLK/8 B");
    EXPECT_EQ(Used(NameKind::kLayer, file), "Wall=3 0=1 IN BLOCK=1 P=1 \x83\x41=1 \x83\x61=1");
    UsedNames names;
    for (int i = 0; i < 2; ++i) EXPECT_EQ(Add(file, names), kDone);
    EXPECT_EQ(Show(names, NameKind::kLayer).substr(0, 6), "Wall=6") << "a second drawing adds to the first";
    EXPECT_EQ(Used(NameKind::kLayer, Drawing("", "0 LINE/8 A", "", "AC1021")), "<A>=1") << "its characters are UTF-8";
    const std::string page = Section("HEADER", "9 $DWGCODEPAGE/3 ANSI_1252") + Section("ENTITIES", "0 LINE/8 \xC4");
    EXPECT_EQ(Used(NameKind::kLayer, page + Pairs("0 EOF")), "<\xC3\x84>=1");
}

TEST(UsedNames, LineTypesOfItemsAndOfTheirLayers) {
    const std::string tables =
        "0 TABLE/2 LAYER/0 LAYER/2 A/6 DASHED/0 LAYER/2 UNUSED/6 PHANTOM/0 LAYER/2 BARE/0 ENDTAB";
    EXPECT_EQ(Used(NameKind::kLineType,
                   Drawing(tables,
                           "0 LINE/8 a/0 LINE/8 A/6 ByLayer/0 LINE/8 A/6 CENTER/0 LINE/8 BARE/0 LINE/8 ELSEWHERE/"
                           "0 LINE/8 A/6 ByBlock",
                           "0 BLOCK/2 X/6 PHANTOM/0 LINE/8 A/6 Dashed/0 ENDBLK")),
              "DASHED=3 CONTINUOUS=2 CENTER=1");
}

TEST(UsedNames, TextStylesOfItemsWithText) {
    EXPECT_EQ(Used(NameKind::kTextStyle,
                   Drawing("0 TABLE/2 STYLE/0 STYLE/2 UNUSED/0 ENDTAB",
                           "0 TEXT/7 ROMAN/0 MTEXT/100 AcDbEntity/100 AcDbMText/7 ROMAN/0 ATTRIB/7 NOTE/0 TEXT/0 LINE",
                           "0 BLOCK/2 X/0 ATTDEF/7 Roman/0 ENDBLK")),
              "Roman=3 NOTE=1 STANDARD=1");
}

TEST(UsedNames, ArrowHeadsByHandle) {
    const std::string tables =
        "0 TABLE/2 DIMSTYLE/0 DIMSTYLE/105 1/2 DOTS/342 00a1/341 A4/0 DIMSTYLE/2 TWO/173 1/343 A2/344 A3/342 A1/"
        "0 DIMSTYLE/2 STANDARD/342 0/0 DIMSTYLE/2 UNUSED/342 A4/0 ENDTAB/0 TABLE/2 BLOCK_RECORD/"
        "0 BLOCK_RECORD/5 A1/2 _Dot/0 BLOCK_RECORD/5 A2/2 _OPEN/0 BLOCK_RECORD/5 A3/2 _NONE/0 BLOCK_RECORD/5 A4/2 MY/"
        "0 BLOCK_RECORD/5 A5/2 *D5/0 ENDTAB";
    const std::string own = "1001 ACAD/1000 DSTYLE/1002 {/";
    const std::pair<const char*, const char*> cases[] = {
        {"0 DIMENSION/3 dots/0 ARC_DIMENSION/3 DOTS/0 LEADER/3 DOTS", "_Dot=2 MY=1"},
        {"0 DIMENSION/3 TWO", "_NONE=1 _OPEN=1"},
        {"0 DIMENSION/0 DIMENSION/3 NOT THERE/0 LEADER/3 TWO/0 TOLERANCE/3 DOTS", ""},
        {"0 MULTILEADER/342 A1/0 MULTILEADER/342 0/0 LINE/342 A2", "_Dot=1"},
        {"0 DIMENSION/3 DOTS/OWN1070 342/1005 A2/1002 }", "_OPEN=1"},
        {"0 DIMENSION/3 DOTS/OWN1070 342/1005 0/1002 }", ""},
        {"0 DIMENSION/3 DOTS/OWN1070 173/1070 1/1070 343/1005 A3/1002 }", "_NONE=1"},
        {"0 DIMENSION/3 TWO/OWN1070 344/1005 A2/1002 }", "_OPEN=1"},
        {"0 DIMENSION/3 TWO/OWN1070 40/1040 342/1070 173/1070 0/1002 }", "_Dot=1"},
        {"0 DIMENSION/3 DOTS/1001 OTHER/1070 342/1005 A2/OWN1002 }/1070 342/1005 A2", "_Dot=1"},
        {"0 DIMENSION/3 DOTS/OWN1070 342/1005 A5/1002 }", ""},
    };
    for (std::string items; const auto& [text, arrows] : cases) {
        items = text;
        if (const std::size_t at = items.find("OWN"); at != items.npos) items.replace(at, 3, own);
        EXPECT_EQ(Used(NameKind::kArrow, Drawing(tables, items)), arrows) << text;
    }
}

TEST(UsedNames, ArrowHeadsByName) {
    const std::string tables =
        "0 TABLE/2 DIMSTYLE/0 DIMSTYLE/2 STANDARD/5 MARK/6 L/7 R/0 DIMSTYLE/2 TWO/173 1/6 L/7 R/0 ENDTAB";
    EXPECT_EQ(Used(NameKind::kArrow, Drawing(tables, "0 DIMENSION/0 LEADER/0 DIMENSION/3 TWO", "", "AC1009")),
              "MARK=2 L=1 R=1");
}

TEST(UsedNames, OnlyOfADrawingThatIsWhole) {
    const std::string whole = Drawing("", "0 LINE/8 A"), items = Section("ENTITIES", "0 LINE/8 A");
    const std::pair<std::string, Result> cases[] = {
        {"", kNoDrawing},
        {"AC1032\n", kDwgDrawing},
        {items, kCutOff},
        {items + Pairs("0 LINE"), kNoDrawing},
        {Pairs("0 SECTION/2 ENTITIES/0 LINE/8 A/0 EOF"), kCutOff},
        {Pairs("0 SECTION/2 ENTITIES/0 SECTION"), kBroken},
        {items + "x\ny\n", kBadPair},
    };
    for (const auto& [file, result] : cases) {
        UsedNames names;
        EXPECT_EQ(Add(file, names), result) << file;
        EXPECT_EQ(Show(names, NameKind::kLayer), "") << file;
    }
    UsedNames names;
    EXPECT_EQ(Add(whole, names, whole.size() - 10), kCannotRead);
    EXPECT_EQ(Show(names, NameKind::kLayer), "");
}

TEST(UsedNames, InABinaryDrawing) {
    std::string file("AutoCAD Binary DXF\r\n\x1a\0", 22);
    for (const auto& [code, text] :
         {std::pair(0, "SECTION"), {2, "ENTITIES"}, {0, "LINE"}, {8, "A"}, {6, "DASHED"}, {0, "ENDSEC"}, {0, "EOF"}})
        file.append({static_cast<char>(code), '\0'}).append(text).append(1, '\0');
    EXPECT_EQ(Used(NameKind::kLayer, file), "A=1");
    EXPECT_EQ(Used(NameKind::kLineType, file), "DASHED=1");
}

TEST(NamesInTables, BlanksAndCase) {
    EXPECT_EQ(NameInTable(" my Wall "), "myWall");
    EXPECT_EQ(KeyInTable("my Wall\x83\x61"), "MYWALL\x83\x61");
}

}  // namespace
