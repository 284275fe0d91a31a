// The line widths that DXF knows, to line weights.
#pragma once

#include "dxfin_tables/DxfInLineTable.h"
#include "ui/NumberEditor.h"

class KrDxfInTbl_LWidth final : public kiro::ui::NumberEditor {
  public:
    explicit KrDxfInTbl_LWidth(DxfInLineTable& table);  // changed when the dialog is confirmed
};
