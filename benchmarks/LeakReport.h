// What repeated work leaves behind, beside what the bare system windows do that are opened as often.
#pragma once

#include <functional>
#include <string>

// Two lines of the report. What the bare windows leave behind is the system's own and is taken off. Returns whether
// nothing else stays.
bool ReportLeaks(const std::string& name, int times, const std::function<void()>& run,
                 const std::function<void()>& bare);
