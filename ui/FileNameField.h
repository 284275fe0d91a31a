// The file-name field of the commands: an edit with a grey placeholder, the combo of the recently used files beside it
// and the button that opens the chooser. The name that counts is kept apart from the text that shows: while no name has
// been entered the edit shows the placeholder, and the name is what the dialog says it is then.
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
        WideningCombo::Wide wide = WideningCombo::Wide::kWithFocus;
        bool anyIsNone = false;  // the edit is also left empty with "*" alone, whatever the empty name is
    };
    // Where the file is looked for, asked whenever that is needed. The keys are those of KrUtility::SetKeyword.
    struct Place {
        const char* key;         // of the name and of the recently used files
        const char* chooserKey;  // of the chooser, which may look elsewhere
        bool floppy;             // the chooser looks at that medium
        const char* comment;     // what the chooser calls such files
        int mode;                // kKrChooseExisting: a file to read; kKrChooseNew: one to write
    };
    // What the name is while none has been entered, and again when the edit is left empty, with just that or with the
    // placeholder.
    static constexpr char kAnyName[] = "*";
    static constexpr char kNoName[] = "";

    // nameSet runs whenever a name has been set, cleared when the placeholder came back. Make it before the dialog is
    // shown.
    FileNameField(Dialog& dialog, KrUtility& utility, const Controls& controls, std::function<Place()> place,
                  const char* emptyName = kAnyName, std::function<void()> nameSet = nullptr,
                  std::function<void()> cleared = nullptr);

    void Init();   // when the dialog is initialised
    void Clear();  // back to the placeholder
    void Enable(bool on) const;

    const std::string& Name() const { return name_; }
    bool HasName() const;
    bool IsPattern() const { return name_.find_first_of("*?") != std::string::npos; }
    std::string InternalPath() const;  // of the name; "" when it has none

    bool Browse();  // opens the chooser with the name as its pattern; true when a file was chosen

    // What is entered becomes the name, as when the edit loses the focus: the Enter key confirms a dialog without that.
    // False: the user has been told of a character that code page 932 cannot hold.
    bool Take(const std::string& caption);

    // The name is one that can be read or written, as the place's mode says. Otherwise the user has been told, and the
    // focus is in the field. A pattern opens the chooser; what is chosen there is to be confirmed once more, or counts
    // at once. A name that cannot be read is taken off the recently used ones.
    enum class Pattern { kStays, kGoesOn };
    enum class NameCheck { kNone, kByHost };
    bool Confirm(const std::string& caption, Pattern pattern = Pattern::kStays, NameCheck check = NameCheck::kByHost);

    // The recently used files of the place.
    void LoadRecent();
    void ClearRecent();
    void Remember();  // the name, if it is one of a file, moves to the top; the list is saved

  private:
    void OnFocus(bool gained);
    void OnChange();
    void OnRecentChosen(int index);
    void Normalise();
    bool Refuse();  // false, with the focus in the field
    bool Answers(const Place& place, const std::string& caption) const;
    bool Access(const Place& place);
    void SetName(const std::string& name);
    void Show(const std::string& text);
    Edit NameEdit() const { return dialog_.Item<Edit>(controls_.edit); }
    HWND RecentHandle() const { return recent_.Combo().Handle(); }

    Dialog& dialog_;
    KrUtility& utility_;
    Controls controls_;
    std::function<Place()> place_;
    const char* emptyName_;
    std::function<void()> nameSet_;
    std::function<void()> cleared_;
    WideningCombo recent_;
    KrTextList recentNames_;
    int recentMax_ = 0;
    std::string name_;
    bool entered_ = false;
};

}  // namespace kiro::ui
