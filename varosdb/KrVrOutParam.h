// The parameters of drawings that are written for Varos.
#pragma once

#include "entry/host/TARNAINFO.h"
#include "ui/HostDialog.h"

class KrVrOutParam final : public kiro::ui::HostDialog {
  public:
    explicit KrVrOutParam(TARNAINFO* info);

  private:
    void OnInit() override;

    TarnaDatabaseView& info_;
};
