// Classes to layers, or revisions to layers: whichever the table's layerControl says when the dialog opens. And what an
// item in a composite item goes by.
#pragma once

#include "dxfout_tables/DxfOutLayerEditor.h"
#include "ui/RadioGroup.h"

class KrDxfOutTbl_CLayer final : public DxfOutLayerEditor {
  public:
    KrDxfOutTbl_CLayer();

  private:
    void Load() override;

    kiro::ui::RadioGroup items_;
};
