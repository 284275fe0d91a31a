// What the dialogs have in common that read drawings of a database. A dialog states its controls and words as a
// DatabaseInputForm and adds what is its own.
#pragma once

#include <string>

#include "entry/host/TARNAINFO.h"
#include "ui/FileNameField.h"
#include "ui/HostDialog.h"
#include "ui/RadioGroup.h"

struct DatabaseInputForm {
    int dialog;
    const char* fileKey;
    const char* fileComment;
    kiro::ui::FileNameField::Controls file;
    int newRadio;
    int addRadio;
    int overlayRadio;
    int viewEdit;
    const char* viewGuidance;
    int pictureCombo;
    int subModelEdit;
    const char* subModelGuidance;
    int errorsRadio;
    int noErrorsRadio;
};

class DatabaseInput : public kiro::ui::HostDialog {
  protected:
    // title: that of the dialog, of its boxes and of its chooser.
    DatabaseInput(const DatabaseInputForm& form, const char* title, TARNAINFO* info);

    void OnInit() override;
    void OnOk() final;

    // ---- What a dialog adds ----

    // Checks of its own, between the view and the submodel. False: the user has been told.
    virtual bool CheckOwn() { return true; }
    // What the record has of them: at once, and when the file has been found good.
    virtual void StoreOwnChoices() {}
    virtual void StoreOwnTexts() {}
    virtual std::string SubModelForRecord(const std::string& sjis) const = 0;
    virtual std::string FileForRecord() const = 0;
    // Whether the drawings are in the file that is named.
    virtual bool IsFromFile() const { return true; }
    // Asks where they are when they are not. False: the user has gone back.
    virtual bool ChoosePlace() { return true; }
    // The host's: below 0: there are none; above: each becomes a model, whose name can be edited.
    virtual int ListDrawings() = 0;
    virtual void TakeDrawings() = 0;

    // With the focus in the field; false.
    bool Refuse(int editId, const char* message);

    TARNAINFO& record_;
    TarnaDatabaseView& info_;
    const char* title_;
    kiro::ui::FileNameField file_;

  private:
    bool CheckView();
    bool CheckSubModel();
    bool CheckFileName();
    void StoreChoices();
    void StoreTexts();
    bool AgreesToLoseModel();
    bool ChooseDrawings();

    const DatabaseInputForm& form_;
    kiro::ui::RadioGroup mode_;
    kiro::ui::RadioGroup errors_;
    std::string view_;      // as they
    std::string subModel_;  // were checked
};
