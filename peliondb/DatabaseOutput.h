// What the dialogs have in common that write drawings for a database. A dialog states its controls and words as a
// DatabaseOutputForm and adds what is its own.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "entry/host/TARNAINFO.h"
#include "ui/FileNameField.h"
#include "ui/HostDialog.h"
#include "ui/RadioGroup.h"

struct DatabaseOutputForm {
    int dialog;
    const char* fileKey;
    const char* fileComment;
    kiro::ui::FileNameField::Controls file;
    const char* fileGuidance;
    int newRadio;
    int addRadio;
    int currentModelRadio;
    int byNameRadio;
    int patternEdit;
    int modelsButton;
    int groupEdit;
    int userEdit;
    int drawingEdit;
    int pageRadio;
    int pageCombo;
    int currentRadio;
    int currentEdit;
    int currentItemsEdit;
    int pictureRadio;
    int pictureCombo;
    int activeRadio;
    int activeItemsEdit;
    int parametersButton;
    bool refusesEmptyPicture;  // when the current picture is to be written
};

class DatabaseOutput : public kiro::ui::HostDialog {
  protected:
    // title: that of the dialog, of its boxes and of its chooser.
    DatabaseOutput(const DatabaseOutputForm& form, const char* title, TARNAINFO* info);

    void OnInit() override;
    void OnOk() final;

    // ---- What a dialog adds ----

    // Whether the drawings go into the file that is named.
    virtual bool IsToFile() const { return true; }
    // Before the group. False: the user has been told.
    virtual bool CheckOwn() { return true; }
    virtual void StoreOwn() {}
    // The host's: 0: the drawings can be written; 1: there is one of such a name; any other: not into that file.
    virtual int CheckDrawingName() = 0;
    virtual std::string WrongFileText() const = 0;
    // Of drawings that are there. True: they are written over.
    virtual bool Overwrites();
    virtual void OpenParameters() = 0;

    // With the focus in the field; false.
    bool Refuse(int controlId, const char* message);
    // A text that is there, and has room in the field. Otherwise the user is told.
    struct TextWords {
        const char* missing;
        const char* tooLong;
    };
    template <std::size_t N>
    bool CheckText(int editId, const char (&)[N], const TextWords& words) {
        return CheckText(editId, N - 1, words);
    }
    template <std::size_t N>
    void StoreText(char (&field)[N], int editId) const {
        StoreText(field, N, editId);
    }
    void SetText(int editId, const std::string& text) const { Item<kiro::ui::Edit>(editId).SetText(text); }
    void InitEdit(int editId, unsigned int characters, const std::string& text) const;
    void EnableAll(std::initializer_list<int> controlIds, bool on) const;
    void TellError(const std::string& message) const;

    TARNAINFO& record_;
    TarnaDatabaseView& info_;
    const char* title_;
    kiro::ui::FileNameField file_;
    kiro::ui::RadioGroup mode_;

  private:
    enum Data { kPage, kCurrent, kPicture, kActive };  // the radio buttons of "出力データ", in their order

    // A list of pages or pictures.
    struct Numbers {
        int combo;
        std::vector<int> ofEntries;
    };

    void BindControls();

    // Handlers, in screen order.
    void ModelChosen(int model);
    void ShowModels();
    void DataChosen(int data);
    void FollowData(int data);

    bool IsByName() const { return model_.Selected() == 1; }
    bool HasData(int data) const;
    int CurrentItems() const;
    void ListExisting();
    void ListExisting(Numbers& numbers, const std::int32_t (&counts)[256], const char (&names)[257][257]) const;
    void ListAll(Numbers& numbers) const;
    int Chosen(const Numbers& numbers) const;

    // The checks of the confirmation. Each tells the user what is wrong.
    bool CheckFile();
    bool CheckModels();
    bool CheckText(int editId, std::size_t bytes, const TextWords& words);
    void StoreText(char* field, std::size_t size, int editId) const;
    void Store();
    bool StoreData();
    bool AcceptsNames();

    const DatabaseOutputForm& form_;
    kiro::ui::RadioGroup model_;
    kiro::ui::RadioGroup data_;
    Numbers pages_;
    Numbers pictures_;
    int currentPicture_;  // as the host gave it
};
