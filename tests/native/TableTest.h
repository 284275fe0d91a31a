// What the tests of conversion tables have in common: records with the errors that they are to have, and texts to
// compare.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <concepts>
#include <cstring>
#include <memory>
#include <sstream>

#include "tests/native/TableKinds.h"
#include "text/SlotText.h"

using namespace std::string_literals;

inline constexpr char kHeaderText[] = "/ File name : C:\\表\\T\n/      Date : 2024/01/02 03:04:05\n/\n";

template <class Table>
struct Outcome {
    std::unique_ptr<Table> table = std::make_unique<Table>();
    std::string listed = {};
    bool errors = false;
};

template <class Table>
bool Same(const Table& left, const Table& right) {
    if constexpr (std::equality_comparable<Table>)
        return left == right;
    else
        return std::memcmp(&left, &right, sizeof left) == 0;
}

// Reads a file over a table full of rubbish.
template <class Table>
Outcome<Table> Read(std::string_view file) {
    Outcome<Table> outcome;
    std::memset(static_cast<void*>(outcome.table.get()), 0x55, sizeof(Table));
    ListingText sink;
    TableListing listing(sink);
    unknown.text.clear();
    Parse(file, *outcome.table, listing);
    outcome.listed = sink.text;
    outcome.errors = listing.HasErrors();
    return outcome;
}

// Records with ";" between them, and the error that each is to have under it in the listing.
struct Lines {
    std::string texts;
    std::string error = {};
};

// Between lines CR LF means the same as LF. What is behind a capacity error is neither listed nor read.
template <class Table>
std::unique_ptr<Table> ReadLines(const std::vector<Lines>& groups) {
    std::string file, twin, listed;
    bool errors = false, ended = false;
    for (const Lines& group : groups) {
        std::istringstream texts(group.texts + ";");
        for (std::string text; std::getline(texts, text, ';');) {
            file += text + "\n";
            twin += text + "\r\n";
            if (ended) continue;
            listed += "    " + text + "\n" + group.error;
            errors |= !group.error.empty();
            ended = group.error.find("Max.") != std::string::npos;
        }
    }
    Outcome<Table> outcome = Read<Table>(file);
    EXPECT_EQ(outcome.listed, listed);
    EXPECT_EQ(outcome.errors, errors);
    const Outcome<Table> same = Read<Table>(twin);
    EXPECT_EQ(same.listed, listed);
    EXPECT_TRUE(Same(*same.table, *outcome.table));
    return std::move(outcome.table);
}

// The table of a file in which all is well.
template <class Table>
std::unique_ptr<Table> Good(std::string records) {
    if (records.ends_with(';')) records.pop_back();
    return ReadLines<Table>({{records}});
}

// So many good records, one that has no room and one that is not reached.
template <class Table>
std::unique_ptr<Table> Fill(int room, const std::string& record, const std::string& error) {
    std::vector<Lines> lines(static_cast<std::size_t>(room), {record});
    lines.push_back({record, error});
    lines.push_back({record});
    return ReadLines<Table>(lines);
}

template <class Table>
void ExpectText(Table& table, std::string_view start, std::string_view middle, std::string_view end) {
    const std::string text = Format(table), head = kHeaderText + std::string(start);
    EXPECT_EQ(text.substr(0, head.size()), head);
    EXPECT_NE(text.find(middle), text.npos) << text;
    const std::string tail = std::string(end) + "/\n/ Eof\n";
    EXPECT_EQ(text.substr(text.size() - std::min(text.size(), tail.size())), tail);
}

inline std::string Error(std::string_view text) { return " ***** " + std::string(text) + " *****\n"; }
inline std::string Form(std::string_view text) { return " ***** 書式が違います *****  " + std::string(text) + "\n"; }
inline const std::string kBad = Error("無効なデータです");

template <class... Values>
std::string Join(const Values&... values) {
    std::ostringstream text;
    ((text << values << ' '), ...);
    return text.str();
}

// So many records: "#" is their number, "%" one of the numbers from 1 to largest.
inline std::string Many(int from, int to, const std::string& record, int largest = 256) {
    std::string records;
    for (int i = from; i <= to; ++i) {
        for (const char c : record)
            records += c == '#'   ? std::to_string(i)
                       : c == '%' ? std::to_string(i * 7 % largest + 1)
                                  : std::string(1, c);
        records += ';';
    }
    return records;
}

// Whether a table is the same when it is written and read again.
template <class Table>
bool ComesBack(Table& table) {
    const std::string text = Format(table);
    const Outcome<Table> again = Read<Table>(text);
    return !again.errors && Same(table, *again.table) && Format(*again.table) == text;
}
