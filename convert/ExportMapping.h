// From classes, revisions, colours, line fonts and line weights to layers, colours, line types and line widths, by the
// words of the export parameters and the tables.
//
// Where the conversion is automatic, layers have the names that the model has for its classes (revisions, when the
// layers of its drawing became revisions) or else their numbers; colours stay as they are; line types and line widths
// are those of the drawing that the model came from. By the table every item has a line type and a line width of its
// own, and a colour that is not "by layer".
#pragma once

#include <optional>

#include "convert/Convert.h"

namespace convert {

inline constexpr int kVersion2000 = 3, kVersion2004 = 4, kVersion2007 = 5;

struct LayerOut {
    std::string name;
    int color = 7;
    std::string lineType = "Continuous";
    int lineWidth = -3;
    int flags = 0;
    bool off = false;
};

struct LineTypeOut {
    std::string name, comment;
    std::vector<double> pitches;
};

class ExportMapping {
  public:
    ExportMapping(const ModelContent& content, const ExportSettings& settings, bool page, Summary& summary);

    Encoding TextEncoding() const { return encoding_; }
    // Text of the content as it is to be written; the second one of a name, which not every version takes as it is.
    std::string Text(std::string_view text) const;
    std::string Name(std::string_view name) const { return NameFrom(name, content_.encoding); }

    const std::string& LayerOf(const Attributes& attributes, int picture);
    std::optional<int> ColorOf(const Attributes& attributes);             // none: by layer
    const std::string* LineTypeOf(const Attributes& attributes);          // null: by layer
    std::optional<int> WidthOf(const Attributes& attributes, bool line);  // hundredths of a millimetre; none: by layer
    double PolyWidthOf(const Attributes& attributes) const;               // 0: as it is
    bool ColorsByTable() const { return layerTable_ != nullptr; }

    // All that LayerOf has named, and those of the drawing; and all line types. By their names without case.
    const std::map<std::string, LayerOut>& Layers();
    const std::map<std::string, LineTypeOut>& LineTypes() const { return lineTypes_; }

    void Note(Fate fate, std::string_view detail) const;  // detail: in the content's encoding

  private:
    std::string NameFrom(std::string_view name, Encoding encoding) const;
    std::string LayerByNumber(int number) const;
    std::string LayerByPicture(int picture) const;
    void AddLayer(const std::string& name);
    void AddLineTypes();

    const ModelContent& content_;
    Summary& summary_;
    const Unicode& unicode_;
    const DxfOutLayerTable* layerTable_;  // null: automatic
    const DxfOutLineTable* lineTable_;
    int version_;
    Encoding encoding_;
    bool revisions_, byPicture_;
    std::optional<std::string> layerNames_[kNumbers + 1];
    std::map<std::string, LayerOut> layers_;
    std::map<std::string, LineTypeOut> lineTypes_;
    std::string fontNames_[kFonts];
};

}  // namespace convert
