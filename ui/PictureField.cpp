#include "ui/PictureField.h"

#include <charconv>
#include <utility>

namespace kiro::ui {

PictureField::PictureField(Dialog& dialog, int editId, int comboId, int lowest, int highest,
                           std::function<void(std::optional<int>)> changed, WideningCombo::Wide wide)
    : dialog_(dialog),
      editId_(editId),
      lowest_(lowest),
      highest_(highest),
      changed_(std::move(changed)),
      list_(
          dialog, comboId, editId, [this](int index) { Chosen(index); }, wide) {
    dialog.Bind(editId, EN_CHANGE, [this] { Typed(); });
}

void PictureField::Init(int number) {
    if (list_.Combo().GetCount() == 0) {
        for (int entry = lowest_; entry <= highest_; ++entry) {
            if (entry != 0) list_.Combo().AddString(std::to_string(entry));
        }
    }
    Show(number);
    Take(number);
}

// The edit tells of the change, and the rest follows from there.
void PictureField::Show(int number) { dialog_.Item<Edit>(editId_).SetText(std::to_string(number)); }

int PictureField::NumberAt(int index) const {
    const int number = lowest_ + index;
    return lowest_ < 0 && number >= 0 ? number + 1 : number;
}

int PictureField::IndexOf(int number) const { return number - lowest_ - (lowest_ < 0 && number > 0 ? 1 : 0); }

std::optional<int> PictureField::Listed(const std::string& text) const {
    int number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    const bool listed = number != 0 && number >= lowest_ && number <= highest_;
    return listed && std::to_string(number) == text ? std::optional(number) : std::nullopt;
}

void PictureField::Take(int number) {
    number_ = number;
    list_.Combo().SetCurSel(IndexOf(number));
}

void PictureField::Typed() {
    const auto number = Listed(dialog_.Item<Edit>(editId_).Text().value_or(std::string()));
    if (number) Take(*number);
    changed_(number);
}

void PictureField::Chosen(int index) {
    Show(NumberAt(index));
    dialog_.FocusTo(editId_);
}

}  // namespace kiro::ui
