// Numbers as operators type and read them: half-width, with a point, whatever the system's locale is.
#pragma once

#include <optional>
#include <string>
#include <string_view>

std::optional<int> ParseInteger(std::string_view text, bool plusAllowed);
std::optional<double> ParseReal(std::string_view text);
std::optional<double> ParseScale(std::string_view text);  // a positive number, or 1/n with a positive n

std::string FormatNumber(double value);  // "" for what is no number
std::string FormatScale(double scale);
