#include "peliondb/NameChooser.h"

#include "resources/peliondb/KrPlInDrive.ids.h"
#include "ui/MessageBoxes.h"

NameChooser::NameChooser(int templateId, TARNAINFO* info)
    : HostDialog(templateId), info_(info), goOnButton_(info->database.plSelectSettingMode ? kPlSetButton : IDOK) {
    Bind(kPlSetButton, BN_CLICKED, [this] { OnOk(); });
}

void NameChooser::InitChoice() {
    for (const int id : {IDOK, kPlSetButton}) Item<kiro::ui::Button>(id).Show(id == goOnButton_);
    SendMessageW(Handle(), DM_SETDEFID, static_cast<WPARAM>(goOnButton_), 0);
    ShowChoice();
    if (const Level* missing = FirstMissing()) StartAt(GetDlgCtrlID(missing->list->Window()));
}

const NameChooser::Level* NameChooser::FirstMissing() const {
    for (const Level& level : levels_) {
        if (!level.list->HasChoice()) return &level;
    }
    return nullptr;
}

void NameChooser::ShowChoice() {
    const Level* missing = FirstMissing();
    Item<kiro::ui::Button>(goOnButton_).Enable(!missing);
    if (missing && !missing->none.empty() && missing->list->IsEmpty())
        return Utility().ErrorText(missing->none.c_str());
    Utility().MessageText(missing ? missing->prompt.c_str() : "");
}

void NameChooser::OnOk() {
    const Level* missing = FirstMissing();
    if (missing) {
        SetFocus(missing->list->Window());
        kiro::ui::DefaultBeep();
        return Utility().ErrorText(missing->missing);
    }
    Store();
    End(IDOK);
}
