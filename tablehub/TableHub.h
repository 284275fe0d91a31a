// The dialog that owns a table file: reads it, opens the editors of its lists, and writes it when the user agrees. A
// table that could not be written stays open, so that nothing is lost.
#pragma once

#include "ui/HostDialog.h"

class TableHub : public kiro::ui::HostDialog {
  protected:
    struct Questions {
        const char* caption;
        const char* onSave;    // asked by "保存", whether anything has changed or not
        const char* onCancel;  // asked by "取消" after changes; null: they are given up without a word
    };
    TableHub(int templateId, const Questions& questions) : HostDialog(templateId), questions_(questions) {}

    virtual void Read() = 0;   // when the dialog is initialised; the utility has its window
    virtual void Show() = 0;   // what was read
    virtual bool Write() = 0;  // false when the user does not want to, or was told that it cannot be done

    void Changed() { changed_ = true; }
    // A button that opens an editor, which is made by open(): the dialog to run.
    template <class Open>
    void Edit(int buttonId, Open open) {
        Bind(buttonId, BN_CLICKED, [this, open] {
            if (open().DoModal(Handle()) == IDOK) Changed();
        });
    }

  private:
    void OnInit() override;
    void OnOk() override;
    void OnCancel() override;
    void Close(const char* question, INT_PTR result);

    Questions questions_;
    bool changed_ = false;
};
