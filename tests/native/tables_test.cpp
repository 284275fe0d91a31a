#include "tables/FieldText.h"
#include "tables/TableLines.h"
#include "tests/native/TableTest.h"
#include "text/Numbers.h"

namespace {

TEST(TableLines, PiecesAndTheirEnds) {
    const auto split = [](std::string_view file, std::size_t piece) {
        std::string all;
        for (TableLines lines(file, piece); lines.Next();) all += std::string(lines.Text()) + "|";
        return all;
    };
    EXPECT_EQ(split("", 127), "");
    EXPECT_EQ(split("ab\r\n\r\nc\rd\r\r\ne\x1a\nf\n", 127), "ab\n|\n|c\rd\r\n|e|");
    EXPECT_EQ(split("a\0b\n\0\nc"s, 127), "a||c|");
    EXPECT_EQ(split("abcdef\nabc\r\nabcd\n", 4), "abcd|ef\n|abc\n|abcd|\n|");
    EXPECT_EQ(split(std::string(256, 'x') + "\n", 256), std::string(256, 'x') + "|\n|");
}

TEST(TableFields, CharactersStayWhole) {
    constexpr std::string_view name = "表\x83|能\x83/";  // second bytes 0x5C and 0x7C; 0x2F is none
    FieldText fields(" 表 \x83|\r能\t= 1 ,2", 256, ",,");
    EXPECT_EQ(fields.Rest(), "表\x83|能\t=1,2,,");
    EXPECT_FALSE(fields.Cut("=,=").has_value());
    EXPECT_EQ((*fields.Cut("=,"))[1], "1");
    EXPECT_EQ(fields.Rest(), "2,,");
    const std::size_t whole[] = {0, 0, 2, 2, 4, 4, 6, 7, 8};
    for (std::size_t n = 0; n < std::size(whole); ++n) {
        EXPECT_EQ(CutAtCharacter(name, n).size(), whole[n]) << n;
        EXPECT_EQ(FieldText(name, n, "").Rest(), name.substr(0, whole[n])) << n;
    }
    for (const char* single : {"\xB1\xB2", "\x81\x7F"}) EXPECT_EQ(CutAtCharacter(single, 1).size(), 1u);
    char slot[6] = {'v', 'w', 'x', 'y', 'z', '!'};
    StoreText(slot, name);
    EXPECT_EQ(std::string(slot, 6), "表\x83|\0\0"s);
    const char full[] = {'a', 'b'};
    EXPECT_EQ(SlotText(full), "ab");
}

TEST(TableListing, Head) {
    ListingText sink;
    TableListing(sink).FileName("C:\\表\n%d%s");
    EXPECT_EQ(sink.text, "\nFile Name : C:\\表%d%s\n\n");
}

TEST(TableNumbers, LeadingPartsAndLimits) {
    const std::pair<const char*, int> integers[] = {{"", 0},       {"x", 0},       {"-", 0},     {"+-3", 0},
                                                    {"\v+7x9", 7}, {"-0012", -12}, {"3.9", 3},   {"1e3", 1},
                                                    {"-0X12", 0},  {"INF", 0},     {"nan(1)", 0}};
    for (const auto& [text, value] : integers) EXPECT_EQ(ReadInteger(text), value) << text;
    EXPECT_EQ(ReadInteger("2147483647"), INT32_MAX);
    EXPECT_EQ(ReadInteger("-2147483648"), INT32_MIN);
    const std::pair<const char*, double> reals[] = {
        {"", 0},          {".", 0},     {"x1", 0},   {"--1", 0},       {"+.5", .5}, {"-2.5e1z", -25}, {"7e", 7},
        {"1e308", 1e308}, {"0x1p3", 0}, {"+inf", 0}, {"-Infinity", 0}, {"NaN", 0},  {"-.i", 0}};
    for (const auto& [text, value] : reals) EXPECT_EQ(ReadReal(text), value) << text;
    for (const char* text : {"2147483648", "-2147483649", "99999999999999999999"})
        EXPECT_FALSE(ReadInteger(text)) << text;
    const std::string zeros(400, '0');
    for (const std::string& text : {"1e-400"s, "-.0009E-99999999999"s, "0." + zeros + "1"s, "." + zeros + "1e9x"s})
        EXPECT_EQ(ReadReal(text), 0) << text;
    for (const std::string& text : {"1e309"s, "-1e999"s, ".01e+99999999999"s, "1" + zeros, "0001" + zeros + ".5e-9"s})
        EXPECT_FALSE(ReadReal(text)) << text;
    EXPECT_TRUE(ReadReal("1", 1, 1) && ReadInteger("1", 1, 1));
    EXPECT_FALSE(ReadReal("nan", 1, 2) || ReadInteger("2", 0, 1) || ReadReal("-.1", 0, 1));
}

template <class Table>
class AnyTable : public testing::Test {};
using Tables = testing::Types<DxfInLayerTable, DxfInLineTable, DxfInStyleTable, DxfInArrowTable, DxfOutLayerTable,
                              DxfOutLineTable, DxfOutStyleTable, DxfOutArrowTable>;
TYPED_TEST_SUITE(AnyTable, Tables);

TYPED_TEST(AnyTable, CommentsAndNonsenseLeaveTheDefaults) {
    const auto defaults = Read<TypeParam>("").table;
    EXPECT_TRUE(Same(*Good<TypeParam>("/;/ARROW; LAYER A = 5; STYLE = A; "), *defaults));
    const std::string error = std::is_same_v<TypeParam, DxfOutLineTable> ? "" : kBad;
    const auto nonsense = ReadLines<TypeParam>({{";\t/;layer A = 2;picture 1 = A;LAYER;PICTURE;LINE-FONT", error}});
    EXPECT_TRUE(Same(*nonsense, *defaults));
    // A NUL ends the text with its LF; a last line needs no end, and 0x1A is one.
    for (const char* rest : {"", "\x1a", "\x1a\nLAYER\nPICTURE 1 = A\nARROW\n"}) {
        const auto unended = Read<TypeParam>("\0ARROW A = 1\n/ x"s + rest);
        EXPECT_EQ(unended.listed, "    " + error + "    / x");
        EXPECT_TRUE(Same(*unended.table, *defaults));
    }
}

// What is left of a path that is longer than a line is no line of its own, and no half of a character.
TYPED_TEST(AnyTable, LongPathsAreCutToTheirLine) {
    constexpr bool kLong = std::is_same_v<TypeParam, DxfInLayerTable> || std::is_same_v<TypeParam, DxfOutArrowTable>;
    constexpr std::size_t kRoom = (kLong ? 256 : 127) - std::string_view("/ File name : \n").size();
    for (const std::string folder : {"", "x"}) {
        std::string path = folder;
        while (path.size() < 300) path += "表";
        const std::string text = Format(*Read<TypeParam>("").table, {path, kHeader.date});
        EXPECT_FALSE(Read<TypeParam>(text).errors) << text.substr(0, 300);
        const std::size_t written = kRoom - (kRoom - folder.size()) % 2;
        EXPECT_EQ(text.substr(0, text.find('\n')), "/ File name : " + path.substr(0, written));
    }
    EXPECT_EQ("", unknown.text);
}

}  // namespace
