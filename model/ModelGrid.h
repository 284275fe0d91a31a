// What the grids of the model's settings have in common: their faults are told in the guidance line alone, and their
// buttons lead back to them.
#pragma once

#include "ui/Grid.h"

// One check over all rows, which notes what is bad in them. Every bad cell is marked, the first is gone to and the
// message is shown. False when there is one.
bool CheckModelGrid(kiro::ui::Grid& grid, const char* message, kiro::ui::Grid::RowChecker check);

void TellInGuidance(const kiro::ui::Grid& grid, const char* error);

// The cell that was current still is; the screen is up to date.
void BackToGrid(const kiro::ui::Grid& grid);

// No cell is marked as an error any more.
void ClearMarks(const kiro::ui::Grid& grid);

// The model was changed by somebody else.
constexpr char kNoLineStyle[] = "モデルに線種と線幅の設定がありません。";
