#include "model/LineNumbers.h"

#include <algorithm>
#include <cmath>

#include "text/NumberText.h"

namespace {

constexpr double kLeastPitch = 0.01;
constexpr double kHundredth = 0.01;
constexpr double kLeastFactor = 1e-6;  // neither of the two can be used
constexpr double kLargestFactor = 1e6;
constexpr double kFactorTolerance = 1e-5;
constexpr double kWidthTolerance = 0.001;

double InHundredths(double hundredths) { return std::trunc(hundredths + 0.5) * kHundredth; }

}  // namespace

double StoredPitch(double pitch) { return InHundredths(std::max(pitch, kLeastPitch) * 100); }

double ScaledPitch(double pitch, double factor) { return InHundredths(factor * pitch * 100); }

bool IsPitchFactor(double factor) { return factor > kLeastFactor && factor < kLargestFactor; }

bool ChangesPitches(double factor) { return std::fabs(factor - 1.0) > kFactorTolerance; }

PitchReading ReadPitches(std::span<const std::string> cells, const std::function<bool(const std::string&)>& isPitch) {
    PitchReading reading;
    int cell = 0;
    for (; cell < static_cast<int>(cells.size()) && !cells[static_cast<std::size_t>(cell)].empty(); ++cell) {
        const std::string& text = cells[static_cast<std::size_t>(cell)];
        const bool good = isPitch(text);
        if (!good) reading.bad.push_back(cell);
        reading.pitches.push_back(good ? StoredPitch(RealOf(text)) : 0.0);
    }
    const bool lastIsBad = !reading.bad.empty() && reading.bad.back() == cell - 1;
    if (cell % 2 != 0 && !lastIsBad) reading.bad.push_back(cell - 1);
    return reading;
}

bool IsStandardWidth(double width, StandardWidths widths) {
    return std::ranges::any_of(widths.subspan(1),
                               [width](double standard) { return std::fabs(width - standard) <= kWidthTolerance; });
}

double WidthSnapper::Snap(double width) {
    while (index_ + 1 < widths_.size() && widths_[index_] < width) ++index_;
    const double below = widths_[index_ - 1], above = widths_[index_];
    return width >= (below + above) / 2 ? above : below;  // the midpoint goes up
}

double ShownNumber(double number) {
    constexpr double kPlaces = 1e6;
    constexpr double kNoise = 1e-14;
    const double rounded = std::round(number * kPlaces) / kPlaces;
    return std::fabs(rounded - number) <= kNoise * std::fabs(number) ? rounded : number;
}
