// Choosing a layer and colour table, which is the one table that the user names, for the import and the export.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "entry/host/KrUtility.h"

enum class LayerTableUse { kNew, kChange };

// name: what the names of such tables begin with, such as "DXFKIRO_LAYER". Asks for a file, and whether a new one may
// replace another or a missing one is to be made; then opens it: path is its full path, fresh says that the file,
// should there be one, is not to be read. The owner is the utility's parent window. Does nothing when the user does not
// want a table after all.
void OpenLayerTable(KrUtility& utility, HWND owner, LayerTableUse use, const std::string& name,
                    const std::function<void(const std::string& path, bool fresh)>& open);
