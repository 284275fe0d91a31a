#include "dxfin_tables/DxfInStyleTable.h"

#include <algorithm>
#include <iterator>
#include <limits>

#include "tables/TableRecords.h"
#include "text/Numbers.h"
#include "text/SlotText.h"

namespace {

constexpr std::size_t kPiece = 127;
constexpr std::int32_t kDefaultStyles = 4;

constexpr std::string_view kNotAboveZero = " ***** 無効な値です (> 0.0) *****\n";
constexpr std::string_view kBadDirection = " ***** 無効な値です (0 or 1) *****\n";  // deliberate: 2 passes
constexpr std::string_view kFull = " ***** 文字スタイルテーブルの容量を超えました (Max. %d) *****\n";
constexpr std::string_view kStyleForm = " ***** 書式が違います *****    STYLE = style_name, spaceing\n";
constexpr std::string_view kTwoToOneForm = " ***** 書式が違います *****    2TO1 = flag\n";
constexpr std::string_view kOneToTwoForm = " ***** 書式が違います *****    1TO2 = flag\n";
constexpr std::string_view kDimTwoToOneForm = " ***** 書式が違います *****    DIM_2TO1 = flag\n";
constexpr std::string_view kSpaceForm = " ***** 書式が違います *****     SPACE = vertical, hollizontal\n";
constexpr std::string_view kFontForm = " ***** 書式が違います *****     FONT = font, factor\n";
constexpr std::string_view kTextSpaceForm = " ***** 書式が違います *****    TEXT_SPACE = xx\n";

struct DefaultStyle {
    std::string_view name;
    std::int32_t i0;
    std::int32_t i1;
};
constexpr DefaultStyle kDefaults[kDefaultStyles] = {
    {"STANDARD", 8, 0}, {"BIGFONT", 7, 0}, {"TSTANDARD", 9, 2}, {"TBIGFONT", 8, 2}};

// The values of a STYLE record in their order, each with the range that is accepted and what becomes of other numbers.
enum class Otherwise { kRefuse, kKeep, kReplace };
struct StylePosition {
    bool isReal;
    std::int32_t index;
    double low, high;  // both included
    Otherwise otherwise;
    std::string_view message = {};
    double replacement = 0;
};
constexpr double kAboveZero = std::numeric_limits<double>::denorm_min();
constexpr double kBelowOne = 1.0 - std::numeric_limits<double>::epsilon() / 2;
constexpr double kNoLimit = std::numeric_limits<double>::max();
constexpr StylePosition kPositions[] = {
    {true, kStyleR1, kAboveZero, kNoLimit, Otherwise::kRefuse, kNotAboveZero},
    {false, kStyleI1, 0, 2, Otherwise::kRefuse, kBadDirection},
    {true, kStyleR2, kAboveZero, kNoLimit, Otherwise::kRefuse, kNotAboveZero},
    {true, kStyleR4, 0.0, kBelowOne, Otherwise::kKeep},
    {true, kStyleR3, 1.0, 2.0, Otherwise::kKeep},
    {false, kStyleI2, 1, 99, Otherwise::kReplace, {}, 1},
    {false, kStyleI3, 1, 15, Otherwise::kReplace, {}, 1},
    {true, kStyleR5, kAboveZero, kNoLimit, Otherwise::kKeep},
    {true, kStyleR6, kAboveZero, kNoLimit, Otherwise::kReplace, {}, 0.75},
};

class StyleReader : public RecordReader<DxfInStyleTable> {
  public:
    using RecordReader::RecordReader;

    Reading Space(FieldText& fields);
    Reading Font(FieldText& fields);
    Reading TextSpace(FieldText& fields);
    Reading Style(FieldText& fields);
    Reading TwoToOne(FieldText& fields) { return Flag(fields, table_.twoToOne, kTwoToOneForm); }
    Reading OneToTwo(FieldText& fields) { return Flag(fields, table_.oneToTwo, kOneToTwoForm); }
    Reading DimTwoToOne(FieldText& fields) { return Flag(fields, table_.dimTwoToOne, kDimTwoToOneForm); }

