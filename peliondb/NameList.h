// A list of names of which one is chosen: the current row.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "ui/Grid.h"

class NameList {
  public:
    // chosen runs when the user has chosen a name, also when it is the one that was chosen before. Make it before the
    // dialog is shown.
    NameList(kiro::ui::HostDialog& dialog, int listId, kiro::ui::GridColumns column, std::function<void()> chosen);

    // When the dialog is initialised; parent: the list whose current row these names belong to, or null.
    void Init(int limit, const std::vector<std::string>& names, const NameList* parent = nullptr);
    void Fill(const std::vector<std::string>& names);  // with others; none is chosen then

    bool IsEmpty() const { return rows_.Count() == 0; }
    bool HasChoice() const { return grid_.CurrentRow() >= 0; }
    std::string Chosen() const;            // "" when none is
    void Choose(const std::string& name);  // without an event; a name that is not there chooses none
    HWND Window() const { return grid_.List(); }

  private:
    struct Row : kiro::ui::GridRow<1> {};

    void SetRows(const std::vector<std::string>& names);
    void ShowAsChoices() const;
    void Moved(int row);

    kiro::ui::GridRows<Row> rows_;
    kiro::ui::Grid grid_;
    std::function<void()> chosen_;
    int row_ = -1;  // of which chosen has heard
};
