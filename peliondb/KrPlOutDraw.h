// The models that are to be written, and the drawings that they become.
#pragma once

#include "peliondb/DrawingList.h"

class KrPlOutDraw final : public NamedDrawingList {
  public:
    explicit KrPlOutDraw(TARNAINFO* info);

  private:
    void OnInit() override;
    void MarksChanged() override;
    void Show(const TarnaDrawing& drawing, Row& row) const override;
    void Store(TarnaDrawing& drawing, const Row& row, bool marked) const override;
    bool IsChecked(int row) const override { return IsMarked(row); }
    bool HasValidCharacters(const std::string& name) const override;

    void MarkAll(bool on);
};
