#include <string_view>

#include "entry/host/kirobc.h"
#include "hostlayer/kirobc/EucCodec.h"

namespace {

using Conversion = kirobc::Converted (*)(std::string_view, char*, std::size_t) noexcept;

std::size_t Export(Conversion convert, const char* text, std::size_t length, char* out, std::size_t size) noexcept {
    if (!out) size = 0;
    const std::string_view source = text ? std::string_view(text, length) : std::string_view();
    const kirobc::Converted result = convert(source, out, size > 0 ? size - 1 : 0);
    if (size > 0) out[result.written] = '\0';
    return result.whole;
}

}  // namespace

std::size_t HxEucToSjis(const char* text, std::size_t length, char* out, std::size_t size) {
    return Export(kirobc::EucToSjis, text, length, out, size);
}

std::size_t HxSjisToEuc(const char* text, std::size_t length, char* out, std::size_t size) {
    return Export(kirobc::SjisToEuc, text, length, out, size);
}
