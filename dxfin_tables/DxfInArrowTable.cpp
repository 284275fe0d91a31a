#include "dxfin_tables/DxfInArrowTable.h"

#include <algorithm>

#include "tables/TableRecords.h"
#include "text/Numbers.h"
#include "text/SlotText.h"

namespace {

constexpr std::size_t kPiece = 127;
constexpr std::int32_t kDefaultArrows = 4;
constexpr std::int32_t kLargestMark = 4095;

constexpr std::string_view kBadMark = " ***** 無効なマーク番号です *****\n";
constexpr std::string_view kBadAngle = " ***** 無効な角度です (0 or 180) *****\n";
constexpr std::string_view kFull = " ***** 矢印テーブルの容量を超えました (Max. %d) *****\n";

class ArrowReader : public RecordReader<DxfInArrowTable> {
  public:
    using RecordReader::RecordReader;

    Reading Arrow(FieldText& fields);
};

constexpr Keyword<ArrowReader> kKeywords[] = {
    {"ARROW ", &ArrowReader::Arrow, 7, 70},
};

Reading ArrowReader::Arrow(FieldText& fields) {
    const auto name = fields.Cut("=");
    if (!name) return Refuse(kBadData);
    // Deliberately only the default arrows are looked up; others with the same name stand side by side.
    std::int32_t index = 0;
    while (index < kDefaultArrows && (*name)[0] != SlotText(table_.arrowName[index])) ++index;
    const bool isNew = index == kDefaultArrows;
    if (isNew) index = table_.arrowCount;
    if (index >= kDxfInArrows) return Full(kFull, kDxfInArrows);

    // Deliberately the name and the mark stay even if the record is refused, be it for the mark itself.
    DxfInArrowTable::Arrow& arrow = table_.arrows[index];
    StoreText(table_.arrowName[index], (*name)[0]);
    const auto values = fields.Cut(",,,");
    const auto mark = values ? ReadInteger((*values)[0]) : std::nullopt;
    if (mark) arrow.arrowMark = *mark;
    if (!mark || *mark < 1 || *mark > kLargestMark) return Refuse(kBadMark);
    const auto angle = ReadInteger((*values)[1]);
    if (!angle || (*angle != 0 && *angle != 180)) return Refuse(kBadAngle);
    const auto size = ReadInteger((*values)[2]);
    // Deliberately any size that has room in the table passes, 5 and -1 too.
    if (!size) return Refuse(kBadData);
    arrow.arrowAngle = *angle;
    arrow.arrowSize = *size;
    table_.arrowCount += isNew;
    return Reading::kGoOn;
}

void SetDefaults(DxfInArrowTable& table) {
    struct DefaultArrow {
        std::string_view name;
        std::int32_t mark, angle;
    };
    constexpr DefaultArrow kDefaults[kDefaultArrows] = {
        {"LINE", 1, 0}, {"SOLID", 3, 0}, {"CIRCLE", 15, 0}, {"OTHER", 1, 180}};
    table = {};
    for (const DefaultArrow& arrow : kDefaults) {
        table.arrows[table.arrowCount] = {arrow.mark, arrow.angle, 300, {}};
        StoreText(table.arrowName[table.arrowCount++], arrow.name);
    }
}

}  // namespace

void ParseDxfInArrowTable(std::string_view file, DxfInArrowTable& table, TableListing& listing) {
    SetDefaults(table);
    ArrowReader reader(table, listing);
    ReadRecords(file, kPiece, kKeywords, reader, listing);
}

std::string FormatDxfInArrowTable(const DxfInArrowTable& table, const TableHeader& header) {
    TableWriter out(header, kPiece);
    out.Add("/ Convert Arrow Head to Mark No.\n/\n");
    const std::int32_t count = std::min(table.arrowCount, kDxfInArrows);
    std::size_t longest = 0;
    for (std::int32_t i = 0; i < count; ++i) longest = std::max(longest, SlotText(table.arrowName[i]).size());
    const std::string blanks(longest, ' ');
    for (std::int32_t i = 0; i < count; ++i) {
        const std::string_view name = SlotText(table.arrowName[i]);
        if (name.empty()) continue;
        const DxfInArrowTable::Arrow& arrow = table.arrows[i];
        out.Add("ARROW %s%s = %4d, %3d, %4d\n", name, std::string_view(blanks).substr(name.size()), arrow.arrowMark,
                arrow.arrowAngle, arrow.arrowSize);
    }
    return std::move(out).Finish();
}
