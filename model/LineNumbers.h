// The numbers of line types and line widths: pitches in hundredths, and widths of a table of standard widths.
#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <vector>

// ---- Pitches ----

constexpr double kLargestPitch = 1e12;

double StoredPitch(double pitch);  // in hundredths, at least one
double ScaledPitch(double pitch, double factor);
bool IsPitchFactor(double factor);
bool ChangesPitches(double factor);  // false for a factor that is as good as 1

struct PitchReading {
    std::vector<double> pitches;  // as they are stored; 0 for a bad one
    std::vector<int> bad;         // cells, counted from 0
};
// The cells up to the first empty one: a drawn and a blank length in turn. A drawn length without its blank is bad.
PitchReading ReadPitches(std::span<const std::string> cells, const std::function<bool(const std::string&)>& isPitch);

// ---- Widths ----

// Standard widths: the first is none, the others ascend.
using StandardWidths = std::span<const double>;

bool IsStandardWidth(double width, StandardWidths widths);

// Snaps widths that ascend to the nearest standard ones: the search goes on where it stopped for the width before.
class WidthSnapper {
  public:
    explicit WidthSnapper(StandardWidths widths) : widths_(widths) {}
    double Snap(double width);

  private:
    StandardWidths widths_;
    std::size_t index_ = 1;
};

// ---- Both ----

// Without what computing in binary has left behind the decimal places that a user types: 0.57, not 0.5700000000000001.
double ShownNumber(double number);
