#include "hostlayer/kirobc/DrawingText.h"

#include <algorithm>
#include <cstdio>

#include "drawing/CharacterSet.h"
#include "hostlayer/kirobc/EucCodec.h"

namespace convert {

namespace {

constexpr std::string_view kGeta = "\x81\xAC", kGetaUtf8 = "\xE3\x80\x93";

std::string Escaped(std::string_view character) {
    unsigned value = static_cast<unsigned char>(character[0]) & (0x7Fu >> character.size());
    for (const char c : character.substr(1)) value = value << 6 | (static_cast<unsigned char>(c) & 0x3F);
    if (character.size() < 2 || value > 0xFFFF) return std::string(kGeta);
    char text[16];
    std::snprintf(text, sizeof text, "\\U+%04X", value);
    return text;
}

std::string Utf8ToSjis(std::string_view text, const Unicode& unicode) {
    std::string all = unicode.toCp932(text);
    if (all.find(kGeta) == all.npos) return all;
    std::string out;
    while (!text.empty()) {
        std::size_t size = 1;
        while (size < text.size() && size < 4 && (static_cast<unsigned char>(text[size]) & 0xC0) == 0x80) ++size;
        const std::string_view character = text.substr(0, size);
        const std::string one = unicode.toCp932(character);
        out += one == kGeta && character != kGetaUtf8 ? Escaped(character) : one;
        text.remove_prefix(size);
    }
    return out;
}

}  // namespace

bool IsAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

std::string Convert(std::string_view text, Encoding from, Encoding to, const Unicode& unicode) {
    if (from == to) return std::string(text);
    if (IsAscii(text)) return to == Encoding::kUtf8 ? drawing::Unescaped(std::string(text)) : std::string(text);
    std::string sjis = from == Encoding::kSjis  ? std::string(text)
                       : from == Encoding::kEuc ? kirobc::EucToSjis(text)
                                                : Utf8ToSjis(text, unicode);
    if (to == Encoding::kSjis) return sjis;
    return to == Encoding::kEuc ? kirobc::SjisToEuc(sjis) : drawing::Unescaped(unicode.toUtf8(sjis));
}

bool IsLeadByte(char c, Encoding encoding) {
    const auto byte = static_cast<unsigned char>(c);
    return encoding == Encoding::kSjis && ((byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC));
}

std::string Folded(std::string_view name, Encoding encoding) {
    std::string out(name);
    for (std::size_t i = 0; i < out.size(); ++i) {
        if (IsLeadByte(out[i], encoding))
            ++i;
        else if (out[i] >= 'a' && out[i] <= 'z')
            out[i] = static_cast<char>(out[i] - 'a' + 'A');
    }
    return out;
}

}  // namespace convert
