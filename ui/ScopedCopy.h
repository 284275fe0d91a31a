// Gives something back as it was when this was made, such as a part of a record that another dialog may write.
#pragma once

#include <cstring>
#include <type_traits>

namespace kiro::ui {

template <class T>
class ScopedCopy {
    static_assert(std::is_trivially_copyable_v<T>);

  public:
    explicit ScopedCopy(T& original) : original_(original) { std::memcpy(&before_, &original, sizeof before_); }
    ScopedCopy(const ScopedCopy&) = delete;
    ScopedCopy& operator=(const ScopedCopy&) = delete;
    ~ScopedCopy() { std::memcpy(&original_, &before_, sizeof before_); }

  private:
    T& original_;
    T before_;
};

}  // namespace kiro::ui
