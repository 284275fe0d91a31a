// The names that a conversion table has rows for, held against those that drawings use.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "drawing/UsedNames.h"

namespace drawing {

// What a table's file could not give back of a name, and how many rows there may still be.
struct NameLimits {
    std::string_view separators;
    std::size_t longest;  // bytes
    std::size_t room;
};

// A name that a table lacks.
struct MissingName {
    enum class Fit { kFits, kUnwritable, kTooLong, kNoRoom };
    const UsedName* used;
    std::string text;  // as the table has it
    Fit fit;
};

class TableNames {
  public:
    // The names of its rows in their order.
    TableNames(NameKind kind, const std::vector<std::string>& names);

    std::optional<std::size_t> Find(std::string_view name) const;  // of several rows the first
    // The row of all other names, which layers and arrow heads have: "OTHER".
    std::optional<std::size_t> Default() const { return default_; }

    // Rows that no name finds, but for that of all others.
    std::vector<std::size_t> Unused(const std::vector<UsedName>& used) const;
    // Each once; used must outlive them.
    std::vector<MissingName> Missing(const std::vector<UsedName>& used, const NameLimits& limits) const;

  private:
    std::size_t count_;
    std::unordered_map<std::string, std::size_t> rows_;
    std::optional<std::size_t> default_;
};

}  // namespace drawing
