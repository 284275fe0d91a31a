// What the editors of the import tables share.
#pragma once

#include <string>
#include <string_view>

#include "tables/Numbers.h"
#include "tables/TextFormat.h"

// Whether a record of the file gives the name back as it is: it loses blanks, and ends at a separator.
inline bool CanBeWritten(std::string_view name, std::string_view separators) {
    return name.find_first_of(" \t\r\n") == std::string_view::npos &&
           name.find_first_of(separators) == std::string_view::npos;
}

// A number as "%G" writes it.
inline std::string NumberText(double number) {
    std::string text = Formatted("%g", number);
    for (char& c : text) c = c == 'e' ? 'E' : c;
    return text;
}

// A cell that holds a number the host has found valid.
inline double RealOf(const std::string& text) { return ReadReal(text).value_or(0.0); }
