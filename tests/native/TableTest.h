// What the tests of conversion tables have in common. A test has, at global scope, Parse(file, table, listing) and
// Format(table) for each of its tables.
#pragma once

#include <gtest/gtest.h>

#include <concepts>
#include <cstring>
#include <memory>
#include <random>
#include <sstream>

#include "text/SlotText.h"
#include "tables/TableListing.h"
#include "tables/TableWriter.h"

inline constexpr std::string_view kForm = " ***** 書式が違います *****  ";
inline constexpr std::string_view kNothing = " ***** 無効なデータです *****\n";
inline constexpr TableHeader kHeader = {"C:\\表\\T", "2024/01/02 03:04:05"};
inline constexpr char kHeaderText[] = "/ File name : C:\\表\\T\n/      Date : 2024/01/02 03:04:05\n/\n";

struct ListingText final : ListingSink {
    std::string text;
    void Write(std::string_view more) override { text += more; }
};

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
    Parse(file, *outcome.table, listing);
    outcome.listed = sink.text;
    outcome.errors = listing.HasErrors();
    return outcome;
}

// A path that is longer than a line: what is left of it is no line of its own, and no half of a character.
template <class Table, class Format>
void ExpectPathFits(Format format, std::size_t piece) {
    for (const char* folder : {"", "x"}) {
        std::string path = folder;
        while (path.size() < 300) path += "表";
        const std::string text = format(*Read<Table>("").table, {path, kHeader.date});
        EXPECT_FALSE(Read<Table>(text).errors) << text.substr(0, 300);
        const std::size_t written = text.find('\n') - 14;
        EXPECT_TRUE(written == piece - 15 || written == piece - 16) << written;
        EXPECT_EQ(text.substr(14, written), path.substr(0, written));
        EXPECT_EQ((piece - 15 - path.find("表")) % 2, piece - 15 - written);
    }
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
inline std::string Form(std::string_view text) { return std::string(kForm) + std::string(text) + "\n"; }

template <class... Values>
std::string Join(const Values&... values) {
    std::ostringstream text;
    ((text << values << ' '), ...);
    return text.str();
}

// A table that is written and read again is the same.
class RandomTable : public testing::Test {
  protected:
    int Any(int low, int high) { return low + static_cast<int>(random_() % static_cast<unsigned>(high - low + 1)); }
    double Real(int low, int high) { return Any(low * 100, high * 100) / 100.0; }
    std::string Name(int kinds = 12) {
        constexpr std::string_view kCharacters[] = {"A",  "z",  "0",  "-",     "/",    "|",
                                                    "\\", "表", "ソ", "\x83|", "アイ", ","};
        std::string name = "N";
        for (int i = Any(0, 12); i > 0; --i) name += kCharacters[Any(0, kinds - 1)];
        return name;
    }
    template <class Table>
    void CheckRoundTrip(Table& table) {
        const std::string text = Format(table);
        const Outcome<Table> again = Read<Table>(text);
        EXPECT_FALSE(again.errors) << again.listed;
        EXPECT_TRUE(Same(table, *again.table));
        EXPECT_EQ(Format(*again.table), text);
    }
    std::minstd_rand random_{20};
};
