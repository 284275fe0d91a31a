#include "dxfout_tables/DxfOutLineTable.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <iterator>
#include <limits>
#include <utility>

#include "tables/TableRecords.h"
#include "text/Numbers.h"
#include "text/SlotText.h"

namespace {

constexpr std::size_t kPiece = 127;
constexpr std::size_t kBytes = 72;  // of values behind a keyword
constexpr std::string_view kMissingFields = ",,,,,,,,,,";
constexpr double kLargestWidth = 1000.0;
constexpr std::int32_t kLargestColor = 256;

constexpr std::string_view kBadFont = " ***** 無効な線種番号です (1-%d) *****\n";
constexpr std::string_view kBadWeight = " ***** 無効な線幅番号です (0-%d) *****\n";  // deliberate: LINE-FONT2 refuses 0
constexpr std::string_view kBadWidth = " ***** 無効な線幅です (0.0-1000.0) *****\n";
constexpr std::string_view kBadColor = " ***** 無効な色番号です (0-256) *****\n";  // deliberate: -1 passes
constexpr std::string_view kNoComment = " ***** 注釈がありません *****\n";
constexpr std::string_view kWidthForm = " ***** 書式が違います *****    LINE-WIDTH  weight# = width\n";
constexpr std::string_view kForm =
    " ***** 書式が違います *****    LINE-FONT line_font , line_weight = line_code , width\n";
constexpr std::string_view kUnknown = " %s\n ***** Invalid Key_Word *****\n";

using Pattern = DxfOutLineTable::Pattern;

class LineReader : public RecordReader<DxfOutLineTable> {
  public:
    LineReader(DxfOutLineTable& table, TableListing& listing, ListingSink& unknown)
        : RecordReader(table, listing), unknown_(unknown) {}

    Reading WidthType(FieldText& fields);
    Reading LineWidth(FieldText& fields);
    Reading LineFont(FieldText& fields);
    Reading LineFont1(FieldText& fields);
    Reading LineFont2(FieldText& fields);
    Reading Pitch(FieldText& fields);
    Reading Comment(FieldText& fields);
    Reading Unknown(FieldText& fields);

  private:
    Reading SetType(std::int32_t font, std::string_view type);
    void SetWeight(std::int32_t weight, double width, std::int32_t color);
    Pattern* FindPattern(std::string_view name, std::string_view newComment);

