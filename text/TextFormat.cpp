#include "text/TextFormat.h"

#include <algorithm>
#include <charconv>
#include <iterator>

namespace {

// Takes a number from the start of a format; missing: what to give when there is none.
int TakeNumber(std::string_view& format, int missing) {
    const auto [end, error] = std::from_chars(format.data(), format.data() + format.size(), missing);
    format.remove_prefix(static_cast<std::size_t>(end - format.data()));
    return missing;
}

}  // namespace

void FormatArgument::Append(std::string& out, std::size_t width, int precision) const {
    if (kind_ == Kind::kText) {
        std::copy_if(text_.begin(), text_.end(), std::back_inserter(out),
                     [](char c) { return c != '\r' && c != '\n' && c != 0x1A; });
        return;
    }
    char digits[400];  // the largest double has 309 digits before the point
    char* const limit = digits + sizeof digits;
    std::to_chars_result result;
    if (kind_ == Kind::kInteger)
        result = std::to_chars(digits, limit, integer_);
    else if (precision < 0)
        result = std::to_chars(digits, limit, real_, std::chars_format::general, 6);
    else
        result = std::to_chars(digits, limit, real_, std::chars_format::fixed, precision);
    const auto size = static_cast<std::size_t>(result.ptr - digits);
    out.append(width > size ? width - size : 0, ' ').append(digits, size);
}

void AppendFormat(std::string& out, std::string_view format, std::initializer_list<FormatArgument> values) {
    for (const FormatArgument& value : values) {
        // "%" is no second byte of a double-byte character.
        const std::size_t mark = format.find('%');
        if (mark == format.npos) break;
        out += format.substr(0, mark);
        format.remove_prefix(mark + 1);
        const int width = TakeNumber(format, 0);
        int precision = -1;
        if (format.starts_with('.')) format.remove_prefix(1), precision = TakeNumber(format, precision);
        value.Append(out, static_cast<std::size_t>(width), precision);
        format.remove_prefix(std::min<std::size_t>(1, format.size()));  // the letter
    }
    out += format;
}
