#include "Model.h"

namespace {

template <class Things>
auto* At(const Things& things, int number) {
    const bool known = number >= 1 && static_cast<std::size_t>(number) <= things.size();
    const auto index = static_cast<std::size_t>(number) - 1;
    return known && things[index] ? &*things[index] : nullptr;
}

}  // namespace

const Picture* ModelFacts::PictureAt(int number) const { return At(pictures, number); }

const Layout* ModelFacts::LayoutAt(int number) const { return At(layouts, number); }

Model& ActiveModel() {
    static Model model;
    return model;
}

Model EmptyModel() {
    const Model& active = ActiveModel();
    Model model;
    model.maxItemCount = active.maxItemCount;
    model.maxSplitCount = active.maxSplitCount;
    model.checkBeforeExport = active.checkBeforeExport;
    model.messages = active.messages;
    return model;
}
