#include <windows.h>

#include "drawing/CharacterSet.h"

namespace drawing {

std::optional<std::string> Utf8OfCodePage(int page, std::string_view text) {
    if (page <= 0 || !IsValidCodePage(static_cast<UINT>(page))) return std::nullopt;
    std::wstring wide(2 * text.size(), L'\0');
    const int length = MultiByteToWideChar(static_cast<UINT>(page), 0, text.data(), static_cast<int>(text.size()),
                                           wide.data(), static_cast<int>(wide.size()));
    if (length <= 0 && !text.empty()) return std::nullopt;
    std::string utf8(3 * wide.size(), '\0');
    utf8.resize(static_cast<std::size_t>(WideCharToMultiByte(CP_UTF8, 0, wide.data(), length, utf8.data(),
                                                             static_cast<int>(utf8.size()), nullptr, nullptr)));
    return utf8;
}

}  // namespace drawing
