// What follows a group code in a binary DXF file.
#pragma once

#include <array>
#include <cstddef>

enum class ValueKind { kUnknown, kText, kBool, kInt16, kInt32, kInt64, kDouble, kChunk };

struct GroupCodeRange {
    int first;
    int last;
    ValueKind kind;
};

// Handles (5, 105, 320 to 369, 390 to 399, 480 and 481, 1005) are text also in a binary file.
inline constexpr GroupCodeRange kGroupCodes[] = {
    {0, 9, ValueKind::kText},         {10, 59, ValueKind::kDouble},    {60, 79, ValueKind::kInt16},
    {90, 99, ValueKind::kInt32},      {100, 102, ValueKind::kText},    {105, 105, ValueKind::kText},
    {110, 149, ValueKind::kDouble},   {160, 169, ValueKind::kInt64},   {170, 179, ValueKind::kInt16},
    {210, 239, ValueKind::kDouble},   {270, 289, ValueKind::kInt16},   {290, 299, ValueKind::kBool},
    {300, 309, ValueKind::kText},     {310, 319, ValueKind::kChunk},   {320, 369, ValueKind::kText},
    {370, 389, ValueKind::kInt16},    {390, 399, ValueKind::kText},    {400, 409, ValueKind::kInt16},
    {410, 419, ValueKind::kText},     {420, 429, ValueKind::kInt32},   {430, 439, ValueKind::kText},
    {440, 459, ValueKind::kInt32},    {460, 469, ValueKind::kDouble},  {470, 481, ValueKind::kText},
    {999, 1003, ValueKind::kText},    {1004, 1004, ValueKind::kChunk}, {1005, 1009, ValueKind::kText},
    {1010, 1059, ValueKind::kDouble}, {1060, 1070, ValueKind::kInt16}, {1071, 1071, ValueKind::kInt32},
};

constexpr bool AscendGroupCodes() {
    for (std::size_t i = 1; i < sizeof kGroupCodes / sizeof *kGroupCodes; ++i)
        if (kGroupCodes[i].first <= kGroupCodes[i - 1].last) return false;
    return true;
}
static_assert(AscendGroupCodes());

inline constexpr int kLargestGroupCode = 1071;

// By the code: it is asked for every pair of a drawing.
inline constexpr auto kValueKinds = [] {
    std::array<ValueKind, kLargestGroupCode + 1> kinds = {};
    for (const GroupCodeRange& range : kGroupCodes)
        for (int code = range.first; code <= range.last; ++code) kinds[static_cast<std::size_t>(code)] = range.kind;
    return kinds;
}();

constexpr ValueKind KindOfGroupCode(int code) {
    return code >= 0 && code <= kLargestGroupCode ? kValueKinds[static_cast<std::size_t>(code)] : ValueKind::kUnknown;
}
