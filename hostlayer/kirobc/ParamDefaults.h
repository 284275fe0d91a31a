// The file of kept parameters: a mark with the version, the length of the block, the block and a checksum.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

inline constexpr std::size_t kParamMarkLength = 12;
inline constexpr std::size_t kParamFrameSize = kParamMarkLength + 2 * 4;  // what the file has besides the block

// mark: kParamMarkLength bytes that no other kind of block and no other version has.
std::string FormatParamDefaults(std::string_view mark, std::string_view block);
// The block; empty when the bytes are not exactly what was once formatted from one of that size.
std::string_view ParseParamDefaults(std::string_view mark, std::string_view file, std::size_t size);
