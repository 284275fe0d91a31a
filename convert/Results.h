#pragma once

#include "drawing/Results.h"

namespace convert {

using drawing::Result;
using enum drawing::Result;

}  // namespace convert
