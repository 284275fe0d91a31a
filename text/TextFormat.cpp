#include "text/TextFormat.h"

#include <algorithm>
#include <charconv>
#include <clocale>
#include <cstdio>
#include <cstring>
#include <iterator>
#include <span>

namespace {

// Takes a number from the start of a format; missing: what to give when there is none.
int TakeNumber(std::string_view& format, int missing) {
    const auto [end, error] = std::from_chars(format.data(), format.data() + format.size(), missing);
    format.remove_prefix(static_cast<std::size_t>(end - format.data()));
    return missing;
}

// The C library's printing in the place of to_chars, whose tables for reals are an eighth of the library; only what the
// host's locale has for a point has to be undone. Gives the count of characters.
std::size_t WriteReal(std::span<char> out, double value, int precision) {
    const int count = precision < 0 ? std::snprintf(out.data(), out.size(), "%g", value)
                                    : std::snprintf(out.data(), out.size(), "%.*f", precision, value);
    const std::size_t size = std::min(static_cast<std::size_t>(std::max(count, 0)), out.size() - 1);
    const std::string_view point = std::localeconv()->decimal_point;
    const std::size_t at = point == "." ? std::string_view::npos : std::string_view(out.data(), size).find(point);
    if (at == std::string_view::npos) return size;
    out[at] = '.';
    std::memmove(&out[at + 1], &out[at + point.size()], size - at - point.size());
    return size - point.size() + 1;
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
    const std::size_t size = kind_ == Kind::kInteger
                                 ? static_cast<std::size_t>(std::to_chars(digits, limit, integer_).ptr - digits)
                                 : WriteReal({digits, sizeof digits}, real_, precision);
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
