#include "catalogue/DialogText.h"

#include <commctrl.h>

#include <algorithm>
#include <cwchar>
#include <vector>

#include "RecordJson.h"
#include "driver/Driver.h"

namespace kiro {

using namespace drive;

namespace {

constexpr wchar_t kGuidanceClass[] = L"KiroGuidanceLine";
constexpr int kUnlimited = 30000;  // an edit's limit when it was given none

std::wstring ClassOf(HWND window) {
    wchar_t name[64] = L"";
    GetClassNameW(window, name, 64);
    return name;
}

bool Has(HWND window, DWORD style) { return (static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE)) & style) == style; }

std::vector<HWND> Children(HWND dialog) {
    std::vector<HWND> children;
    for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        if (ClassOf(child) != kGuidanceClass) children.push_back(child);
    return children;
}

// ---- Controls ----

std::string ButtonKind(HWND button) {
    switch (GetWindowLongW(button, GWL_STYLE) & BS_TYPEMASK) {
        case BS_AUTORADIOBUTTON:
        case BS_RADIOBUTTON:
            return "radio";
        case BS_AUTOCHECKBOX:
        case BS_CHECKBOX:
            return "check box";
        case BS_GROUPBOX:
            return "group box";
        default:
            return "button";
    }
}

std::string StaticKind(HWND control) {
    switch (GetWindowLongW(control, GWL_STYLE) & SS_TYPEMASK) {
        case SS_BITMAP:
        case SS_OWNERDRAW:
            return "picture";
        case SS_ETCHEDHORZ:
        case SS_ETCHEDFRAME:
            return "line";
        default:
            return "text";
    }
}

std::string Kind(HWND control) {
    const std::wstring name = ClassOf(control);
    if (name == L"Button") return ButtonKind(control);
    if (name == L"Static") return StaticKind(control);
    if (name == L"Edit") return Has(control, ES_PASSWORD) ? "password" : "edit";
    if (name == L"ComboBox") return Has(control, CBS_DROPDOWNLIST) ? "list" : "list with edit";
    if (name == L"SysListView32") return "grid";
    return Utf8FromWide(name);
}

std::string Entries(HWND dialog, HWND combo) {
    const int id = GetDlgCtrlID(combo);
    const auto items = Items(dialog, id);
    if (items.empty()) return ", no entries";
    const int picked = Picked(dialog, id);
    return ", " + std::to_string(items.size()) + " entries " + Quoted(items.front()) + " to " + Quoted(items.back()) +
           (picked < 0 ? ", none chosen" : ", chosen " + Quoted(items[static_cast<std::size_t>(picked)]));
}

std::string ControlLine(HWND dialog, HWND control) {
    const std::wstring name = ClassOf(control);
    const bool usable = IsWindowVisible(control) && IsWindowEnabled(control);
    std::string line = usable && Has(control, WS_TABSTOP) ? "* " : "  ";
    line += std::to_string(GetDlgCtrlID(control)) + " " + Kind(control);
    const bool hasText =
        name != L"ComboBox" && name != L"SysListView32" && (name != L"Static" || StaticKind(control) == "text");
    if (hasText) line += " " + Quoted(Text(control));
    if (name == L"ComboBox") line += Entries(dialog, control);
    if (name == L"Edit") {
        const LRESULT limit = Send(control, EM_GETLIMITTEXT);
        if (limit < kUnlimited) line += ", at most " + std::to_string(limit);
        if (Has(control, ES_READONLY)) line += ", read-only";
    }
    if (name == L"Button" && Send(control, BM_GETCHECK) == BST_CHECKED) line += ", on";
    if (!IsWindowEnabled(control)) line += ", disabled";
    if (!IsWindowVisible(control)) line += ", hidden";
    return line + "\n";
}

