// Opens the editors of the export conversion tables.
#pragma once

#include "entry/host/TARNAINFO.h"
#include "ui/HostDialog.h"

class KrDxfOutTable final : public kiro::ui::HostDialog {
  public:
    KrDxfOutTable();

    void SetInfo(const TARNAINFO* info) { info_ = info; }  // before the dialog is shown; for the text fonts

  private:
    void OnInit() override { Utility().SetParentWindow(Handle()); }

    const TARNAINFO* info_ = nullptr;
};
