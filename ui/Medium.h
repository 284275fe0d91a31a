// "ディスク" and "フロッピー": the medium of a file, and with it the file type under which it is looked for.
#pragma once

#include <functional>

#include "entry/host/KrUtility.h"
#include "ui/RadioGroup.h"

namespace kiro::ui {

class Medium {
  public:
    // key: of the file type on the disk, such as "#DXF#". changed runs after the user's choice. Make it before the
    // dialog is shown.
    Medium(Dialog& dialog, KrUtility& utility, int diskRadio, int floppyRadio, const char* key,
           std::function<void()> changed);

    void Init() { radios_.Select(0); }  // the disk
    bool IsFloppy() const { return radios_.Selected() == 1; }
    const char* Key() const { return IsFloppy() ? "#FLOPPY_WIN#" : key_; }

  private:
    RadioGroup radios_;
    const char* key_;
};

}  // namespace kiro::ui
