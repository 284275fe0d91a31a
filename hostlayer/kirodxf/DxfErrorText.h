#pragma once

#include <cstddef>

// The message for an error code of a conversion, in code page 932. Codes are negative; a positive one means the same.
// out always gets a NUL; 256 bytes hold every message. The length of what was written.
std::size_t DxfErrorText(int code, char* out, std::size_t size);
const char* KnownDxfErrorText(int number);  // of a positive number; null for an unknown one
