#include "Text.h"

#include <cstdint>
#include <cstdio>
#include <optional>

#include "Status.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <iconv.h>
#endif

namespace cli {

namespace {

constexpr char32_t kNoCharacter = 0xFFFD;
constexpr std::string_view kGeta = "\x81\xAC";  // "〓" in code page 932

#ifdef _WIN32

constexpr UINT kCodePage = 932;

std::optional<char32_t> DecodeUnit(std::string_view unit) {
    wchar_t wide[2];
    const int size = static_cast<int>(unit.size());
    if (MultiByteToWideChar(kCodePage, MB_ERR_INVALID_CHARS, unit.data(), size, wide, 2) != 1) return std::nullopt;
    return wide[0];
}

std::optional<std::string> EncodeCharacter(char32_t character) {
    if (character > 0xFFFF) return std::nullopt;
    const auto wide = static_cast<wchar_t>(character);
    char bytes[2];
    BOOL lost = FALSE;
    const int size = WideCharToMultiByte(kCodePage, WC_NO_BEST_FIT_CHARS, &wide, 1, bytes, 2, nullptr, &lost);
    if (size <= 0 || lost) return std::nullopt;
    return std::string(bytes, static_cast<std::size_t>(size));
}

#else

class Converter {
  public:
    Converter(const char* to, const char* from) : handle_(iconv_open(to, from)) {
        if (handle_ == kNone()) throw Failure("コードページ 932 の変換表がこのシステムにありません");
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;
    ~Converter() { iconv_close(handle_); }

    // The bytes that the text becomes; nothing when it cannot be converted.
    std::optional<std::string> Convert(std::string_view text) {
        char in[4], out[4];
        std::size_t inLeft = text.copy(in, sizeof in), outLeft = sizeof out;
        char *inNext = in, *outNext = out;
        iconv(handle_, nullptr, nullptr, nullptr, nullptr);
        if (iconv(handle_, &inNext, &inLeft, &outNext, &outLeft) != 0 || inLeft > 0) return std::nullopt;
        return std::string(out, sizeof out - outLeft);
    }

  private:
    static iconv_t kNone() { return reinterpret_cast<iconv_t>(-1); }
    iconv_t handle_;
};

std::optional<char32_t> DecodeUnit(std::string_view unit) {
    static Converter converter("UTF-32LE", "CP932");
    const auto bytes = converter.Convert(unit);
    if (!bytes || bytes->size() != 4) return std::nullopt;
    char32_t character = 0;
    for (int i = 3; i >= 0; --i) character = character << 8 | static_cast<unsigned char>((*bytes)[std::size_t(i)]);
    return character;
}

std::optional<std::string> EncodeCharacter(char32_t character) {
    static Converter converter("CP932", "UTF-32LE");
    char bytes[4];
    for (char& byte : bytes) byte = static_cast<char>(character & 0xFF), character >>= 8;
    return converter.Convert({bytes, sizeof bytes});
}

#endif

bool IsLeadByte(unsigned char byte) { return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC); }
bool IsHalfWidthKana(unsigned char byte) { return byte >= 0xA1 && byte <= 0xDF; }

// Takes one character from the start of a text that is not empty; U+FFFD for a byte that begins none.
char32_t TakeUtf8(std::string_view& text) {
    const auto byteAt = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char first = byteAt(0);
    const std::size_t size = first < 0x80 ? 1 : first < 0xC2 ? 0 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
    char32_t character = size < 2 ? first : first & (0x7Fu >> size);
    bool good = size > 0 && size <= text.size();
    for (std::size_t i = 1; good && i < size; ++i) {
        good = (byteAt(i) & 0xC0) == 0x80;
        character = character << 6 | (byteAt(i) & 0x3Fu);
    }
    good = good && character >= kSmallest[size] && character <= 0x10FFFF && (character < 0xD800 || character > 0xDFFF);
    text.remove_prefix(good ? size : 1);
    return good ? character : kNoCharacter;
}

template <class Otherwise>
std::string Encoded(std::string_view text, Otherwise otherwise) {
    std::string out;
    while (!text.empty()) {
        const char32_t character = TakeUtf8(text);
        if (character < 0x80)
            out += static_cast<char>(character);
        else if (const auto bytes = EncodeCharacter(character))
            out += *bytes;
        else
            out += otherwise(character);
    }
    return out;
}

}  // namespace

void AppendUtf8(std::string& out, char32_t character) {
    const auto tail = [&](int shift) { out += static_cast<char>(0x80 | (character >> shift & 0x3F)); };
    if (character < 0x80) {
        out += static_cast<char>(character);
    } else if (character < 0x800) {
        out += static_cast<char>(0xC0 | character >> 6), tail(0);
    } else if (character < 0x10000) {
        out += static_cast<char>(0xE0 | character >> 12), tail(6), tail(0);
    } else {
        out += static_cast<char>(0xF0 | character >> 18), tail(12), tail(6), tail(0);
    }
}

// The units are cut here and not by the system, so that broken text looks the same on every one.
std::string FromCp932(std::string_view text) {
    std::string out;
    while (!text.empty()) {
        const auto first = static_cast<unsigned char>(text[0]);
        std::size_t size = 1;
        std::optional<char32_t> character;
        if (first < 0x80) {
            character = first;
        } else if (IsHalfWidthKana(first)) {
            character = DecodeUnit(text.substr(0, 1));
        } else if (IsLeadByte(first) && text.size() > 1) {
            character = DecodeUnit(text.substr(0, 2));
            if (character) size = 2;
        }
        AppendUtf8(out, character.value_or(kNoCharacter));
        text.remove_prefix(size);
    }
    return out;
}

std::string ToCp932(std::string_view text) {
    return Encoded(text, [](char32_t) { return std::string(kGeta); });
}

std::string ToCp932Escaped(std::string_view text) {
    return Encoded(text, [](char32_t character) {
        char escape[16];
        std::snprintf(escape, sizeof escape, "\\U+%04X", static_cast<unsigned>(character));
        return std::string(escape);
    });
}

bool IsUtf8(std::string_view text) {
    while (!text.empty()) {
        const std::string_view rest = text;
        if (TakeUtf8(text) == kNoCharacter && !rest.starts_with("\xEF\xBF\xBD")) return false;
    }
    return true;
}

bool IsCp932(std::string_view text) { return FromCp932(text).find("\xEF\xBF\xBD") == std::string::npos; }

std::string Printable(std::string_view text) {
    std::string out;
    while (!text.empty()) {
        const char32_t character = TakeUtf8(text);
        const bool control = character < 0x20 || (character >= 0x7F && character < 0xA0);
        AppendUtf8(out, control ? kNoCharacter : character);
    }
    return out;
}

std::size_t ColumnsOf(std::string_view text) {
    std::size_t columns = 0;
    while (!text.empty()) {
        const char32_t character = TakeUtf8(text);
        const bool narrow =
            character < 0x80 || (character >= 0xFF61 && character <= 0xFF9F) || character == kNoCharacter;
        columns += narrow ? 1 : 2;
    }
    return columns;
}

}  // namespace cli
