// Many files in one command: one for each drawing page or one for each picture, on which medium.
#pragma once

#include "entry/host/TARNAINFO.h"
#include "ui/HostDialog.h"
#include "ui/RadioGroup.h"

class KrDxfOutAll final : public kiro::ui::HostDialog {
  public:
    KrDxfOutAll();

    // Before it is shown. The record's mediaKind follows the choice at once; its layer table is a name in Shift-JIS.
    void SetInfo(TARNAINFO* info);

  private:
    void OnInit() override;
    void OnOk() override {}  // its button is there and cannot be pressed

    void OpenPictures();
    void OpenPages();
    template <class List>
    void Open();

    TARNAINFO* record_ = nullptr;
    kiro::ui::RadioGroup medium_;
};
