// The models that are to be written, and the drawings that they become.
#pragma once

#include "entry/host/TARNAINFO.h"
#include "ui/HostDialog.h"

class KrPlOutDraw final : public kiro::ui::HostDialog {
  public:
    explicit KrPlOutDraw(TARNAINFO* info);

  private:
    void OnInit() override;

    TarnaDatabaseView& info_;
};
