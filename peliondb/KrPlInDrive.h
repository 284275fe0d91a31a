// Drive, group and user of a Pelion database on the drives of the computer.
#pragma once

#include "entry/host/TARNAINFO.h"
#include "ui/HostDialog.h"

class KrPlInDrive final : public kiro::ui::HostDialog {
  public:
    explicit KrPlInDrive(TARNAINFO* info);

  private:
    void OnInit() override;

    TarnaDatabaseView& info_;
};
