// Group and user of a Pelion floppy.
#pragma once

#include "entry/host/TARNAINFO.h"
#include "ui/HostDialog.h"

class KrPlInDrive1 final : public kiro::ui::HostDialog {
  public:
    explicit KrPlInDrive1(TARNAINFO* info);

  private:
    void OnInit() override;

    TarnaDatabaseView& info_;
};
