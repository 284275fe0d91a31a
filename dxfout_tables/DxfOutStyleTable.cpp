#include "dxfout_tables/DxfOutStyleTable.h"

#include <algorithm>
#include <iterator>
#include <limits>

#include "tables/TableRecords.h"
#include "text/Numbers.h"
#include "text/SlotText.h"

namespace {

constexpr std::size_t kPiece = 127;
constexpr std::string_view kStyleKeyword = "STYLE";
constexpr std::string_view kMissingFields = ",,,,,,,,,,";

constexpr std::string_view kBadValue = " ***** 無効な値です (> 0.0) *****\n";  // deliberate: 0.0 passes
constexpr std::string_view kTwoToOneForm = " ***** 書式が違います *****     2TO1 = flag\n";
constexpr std::string_view kStyleForm = " ***** 書式が違います *****     STYLE = style_name , spaceing\n";

constexpr double kDefaultF3 = 1.1875;
constexpr double kDefaultF8 = 0.75;
constexpr double kDefaultF9 = 0.95;
constexpr std::string_view kBigFontFile = "bigfont";

// The styles that are known by name, each at the place of its DxfOutStyleIndex.
struct KnownStyle {
    std::string_view name;
    std::int16_t f2, f4, f5;
    bool isBig;
};
constexpr KnownStyle kKnown[] = {
    {"STANDARD", 0, 0, -1, false},
    {"BIGFONT", 0, -1, 0, true},
    {"TSTANDARD", 2, 0, -1, false},
    {"TBIGFONT", 2, -1, 0, true},
};

// What depends on the version of the file to be written.
struct VersionDefaults {
    std::string_view fontFile;
    double f1;
};
VersionDefaults DefaultsOf(std::int32_t outputVersion) {
    return outputVersion > 0 ? VersionDefaults{"monotxt", 1.0} : VersionDefaults{"txt", 0.95};
}

using Style = DxfOutStyleTable::Style;

class StyleReader : public RecordReader<DxfOutStyleTable> {
  public:
    StyleReader(DxfOutStyleTable& table, TableListing& listing, std::string_view fontFile)
        : RecordReader(table, listing), fontFile_(fontFile) {}

    Reading TwoToOne(FieldText& fields);
    Reading StyleValues(FieldText& fields);

