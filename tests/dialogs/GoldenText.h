// A dialog as text: what its windows show and take, read from the real ones by a user who looks at everything and
// confirms nothing.
#pragma once

#include <windows.h>

#include <string>

#include "catalogue/Catalogue.h"

// Lines of UTF-8, each with a line feed. Opens the dialog; what cannot be read is a Failure.
std::string GoldenText(const kiro::CatalogueDialog& dialog);

// For the user of an open dialog, in which the grid is: it is worked with.
std::string GoldenGrid(HWND dialog, int listId);

// A text in quotation marks; line feeds are written as "\n".
std::string Quoted(const std::wstring& text);

// What differs, in the form of a unified diff; empty when nothing does.
std::string LineDifferences(const std::string& expected, const std::string& actual);
