// What a model holds of its drawings, as bytes of a model file. Portable.
#pragma once

#include <string>
#include <string_view>

#include "hostlayer/kiromdl/ModelContent.h"

std::string FormatModelContent(const convert::ModelContent& content);
// False, and what is in content then is of no use, when the bytes are not exactly what can come of a content.
bool ParseModelContent(std::string_view bytes, convert::ModelContent& content);
