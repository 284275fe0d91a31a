// The editor of a grid's cell: an edit or a combo box of the system over the cell, so that every input method works.
//
// The windows are made when they are first needed, as children of the list view, and are hidden and shown again from
// then on. They are never destroyed here: an editor is left in the middle of its own messages (it has lost the focus,
// its list was closed), and the system goes on with the window when we are done.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>

#include "KrAccessible.h"
#include "KrCellText.h"
#include "KrGridRows.h"
#include "entry/host/KrUtility.h"

enum class EditorEvent { kEnter, kTab, kBackTab, kUp, kDown, kEscape, kPicked, kFocusLost };

class CellEditorHost {
  public:
    virtual void OnEditor(EditorEvent event) = 0;

  protected:
    ~CellEditorHost() = default;
};

class KrCellEditor {
  public:
    enum class Start { kKeepText, kReplaceText, kDropDown };
    struct Outcome {
        std::optional<std::string> text;     // none: unchanged, or refused
        std::optional<CellTextFault> fault;  // refused
    };

    KrCellEditor(CellEditorHost& host, KrUtility* utility) : host_(host), utility_(utility) {}
    KrCellEditor(const KrCellEditor&) = delete;
    KrCellEditor& operator=(const KrCellEditor&) = delete;
    ~KrCellEditor();

    void SetName(std::wstring name) { name_ = std::move(name); }  // of the next cell, for who does not see it
    // prompts: the message zone is to show what the cell is for.
    bool Open(HWND list, const RECT& cell, const CellEditing& editing, const std::string& text, Start start,
              bool prompts);
    bool IsOpen() const { return open_ != nullptr; }
    void Place(const RECT& cell);  // the cell is somewhere else now
    Outcome Read() const;
    void Refuse(const CellTextFault& fault, bool takeFocus);
    // What is in the editor is forgotten. The focus goes to the list view when the editor has it and it is wanted.
    void Close(bool focusToList);
    void Mute() { utility_ = nullptr; }
    void Focus() const { SetFocus(TextWindow()); }
    // What was meant for the cell and came to the list view, such as a character.
    LRESULT Forward(UINT message, WPARAM wParam, LPARAM lParam) const {
        return SendMessageW(TextWindow(), message, wParam, lParam);
    }

    bool OnCommand(int notification, HWND control);        // the list view's WM_COMMAND; false: not the editor's
    bool DrawChoice(const DRAWITEMSTRUCT& request) const;  // the list view's WM_DRAWITEM
    void OnPicked(WPARAM opening);                         // for kGridPicked

  private:
    enum Kind { kEdit, kCombo, kDropDownList, kColorCombo, kKinds };  // typing, both, choosing, both with colours
    struct Windows {
        HWND window = nullptr;
        HWND text = nullptr;  // takes the keys: a combo's edit, otherwise the window itself
        GridComboPtr filledWith;
    };
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR kind,
                                      DWORD_PTR self);
    std::optional<LRESULT> OnMessage(Kind kind, UINT message, WPARAM wParam, LPARAM lParam);
    bool OnKey(WPARAM key);
    void GiveUpChoosing();
    LRESULT AnswerReader(WPARAM wParam);

    bool Make(Kind kind);
    void Fill(Windows& windows) const;
    void Load(const std::string& text, Start start);
    void PlaceCombo(const RECT& cell) const;
    void PlaceEdit(const RECT& cell) const;
    bool IsDropped() const;
    std::size_t KeptLength() const;
    bool IsFull() const { return KeptLength() >= editing_.limit; }
    void Paste();
    int ChoiceOf(std::wstring_view text) const;  // -1: none

    HWND TextWindow() const { return windows_[kind_].text; }
    bool Typed() const { return kind_ != kDropDownList; }
    std::wstring Text() const;
    void ShowPrompt(const std::string& prompt);
    void ShowFault(const std::string& message);

    CellEditorHost& host_;
    KrUtility* utility_;
    HWND list_ = nullptr;
    Windows windows_[kKinds];
    KrAccessibleOf<KrNamedAccessible> accessible_[kKinds];
    HWND open_ = nullptr;
    Kind kind_ = kEdit;
    CellEditing editing_;
    std::wstring name_;
    std::wstring textBefore_;
    int choiceBefore_ = -1;
    std::wstring textWhenDropped_;  // and the choice, for when the list is given up
    int choiceWhenDropped_ = -1;
    WPARAM opening_ = 0;  // counts, so that a late message is not taken for one of the next cell
    bool dropped_ = false;
    bool edited_ = false;  // something was typed
    bool messageShown_ = false;
    bool faultShown_ = false;
};
