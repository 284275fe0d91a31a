// The drawings that are to be read.
#pragma once

#include "entry/host/TARNAINFO.h"
#include "ui/HostDialog.h"

class KrPlInDraw1 final : public kiro::ui::HostDialog {
  public:
    explicit KrPlInDraw1(TARNAINFO* info);

  private:
    void OnInit() override;

    TarnaDatabaseView& info_;
};
