// The exported functions that look something up: names, colours, line widths and weights.
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <iterator>

#include "entry/host/kirodxf.h"

namespace {

// ---- Arrow heads ----

// The blocks that dimensions in DXF files name. One list for both directions: what comes in can go out again.
constexpr const char* kArrowNames[] = {
    "_CLOSEDFILLED", "_CLOSEDBLANK", "_CLOSED",   "_DOT",         "_DOTSMALL",   "_DOTBLANK", "_SMALL",
    "_OPEN",         "_OPEN30",      "_OPEN90",   "_ORIGIN",      "_ORIGIN2",    "_OBLIQUE",  "_ARCHTICK",
    "_BOXFILLED",    "_BOXBLANK",    "_INTEGRAL", "_DATUMFILLED", "_DATUMBLANK", "_NONE",
};

const char* ArrowName(int index) {
    return index >= 0 && index < static_cast<int>(std::size(kArrowNames)) ? kArrowNames[index] : nullptr;
}

// ---- Colours ----

struct Rgb {
    int red, green, blue;
};

constexpr int kLastColor = 256;  // by layer
constexpr int kWhite = 7;
constexpr int kFirstHue = 10;
constexpr int kFirstGrey = 250;

constexpr Rgb kNamedColors[kFirstHue] = {
    {255, 255, 255},  // 0, by block: shown as white, as 256 is
    {255, 0, 0},     {255, 255, 0},   {0, 255, 0},     {0, 255, 255},   {0, 0, 255},
    {255, 0, 255},   {255, 255, 255}, {128, 128, 128}, {192, 192, 192},
};
constexpr int kBrightness[] = {255, 165, 127, 76, 38};
constexpr int kGreys[] = {51, 91, 132, 173, 214, 255};

// 10 to 249: 24 hues, 15 degrees apart, of ten colours: each brightness in full and in half saturation. Where primary
// colours are 8 steps apart, a channel is full up to 4 steps from its own and gone from 8 steps on.
int Channel(int color, int peak) {
    constexpr int kHues = 24;
    const int hue = (color - kFirstHue) / 10;
    const int distance = std::min(std::abs(hue - peak), kHues - std::abs(hue - peak));
    const int quarters = std::clamp(8 - distance, 0, 4);
    const int brightness = kBrightness[color % 10 / 2];
    const bool pale = color % 2 != 0;
    return pale ? brightness * (4 + quarters) / 8 : brightness * quarters / 4;
}

Rgb ColorOf(int color) {
    if (color == kLastColor) color = kWhite;
    if (color < 0 || color > kLastColor) return {0, 0, 0};
    if (color < kFirstHue) return kNamedColors[color];
    if (color < kFirstGrey) return {Channel(color, 0), Channel(color, 8), Channel(color, 16)};
    const int grey = kGreys[color - kFirstGrey];
    return {grey, grey, grey};
}

void Store(int value, std::int16_t* out) {
    if (out) *out = static_cast<std::int16_t>(value);
}

// ---- Line widths ----

constexpr double kLineWidths[] = {0.00, 0.05, 0.09, 0.13, 0.15, 0.18, 0.20, 0.25, 0.30, 0.35, 0.40, 0.50,
                                  0.53, 0.60, 0.70, 0.80, 0.90, 1.00, 1.06, 1.20, 1.40, 1.58, 2.00, 2.11};
static_assert(std::size(kLineWidths) == kDxfLineWidths);

const char* OrEmpty(const char* text) { return text ? text : ""; }

}  // namespace

const char* dxfinGetArrowName(int index) { return ArrowName(index); }

const char* dxfotGetArrowName(int index) { return ArrowName(index); }

int dxfotCheckArrow(const char* name) {
    return std::any_of(std::begin(kArrowNames), std::end(kArrowNames),
                       [name](const char* known) { return std::strcmp(known, OrEmpty(name)) == 0; });
}

void DxfSetColorRGB() {}

void DxfGetColorRGB(int color, std::int16_t* red, std::int16_t* green, std::int16_t* blue) {
    const Rgb rgb = ColorOf(color);
    Store(rgb.red, red);
    Store(rgb.green, green);
    Store(rgb.blue, blue);
}

double DxfGetLineWidth(int index) { return index >= 0 && index < kDxfLineWidths ? kLineWidths[index] : -1.0; }

int DxfCheckLineWidth(double width) {
    return std::find(std::begin(kLineWidths), std::end(kLineWidths), width) != std::end(kLineWidths);
}

int DxfGetLineWeight(int index) { return index >= 0 && index < kDxfLineWeights ? index + 1 : 0; }

int dxfmemcmp(const char* line, const char* keyword, int count) {
    return count > 0 ? std::strncmp(OrEmpty(line), OrEmpty(keyword), static_cast<std::size_t>(count)) : 0;
}

int dxfstrcmp(const char* left, const char* right) { return std::strcmp(OrEmpty(left), OrEmpty(right)); }