  private:
    Reading Flag(const FieldText& fields, std::int32_t& flag, std::string_view form);
    static bool Take(std::string_view text, const StylePosition& position, DxfInStyleValues& values);
};

constexpr Keyword<StyleReader> kKeywords[] = {
    {"SPACE", &StyleReader::Space},          {"FONT", &StyleReader::Font},
    {"STYLE", &StyleReader::Style},          {"2TO1", &StyleReader::TwoToOne},
    {"1TO2", &StyleReader::OneToTwo},        {"DIM_2TO1", &StyleReader::DimTwoToOne},
    {"DIM-2TO1", &StyleReader::DimTwoToOne}, {"TEXT_SPACE", &StyleReader::TextSpace},
    {"TEXT-SPACE", &StyleReader::TextSpace},
};

DxfInStyleValues ValuesOf(const DxfInStyleTable& table, std::int32_t index) {
    DxfInStyleValues values;
    std::copy_n(table.styleInts[index], 8, values.ints);
    std::copy_n(table.styleReals[index], 8, values.reals);
    return values;
}

void Store(DxfInStyleTable& table, std::int32_t index, std::string_view name, const DxfInStyleValues& values) {
    StoreText(table.styleName[index], name);
    std::copy_n(values.ints, 8, table.styleInts[index]);
    std::copy_n(values.reals, 8, table.styleReals[index]);
}

// The values behind the equals sign that the keyword is followed by.
template <std::size_t N>
std::optional<std::array<std::string_view, N - 1>> CutBehindEquals(FieldText& fields, const char (&separators)[N]) {
    const auto before = fields.Cut("=");
    return before && (*before)[0].empty() ? fields.Cut(separators) : std::nullopt;
}

Reading StyleReader::Space(FieldText& fields) {
    const auto parts = CutBehindEquals(fields, ",,");
    const auto vertical = parts ? ReadReal((*parts)[0]) : std::nullopt;
    const auto horizontal = parts ? ReadReal((*parts)[1]) : std::nullopt;
    if (!vertical || !horizontal) return Refuse(kSpaceForm);
    table_.spaceVertical = *vertical;
    table_.spaceHorizontal = *horizontal;
    return Reading::kGoOn;
}

Reading StyleReader::Font(FieldText& fields) {
    const auto parts = CutBehindEquals(fields, ",,");
    const auto font = parts ? ReadInteger((*parts)[0]) : std::nullopt;
    const auto factor = parts ? ReadReal((*parts)[1]) : std::nullopt;
    if (!font || !factor) return Refuse(kFontForm);
    table_.font = *font;
    table_.fontFactor = *factor;
    return Reading::kGoOn;
}

Reading StyleReader::TextSpace(FieldText& fields) {
    const auto parts = CutBehindEquals(fields, ",");
    const auto space = parts ? ReadReal((*parts)[0]) : std::nullopt;
    if (!space) return Refuse(kTextSpaceForm);
    table_.textSpace = *space;
    return Reading::kGoOn;
}

Reading StyleReader::Flag(const FieldText& fields, std::int32_t& flag, std::string_view form) {
    const bool on = fields.Rest().starts_with("=ON");
    if (!on && !fields.Rest().starts_with("=OFF")) return Refuse(form);
    flag = on;
    return Reading::kGoOn;
}

Reading StyleReader::Style(FieldText& fields) {
    const auto parts = CutBehindEquals(fields, ",");
    if (!parts) return Refuse(kStyleForm);
    const std::string_view name = (*parts)[0];
    // Deliberately only the default styles are looked up; others with the same name stand side by side.
    std::int32_t index = 0;
    while (index < kDefaultStyles && name != SlotText(table_.styleName[index])) ++index;
    const bool isNew = index == kDefaultStyles;
    if (isNew) index = table_.styleCount;

    DxfInStyleValues values = isNew ? kDxfInNewStyle : ValuesOf(table_, index);
    for (const StylePosition& position : kPositions) {
        const auto text = fields.Cut(",");
        if (!text) return Refuse(kStyleForm);
        if (!Take((*text)[0], position, values)) return Refuse(position.message);
    }
    if (index >= kDxfInStyles) return Full(kFull, kDxfInStyles);
    Store(table_, index, name, values);
    table_.styleCount += isNew;
    return Reading::kGoOn;
}

// False when the record is to be refused.
bool StyleReader::Take(std::string_view text, const StylePosition& position, DxfInStyleValues& values) {
    if (text.empty()) return true;
    std::optional<double> value = ReadReal(text);
    if (!position.isReal) value = ReadInteger(text);
    if (value && (*value < position.low || *value > position.high)) value.reset();
    if (!value && position.otherwise == Otherwise::kReplace) value = position.replacement;
    if (!value) return position.otherwise == Otherwise::kKeep;
    if (position.isReal)
        values.reals[position.index] = *value;
    else
        values.ints[position.index] = static_cast<std::int32_t>(*value);
    return true;
}

void SetDefaults(DxfInStyleTable& table) {
    table = {};
    for (const DefaultStyle& style : kDefaults) {
        DxfInStyleValues values = kDxfInNewStyle;
        values.ints[kStyleI0] = style.i0;
        values.ints[kStyleI1] = style.i1;
        Store(table, table.styleCount++, style.name, values);
    }
}

}  // namespace

void ParseDxfInStyleTable(std::string_view file, DxfInStyleTable& table, TableListing& listing) {
    SetDefaults(table);
    StyleReader reader(table, listing);
    ReadRecords(file, kPiece, kKeywords, reader, listing);
}

std::string FormatDxfInStyleTable(const DxfInStyleTable& table, const TableHeader& header) {
    TableWriter out(header, kPiece);
    out.Add("/ Convert Text Font Style to Text Font No.\n/\n");
    for (std::int32_t i = 0; i < std::min(table.styleCount, kDxfInStyles); ++i) {
        const std::string_view name = SlotText(table.styleName[i]);
        if (name.empty()) continue;
        const auto& n = table.styleInts[i];
        const auto& r = table.styleReals[i];
        out.Add("STYLE = %s, %g, %d, %g, %g, %g, %d, %d, %g, %g\n", name, r[kStyleR1], n[kStyleI1], r[kStyleR2],
                r[kStyleR4], r[kStyleR3], n[kStyleI2], n[kStyleI3], r[kStyleR5], r[kStyleR6]);
    }
    const auto onOff = [](std::int32_t flag) { return std::string_view(flag ? "ON" : "OFF"); };
    out.Add("/\n");
    out.Add("1TO2     = %s\n", onOff(table.oneToTwo));
    out.Add("2TO1     = %s\n", onOff(table.twoToOne));
    out.Add("DIM_2TO1 = %s\n", onOff(table.dimTwoToOne));
    return std::move(out).Finish();
}
