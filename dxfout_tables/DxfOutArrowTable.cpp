#include "dxfout_tables/DxfOutArrowTable.h"

#include <algorithm>

#include "tables/TableRecords.h"
#include "text/Numbers.h"
#include "text/SlotText.h"

namespace {

constexpr std::size_t kPiece = 256;

constexpr std::string_view kBadMark = " ***** 無効なマーク番号です *****\n";
constexpr std::string_view kBadAngle = " ***** 無効な角度です (0 or 180) *****\n";
constexpr std::string_view kBadName = " ***** 無効な矢印名です *****\n";

class ArrowReader : public RecordReader<DxfOutArrowTable> {
  public:
    ArrowReader(DxfOutArrowTable& table, TableListing& listing, DxfOutArrowCheck check)
        : RecordReader(table, listing), check_(check) {}

    Reading Arrow(FieldText& fields);

  private:
    DxfOutArrowCheck check_;
};

constexpr Keyword<ArrowReader> kKeywords[] = {
    {"ARROW ", &ArrowReader::Arrow},
};

Reading ArrowReader::Arrow(FieldText& fields) {
    const auto markText = fields.Cut(",");
    const auto mark = markText ? ReadInteger((*markText)[0], 1, 4095) : std::nullopt;
    if (!mark) return Refuse(kBadMark);
    const auto parts = fields.Cut("=,");
    if (!parts) return Refuse(kBadData);
    const auto angle = ReadInteger((*parts)[0]);
    if (!angle || (*angle != 0 && *angle != 180)) return Refuse(kBadAngle);
    DxfOutArrowTable::Arrow arrow = {*mark, *angle, {}};
    StoreText(arrow.arrowName, (*parts)[1]);
    if (SlotText(arrow.arrowName).empty() || !check_(arrow.arrowName)) return Refuse(kBadName);
    if (table_.arrowCount == kDxfOutArrows) return Refuse(kBadData);
    // Deliberately without a look at the marks before it: duplicates stand side by side.
    table_.arrows[table_.arrowCount++] = arrow;
    return Reading::kGoOn;
}

}  // namespace

void ParseDxfOutArrowTable(std::string_view file, DxfOutArrowTable& table, TableListing& listing,
                           DxfOutArrowCheck checkArrow) {
    table = {};
    ArrowReader reader(table, listing, checkArrow);
    ReadRecords(file, kPiece, kKeywords, reader, listing);
}

std::string FormatDxfOutArrowTable(const DxfOutArrowTable& table, const TableHeader& header) {
    TableWriter out(header, kPiece);
    out.Add("/ Convert Mark to Arrow\n/\n");
    for (std::int32_t i = 0; i < std::min(table.arrowCount, kDxfOutArrows); ++i) {
        const DxfOutArrowTable::Arrow& arrow = table.arrows[i];
        out.Add("ARROW  %4d, %4d = %s\n", arrow.mark, arrow.angle, SlotText(arrow.arrowName));
    }
    return std::move(out).Finish();
}
