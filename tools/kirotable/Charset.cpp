#include "Charset.h"

#include <algorithm>
#include <utility>

#include "tools/cli/Status.h"
#include "tools/cli/Text.h"

namespace kirotable {

namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF", kLittleMark = "\xFF\xFE", kBigMark = "\xFE\xFF";

// So many NULs at the even places (0) or the odd ones (1).
std::ptrdiff_t NulsAt(std::string_view bytes, std::size_t place) {
    std::ptrdiff_t count = 0;
    for (std::size_t i = place; i < bytes.size(); i += 2) count += bytes[i] == '\0';
    return count;
}

bool IsBigEndian(std::string_view bytes) {
    return bytes.starts_with(kBigMark) || (!bytes.starts_with(kLittleMark) && NulsAt(bytes, 0) > NulsAt(bytes, 1));
}

// What half-width kana of code page 932 hardly ever looks like: a character of three bytes or more.
bool HasLongCharacter(std::string_view utf8) {
    return std::any_of(utf8.begin(), utf8.end(), [](char c) { return static_cast<unsigned char>(c) >= 0xE0; });
}

std::string Utf8OfUtf16(std::string_view bytes) {
    if (bytes.size() % 2 != 0) throw cli::Failure("UTF-16 として正しくありません");
    const std::size_t high = IsBigEndian(bytes) ? 0 : 1;
    if (bytes.starts_with(kLittleMark) || bytes.starts_with(kBigMark)) bytes.remove_prefix(2);
    std::string out;
    for (std::size_t i = 0; i < bytes.size(); i += 2) {
        const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(bytes[i + at]); };
        const unsigned unit = byte(high) << 8 | byte(1 - high);
        // A half of a character beyond 16 bits: code page 932 has none of these anyway.
        cli::AppendUtf8(out, unit >= 0xD800 && unit < 0xE000 ? 0xFFFD : unit);
    }
    return out;
}

}  // namespace

Charset CharsetOf(std::string_view bytes) {
    if (bytes.starts_with(kLittleMark) || bytes.starts_with(kBigMark)) return Charset::kUtf16;
    if (bytes.starts_with(kUtf8Mark)) return Charset::kUtf8;
    const auto size = static_cast<std::ptrdiff_t>(bytes.size());
    if (size >= 4 && std::max(NulsAt(bytes, 0), NulsAt(bytes, 1)) > size / 4) return Charset::kUtf16;
    const bool ascii = std::all_of(bytes.begin(), bytes.end(), [](char c) { return (c & 0x80) == 0; });
    if (ascii || !cli::IsUtf8(bytes)) return Charset::kCp932;
    return HasLongCharacter(bytes) || !cli::IsCp932(bytes) ? Charset::kUtf8 : Charset::kCp932;
}

std::string_view NameOfCharset(Charset charset) {
    return charset == Charset::kUtf8 ? "utf-8" : charset == Charset::kUtf16 ? "utf-16" : "cp932";
}

Decoded Decode(std::string bytes, Charset from) {
    if (from == Charset::kCp932) return {std::move(bytes), {}};
    if (from == Charset::kUtf16) bytes = Utf8OfUtf16(bytes);
    if (!cli::IsUtf8(bytes)) throw cli::Failure("UTF-8 として正しくありません");
    std::string_view rest = bytes;
    if (rest.starts_with(kUtf8Mark)) rest.remove_prefix(kUtf8Mark.size());
    Decoded decoded;
    for (std::size_t line = 1; !rest.empty(); ++line) {
        const std::string_view text = rest.substr(0, std::min(rest.find('\n'), rest.size() - 1) + 1);
        const std::string converted = cli::ToCp932(text);
        if (converted != cli::ToCp932Escaped(text)) decoded.lines.push_back(line);
        decoded.text += converted;
        rest.remove_prefix(text.size());
    }
    return decoded;
}

}  // namespace kirotable
