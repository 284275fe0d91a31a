// Numbers as the cells of the table editors show them.
#pragma once

#include <string>
#include <string_view>

#include "text/Numbers.h"
#include "text/TextFormat.h"

// A number as "%G" writes it.
inline std::string NumberText(double number) {
    std::string text = Formatted("%g", number);
    for (char& c : text) c = c == 'e' ? 'E' : c;
    return text;
}

// A cell that holds a number the host has found valid.
inline double RealOf(std::string_view text) { return ReadReal(text).value_or(0.0); }
