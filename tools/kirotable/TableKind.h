// The eight kinds of conversion tables, each read and written by the readers and writers of the program.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "tables/TableListing.h"
#include "tables/TableWriter.h"

namespace kirotable {

struct Value {
    enum class Type { kInteger, kReal, kText, kList };

    Value(std::int32_t number) : type(Type::kInteger), integer(number) {}
    Value(double number) : type(Type::kReal), real(number) {}
    Value(std::string words) : type(Type::kText), text(std::move(words)) {}
    explicit Value(std::vector<Value> values) : type(Type::kList), list(std::move(values)) {}
    bool operator==(const Value&) const = default;

    Type type;
    std::int32_t integer = 0;
    double real = 0;
    std::string text;
    std::vector<Value> list;
};

struct Section {
    std::string_view name;
    std::vector<std::string_view> columns;
    std::size_t keys = 1;  // so many columns at the start tell one row from another
    std::vector<std::vector<Value>> rows = {};
    bool derived = false;  // follows from the other sections
};

// What a table holds, under the names of its record's fields.
struct TableView {
    std::vector<std::pair<std::string_view, Value>> fields;
    std::vector<std::pair<std::string_view, Value>> counts;  // follow from the sections
    std::vector<Section> sections;
};

struct ReadOptions {
    bool gx3 = false;  // the defaults of the export styles are those of the oldest output version
};

class AnyTable {
  public:
    virtual ~AnyTable() = default;
    // unknown: what the program writes to its standard output about a line.
    virtual void Read(std::string_view bytes, const ReadOptions& options, TableListing& listing,
                      ListingSink& unknown) = 0;
    virtual std::string Write(const TableHeader& header) = 0;  // may complete the table
    virtual TableView View() const = 0;
};

struct TableKind {
    std::string_view name;
    std::string_view file;  // its file's name, or the start of it
    std::string_view title;
    std::unique_ptr<AnyTable> (*make)();
};

extern const TableKind kTableKinds[8];

const TableKind* FindKind(std::string_view name);                // null: there is none
const TableKind* KindOfFile(const std::filesystem::path& path);  // null: the name does not tell

// What a kind is made of; used by the files that define the kinds. Parse: of the table, or with the options and the
// sink for what is unknown as well.
template <class Table, auto Parse, auto Format, auto MakeView>
class TableOf final : public AnyTable {
  public:
    static std::unique_ptr<AnyTable> Make() { return std::make_unique<TableOf>(); }

    void Read(std::string_view bytes, const ReadOptions& options, TableListing& listing,
              ListingSink& unknown) override {
        if constexpr (std::is_invocable_v<decltype(Parse), std::string_view, Table&, TableListing&>)
            Parse(bytes, *table_, listing);
        else
            Parse(bytes, options, *table_, listing, unknown);
    }
    std::string Write(const TableHeader& header) override { return Format(*table_, header); }
    TableView View() const override { return MakeView(*table_); }

  private:
    std::unique_ptr<Table> table_ = std::make_unique<Table>();
};

std::unique_ptr<AnyTable> MakeDxfInLayer();
std::unique_ptr<AnyTable> MakeDxfInLine();
std::unique_ptr<AnyTable> MakeDxfInStyle();
std::unique_ptr<AnyTable> MakeDxfInArrow();
std::unique_ptr<AnyTable> MakeDxfOutLayer();
std::unique_ptr<AnyTable> MakeDxfOutLine();
std::unique_ptr<AnyTable> MakeDxfOutStyle();
std::unique_ptr<AnyTable> MakeDxfOutArrow();

}  // namespace kirotable
