#include "drawing/DrawingPairs.h"

#include <algorithm>

#include "drawing/GroupCodes.h"

namespace drawing {

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

Result DrawingPairs::Open(ByteSource& source) {
    source_ = {};
    source_.source = &source;
    any_ = ended_ = false;
    return error_ = reader_.Open(source_) ? kDone : kCannotRead;
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
    if (reader_.IsBinary()) {
        // A reader of binary pairs does not tell a file that ends from one that makes no sense.
        if ((code_ = reader_.ReadPair()) < 0) return Fail(any_ ? kCutOff : kNoDrawing);
    } else {
        if (!reader_.ReadLine()) return Fail(any_ ? kCutOff : kNoDrawing);
        code_ = reader_.LineAsCode();
        if (!any_ && IsDwg(reader_.Value().Kept())) return Fail(kDwgDrawing);
        if (code_ < 0 || code_ > kLargestCode) return Fail(any_ ? kBadPair : kNoDrawing);
        if (!reader_.ReadLine()) return Fail(any_ ? kCutOff : kNoDrawing);
    }
    return true;
}

// Trimmed when it is asked for: of most pairs nobody asks.
std::string_view DrawingPairs::Text() const {
    const std::string_view text = reader_.Value().Kept();
    return code_ == 0 || KindOfGroupCode(code_) != ValueKind::kText ? Trimmed(text) : text;
}

bool DrawingPairs::Fail(Result error) {
    error_ = source_.failed ? kCannotRead : error;
    return false;
}

}  // namespace drawing
