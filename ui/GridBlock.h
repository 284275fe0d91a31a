// A block of cells as other programs put it on the clipboard: lines of texts with tabs between them; and numbers that
// go on from two.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kiro::ui {

using GridBlock = std::vector<std::vector<std::wstring>>;  // lines; not all of them may be as long

// A text in quotes may have line breaks, tabs and doubled quotes, as spreadsheets have them.
GridBlock ReadGridBlock(std::wstring_view text);

// The series that two texts begin: numbers, or names that end with one. None: they do not.
class GridSeries {
  public:
    static std::optional<GridSeries> From(std::string_view first, std::string_view second);
    std::string At(int index) const;  // 0 is the first

  private:
    std::string prefix_;
    long long start_ = 0;
    long long step_ = 0;
    std::size_t digits_ = 0;  // at least so many before the point: zeros stand before them
    std::size_t decimals_ = 0;
};

}  // namespace kiro::ui
