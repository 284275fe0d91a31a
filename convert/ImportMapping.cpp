#include "convert/ImportMapping.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "text/SlotText.h"
#include "text/TextFormat.h"

namespace convert {

namespace {

constexpr int kLastNumber = kNumbers - 1;
constexpr const char* kHostLineTypes[] = {"CONTINUOUS", "DASHED", "CENTER", "PHANTOM"};
constexpr int kByTable = 2, kByColor = 1, kAsSeen = 1;  // words of the parameters

}  // namespace

ImportMapping::ImportMapping(const ImportSettings& settings, ModelContent& content, Summary& summary)
    : settings_(settings),
      content_(content),
      summary_(summary),
      layerTable_(settings.params.layerConversion != 0 ? settings.layers : nullptr),
      typeTable_(settings.params.lineTypeConversion != 0 ? settings.lines : nullptr),
      widthTable_(settings.params.lineWidthConversion == kByTable ? settings.lines : nullptr),
      defaultWeight_(std::clamp(settings.params.defaultLineWeight, 1, kWeights - 1)) {}

// Once the drawing's encoding is known.
void ImportMapping::Start() {
    started_ = true;
    const bool revisions = layerTable_ ? layerTable_->layerSwitch != 0 : settings_.params.layerTarget != 0;
    content_.layersAreRevisions = revisions;
    if (revisions) number_ = &Layer::revision;
    const auto add = [](auto& map, std::string_view name, int value) {
        map.emplace(Folded(name, Encoding::kSjis), value);  // of two rows with one name the first counts
    };
    if (layerTable_) {
        const int count = revisions ? layerTable_->layerRevisionCount : layerTable_->layerClassCount;
        for (int i = 1; i <= std::min(count, kDxfInLayerSlots - 1); ++i) {
            const int number = revisions ? layerTable_->layerRevision[i] : layerTable_->layerClass[i];
            add(layerNumbers_,
                revisions ? SlotText(layerTable_->layerRevisionName[i]) : SlotText(layerTable_->layerClassName[i]),
                number);
            numberIsTaken_[std::clamp(number, 0, kNumbers)] = true;
        }
    }
    if (const DxfInLineTable* const table = typeTable_ ? typeTable_ : widthTable_) {
        for (int i = 0; i < std::min(table->lineTypeCount, kDxfInLineTypes); ++i) {
            add(typeRows_, SlotText(table->lineTypeName[i]), i);
            if (typeTable_) fontIsTaken_[std::clamp(table->lineTypes[i].lineFont, 0, kFonts)] = true;
        }
    }
    for (const Layer& layer : content_.layers) numberIsTaken_[layer.*number_] = true;
    for (int font = 1; font < kFonts; ++font) fontIsTaken_[font] |= content_.fontLineType[font] != 0;
    for (int weight = 1; weight < kWeights; ++weight)
        if (content_.weightWidth[weight]) weights_.emplace(content_.weightWidth[weight] - 1, weight);
}

std::string ImportMapping::TableName(std::string_view name) const {
    std::string sjis = Convert(name, content_.encoding, Encoding::kSjis, settings_.unicode);
    std::erase(sjis, ' ');
    return Folded(sjis, Encoding::kSjis);
}

void ImportMapping::Note(Fate fate, std::string_view detail, int number) {
    std::string text = Convert(detail, content_.encoding, Encoding::kUtf8, settings_.unicode);
    if (number > 0) text += " -> " + std::to_string(number);
    summary_.Note(fate, std::move(text));
}

// ---- Layers ----

void ImportMapping::AssignLayers() {
    if (!started_) Start();
    for (; assigned_ < content_.layers.size(); ++assigned_)
        if (content_.layers[assigned_].*number_ == 0) AssignLayer(content_.layers[assigned_]);
}

void ImportMapping::AssignLayer(Layer& layer) {
    const bool revisions = content_.layersAreRevisions;
    int number = 0;
    Fate fate = Fate::kLayerByTable;
    if (const auto row = layerNumbers_.find(TableName(layer.name)); row != layerNumbers_.end()) {
        number = row->second;
    } else if (layerTable_ && settings_.params.layerConversion == kByTable) {
        fate = Fate::kLayerNotInTable;
        number = revisions ? layerTable_->layerRevision[0] : layerTable_->layerClass[0];
    } else {
        while (nextNumber_ < kLastNumber && numberIsTaken_[nextNumber_]) ++nextNumber_;
        fate = nextNumber_ < kNumbers ? Fate::kLayerAutomatic : Fate::kLayersMerged;
        number = std::min(nextNumber_++, kLastNumber);
    }
    number = std::clamp(number, 1, kLastNumber);
    Note(fate, layer.name, number);
    layer.*number_ = number;
    std::string& name = (revisions ? content_.revisionNames : content_.classNames)[number];
    if (settings_.params.convertLayerNames && name.empty()) name = layer.name;
}

// ---- Line types ----

int ImportMapping::FontOf(int lineType) {
    if (lineType < 0) return 1;
    const auto index = static_cast<std::size_t>(lineType);
    if (fonts_.size() <= index) fonts_.resize(content_.lineTypes.size(), 0);
    if (fonts_[index] == 0) fonts_[index] = AssignFont(lineType);
    return fonts_[index];
}

int ImportMapping::AssignFont(int lineType) {
    const std::string& name = content_.lineTypes[static_cast<std::size_t>(lineType)].name;
    const std::string folded = TableName(name);
    const auto row = typeRows_.find(folded);
    const auto* known = std::find(std::begin(kHostLineTypes), std::end(kHostLineTypes), folded);
    const int* same = std::find(std::begin(content_.fontLineType), std::end(content_.fontLineType), lineType + 1);
    int font = 1;
    Fate fate = Fate::kLineTypeAutomatic;
    if (typeTable_ && row != typeRows_.end()) {
        fate = Fate::kLineTypeByTable;
        font = std::clamp(typeTable_->lineTypes[row->second].lineFont, 1, kFonts - 1);
    } else if (typeTable_ && settings_.params.lineTypeConversion == kByTable) {
        fate = Fate::kLineTypeNotInTable;
    } else if (known != std::end(kHostLineTypes)) {
        font = 1 + static_cast<int>(known - kHostLineTypes);
    } else if (same != std::end(content_.fontLineType)) {
        font = static_cast<int>(same - content_.fontLineType);
    } else {
        while (nextFont_ < kFonts && fontIsTaken_[nextFont_]) ++nextFont_;
        if (nextFont_ < kFonts)
            font = nextFont_++;
        else
            fate = Fate::kLineTypesMerged;
    }
    Note(fate, name, font);
    if (content_.fontLineType[font] == 0) content_.fontLineType[font] = lineType + 1;
    return font;
}

// ---- Line widths ----

int ImportMapping::WeightOf(const Drawn& drawn, int lineType, int color, From& from) {
    int width = drawn.lineWidth;
    from = width == -1 ? From::kLayer : width == -2 ? From::kBlock : width < 0 ? From::kDefault : From::kItem;
    if (from == From::kLayer) width = content_.layers[static_cast<std::size_t>(drawn.layer)].lineWidth;
    if (settings_.params.lineWidthConversion == kByColor)
        return color >= 1 && color < kWeights ? color : defaultWeight_;
    if (!widthTable_) return width >= 0 ? AutomaticWeight(width) : defaultWeight_;
    const DxfInLineTable& table = *widthTable_;
    if (table.polWidthSwitch && drawn.polyWidth > 0.0)
        for (int i = 0; i < std::min(table.polyWidthCount, kDxfInPolyWidths); ++i)
            if (drawn.polyWidth >= table.polyWidths[i].widthStart && drawn.polyWidth <= table.polyWidths[i].widthEnd)
                return table.polyWidthWeight[i];
    if (table.widWidthSwitch && width >= 0) return WeightOfWidth(width);
    if (table.colWidthSwitch && color < kDxfInWeightColors) return table.colorWeight[color];
    const auto row = typeRows_.find(
        lineType >= 0 ? TableName(content_.lineTypes[static_cast<std::size_t>(lineType)].name) : kHostLineTypes[0]);
    return row != typeRows_.end() ? table.lineTypes[row->second].lineWeight : defaultWeight_;
}

int ImportMapping::WeightOfWidth(int width) {
    for (std::size_t i = 0; i < std::size(kDxfInLineWidths); ++i)
        if (std::lround(kDxfInLineWidths[i] * 100) == width && widthTable_->lineWidthWeight[i] > 0)
            return widthTable_->lineWidthWeight[i];
    Note(Fate::kWidthNotAssigned, Formatted("%4.2f", width / 100.0));
    return defaultWeight_;
}

int ImportMapping::AutomaticWeight(int width) {
    const auto [row, isNew] = weights_.emplace(width, defaultWeight_);
    if (!isNew) return row->second;
    while (nextWeight_ < kWeights && (nextWeight_ == defaultWeight_ || content_.weightWidth[nextWeight_]))
        ++nextWeight_;
    if (nextWeight_ < kWeights)
        row->second = nextWeight_++;
    else
        Note(Fate::kWidthNotAssigned, Formatted("%4.2f", width / 100.0));
    return row->second;
}

// ---- Items ----

Attributes ImportMapping::Map(const Drawn& drawn) {
    AssignLayers();
    const Layer& layer = content_.layers[static_cast<std::size_t>(drawn.layer)];
    const DxfInParamBlock& params = settings_.params;
    const bool revisions = content_.layersAreRevisions;
    const int seen = drawn.color == kByLayer ? layer.color : drawn.color;
    const int lineType = drawn.lineTypeFrom == From::kLayer ? layer.lineType : drawn.lineType;
    Attributes result;
    result.layer = drawn.layer;
    int number = 1;
    if (params.colorConversion == kByTable && settings_.layers)
        number = revisions ? settings_.layers->colorClass[seen] : settings_.layers->colorRevision[seen];
    result.itemClass = static_cast<std::int16_t>(revisions ? number : layer.itemClass);
    result.revision = static_cast<std::int16_t>(revisions ? layer.revision : number);
    result.color = static_cast<std::int16_t>(params.colorConversion >= kAsSeen ? seen : drawn.color);
    result.font = static_cast<std::uint8_t>(FontOf(lineType));
    result.fontFrom = drawn.lineTypeFrom;
    const int weight = std::clamp(WeightOf(drawn, lineType, seen, result.weightFrom), 1, kWeights - 1);
    result.weight = static_cast<std::uint8_t>(weight);
    if (result.weightFrom == From::kItem && content_.weightWidth[weight] == 0)
        content_.weightWidth[weight] = drawn.lineWidth + 1;
    return result;
}

}  // namespace convert
