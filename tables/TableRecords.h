// Reading the records of a table file: one a line, each with a keyword at its start.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string_view>

#include "tables/FieldText.h"
#include "tables/TableLines.h"
#include "tables/TableListing.h"
#include "text/SlotText.h"

inline constexpr std::string_view kBadData = " ***** 無効なデータです *****\n";

enum class Reading { kGoOn, kEnd };

// What the readers have in common: a table to fill and a listing to complain to.
template <class Table>
class RecordReader {
  public:
    RecordReader(Table& table, TableListing& listing) : table_(table), listing_(listing) {}

  protected:
    template <class... Values>
    Reading Refuse(std::string_view message, const Values&... values) {
        listing_.Error(message, values...);
        return Reading::kGoOn;
    }
    // The record has no room: nothing more is read.
    Reading Full(std::string_view message, std::int32_t limit) {
        listing_.Error(message, limit);
        return Reading::kEnd;
    }

    // Texts that are too long for their slot are cut.
    template <std::size_t N>
    void Keep(char (&slot)[N], std::string_view text) {
        StoreText(slot, text);
        if (SlotText(slot).size() < text.size()) listing_.Cut();
    }

    Table& table_;

  private:
    TableListing& listing_;
};

// A row of a reader's keyword table. The first row that a line begins with counts; an empty word, in the last row,
// takes every line that is left.
template <class Reader>
struct Keyword {
    std::string_view word;
    Reading (Reader::*read)(FieldText& fields);
    std::size_t column = 0;                         // where the values start, counted from 1; 0: behind the word
    std::size_t count = TableLines::kLargestPiece;  // how many bytes from there hold them
    std::string_view suffix = ",,,,,";              // what is put behind them
};

inline bool IsComment(std::string_view line) { return line.starts_with('/') || line.starts_with(' '); }

// Calls the reader for every record until one ends the reading. Lines without a keyword are errors.
template <class Reader, std::size_t N>
void ReadRecords(std::string_view file, std::size_t piece, const Keyword<Reader> (&keywords)[N], Reader& reader,
                 TableListing& listing) {
    TableLines lines(file, piece);
    while (lines.Next()) {
        listing.Line(lines.Text(), lines.Number());
        // Before tabs become blanks: a line that begins with a tab is no comment.
        if (IsComment(lines.Text())) continue;
        lines.TabsToBlanks();
        const std::string_view line = lines.Text();
        const auto* keyword = std::find_if(std::begin(keywords), std::end(keywords),
                                           [line](const Keyword<Reader>& row) { return line.starts_with(row.word); });
        if (keyword == std::end(keywords)) {
            listing.Error(kBadData);
            continue;
        }
        const std::size_t start = keyword->column ? keyword->column - 1 : keyword->word.size();
        FieldText fields(line.substr(std::min(start, line.size())), keyword->count, keyword->suffix);
        if (fields.WasCut()) listing.Cut();
        if ((reader.*keyword->read)(fields) == Reading::kEnd) return;
    }
}
