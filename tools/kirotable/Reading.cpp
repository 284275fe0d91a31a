#include "Reading.h"

#include <algorithm>
#include <set>

#include "Comparison.h"
#include "Text.h"

namespace kirotable {

namespace {

constexpr char kLongLine[] = "長すぎる行です。続きは次の行として読まれます";
constexpr char kBlankDropped[] = "値の途中の空白は取り除かれます";
constexpr char kUnknownKeyword[] = "知らないキーワードです (Invalid Key_Word)。この行は読まれません";

std::string_view Trim(std::string_view text) {
    constexpr std::string_view kBlank = " \t\r\n";
    text.remove_prefix(std::min(text.find_first_not_of(kBlank), text.size()));
    return text.substr(0, text.find_last_not_of(kBlank) + 1);
}

// Whether a record has a blank within a value or a name: the readers take blanks away. None of the bytes looked for is
// the second byte of a double-byte character.
bool HasBlankInside(std::string_view record) {
    constexpr std::string_view kBlank = " \t", kSeparators = "=,";
    record = Trim(record);
    if (record.starts_with("COMMENT-")) return false;  // comments keep theirs
    std::size_t next = record.starts_with("PITCH-") ? 0 : record.find_first_of(" \t=");
    if (next == record.npos) return false;
    next = record.find_first_not_of(kBlank, next);
    while ((next = record.find_first_of(kBlank, next)) != record.npos) {
        const char before = record[next - 1];
        next = record.find_first_not_of(kBlank, next);
        if (kSeparators.find(before) == kSeparators.npos && kSeparators.find(record[next]) == kSeparators.npos)
            return true;
    }
    return false;
}

// Turns the listing of a read into findings.
class FindingSink final : public ListingSink {
  public:
    explicit FindingSink(Reading& reading) : reading_(reading) {}

    void Write(std::string_view) override {}
    void OnLine(std::string_view line, std::size_t number) override {
        Finish();
        if (number == line_ && number != long_) {
            Warn(number, kLongLine);
            long_ = number;
        }
        line_ = number;
        text_ = line;
        good_ = true;
    }
    void OnError(std::string_view message) override {
        good_ = false;
        reading_.errors.push_back({line_, Printable(FromCp932(Trim(message)))});
    }
    void Unknown() {
        if (good_) Warn(line_, kUnknownKeyword);
        good_ = false;
    }
    void Finish() {
        const bool comment = text_.starts_with('/') || text_.starts_with(' ');
        if (good_ && !comment && HasBlankInside(text_)) Warn(line_, kBlankDropped);
    }

  private:
    void Warn(std::size_t line, const char* message) { reading_.warnings.push_back({line, message}); }

    Reading& reading_;
    std::size_t line_ = 0, long_ = 0;
    std::string text_;
    bool good_ = false;
};

class UnknownSink final : public ListingSink {
  public:
    explicit UnknownSink(FindingSink& findings) : findings_(findings) {}
    void Write(std::string_view) override { findings_.Unknown(); }

  private:
    FindingSink& findings_;
};

void WarnOfTwins(const TableView& view, std::vector<Finding>& warnings) {
    for (const Section& section : view.sections) {
        std::set<std::string> seen, told;
        for (const auto& row : section.rows) {
            const std::string key = KeyOf(section, row);
            if (section.derived || seen.insert(key).second || !told.insert(key).second) continue;
            std::string message(section.name);
            message += " に同じ名前が 2 つ以上あります: ";
            warnings.push_back({0, message + Printable(key)});
        }
    }
}

std::vector<std::string> RoundTrip(const TableKind& kind, AnyTable& table, const ReadOptions& options) {
    const TableView before = table.View();  // Write may complete the table
    const std::string text = table.Write({});
    const Reading again = ReadTable(kind, text, options);
    std::vector<std::string> losses;
    for (const Change& change : Compare(before, again.table->View()))
        if (change.sign != '+') losses.push_back(TextOf(change));  // what is added harms nobody
    for (const Finding& error : again.errors) losses.push_back("エラーになる行が書かれます: " + error.message);
    return losses;
}

}  // namespace

Reading ReadTable(const TableKind& kind, std::string_view bytes, const ReadOptions& options) {
    Reading reading;
    reading.table = kind.make();
    FindingSink findings(reading);
    UnknownSink unknown(findings);
    TableListing listing(findings);
    reading.table->Read(bytes, options, listing, unknown);
    findings.Finish();
    WarnOfTwins(reading.table->View(), reading.warnings);
    return reading;
}

std::vector<std::string> LossesOf(const TableKind& kind, AnyTable& table, const ReadOptions& options) {
    std::vector<std::string> losses = RoundTrip(kind, table, options);
    if (losses.empty()) return losses;
    const Reading empty = ReadTable(kind, {}, options);
    for (const std::string& always : RoundTrip(kind, *empty.table, options)) std::erase(losses, always);
    return losses;
}

}  // namespace kirotable
