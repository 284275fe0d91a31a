#include "ui/Medium.h"

#include <utility>

namespace kiro::ui {

Medium::Medium(Dialog& dialog, KrUtility& utility, int diskRadio, int floppyRadio, const char* key,
               std::function<void()> changed)
    : radios_(dialog, {diskRadio, floppyRadio}), key_(key) {
    radios_.OnChosen([this, &utility, changed = std::move(changed)](int) {
        IsFloppy() ? utility.SetFloppy(key_) : utility.SetKeyword(key_);
        if (changed) changed();
    });
}

}  // namespace kiro::ui
