// The parameters of drawings that are written for Pelion.
#pragma once

#include "entry/host/TARNAINFO.h"
#include "ui/HostDialog.h"

class KrPlOutParam final : public kiro::ui::HostDialog {
  public:
    explicit KrPlOutParam(TARNAINFO* info);

  private:
    void OnInit() override;

    TarnaDatabaseView& info_;
};
