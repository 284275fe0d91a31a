// What files of this host have in common that are bytes and end with a checksum. Numbers are little-endian as in
// memory, since nothing but this system's Windows programs reads these files.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

namespace kirobc {

// FNV-1a of the number's width: meant for damage, not for forgery.
template <class Number>
Number Checksum(std::string_view bytes) {
    constexpr bool kWide = std::is_same_v<Number, std::uint64_t>;
    static_assert(kWide || std::is_same_v<Number, std::uint32_t>);
    Number sum = static_cast<Number>(kWide ? 14695981039346656037u : 2166136261u);
    for (const char byte : bytes)
        sum = (sum ^ static_cast<unsigned char>(byte)) * static_cast<Number>(kWide ? 1099511628211u : 16777619u);
    return sum;
}

template <class Number>
void AppendNumber(std::string& file, Number number) {
    file.append(reinterpret_cast<const char*>(&number), sizeof number);
}

}  // namespace kirobc
