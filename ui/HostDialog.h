// A dialog with the host's utility object: the guidance line, the checks and the choosers.
#pragma once

#include <new>
#include <string>
#include <vector>

#include "entry/host/KrUtility.h"
#include "ui/Dialog.h"
#include "ui/MessageBoxes.h"

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

    // "設定内容に誤りがあります。": the guidance line tells what is wrong, while the box is open and afterwards, and
    // the focus is at the control. marked: the line has it as an error.
    void RefuseInGuidance(int controlId, const char* text, const char* caption, Icon icon, bool marked) {
        FocusTo(controlId);
        // The box takes the focus and gives it back: without this the control's own guidance would replace the text.
        const Loading quiet(*this);
        marked ? utility_->ErrorText(text) : utility_->MessageText(text);
        Tell(Handle(), "設定内容に誤りがあります。", caption, icon);
    }

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
