#include "tests/native/TableTest.h"

using Layers = DxfOutLayerTable;
using Fonts = DxfOutLineTable;
using Styles = DxfOutStyleTable;
using Arrows = DxfOutArrowTable;

namespace {

const std::string kBadClass = Error("無効なクラス番号です (0-257)"), kBadStyle = Error("無効な値です (> 0.0)");
const std::string kNoComment = Error("注釈がありません"), kBadAngle = Error("無効な角度です (0 or 180)");
const std::string kFontForm = Form("  LINE-FONT line_font , line_weight = line_code , width");

TEST(ExportLayers, Records) {
    const std::string x(70, 'x');
    const auto t = ReadLines<Layers>({
        {"PICTURE_OFF -257;PICTURE_OFF 257;CLASS_CONTROL ITEM;LAYER_CONTROL CLASSES"},
        {"PICTURE_OFF 258;PICTURE_OFF -258;PICTURE_OFF 99999999999", kBadClass},
        {"PICTURE 1 = 表 ソ|/\t能;PICTURE 257=A=B, C;CLASS 257 = C;REVISION 257 = R;PICTURE 2x=P;CLASS 3 =;PICTURE 0x5=A"},
        {"PICTURE 1;PICTURE ", Form("    PICTURE  picture# = layer_name")},
        {"PICTURE 258 = A;PICTURE -1 = A;PICTURE 2147483648 = A", Error("無効なピクチャ番号です (0-257)")},
        {"CLASS 1", Form("    CLASS  class# = layer_name")},
        {"CLASS 258 = A;CLASS -1 = A", kBadClass},
        {"REVISION 1", Form("    REVISION  revision# = layer_name")},
        {"REVISION 258 = A;REVISION -1 = A", Error("無効なレビジョン番号です (0-257)")},
        // 72 bytes behind the keyword, and no half of the character that they would split.
        {"PICTURE 5=" + x + "yz;CLASS 5=" + x.substr(1) + "表;REVISION 5=" + x.substr(8) + "表"},
        {"COLOR 256 = 255;COLOR 0y = 0"},
        {"COLOR 1", " ***** 書式が違います*****       COLOR  color# = color#\n"},
        {"COLOR 257 = 1;COLOR -1 = 1;COLOR 5 = 256;COLOR 5 = -1;COLOR 5 = 4294967295",
         Error("無効な色番号です (0-256)")},
    });
    EXPECT_EQ(Join(t->pictureOff, t->classControl, t->layerControl, t->spareSlot), "257 2 1 257 ");
    const auto& p = t->pictureLayer;
    EXPECT_EQ(Join(p[0], p[1], p[2], p[257], t->classLayer[257], t->revisionLayer[257], t->classLayer[3]),
              "A 表ソ|/能 P A=B,C C R  ");
    EXPECT_EQ(Join(p[5], t->classLayer[5], t->revisionLayer[5]), Join(x, x.substr(1), x.substr(8)));
    EXPECT_EQ(Join(t->colorMap[0], t->colorMap[1], t->colorMap[5], t->colorMap[256]), "0 0 0 255 ");
    const auto words = Good<Layers>("CLASS_CONTROL COMPOSITION;LAYER_CONTROL REVISION");
    EXPECT_EQ(Join(words->classControl, words->layerControl), "1 2 ");
    const auto none = Good<Layers>("CLASS_CONTROL ITEM;LAYER_CONTROL CLASS;CLASS_CONTROL Comp;LAYER_CONTROL ON");
    EXPECT_EQ(Join(none->classControl, none->layerControl), "0 0 ");
}

TEST(ExportLayers, NumberZeroFillsWhatIsEmptyThen) {
    const auto t = Good<Layers>(
        "PICTURE 4=;PICTURE 5=;PICTURE 6 = X;PICTURE 0 = 表;PICTURE 5=;CLASS 9=;REVISION 7=;REVISION 0=R;CLASS 0=");
    const auto& p = t->pictureLayer;
    EXPECT_EQ(Join(p[0], p[3], p[4], p[5], p[6]), "表 0 表  X ");
    EXPECT_EQ(Join(t->revisionLayer[7], t->revisionLayer[8], t->classLayer[9]), "R 0  ");
    const auto colors = [](const std::string& records) {
        const auto table = Good<Layers>(records);
        return Join(table->colorMap[0], table->colorMap[2], table->colorMap[3], table->colorMap[256]);
    };
    EXPECT_EQ(colors("COLOR 3 = 1;COLOR 0 = 7"), "7 7 1 7 ");
    EXPECT_EQ(colors("COLOR 0 = 7;COLOR 3 = 1"), "7 7 1 7 ");
    EXPECT_EQ(colors("COLOR 0 = 7;COLOR 0 = 8"), "8 7 7 7 ") << "nothing is unset any more";
    EXPECT_EQ(colors("COLOR 3 = 1"), "0 0 1 0 ");
}

TEST(ExportLayers, PictureOffNamesTheFrame) {
    const auto frame = [](const std::string& records) {
        const auto t = Good<Layers>(records);
        return Join(t->pictureOff, t->classLayer[257]);
    };
    EXPECT_EQ(frame("PICTURE_OFF 256;CLASS 256 = A"), "257 A ");
    EXPECT_EQ(frame("PICTURE_OFF 5;CLASS 5 = A;CLASS 257 = B"), "257 B ");
    EXPECT_EQ(frame("PICTURE_OFF 0;CLASS 0 = A"), "0 0 ");
    for (const char* number : {"-257", "-1"}) EXPECT_EQ(frame("PICTURE_OFF "s + number + ";REVISION 1 = A"), "257 0 ");
}

TEST(ExportLayers, Text) {
    const auto t = Good<Layers>("PICTURE 1 = 表;CLASS 257 = A B;COLOR 256 = 255");
    ExpectText(*t, "/ Convert Picture to Layer\n/\nPICTURE_OFF  0\n/\n/\nPICTURE    1 = 表\nPICTURE    2 = 0\n",
               "REVISION 257 = 0\n/\nCOLOR      0 =   0\n", "COLOR    255 =   0\nCOLOR    256 = 255\n");
    t->pictureOff = -257;
    t->layerControl = t->classControl = 1;
    std::memset(t->revisionLayer[1], 'x', sizeof t->revisionLayer[1]);  // a field without its NUL
    ExpectText(*t,
               "/ Convert Picture to Layer\n/\nPICTURE_OFF  -257\n/\nLAYER_CONTROL  CLASS\n/\n"
               "CLASS_CONTROL  COMPOSITE\n/\nPICTURE    1 = 表\n",
               "CLASS    257 = AB\n/\nREVISION   1 = " + std::string(64, 'x') + "\n", "");
    t->layerControl = t->classControl = 2;
    ExpectText(*t, "", "\n/\nLAYER_CONTROL  REVISION\n/\nCLASS_CONTROL  ITEM\n/\nPICTURE ", "");
}

std::string Patterns(const Fonts& table) {
    std::string all;
    for (std::int32_t i = 0; i < table.patternCount; ++i) {
        const auto& pattern = table.patterns[i];
        all += pattern.patternName + ":"s + pattern.patternComment + ":";
        for (std::int32_t k = 0; k < pattern.pitchCount; ++k) all += Join(pattern.pitch[k]);
        all += "|";
    }
    return all;
}
std::string PatternsOf(const std::string& file) { return Patterns(*Read<Fonts>(file).table); }

TEST(ExportLines, DefaultsAndText) {
    const auto t = Read<Fonts>("").table;
    const std::string defaults =
        "CONTINUOUS:solid line:|DASHED:-- -- -- -- -- -- -- -- -- -- :2 1 |CENTER:--- - --- - --- - --- - --- - "
        ":3 1 1 1 |PHANTOM:----- - - ----- - - ----- - - :3 1 1 1 1 1 |";
    EXPECT_EQ(Patterns(*t), defaults);
    const auto& types = t->fontLineType;
    EXPECT_EQ(Join(types[0], types[1], types[2], types[3], types[4], types[62]),
              "CONTINUOUS DASHED CENTER PHANTOM CONTINUOUS CONTINUOUS ");
    const auto& patterns = t->fontPattern;
    EXPECT_EQ(Join(t->fontCount, patterns[0], patterns[3], patterns[4], patterns[14], patterns[15]), "15 1 4 1 1 0 ");

    t->lineWidth[16] = 12345;
    t->weightWidth[15] = 0.1234567;
    t->weightColor[15] = -1;
    const std::string end =
        "LINE-FONT2  16 = 0.123457, -1\n/\nPITCH-DASHED =  2, -1\nPITCH-CENTER =  3, -1, 1, -1\n"
        "PITCH-PHANTOM =  3, -1, 1, -1, 1, -1\n/\nCOMMENT-CONTINUOUS = solid line\n"
        "COMMENT-DASHED = -- -- -- -- -- -- -- -- -- -- \nCOMMENT-CENTER = --- - --- - --- - --- - --- - \n"
        "COMMENT-PHANTOM = ----- - - ----- - - ----- - - \n";
    ExpectText(*t,
               "/ Line Width Type\n/\nWIDTH-TYPE  0\n/\n/ Convert Line Weight to Line Width\n/\n"
               "LINE-WIDTH   0 = 0.00\nLINE-WIDTH   1 = 0.00\n",
               "LINE-WIDTH  16 = 123.45\n/\n/ Convert Line to Line Type\n/\nLINE-FONT1   1 = CONTINUOUS\n", end);
    ExpectText(*t, "", "LINE-FONT1  63 = CONTINUOUS\nLINE-FONT2   1 = 0, 0\n", end);
    EXPECT_EQ(PatternsOf(Format(*t)).substr(0, 61), defaults.substr(0, 59) + ":2") << "the last blank is lost";
    t->patternCount = -1;
    ExpectText(*t, "", "", "-1\n/\n/\n");
}

TEST(ExportLines, Records) {
    const auto t = ReadLines<Fonts>({
        {"LINE-FONT 0,1=A,1,1;LINE-FONT 64,1=A,1,1;LINE-FONT1 0=A;LINE-FONT1 64=A", Error("無効な線種番号です (1-63)")},
        {"LINE-FONT 1,-1=A;LINE-FONT 1,17=A;LINE-FONT2 0=1,1;LINE-FONT2 17=1,1", Error("無効な線幅番号です (0-16)")},
        {"LINE-FONT 1,1=A,-0.1;LINE-FONT 1,1=A,1000.1;LINE-FONT2 1=1001,1;LINE-FONT2 1=1e999,1",
         Error("無効な線幅です (0.0-1000.0)")},
        {"LINE-FONT 1,1=A,1,-2;LINE-FONT 1,1=A,1,257;LINE-FONT2 1=1,257;LINE-FONT2 1=1,-2",
         Error("無効な色番号です (0-256)")},
        {"LINE-FONT 1=A;LINE-FONT 1,1;LINE-FONT1 1;LINE-FONT2 1;PITCH-A;COMMENT-A;PITCH-A=1,1e999", kFontForm},
        {"COMMENT-A =\t ;COMMENT-A=", kNoComment},
        {"LINE-WIDTH 1;LINE-WIDTH 17=1;LINE-WIDTH -1=1;LINE-WIDTH 1=21474837;LINE-WIDTH 1=-21474837;LINE-WIDTH 1=1e999",
         Form("  LINE-WIDTH  weight# = width")},
        {"LINE-FONT3 1=A;TAB\tKEY"},
        {"WIDTH-TYPE 99999999999", kBad},
        {"LINE-WIDTH 0 = 0.005;LINE-WIDTH 16 = 21474836;LINE-WIDTH 2 = 0.29;LINE-WIDTH 1 = 0.004;"
         "LINE-WIDTH 3 = -0.5;LINE-WIDTH 4 = 0x10;WIDTH-TYPE -7"},
    });
    EXPECT_EQ(unknown.text,
              " LINE-FONT3 1=A\n ***** Invalid Key_Word *****\n TAB KEY\n ***** Invalid Key_Word *****\n");
    const auto& widths = t->lineWidth;
    EXPECT_EQ(Join(t->widthType, widths[0], widths[1], widths[2], widths[3], widths[4], widths[16]),
              "1 1 0 29 -49 0 2147483600 ");
    const auto defaults = Read<Fonts>("").table;
    std::copy_n(defaults->lineWidth, 17, t->lineWidth);
    t->widthType = 0;
    EXPECT_EQ(*t, *defaults) << "bad records leave the default patterns too";
}

TEST(ExportLines, FontsAndWeights) {
    const auto t = Good<Fonts>(
        "LINE-FONT 63, 2 = 表 能, 2.5, -1;LINE-FONT 1,2=B,1000,256;LINE-FONT 15,3=C,0,9;LINE-FONT1 2=C,D;LINE-FONT1 3=;"
        "LINE-FONT2 3 = 7, 8;LINE-FONT2 1 = 1000;LINE-FONT 2,0=A , 4, 5;LINE-FONT 2,0=B,6,7;LINE-FONT2 16=8,9");
    EXPECT_EQ(Patterns(*t), "表能:表能:|B:B:|C:C:|::|A:A:|");
    const auto& types = t->fontLineType;
    EXPECT_EQ(Join(types[62], types[0], types[1], types[14]), "表能 B B C ");
    const auto& patterns = t->fontPattern;
    EXPECT_EQ(Join(patterns[0], patterns[2], patterns[3], patterns[14], patterns[62]), "2 4 0 3 0 ");
    std::string weights;
    for (const int i : {0, 1, 2, 3, 15}) weights += Join(t->weightWidth[i], t->weightColor[i]);
    EXPECT_EQ(weights, "1000 5 2.5 -1 7 9 4 5 4 5 ") << "what is not 0 stays";
}

TEST(ExportLines, PitchesAndComments) {
    EXPECT_EQ(Patterns(*Good<Fonts>("PITCH-A = 1, -2.5,,x,4;PITCH-B=;COMMENT-A = \t a  = 表 能\t b  ;COMMENT-表 C=c\rd;"
                                    "PITCH-B=1,;COMMENT-B = b;PITCH-B = 3;PITCH-A 2 = 1;PITCH-C = ")),
              "A:a  = 表 能  b:1 2.5 0 0 4 |B::3 |表C:cd:|A2::1 |C::|");
    // Without a line end the last character goes, the whole of it.
    EXPECT_EQ(PatternsOf("COMMENT-A = ab"), "A:a:|");
    EXPECT_EQ(PatternsOf("COMMENT-A = a 表"), "A:a:|");
    EXPECT_EQ(Read<Fonts>("COMMENT-A = a").listed, "    COMMENT-A = a" + kNoComment);
    // The name is sought in 72 bytes, the comment reaches to the end of a piece of 127.
    const std::string blanks(62, ' '), dots(110, '.');
    EXPECT_EQ(PatternsOf("COMMENT-ABCDEFGHI" + blanks + "=x\n"), "ABCDEFGHI:x:|");
    EXPECT_TRUE(Read<Fonts>("COMMENT-ABCDEFGHIJ" + blanks + "=x\n").errors);
    EXPECT_EQ(PatternsOf("COMMENT-ABCDEFG=" + dots + "\nPITCH-B=2\n"), "ABCDEFG:" + dots + ":|B::2 |");
    EXPECT_EQ(PatternsOf("COMMENT-ABCDEFGH=" + dots + "\n"), "ABCDEFGH:" + dots.substr(1) + ":|");
}

TEST(ExportLines, Capacity) {
    std::vector<Lines> lines;
    for (int i = 1; i <= 256; ++i) lines.push_back({"COMMENT-P" + std::to_string(i) + "=c"});
    lines.push_back({"LINE-FONT1 1=Q;LINE-FONT 2,1=R,1,1;PITCH-Q=1;COMMENT-Q=c", kBad});
    std::string pitches = "3";
    for (int i = 1; i < 20; ++i) pitches += ",1";
    lines.push_back({"LINE-FONT1 3=P256;PITCH-P2=" + pitches});
    lines.push_back({"PITCH-P3=" + pitches + ",4;PITCH-P4=" + pitches + ",", kBad});
    const auto t = ReadLines<Fonts>(lines);
    EXPECT_EQ(Join(t->patternCount, t->fontLineType[0], t->fontPattern[0], t->weightColor[0], t->fontPattern[2]),
              "256 Q 0 1 256 ");
    EXPECT_EQ(Join(t->patterns[1].pitchCount, t->patterns[1].pitch[0], t->patterns[2].pitchCount), "20 3 20 ");
}

// Whether a pattern that is a line type as well is read as it was written.
bool PatternComesBack(std::size_t name, std::size_t comment, double pitch) {
    auto table = Read<Fonts>("LINE-FONT1 63 = A\n").table;
    DxfOutLineTable::Pattern& pattern = table->patterns[0];
    StoreText(pattern.patternName, std::string(name, 'n'));
    StoreText(pattern.patternComment, std::string(comment, 'c'));
    for (auto& type : table->fontLineType) StoreText(type, std::string(name, 'n'));
    for (pattern.pitchCount = 0; pitch != 0 && pattern.pitchCount < 8;) pattern.pitch[pattern.pitchCount++] = pitch;
    FindDxfOutFontPatterns(*table);
    return ComesBack(*table);
}

TEST(ExportLines, LongestTextsAreTheLastThatComeBack) {
    EXPECT_TRUE(PatternComesBack(kDxfOutLongestLineType, 1, 0));
    EXPECT_FALSE(PatternComesBack(kDxfOutLongestLineType + 1, 1, 0));
    EXPECT_TRUE(PatternComesBack(9, kDxfOutLongestComment - 9, 0));
    EXPECT_FALSE(PatternComesBack(9, kDxfOutLongestComment - 8, 0));
    const DxfOutLineTable::Pattern pattern{"", "", 8, {10, 10, 10, 10, 10, 10, 10, 10}};
    const std::size_t left = kDxfOutLongestPitches - DxfOutPitchText(pattern).size();
    EXPECT_TRUE(PatternComesBack(left, 1, 10));
    EXPECT_FALSE(PatternComesBack(left + 1, 1, 10));
}

std::string Values(const Styles& table, int i) {
    const auto& s = table.styles[i];
    return s.styleName + ": "s + Join(s.f1, s.f2, s.f3, s.f4, s.f5, s.fontFile, s.bigFontFile, s.f8, s.f9);
}

TEST(ExportStyles, Defaults) {
    const auto t = Read<Styles>("").table;
    EXPECT_EQ(Values(*t, 0), "STANDARD: 1 0 1.1875 0 -1 monotxt  0.75 0.95 ");
    EXPECT_EQ(Values(*t, 1), "BIGFONT: 1 0 1.1875 -1 0 monotxt bigfont 0.75 0.95 ");
    EXPECT_EQ(Values(*t, 2), "TSTANDARD: 1 2 1.1875 0 -1 monotxt  0.75 0.95 ");
    EXPECT_EQ(Values(*t, 3), "TBIGFONT: 1 2 1.1875 -1 0 monotxt bigfont 0.75 0.95 ");
    EXPECT_EQ(Values(*t, 19), ": 1 0 1.1875 0 0 monotxt  0.75 0.95 ");
    outputVersion = 0;
    const auto old = Read<Styles>("STYLE=TBIGFONT,2").table;
    outputVersion = 1;
    EXPECT_EQ(Values(*old, 2), "TSTANDARD: 0.95 2 2 0 -1 txt  0.75 0.95 ");
    EXPECT_EQ(Values(*old, 3), "TBIGFONT: 0.95 0 2 -1 0 txt bigfont 0.75 0.95 ");
}

TEST(ExportStyles, Records) {
    const auto t = ReadLines<Styles>({
        {"2TO1 = ON;STYLE = BIGFONT, 0, 1, 3, 99, 15, f, g, 4, 5;STYLE=STANDARD,2,-3,-1,100,16,a 表,,0,0,x"},
        {"2TO1 = 1;2TO1 ON", Form("   2TO1 = flag")},
        {"STYLE = TSTANDARD,-0.1;STYLE = TSTANDARD,1e999", kBadStyle},
        {"STYLE;STYLE A,1;STYLES = A;STYLE = TSTANDARD,1,32768", Form("   STYLE = style_name , spaceing")},
        {"STYLE = TBIGFONT,3,,nan,0,,,,inf,-5;STYLE=TSTANDARD,,,4,0,0,,b,7,9;2TO1=OFFICE"},
    });
    EXPECT_EQ(Values(*t, 0), "STANDARD: 2 -3 3 0 -1 a表  0.75 5 ");
    EXPECT_EQ(Values(*t, 1), "BIGFONT: 2 1 3 99 15 f g 0.75 5 ");
    EXPECT_EQ(Values(*t, 2), "TSTANDARD: 0 0 3 0 0 monotxt b 7 0.95 ");
    EXPECT_EQ(Values(*t, 3), "TBIGFONT: 0 0 3 0 0 monotxt bigfont 7 0.95 ");
    EXPECT_EQ(t->twoToOne, 0);
    EXPECT_EQ(Good<Styles>("2TO1=ONE")->twoToOne, 1);
    // 72 bytes behind the keyword; fields of 63 bytes.
    const std::string x(62, 'x'), blanks(60, ' ');
    const auto cut = Good<Styles>("STYLE=STANDARD,1" + blanks + "23;STYLE=TSTANDARD;STYLE=" + x + "表");
    EXPECT_EQ(Join(cut->styles[0].f1, cut->styles[2].styleName), "12 " + x + " ");
    EXPECT_EQ(Good<Styles>("STYLE=,,,,,," + x + "表")->styles[0].fontFile, x);
    EXPECT_EQ(Good<Styles>("STYLE=,,,,,,," + x + "表")->styles[0].bigFontFile, x);
}

TEST(ExportStyles, OtherNamesReplaceTheKnownStyleBefore) {
    const auto first = Good<Styles>("STYLE = ROMAN, 2.5");
    EXPECT_EQ(Values(*first, 0), "ROMAN: 2.5 0 1.1875 -1 -1 monotxt  -1 0.95 ") << "with the big font's values";
    EXPECT_EQ(Values(*first, 1), "BIGFONT: 2.5 0 1.1875 -1 0 monotxt bigfont -1 0.95 ");
    const auto later = ReadLines<Styles>({
        {"STYLE=ROMAN,2;STYLE=TBIGFONT,1"},
        {"STYLE = STANDARD,-1", kBadStyle},
        {"STYLE=A,1,,7;STYLE=B,2,,8,5,3"},
    });
    EXPECT_EQ(Join(later->styles[0].styleName, later->styles[2].f3), "ROMAN 8 ");
    EXPECT_EQ(Values(*later, 3), "B: 1 0 8 5 3 monotxt  0.75 -1 ");
}

TEST(ExportStyles, Text) {
    const auto t = Good<Styles>("2TO1=ON;STYLE=BIGFONT,,1,1.23456789,5,6,表;STYLE=X,9,1;STYLE=TBIGFONT");
    t->styles[2].styleName[0] = '\0';
    StoreText(t->styles[19].styleName, "LAST");
    const std::string start =
        "/ Convert Text Font to Text Style\n/\nSTYLE = STANDARD, 1,, -1,,, monotxt, , 0.75, -1\n"
        "STYLE = X, 1,, -1,,, monotxt, , 0.75, -1\nSTYLE = TBIGFONT, 1,, 0,,, monotxt, bigfont, 0.75, 0.95\n"
        "STYLE = LAST, 1,, 1.1875,,, monotxt, , 0.75, 0.95\n/\n2TO1 = ON\n";
    ExpectText(*t, start, "", "ON\n");
    t->twoToOne = 0;
    t->styles[0].f2 = 2;
    t->styles[0].f9 = 0.1234567;
    ExpectText(*t, "", "STYLE = STANDARD, 1, 2, -1,,, monotxt, , 0.75, 0.123457\n", "/\n2TO1 = OFF\n");
}

TEST(ExportArrows, Records) {
    const auto t = ReadLines<Arrows>({
        {"ARROW 4095,180=N 表;ARROW 1, 0 = N1,x=y;ARROW 1x,180y=N1=2"},
        {"ARROW 0,0=N;ARROW 4096,0=N;ARROW x;ARROW 4294967297,0=N;ARROW =N", Error("無効なマーク番号です")},
        {"ARROW 5;ARROW 5=N;ARROW 5,180;ARROWS 1,0=N", kBad},
        {"ARROW 1,90=N;ARROW 1,-180=N;ARROW 1,1e=N", kBadAngle},
        {"ARROW 1,0=;ARROW 1,0=X;ARROW 1,0=,N", Error("無効な矢印名です")},
    });
    EXPECT_EQ(Format(*t), kHeaderText +
                              "/ Convert Mark to Arrow\n/\nARROW  4095,  180 = N表\nARROW     1,    0 = N1\n"
                              "ARROW     1,  180 = N1=2\n/\n/ Eof\n"s);
    // A line of 256 bytes with its end; in a longer one the end is a line of its own.
    const std::string longest = "ARROW 1,0=N" + std::string(244, 'x');
    EXPECT_EQ(Good<Arrows>(longest)->arrows[0].arrowName, longest.substr(10));
    const auto longer = Read<Arrows>(longest + "y\n");
    EXPECT_EQ(longer.listed, "    " + longest + "y    \n" + kBad);
    EXPECT_EQ(longer.table->arrows[0].arrowName, longest.substr(10) + "y");
    std::vector<Lines> lines(256, {"ARROW 1,0=N"});
    lines.push_back({"ARROW 2,0=N", kBad});
    lines.push_back({"ARROW 2,1=N", kBadAngle});
    EXPECT_EQ(ReadLines<Arrows>(lines)->arrowCount, 256);
}

// The entries 0 of layer names are not in the file; patterns come in the order that the file gives them.
TEST(ExportTables, ComeBackAsTheyWereWritten) {
    const std::string name = "表ソ\x83|アイ\\/|-#";
    EXPECT_TRUE(ComesBack(*Good<Layers>("PICTURE_OFF 257;CLASS_CONTROL ITEM;LAYER_CONTROL REVISION;" +
                                        Many(1, 256, "PICTURE # = P,=" + name) + "PICTURE 257 =;" +
                                        Many(1, 257, "CLASS # = " + name) + Many(1, 257, "REVISION # = R" + name) +
                                        Many(0, 256, "COLOR # = %", 255))));
    EXPECT_TRUE(ComesBack(*Good<Fonts>("WIDTH-TYPE 1;" + Many(0, 16, "LINE-WIDTH # = #.29") +
                                       Many(1, 63, "LINE-FONT1 # = " + name) + Many(1, 15, "LINE-FONT2 # = 0.#, %") +
                                       "LINE-FONT2 16 = 0, -1;" + Many(10, 200, "PITCH-" + name + " = #, 0.#, 3") +
                                       Many(1, 256, "COMMENT-" + name + " = c, = " + name + "  #"))));
    EXPECT_TRUE(ComesBack(*Good<Styles>(
        "2TO1 = ON;STYLE = STANDARD,1.5,2,2.5,,,表\\/f,ソg,3.5,4.5;STYLE = BIGFONT,1.5,,2.5,,,f,g,3.5,4.5;"
        "STYLE = TSTANDARD,5.5,,6.5,,,f,,7.5,8.5;STYLE = TBIGFONT,5.5,2,6.5,,,g,表,7.5,8.5")));
    EXPECT_TRUE(ComesBack(*Good<Arrows>(Many(1, 256, "ARROW %,180 = =" + name, 4095))));
}

}  // namespace
