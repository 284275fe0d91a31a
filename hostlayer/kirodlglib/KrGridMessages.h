// The grid's own messages to its list view.
#pragma once

#include <windows.h>

// The columns are to fill the grid again. wParam: the one that the user gave another width. Posted.
inline constexpr UINT kGridFit = WM_APP + 0x20;
// An entry of the drop-down has been picked, and is in the combo's text by now. wParam: of which opening. Posted.
inline constexpr UINT kGridPicked = WM_APP + 0x21;
