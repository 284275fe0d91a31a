// The names that drawings use, held against the records of an import table.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Reading.h"
#include "drawing/TableNames.h"

namespace kirotable {

// What of a table assigns names.
struct NameRole {
    std::string_view kind;
    drawing::NameKind names;
    std::string_view section, keyword;  // the same
    std::size_t longest;                // name, in bytes, that a record gives back; of layers: of classes
    std::size_t most;                   // rows
    std::string_view separator;         // which no name may have
    const char* title;
};
const NameRole& RoleOf(const TableKind& kind);  // throws cli::Failure for tables of the export

struct TableRow {
    const std::vector<Value>* values;
    std::size_t line;  // 0: a default that no record of the file states
};

// The rows of a table that assign names, found by name as a drawing has it.
class NameRows {
  public:
    NameRows(const NameRole& role, const Reading& reading);
    NameRows(const NameRows&) = delete;
    NameRows& operator=(const NameRows&) = delete;

    const TableRow* Find(std::string_view name) const;  // null: none; of several the first
    const TableRow* Default() const { return RowAt(names_->Default()); }
    const drawing::TableNames& Names() const { return *names_; }
    const Section& Rows() const { return *section_; }
    std::string_view Keyword() const { return keyword_; }
    std::size_t LongestName() const { return longest_; }
    const std::vector<TableRow>& All() const { return rows_; }

  private:
    const TableRow* RowAt(std::optional<std::size_t> row) const { return row ? &rows_[*row] : nullptr; }

    TableView view_;
    const Section* section_ = nullptr;
    std::string_view keyword_;
    std::size_t longest_;
    std::vector<TableRow> rows_;
    std::optional<drawing::TableNames> names_;
};

struct NameCover {
    struct Name {
        std::string text;  // UTF-8
        std::size_t count;
        const TableRow* row;  // null: none
        bool byDefault;       // the row is that of all other names
    };
    const TableKind* kind;
    const Section* section;
    std::vector<Name> names;              // the most used first
    std::vector<const TableRow*> unused;  // rows of the file that no name finds
    std::size_t notCovered = 0;
};
NameCover CoverOf(const TableKind& kind, const NameRows& rows, const std::vector<drawing::UsedName>& used);

// Throws cli::Failure when a drawing cannot be read.
drawing::UsedNames NamesOf(const std::vector<std::string>& drawings, bool euc);

}  // namespace kirotable
