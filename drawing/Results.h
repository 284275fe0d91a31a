// What reading and writing a drawing answer: 0, or an error code for which the host has a message (DxfGetErrorMessage).
#pragma once

namespace drawing {

enum Result : int {
    kDone = 0,
    kNoFile = -1,
    kCannotRead = -4,
    kCannotWrite = -6,
    kNoDrawing = -20,
    kCutOff = -23,
    kBadPair = -24,
    kBroken = -25,
    kNothing = -26,
    kDwgDrawing = -29,
    kTooManyItems = -60,
    kNoPicture = -61,
    kNoLayout = -62,
    kNoMemory = -80,
    kVersionNotWritten = -84,
};

}  // namespace drawing
