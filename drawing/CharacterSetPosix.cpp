#include <iconv.h>

#include "drawing/CharacterSet.h"

namespace drawing {

std::optional<std::string> Utf8OfCodePage(int page, std::string_view text) {
    const iconv_t converter = iconv_open("UTF-8", ("CP" + std::to_string(page)).c_str());
    if (converter == reinterpret_cast<iconv_t>(-1)) return std::nullopt;
    std::string in(text), utf8(4 * text.size(), '\0');
    char *inNext = in.data(), *outNext = utf8.data();
    std::size_t inLeft = in.size(), outLeft = utf8.size();
    while (inLeft > 0 && iconv(converter, &inNext, &inLeft, &outNext, &outLeft) == static_cast<std::size_t>(-1)) {
        if (outLeft < 3) break;
        for (const char c : {'\xEF', '\xBF', '\xBD'}) *outNext++ = c;
        ++inNext, --inLeft, outLeft -= 3;
    }
    iconv_close(converter);
    utf8.resize(utf8.size() - outLeft);
    return utf8;
}

}  // namespace drawing
