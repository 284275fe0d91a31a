// The exported functions of line styles and names. What they change is a change of the model that was not saved.
#include <algorithm>
#include <cstring>
#include <new>

#include "Model.h"
#include "entry/host/kiromdl.h"

namespace {

static_assert(kHxLinePatterns == kLinePatterns && kHxLinePitches == kPitches && kHxLineWidths == kLineWidths &&
              kHxListNames == kListNames);

LineStyle* Of(HxLineStyle* style) { return reinterpret_cast<LineStyle*>(style); }
const LineStyle* Of(const HxLineStyle* style) { return reinterpret_cast<const LineStyle*>(style); }
LinePattern* Of(HxLineStylePattern* pattern) { return reinterpret_cast<LinePattern*>(pattern); }
const LinePattern* Of(const HxLineStylePattern* pattern) { return reinterpret_cast<const LinePattern*>(pattern); }
NameList* Of(HxNameList* list) { return reinterpret_cast<NameList*>(list); }
const NameList* Of(const HxNameList* list) { return reinterpret_cast<const NameList*>(list); }

// Without memory the model stays as it is.
template <class Change>
void Changing(Change change) {
    try {
        change();
        ActiveModel().modified = true;
    } catch (const std::bad_alloc&) {
    }
}

bool Fits(const char* name) { return name && std::strlen(name) <= kHxLongestName; }

bool IsWidth(int number) { return number >= 1 && number <= kLineWidths; }

void Switch(HxLineStyle* style, bool LineStyle::*member, bool on) {
    if (style) Changing([&] { Of(style)->*member = on; });
}

bool Is(const HxLineStyle* style, bool LineStyle::*member) { return style && Of(style)->*member; }

}  // namespace

HxLineStyle* HxModelGetLineStyle(HxModel* model) {
    auto* const known = reinterpret_cast<Model*>(model);
    return known && known->lineStyle ? reinterpret_cast<HxLineStyle*>(&*known->lineStyle) : nullptr;
}

HxNameList* HxModelGetClassNameList(HxModel* model) {
    return model ? reinterpret_cast<HxNameList*>(&reinterpret_cast<Model*>(model)->classNames) : nullptr;
}

HxNameList* HxModelGetRevisionNameList(HxModel* model) {
    return model ? reinterpret_cast<HxNameList*>(&reinterpret_cast<Model*>(model)->revisionNames) : nullptr;
}

double HxModelGetDraftingScale(const HxModel* model) {
    return model ? reinterpret_cast<const Model*>(model)->draftingScale : 1.0;
}

// ---- Patterns ----

HxLineStylePattern* HxLineStyleGetPattern(HxLineStyle* style, int number) {
    if (!style || number < 1 || number > kLinePatterns) return nullptr;
    return reinterpret_cast<HxLineStylePattern*>(&Of(style)->patterns[static_cast<std::size_t>(number) - 1]);
}

const char* HxLineStylePatternGetName(const HxLineStylePattern* pattern) {
    return pattern ? Of(pattern)->name.c_str() : "";
}

void HxLineStylePatternSetName(HxLineStylePattern* pattern, const char* name) {
    if (pattern && Fits(name)) Changing([&] { Of(pattern)->name = name; });
}

int HxLineStylePatternGetPitches(const HxLineStylePattern* pattern, double pitches[8]) {
    if (!pattern) return 0;
    if (pitches) std::ranges::copy(Of(pattern)->pitches, pitches);
    return static_cast<int>(Of(pattern)->pitches.size());
}

void HxLineStylePatternSet(HxLineStylePattern* pattern, int count, const double* pitches) {
    if (pattern && count >= 0 && count <= kPitches && (pitches || count == 0))
        Changing([&] { Of(pattern)->pitches.assign(pitches, pitches + count); });
}

// ---- Widths and switches ----

double HxLineStyleGetLineWidth(const HxLineStyle* style, int number) {
    return style && IsWidth(number) ? Of(style)->widths[static_cast<std::size_t>(number) - 1] : 0.0;
}

void HxLineStyleSetLineWidth(HxLineStyle* style, int number, double width) {
    if (style && IsWidth(number)) Changing([&] { Of(style)->widths[static_cast<std::size_t>(number) - 1] = width; });
}

double HxLineStyleGetLineWeightPitch(const HxLineStyle* style) { return style ? Of(style)->weightPitch : 0.0; }

int HxLineStyleIsLineWeightEnabled(const HxLineStyle* style) { return Is(style, &LineStyle::weightEnabled); }
void HxLineStyleEnableLineWeight(HxLineStyle* style, bool on) { Switch(style, &LineStyle::weightEnabled, on); }

int HxLineStyleIsRealLineWeight(const HxLineStyle* style) { return Is(style, &LineStyle::realWeight); }
void HxLineStyleRealLineWeight(HxLineStyle* style, bool on) { Switch(style, &LineStyle::realWeight, on); }

int HxLineStyleIsScaledLineFont(const HxLineStyle* style) { return Is(style, &LineStyle::scaledFont); }
void HxLineStyleEnableScaledLineFont(HxLineStyle* style, bool on) { Switch(style, &LineStyle::scaledFont, on); }

// ---- Names ----

const char* HxNameListGetName(const HxNameList* list, int number) {
    if (!list) return nullptr;
    const auto found = Of(list)->find(number);
    return found != Of(list)->end() ? found->second.c_str() : nullptr;
}

void HxNameListSetName(HxNameList* list, int number, const char* name) {
    if (list && number >= 1 && number <= kListNames && Fits(name)) Changing([&] { (*Of(list))[number] = name; });
}
