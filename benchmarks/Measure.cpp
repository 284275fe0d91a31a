#include "benchmarks/Measure.h"

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <vector>

namespace {

double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

const char* Verdict(bool kept) { return kept ? "ok" : "MISSED"; }

}  // namespace

double Milliseconds(const std::function<void()>& work) {
    LARGE_INTEGER frequency{}, from{}, to{};
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&from);
    work();
    QueryPerformanceCounter(&to);
    return 1000.0 * static_cast<double>(to.QuadPart - from.QuadPart) / static_cast<double>(frequency.QuadPart);
}

Comparison CompareTimes(int rounds, const std::function<double()>& subject, const std::function<double()>& floor) {
    std::vector<double> subjects, floors;
    subject();  // fills caches
    floor();
    for (int i = 0; i < rounds; ++i) {
        subjects.push_back(subject());
        floors.push_back(floor());
    }
    return {Median(subjects), Median(floors)};
}

Comparison Compare(int rounds, const std::function<void()>& subject, const std::function<void()>& floor) {
    return CompareTimes(
        rounds, [&] { return Milliseconds(subject); }, [&] { return Milliseconds(floor); });
}

bool Report(const std::string& what, const Comparison& comparison, double limit) {
    const bool kept = comparison.Ratio() <= limit;
    std::printf("%-58s %9.3f ms / %9.3f ms = %5.2f  (at most %.2f)  %s\n", what.c_str(), comparison.subject,
                comparison.floor, comparison.Ratio(), limit, Verdict(kept));
    std::fflush(stdout);
    return kept;
}

bool ReportValue(const std::string& what, double value, double limit, const char* unit) {
    const bool kept = value <= limit;
    std::printf("%-58s %9.0f %s  (at most %.0f)  %s\n", what.c_str(), value, unit, limit, Verdict(kept));
    std::fflush(stdout);
    return kept;
}
