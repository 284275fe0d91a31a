// Pictures to layers.
#pragma once

#include "dxfout_tables/DxfOutLayerEditor.h"

class KrDxfOutTbl_PLayer final : public DxfOutLayerEditor {
  public:
    KrDxfOutTbl_PLayer();
};
