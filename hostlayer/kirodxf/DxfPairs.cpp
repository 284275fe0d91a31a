#include "hostlayer/kirodxf/DxfPairs.h"

#include <algorithm>

#include "hostlayer/kirodxf/GroupCodes.h"

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

int DxfPairs::Open(ByteSource& source) {
    source_ = {};
    source_.source = &source;
    any_ = ended_ = false;
    return error_ = reader_.Open(source_) ? 0 : kDxfCannotRead;
}

bool DxfPairs::Next() {
    do {
        if (ended_ || error_ != 0 || !ReadPair()) return false;
    } while (code_ == kCommentCode);
    if (!any_ && code_ != 0) return Fail(kDxfNoDrawing);
    any_ = true;
    ended_ = IsRecord("EOF");
    return !ended_;
}

bool DxfPairs::ReadPair() {
    if (reader_.IsBinary()) {
        // A reader of binary pairs does not tell a file that ends from one that makes no sense.
        if ((code_ = reader_.ReadPair()) < 0) return Fail(any_ ? kDxfCutOff : kDxfNoDrawing);
    } else {
        if (!reader_.ReadLine()) return Fail(any_ ? kDxfCutOff : kDxfNoDrawing);
        code_ = reader_.LineAsCode();
        if (!any_ && IsDwg(reader_.Value().Kept())) return Fail(kDxfDwgDrawing);
        if (code_ < 0 || code_ > kLargestCode) return Fail(any_ ? kDxfBadPair : kDxfNoDrawing);
        if (!reader_.ReadLine()) return Fail(any_ ? kDxfCutOff : kDxfNoDrawing);
    }
    text_ = reader_.Value().Kept();
    if (code_ == 0 || KindOfGroupCode(code_) != ValueKind::kText) text_ = Trimmed(text_);
    return true;
}

bool DxfPairs::Fail(int error) {
    error_ = source_.failed ? kDxfCannotRead : error;
    return false;
}
