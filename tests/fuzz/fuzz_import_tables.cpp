#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "dxfin_tables/DxfInArrowTable.h"
#include "dxfin_tables/DxfInLayerTable.h"
#include "dxfin_tables/DxfInLineTable.h"
#include "dxfin_tables/DxfInStyleTable.h"
#include "tables/SlotText.h"

namespace {

void Require(bool holds) {
    if (!holds) std::abort();
}

struct CountingSink final : ListingSink {
    std::size_t bytes = 0;
    void Write(std::string_view text) override {
        Require(text.size() <= 600);
        bytes += text.size();
    }
};

bool Between(std::int32_t value, std::int32_t low, std::int32_t high) { return value >= low && value <= high; }

constexpr DxfInPalette kPalette = {};
void Parse(std::string_view file, DxfInLayerTable& t, TableListing& l) { ParseDxfInLayerTable(file, kPalette, t, l); }
void Parse(std::string_view file, DxfInLineTable& t, TableListing& l) { ParseDxfInLineTable(file, t, l); }
void Parse(std::string_view file, DxfInStyleTable& t, TableListing& l) { ParseDxfInStyleTable(file, t, l); }
void Parse(std::string_view file, DxfInArrowTable& t, TableListing& l) { ParseDxfInArrowTable(file, t, l); }
std::string Format(DxfInLayerTable& table) { return FormatDxfInLayerTable(table, {}); }
std::string Format(DxfInLineTable& table) { return FormatDxfInLineTable(table, {}); }
std::string Format(DxfInStyleTable& table) { return FormatDxfInStyleTable(table, {}); }
std::string Format(DxfInArrowTable& table) { return FormatDxfInArrowTable(table, {}); }

// A name has its NUL. The result: whether a record with it, of so many bytes besides, is read as it was written.
template <std::size_t N>
bool CheckName(const char (&name)[N], std::size_t room, std::string_view separators) {
    const std::string_view text = SlotText(name);
    Require(text.size() < N && text.find_first_of(" \t\r\n") == text.npos);
    return !text.empty() && text.size() <= room && text.find_first_of(separators) == text.npos;
}

// What must hold for every table that was read. The result: whether it can be read again as it is written.
bool Check(const DxfInLayerTable& t) {
    Require(Between(t.layerClassCount, 0, 2047) && Between(t.layerRevisionCount, 0, 2047) &&
            Between(t.layerSwitch, 0, 1));
    bool whole = true;
    for (std::int32_t i = 0; i <= t.layerClassCount; ++i) {
        Require(Between(t.layerClass[i], 1, 256));
        whole &= CheckName(t.layerClassName[i], 68, "=");
    }
    for (std::int32_t i = 0; i <= t.layerRevisionCount; ++i) {
        Require(Between(t.layerRevision[i], 1, 256));
        whole &= CheckName(t.layerRevisionName[i], 58, "=");
    }
    for (std::int32_t i = 0; i < kDxfInColors; ++i) {
        Require(Between(t.colorClass[i], 1, 256) && Between(t.colorRevision[i], 1, 256));
        for (const std::int32_t part : t.colorRgb[i]) Require(Between(part, 0, 255));
    }
    return whole;
}

bool Check(const DxfInLineTable& t) {
    Require(Between(t.lineTypeCount, 1, 256) && Between(t.polyWidthCount, 1, 50) &&
            Between(t.colorWeightCount, 0, 257));
    bool whole = true;
    for (std::int32_t i = 0; i < t.lineTypeCount; ++i) {
        Require(Between(t.lineTypes[i].lineFont, 1, 63) && Between(t.lineTypes[i].lineWeight, 1, 16));
        whole &= CheckName(t.lineTypeName[i], 100, "=");
    }
    for (std::int32_t i = 0; i < t.polyWidthCount; ++i) {
        const auto& range = t.polyWidths[i];
        Require(range.widthStart >= 0 && range.widthStart <= range.widthEnd && range.widthEnd <= 1000);
        Require(Between(t.polyWidthWeight[i], 1, 16));
    }
    for (const std::int32_t weight : t.lineWidthWeight) Require(Between(weight, t.lineWidthWeight[0] ? 1 : 0, 16));
    for (const std::int32_t weight : t.colorWeight) Require(Between(weight, 1, 16));
    for (const std::int32_t on : {t.polWidthSwitch, t.widWidthSwitch, t.colWidthSwitch}) Require(Between(on, 0, 1));
    return whole;
}

bool Check(const DxfInStyleTable& t) {
    Require(Between(t.styleCount, 4, 256));
    bool whole = true;
    for (std::int32_t i = 0; i < t.styleCount; ++i) {
        const auto& n = t.styleInts[i];
        const auto& r = t.styleReals[i];
        Require(Between(n[kStyleI1], 0, 2) && Between(n[kStyleI2], 1, 99) && Between(n[kStyleI3], 1, 15));
        for (const auto real : {kStyleR1, kStyleR2, kStyleR5, kStyleR6}) Require(r[real] > 0 && std::isfinite(r[real]));
        Require(r[kStyleR3] >= 1 && r[kStyleR3] <= 2 && r[kStyleR4] >= 0 && r[kStyleR4] < 1);
        // The file has six digits: 0.9999999 becomes 1, which is refused.
        whole &= r[kStyleR4] < 0.999999 && CheckName(t.styleName[i], 20, ",");
        for (const auto real : {kStyleR1, kStyleR2, kStyleR5, kStyleR6}) whole &= r[real] > 1e-300 && r[real] < 1e300;
    }
    Require(std::isfinite(t.spaceVertical) && std::isfinite(t.spaceHorizontal) && std::isfinite(t.textSpace));
    return whole;
}

bool Check(const DxfInArrowTable& t) {
    Require(Between(t.arrowCount, 4, 256));
    bool whole = true;
    for (std::int32_t i = 0; i < t.arrowCount; ++i) {
        const auto& arrow = t.arrows[i];
        Require(Between(arrow.arrowMark, 1, 4095) && (arrow.arrowAngle == 0 || arrow.arrowAngle == 180));
        whole &= CheckName(t.arrowName[i], 45, "=");
    }
    return whole;
}

template <class Table>
void ReadWriteRead(std::string_view file, bool write) {
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
    Parse(text, *again, silence);
    Check(*again);
    Require(!whole || (!silence.HasErrors() && Format(*again) == text));
}

}  // namespace

// The first byte says which table the rest is, and whether it is written and read again, which takes longer.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const std::string_view file(reinterpret_cast<const char*>(data) + 1, size - 1);
    const bool write = data[0] / 4 % 8 == 4;
    switch (data[0] % 4) {
        case 0:
            return ReadWriteRead<DxfInLayerTable>(file, write), 0;
        case 1:
            return ReadWriteRead<DxfInLineTable>(file, write), 0;
        case 2:
            return ReadWriteRead<DxfInStyleTable>(file, write), 0;
        default:
            return ReadWriteRead<DxfInArrowTable>(file, write), 0;
    }
}