// In dialog units, without the guidance line.
std::string Size(HWND window) {
    RECT client{};
    RECT units{0, 0, 400, 800};
    RECT line{};
    GetClientRect(window, &client);
    MapDialogRect(window, &units);
    if (const HWND guidance = FindWindowExW(window, nullptr, kGuidanceClass, nullptr)) GetClientRect(guidance, &line);
    return std::to_string(MulDiv(client.right, 400, units.right)) + " x " +
           std::to_string(MulDiv(client.bottom - line.bottom, 800, units.bottom)) +
           (line.bottom ? " and a guidance line" : "");
}

bool TakesFocus(HWND control) {
    const std::wstring name = ClassOf(control);
    return IsWindowVisible(control) && IsWindowEnabled(control) && name != L"Static" && Kind(control) != "group box";
}

// What each control says when it gets the focus. A radio button is not to be chosen by that.
std::string GuidanceTexts(HWND dialog) {
    if (!HasGuidance(dialog)) return {};
    std::string lines;
    for (const HWND control : Children(dialog)) {
        if (!TakesFocus(control)) continue;
        if (Kind(control) == "radio") Send(control, BM_SETDONTCLICK, TRUE);
        Send(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
        Sync();
        const std::wstring text = Guidance(dialog);
        if (!text.empty()) lines += "  " + std::to_string(GetDlgCtrlID(control)) + " " + Quoted(text) + "\n";
    }
    return lines.empty() ? lines : "guidance\n" + lines;
}

std::string ExplanationTexts(HWND dialog, const char* name) {
    std::string lines;
    for (const Explanation& explanation : Explanations()) {
        if (std::string_view(explanation.dialog) != name) continue;
        const auto before = Popups(dialog);
        auto now = before;
        MoveMouse(Centre(Control(dialog, explanation.zone)));
        Until("the explanation", [&] { return (now = Popups(dialog)).size() == 1 && now != before; });
        const HWND popup = now.front();
        lines += "explanation at " + std::to_string(explanation.zone) + ", " + Size(popup) + "\n";
        for (const std::wstring& line : Lines(popup)) lines += "  " + Quoted(line) + "\n";
    }
    return lines;
}

std::string WindowText(HWND dialog, const char* name) {
    std::string text = "title " + Quoted(Text(dialog)) + ", " + Size(dialog) + "\n";
    text += "default button " + std::to_string(LOWORD(Send(dialog, DM_GETDEFID))) + ", focus at " +
            std::to_string(FocusId()) + "\n";
    for (const HWND control : Children(dialog)) text += ControlLine(dialog, control);
    text += ExplanationTexts(dialog, name);
    text += GuidanceTexts(dialog);
    for (const HWND control : Children(dialog))
        if (Kind(control) == "grid") text += GridText(dialog, GetDlgCtrlID(control));
    return text;
}

std::string BoxText() {
    const Box box = ReadBox();
    constexpr struct {
        UINT icon;
        const char* name;
    } kIcons[] = {{MB_ICONERROR, "error"},
                  {MB_ICONWARNING, "warning"},
                  {MB_ICONQUESTION, "question"},
                  {MB_ICONINFORMATION, "information"}};
    std::string text = "box " + Quoted(box.caption) + ", " + Quoted(box.text);
    for (const auto& icon : kIcons)
        if (icon.icon == box.icon) text += std::string(", ") + icon.name;
    text += ", buttons";
    for (const int button : box.buttons) text += " " + std::to_string(button);
    return text + ", default " + std::to_string(box.defaultButton) + "\n";
}

}  // namespace

std::string Quoted(const std::wstring& text) {
    std::string quoted = "\"";
    for (const char unit : Utf8FromWide(text)) quoted += unit == '\n' ? std::string("\\n") : std::string(1, unit);
    return quoted + "\"";
}

std::string DialogText(const CatalogueDialog& dialog) {
    std::string text = std::string("==== ") + dialog.name;
    if (dialog.templateId) text += ", template " + std::to_string(dialog.templateId);
    text += "\n";
    Drive(dialog.prepare().run, [&] {
        const HWND window = Settle();
        text += IsBox(window) ? BoxText() : WindowText(window, dialog.name);
        CancelEverything();
    });
    return text + "\n";
}

}  // namespace kiro
