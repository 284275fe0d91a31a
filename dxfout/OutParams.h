// The export's parameter block, as the dialogs of the export read it.
#pragma once

#include "entry/host/ParamBlocks.h"

// What an export starts from whose host hands over no block: the defaults that the host keeps, or else those of a new
// installation (version 2000, ASCII, Shift-JIS, paper coordinates, everything as blocks, a division of 10).
DxfOutParamBlock KeptOutParams();

// The oldest version; a number that is none counts as that too.
inline bool IsGx3(const DxfOutParamBlock& params) { return params.outputVersion < 1 || params.outputVersion > 7; }
