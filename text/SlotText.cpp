#include "text/SlotText.h"

namespace {

bool IsLeadByte(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}

bool IsTrailByte(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte >= 0x40 && byte <= 0xFC && byte != 0x7F;
}

}  // namespace

std::string_view CutAtCharacter(std::string_view text, std::size_t limit) {
    if (text.size() <= limit) return text;
    std::size_t end = 0;
    for (std::size_t next = 0; next <= limit;) {
        end = next;
        next += IsLeadByte(text[end]) && end + 1 < text.size() && IsTrailByte(text[end + 1]) ? 2 : 1;
    }
    return text.substr(0, end);
}

std::string FoldedName(std::string_view name) {
    std::string out(name);
    for (std::size_t at = 0; at < out.size(); ++at) {
        char& c = out[at];
        if (IsLeadByte(c) && at + 1 < out.size() && IsTrailByte(out[at + 1]))
            ++at;
        else if (c >= 'a' && c <= 'z')
            c = static_cast<char>(c - 'a' + 'A');
    }
    return out;
}

std::string_view FileNameOf(std::string_view path) {
    std::size_t name = 0;
    for (std::size_t at = 0; at < path.size();) {
        if (IsLeadByte(path[at]) && at + 1 < path.size() && IsTrailByte(path[at + 1])) {
            at += 2;
            continue;
        }
        const char c = path[at++];
        if (c == '\\' || c == '/' || c == ':') name = at;
    }
    return path.substr(name);
}
