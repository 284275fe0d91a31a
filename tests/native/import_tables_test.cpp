#include "tests/native/TableTest.h"

namespace {

TEST(ImportLayers, Records) {
    const std::string form = Form("     LAYER  layer_name = class#"), badClass = Error("無効なクラス番号です (1-256)");
    const std::string badRevision = Error("無効なレビジョン番号です (1-256)"),
                      badColor = Error("無効な色番号です (0-255)");
    const std::string badRgb = Error("無効な R,G,B 値です (0-255)"), badSwitch = Error("無効な値です (0 or 1)");
    const std::string x70(70, 'x');
    const auto t = ReadLines<DxfInLayerTable>({
        {"LAYER 表 ソ|/\t能 = 1;LAYER A,B=256 x;LAYER OTHER = 7;LAYER-CLASS A = 3;LAYER_CLASS OTHER = 4"},
        {"LAYER A = 0;LAYER A = 257;LAYER A=B = 1", badClass},
        {"LAYER A;LAYER-CLASS A;LAYER_REVISION A", form},
        {"LAYER " + x70 + "xx=9"},
        {"LAYER " + x70 + "xxx=9", badClass},
        {"LAYER " + x70 + "xxxx=9", form},
        {"LAYER-REVISION A = 256;LAYER_REVISION OTHER = 1;LAYER-REVISION " + x70.substr(8) + "=9"},
        {"LAYER-REVISION A = 257;LAYER_REVISION A = -1;LAYER-REVISION " + x70.substr(7) + "=9", badRevision},
        {"COLOR-CLASS 0x5 = 256;COLOR_CLASS 256 = 1;COLOR-REVISION 0 = 2;COLOR_REVISION 256 = 3"},
        {"COLOR-CLASS 257 = 1;COLOR_CLASS -1 = 1;COLOR-REVISION 99999999999 = 1", badColor},
        {"COLOR-CLASS 1 = 0", badClass},
        {"COLOR_CLASS 1", Form("     COLOR-CLASS  color# = class#")},
        {"COLOR-REVISION 1 = 257", badRevision},
        {"COLOR_REVISION 1", Form("     COLOR-REVISION  color# = revision#")},
        {"COLOR 1 = 255, 65536, -65535;COLOR 255 = 1"},
        {"COLOR 0 = 1,1,1;COLOR 256 = 1,1,1", badColor},
        {"COLOR 2 = 0,0,256;COLOR 2 = -1,0,0;COLOR 2 = 0,4294967296,0", badRgb},
        {"COLOR 2", Form("     COLOR  color# = R, G, B")},
        {"LAYER-SWITCH 0x1;LAYER-SWITCH 1"},
        {"LAYER_SWITCH 2;LAYER-SWITCH -1", badSwitch},
    });
    const char* const names[] = {"OTHER", "表ソ|/能", "A,B", "CLASSA", "CLASSOTHER"};
    for (std::size_t i = 0; i < std::size(names); ++i) EXPECT_STREQ(t->layerClassName[i], names[i]);
    EXPECT_EQ(t->layerClassName[5], x70 + "xx");
    EXPECT_EQ(Join(t->layerClass[0], t->layerClass[2], t->layerClassCount), "7 256 5 ");
    EXPECT_EQ(Join(t->layerRevision[0], t->layerRevision[1], t->layerRevisionCount), "1 256 2 ");
    EXPECT_EQ(Join(t->colorClass[0], t->colorClass[1], t->colorClass[256]), "256 1 1 ");
    EXPECT_EQ(Join(t->colorRevision[0], t->colorRevision[255], t->colorRevision[256]), "2 255 3 ");
    EXPECT_EQ(Join(t->colorRgb[1][0], t->colorRgb[1][1], t->colorRgb[1][2]), "255 0 1 ");
    EXPECT_EQ(Join(t->colorRgb[2][0], t->colorRgb[2][1], t->colorRgb[2][2], t->colorRgb[254][0]), "2 20 30 254 ");
    EXPECT_EQ(t->layerSwitch, 1);
}

TEST(ImportLayers, Capacity) {
    const std::string full = Error("テーブルの容量を超えました (Max. 2048)");
    const auto classes = Fill<DxfInLayerTable>(2047, "LAYER A = 5", full);
    EXPECT_EQ(classes->layerClassCount, 2047);
    EXPECT_EQ(classes->layerClass[2047], 5);
    EXPECT_EQ(classes->layerRevisionCount, 0);
    EXPECT_EQ(Fill<DxfInLayerTable>(2047, "LAYER_REVISION A = 6", full)->layerRevision[2047], 6);
    std::vector<Lines> lines(2047, {"LAYER A = 5"});
    lines.push_back({"LAYER A = 0", Error("無効なクラス番号です (1-256)")});
    lines.push_back({"LAYER OTHER = 9"});
    EXPECT_EQ(ReadLines<DxfInLayerTable>(lines)->layerClass[0], 9) << "a full table still takes what needs no room";
}

TEST(ImportLayers, Text) {
    const auto t = ReadLines<DxfInLayerTable>({{"LAYER 表 = 12;LAYER-REVISION R = 3;COLOR-CLASS 255 = 7"}});
    EXPECT_EQ(Join(t->colorClass[0], t->colorRevision[0], t->reserved[2], t->layerRevisionName[2047]), "1 1 0  ");
    t->layerClassName[0][0] = '\0';
    ExpectText(*t,
               "/ LAYER-SWITCH switch\n/              switch = 0 : Layer To Class\n"
               "/                     = 1 : Layer To Revision\n/\nLAYER-SWITCH 0\n/\n"
               "/ Convert Layer to Class\nLAYER 表 = 12\n/\n"
               "/ Convert Layer to Revision\nLAYER-REVISION OTHER = 256\nLAYER-REVISION R = 3\n/\n"
               "/ Convert Color to Revision\nCOLOR-REVISION   1 =   1\n",
               "COLOR-REVISION 255 = 255\n/\n/ Convert Color to Class\nCOLOR-CLASS   1 =   1\n",
               "COLOR-CLASS 254 = 254\nCOLOR-CLASS 255 =   7\n");
}

TEST(ImportLines, Records) {
    const std::string form = Form("   LINE-CODE line_code = line_font, line_weight"),
                      badFont = Error("無効な線種番号です (1-63)");
    const std::string badWeight = Error("無効な線幅番号です (1-16)"), badWidth = Error("無効な線幅です (0.0-999.0)");
    const std::string widthForm = Form("   WIDTH width_s, width_e = line_weight"),
                      badColor = Error("無効な色番号です (1-256)");
    const std::string lineWidthForm = Form("   LINE-WIDTH width = weight#");
    const auto t = ReadLines<DxfInLineTable>({
        {"LINE-TYPE A = 0,1;LINE_TYPE A = 64,1", badFont},
        {"LINE-TYPE A = 1,0;LINE_TYPE A = 1,17;LINE-TYPE A = 1", badWeight},
        {"LINE-TYPE A", form},
        {"LINE_TYPE 表\t能 = 63,16;WIDTH nan, inf = 1;WIDTH 999.5,1000=16"},
        {"WIDTH -0.1, 1 = 1;WIDTH 0, 1000.1 = 1;WIDTH 0, 1e999 = 1", badWidth},
        {"WIDTH 2, 1 = 1", Form("   width_s > width_e")},
        {"WIDTH 1, 2 = 17", badWeight},
        {"WIDTH 1, 2;WIDTH 1 = 2", widthForm},
        {"LINE-WIDTH 0.35 = 5;LINE_WIDTH 2.00 = 16;LINE-WIDTH 1.4 = 2"},
        {"LINE-WIDTH 0.36 = 5;LINE-WIDTH 0.35 = 17;LINE-WIDTH 0.35", lineWidthForm},
        {"COLOR 0 = 16;COLOR 256 = 2"},
        {"COLOR 257 = 1;COLOR -1 = 1", badColor},
        {"COLOR 1 = 0;COLOR 1", badWeight},
    });
    EXPECT_STREQ(t->lineTypeName[0], "表能");
    EXPECT_STREQ(t->lineTypeName[1], "") << "the writer would write it";
    EXPECT_EQ(Join(t->lineTypeCount, t->lineTypes[0].lineFont, t->lineTypes[0].lineWeight), "1 63 16 ");
    const auto& range = t->polyWidths[1];
    EXPECT_EQ(Join(t->polyWidthCount, range.widthStart, range.widthEnd, t->polyWidthWeight[1]), "2 999.5 1000 16 ");
    const auto& weights = t->lineWidthWeight;
    EXPECT_EQ(Join(t->lineWidthValue[9], weights[0], weights[9], weights[10], weights[21], weights[23]),
              "0.35 5 5 2 16 16 ");
    EXPECT_EQ(Join(t->colorWeightCount, t->colorWeight[0], t->colorWeight[1], t->colorWeight[256]), "2 16 1 2 ");
    EXPECT_EQ(Join(t->polWidthSwitch, t->widWidthSwitch, t->colWidthSwitch), "1 1 1 ");

    const auto falling = ReadLines<DxfInLineTable>({{"LINE-WIDTH 0.05 = 9;LINE-WIDTH 0.09 = 3"}});
    EXPECT_EQ(falling->lineWidthWeight[23], 9) << "the largest, not the last";
    const auto off = ReadLines<DxfInLineTable>({{"WIDTH 0,1=1;LINE-WIDTH 0=1;COLOR 1=1;COLWIDTH-SWITCH 0"},
                                                {"POLWIDTH_SWITCH 0;WIDWIDTH-SWITCH 0;WIDWIDTH_SWITCH 2"}});
    EXPECT_EQ(Join(off->polWidthSwitch, off->widWidthSwitch, off->colWidthSwitch), "0 0 0 ");
    const auto on = ReadLines<DxfInLineTable>({{"COLWIDTH_SWITCH 1;POLWIDTH-SWITCH 1;WIDWIDTH_SWITCH 1"}});
    EXPECT_EQ(Join(on->polWidthSwitch, on->widWidthSwitch, on->colWidthSwitch), "1 1 1 ");
}

TEST(ImportLines, CapacityAndPieces) {
    using T = DxfInLineTable;
    EXPECT_EQ(Fill<T>(256, "LINE-TYPE A = 1,1", Error("線種テーブルの容量を超えました (Max. 256)"))->lineTypeCount,
              256);
    EXPECT_EQ(Fill<T>(50, "WIDTH 1,2=3", Error("線幅テーブルの容量を超えました (Max. 50)"))->polyWidthCount, 50);
    EXPECT_EQ(Fill<T>(257, "COLOR 9 = 9", Error("色テーブルの容量を超えました (Max. 257)"))->colorWeightCount, 257);
    const std::string first = "LINE-TYPE A = 2,3" + std::string(110, ' ');
    const auto pieces = Read<T>(first + "LINE-TYPE B = 4,5\n");
    EXPECT_EQ(pieces.listed, "    " + first + "    LINE-TYPE B = 4,5\n");
    EXPECT_STREQ(pieces.table->lineTypeName[1], "B");
}

TEST(ImportLines, Text) {
    const auto t = ReadLines<DxfInLineTable>({{"COLOR 255 = 4"}});
    t->polyWidths[0].widthStart = 1234567.0;
    t->lineTypeCount = 0;  // the names count
    ExpectText(*t,
               "/ Convert Line Type to Line Font No.\n/\nLINE-TYPE  CONTINUOUS = 1,1\nLINE-TYPE  DASHED = 2,1\n"
               "LINE-TYPE  CENTER = 3,1\nLINE-TYPE  PHANTOM = 4,1\n/\nLINE-WIDTH  0.00 = 1\n",
               "LINE-WIDTH  2.11 = 1\n/\n/ Convert Polyline Width to Line Weight No.\nWIDTH  1.23457e+06, 999 = 1\n"
               "/\n/ Convert Color to Line Weight No.\nCOLOR  1 = 1\n",
               "COLOR  255 = 4\n/\nPOLWIDTH-SWITCH  0\nCOLWIDTH-SWITCH  1\nWIDWIDTH-SWITCH  0\n");
    EXPECT_EQ(t->lineWidthWeight[23], 1) << "raised in the table too";
    t->polyWidthCount = -1;
    t->colWidthSwitch = 0;
    ExpectText(*t, "", "", "2.11 = 1\n/\nPOLWIDTH-SWITCH  0\nCOLWIDTH-SWITCH  0\nWIDWIDTH-SWITCH  0\n");
}

TEST(ImportStyles, Records) {
    const std::string notAbove = Error("無効な値です (> 0.0)"), badDirection = Error("無効な値です (0 or 1)");
    const std::string form = Form("  STYLE = style_name, spaceing");
    const auto t = ReadLines<DxfInStyleTable>({
        {"STYLE=BIGFONT,,,,,,5,6;STYLE = STANDARD, 2, 2, 3, 0.5, 1.5, 99, 15, 4, 5;STYLE = BIGFONT, , , , -0.1, 2.1, "
         "100, 16, 0, 0"},
        {"STYLE = TSTANDARD,,,,1.0,0.9,0,0,-1,x;STYLE=表 ソ,,1,,,;STYLE=表 ソ,,0,,0.0,1.0,1,1,.1,.1,"},
        {"STYLE = A, 0,,,,;STYLE = A, inf,,,,;STYLE = STANDARD,9,,-1,,", notAbove},
        {"STYLE = A,,3,,,;STYLE = A,,-1,,,", badDirection},
        {"STYLE = A,,,,;STYLE A;STYLES = A,,,,,,,", form},
        {"2TO1 = ON;1TO2=O N;DIM-2TO1 = ON;DIM_2TO1 = OFF"},
        {"2TO1 = 1", Form("  2TO1 = flag")},
        {"1TO2 ON", Form("  1TO2 = flag")},
        {"DIM-2TO1", Form("  DIM_2TO1 = flag")},
        {"SPACE = 1.5, -2;FONT = 3, .5;TEXT_SPACE = 7;TEXT-SPACE = 8"},
        {"SPACE 1,2", Form("   SPACE = vertical, hollizontal")},
        {"FONT = 3, 1e999", Form("   FONT = font, factor")},
        {"TEXT_SPACE", Form("  TEXT_SPACE = xx")},
    });
    const auto values = [&t](int i) {
        const auto& n = t->styleInts[i];
        const auto& r = t->styleReals[i];
        return t->styleName[i] + ": "s + Join(n[0], n[1], n[2], n[3], r[1], r[2], r[3], r[4], r[5], r[6]);
    };
    EXPECT_EQ(values(0), "STANDARD: 8 2 99 15 2 3 1.5 0.5 4 5 ");
    EXPECT_EQ(values(1), "BIGFONT: 7 0 1 1 1.1875 1 1.4 0.2 0.95 0.75 ");
    EXPECT_EQ(values(2), "TSTANDARD: 9 2 1 1 1.1875 1 1.4 0.2 0.95 0.75 ");
    EXPECT_EQ(values(3), "TBIGFONT: 8 2 1 1 1.1875 1 1.4 0.2 0.95 0.75 ");
    EXPECT_EQ(values(4), "表ソ: 0 1 1 1 1.1875 1 1.4 0.2 0.95 0.75 ");
    EXPECT_EQ(values(5), "表ソ: 0 0 1 1 1.1875 1 1 0 0.1 0.1 ");
    EXPECT_EQ(values(6), ": 0 0 0 0 0 0 0 0 0 0 ") << "of the refused records nothing stays";
    EXPECT_EQ(Join(t->styleCount, t->twoToOne, t->oneToTwo, t->dimTwoToOne), "6 1 1 0 ");
    EXPECT_EQ(Join(t->spaceVertical, t->spaceHorizontal, t->font, t->fontFactor, t->textSpace), "1.5 -2 3 0.5 8 ");
    ExpectText(*t,
               "/ Convert Text Font Style to Text Font No.\n/\n"
               "STYLE = STANDARD, 2, 2, 3, 0.5, 1.5, 99, 15, 4, 5\n",
               "",
               "STYLE = 表ソ, 1.1875, 0, 1, 0, 1, 1, 1, 0.1, 0.1\n/\n"
               "1TO2     = ON\n2TO1     = ON\nDIM_2TO1 = OFF\n");
    const std::string full = Error("文字スタイルテーブルの容量を超えました (Max. 256)");
    EXPECT_EQ(Fill<DxfInStyleTable>(252, "STYLE = A,,,,,", full)->styleCount, 256);
}

TEST(ImportArrows, Records) {
    const std::string badMark = Error("無効なマーク番号です"), badAngle = Error("無効な角度です (0 or 180)");
    const auto t = ReadLines<DxfInArrowTable>({
        {"ARROW LINE = 4095, 180, 5;ARROW 表 ソ = 7, 180, -30001;ARROW 表 ソ = 1"},
        {"ARROW SOLID = 9, 90, 7;ARROW A = 2, -180, 1", badAngle},
        {"ARROW CIRCLE = 5000, 0, 1;ARROW A = 0, 0, 1;ARROW OTHER = 2147483648,0,1", badMark},
        {"ARROW A 1, 0, 1;ARROW A = 3, 0, 2147483648", kBad},
        {"ARROW " + std::string(66, 'x') + "=1234"},
        {"ARROW " + std::string(70, 'x') + "=1,0", kBad},
    });
    const auto arrow = [&t](int i) {
        const auto& a = t->arrows[i];
        return Join(t->arrowName[i], a.arrowMark, a.arrowAngle, a.arrowSize);
    };
    EXPECT_EQ(arrow(0), "LINE 4095 180 5 ");
    EXPECT_EQ(arrow(1), "SOLID 9 0 300 ") << "the mark of a refused record stays, in its range or not";
    EXPECT_EQ(arrow(2), "CIRCLE 5000 0 300 ");
    EXPECT_EQ(arrow(3), "OTHER 1 180 300 ");
    EXPECT_EQ(arrow(4), "表ソ 7 180 -30001 ");
    EXPECT_EQ(arrow(5), "表ソ 1 0 0 ");
    EXPECT_EQ(arrow(6), std::string(66, 'x') + " 123 0 0 ") << "of 70 bytes, no more";
    EXPECT_EQ(t->arrowCount, 7);
    t->arrowCount = 6;
    t->arrowName[1][0] = '\0';
    EXPECT_EQ(Format(*t),
              kHeaderText +
                  "/ Convert Arrow Head to Mark No.\n/\n"
                  "ARROW LINE   = 4095, 180,    5\nARROW CIRCLE = 5000,   0,  300\nARROW OTHER  =    1, 180,  300\n"
                  "ARROW 表ソ   =    7, 180, -30001\nARROW 表ソ   =    1,   0,    0\n/\n/ Eof\n"s);
    const auto full =
        Fill<DxfInArrowTable>(252, "ARROW A = 1, 0, 9", Error("矢印テーブルの容量を超えました (Max. 256)"));
    EXPECT_EQ(full->arrowCount, 256);
}

TEST(ImportTables, ComeBackAsTheyWereWritten) {
    const std::string name = "表ソ\x83|アイ,\\/|-#";
    EXPECT_TRUE(ComesBack(*Good<DxfInLayerTable>(
        "LAYER-SWITCH 1;LAYER OTHER = 7;LAYER-REVISION OTHER = 8;" + Many(1, 2047, "LAYER " + name + " = %") +
        Many(1, 99, "LAYER-REVISION R" + name + " = %") + Many(1, 255, "COLOR-CLASS # = %") +
        Many(1, 255, "COLOR-REVISION # = %", 251))));
    EXPECT_TRUE(ComesBack(*Good<DxfInLineTable>(Many(1, 256, "LINE-TYPE " + name + " = %,1", 63) +
                                                Many(1, 50, "WIDTH #, 5#.25 = %", 16) + "LINE-WIDTH 0.00 = 3;" +
                                                Many(1, 255, "COLOR # = %", 16) + "POLWIDTH-SWITCH 0")));
    EXPECT_TRUE(ComesBack(*Good<DxfInStyleTable>(
        Many(1, 252, "STYLE = S#表ソ\x83|, #.5, 2, 0.#, 0.#, 1.#, %, 3, 5#, 0.0#", 99) + "2TO1 = ON;DIM_2TO1 = ON")));
    EXPECT_TRUE(
        ComesBack(*Good<DxfInArrowTable>(Many(1, 251, "ARROW A" + name + " = %, 180, 1#", 4095) + "ARROW B=1,0,5")));
}

// In the file a name stands with blanks around it and with values that are as wide as can be.
template <class Table>
void ExpectLongest(std::size_t longest, const std::string& start, const std::string& end) {
    for (const std::size_t more : {0u, 1u}) {
        const auto table = Good<Table>(start + std::string(longest + more, 'x') + end);
        EXPECT_EQ(more == 0, ComesBack(*table)) << start;
    }
}

TEST(ImportTables, LongestNamesAreTheLastThatComeBack) {
    ExpectLongest<DxfInLayerTable>(kDxfInLongestClassLayer, "LAYER ", "=256");
    ExpectLongest<DxfInLayerTable>(kDxfInLongestRevisionLayer, "LAYER-REVISION ", "=256");
    ExpectLongest<DxfInLineTable>(kDxfInLongestLineType, "LINE-TYPE ", "=63,16");
    ExpectLongest<DxfInArrowTable>(kDxfInLongestArrow, "ARROW ", "=4095,180,30000");
    ExpectLongest<DxfInStyleTable>(kDxfInLongestStyle,
                                   "STYLE=", ",0.123457,2,0.123457,1.23457e-99,1.23457,99,15,0.123457,0.123457");
    const std::string real = "1.23457e-100";
    ExpectLongest<DxfInStyleTable>(
        28, "STYLE=", "," + real + ",2," + real + "," + real + ",1.23457,99,15," + real + "," + real);
}

}  // namespace
