// A drawing becomes the content of a model.
#pragma once

#include "convert/ImportMapping.h"
#include "convert/ModelContent.h"
#include "convert/Results.h"
#include "convert/Summary.h"
#include "drawing/ByteSource.h"

namespace convert {

// What was in the content goes; on an error it is empty. A drawing is read once, from its start to "EOF", and what has
// no meaning here is kept as it is. Layers, line types and line widths that stand behind the items that use them come
// too late for "by layer".
Result ReadDrawing(ByteSource& source, const ImportSettings& settings, ModelContent& content, Summary& summary);

}  // namespace convert
