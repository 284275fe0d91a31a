#include "Reading.h"

#include <algorithm>
#include <unordered_set>

#include "Comparison.h"
#include "tables/TableLines.h"
#include "tools/cli/Text.h"

namespace kirotable {

using cli::FromCp932;
using cli::Printable;

namespace {

constexpr char kLongLine[] = "長すぎる行です。続きは次の行として読まれます";
constexpr char kBlankDropped[] = "値の途中の空白は取り除かれます";
constexpr char kCut[] = "長すぎる値です。終わりは読まれません";
constexpr char kRepeated[] = "同じ名前の行です。";
constexpr char kUnknownKeyword[] = "知らないキーワードです。この行は読まれません";

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

std::string Compact(std::string_view text) {
    std::string out(text);
    std::erase_if(out, [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; });
    return out;
}

// What a record is called by; "" when it is a switch, of which the last counts.
std::string RecordKeyOf(std::string_view line) {
    std::size_t end = std::min(line.find_first_of(" =\t"), line.size());
    for (const std::string_view start : {"PITCH-", "COMMENT-"})
        if (line.starts_with(start)) end = start.size();
    std::string keyword(line.substr(0, end));
    std::replace(keyword.begin(), keyword.end(), '_', '-');
    std::string text = Compact(line.substr(end));
    // The readers take the rest of this keyword for a part of the name.
    if (keyword == "LAYER-CLASS") keyword = "LAYER", text.insert(0, "CLASS");
    const bool named = text.starts_with('=');  // "STYLE = name,"
    if (named) text.erase(0, 1);
    const std::size_t nameEnd = text.find(named ? ',' : '=');
    if (nameEnd == text.npos) return "";
    text.resize(nameEnd);
    if (text.find_first_not_of("0123456789") == text.npos)
        text.erase(0, std::min(text.find_first_not_of('0'), text.size()));
    return RecordKey(keyword, text);
}

// Turns the listing of a read into findings.
class FindingSink final : public ListingSink {
  public:
    explicit FindingSink(Reading& reading) : reading_(reading) {}

    void Write(std::string_view) override {}
    void OnLine(std::string_view line, std::size_t number) override {
        Finish();
        if (number == line_ && number != long_) {
            reading_.warnings.Add(number, kLongLine);
            long_ = number;
        }
        line_ = number;
        text_ = line;
        good_ = true;
        cut_ = false;
    }
    void OnError(std::string_view message) override {
        good_ = false;
        // A reader has few messages, and a bad file millions of them.
        auto found = messages_.find(message);
        if (found == messages_.end()) found = messages_.emplace(message, Printable(FromCp932(Trim(message)))).first;
        reading_.errors.Add(line_, found->second);
    }
    void OnCut() override { cut_ = true; }
    void Unknown() {
        if (good_) reading_.warnings.Add(line_, kUnknownKeyword);
        good_ = false;
    }
    void Finish() {
        if (!good_ || text_.starts_with('/') || text_.starts_with(' ')) return;
        if (HasBlankInside(text_)) reading_.warnings.Add(line_, kBlankDropped);
        // A comment of a line type is taken from the line, not from what is cut.
        if (cut_ && !text_.starts_with("COMMENT-")) reading_.warnings.Add(line_, kCut);
        const std::string key = RecordKeyOf(text_);
        if (key.empty()) return;
        const auto [first, isNew] = reading_.lines.emplace(key, line_);
        if (isNew) return;
        const std::string name = key.substr(key.find(' ') + 1);
        reading_.warnings.Add(line_, kRepeated,
                              std::to_string(first->second) + " 行目にもあります: " + Printable(FromCp932(name)));
    }

  private:
    Reading& reading_;
    std::map<std::string, std::string, std::less<>> messages_;  // in UTF-8
    std::size_t line_ = 0, long_ = 0;
    std::string text_;
    bool good_ = false, cut_ = false;
};

class UnknownSink final : public ListingSink {
  public:
    explicit UnknownSink(FindingSink& findings) : findings_(findings) {}
    void Write(std::string_view) override { findings_.Unknown(); }

  private:
    FindingSink& findings_;
};

std::vector<std::string> RoundTrip(const TableKind& kind, AnyTable& table, const ReadOptions& options) {
    const TableView before = table.View();  // Write may complete the table
    const std::string text = table.Write({});
    const Reading again = ReadTable(kind, text, options);
    std::vector<std::string> losses;
    for (const Change& change : Compare(before, again.table->View()))
        if (change.sign != '+') losses.push_back(TextOf(change));  // what is added harms nobody
    for (const Finding& error : again.errors.First()) losses.push_back("エラーになる行が書かれます: " + error.message);
    return losses;
}

}  // namespace

void Findings::Add(std::size_t line, const std::string& kind, const std::string& detail) {
    if (count_++ < kMost)
        first_.push_back({line, kind + detail});
    else
        ++more_[kind];
}

std::string RecordKey(std::string_view keyword, std::string_view name) {
    return std::string(keyword).append(" ").append(name);
}

Reading ReadTable(const TableKind& kind, std::string_view bytes, const ReadOptions& options) {
    Reading reading;
    reading.table = kind.make();
    FindingSink findings(reading);
    UnknownSink unknown(findings);
    TableListing listing(findings);
    reading.table->Read(bytes, options, listing, unknown);
    findings.Finish();
    return reading;
}

std::vector<std::string> LossesOf(const TableKind& kind, AnyTable& table, const ReadOptions& options) {
    std::vector<std::string> losses = RoundTrip(kind, table, options);
    if (losses.empty()) return losses;
    const Reading empty = ReadTable(kind, {}, options);
    for (const std::string& always : RoundTrip(kind, *empty.table, options)) std::erase(losses, always);
    return losses;
}

std::size_t OwnComments(std::string_view file, std::string_view written) {
    const auto each = [](std::string_view text, auto take) {
        text = text.substr(0, text.find(TableLines::kEndMark));
        while (!text.empty()) {
            const std::string_view line = text.substr(0, text.find('\n'));
            text.remove_prefix(std::min(line.size() + 1, text.size()));
            if (line.starts_with('/') || line.starts_with(' ')) take(Compact(line));
        }
    };
    std::unordered_set<std::string> known = {"/", ""};
    each(written, [&](std::string line) { known.insert(std::move(line)); });
    std::size_t count = 0;
    each(file, [&](const std::string& line) {
        const bool head = line.starts_with("/Filename:") || line.starts_with("/Date:");
        count += !head && !known.contains(line);
    });
    return count;
}

}  // namespace kirotable
