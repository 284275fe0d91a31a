// Figures of the benchmark: medians, and the ratio of a figure to a floor that is measured in the same run, turn by
// turn, so that a machine that slows down slows both.
#pragma once

#include <functional>
#include <string>

struct Comparison {
    double subject = 0;  // median milliseconds
    double floor = 0;
    double Ratio() const { return subject / floor; }
};

double Milliseconds(const std::function<void()>& work);
Comparison Compare(int rounds, const std::function<void()>& subject, const std::function<void()>& floor);
Comparison CompareTimes(int rounds, const std::function<double()>& subject, const std::function<double()>& floor);

// One line of the report; limit: what the figure must not exceed. Returns whether it does not.
bool Report(const std::string& what, const Comparison& comparison, double limit);
bool ReportValue(const std::string& what, double value, double limit, const char* unit);
