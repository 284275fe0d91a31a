// What a thread with windows is about: for the report of a test or a play in which nothing goes on.
#pragma once

#include <windows.h>

#include <string>

namespace kiro::drive {

// The thread's windows, focus and modes, and where in which modules it stands. UTF-8, several lines. Asks no window
// anything, so that one that does not answer holds nothing up. Call it on another thread, of the same desktop.
std::string StateOf(DWORD thread);

}  // namespace kiro::drive
