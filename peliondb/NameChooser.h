// What the dialogs that choose groups and users have in common: lists of names, each of which belongs to what was
// chosen in the one before, and the button that goes on when all have a choice.
#pragma once

#include <string>
#include <vector>

#include "entry/host/TARNAINFO.h"
#include "peliondb/NameList.h"
#include "ui/HostDialog.h"

class NameChooser : public kiro::ui::HostDialog {
  protected:
    // A list, and what is said while nothing is chosen in it.
    struct Level {
        NameList* list;
        std::string prompt;
        const char* missing;    // to a user who wants to go on
        std::string none = {};  // an error in place of the prompt, where there is nothing to choose from
    };

    NameChooser(int templateId, TARNAINFO* info);

    void InitChoice();         // when the lists are filled
    void ShowChoice();         // and after every choice
    virtual void Store() = 0;  // what was chosen, in all of them

    TARNAINFO* const info_;
    std::vector<Level> levels_;  // in the order of choosing

  private:
    void OnOk() override;

    const Level* FirstMissing() const;  // null: none

    int goOnButton_;
};
