// Pitches and widths of the model's lines, against values worked out by hand.
#include "model/LineNumbers.h"

#include <gtest/gtest.h>

namespace {

TEST(LineNumbers, PitchesAreHundredthsCutAfterAddingAHalf) {
    const std::pair<double, double> stored[] = {
        {-0.0, 0.01},        {0.0, 0.01},       {0.004, 0.01},     {0.005, 0.01}, {0.0149, 0.01}, {0.016, 0.02},
        {1.234, 123 * 0.01}, {1.236, 1.24},     {0.57, 57 * 0.01}, {1e12, 1e12},  // and no rounding of the decimals:
        {1.005, 1.0},        {0.285, 28 * 0.01}};
    for (const auto& [pitch, expected] : stored) EXPECT_EQ(expected, StoredPitch(pitch)) << pitch;
    EXPECT_EQ(3.0, ScaledPitch(6, 0.5));
    EXPECT_EQ(17 * 0.01, ScaledPitch(0.5, 1 / 3.0));
    EXPECT_EQ(0.0, ScaledPitch(0.01, 0.1));
    EXPECT_EQ(0.57, ShownNumber(57 * 0.01));
    EXPECT_EQ(1.23456789012, ShownNumber(1.23456789012));
}

TEST(LineNumbers, FactorsHaveOpenEndsAndASmallOneChangesNothing) {
    for (const double bad : {0.0, 1e-6, 1e6, -1.0}) EXPECT_FALSE(IsPitchFactor(bad)) << bad;
    for (const double good : {1.1e-6, 999999.0}) EXPECT_TRUE(IsPitchFactor(good)) << good;
    for (const double same : {1.0, 1.000009, 0.999991}) EXPECT_FALSE(ChangesPitches(same)) << same;
    for (const double other : {1.00002, 0.99998}) EXPECT_TRUE(ChangesPitches(other)) << other;
}

TEST(LineNumbers, ReadingStopsAtAGapAndWantsPairs) {
    const struct {
        std::vector<std::string> cells;
        std::vector<double> pitches;
        std::vector<int> bad;
    } kRows[] = {{{"", "5"}, {}, {}},
                 {{"6", "0.004", "", "x"}, {6, 0.01}, {}},
                 {{"1", "2", "x"}, {1, 2, 0}, {2}},
                 {{"x", "2", "3"}, {0, 2, 3}, {0, 2}}};
    for (const auto& row : kRows) {
        const PitchReading reading = ReadPitches(row.cells, [](const std::string& text) { return text != "x"; });
        EXPECT_EQ(row.pitches, reading.pitches);
        EXPECT_EQ(row.bad, reading.bad);
    }
}

TEST(LineNumbers, WidthsSnapUpwardsFromWhereTheSearchIs) {
    const double few[] = {0, 0.1, 0.3, 0.7};
    const std::pair<double, double> steps[] = {{-1, 0},    {0.04, 0},  {0.05, 0.1}, {0.19, 0.1},
                                               {0.2, 0.3}, {0.9, 0.7}, {0.05, 0.3}};
    WidthSnapper snapper(few);
    for (const auto& [width, expected] : steps) EXPECT_EQ(expected, snapper.Snap(width)) << width;

    for (const double good : {0.1, 0.3009, 0.7}) EXPECT_TRUE(IsStandardWidth(good, few)) << good;
    for (const double bad : {0.0, 0.0004, 0.3015, 0.8}) EXPECT_FALSE(IsStandardWidth(bad, few)) << bad;
}

}  // namespace
