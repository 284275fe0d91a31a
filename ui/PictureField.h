// The number of a picture: an edit, and the list of all numbers beside it.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "ui/WideningCombo.h"

namespace kiro::ui {

class PictureField {
  public:
    // The numbers run from lowest to highest and leave out 0. changed runs when the text of the edit has become another
    // one: with its number when it is just that of an entry ("007" is a number but no entry). Make it before the dialog
    // is shown.
    PictureField(Dialog& dialog, int editId, int comboId, int lowest, int highest,
                 std::function<void(std::optional<int> number)> changed,
                 WideningCombo::Wide wide = WideningCombo::Wide::kWithFocus);

    void Init(int number);  // when it is first needed: fills the list and shows the number
    void Show(int number);
    int Number() const { return number_; }  // of the entry that was chosen or typed last

  private:
    int NumberAt(int index) const;
    int IndexOf(int number) const;
    std::optional<int> Listed(const std::string& text) const;
    void Typed();
    void Chosen(int index);
    void Take(int number);

    Dialog& dialog_;
    int editId_;
    int lowest_;
    int highest_;
    std::function<void(std::optional<int>)> changed_;
    WideningCombo list_;
    int number_ = 0;
};

}  // namespace kiro::ui
