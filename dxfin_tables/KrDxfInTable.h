// Opens the editors of the import conversion tables.
#pragma once

#include "ui/HostDialog.h"

class KrDxfInTable final : public kiro::ui::HostDialog {
  public:
    KrDxfInTable();

  private:
    void OnInit() override { Utility().SetParentWindow(Handle()); }
};
