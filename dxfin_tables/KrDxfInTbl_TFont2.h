// What the factors of a text style mean, with a figure.
#pragma once

#include "resources/dxfin_tables/KrDxfInTbl_TFont2.ids.h"
#include "ui/Dialog.h"

class KrDxfInTbl_TFont2 final : public kiro::ui::Dialog {
  public:
    KrDxfInTbl_TFont2();

  private:
    static void DrawFigure(const DRAWITEMSTRUCT& request);
};
