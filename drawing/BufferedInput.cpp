#include "drawing/BufferedInput.h"

#include <algorithm>
#include <cassert>
#include <cstring>

void BufferedInput::Attach(ByteSource* source) {
    source_ = source;
    failed_ = false;
    nextRead_ = kFirstRead;
    begin_ = end_ = 0;
}

std::string_view BufferedInput::Peek(std::size_t least) {
    assert(least <= kLargestPeek);
    while (end_ - begin_ < least && source_) {
        std::memmove(buffer_, buffer_ + begin_, end_ - begin_);
        end_ -= begin_;
        begin_ = 0;
        const unsigned size = std::min(nextRead_, kBufferSize - static_cast<unsigned>(end_));
        const int count = source_->Read(buffer_ + end_, size);
        if (count <= 0 || static_cast<unsigned>(count) > size) {
            failed_ = count != 0;
            source_ = nullptr;
        } else {
            end_ += static_cast<unsigned>(count);
            nextRead_ = kBufferSize;
        }
    }
    return {buffer_ + begin_, end_ - begin_};
}

void BufferedInput::Skip(std::size_t count) {
    assert(count <= end_ - begin_);
    begin_ += count;
}
