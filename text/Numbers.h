// Numbers as table files have them: the leading part of a text counts, and a text that does not begin with a number
// (the empty one too) is 0. The result is empty for what no field can hold: integers beyond 32 bits, real numbers
// beyond the range of a double, and "nan", "inf" and hexadecimal numbers, which some C libraries read and others do
// not. The program's locale plays no part.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

std::optional<std::int32_t> ReadInteger(std::string_view text);
std::optional<double> ReadReal(std::string_view text);

// The same, and empty as well when the number is not within low and high, both included.
std::optional<std::int32_t> ReadInteger(std::string_view text, std::int32_t low, std::int32_t high);
std::optional<double> ReadReal(std::string_view text, double low, double high);
