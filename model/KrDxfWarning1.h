// The warning before a conversion without the table of the fonts' widths. "中断" and whatever else closes it stop the
// conversion.
#pragma once

#include "resources/model/KrDxfWarning1.ids.h"
#include "ui/Dialog.h"

class KrDxfWarning1 final : public kiro::ui::Dialog {
  public:
    KrDxfWarning1() : Dialog(kDxfWarning1Dialog) {}
};
