// The drawings that are to be read.
#pragma once

#include "peliondb/DrawingList.h"

class KrPlInDraw1 final : public DrawingList {
  public:
    explicit KrPlInDraw1(TARNAINFO* info);

  private:
    void OnInit() override;
    void Show(const TarnaDrawing& drawing, Row& row) const override;
};
