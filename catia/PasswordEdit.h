// The password edit of a dialog template. The system's edit leaves copies of its text behind: in its undo buffer, and
// in the heap whenever its buffer grows. So it is given a mask for every character and never sees one; the characters
// are kept here. Caret, selection, scrolling, the menu and the hint for the Caps Lock key stay the system's.
//
// Who asks the edit for its text gets the mask. Copying it is refused.
#pragma once

#include <windows.h>

#include <optional>
#include <string_view>

#include "catia/SecretText.h"
#include "ui/Subclass.h"

class PasswordEdit {
  public:
    static constexpr std::size_t kLimit = SecretText::kCapacity;  // UTF-16 units

    void Attach(HWND edit);
    std::wstring_view Text() const { return text_.View(); }  // until the next change

  private:
    struct Range {
        std::size_t start;
        std::size_t count;
    };

    std::optional<LRESULT> Handle(UINT message, WPARAM wParam, LPARAM lParam);
    std::optional<LRESULT> Character(WPARAM character, LPARAM lParam);
    std::optional<LRESULT> KeyDown(WPARAM key, LPARAM lParam);

    void TypeUnit(wchar_t unit, LPARAM lParam = 1);
    void TypeCodePoint(char32_t character);
    void Insert(const wchar_t* text, std::size_t most);
    void SetText(const wchar_t* text);
    void Paste();
    LRESULT Delete(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT Undo();
    static LRESULT Refuse();

    Range Selection() const;
    std::size_t ShownLength() const;
    void Inserted(Range replaced, const wchar_t* text, std::size_t most);

    SecretText text_;
    kiro::ui::Subclass subclass_;
    HWND edit_ = nullptr;
};
