// In which order a grid's rows are seen: the table's, or another one for the eye. The rows themselves stay where they
// are. Places on the screen (indexes of the list view) and rows are told apart here alone. Knows no window.
#pragma once

#include <vector>

class GridOrder {
  public:
    bool IsTables() const { return rows_.empty(); }
    int RowAt(int index) const { return Of(rows_, index); }
    int IndexOf(int row) const { return Of(indexes_, row); }

    void Set(std::vector<int> rows);  // all rows, each once; empty: the table's order
    void Inserted(int at, int count);
    void Deleted(int at, int count);

  private:
    static int Of(const std::vector<int>& map, int at) {
        return at >= 0 && at < static_cast<int>(map.size()) ? map[static_cast<std::size_t>(at)] : at;
    }

    std::vector<int> rows_;  // by index; empty: the table's order
    std::vector<int> indexes_;
};
