// A library's dialog templates as bare system windows, without the library's code.
#pragma once

#include <windows.h>

#include <functional>

namespace kiro::drive {

// The controls of the style that a library's manifest asks for, as its commands have them. The caller releases it.
HANDLE MakeStyleContext(HMODULE library);

// Runs a template until it is cancelled, in the style that is active. fill may put something into its controls;
// rowHeight tells the height of the rows that a list draws through its owner (0: as the system has it), which lists ask
// for before there is anything to fill.
void OpenBareDialog(HMODULE library, int templateId, HWND owner, const std::function<void(HWND dialog)>& fill = nullptr,
                    const std::function<int(int listId)>& rowHeight = nullptr);

}  // namespace kiro::drive
