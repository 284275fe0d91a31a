#include "drawing/ValueText.h"

#include <algorithm>
#include <climits>
#include <cstring>

void ValueText::Append(std::string_view bytes) {
    if (ended_) return;
    const std::size_t nul = bytes.find('\0');
    ended_ = nul != std::string_view::npos;
    bytes = bytes.substr(0, nul);
    const std::size_t room = kCapacity - Kept().size();
    bytes.copy(bytes_ + Kept().size(), room);
    length_ += bytes.size();
}

int ValueText::CopyTo(char* out, int size) const {
    if (out && size > 0) {
        const std::size_t count = Kept().copy(out, static_cast<std::size_t>(size) - 1);
        out[count] = '\0';
    }
    return static_cast<int>(std::min<std::size_t>(length_, INT_MAX));
}
