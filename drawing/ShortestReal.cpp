#include <charconv>

#include "drawing/DxfReader.h"

std::size_t ShortestReal(double value, char* out) {
    return static_cast<std::size_t>(std::to_chars(out, out + kRealTextSize, value).ptr - out);
}
