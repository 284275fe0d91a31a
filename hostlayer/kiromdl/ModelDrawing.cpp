// Drawings that become part of the active model, and leave it.
#include <algorithm>
#include <cmath>

#include "Model.h"
#include "ModelFacts.h"
#include "ModelText.h"
#include "convert/Convert.h"
#include "entry/host/kirobc.h"
#include "entry/host/kirodxf.h"
#include "hostlayer/kirobc/EucCodec.h"
#include "hostlayer/kirobc/Guarded.h"
#include "text/Numbers.h"

namespace {

using convert::Encoding;

constexpr convert::Unicode kUnicode = {ShownAsUtf8, NearestSjis};
constexpr double kPaperWidth = 420.0, kPaperHeight = 297.0;  // of a layout that says nothing

std::string EucOf(const Model& model, const std::string& text) {
    return Convert(text, model.content.encoding, Encoding::kEuc, kUnicode);
}

// ---- What a model tells of what it holds ----

// The larger corner of the paper's limits in the header.
Frame PaperOf(const convert::ModelContent& content) {
    Frame frame;
    auto cursor = content.store.Read(content.header);
    std::string_view variable;
    for (convert::Pair pair; cursor.Next(pair);) {
        if (pair.code == 9) variable = pair.text;
        if (variable != "$PLIMMAX") continue;
        if (pair.code == 10) frame.width = ReadReal(pair.text).value_or(0.0);
        if (pair.code == 20) frame.height = ReadReal(pair.text).value_or(0.0);
    }
    if (!(frame.width > 0.0 && frame.height > 0.0)) frame.width = kPaperWidth, frame.height = kPaperHeight;
    return frame;
}

void TellPictures(Model& model) {
    for (int number = 1; number <= kPictures; ++number) {
        const double scale = model.content.pictures[number];
        if (scale <= 0.0) continue;
        auto& picture = model.pictures[static_cast<std::size_t>(number) - 1];
        if (!picture) picture.emplace().scale = scale;
        picture->itemCount = 0;
    }
    for (const convert::Item& item : model.content.items)
        if (item.picture > 0 && !item.inBlock && !item.part)
            ++model.pictures[static_cast<std::size_t>(item.picture) - 1]->itemCount;
    model.currentPicture = model.content.modelPicture;
}

void TellLayouts(Model& model) {
    const auto& layouts = model.content.layouts;
    for (std::size_t i = 0; i < std::min<std::size_t>(layouts.size(), kLayouts); ++i) {
        Layout& layout = model.layouts[i] ? *model.layouts[i] : model.layouts[i].emplace();
        layout.windows = layouts[i].windows;
        if (layout.name.empty()) layout.name = kirobc::SjisToEuc("図面配置" + std::to_string(i + 1));
        if (!layout.frame) layout.frame = PaperOf(model.content);
    }
}

void TellNames(Model& model, NameList& names, const std::string (&ofContent)[convert::kNumbers]) {
    for (int number = 1; number < convert::kNumbers; ++number)
        if (!ofContent[number].empty())
            names.try_emplace(number, EucOf(model, ofContent[number]).substr(0, kHxLongestName));
}

std::string PatternName(const Model& model, const convert::LineType& type) {
    return EucOf(model, type.name).substr(0, kHxLongestName);
}

void TellLines(Model& model) {
    if (!model.lineStyle) model.lineStyle.emplace();
    for (int font = 1; font < convert::kFonts; ++font) {
        LinePattern& pattern = model.lineStyle->patterns[static_cast<std::size_t>(font) - 1];
        const convert::LineType* const type = model.content.LineTypeOf(font);
        if (!type || !pattern.name.empty()) continue;
        pattern.name = PatternName(model, *type);
        pattern.pitches = HostPitches(*type);
    }
    for (int weight = 1; weight < convert::kWeights; ++weight)
        if (const int width = model.content.weightWidth[weight])
            model.lineStyle->widths[static_cast<std::size_t>(weight) - 1] = (width - 1) / 100.0;
}

void Tell(Model& model) {
    TellPictures(model);
    TellLayouts(model);
    TellNames(model, model.classNames, model.content.classNames);
    TellNames(model, model.revisionNames, model.content.revisionNames);
    TellLines(model);
    model.modified = true;
}

// ---- What was edited since ----

void TakeNames(convert::ModelContent& content, const NameList& names, std::string (&ofContent)[convert::kNumbers]) {
    for (const auto& [number, name] : names)
        ofContent[number] = Convert(name, Encoding::kEuc, content.encoding, kUnicode);
}

void TakeEdits(Model& model) {
    TakeNames(model.content, model.classNames, model.content.classNames);
    TakeNames(model.content, model.revisionNames, model.content.revisionNames);
    if (!model.lineStyle) return;
    // The first one is the continuous line, whatever its pattern.
    for (int font = 2; font < convert::kFonts; ++font) {
        const LinePattern& pattern = model.lineStyle->patterns[static_cast<std::size_t>(font) - 1];
        const convert::LineType* const type = model.content.LineTypeOf(font);
        const bool told = type && pattern.name == PatternName(model, *type);
        SetLineFont(model.content, font,
                    told ? type->name : Convert(pattern.name, Encoding::kEuc, model.content.encoding, kUnicode),
                    pattern.pitches);
    }
    for (int weight = 1; weight < convert::kWeights; ++weight) {
        const double width = model.lineStyle->widths[static_cast<std::size_t>(weight) - 1];
        if (width > 0.0 && width <= 100.0)
            model.content.weightWidth[weight] = static_cast<int>(std::lround(width * 100)) + 1;
    }
}

// Gives the content back to the active model when the work on it did not come to its end.
class Lent {
  public:
    Lent(Model& active, Model& next, bool lent) : active_(active), next_(next), lent_(lent) {
        if (lent) next.content = std::move(active.content);
    }
    Lent(const Lent&) = delete;
    Lent& operator=(const Lent&) = delete;
    ~Lent() {
        if (lent_) active_.content = std::move(next_.content);
    }
    void Keep() { lent_ = false; }

