// The parameters of the next conversion: those given last, else the kept defaults, else cleared ones,
// of an export in the newest version.
#pragma once

#include "entry/host/ParamBlocks.h"

DxfInParamBlock CurrentImportParams();
DxfOutParamBlock CurrentExportParams();
