// What may stand in a cell: characters of code page 932, no control characters, no more of them than the cell takes.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>

struct CellTextFault {
    std::string message;   // for the operator, Shift-JIS
    std::size_t from = 0;  // the part of the text that is meant
    std::size_t length = 0;
};

std::string TooLongMessage(std::size_t limit);
std::optional<CellTextFault> FindCellTextFault(std::wstring_view text, std::size_t limit);
std::wstring_view WideWithoutSpacesAround(std::wstring_view text);
// Without spaces around it, and where the cell has numbers with half-width digits. kinds: kKrCell...
std::wstring NormalCellText(std::wstring_view text, unsigned int kinds);

// The text on the clipboard without one line end at its end: other programs put one behind a cell or a line. At most so
// many characters of it; none when there is no text.
std::optional<std::wstring> ClipboardText(HWND owner, std::size_t most);
bool PutClipboardText(HWND owner, std::wstring_view text);  // false: another program holds the clipboard
