#include "drawing/DxfReader.h"

#include <algorithm>
#include <bit>
#include <charconv>
#include <cstdint>
#include <cstring>

#include "drawing/GroupCodes.h"

static_assert(std::endian::native == std::endian::little, "numbers are taken from the file as they stand");

namespace {

// The mark at the start of every binary DXF file; its NUL belongs to it.
constexpr char kMark[] = "AutoCAD Binary DXF\r\n\x1a";
constexpr std::string_view kBinaryMark(kMark, sizeof kMark);
static_assert(kBinaryMark.size() + 2 == kDxfStartLength);

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

constexpr std::uint8_t kExtendedCode = 255;  // in a file with one-byte codes: a two-byte code follows
constexpr int kLargestCode = 1071;

}  // namespace

DxfStart ExamineDxfStart(std::string_view start) {
    DxfStart form;
    if (!start.starts_with(kBinaryMark)) return form;
    form.binary = true;
    if (start.size() < kDxfStartLength) return form;
    // The first pair is code 0 and "SECTION", or a comment with code 999 (0x03E7). After a one-byte code comes a
    // character or, after kExtendedCode, 0xE7: never what could be the upper byte of a group code.
    const auto second = static_cast<unsigned char>(start[kBinaryMark.size() + 1]);
    form.wideCodes = second <= (kLargestCode >> 8);
    return form;
}

bool DxfReader::OpenText(ByteSource& source) {
    Close();
    input_.Attach(&source);
    return StartText();
}

bool DxfReader::OpenBinary(ByteSource& source) {
    Close();
    input_.Attach(&source);
    return StartBinary();
}

bool DxfReader::Open(ByteSource& source) {
    Close();
    input_.Attach(&source);
    return ExamineDxfStart(input_.Peek(kDxfStartLength)).binary ? StartBinary() : StartText();
}

bool DxfReader::StartText() {
    // Files that were saved as UTF-8 may start with a byte order mark; it is no part of the first line.
    if (input_.Peek(kByteOrderMark.size()).starts_with(kByteOrderMark)) input_.Skip(kByteOrderMark.size());
    // Some failures, such as a locked range, show only when the first bytes are read.
    if (input_.Failed()) return Stop(), false;
    kind_ = Kind::kText;
    return true;
}

bool DxfReader::StartBinary() {
    const DxfStart form = ExamineDxfStart(input_.Peek(kDxfStartLength));
    if (input_.Failed() || !form.binary) return Stop(), false;
    input_.Skip(kBinaryMark.size());
    wideCodes_ = form.wideCodes;
    kind_ = Kind::kBinary;
    return true;
}

void DxfReader::Close() {
    Stop();
    afterCr_ = false;
}

void DxfReader::Stop() {
    kind_ = Kind::kNone;
    input_.Attach(nullptr);
    text_.Clear();
}

bool DxfReader::ReadLine() {
    text_.Clear();
    if (kind_ != Kind::kText) return false;
    if (afterCr_ && input_.Peek(1).starts_with('\n')) input_.Skip(1);
    afterCr_ = false;
    bool any = false;
    for (std::string_view bytes; !(bytes = input_.Peek(1)).empty(); any = true) {
        const auto end = std::find_if(bytes.begin(), bytes.end(), [](char c) { return c == '\r' || c == '\n'; });
        const auto length = static_cast<std::size_t>(end - bytes.begin());
        text_.Append(bytes.substr(0, length));
        if (end == bytes.end()) {
            input_.Skip(length);
            continue;
        }
        afterCr_ = *end == '\r';
        input_.Skip(length + 1);
        return true;
    }
    // The last line needs no end, but one that a failure cut is no line.
    if (any && !input_.Failed()) return true;
    Stop();
    return false;
}

int DxfReader::LineAsCode() const {
    if (!text_.IsWhole()) return kNoCode;
    std::string_view line = text_.Kept();
    const std::size_t start = line.find_first_not_of(" \t");
    if (start == std::string_view::npos) return kNoCode;
    line = line.substr(start, line.find_last_not_of(" \t") + 1 - start);
    int code = 0;
    const auto [end, error] = std::from_chars(line.data(), line.data() + line.size(), code);
    // Negative codes are used in memory by programs that work on drawings; in a file they say nothing.
    return error == std::errc() && end == line.data() + line.size() && code >= 0 ? code : kNoCode;
}

int DxfReader::ReadPair() {
    text_.Clear();
    if (kind_ != Kind::kBinary) return kNoCode;
    const int code = ReadCode();
    if (code >= 0 && ReadValue(code)) return code;
    Stop();
    return kNoCode;
}

int DxfReader::ReadCode() {
    std::uint8_t narrow = kExtendedCode;
    if (!wideCodes_ && !Take(narrow)) return kNoCode;
    if (narrow != kExtendedCode) return narrow;
    std::int16_t wide = 0;
    return Take(wide) && wide >= 0 ? wide : kNoCode;
}

bool DxfReader::ReadValue(int code) {
    switch (KindOfGroupCode(code)) {
        case ValueKind::kText:
            return ReadString();
        case ValueKind::kBool:
            return ReadInteger<std::uint8_t>();
        case ValueKind::kInt16:
            return ReadInteger<std::int16_t>();
        case ValueKind::kInt32:
            return ReadInteger<std::int32_t>();
        case ValueKind::kInt64:
            return ReadInteger<std::int64_t>();
        case ValueKind::kDouble:
            return ReadReal();
        case ValueKind::kChunk:
            return ReadChunk();
        case ValueKind::kUnknown:
            break;
    }
    // The length of the value is unknown, so what follows cannot be found.
    return false;
}

bool DxfReader::ReadString() {
    for (std::string_view bytes; !(bytes = input_.Peek(1)).empty();) {
        const std::size_t nul = bytes.find('\0');
        text_.Append(bytes.substr(0, nul));
        const bool ended = nul != std::string_view::npos;
        input_.Skip(ended ? nul + 1 : bytes.size());
        if (ended) return true;
    }
    return false;
}

// A length byte and so many bytes. Its text is what a text file has in its place: two hexadecimal digits a byte.
bool DxfReader::ReadChunk() {
    std::uint8_t length = 0;
    if (!Take(length)) return false;
    const std::string_view bytes = input_.Peek(length).substr(0, length);
    if (bytes.size() < length) return false;
    constexpr char kDigits[] = "0123456789ABCDEF";
    for (const char c : bytes) {
        const auto octet = static_cast<unsigned char>(c);
        const char digits[] = {kDigits[octet >> 4], kDigits[octet & 15]};
        text_.Append({digits, sizeof digits});
    }
    input_.Skip(length);
    return true;
}

template <class T>
bool DxfReader::Take(T& value) {
    const std::string_view bytes = input_.Peek(sizeof value);
    if (bytes.size() < sizeof value) return false;
    std::memcpy(&value, bytes.data(), sizeof value);
    input_.Skip(sizeof value);
    return true;
}

template <class T>
bool DxfReader::ReadInteger() {
    T value = 0;
    if (!Take(value)) return false;
    char digits[24];  // the longest, of eight bytes, has twenty characters
    const auto [end, error] = std::to_chars(digits, digits + sizeof digits, value);
    text_.Append({digits, static_cast<std::size_t>(end - digits)});
    return error == std::errc();
}

bool DxfReader::ReadReal() {
    double value = 0;
    if (!Take(value)) return false;
    char digits[kRealTextSize];
    if (realText_) text_.Append({digits, realText_(value, digits)});
    return true;
}
