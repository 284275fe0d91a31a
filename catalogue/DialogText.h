// A dialog as text: what its windows show and take, read from the real ones by a user who looks at everything and
// confirms nothing.
#pragma once

#include <windows.h>

#include <string>

#include "catalogue/Catalogue.h"

namespace kiro {

// Lines of UTF-8, each with a line feed. Opens the dialog; what cannot be read is a Failure.
std::string DialogText(const CatalogueDialog& dialog);

// For the user of an open dialog, in which the grid is: it is worked with.
std::string GridText(HWND dialog, int listId);

// A text in quotation marks; line feeds are written as "\n".
std::string Quoted(const std::wstring& text);

}  // namespace kiro
