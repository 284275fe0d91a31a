// Numbers as table files have them: decimal digits up to the first character that is none. A text that does not begin
// with a number is 0: the empty one, and "inf", "nan" and "0x5" too, which some C libraries read and others do not. A
// real number too small for a double is 0. The result is empty for what no field can hold: integers beyond 32 bits and
// real numbers beyond the range of a double. The program's locale plays no part.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

std::optional<std::int32_t> ReadInteger(std::string_view text);
std::optional<double> ReadReal(std::string_view text);

// The same, and empty as well when the number is not within low and high, both included.
std::optional<std::int32_t> ReadInteger(std::string_view text, std::int32_t low, std::int32_t high);
std::optional<double> ReadReal(std::string_view text, double low, double high);
