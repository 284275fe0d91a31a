// The content of a model becomes a drawing.
#pragma once

#include "convert/ExportMapping.h"
#include "convert/ModelContent.h"
#include "convert/PairOutput.h"
#include "convert/Results.h"
#include "convert/Summary.h"

namespace convert {

struct Target {
    int layout = 0;   // above 0: that page, with the pictures that it shows
    int picture = 0;  // otherwise
};

// Writes R13 to 2013. What the version cannot hold, and what hangs on objects that only a whole drawing has, is left
// out and told in the summary; all blocks are written. Handles are new.
Result WriteDrawing(const ModelContent& content, const Target& target, const ExportSettings& settings, ByteSink& sink,
                    Summary& summary);

}  // namespace convert
