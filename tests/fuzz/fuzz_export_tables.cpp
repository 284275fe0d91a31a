#include <algorithm>
#include <cmath>
#include <iterator>

#include "tests/fuzz/TableFuzz.h"

// The name that the host is asked for is the one that is stored: with its NUL, without blanks.
static int CheckArrow(const char* name) {
    const std::string_view text(name);
    Require(!text.empty() && text.size() <= 256 && text.find_first_of(" ,\t\n\r") == text.npos);
    return text[0] != 'X';
}

// A number that six digits of a file give back.
static bool IsPlain(double value) { return value == 0 || (value > 1e-300 && value < 1e300); }

static bool Check(const DxfOutLayerTable& t) {
    Require((t.pictureOff == 0 || t.pictureOff == 257) && t.spareSlot == 257);
    Require(Between(t.layerControl, 0, 2) && Between(t.classControl, 0, 2));
    for (std::int32_t i = 0; i < kDxfOutLayers; ++i) {
        CheckName(t.pictureLayer[i], 72, "");
        CheckName(t.classLayer[i], 72, "");
        CheckName(t.revisionLayer[i], 63, "");
    }
    for (const std::int32_t color : t.colorMap) Require(Between(color, 0, 255));
    return true;
}

// Where a pattern stands once its file is read: with the fonts, the pitches or the comments. More than the last: it
// does not come back as it is.
static std::int32_t PlaceOf(const DxfOutLineTable& t, const DxfOutLineTable::Pattern& pattern) {
    const std::string_view name = SlotText(pattern.patternName), comment = SlotText(pattern.patternComment);
    if (name.find('=') != name.npos || comment.empty() || comment.ends_with(' ')) return 1000;
    const auto* font = std::find_if(std::begin(t.fontLineType), std::end(t.fontLineType),
                                    [name](const auto& type) { return SlotText(type) == name; });
    if (font != std::end(t.fontLineType)) return static_cast<std::int32_t>(font - std::begin(t.fontLineType));
    return pattern.pitchCount > 0 ? 100 : 101;
}

static bool Check(const DxfOutLineTable& t) {
    Require(t.fontCount == 15 && Between(t.patternCount, 0, 256) && Between(t.widthType, 0, 1));
    bool whole = true;
    for (const std::int32_t width : t.lineWidth) {
        Require(Between(width, -2147483600, 2147483600));
        whole &= width >= 0;  // half a hundredth is added to every number
    }
    for (std::int32_t i = 0; i < kDxfOutWeights; ++i) {
        Require(t.weightWidth[i] >= 0 && t.weightWidth[i] <= 1000 && Between(t.weightColor[i], -1, 256));
        whole &= IsPlain(t.weightWidth[i]);
    }
    for (std::int32_t i = 0, place = 0; i < t.patternCount; ++i) {
        const auto& pattern = t.patterns[i];
        CheckName(pattern.patternName, 72, "");
        Require(SlotText(pattern.patternComment).find_first_of("\t\r\n") == std::string_view::npos);
        Require(Between(pattern.pitchCount, 0, 20));
        for (std::int32_t k = 0; k < pattern.pitchCount; ++k) {
            Require(pattern.pitch[k] >= 0 && std::isfinite(pattern.pitch[k]));
            whole &= IsPlain(pattern.pitch[k]);
        }
        const std::int32_t previous = std::exchange(place, PlaceOf(t, pattern));
        whole &= place >= previous && place <= 101;
    }
    for (std::int32_t font = 0; font < kDxfOutFonts; ++font) {
        CheckName(t.fontLineType[font], 72, "");
        const std::string_view type = SlotText(t.fontLineType[font]);
        const auto* end = t.patterns + t.patternCount;
        const auto* found = std::find_if(t.patterns, end, [type](const DxfOutLineTable::Pattern& pattern) {
            return SlotText(pattern.patternName) == type;
        });
        const std::int32_t number = found == end ? 0 : static_cast<std::int32_t>(found - t.patterns) + 1;
        Require(t.fontPattern[font] == (font < 15 ? number : 0));
        whole &= number > 0;
    }
    return whole;
}

static bool Check(const DxfOutStyleTable& t) {
    constexpr std::string_view kNames[] = {"STANDARD", "BIGFONT", "TSTANDARD", "TBIGFONT"};
    Require(Between(t.twoToOne, 0, 1));
    bool whole = true;
    for (std::int32_t i = 0; i < kDxfOutStyles; ++i) {
        const auto& style = t.styles[i];
        CheckName(style.styleName, 63, "");
        Require(CheckName(style.fontFile, 63, ","));
        CheckName(style.bigFontFile, 63, ",");
        Require(style.f1 >= 0 && std::isfinite(style.f1) && (style.f3 >= 0 || style.f3 == -1));
        Require(Between(style.f4, -1, 99) && Between(style.f5, -1, 15));
        for (const double value : {style.f8, style.f9}) Require((value > 0 && std::isfinite(value)) || value == -1);
        if (i >= 4) Require(style.styleName[0] == '\0');
        if (i < 4) whole &= SlotText(style.styleName) == kNames[i] && style.f3 > 0;
        for (const double value : {style.f1, style.f3, style.f8, style.f9}) whole &= IsPlain(value);
    }
    return whole;
}

static bool Check(const DxfOutArrowTable& t) {
    Require(Between(t.arrowCount, 0, 256));
    for (std::int32_t i = 0; i < t.arrowCount; ++i) {
        const auto& arrow = t.arrows[i];
        Require(Between(arrow.mark, 1, 4095) && (arrow.angle == 0 || arrow.angle == 180));
        Require(CheckName(arrow.arrowName, 256, ","));
    }
    return true;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    checkArrow = CheckArrow;
    outputVersion = static_cast<std::int32_t>(size % 2);
    unknown.text.clear();
    // 72 bytes behind the shortest keyword
    FuzzTables<DxfOutLayerTable, DxfOutLineTable, DxfOutStyleTable, DxfOutArrowTable>(data, size, 76);
    Require(unknown.text.size() <= size * 40);
    return 0;
}
