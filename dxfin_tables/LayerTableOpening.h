// Choosing a layer and colour table and opening it.
#pragma once

#include <windows.h>

#include "entry/host/KrUtility.h"

enum class LayerTableUse { kNew, kChange };

// The owner is the utility's parent window. Returns when the table is closed, or when the user does not want one.
void OpenLayerTable(KrUtility& utility, HWND owner, LayerTableUse use);
