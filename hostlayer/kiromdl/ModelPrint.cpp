#include <nlohmann/json.hpp>

#include "ModelFile.h"
#include "ModelText.h"

namespace {

using Json = nlohmann::ordered_json;  // members in the order of the model

Json Name(const std::string& euc) {
    if (const auto utf8 = Utf8FromEuc(euc)) return *utf8;
    constexpr char kDigits[] = "0123456789ABCDEF";
    std::string hex;
    for (const char c : euc) {
        const auto byte = static_cast<unsigned char>(c);
        hex += {kDigits[byte / 16], kDigits[byte % 16]};
    }
    return {{"hex", hex}};
}

// They were read from UTF-8.
Json Text(const std::string& sjis) { return Utf8FromSjis(sjis).value_or(""); }

Json Print(const Picture& picture, int number) {
    Json json = {{"number", number}, {"scale", picture.scale}, {"itemCount", picture.itemCount}};
    if (picture.writerError) json["writerError"] = picture.writerError;
    for (const Fault& fault : picture.faults)
        json["faults"].push_back({{"item", fault.item}, {"text", Text(fault.text)}});
    return json;
}

Json Print(const Layout& layout, int number) {
    Json json = {{"number", number}, {"name", Name(layout.name)}, {"windows", layout.windows}};
    if (layout.frame)
        json["frame"] = {{"valid", layout.frame->valid},
                         {"kind", layout.frame->kind},
                         {"name", Name(layout.frame->name)},
                         {"width", layout.frame->width},
                         {"height", layout.frame->height}};
    if (layout.writerError) json["writerError"] = layout.writerError;
    return json;
}

Json Print(const LineStyle& style) {
    Json patterns = Json::array();
    for (int number = 1; number <= kLinePatterns; ++number) {
        const LinePattern& pattern = style.patterns[static_cast<std::size_t>(number) - 1];
        if (pattern.name.empty() && pattern.pitches.empty()) continue;
        patterns.push_back({{"number", number}, {"name", Name(pattern.name)}, {"pitches", pattern.pitches}});
    }
    return {{"patterns", std::move(patterns)},  {"widths", style.widths},
            {"weightPitch", style.weightPitch}, {"weightEnabled", style.weightEnabled},
            {"realWeight", style.realWeight},   {"scaledFont", style.scaledFont}};
}

Json Print(const NameList& names) {
    Json list = Json::array();
    for (const auto& [number, name] : names) list.push_back({{"number", number}, {"name", Name(name)}});
    return list;
}

template <class Things>
Json Numbered(const Things& things) {
    Json list = Json::array();
    int number = 0;
    for (const auto& thing : things) {
        ++number;
        if (thing) list.push_back(Print(*thing, number));
    }
    return list;
}

}  // namespace

std::string PrintModel(const Model& model) {
    Json messages = Json::array();
    for (const auto& [number, text] : model.messages) messages.push_back({{"number", number}, {"text", Text(text)}});
    const Json json = {{"modified", model.modified},
                       {"baseScale", model.baseScale},
                       {"maxItemCount", model.maxItemCount},
                       {"maxSplitCount", model.maxSplitCount},
                       {"currentPicture", model.currentPicture},
                       {"checkBeforeExport", model.checkBeforeExport},
                       {"pictures", Numbered(model.pictures)},
                       {"layouts", Numbered(model.layouts)},
                       {"lineStyle", model.lineStyle ? Print(*model.lineStyle) : Json()},
                       {"classNames", Print(model.classNames)},
                       {"revisionNames", Print(model.revisionNames)},
                       {"draftingScale", model.draftingScale},
                       {"messages", std::move(messages)}};
    return json.dump(2) + "\n";
}
