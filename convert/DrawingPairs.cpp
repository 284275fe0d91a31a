#include "convert/DrawingPairs.h"

#include <algorithm>

#include "hostlayer/kirodxf/GroupCodes.h"

namespace convert {

namespace {

constexpr int kCommentCode = 999;

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view kBlank = " \t";
    text.remove_prefix(std::min(text.find_first_not_of(kBlank), text.size()));
    return text.substr(0, text.find_last_not_of(kBlank) + 1);
}

bool IsDwg(std::string_view start) {
    return start.size() >= 6 && start.starts_with("AC") &&
           std::all_of(start.begin() + 2, start.begin() + 6, [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

bool DrawingPairs::Source::Attach(ByteSource& source) {
    *this = Source();
    source_ = &source;
    int count = 0;
    while (length_ < sizeof start_ &&
           (count = source.Read(start_ + length_, static_cast<unsigned>(sizeof start_ - length_))) > 0)
        length_ += static_cast<std::size_t>(count);
    failed_ = count < 0;
    return !failed_;
}

int DrawingPairs::Source::Read(char* buffer, unsigned size) {
    if (given_ < length_) {
        const std::size_t count = Start().copy(buffer, size, given_);
        given_ += count;
        return static_cast<int>(count);
    }
    const int count = source_->Read(buffer, size);
    failed_ |= count < 0;
    return count;
}

Result DrawingPairs::Open(ByteSource& source) {
    any_ = ended_ = false;
    error_ = kDone;
    if (!source_.Attach(source)) return error_ = kCannotRead;
    if (IsDwg(source_.Start())) return error_ = kDwgDrawing;
    binary_ = ExamineDxfStart(source_.Start()).binary != 0;
    if (!(binary_ ? reader_.OpenBinary(source_) : reader_.OpenText(source_))) return error_ = kCannotRead;
    return kDone;
}

bool DrawingPairs::Next() {
    do {
        if (ended_ || error_ != kDone || !ReadPair()) return false;
    } while (code_ == kCommentCode);
    if (!any_ && code_ != 0) return Fail(kNoDrawing);
    any_ = true;
    ended_ = IsRecord("EOF");
    return !ended_;
}

bool DrawingPairs::ReadPair() {
    if (binary_) {
        // A reader of binary pairs does not tell a file that ends from one that makes no sense.
        if ((code_ = reader_.ReadPair()) < 0) return Fail(any_ ? kCutOff : kNoDrawing);
    } else {
        if (!reader_.ReadLine()) return Fail(any_ ? kCutOff : kNoDrawing);
        code_ = reader_.LineAsCode();
        if (code_ < 0 || code_ > kLargestCode) return Fail(any_ ? kBadPair : kNoDrawing);
        if (!reader_.ReadLine()) return Fail(any_ ? kCutOff : kNoDrawing);
    }
    text_ = reader_.Value().Kept();
    if (code_ == 0 || KindOfGroupCode(code_) != ValueKind::kText) text_ = Trimmed(text_);
    return true;
}

bool DrawingPairs::Fail(Result error) {
    error_ = source_.Failed() ? kCannotRead : error;
    return false;
}

}  // namespace convert
