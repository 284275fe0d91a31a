// What the values of a text style mean, with a figure.
#pragma once

#include "resources/dxfout_tables/KrDxfOutTbl_TFont2.ids.h"
#include "ui/Dialog.h"

class KrDxfOutTbl_TFont2 final : public kiro::ui::Dialog {
  public:
    KrDxfOutTbl_TFont2() : Dialog(kDxfOutTextFontHelpDialog) {}
};
