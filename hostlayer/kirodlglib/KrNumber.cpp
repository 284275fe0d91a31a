#include "KrNumber.h"

#include <charconv>
#include <cmath>
#include <system_error>

namespace {

constexpr std::string_view kRealCharacters = "0123456789+-.eE";
constexpr std::string_view kFraction = "1/";

// Numbers in this range are written without an exponent.
constexpr double kSmallestPlain = 1e-6;
constexpr double kLargestPlain = 1e15;

// A scale that was computed may miss 1/n by some units in the last place.
constexpr double kFractionTolerance = 1e-14;
constexpr double kLargestDivisor = 1e9;

template <class Number>
std::optional<Number> Whole(std::string_view text) {
    Number value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return value;
}

bool StartsUnsigned(std::string_view text) { return !text.empty() && text.front() != '+' && text.front() != '-'; }

// from_chars takes a minus but no plus. "+-1" must not come through with its plus cut.
std::optional<std::string_view> WithoutPlus(std::string_view text) {
    if (!text.starts_with('+')) return text;
    text.remove_prefix(1);
    if (!StartsUnsigned(text)) return std::nullopt;
    return text;
}

std::optional<double> ParsePositive(std::string_view text) {
    if (!StartsUnsigned(text)) return std::nullopt;
    const std::optional<double> value = ParseReal(text);
    return value && *value > 0.0 ? value : std::nullopt;
}

}  // namespace

std::optional<int> ParseInteger(std::string_view text, bool plusAllowed) {
    const std::optional<std::string_view> number = plusAllowed ? WithoutPlus(text) : text;
    return number ? Whole<int>(*number) : std::nullopt;
}

std::optional<double> ParseReal(std::string_view text) {
    // Keeps out the names of infinity and of what is no number.
    if (text.find_first_not_of(kRealCharacters) != text.npos) return std::nullopt;
    const std::optional<std::string_view> number = WithoutPlus(text);
    return number ? Whole<double>(*number) : std::nullopt;
}

std::optional<double> ParseScale(std::string_view text) {
    if (!text.starts_with(kFraction)) return ParsePositive(text);
    const std::optional<double> divisor = ParsePositive(text.substr(kFraction.size()));
    if (!divisor) return std::nullopt;
    const double scale = 1.0 / *divisor;
    return std::isfinite(scale) && scale > 0.0 ? std::optional(scale) : std::nullopt;
}

std::string FormatNumber(double value) {
    if (!std::isfinite(value)) return {};
    if (value == 0.0) return "0";  // of either sign
    const double size = std::fabs(value);
    const bool plain = size >= kSmallestPlain && size < kLargestPlain;
    char text[64];
    const auto [end, error] = std::to_chars(text, text + sizeof text, value,
                                            plain ? std::chars_format::fixed : std::chars_format::scientific);
    return error == std::errc() ? std::string(text, end) : std::string();
}

std::string FormatScale(double scale) {
    if (scale > 0.0 && scale < 1.0) {
        const double divisor = std::round(1.0 / scale);
        if (divisor >= 2.0 && divisor <= kLargestDivisor && std::fabs(scale * divisor - 1.0) <= kFractionTolerance)
            return std::string(kFraction) + FormatNumber(divisor);
    }
    return FormatNumber(scale);
}
