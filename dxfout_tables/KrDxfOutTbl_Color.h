// Colours to the colours of a drawing.
#pragma once

#include "dxfout_tables/DxfOutLayerEditor.h"

class KrDxfOutTbl_Color final : public DxfOutLayerEditor {
  public:
    KrDxfOutTbl_Color();
};
