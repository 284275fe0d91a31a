// Colours to line weights.
#pragma once

#include "dxfin_tables/DxfInLineTable.h"
#include "ui/NumberEditor.h"

class KrDxfInTbl_CWidth final : public kiro::ui::NumberEditor {
  public:
    explicit KrDxfInTbl_CWidth(DxfInLineTable& table);  // changed when the dialog is confirmed
};
