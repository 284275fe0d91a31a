// The drawings that are to be read, and the models that they become.
#pragma once

#include "entry/host/TARNAINFO.h"
#include "ui/HostDialog.h"

class KrPlInDraw2 final : public kiro::ui::HostDialog {
  public:
    explicit KrPlInDraw2(TARNAINFO* info);

  private:
    void OnInit() override;

    TarnaDatabaseView& info_;
};
