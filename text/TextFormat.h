#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>

// A value that goes into a text.
class FormatArgument {
  public:
    FormatArgument(std::string_view text) : kind_(Kind::kText), text_(text) {}
    FormatArgument(std::int32_t number) : kind_(Kind::kInteger), integer_(number) {}
    FormatArgument(double number) : kind_(Kind::kReal), real_(number) {}

    // precision: digits after the point; negative: up to six digits in all, as short as possible
    void Append(std::string& out, std::size_t width, int precision) const;

  private:
    enum class Kind { kText, kInteger, kReal };
    Kind kind_;
    std::string_view text_;
    std::int32_t integer_ = 0;
    double real_ = 0;
};

// Appends what printf would write in the "C" locale. In the format: %s, %d, %3d, %g and %4.2f and their like. Unlike
// printf it knows the length of every text, goes by the type of the value and not by the letter, and is not moved by
// the host's locale; values that the format has no place for are left out. A text never brings its own end of
// a line or a file: CR, LF and 0x1A in it are dropped.
void AppendFormat(std::string& out, std::string_view format, std::initializer_list<FormatArgument> values);

template <class... Values>
std::string Formatted(std::string_view format, const Values&... values) {
    std::string out;
    AppendFormat(out, format, {FormatArgument(values)...});
    return out;
}
