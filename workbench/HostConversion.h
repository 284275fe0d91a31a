// What a CAD host does when its user has confirmed the import or the export of a drawing: the conversion.
#pragma once

#include <optional>

#include "Calls.h"

namespace kiro {

// By what a call of DxfInputDlg or DxfOutputDlg has left in its record and parameters: {"returned", "message", "calls",
// "model"}, the model as it is then. Nothing after another command or a cancellation.
std::optional<Json> ConvertAsHost(const CallResult& result);

}  // namespace kiro
