// The password dialog: names a protected file and collects its password. It does not check the password and keeps none.
#pragma once

#include "catia/PasswordEdit.h"
#include "entry/host/TARNAINFO.h"
#include "ui/HostDialog.h"

class KrDxfPass final : public kiro::ui::HostDialog {
  public:
    explicit KrDxfPass(TARNAINFO* info);

  private:
    void OnInit() override;
    void OnOk() override;
    bool TakePassword();               // into the record
    bool Refuse(const char* message);  // false

    TarnaImportView& info_;
    PasswordEdit password_;
};
