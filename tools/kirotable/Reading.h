// A table as it was read, with what the reader said to its lines.
#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "TableKind.h"

namespace kirotable {

struct Finding {
    std::size_t line;  // 0: of the table as a whole
    std::string message;
};

// The first thousand of the findings, and of the others how many there are of a kind.
class Findings {
  public:
    void Add(std::size_t line, const std::string& kind, const std::string& detail = {});  // message: both
    std::size_t Count() const { return count_; }
    const std::vector<Finding>& First() const { return first_; }
    const std::map<std::string, std::size_t>& More() const { return more_; }  // by their kinds

    static constexpr std::size_t kMost = 1000;

  private:
    std::size_t count_ = 0;
    std::vector<Finding> first_;
    std::map<std::string, std::size_t> more_;
};

struct Reading {
    std::unique_ptr<AnyTable> table;
    Findings errors;                                     // as the reader has them
    Findings warnings;                                   // what a line says and the table has not
    std::unordered_map<std::string, std::size_t> lines;  // where a good record is first: by its RecordKey
};

// A record's keyword, a blank, and what tells it from others with that keyword: a name in code page 932 or numbers.
std::string RecordKey(std::string_view keyword, std::string_view name);

Reading ReadTable(const TableKind& kind, std::string_view bytes, const ReadOptions& options);

// What is lost or changed when the table is written and read again, one text each; what a table without records would
// lose as well is not counted. Completes the table as the writer does.
std::vector<std::string> LossesOf(const TableKind& kind, AnyTable& table, const ReadOptions& options);

// Comments of the user's own: those that the program would not write with this table.
std::size_t OwnComments(std::string_view file, std::string_view written);

}  // namespace kirotable
