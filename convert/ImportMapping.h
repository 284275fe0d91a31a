// From layers, colours, line types and line widths to classes, revisions, line fonts and line weights, by the words of
// the import parameters and the tables.
//
// Where the conversion is automatic, this is the rule:
// - Layers: 1, 2, 3 ... in the order of the drawing's layers, without the numbers that the table gives to layers. From
//   256 on all have 256.
// - Colours: 1 keeps the number as it is drawn (256: by layer); 2 takes the colour in which the item is seen. The class
//   or revision that layers do not use is 1.
// - Line types: CONTINUOUS, DASHED, CENTER and PHANTOM are 1 to 4, the others 5, 6, 7 ... in the order of the drawing's
//   line types, without the fonts that the table gives. Those that find none free have 1.
// - Line widths: 1 gives every width of the drawing a line weight, in the order in which they are met: 1, 2, 3 ...
//   without the default one, which has what has no width and what comes after 16. 2 takes the colour: 1 to 16 are the
//   line weights of these numbers, all others have the default one.
// What the model has already keeps its numbers, and what is new takes others. Names are compared without regard to the
// case of ASCII letters, and without blanks, which tables cannot hold.
#pragma once

#include <string_view>
#include <unordered_map>

#include "convert/Convert.h"

namespace convert {

// An item's attributes as they are drawn.
struct Drawn {
    int layer = 0;
    int color = kByLayer;
    From lineTypeFrom = From::kLayer;
    int lineType = -1;       // index, of kItem
    int lineWidth = -1;      // hundredths of a millimetre; -1 by layer, -2 by block, -3 default
    double polyWidth = 0.0;  // of a polyline
};

class ImportMapping {
  public:
    ImportMapping(const ImportSettings& settings, ModelContent& content, Summary& summary);
    Attributes Map(const Drawn& drawn);
    void AssignLayers();  // all that there are by now

  private:
    void Start();
    void AssignLayer(Layer& layer);
    int FontOf(int lineType);
    int AssignFont(int lineType);
    int WeightOf(const Drawn& drawn, int lineType, int color, From& from);
    int WeightOfWidth(int width);
    int AutomaticWeight(int width);
    std::string TableName(std::string_view name) const;  // as it would stand in a table
    void Note(Fate fate, std::string_view detail, int number = 0);

    const ImportSettings& settings_;
    ModelContent& content_;
    Summary& summary_;
    const DxfInLayerTable* layerTable_;  // null: automatic
    const DxfInLineTable* typeTable_;
    const DxfInLineTable* widthTable_;
    int defaultWeight_;
    int Layer::*number_ = &Layer::itemClass;  // what layers become
    bool started_ = false;
    std::unordered_map<std::string, int> layerNumbers_, typeRows_;
    bool numberIsTaken_[kNumbers + 1] = {};
    bool fontIsTaken_[kFonts + 1] = {true, true, true, true, true};
    std::size_t assigned_ = 0;
    int nextNumber_ = 1, nextFont_ = 5, nextWeight_ = 1;
    std::vector<int> fonts_;  // by line type; 0: not assigned yet
    std::unordered_map<int, int> weights_;
};

}  // namespace convert
