// The active model: what of a CAD model the commands ask for.
#pragma once

#include <array>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "hostlayer/kiromdl/ModelContent.h"

constexpr int kPictures = 256;  // numbered from 1
constexpr int kLayouts = 256;   // the same
constexpr int kLinePatterns = 63;
constexpr int kLineWidths = 16;
constexpr int kPitches = 8;  // a drawn and a blank length in turn

struct Fault {
    int item = 0;
    std::string text;  // Shift-JIS
};

struct Picture {
    double scale = 1.0;
    int itemCount = 0;
    int writerError = 0;  // what the writer answers; 0: it takes the picture
    std::vector<Fault> faults;
};

struct Frame {
    bool valid = true;
    int kind = 0;
    std::string name;  // any bytes but NUL, as those of a layout
    double width = 0.0;
    double height = 0.0;
};

struct Layout {
    std::string name;          // EUC, if the model is in order
    std::vector<int> windows;  // the pictures that they show, also numbers that no picture has
    std::optional<Frame> frame;
    int writerError = 0;
};

struct LinePattern {
    std::string name;  // EUC, if the model is in order
    std::vector<double> pitches;
};

struct LineStyle {
    std::array<LinePattern, kLinePatterns> patterns;
    std::array<double, kLineWidths> widths{};
    double weightPitch = 0.1;
    bool weightEnabled = false;
    bool realWeight = false;
    bool scaledFont = false;
};

constexpr int kListNames = 256;
using NameList = std::map<int, std::string>;  // EUC, if the model is in order; by number from 1 to 256

struct ModelFacts {
    bool modified = false;
    bool checkBeforeExport = false;
    double baseScale = 1.0;
    int maxItemCount = 100000;
    int maxSplitCount = 10000;
    int currentPicture = 1;
    std::array<std::optional<Picture>, kPictures> pictures;  // none: the picture is not used
    std::array<std::optional<Layout>, kLayouts> layouts;
    std::optional<LineStyle> lineStyle = LineStyle();
    NameList classNames;
    NameList revisionNames;
    double draftingScale = 1.0;
    std::map<int, std::string> messages;  // the host's, Shift-JIS, by number

    const Picture* PictureAt(int number) const;  // null: it is not used
    const Layout* LayoutAt(int number) const;    // null: none
};

// What its JSON tells, and what drawings were read into it; a model that is only told of has nothing of these.
struct Model : ModelFacts {
    convert::ModelContent content;
};

Model& ActiveModel();
Model EmptyModel();  // with what the active one has of the host itself: limits, messages
