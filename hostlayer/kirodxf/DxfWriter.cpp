#include "hostlayer/kirodxf/DxfWriter.h"

#include <bit>
#include <charconv>

#include "drawing/GroupCodes.h"

namespace {

constexpr std::size_t kBuffer = 64 * 1024;
constexpr char kMark[] = "AutoCAD Binary DXF\r\n\x1a";  // its NUL belongs to it

static_assert(std::endian::native == std::endian::little, "numbers go to the file as they stand");

template <class T>
std::string_view Digits(T number, char (&out)[40], int base = 10) {
    char* end = out;
    if constexpr (std::is_floating_point_v<T>)
        end = std::to_chars(out, out + sizeof out, number).ptr;
    else
        end = std::to_chars(out, out + sizeof out, number, base).ptr;
    return {out, static_cast<std::size_t>(end - out)};
}

// 0 when the text does not begin with one.
template <class T>
T Number(std::string_view text) {
    T value = 0;
    text.remove_prefix(text.starts_with('+'));
    std::from_chars(text.data(), text.data() + text.size(), value);
    return value;
}

}  // namespace

DxfWriter::DxfWriter(ByteSink& sink, bool binary) : sink_(sink), binary_(binary) {
    buffer_.reserve(kBuffer + 8192);
    if (binary) buffer_.assign(kMark, sizeof kMark);
}

bool DxfWriter::Put(int code, std::string_view text) {
    if (buffer_.size() >= kBuffer) Flush();
    if (binary_) return PutBinary(code, text);
    PutText(code, text);
    return true;
}

void DxfWriter::PutNumber(int code, std::int64_t number) {
    char digits[40];
    Put(code, Digits(number, digits));
}

void DxfWriter::PutReal(int code, double number) {
    char digits[40];
    Put(code, Digits(number, digits));
}

void DxfWriter::PutHandle(int code, std::uint64_t handle) {
    char digits[40] = {};
    const std::string_view text = Digits(handle, digits, 16);
    for (char& digit : digits)
        if (digit >= 'a' && digit <= 'f') digit = static_cast<char>(digit - 'a' + 'A');
    Put(code, text);
}

bool DxfWriter::Finish() {
    Flush();
    return good_;
}

void DxfWriter::Flush() {
    good_ = good_ && sink_.Write(buffer_);
    buffer_.clear();
}

void DxfWriter::PutText(int code, std::string_view text) {
    char digits[40];
    const std::string_view number = Digits(code, digits);
    buffer_.append(number.size() < 3 ? 3 - number.size() : 0, ' ').append(number).append("\r\n");
    // A value from a binary file may have line ends, which would make several pairs of one.
    for (std::size_t end; (end = text.find_first_of("\r\n")) != text.npos; text.remove_prefix(end + 1))
        buffer_.append(text.substr(0, end)).append(text[end] == '\n' ? "^J" : "^M");
    buffer_.append(text).append("\r\n");
}

template <class T>
void DxfWriter::Append(T value) {
    buffer_.append(reinterpret_cast<const char*>(&value), sizeof value);
}

bool DxfWriter::PutBinary(int code, std::string_view text) {
    const std::size_t start = buffer_.size();
    Append(static_cast<std::int16_t>(code));
    switch (KindOfGroupCode(code)) {
        case ValueKind::kText:
            buffer_.append(text).push_back('\0');
            return true;
        case ValueKind::kBool:
            Append(static_cast<std::uint8_t>(Number<std::int64_t>(text)));
            return true;
        case ValueKind::kInt16:
            Append(static_cast<std::int16_t>(Number<std::int64_t>(text)));
            return true;
        case ValueKind::kInt32:
            Append(static_cast<std::int32_t>(Number<std::int64_t>(text)));
            return true;
        case ValueKind::kInt64:
            Append(Number<std::int64_t>(text));
            return true;
        case ValueKind::kDouble:
            Append(Number<double>(text));
            return true;
        case ValueKind::kChunk:
            if (PutChunk(text)) return true;
            break;
        case ValueKind::kUnknown:
            break;
    }
    buffer_.resize(start);
    return false;
}

bool DxfWriter::PutChunk(std::string_view digits) {
    if (digits.size() % 2 != 0 || digits.size() / 2 > 255) return false;
    buffer_.push_back(static_cast<char>(digits.size() / 2));
    for (std::size_t i = 0; i < digits.size(); i += 2) {
        unsigned octet = 0;
        const auto [end, error] = std::from_chars(digits.data() + i, digits.data() + i + 2, octet, 16);
        if (error != std::errc() || end != digits.data() + i + 2) return false;
        buffer_.push_back(static_cast<char>(octet));
    }
    return true;
}
