// The rows of a grid: values of the dialog's own, of which the grid shows the texts.
#pragma once

#include <array>
#include <cstddef>
#include <iterator>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace kiro::ui {

// A row as texts, one a column, in Shift-JIS: what was typed stays as it was typed until it is checked and stored. The
// rows of a dialog derive from it, hold what the grid does not show, and know how to check and store themselves.
template <int columns>
struct GridRow {
    std::array<std::string, columns> cells;

    std::string& operator[](int column) { return cells[static_cast<std::size_t>(column)]; }
    const std::string& operator[](int column) const { return cells[static_cast<std::size_t>(column)]; }
};

// Rows that were taken out of a grid, with all that they hold.
class KeptRows {
  public:
    virtual ~KeptRows() = default;
};

// What a grid needs to know of the rows that it shows.
class GridModel {
  public:
    virtual int Count() const = 0;
    virtual std::string& Text(int row, int column) = 0;
    virtual void Insert(int at, int count) = 0;  // new rows, filled as new ones are
    virtual std::unique_ptr<KeptRows> Take(int at, int count) = 0;
    virtual void Put(int at, std::unique_ptr<KeptRows> kept) = 0;  // which these rows gave

  protected:
    ~GridModel() = default;
};

// Row: derived from GridRow. Where rows can be added it has a static New().
template <class Row>
class GridRows final : public GridModel {
  public:
    int Count() const override { return static_cast<int>(rows_.size()); }
    std::string& Text(int row, int column) override { return (*this)[row][column]; }
    void Insert(int at, int count) override {
        if constexpr (requires { Row::New(); }) {
            std::vector<Row> added;
            for (int i = 0; i < count; ++i) added.push_back(Row::New());
            rows_.insert(rows_.begin() + at, std::move_iterator(added.begin()), std::move_iterator(added.end()));
        }
    }
    std::unique_ptr<KeptRows> Take(int at, int count) override {
        auto kept = std::make_unique<Kept>();
        const auto first = rows_.begin() + at;
        kept->rows.assign(std::move_iterator(first), std::move_iterator(first + count));
        rows_.erase(first, first + count);
        return kept;
    }
    void Put(int at, std::unique_ptr<KeptRows> kept) override {
        std::vector<Row>& rows = static_cast<Kept&>(*kept).rows;
        rows_.insert(rows_.begin() + at, std::move_iterator(rows.begin()), std::move_iterator(rows.end()));
    }

    Row& operator[](int row) { return rows_[static_cast<std::size_t>(row)]; }
    const Row& operator[](int row) const { return rows_[static_cast<std::size_t>(row)]; }
    void Add(Row row) { rows_.push_back(std::move(row)); }
    void Clear() { rows_.clear(); }
    auto begin() const { return rows_.begin(); }
    auto end() const { return rows_.end(); }

  private:
    struct Kept final : KeptRows {
        std::vector<Row> rows;
    };

    std::vector<Row> rows_;
};

}  // namespace kiro::ui
