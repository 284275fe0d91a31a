// A dialog with the host's utility object: the guidance line, the checks and the choosers.
#pragma once

#include <new>
#include <string>
#include <vector>

#include "entry/host/KrUtility.h"
#include "ui/Dialog.h"

namespace kiro::ui {

class HostDialog : public Dialog {
  public:
    explicit HostDialog(int templateId) : Dialog(templateId), utility_(KrCreateUtility()) {
        if (!utility_) throw std::bad_alloc();
    }

    KrUtility& Utility() const { return *utility_; }

  protected:
    // First thing of every initialisation.
    void InitUtility() {
        utility_->SetParentWindow(Handle());
        utility_->SetMessageZone();
    }
    void ShowGuidance(const char* text) override { utility_->MessageText(text); }

    // What becomes of an edit's text when it loses the focus. A text that code page 932 cannot hold stays; it is
    // refused when the dialog is confirmed.
    void NormaliseOnKillFocus(int editId) {
        normalised_.push_back(editId);
        BindFocus(editId, [this, editId](bool gained) {
            if (!gained) Normalise(editId);
        });
    }
    // The Enter key confirms a dialog without taking the focus from the edit: call this first when it is confirmed.
    void NormaliseAll() const {
        for (const int editId : normalised_) Normalise(editId);
    }

  private:
    void Normalise(int editId) const {
        const Edit edit = Item<Edit>(editId);
        const auto text = edit.Text();
        if (!text) return;
        const std::string normal = KrEdited(*utility_, *text, &KrUtility::KillFocus);
        if (normal != *text) edit.SetText(normal);
    }

    KrUtilityPtr utility_;
    std::vector<int> normalised_;
};

}  // namespace kiro::ui
