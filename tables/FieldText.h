#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

#include "tables/TableLines.h"

// The part of a line that holds a record's values, without blanks, CR and LF: so names lose their inner blanks. A
// suffix of separators behind it lets missing values at the end read as empty ones.
class FieldText {
  public:
    // At most count bytes of the part are looked at; a double-byte character that they would split is left out. part:
    // a line at most, which must outlive this; suffix: at most kLongestSuffix bytes.
    FieldText(std::string_view part, std::size_t count, std::string_view suffix);

    // The texts before each of the separators, which come in this order; what is behind the last one stays. Nothing,
    // and nothing is taken, when one is missing.
    template <std::size_t N>
    std::optional<std::array<std::string_view, N - 1>> Cut(const char (&separators)[N]) {
        std::array<std::string_view, N - 1> parts;
        std::string_view rest = rest_;
        for (std::size_t i = 0; i < N - 1; ++i) {
            const std::size_t end = rest.find(separators[i]);
            if (end == std::string_view::npos) return std::nullopt;
            parts[i] = rest.substr(0, end);
            rest.remove_prefix(end + 1);
        }
        rest_ = rest;
        return parts;
    }
    std::string_view Rest() const { return rest_; }
    bool WasCut() const { return wasCut_; }          // something behind those bytes was not looked at
    std::string_view Part() const { return part_; }  // as it was given, with its blanks and its line end

    FieldText(const FieldText&) = delete;
    FieldText& operator=(const FieldText&) = delete;

    static constexpr std::size_t kLongestSuffix = 16;

  private:
    char text_[TableLines::kLargestPiece + kLongestSuffix];
    std::string_view rest_;
    std::string_view part_;
    bool wasCut_;
};
