#pragma once

#include <nlohmann/json.hpp>

#include "Console.h"

namespace cli {

using Json = nlohmann::ordered_json;

// Names of files may be no UTF-8 on some systems.
inline void PrintJson(const Json& json) { Print(json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n"); }

}  // namespace cli
