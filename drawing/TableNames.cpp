#include "drawing/TableNames.h"

#include <unordered_set>
#include <utility>

namespace drawing {

namespace {

constexpr std::string_view kOther = "OTHER";

bool IsWritable(std::string_view name, std::string_view separators) {
    return !name.empty() && name.find_first_of(separators) == name.npos && name.find_first_of("\t\x1a") == name.npos;
}

}  // namespace

TableNames::TableNames(NameKind kind, const std::vector<std::string>& names) : count_(names.size()) {
    const bool hasDefault = kind == NameKind::kLayer || kind == NameKind::kArrow;
    for (std::size_t row = 0; row < names.size(); ++row) {
        rows_.emplace(KeyInTable(names[row]), row);
        if (hasDefault && !default_ && names[row] == kOther) default_ = row;
    }
}

std::optional<std::size_t> TableNames::Find(std::string_view name) const {
    const auto row = rows_.find(KeyInTable(name));
    return row == rows_.end() ? std::nullopt : std::optional(row->second);
}

std::vector<std::size_t> TableNames::Unused(const std::vector<UsedName>& used) const {
    std::vector<bool> found(count_);
    if (default_) found[*default_] = true;
    for (const UsedName& name : used)
        if (const auto row = Find(name.name)) found[*row] = true;
    std::vector<std::size_t> unused;
    for (std::size_t row = 0; row < count_; ++row)
        if (!found[row]) unused.push_back(row);
    return unused;
}

std::vector<MissingName> TableNames::Missing(const std::vector<UsedName>& used, const NameLimits& limits) const {
    using Fit = MissingName::Fit;
    std::vector<MissingName> missing;
    std::unordered_set<std::string> seen;
    std::size_t room = limits.room;
    for (const UsedName& one : used) {
        std::string name = NameInTable(one.name);
        if (Find(name) || !seen.insert(KeyInTable(name)).second) continue;
        const Fit fit = !IsWritable(name, limits.separators) ? Fit::kUnwritable
                        : name.size() > limits.longest       ? Fit::kTooLong
                        : room == 0                          ? Fit::kNoRoom
                                                             : Fit::kFits;
        if (fit == Fit::kFits) --room;
        missing.push_back({&one, std::move(name), fit});
    }
    return missing;
}

}  // namespace drawing
