// The grid editor of a list with one number a row. An editor of this kind is data.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "ui/GridEditor.h"

namespace kiro::ui {

// What a number may be: from low to high, with a message that has %d for the row and %s for the text where it has them;
// or what a check of the host's grid accepts, which shows its message itself.
struct NumberRule {
    int low = 0;
    int high = 0;
    const char* message = "";
    RowCheck::HostCheck byHost = nullptr;
};

class NumberEditor : public GridEditor<GridRow<3>> {
  public:
    // The last column holds the numbers, the first that of the row, and one between them, where there is one, the
    // labels. A number below the rule's lowest is shown as that. The numbers change when the dialog is confirmed.
    NumberEditor(const GridForm& form, const NumberRule& rule, std::span<std::int32_t> numbers,
                 const std::vector<std::string>& labels = {});

  private:
    void CheckRow(const RowCheck& check) override;
    void Store() override;

    NumberRule rule_;
    std::span<std::int32_t> numbers_;
    int column_;
};

}  // namespace kiro::ui