    ListingSink& unknown_;
    std::string text_;  // kept, so that lines need no memory of their own
    bool defaultPatterns_ = true;
};

constexpr Keyword<LineReader> kKeywords[] = {
    {"WIDTH-TYPE ", &LineReader::WidthType, 0, kBytes, ""},
    {"LINE-WIDTH ", &LineReader::LineWidth, 0, kBytes, ""},
    {"LINE-FONT ", &LineReader::LineFont, 0, kBytes, kMissingFields},
    {"LINE-FONT1 ", &LineReader::LineFont1, 0, kBytes, kMissingFields},
    {"LINE-FONT2 ", &LineReader::LineFont2, 0, kBytes, kMissingFields},
    {"PITCH-", &LineReader::Pitch, 0, kBytes, "    "},
    {"COMMENT-", &LineReader::Comment, 0, kBytes, ""},
    {"", &LineReader::Unknown, 0, kPiece, ""},
};

void AddPattern(DxfOutLineTable& table, std::string_view name, std::string_view comment) {
    Pattern& pattern = table.patterns[table.patternCount++];
    StoreText(pattern.patternName, name);
    StoreText(pattern.patternComment, comment);
}

Reading LineReader::WidthType(FieldText& fields) {
    const auto type = ReadInteger(fields.Rest());
    if (!type) return Refuse(kBadData);
    table_.widthType = *type != 0;
    return Reading::kGoOn;
}

// Deliberately any width is taken, also a negative one; only hundredths beyond an integer are no number here.
Reading LineReader::LineWidth(FieldText& fields) {
    constexpr double kLargest = std::numeric_limits<std::int32_t>::max() / 100;
    const auto parts = fields.Cut("=");
    if (!parts) return Refuse(kWidthForm);
    const auto weight = ReadInteger((*parts)[0], 0, kDxfOutWeights);
    const auto width = ReadReal(fields.Rest(), -kLargest, kLargest);
    if (!weight || !width) return Refuse(kWidthForm);
    table_.lineWidth[*weight] = static_cast<std::int32_t>(*width * 100 + 0.5);
    return Reading::kGoOn;
}

Reading LineReader::LineFont(FieldText& fields) {
    const auto parts = fields.Cut(",=,,,");
    if (!parts) return Refuse(kForm);
    const auto font = ReadInteger((*parts)[0], 1, kDxfOutFonts);
    if (!font) return Refuse(kBadFont, kDxfOutFonts);
    const auto weight = ReadInteger((*parts)[1], 0, kDxfOutWeights);
    if (!weight) return Refuse(kBadWeight, kDxfOutWeights);
    const auto width = ReadReal((*parts)[3], 0.0, kLargestWidth);
    if (!width) return Refuse(kBadWidth);
    const auto color = ReadInteger((*parts)[4], -1, kLargestColor);
    if (!color) return Refuse(kBadColor);
    for (std::int32_t i = 1; i <= kDxfOutWeights; ++i)
        if (*weight == 0 || *weight == i) SetWeight(i, *width, *color);
    return SetType(*font, (*parts)[2]);
}

Reading LineReader::LineFont1(FieldText& fields) {
    const auto parts = fields.Cut("=,");
    if (!parts) return Refuse(kForm);
    const auto font = ReadInteger((*parts)[0], 1, kDxfOutFonts);
    if (!font) return Refuse(kBadFont, kDxfOutFonts);
    return SetType(*font, (*parts)[1]);
}

Reading LineReader::LineFont2(FieldText& fields) {
    const auto parts = fields.Cut("=,,");
    if (!parts) return Refuse(kForm);
    const auto weight = ReadInteger((*parts)[0], 1, kDxfOutWeights);
    if (!weight) return Refuse(kBadWeight, kDxfOutWeights);
    const auto width = ReadReal((*parts)[1], 0.0, kLargestWidth);
    if (!width) return Refuse(kBadWidth);
    const auto color = ReadInteger((*parts)[2], -1, kLargestColor);
    if (!color) return Refuse(kBadColor);
    SetWeight(*weight, *width, *color);
    return Reading::kGoOn;
}

Reading LineReader::Pitch(FieldText& fields) {
    const auto parts = fields.Cut("=");
    if (!parts) return Refuse(kForm);
    Pattern read = {};
    std::string_view rest = fields.Rest();  // a blank of the suffix ends the last value
    bool more = !rest.starts_with(' ');     // a pattern without pitches
    while (more && read.pitchCount < kDxfOutPitches) {
        const std::size_t end = rest.find_first_of(", ");
        const auto value = ReadReal(rest.substr(0, end));
        if (!value) return Refuse(kForm);
        read.pitch[read.pitchCount++] = std::fabs(*value);
        more = rest[end] == ',';
        rest.remove_prefix(end + 1);
    }
    Pattern* pattern = FindPattern((*parts)[0], "");
    if (!pattern) return Refuse(kBadData);
    // Deliberately the comment goes: it belongs behind the pitches.
    StoreText(pattern->patternComment, "");
    pattern->pitchCount = read.pitchCount;
    std::copy(std::begin(read.pitch), std::end(read.pitch), pattern->pitch);
    return more ? Refuse(kBadData) : Reading::kGoOn;  // more pitches than a pattern holds
}

Reading LineReader::Comment(FieldText& fields) {
    const auto parts = fields.Cut("=");
    if (!parts) return Refuse(kForm);
    // The comment keeps its blanks: it comes from the line itself, the whole of it.
    char buffer[TableLines::kLargestPiece];
    const std::string_view part = fields.Part();
    char* const end =
        std::copy_if(part.begin() + part.find('=') + 1, part.end(), buffer, [](char c) { return c != '\r'; });
    std::string_view comment(buffer, static_cast<std::size_t>(end - buffer));
    comment.remove_prefix(std::min(comment.find_first_not_of(' '), comment.size()));
    // Deliberately without looking: where the file's last line has no line end, the comment loses its last character.
    if (!comment.empty()) comment = CutAtCharacter(comment, comment.size() - 1);
    comment = comment.substr(0, comment.find_last_not_of(' ') + 1);
    if (comment.empty()) return Refuse(kNoComment);
    Pattern* pattern = FindPattern((*parts)[0], "");
    if (!pattern) return Refuse(kBadData);
    StoreText(pattern->patternComment, comment);
    return Reading::kGoOn;
}

// Deliberately no error.
Reading LineReader::Unknown(FieldText& fields) {
    text_.clear();
    AppendFormat(text_, kUnknown, {fields.Part()});
    unknown_.Write(text_);
    return Reading::kGoOn;
}

// The font keeps its type even if there is no room for a new pattern.
Reading LineReader::SetType(std::int32_t font, std::string_view type) {
    StoreText(table_.fontLineType[font - 1], type);
    return FindPattern(type, type) ? Reading::kGoOn : Refuse(kBadData);
}

// Deliberately the first values stay, also those that another record gave.
void LineReader::SetWeight(std::int32_t weight, double width, std::int32_t color) {
    if (table_.weightColor[weight - 1] == 0) table_.weightColor[weight - 1] = color;
    if (table_.weightWidth[weight - 1] == 0) table_.weightWidth[weight - 1] = width;
}

// The pattern of that name, a new one if need be; null when the table is full. The first valid record that is about a
// pattern takes the place of the default patterns; a faulty one is skipped and leaves them.
Pattern* LineReader::FindPattern(std::string_view name, std::string_view newComment) {
    if (std::exchange(defaultPatterns_, false)) {
        std::fill_n(table_.patterns, table_.patternCount, Pattern());
        table_.patternCount = 0;
    }
    Pattern* const end = table_.patterns + table_.patternCount;
    Pattern* const found = std::find_if(
        table_.patterns, end, [name](const Pattern& pattern) { return SlotText(pattern.patternName) == name; });
    if (found != end) return found;
    if (table_.patternCount == kDxfOutPatterns) return nullptr;
    AddPattern(table_, name, newComment);
    return end;
}

void SetDefaults(DxfOutLineTable& table) {
    struct DefaultPattern {
        std::string_view name;
        std::string_view comment;
        std::int32_t pitchCount;
        double pitch[6];
    };
    // They are the types of the first fonts as well; the other fonts have the first of them.
    constexpr DefaultPattern kDefaults[] = {
        {"CONTINUOUS", "solid line", 0, {}},
        {"DASHED", "-- -- -- -- -- -- -- -- -- -- ", 2, {2.0, 1.0}},
        {"CENTER", "--- - --- - --- - --- - --- - ", 4, {3.0, 1.0, 1.0, 1.0}},
        {"PHANTOM", "----- - - ----- - - ----- - - ", 6, {3.0, 1.0, 1.0, 1.0, 1.0, 1.0}},
    };
    std::memset(&table, 0, sizeof table);
    table.fontCount = kDxfOutFileFonts;
    for (auto& type : table.fontLineType) StoreText(type, kDefaults[0].name);
    for (const DefaultPattern& pattern : kDefaults) {
        StoreText(table.fontLineType[table.patternCount], pattern.name);
        AddPattern(table, pattern.name, pattern.comment);
        Pattern& added = table.patterns[table.patternCount - 1];
        added.pitchCount = pattern.pitchCount;
        std::copy(std::begin(pattern.pitch), std::end(pattern.pitch), added.pitch);
    }
}

}  // namespace

