#pragma once

#include <string>

// What differs, in the form of a unified diff; empty when nothing does.
std::string LineDifferences(const std::string& expected, const std::string& actual);
