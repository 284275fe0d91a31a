#include "KrGridOrder.h"

#include <algorithm>

void GridOrder::Set(std::vector<int> rows) {
    indexes_.assign(rows.size(), 0);
    for (std::size_t index = 0; index < rows.size(); ++index)
        indexes_[static_cast<std::size_t>(rows[index])] = static_cast<int>(index);
    rows_ = std::move(rows);
}

// New rows are seen above the row that they were put above.
void GridOrder::Inserted(int at, int count) {
    if (IsTables()) return;
    std::vector<int> rows = rows_;
    const auto above =
        rows.begin() + (at < static_cast<int>(rows.size()) ? IndexOf(at) : static_cast<int>(rows.size()));
    for (int& row : rows) row += row >= at ? count : 0;
    std::vector<int> added(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) added[static_cast<std::size_t>(i)] = at + i;
    rows.insert(above, added.begin(), added.end());
    Set(std::move(rows));
}

void GridOrder::Deleted(int at, int count) {
    if (IsTables()) return;
    std::vector<int> rows = rows_;
    std::erase_if(rows, [&](int row) { return row >= at && row < at + count; });
    for (int& row : rows) row -= row >= at ? count : 0;
    Set(std::move(rows));
}
