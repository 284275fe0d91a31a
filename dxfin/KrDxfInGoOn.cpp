#include "dxfin/KrDxfInGoOn.h"

#include "resources/dxfin/KrDxfInList.ids.h"
#include "ui/MessageBoxes.h"

KrDxfInGoOn::KrDxfInGoOn(std::string caption, std::string reason)
    : Dialog(kDxfInGoOnDialog), caption_(std::move(caption)), reason_(std::move(reason)) {}

void KrDxfInGoOn::OnInit() {
    kiro::ui::DefaultBeep();
    kiro::ui::Window(Handle()).SetText(caption_);
    Item<kiro::ui::Window>(kGoOnText).SetText(reason_ + "\n\n処理を続行しますか。");
    const auto icon = reinterpret_cast<WPARAM>(LoadIconW(nullptr, IDI_WARNING));
    SendDlgItemMessageW(Handle(), kGoOnIcon, STM_SETICON, icon, 0);
    // As in a message box; the system itself would choose the check box, when this has returned.
    StartAt(IDOK);
}

void KrDxfInGoOn::OnOk() {
    forAll_ = Item<kiro::ui::Button>(kGoOnForAllCheck).IsChecked();
    End(IDOK);
}
