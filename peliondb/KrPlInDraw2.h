// The drawings that are to be read, and the models that they become.
#pragma once

#include "peliondb/DrawingList.h"

class KrPlInDraw2 final : public NamedDrawingList {
  public:
    explicit KrPlInDraw2(TARNAINFO* info);

  private:
    void Show(const TarnaDrawing& drawing, Row& row) const override;
    void Store(TarnaDrawing& drawing, const Row& row, bool marked) const override;
    bool IsChecked(int row) const override;
    bool HasValidCharacters(const std::string& name) const override;
};
