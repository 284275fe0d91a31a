// The file-name field of the commands: an edit with a grey placeholder, the combo of the recently used files beside it
// and the button that opens the chooser. The name that counts is kept apart from the text that shows: while no name has
// been entered the edit shows the placeholder and the name is the pattern "*".
#pragma once

#include <functional>
#include <string>

#include "entry/host/KrUtility.h"
#include "ui/Dialog.h"
#include "ui/WideningCombo.h"

namespace kiro::ui {

class FileNameField {
  public:
    struct Controls {
        int edit;
        int recentCombo;
        int browseButton;
    };
    // What the chooser needs to know at the moment when it opens. key: as for KrUtility::SetKeyword.
    struct Chooser {
        const char* key;
        bool floppy;
        const char* comment;
        int mode;  // kKrChooseExisting or kKrChooseNew
    };

    // chooser is asked whenever the chooser opens. nameSet runs whenever a name has been set, cleared when the
    // placeholder came back. Make it before the dialog is shown.
    FileNameField(Dialog& dialog, KrUtility& utility, const Controls& controls, std::function<Chooser()> chooser,
                  std::function<void()> nameSet, std::function<void()> cleared);

    void Init(const char* recentKey);  // when the dialog is initialised
    void Clear();                      // back to the placeholder and "*"

    const std::string& Name() const { return name_; }
    bool IsPattern() const { return name_.find_first_of("*?") != std::string::npos; }
    // The name as it is when the edit has lost the focus; call it when the dialog is confirmed, which the Enter key
    // does without moving the focus.
    void Normalise();
    // False after a refusal of a character that code page 932 cannot hold.
    bool Readable(const std::string& caption);

    void Browse();  // opens the chooser with the name as its pattern

    // The recently used files.
    void LoadRecent(const char* key);
    void ClearRecent(const char* key);
    void Remember(const char* key);  // the name moves to the top and the list is saved
    void Forget();                   // the name is taken off the list, which is saved with the next Remember

  private:
    void OnFocus(bool gained);
    void OnChange();
    void OnRecentChosen(int index);
    void SetName(const std::string& name);
    void Show(const std::string& text);
    Edit NameEdit() const { return dialog_.Item<Edit>(controls_.edit); }
    HWND RecentHandle() const { return recent_.Combo().Handle(); }

    Dialog& dialog_;
    KrUtility& utility_;
    Controls controls_;
    std::function<Chooser()> chooser_;
    std::function<void()> nameSet_;
    std::function<void()> cleared_;
    WideningCombo recent_;
    KrTextList recentNames_;
    int recentMax_ = 0;
    std::string name_ = "*";
    bool entered_ = false;
};

}  // namespace kiro::ui
