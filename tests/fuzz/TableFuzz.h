// What the fuzz targets of conversion tables have in common. A target has, at global scope, for each of its tables
// Check(table), which demands what must hold for every table that was read and tells whether it can be read again as it
// is written.
#pragma once

#include <cstdlib>
#include <cstring>
#include <memory>

#include "tests/native/TableKinds.h"
#include "text/SlotText.h"

inline void Require(bool holds) {
    if (!holds) std::abort();
}

struct CountingSink final : ListingSink {
    std::size_t bytes = 0;
    void Write(std::string_view text) override {
        Require(text.size() <= 600);
        bytes += text.size();
    }
};

inline bool Between(std::int32_t value, std::int32_t low, std::int32_t high) { return value >= low && value <= high; }

// A name has its NUL. The result: whether a record with it, of so many bytes besides, is read as it was written.
template <std::size_t N>
bool CheckName(const char (&name)[N], std::size_t room, std::string_view separators) {
    const std::string_view text = SlotText(name);
    Require(text.size() < N && text.find_first_of(" \t\r\n") == text.npos);
    return !text.empty() && text.size() <= room && text.find_first_of(separators) == text.npos;
}

// Whatever is read is sound; what is whole and has lines of that length at most is read again as it was written.
template <class Table>
void ReadWriteRead(std::string_view file, bool write, std::size_t longestLine) {
    static const auto table = std::make_unique<Table>(), again = std::make_unique<Table>();
    std::memset(static_cast<void*>(table.get()), 0x55, sizeof(Table));
    CountingSink sink, nothing;
    TableListing listing(sink), silence(nothing);
    Parse(file, *table, listing);
    // A byte is at most an empty line with its error.
    Require(sink.bytes <= file.size() * 128 && (listing.HasErrors() || sink.bytes <= file.size() * 5));

    const bool whole = Check(*table);
    if (!write) return;
    const std::string text = Format(*table);
    bool fits = whole;
    for (std::size_t start = 0, end = 0; start < text.size() && fits; start = end + 1) {
        end = text.find('\n', start);
        fits = end - start <= longestLine;
    }
    Parse(text, *again, silence);
    Check(*again);
    Require(!fits || (!silence.HasErrors() && Format(*again) == text));
}

// The first byte says which table the rest is, and whether it is written and read again, which takes longer.
template <class Layers, class Lines, class Styles, class Arrows>
void FuzzTables(const std::uint8_t* data, std::size_t size, std::size_t longestLine) {
    if (size == 0) return;
    const std::string_view file(reinterpret_cast<const char*>(data) + 1, size - 1);
    const bool write = data[0] / 4 % 8 == 4;
    switch (data[0] % 4) {
        case 0:
            return ReadWriteRead<Layers>(file, write, longestLine);
        case 1:
            return ReadWriteRead<Lines>(file, write, longestLine);
        case 2:
            return ReadWriteRead<Styles>(file, write, longestLine);
        default:
            return ReadWriteRead<Arrows>(file, write, longestLine);
    }
}
