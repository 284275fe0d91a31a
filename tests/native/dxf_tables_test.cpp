#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cmath>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

#include "dxfin_tables/DxfInLineTable.h"
#include "entry/host/kirodxf.h"
#include "hostlayer/kirobc/ParamDefaults.h"

namespace {

using Color = std::array<int, 3>;

Color ColorOf(int number) {
    std::int16_t red = -1, green = -1, blue = -1;
    DxfGetColorRGB(number, &red, &green, &blue);
    return {red, green, blue};
}

TEST(DxfColors, KnownValues) {
    const struct {
        int number;
        Color color;
    } known[] = {
        {0, {255, 255, 255}},   {1, {255, 0, 0}},       {2, {255, 255, 0}},  {3, {0, 255, 0}},
        {4, {0, 255, 255}},     {5, {0, 0, 255}},       {6, {255, 0, 255}},  {7, {255, 255, 255}},
        {8, {128, 128, 128}},   {9, {192, 192, 192}},   {10, {255, 0, 0}},   {11, {255, 127, 127}},
        {12, {165, 0, 0}},      {19, {38, 19, 19}},     {22, {165, 41, 0}},  {47, {76, 66, 38}},
        {50, {255, 255, 0}},    {60, {191, 255, 0}},    {114, {0, 127, 63}}, {250, {51, 51, 51}},
        {253, {173, 173, 173}}, {256, {255, 255, 255}}, {-1, {0, 0, 0}},     {257, {0, 0, 0}},
        {INT_MIN, {0, 0, 0}},   {INT_MAX, {0, 0, 0}},
    };
    for (const auto& row : known) EXPECT_EQ(ColorOf(row.number), row.color) << row.number;
    DxfGetColorRGB(3, nullptr, nullptr, nullptr);
}

// The wheel is symmetrical: the next primary colour is 80 numbers on, and red and blue change places around green.
TEST(DxfColors, TheWheelTurns) {
    for (int number = 10; number < 250; ++number) {
        const auto [red, green, blue] = ColorOf(number);
        EXPECT_EQ(ColorOf((number - 10 + 80) % 240 + 10), (Color{blue, red, green})) << number;
        const int hue = (number - 10) / 10;
        EXPECT_EQ(ColorOf((40 - hue) % 24 * 10 + 10 + number % 10), (Color{blue, green, red})) << number;
    }
}

std::vector<std::string> Names(const char* (*get)(int)) {
    std::vector<std::string> names;
    while (const char* name = get(static_cast<int>(names.size()))) names.push_back(name);
    return names;
}

TEST(DxfArrows, NamesAreWhatTablesCanHold) {
    for (const auto get : {dxfinGetArrowName, dxfotGetArrowName}) {
        std::vector<std::string> names = Names(get);
        for (const char* common : {"_CLOSED", "_DOT", "_OPEN30", "_OBLIQUE", "_ARCHTICK", "_NONE"})
            EXPECT_TRUE(std::ranges::count(names, common)) << common;
        // A table separates with these and takes blanks out; its editor takes 20 bytes.
        for (const std::string& name : names) {
            EXPECT_EQ(name.find_first_of(" ,=/\t"), name.npos) << name;
            EXPECT_LE(name.size(), 20u) << name;
        }
        std::ranges::sort(names);
        EXPECT_EQ(std::ranges::adjacent_find(names), names.end());
        for (const int index : {-1, INT_MIN, INT_MAX, static_cast<int>(names.size()) + 1})
            EXPECT_EQ(get(index), nullptr) << index;
    }
}

TEST(DxfArrows, CheckedByteForByte) {
    for (const std::string& name : Names(dxfotGetArrowName)) EXPECT_TRUE(dxfotCheckArrow(name.c_str())) << name;
    for (const char* bad : {"", "_dot", "_DO", "_DOTS", "_DOT "}) EXPECT_FALSE(dxfotCheckArrow(bad)) << bad;
    EXPECT_FALSE(dxfotCheckArrow(nullptr));
}

TEST(DxfLineWidths, AreThoseOfTheTables) {
    ASSERT_EQ(kDxfLineWidths, kDxfInLineWidthCount);
    for (int i = 0; i < kDxfLineWidths; ++i) {
        EXPECT_EQ(DxfGetLineWidth(i), kDxfInLineWidths[i]) << i;
        EXPECT_TRUE(DxfCheckLineWidth(DxfGetLineWidth(i))) << i;
    }
    for (const int index : {-1, kDxfLineWidths, INT_MIN, INT_MAX}) EXPECT_LT(DxfGetLineWidth(index), 0) << index;
    for (const double bad : {-1.0, std::nextafter(0.35, 1), std::nan("")}) EXPECT_FALSE(DxfCheckLineWidth(bad)) << bad;
    EXPECT_EQ(DxfGetLineWeight(0), 1);
    EXPECT_EQ(DxfGetLineWeight(kDxfLineWeights - 1), 16);
    for (const int index : {-1, kDxfLineWeights, INT_MIN, INT_MAX}) EXPECT_EQ(DxfGetLineWeight(index), 0) << index;
}

TEST(DxfComparison, ByteForByteAndWithinBothTexts) {
    EXPECT_EQ(dxfmemcmp("LAYER A", "LAYER ", 6), 0);
    EXPECT_NE(dxfmemcmp("LAYER A", "LAYER ", 7), 0);
    EXPECT_NE(dxfmemcmp("layer ", "LAYER ", 6), 0);
    EXPECT_EQ(dxfmemcmp("A", "B", 0), 0);
    EXPECT_EQ(dxfmemcmp("A", "B", -1), 0);
    const std::unique_ptr<char[]> exact(new char[3]{'L', 'A', 0});
    EXPECT_EQ(dxfmemcmp(exact.get(), "LA", INT_MAX), 0);
    EXPECT_LT(dxfmemcmp(exact.get(), "LAYER ", 6), 0);
    EXPECT_EQ(dxfmemcmp(nullptr, "", 1), 0);
    EXPECT_GT(dxfmemcmp("A", nullptr, 1), 0);
    EXPECT_EQ(dxfstrcmp("OTHER", "OTHER"), 0);
    EXPECT_NE(dxfstrcmp("OTHER", "other"), 0);
    EXPECT_NE(dxfstrcmp("OTHER", "OTHER "), 0);
    EXPECT_GT(dxfstrcmp("\x95\x5C", "A"), 0);  // bytes count as unsigned
    EXPECT_EQ(dxfstrcmp(nullptr, ""), 0);
}

TEST(ParamDefaults, OnlyTheWholeFileCounts) {
    constexpr char kMark[] = "KIROTEST   1";
    const std::string block("any\0bytes\xFF", 10);
    const std::string file = FormatParamDefaults(kMark, block);
    const auto refused = [&](const std::string& bytes) { return ParseParamDefaults(kMark, bytes, 10).empty(); };
    EXPECT_TRUE(refused(file + '\0'));
    for (std::size_t i = 0; i < file.size(); ++i) {
        EXPECT_TRUE(refused(file.substr(0, i))) << i;
        std::string damaged = file;
        damaged[i] = static_cast<char>(damaged[i] ^ 1);
        EXPECT_TRUE(refused(damaged)) << i;
    }
    EXPECT_EQ(ParseParamDefaults(kMark, file, 10), block);
    EXPECT_TRUE(ParseParamDefaults(kMark, file, 9).empty());
    EXPECT_TRUE(ParseParamDefaults("KIROTEST   2", file, 10).empty());
}

}  // namespace
