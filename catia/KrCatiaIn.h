// The import of CATIA models: the file, whether the model is replaced or added to, the picture, and what becomes of
// hidden items.
#pragma once

#include "entry/host/TARNAINFO.h"
#include "ui/FileNameField.h"
#include "ui/HostDialog.h"
#include "ui/RadioGroup.h"

class KrCatiaIn final : public kiro::ui::HostDialog {
  public:
    explicit KrCatiaIn(CATIAINFO* info);

  private:
    void OnInit() override;
    void OnOk() override;

    kiro::ui::ComboBox Picture() const;

    CATIAINFO& info_;
    kiro::ui::FileNameField file_;
    kiro::ui::RadioGroup mode_;
    kiro::ui::RadioGroup hidden_;
};
