#include "ui/RowCheck.h"

#include <algorithm>
#include <utility>

#include "text/TextFormat.h"
#include "ui/Grid.h"

namespace kiro::ui {

const std::string& RowCheck::Text(int column) const { return grid_.TextAt(row_, column); }

bool RowCheck::Pass(int column) const { return grid_.Pass(row_, column); }

bool RowCheck::Fail(int column, std::string message) const {
    Note(column, std::move(message));
    grid_.ended_ = true;
    return false;
}

void RowCheck::Note(int column, std::string message) const {
    grid_.faults_.push_back({row_, column, std::move(message)});
}

bool RowCheck::Given(int column, const char* missing) const {
    return Text(column).empty() ? Fail(column, Formatted(missing, row_ + 1)) : Pass(column);
}

bool RowCheck::Unlike(int column, const GridRepeat& repeat) const {
    // Of texts that are being given it is the new one that is bad.
    const int other = grid_.filling_ ? grid_.Repeated(row_, column) : grid_.SameTextBelow(row_, column);
    if (other < 0) return Pass(column);
    const int row = std::min(row_, other);
    const int same = std::max(row_, other);
    return Fail(column, repeat.bothRows ? Formatted(repeat.format, row + 1, same + 1, Text(column))
                                        : Formatted(repeat.format, row + 1, Text(column)));
}

bool RowCheck::Storable(int column, const GridStorable& storable) const {
    const std::string& name = Text(column);
    if (name.find_first_of(" \t\r\n") != name.npos || name.find_first_of(storable.separators) != name.npos)
        return Fail(column, Formatted(storable.separated, row_ + 1, name));
    if (name.size() > storable.longest) return Fail(column, Formatted(storable.tooLong, row_ + 1, name));
    return Pass(column);
}

bool RowCheck::Number(int column, int kind, double low, double high, const char* message) const {
    const std::string& text = Text(column);
    if (grid_.dialog_.Utility().CheckNumber(text.c_str(), kind, low, high)) return Pass(column);
    return Fail(column, Formatted(message, row_ + 1, text));
}

bool RowCheck::Integer(int column, int low, int high, const char* message) const {
    return Number(column, kKrInteger, low, high, message);
}

bool RowCheck::Real(int column, double low, double high, const char* message) const {
    return Number(column, kKrReal, low, high, message);
}

bool RowCheck::ByHost(int column, HostCheck check) const {
    return (grid_.Control().*check)(row_, Text(column).c_str()) ? Pass(column) : Fail(column, "");
}

}  // namespace kiro::ui