  private:
    std::string_view fontFile_;
    std::ptrdiff_t latest_ = kStyleStandard;  // the known style that was named last
};

constexpr Keyword<StyleReader> kKeywords[] = {
    {"2TO1", &StyleReader::TwoToOne, 0, kDxfOutLongestStyle, ""},
    {kStyleKeyword, &StyleReader::StyleValues, 0, kDxfOutLongestStyle, kMissingFields},
};

Reading StyleReader::TwoToOne(FieldText& fields) {
    const bool on = fields.Rest().starts_with("=ON");
    if (!on && !fields.Rest().starts_with("=OFF")) return Refuse(kTwoToOneForm);
    table_.twoToOne = on;
    return Reading::kGoOn;
}

// An empty field is -1 for both: a style without the value is written with an empty field, and comes back without it.
std::int16_t FlagWithin(std::string_view text, std::int32_t low, std::int32_t high) {
    return static_cast<std::int16_t>(text.empty() ? -1 : ReadInteger(text, low, high).value_or(-1));
}

double AboveZero(std::string_view text) {
    const double value = ReadReal(text).value_or(-1);
    return value > 0 ? value : -1;
}

// What a known style has where a record says nothing usable.
void Complete(Style& style, bool isBig) {
    if (!isBig && style.f4 < 0) style.f4 = 0;
    if (isBig && style.f5 < 0) style.f5 = 0;
    if (isBig && SlotText(style.bigFontFile).empty()) StoreText(style.bigFontFile, kBigFontFile);
    if (style.f3 < 0) style.f3 = style.f1;
    if (style.f9 < 0) style.f9 = kDefaultF9;
    if (style.f8 < 0) style.f8 = kDefaultF8;
}

Reading StyleReader::StyleValues(FieldText& fields) {
    const auto parts = fields.Cut("=,,,,,,,,,,");
    if (!parts || !(*parts)[0].empty()) return Refuse(kStyleForm);
    const auto [before, name, f1, f2, f3, f4, f5, f6, f7, f8, f9] = *parts;
    using Flag = std::numeric_limits<std::int16_t>;
    const auto width = ReadReal(f1, 0.0, std::numeric_limits<double>::max());
    if (!width) return Refuse(kBadValue);
    const auto flag = ReadInteger(f2, Flag::min(), Flag::max());
    if (!flag) return Refuse(kStyleForm);

    Style style = {};
    Keep(style.styleName, name);
    style.f1 = *width;
    style.f2 = static_cast<std::int16_t>(*flag);
    style.f3 = AboveZero(f3);
    style.f4 = FlagWithin(f4, 0, 99);
    style.f5 = FlagWithin(f5, 0, 15);
    Keep(style.fontFile, f6.empty() ? fontFile_ : f6);
    Keep(style.bigFontFile, f7);
    style.f8 = AboveZero(f8);
    style.f9 = AboveZero(f9);
    const auto* known = std::find_if(std::begin(kKnown), std::end(kKnown),
                                     [key = name](const KnownStyle& row) { return row.name == key; });
    if (known != std::end(kKnown)) {
        Complete(style, known->isBig);
        latest_ = known - std::begin(kKnown);
    }
    // Deliberately a style of any other name takes the place of the known one before it.
    table_.styles[latest_] = style;
    return Reading::kGoOn;
}

void SetDefaults(DxfOutStyleTable& table, const VersionDefaults& defaults) {
    table = {};
    for (Style& style : table.styles) {
        StoreText(style.fontFile, defaults.fontFile);
        style.f1 = defaults.f1;
        style.f3 = kDefaultF3;
        style.f8 = kDefaultF8;
        style.f9 = kDefaultF9;
    }
    Style* style = table.styles;
    for (const KnownStyle& known : kKnown) {
        StoreText(style->styleName, known.name);
        style->f2 = known.f2;
        style->f4 = known.f4;
        style->f5 = known.f5;
        if (known.isBig) StoreText(style->bigFontFile, kBigFontFile);
        ++style;
    }
}

std::string Record(const Style& style) {
    // Deliberately f4 and f5 are left out, and f2 when it is not 2.
    return Formatted(
        style.f2 == 2 ? "STYLE = %s, %g, 2, %g,,, %s, %s, %g, %g" : "STYLE = %s, %g,, %g,,, %s, %s, %g, %g",
        SlotText(style.styleName), style.f1, style.f3, SlotText(style.fontFile), SlotText(style.bigFontFile), style.f8,
        style.f9);
}

// Values that a style and its big font have in common.
void MakeConsistent(Style& standard, Style& big) {
    standard.f3 = big.f3;
    standard.f9 = big.f9;
    big.f1 = standard.f1;
    big.f8 = standard.f8;
}

}  // namespace

void ParseDxfOutStyleTable(std::string_view file, DxfOutStyleTable& table, TableListing& listing,
                           std::int32_t outputVersion) {
    const VersionDefaults defaults = DefaultsOf(outputVersion);
    SetDefaults(table, defaults);
    StyleReader reader(table, listing, defaults.fontFile);
    ReadRecords(file, kPiece, kKeywords, reader, listing);
    MakeConsistent(table.styles[kStyleStandard], table.styles[kStyleBigFont]);
    MakeConsistent(table.styles[kStyleTStandard], table.styles[kStyleTBigFont]);
}

std::string FormatDxfOutStyleTable(const DxfOutStyleTable& table, const TableHeader& header) {
    TableWriter out(header, kPiece);
    out.Add("/ Convert Text Font to Text Style\n/\n");
    for (const Style& style : table.styles) {
        if (!SlotText(style.styleName).empty()) out.Add("%s\n", Record(style));
    }
    out.Add("/\n2TO1 = %s\n", std::string_view(table.twoToOne ? "ON" : "OFF"));
    return std::move(out).Finish();
}

std::size_t DxfOutStyleBytes(const Style& style) { return Record(style).size() - kStyleKeyword.size(); }

std::string_view DxfOutStyleName(std::int32_t style) { return kKnown[style].name; }
