// The converter of the stand-alone host: a drawing becomes the content of a model, and that a drawing. Results are 0 or
// an error code of entry/host/kirodxf.h.
#pragma once

#include <map>
#include <utility>

#include "drawing/ByteSource.h"
#include "dxfin_tables/DxfInLayerTable.h"
#include "dxfin_tables/DxfInLineTable.h"
#include "dxfout_tables/DxfOutLayerTable.h"
#include "dxfout_tables/DxfOutLineTable.h"
#include "entry/host/ParamBlocks.h"
#include "hostlayer/kirodxf/DxfWriter.h"
#include "hostlayer/kiromdl/ModelContent.h"

namespace convert {

// What became of a drawing, for the one who converts it: nothing gets lost without a word.
enum class Fate {
    // By the tables and the automatic conversion. The detail says what became what.
    kLayerByTable,
    kLayerAutomatic,
    kLineTypeByTable,
    kLineTypeAutomatic,
    kHiddenLeftOut,  // as the parameters want it
    kMadeAnew,       // tables and objects of a drawing's housekeeping

    // What the result does not cover. The detail is a name.
    kFirstLoss,
    kLayerNotInTable = kFirstLoss,
    kLayersMerged,
    kLineTypeNotInTable,
    kLineTypesMerged,
    kWidthNotAssigned,
    kNumberNotInTable,  // a class or revision that the export's table gives no layer
    kColorNotInTable,
    kTypeNotWritten,
    kNoSuchBlock,
    kOtherLayout,
    kValueNotWritten,
    kLinkNotWritten,
    kWidthNotWritten,
    kPatternSimplified,
    kNameChanged,
    kTextCut,
    kNotExpanded,
    kBlockKept,  // the model has one of that name already
    kCodePageNotKnown,
    kFates,
};

struct Summary {
    std::size_t items = 0;  // read, or written; without their parts
    std::size_t blocks = 0;

    void Note(Fate fate, std::string detail, std::size_t count = 1) { notes_[{fate, std::move(detail)}] += count; }
    const std::map<std::pair<Fate, std::string>, std::size_t>& Notes() const { return notes_; }
    bool IsComplete() const { return notes_.lower_bound({Fate::kFirstLoss, {}}) == notes_.end(); }

  private:
    std::map<std::pair<Fate, std::string>, std::size_t> notes_;
};

struct ImportSettings {
    DxfInParamBlock params = {};
    const DxfInLayerTable* layers = nullptr;  // null: where a table is to be used, the conversion is automatic
    const DxfInLineTable* lines = nullptr;
    int pictureNumber = 1;  // -256 to 256
    double scale = 1.0;     // of the picture: what is in the drawing keeps its coordinates
    Unicode unicode = {};
};

// Adds the drawing to the content; after an error that is as it was. A drawing is read once, from its start to "EOF",
// and what has no meaning here is kept as it is. Layers, line types and line widths that stand behind the items that
// use them come too late for "by layer". Of what content and drawing both have by one name, the content's stays.
int ReadDrawing(ByteSource& source, const ImportSettings& settings, ModelContent& content, Summary& summary);

inline constexpr int kFirstVersion = 1, kLastVersion = 7;  // R13 to 2013, as DxfOutParamBlock counts
inline constexpr const char* kVersionCodes[] = {"",       "AC1012", "AC1014", "AC1015",
                                                "AC1018", "AC1021", "AC1024", "AC1027"};

struct ExportSettings {
    DxfOutParamBlock params = {};
    const DxfOutLayerTable* layers = nullptr;  // null: automatic
    const DxfOutLineTable* lines = nullptr;
    Unicode unicode = {};
};

struct Target {
    int layout = 0;   // above 0: that page, with the pictures that it shows
    int picture = 0;  // otherwise
};

// Writes R13 to 2013. What the version cannot hold, and what hangs on objects that only a whole drawing has, is left
// out and told in the summary; all blocks are written. Handles are new.
int WriteDrawing(const ModelContent& content, const Target& target, const ExportSettings& settings, ByteSink& sink,
                 Summary& summary);

}  // namespace convert