void FindDxfOutFontPatterns(DxfOutLineTable& table) {
    std::fill(std::begin(table.fontPattern), std::end(table.fontPattern), 0);
    for (std::int32_t font = 0; font < table.fontCount; ++font)
        for (std::int32_t i = 0; i < table.patternCount; ++i)
            if (SlotText(table.patterns[i].patternName) == SlotText(table.fontLineType[font]))
                table.fontPattern[font] = i + 1;
}

void ParseDxfOutLineTable(std::string_view file, DxfOutLineTable& table, TableListing& listing, ListingSink& unknown) {
    SetDefaults(table);
    LineReader reader(table, listing, unknown);
    ReadRecords(file, kPiece, kKeywords, reader, listing);
    FindDxfOutFontPatterns(table);
}

std::string DxfOutPitchText(const Pattern& pattern) {
    std::string text;
    for (std::int32_t i = 0; i < std::min(pattern.pitchCount, kDxfOutPitches); ++i)
        AppendFormat(text, i ? ", %g" : " %g", {i % 2 ? -pattern.pitch[i] : pattern.pitch[i]});
    return text;
}

std::string FormatDxfOutLineTable(const DxfOutLineTable& table, const TableHeader& header) {
    TableWriter out(header, kPiece);
    out.Add("/ Line Width Type\n/\nWIDTH-TYPE  %d\n/\n", table.widthType);
    out.Add("/ Convert Line Weight to Line Width\n/\n");
    for (std::int32_t i = 0; i <= kDxfOutWeights; ++i)
        out.Add("LINE-WIDTH  %2d = %4.2f\n", i, table.lineWidth[i] * 0.01);
    out.Add("/\n/ Convert Line to Line Type\n/\n");
    for (std::int32_t i = 0; i < kDxfOutFonts; ++i)
        out.Add("LINE-FONT1  %2d = %s\n", i + 1, SlotText(table.fontLineType[i]));
    for (std::int32_t i = 0; i < kDxfOutWeights; ++i)
        out.Add("LINE-FONT2  %2d = %g, %d\n", i + 1, table.weightWidth[i], table.weightColor[i]);
    out.Add("/\n");
    const Pattern* const end = table.patterns + std::clamp(table.patternCount, 0, kDxfOutPatterns);
    for (const Pattern* pattern = table.patterns; pattern < end; ++pattern) {
        const std::string pitches = DxfOutPitchText(*pattern);
        if (!pitches.empty()) out.Add("PITCH-%s = %s\n", SlotText(pattern->patternName), std::string_view(pitches));
    }
    out.Add("/\n");
    for (const Pattern* pattern = table.patterns; pattern < end; ++pattern)
        out.Add("COMMENT-%s = %s\n", SlotText(pattern->patternName), SlotText(pattern->patternComment));
    return std::move(out).Finish();
}
