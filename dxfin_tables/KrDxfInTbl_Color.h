// Colours to revisions, or colours to classes: whichever the layers are not converted to.
#pragma once

#include "dxfin_tables/DxfInLayerTable.h"
#include "ui/NumberEditor.h"

class KrDxfInTbl_Color final : public kiro::ui::NumberEditor {
  public:
    explicit KrDxfInTbl_Color(DxfInLayerTable& table);  // changed when the dialog is confirmed
};
