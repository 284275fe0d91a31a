#include "tables/TableLines.h"

#include <algorithm>
#include <cassert>

bool TableLines::Next() {
    assert(piece_ > 0 && piece_ <= kLargestPiece);
    size_ = 0;
    for (char last = 0; last != '\n' && size_ < piece_ && position_ < file_.size();) {
        last = file_[position_++];
        if (last == '\r' && file_.substr(position_).starts_with('\n')) last = file_[position_++];
        text_[size_++] = last;
    }
    const bool any = size_ > 0;
    if (any) {
        number_ += ended_;
        ended_ = text_[size_ - 1] == '\n';
    }
    size_ = std::min(size_, Text().find('\0'));
    return any;
}

void TableLines::TabsToBlanks() { std::replace(text_, text_ + size_, '\t', ' '); }
