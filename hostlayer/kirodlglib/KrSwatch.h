// A small field of a colour, with a frame that is seen on any ground.
#pragma once

#include <windows.h>

#include <optional>
#include <string_view>

#include "entry/host/KrListControl.h"

int SwatchWidth(HDC dc);                                                    // with the room behind it
void DrawSwatch(HDC dc, const RECT& area, COLORREF color, COLORREF frame);  // at the left end of the area

// The colour that a text stands for when it is a number.
std::optional<COLORREF> ColorOfText(std::string_view text, KrColorOf colorOf);
