#include "benchmarks/LeakReport.h"

#include <algorithm>

#include "benchmarks/Measure.h"
#include "driver/Leaks.h"

namespace {

// The heap's own lists and the system's caches.
constexpr double kMemoryNoise = 16 * 1024;
constexpr int kWarmUp = 20;

struct Growth {
    int objects;
    double bytes;
};

int Objects(const kiro::drive::Holdings& held) {
    return held.windows + held.pens + held.brushes + held.fonts + held.bitmaps;
}

Growth Grow(int times, const std::function<void()>& work) {
    for (int i = 0; i < kWarmUp; ++i) work();
    const auto before = kiro::drive::CountHoldings();
    for (int i = 0; i < times; ++i) work();
    const auto after = kiro::drive::CountHoldings();
    return {Objects(after) - Objects(before),
            static_cast<double>(after.heapBytes) - static_cast<double>(before.heapBytes)};
}

}  // namespace

bool ReportLeaks(const std::string& name, int times, const std::function<void()>& run,
                 const std::function<void()>& bare) {
    const Growth ours = Grow(times, run);
    const Growth floor = Grow(times, bare);
    // Something of the system's that goes meanwhile is no less of ours.
    const int objectsOfBare = (std::max)(floor.objects, 0);
    const std::string what = std::to_string(times) + " times " + name;
    const bool objects = ReportValue(what + ": windows, GDI objects", ours.objects - objectsOfBare, 0, "more");
    return ReportValue(what + ": private memory", ours.bytes - floor.bytes, kMemoryNoise, "bytes more") && objects;
}
