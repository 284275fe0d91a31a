#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cmath>
#include <cstring>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "dxfin_tables/DxfInLineTable.h"
#include "entry/host/kirodxf.h"
#include "hostlayer/kirodxf/DxfInDefaults.h"

namespace {

using Color = std::array<int, 3>;

Color ColorOf(int number) {
    std::int16_t red = -1, green = -1, blue = -1;
    DxfGetColorRGB(number, &red, &green, &blue);
    return {red, green, blue};
}

TEST(DxfColors, KnownValues) {
    const std::map<int, Color> kKnown = {
        {0, {255, 255, 255}},   {1, {255, 0, 0}},       {2, {255, 255, 0}},     {3, {0, 255, 0}},
        {4, {0, 255, 255}},     {5, {0, 0, 255}},       {6, {255, 0, 255}},     {7, {255, 255, 255}},
        {8, {128, 128, 128}},   {9, {192, 192, 192}},   {10, {255, 0, 0}},      {11, {255, 127, 127}},
        {12, {165, 0, 0}},      {19, {38, 19, 19}},     {21, {255, 159, 127}},  {22, {165, 41, 0}},
        {47, {76, 66, 38}},     {50, {255, 255, 0}},    {60, {191, 255, 0}},    {114, {0, 127, 63}},
        {200, {191, 0, 255}},   {240, {255, 0, 63}},    {249, {38, 19, 23}},    {250, {51, 51, 51}},
        {253, {173, 173, 173}}, {255, {255, 255, 255}}, {256, {255, 255, 255}},
    };
    for (const auto& [number, color] : kKnown) EXPECT_EQ(ColorOf(number), color) << number;
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

TEST(DxfColors, AnyNumberAndAnyPointerPasses) {
    for (const int number : {-1, 257, INT_MIN, INT_MAX}) EXPECT_EQ(ColorOf(number), (Color{0, 0, 0})) << number;
    std::int16_t green = -1;
    DxfGetColorRGB(3, nullptr, &green, nullptr);
    EXPECT_EQ(green, 255);
    DxfSetColorRGB();
    EXPECT_EQ(ColorOf(12), (Color{165, 0, 0}));
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
    for (const char* bad : {"", "_dot", "_DO", "_DOTS", "DOT", "_DOT ", " _DOT", "OTHER"})
        EXPECT_FALSE(dxfotCheckArrow(bad)) << bad;
    EXPECT_FALSE(dxfotCheckArrow(nullptr));
}

TEST(DxfLineWidths, AreThoseOfTheTables) {
    ASSERT_EQ(kDxfLineWidths, kDxfInLineWidthCount);
    for (int i = 0; i < kDxfLineWidths; ++i) {
        EXPECT_EQ(DxfGetLineWidth(i), kDxfInLineWidths[i]) << i;
        EXPECT_TRUE(DxfCheckLineWidth(DxfGetLineWidth(i))) << i;
    }
    EXPECT_EQ(DxfGetLineWidth(9), 0.35);
    for (const int index : {-1, kDxfLineWidths, INT_MIN, INT_MAX}) EXPECT_LT(DxfGetLineWidth(index), 0) << index;
    for (const double bad : {-1.0, 0.36, std::nextafter(0.35, 1), 2.12, std::nan("")})
        EXPECT_FALSE(DxfCheckLineWidth(bad)) << bad;
}

TEST(DxfLineWidths, Weights) {
    EXPECT_EQ(DxfGetLineWeight(0), 1);
    EXPECT_EQ(DxfGetLineWeight(kDxfLineWeights - 1), 16);
    for (const int index : {-1, kDxfLineWeights, INT_MIN, INT_MAX}) EXPECT_EQ(DxfGetLineWeight(index), 0) << index;
}

// A text that ends where its memory does.
std::unique_ptr<char[]> Exact(const char* text) {
    const std::size_t size = std::strlen(text) + 1;
    auto copy = std::make_unique<char[]>(size);
    std::memcpy(copy.get(), text, size);
    return copy;
}

TEST(DxfComparison, ByteForByte) {
    EXPECT_EQ(dxfmemcmp("LAYER A", "LAYER ", 6), 0);
    EXPECT_NE(dxfmemcmp("LAYER A", "LAYER ", 7), 0);
    EXPECT_NE(dxfmemcmp("layer ", "LAYER ", 6), 0);
    EXPECT_EQ(dxfmemcmp("A", "B", 0), 0);
    EXPECT_EQ(dxfmemcmp("A", "B", -1), 0);
    EXPECT_EQ(dxfmemcmp(Exact("AB").get(), Exact("AB").get(), INT_MAX), 0);
    EXPECT_LT(dxfmemcmp(Exact("LA").get(), Exact("LAYER ").get(), 6), 0);
    EXPECT_EQ(dxfmemcmp(nullptr, "", 1), 0);
    EXPECT_GT(dxfmemcmp("A", nullptr, 1), 0);

    EXPECT_EQ(dxfstrcmp("OTHER", Exact("OTHER").get()), 0);
    EXPECT_NE(dxfstrcmp("OTHER", "other"), 0);
    EXPECT_NE(dxfstrcmp("OTHER", "OTHER "), 0);
    EXPECT_GT(dxfstrcmp("\x95\x5C", "A"), 0);  // bytes count as unsigned
    EXPECT_EQ(dxfstrcmp(nullptr, ""), 0);
}

DxfInParamBlock SomeParams(std::int32_t seed) {
    DxfInParamBlock params;
    std::int32_t words[kDxfInParamWords];
    for (std::int32_t& word : words) word = seed++ * 0x01030507;
    std::memcpy(&params, words, sizeof params);
    return params;
}

TEST(DxfInDefaults, OnlyTheWholeFileCounts) {
    const DxfInParamBlock params = SomeParams(-16);
    const std::string file = FormatDxfInDefaults(params);
    DxfInParamBlock read = SomeParams(7);
    const DxfInParamBlock before = read;
    const auto refused = [&](const std::string& bytes) {
        return !ParseDxfInDefaults(std::string(bytes), read) && std::memcmp(&read, &before, sizeof read) == 0;
    };
    for (std::size_t size = 0; size < file.size(); ++size) EXPECT_TRUE(refused(file.substr(0, size))) << size;
    EXPECT_TRUE(refused(file + '\0'));
    for (std::size_t i = 0; i < file.size(); ++i) {
        std::string damaged = file;
        damaged[i] = static_cast<char>(damaged[i] ^ 1);
        EXPECT_TRUE(refused(damaged)) << i;
    }
    EXPECT_TRUE(ParseDxfInDefaults(file, read));
    EXPECT_EQ(std::memcmp(&read, &params, sizeof read), 0);
}

}  // namespace
