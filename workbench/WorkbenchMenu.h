// The workbench's menu, and the keys of its items.
#pragma once

#include <windows.h>

namespace kiro {

enum MenuItem { kCallAgain = 100, kSelectAll, kNextPane, kPreviousPane, kQuit, kFirstCommand = 1000 };

HMENU MakeMenu();
HACCEL MakeKeys();

}  // namespace kiro
