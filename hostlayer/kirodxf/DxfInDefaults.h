// The file of the kept import parameters: a mark with the version, the length, the block and a checksum.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "entry/host/ParamBlocks.h"

inline constexpr std::size_t kDxfInDefaultsSize = 16 + sizeof(DxfInParamBlock) + 4;

std::string FormatDxfInDefaults(const DxfInParamBlock& params);
// False, and params as before, when the bytes are not exactly what was once formatted.
bool ParseDxfInDefaults(std::string_view file, DxfInParamBlock& params);
