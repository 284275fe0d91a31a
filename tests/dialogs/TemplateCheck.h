// Judges dialog templates as they lie in a module: is there room for every caption on the operators' systems, does
// nothing overlap, does the Tab key follow the eye?
#pragma once

#include <windows.h>

#include <string>
#include <vector>

struct TemplateControl {
    DWORD style = 0;
    RECT rect{};  // dialog units; a combo as it is while closed
    int id = 0;
    std::wstring className;
    std::wstring text;

    bool IsVisible() const { return (style & WS_VISIBLE) != 0; }
    bool IsTabStop() const { return IsVisible() && (style & WS_TABSTOP) != 0; }
    bool Is(const wchar_t* name) const { return className == name; }
    bool IsButton(DWORD type) const { return Is(L"Button") && (style & BS_TYPEMASK) == type; }
    bool IsGroupBox() const { return IsButton(BS_GROUPBOX); }
    bool IsMark() const;  // a radio button or check box
    bool IsPush() const { return IsButton(BS_PUSHBUTTON) || IsButton(BS_DEFPUSHBUTTON); }
};

struct DialogTemplate {
    int id = 0;
    DWORD style = 0;
    int width = 0;
    int height = 0;
    std::wstring title;
    std::wstring font;
    int points = 0;
    int charset = 0;
    std::vector<TemplateControl> controls;

    bool HasCaption() const { return (style & WS_CAPTION) == WS_CAPTION; }
};

std::vector<DialogTemplate> ReadTemplates(HMODULE module);

// Dialog units that a text takes in "MS UI Gothic" 9 points: 8 for a full-width character, 4 for a half-width one.
int TextWidth(const std::wstring& text);

// What is wrong, a line each, such as "4000/4005: outside the dialog". The words before the colon are dialog and
// control.
std::vector<std::string> CheckTemplate(const DialogTemplate& dialog);
