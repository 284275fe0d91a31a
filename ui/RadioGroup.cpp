#include "ui/RadioGroup.h"

#include <algorithm>
#include <utility>

namespace kiro::ui {

void RadioGroup::OnChosen(std::function<void(int)> chosen) {
    for (std::size_t i = 0; i < controlIds_.size(); ++i) {
        dialog_.Bind(controlIds_[i], BN_CLICKED, [this, index = static_cast<int>(i), chosen] {
            Select(index);
            if (chosen) chosen(index);
        });
    }
}

void RadioGroup::Select(int index) const {
    for (std::size_t i = 0; i < controlIds_.size(); ++i) {
        dialog_.Item<Button>(controlIds_[i]).SetCheck(static_cast<int>(i) == index);
    }
}

int RadioGroup::Selected() const {
    const auto checked = [this](int id) { return dialog_.Item<Button>(id).IsChecked(); };
    const auto found = std::find_if(controlIds_.begin(), controlIds_.end(), checked);
    return found == controlIds_.end() ? -1 : static_cast<int>(found - controlIds_.begin());
}

void RadioGroup::Enable(bool on) const {
    for (const int id : controlIds_) dialog_.Item<Window>(id).Enable(on);
}

}  // namespace kiro::ui
