#include "text/Numbers.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <limits>

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

bool IsSpecial(std::string_view magnitude) {
    constexpr std::string_view kSpecial[] = {"0x", "inf", "nan"};
    const auto sameLetter = [](char c, char lower) { return c == lower || c == lower - 'a' + 'A'; };
    for (const std::string_view word : kSpecial) {
        const std::string_view start = magnitude.substr(0, word.size());
        if (std::equal(start.begin(), start.end(), word.begin(), word.end(), sameLetter)) return true;
    }
    return false;
}

// 0 for a text without a number.
template <class T>
std::optional<T> ReadMagnitude(std::string_view text) {
    if (IsSpecial(text)) return std::nullopt;
    T value = 0;
    if (text.starts_with('-')) return value;  // a second sign
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec == std::errc::result_out_of_range) return std::nullopt;
    return value;
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
