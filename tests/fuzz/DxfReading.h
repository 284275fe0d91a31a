// Reading a whole drawing from memory, in pieces of chosen sizes. For the fuzz targets and the tests of the reader.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "drawing/DxfReader.h"

class MemorySource final : public ByteSource {
  public:
    // sizes: a byte for the size of each piece, over and over; empty: as much as is asked for. After failAt bytes
    // reading fails.
    explicit MemorySource(std::string_view bytes, std::string_view sizes = {}, std::size_t failAt = std::string::npos)
        : bytes_(bytes), sizes_(sizes), failAt_(failAt) {}

    int Read(char* buffer, unsigned size) override {
        if (position_ >= failAt_) return -1;
        std::size_t limit = std::min<std::size_t>(size, failAt_ - position_);
        if (!sizes_.empty()) {
            const auto piece = static_cast<unsigned char>(sizes_[turn_++ % sizes_.size()]);
            limit = std::min<std::size_t>(limit, std::max<unsigned>(piece, 1));
        }
        const std::size_t count = bytes_.copy(buffer, limit, position_);
        position_ += count;
        return static_cast<int>(count);
    }
    std::size_t Taken() const { return position_; }

  private:
    std::string_view bytes_;
    std::string_view sizes_;
    std::size_t failAt_;
    std::size_t position_ = 0;
    std::size_t turn_ = 0;
};

struct DxfItem {
    int code;  // of a line: the line as a code
    std::string text;
    bool operator==(const DxfItem&) const = default;
};

inline void Require(bool holds) {
    if (!holds) std::abort();
}

// The text of the last item, taken with a buffer of its own that ends where it is said to end.
inline std::string TakeText(const DxfReader& reader, int size) {
    std::vector<char> text(static_cast<std::size_t>(size), 'x');
    const int length = reader.GetText(text.data(), size);
    const std::size_t kept = strnlen(text.data(), text.size());
    Require(length >= 0 && kept < text.size() && kept <= static_cast<std::size_t>(length));
    return {text.data(), kept};
}

// Every line of a text file or every pair of a binary one, with what must hold for any input.
inline std::vector<DxfItem> ReadAll(MemorySource& source, bool binary) {
    static DxfReader reader(ShortestReal);
    std::vector<DxfItem> items;
    if (!(binary ? reader.OpenBinary(source) : reader.OpenText(source))) return items;
    for (;;) {
        int code = DxfReader::kNoCode;
        if (binary ? (code = reader.ReadPair()) < 0 : !reader.ReadLine()) break;
        items.push_back(
            {binary ? code : reader.LineAsCode(), TakeText(reader, std::min(reader.GetText(nullptr, 0), 5000) + 1)});
        Require(items.size() <= source.Taken());
        const int small = 1 + static_cast<int>(items.size() % 9);
        Require(TakeText(reader, small) == items.back().text.substr(0, static_cast<std::size_t>(small - 1)));
    }
    Require(!reader.ReadLine() && reader.ReadPair() < 0 && reader.GetText(nullptr, 0) == 0);
    reader.Close();
    return items;
}

inline bool IsStartOf(const std::vector<DxfItem>& start, const std::vector<DxfItem>& all) {
    return start.size() <= all.size() && std::equal(start.begin(), start.end(), all.begin());
}
