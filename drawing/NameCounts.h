// Counts of the names in one drawing, by their bytes and in the order in which they came.
#pragma once

#include <cstddef>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace drawing {

template <class Count = std::size_t>
class NameCounts {
  public:
    // The same name mostly comes many times in a row, so the last one is looked at first. Memory is taken for a name
    // that is new.
    Count& operator[](std::string_view name) {
        if (last_ && last_->first == name) return last_->second;
        if (const auto found = entries_.find(name); found != entries_.end()) {
            last_ = found->second;
        } else {
            last_ = &list_.emplace_back(std::string(name), Count());
            entries_.emplace(last_->first, last_);
        }
        return last_->second;
    }
    auto begin() const { return list_.begin(); }
    auto end() const { return list_.end(); }

    NameCounts() = default;
    NameCounts(const NameCounts&) = delete;
    NameCounts& operator=(const NameCounts&) = delete;

  private:
    using Entry = std::pair<const std::string, Count>;
    std::deque<Entry> list_;  // entries stay where they are
    std::unordered_map<std::string_view, Entry*> entries_;
    Entry* last_ = nullptr;
};

}  // namespace drawing
