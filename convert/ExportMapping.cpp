#include "convert/ExportMapping.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "text/SlotText.h"

namespace convert {

namespace {

constexpr std::size_t kLongestOldName = 31;  // before version 2000
const std::string kByBlockName = "ByBlock", kContinuousName = "Continuous";

// Different names stay different ones.
std::string Shortened(const std::string& name) {
    std::uint32_t sum = 2166136261u;
    for (const char c : name) sum = (sum ^ static_cast<unsigned char>(c)) * 16777619u;
    char digits[16];
    std::snprintf(digits, sizeof digits, "_%08X", static_cast<unsigned>(sum));
    return std::string(CutAtCharacter(name, kLongestOldName - 9)) + digits;
}

int StandardWidth(int width) {
    width = std::clamp(width, 0, 1000);  // a table may have any
    const auto distance = [width](double known) { return std::abs(known * 100 - width); };
    return static_cast<int>(std::lround(*std::ranges::min_element(kDxfInLineWidths, {}, distance) * 100));
}

bool IsBuiltIn(std::string_view folded) { return folded == "BYLAYER" || folded == "BYBLOCK" || folded == "CONTINUOUS"; }

}  // namespace

ExportMapping::ExportMapping(const ModelContent& content, const ExportSettings& settings, bool page, Summary& summary)
    : content_(content),
      summary_(summary),
      unicode_(settings.unicode),
      layerTable_(settings.params.layerConversion ? settings.layers : nullptr),
      lineTable_(settings.params.lineConversion ? settings.lines : nullptr),
      version_(settings.params.outputVersion),
      encoding_(version_ >= kVersion2007         ? Encoding::kUtf8
                : settings.params.kanjiCode == 1 ? Encoding::kEuc
                                                 : Encoding::kSjis),
      revisions_(!layerTable_ ? content.layersAreRevisions
                 : page       ? layerTable_->pictureOff < 0
                              : layerTable_->layerControl == kLayerControlRevision),
      byPicture_(layerTable_ && page && layerTable_->pictureOff == 0) {
    AddLineTypes();
}

std::string ExportMapping::Text(std::string_view text) const {
    return Convert(text, content_.encoding, encoding_, unicode_);
}

void ExportMapping::Note(Fate fate, std::string_view detail) const {
    summary_.Note(fate, Convert(detail, content_.encoding, Encoding::kUtf8, unicode_));
}

std::string ExportMapping::NameFrom(std::string_view name, Encoding encoding) const {
    constexpr std::string_view kNotInNames = "<>/\\\":;?*|,=`";
    std::string clean(name);
    for (std::size_t i = 0; i < clean.size(); ++i) {
        if (IsLeadByte(clean[i], encoding)) {
            ++i;
            continue;
        }
        const bool blank = clean[i] == ' ' && version_ < kVersion2000;
        const bool anonymous = i == 0 && clean[i] == '*';
        const bool escape = std::string_view(clean).substr(i).starts_with("\\U+");
        const bool bad = static_cast<unsigned char>(clean[i]) < 0x20 || kNotInNames.find(clean[i]) != kNotInNames.npos;
        if (blank || (bad && !anonymous && !escape)) clean[i] = '_';
    }
    std::string text = Convert(clean, encoding, encoding_, unicode_);
    if (text.size() > kLongestOldName && version_ < kVersion2000) clean = text = Shortened(text);
    if (clean != name) summary_.Note(Fate::kNameChanged, Convert(name, encoding, Encoding::kUtf8, unicode_));
    return text;
}

// ---- Layers ----

const std::string& ExportMapping::LayerOf(const Attributes& attributes, int picture) {
    // What lies in a layout itself and in none of its pictures has the layer of the drawing frame.
    const int number = byPicture_   ? (picture > 0 ? std::min(picture, kDxfOutFrame) : kDxfOutFrame)
                       : revisions_ ? std::clamp<int>(attributes.revision, 0, kNumbers - 1)
                                    : std::clamp<int>(attributes.itemClass, 0, kNumbers - 1);
    std::optional<std::string>& known = layerNames_[number];
    if (known) return *known;
    known = byPicture_ ? NameFrom(SlotText(layerTable_->pictureLayer[number]), Encoding::kSjis) : LayerByNumber(number);
    if (known->empty()) known = "0";
    if (byPicture_ && *known == "0") summary_.Note(Fate::kNumberNotInTable, "picture " + std::to_string(number));
    AddLayer(*known);
    return *known;
}

std::string ExportMapping::LayerByNumber(int number) const {
    if (!layerTable_) {
        const std::string& own = (revisions_ ? content_.revisionNames : content_.classNames)[number];
        return own.empty() ? std::to_string(number) : Name(own);
    }
    std::string name =
        NameFrom(revisions_ ? SlotText(layerTable_->revisionLayer[number]) : SlotText(layerTable_->classLayer[number]),
                 Encoding::kSjis);
    // "0" is what the table has for numbers that it does not name.
    const auto isOfNamed = [&](const Layer& layer) {
        return (revisions_ ? layer.revision : layer.itemClass) == number && layer.name != "0";
    };
    if (name == "0" && std::any_of(content_.layers.begin(), content_.layers.end(), isOfNamed))
        summary_.Note(Fate::kNumberNotInTable, std::to_string(number));
    return name;
}

void ExportMapping::AddLayer(const std::string& name) {
    layers_.try_emplace(Folded(name, encoding_)).first->second.name = name;
}

// A layer has the properties of the first of the drawing's layers that became it.
const std::map<std::string, LayerOut>& ExportMapping::Layers() {
    std::map<std::string, const Layer*> first;
    for (const Layer& layer : content_.layers) {
        Attributes attributes;
        attributes.itemClass = static_cast<std::int16_t>(layer.itemClass);
        attributes.revision = static_cast<std::int16_t>(layer.revision);
        const bool assigned = revisions_ == content_.layersAreRevisions;
        if (!byPicture_ && assigned) first.try_emplace(Folded(LayerOf(attributes, 0), encoding_), &layer);
    }
    AddLayer("0");
    for (auto& [name, out] : layers_) {
        const auto found = first.find(name);
        if (found == first.end()) continue;
        const Layer& layer = *found->second;
        out.color = layerTable_ ? layerTable_->colorMap[layer.color] : layer.color;
        if (out.color < 1) out.color = 7;
        const std::string type = lineTable_ || layer.lineType < 0
                                     ? ""
                                     : Name(content_.lineTypes[static_cast<std::size_t>(layer.lineType)].name);
        if (lineTypes_.contains(Folded(type, encoding_))) out.lineType = type;
        out.lineWidth = lineTable_ || layer.lineWidth < 0 ? -3 : StandardWidth(layer.lineWidth);
        out.flags = layer.flags;
        out.off = layer.off;
    }
    return layers_;
}

// ---- Colours ----

std::optional<int> ExportMapping::ColorOf(const Attributes& attributes) {
    const int weight = std::clamp<int>(attributes.weight, 1, kDxfOutWeights);
    if (lineTable_ && !lineTable_->widthType && lineTable_->weightColor[weight - 1] > 0)
        return lineTable_->weightColor[weight - 1];
    const int color = std::clamp<int>(attributes.color, kByBlock, kByLayer);
    if (!layerTable_) return color == kByLayer ? std::nullopt : std::optional(color);
    const int mapped = layerTable_->colorMap[color];
    if (mapped == kByBlock && color != kByBlock) summary_.Note(Fate::kColorNotInTable, std::to_string(color));
    return mapped;
}

// ---- Line types ----

void ExportMapping::AddLineTypes() {
    const auto add = [this](const std::string& name) -> LineTypeOut* {
        const std::string folded = Folded(name, encoding_);
        if (name.empty() || IsBuiltIn(folded)) return nullptr;
        const auto [row, isNew] = lineTypes_.try_emplace(folded);
        if (isNew) row->second.name = name;
        return isNew ? &row->second : nullptr;
    };
    if (!lineTable_) {
        for (const LineType& type : content_.lineTypes) {
            LineTypeOut* const out = add(Name(type.name));
            if (!out) continue;
            out->comment = Text(type.comment);
            out->pitches = type.pitches;
            if (!type.plain) Note(Fate::kPatternSimplified, type.name);
        }
        for (int font = 1; font < kFonts; ++font)
            if (const LineType* const type = content_.LineTypeOf(font)) fontNames_[font] = Name(type->name);
        return;
    }
    for (int font = 1; font < kFonts; ++font) {
        fontNames_[font] = NameFrom(SlotText(lineTable_->fontLineType[font - 1]), Encoding::kSjis);
        LineTypeOut* const out = add(fontNames_[font]);
        if (!out) continue;
        // What the table names and gives no pitches has those of the model.
        if (const LineType* const type = content_.LineTypeOf(font)) out->pitches = type->pitches;
        for (int i = 0; i < std::min(lineTable_->patternCount, kDxfOutPatterns); ++i) {
            const DxfOutLineTable::Pattern& pattern = lineTable_->patterns[i];
            if (SlotText(pattern.patternName) != SlotText(lineTable_->fontLineType[font - 1])) continue;
            out->comment = Convert(SlotText(pattern.patternComment), Encoding::kSjis, encoding_, unicode_);
            if (pattern.pitchCount <= 0) continue;
            out->pitches.assign(pattern.pitch, pattern.pitch + std::min(pattern.pitchCount, kDxfOutPitches));
            for (std::size_t gap = 1; gap < out->pitches.size(); gap += 2) out->pitches[gap] *= -1;
        }
    }
}

const std::string* ExportMapping::LineTypeOf(const Attributes& attributes) {
    if (attributes.fontFrom == From::kBlock) return &kByBlockName;
    if (!lineTable_ && attributes.fontFrom == From::kLayer) return nullptr;
    const std::string& name = fontNames_[std::clamp<int>(attributes.font, 1, kFonts - 1)];
    return name.empty() ? &kContinuousName : &name;
}

// ---- Line widths ----

std::optional<int> ExportMapping::WidthOf(const Attributes& attributes, bool line) {
    constexpr int kBlockWidth = -2, kDefaultWidth = -3;
    const int weight = std::clamp<int>(attributes.weight, 1, kWeights - 1);
    std::optional<int> width;
    if (lineTable_ && !lineTable_->widthType) {
        if (lineTable_->weightWidth[weight - 1] > 0 && !line) Note(Fate::kWidthNotWritten, std::to_string(weight));
        return std::nullopt;
    }
    if (lineTable_)
        width = attributes.weightFrom == From::kBlock ? kBlockWidth : StandardWidth(lineTable_->lineWidth[weight]);
    else if (attributes.weightFrom == From::kItem && content_.weightWidth[weight] > 0)
        width = StandardWidth(content_.weightWidth[weight] - 1);
    else if (attributes.weightFrom != From::kLayer)
        width = attributes.weightFrom == From::kBlock ? kBlockWidth : kDefaultWidth;
    if (version_ >= kVersion2000) return width;
    if (width.value_or(0) > 0) Note(Fate::kWidthNotWritten, std::to_string(weight));
    return std::nullopt;
}

double ExportMapping::PolyWidthOf(const Attributes& attributes) const {
    if (!lineTable_ || lineTable_->widthType) return 0.0;
    return lineTable_->weightWidth[std::clamp<int>(attributes.weight, 1, kDxfOutWeights) - 1];
}

}  // namespace convert