  private:
    Model& active_;
    Model& next_;
    bool lent_;
};

}  // namespace

int KiroModelImport(ByteSource* source, convert::ImportSettings* settings, int add) {
    return kirobc::Guarded(static_cast<int>(kDxfNoMemory), [=]() -> int {
        Model& active = ActiveModel();
        Model next = EmptyModel();
        if (add) static_cast<ModelFacts&>(next) = active;
        Lent lent(active, next, add != 0);
        if (!next.content.layers.empty()) TakeEdits(next);
        settings->unicode = kUnicode;
        if (const Picture* picture = next.PictureAt(std::abs(settings->pictureNumber)))
            settings->scale = picture->scale;
        convert::Summary summary;
        const int error = ReadDrawing(*source, *settings, next.content, summary);
        if (error) return error;
        Tell(next);
        lent.Keep();
        active = std::move(next);
        return 0;
    });
}

int KiroModelExport(ByteSink* sink, convert::ExportSettings* settings, int layout, int picture) {
    return kirobc::Guarded(static_cast<int>(kDxfNoMemory), [=]() -> int {
        Model& model = ActiveModel();
        TakeEdits(model);
        settings->unicode = kUnicode;
        convert::Summary summary;
        const int error = WriteDrawing(model.content, {std::max(layout, 0), picture}, *settings, *sink, summary);
        // A picture or layout that is only told of is there, but there is nothing in it.
        const bool told = layout > 0 ? model.LayoutAt(layout) != nullptr : model.PictureAt(picture) != nullptr;
        return told && (error == kDxfNoPicture || error == kDxfNoLayout) ? kDxfNothing : error;
    });
}

int KiroModelInit(int option) {
    static std::optional<Model> aside;
    return kirobc::Guarded(static_cast<int>(kDxfNoMemory), [=] {
        if (option == kSxfModelBack && !aside) return 0;
        Model next = option == kSxfModelBack ? std::move(*aside) : EmptyModel();
        if (option == kSxfModelBack) aside.reset();
        if (option == kSxfModelAside && !aside) aside = std::move(ActiveModel());
        ActiveModel() = std::move(next);
        return 0;
    });
}
