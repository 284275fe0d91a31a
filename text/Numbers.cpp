#include "text/Numbers.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <type_traits>

namespace {

struct SignedText {
    bool negative;
    std::string_view magnitude;
};

SignedText TakeSign(std::string_view text) {
    // Blanks are gone by now; these are the other bytes that C counts as white space.
    text.remove_prefix(std::min(text.find_first_not_of(" \t\v\f\r\n"), text.size()));
    const bool sign = text.starts_with('-') || text.starts_with('+');
    return {text.starts_with('-'), text.substr(sign ? 1 : 0)};
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// Of a number that no double can hold: whether it is too small and not too large.
bool IsUnderflow(std::string_view text) {
    const auto* const mantissaEnd =
        std::find_if(text.begin(), text.end(), [](char c) { return c != '.' && !IsDigit(c); });
    const std::string_view mantissa(text.data(), static_cast<std::size_t>(mantissaEnd - text.begin()));
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const auto scale =
        static_cast<std::int64_t>(point) - static_cast<std::int64_t>(mantissa.find_first_of("123456789"));
    std::string_view exponent = text.substr(mantissa.size());
    if (!exponent.empty()) exponent.remove_prefix(1);
    if (exponent.starts_with('+')) exponent.remove_prefix(1);
    std::int32_t power = 0;
    const auto result = std::from_chars(exponent.data(), exponent.data() + exponent.size(), power);
    if (result.ec == std::errc::result_out_of_range) return exponent.starts_with('-');
    return power + scale < 0;
}

// 0 for a text without a number.
template <class T>
std::optional<T> ReadMagnitude(std::string_view text) {
    T value = 0;
    if (text.empty() || !(IsDigit(text[0]) || text[0] == '.')) return value;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec != std::errc::result_out_of_range) return value;
    if (std::is_floating_point_v<T> && IsUnderflow(text)) return T{};
    return std::nullopt;
}

template <class T>
std::optional<T> Within(std::optional<T> value, T low, T high) {
    return value && *value >= low && *value <= high ? value : std::nullopt;
}

}  // namespace

std::optional<std::int32_t> ReadInteger(std::string_view text) {
    const auto [negative, magnitude] = TakeSign(text);
    std::optional<std::int64_t> value = ReadMagnitude<std::int64_t>(magnitude);
    if (value && negative) value = -*value;
    using Limits = std::numeric_limits<std::int32_t>;
    value = Within<std::int64_t>(value, Limits::min(), Limits::max());
    if (!value) return std::nullopt;
    return static_cast<std::int32_t>(*value);
}

std::optional<double> ReadReal(std::string_view text) {
    const auto [negative, magnitude] = TakeSign(text);
    const std::optional<double> value = ReadMagnitude<double>(magnitude);
    return value && negative ? -*value : value;
}

std::optional<std::int32_t> ReadInteger(std::string_view text, std::int32_t low, std::int32_t high) {
    return Within(ReadInteger(text), low, high);
}

std::optional<double> ReadReal(std::string_view text, double low, double high) {
    return Within(ReadReal(text), low, high);
}
