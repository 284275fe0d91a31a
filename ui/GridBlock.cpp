#include "ui/GridBlock.h"

#include <algorithm>
#include <charconv>

namespace kiro::ui {
namespace {

constexpr std::size_t kMostDigits = 12;

bool IsDigit(char c) { return c >= '0' && c <= '9'; }

// The text of a quoted cell that starts here, and where it ends; none when it is not one: a text may begin with a quote
// as it is.
std::optional<std::wstring> Quoted(std::wstring_view text, std::size_t& at) {
    std::wstring cell;
    bool needed = false;
    for (std::size_t i = at + 1; i < text.size(); ++i) {
        const wchar_t c = text[i];
        if (c != L'"') {
            needed = needed || c == L'\t' || c == L'\n' || c == L'\r';
            cell += c;
        } else if (i + 1 < text.size() && text[i + 1] == L'"') {
            needed = true;
            cell += text[i++];
        } else {
            const bool ends =
                i + 1 == text.size() || text[i + 1] == L'\t' || text[i + 1] == L'\n' || text[i + 1] == L'\r';
            if (!ends || !needed) return std::nullopt;
            at = i + 1;
            return cell;
        }
    }
    return std::nullopt;
}

// A number at the end of a text: what stands before it, and its digits without the point.
struct Ending {
    std::string_view prefix;
    long long value = 0;
    std::size_t digits = 0;
    std::size_t decimals = 0;
    bool zeros = false;  // before the number
};

std::optional<Ending> EndingOf(std::string_view text) {
    std::size_t from = text.size();
    while (from > 0 && IsDigit(text[from - 1])) --from;
    Ending ending;
    std::size_t point = text.npos;
    if (from > 1 && from < text.size() && text[from - 1] == '.' && IsDigit(text[from - 2])) {
        point = from - 1;
        ending.decimals = text.size() - from;
        for (from = point; from > 0 && IsDigit(text[from - 1]);) --from;
    }
    ending.digits = (point == text.npos ? text.size() : point) - from;
    if (ending.digits == 0 || ending.digits + ending.decimals > kMostDigits) return std::nullopt;
    ending.zeros = ending.digits > 1 && text[from] == '0';
    std::string number(text.substr(from));
    std::erase(number, '.');
    std::from_chars(number.data(), number.data() + number.size(), ending.value);
    // Of a number alone it is the sign; behind a name it is a hyphen.
    if (from == 1 && text[0] == '-') {
        ending.value = -ending.value;
        from = 0;
    }
    ending.prefix = text.substr(0, from);
    return ending;
}

long long Scaled(long long value, std::size_t by) {
    for (; by > 0; --by) value *= 10;
    return value;
}

}  // namespace

GridBlock ReadGridBlock(std::wstring_view text) {
    if (text.ends_with(L'\n')) text.remove_suffix(1);
    if (text.ends_with(L'\r')) text.remove_suffix(1);
    GridBlock block(1);
    for (std::size_t at = 0;;) {
        std::optional<std::wstring> quoted;
        if (at < text.size() && text[at] == L'"') quoted = Quoted(text, at);
        const std::size_t end = quoted ? at : std::min(text.find_first_of(L"\t\r\n", at), text.size());
        block.back().push_back(quoted ? std::move(*quoted) : std::wstring(text.substr(at, end - at)));
        if (end == text.size()) return block;
        if (text[end] != L'\t') block.emplace_back();
        at = end + (text.substr(end).starts_with(L"\r\n") ? 2 : 1);
    }
}

std::optional<GridSeries> GridSeries::From(std::string_view first, std::string_view second) {
    const auto one = EndingOf(first);
    const auto two = EndingOf(second);
    if (!one || !two || one->prefix != two->prefix) return std::nullopt;
    GridSeries series;
    series.prefix_ = one->prefix;
    series.decimals_ = std::max(one->decimals, two->decimals);
    if (one->zeros || two->zeros) series.digits_ = std::max(one->digits, two->digits);
    series.start_ = Scaled(one->value, series.decimals_ - one->decimals);
    series.step_ = Scaled(two->value, series.decimals_ - two->decimals) - series.start_;
    return series;
}

std::string GridSeries::At(int index) const {
    const long long value = start_ + step_ * index;
    std::string digits = std::to_string(value < 0 ? -value : value);
    const std::size_t least = std::max<std::size_t>(digits_, 1) + decimals_;
    if (digits.size() < least) digits.insert(0, least - digits.size(), '0');
    if (decimals_ > 0) digits.insert(digits.size() - decimals_, 1, '.');
    return prefix_ + (value < 0 ? "-" : "") + digits;
}

}  // namespace kiro::ui
