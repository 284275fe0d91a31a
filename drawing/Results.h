// What reading a drawing answers: 0, or an error code for which the host has a message (DxfGetErrorMessage).
#pragma once

namespace drawing {

enum Result : int {
    kDone = 0,
    kNoFile = -1,
    kCannotRead = -4,
    kNoDrawing = -20,
    kCutOff = -23,
    kBadPair = -24,
    kBroken = -25,
    kDwgDrawing = -29,
    kNoMemory = -80,
};

}  // namespace drawing
