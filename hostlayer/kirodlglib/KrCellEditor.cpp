#include "KrCellEditor.h"

#include <commctrl.h>

#include <algorithm>

#include "KrAllKeys.h"
#include "KrGridMessages.h"
#include "KrGridPainter.h"
#include "KrSwatch.h"
#include "KrText.h"

namespace {

constexpr int kFirstId = 0x7E01;
constexpr int kShownChoices = 12;
constexpr std::size_t kMostPasted = 0x10000;
constexpr WPARAM kTabKey = L'\t', kEnterKey = L'\r', kEscapeKey = 0x1B, kDeleteKey = 0x7F;

int Scaled(HWND window, int pixels) {
    const HDC dc = GetDC(window);
    const int scaled = MulDiv(pixels, GetDeviceCaps(dc, LOGPIXELSX), 96);
    ReleaseDC(window, dc);
    return scaled;
}

HFONT FontOf(HWND window) { return reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0)); }

// The window's own font selected in its device context.
class FontDc {
  public:
    explicit FontDc(HWND window) : window_(window), dc_(GetDC(window)), before_(SelectObject(dc_, FontOf(window))) {}
    FontDc(const FontDc&) = delete;
    FontDc& operator=(const FontDc&) = delete;
    ~FontDc() {
        SelectObject(dc_, before_);
        ReleaseDC(window_, dc_);
    }
    int LineHeight() const {
        TEXTMETRICW metric{};
        GetTextMetricsW(dc_, &metric);
        return metric.tmHeight;
    }
    int SwatchWidth() const { return ::SwatchWidth(dc_); }
    int WidthOf(const std::wstring& text) const {
        SIZE size{};
        GetTextExtentPoint32W(dc_, text.c_str(), static_cast<int>(text.size()), &size);
        return size.cx;
    }

  private:
    HWND window_;
    HDC dc_;
    HGDIOBJ before_;
};

int HeightOf(HWND window) {
    RECT area{};
    GetWindowRect(window, &area);
    return area.bottom - area.top;
}

bool IsKeyDown(int key) { return GetKeyState(key) < 0; }

}  // namespace

KrCellEditor::~KrCellEditor() {
    for (int kind = 0; kind < kKinds; ++kind) {
        if (!windows_[kind].window) continue;
        ShowWindow(windows_[kind].window, SW_HIDE);
        RemoveWindowSubclass(windows_[kind].text, &KrCellEditor::Procedure, static_cast<UINT_PTR>(kind));
    }
}

// ---- Opening and closing ----

bool KrCellEditor::Make(Kind kind) {
    static constexpr DWORD kStyles[kKinds] = {
        ES_AUTOHSCROLL, CBS_DROPDOWN | CBS_AUTOHSCROLL | WS_VSCROLL, CBS_DROPDOWNLIST | WS_VSCROLL,
        CBS_DROPDOWN | CBS_AUTOHSCROLL | WS_VSCROLL | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS};
    Windows& made = windows_[kind];
    if (made.window) return true;
    const auto id = reinterpret_cast<HMENU>(static_cast<INT_PTR>(kFirstId + kind));
    made = {};
    made.text = CreateWindowExW(WS_EX_NOPARENTNOTIFY, kind == kEdit ? WC_EDITW : WC_COMBOBOXW, L"",
                                WS_CHILD | kStyles[kind], 0, 0, 100, 100, list_, id, nullptr, nullptr);
    const HWND window = made.text;
    if (!window) return false;
    if (kind == kCombo || kind == kColorCombo) {
        COMBOBOXINFO info{};
        info.cbSize = sizeof info;
        if (GetComboBoxInfo(window, &info)) made.text = info.hwndItem;
    }
    if (!SetWindowSubclass(made.text, &KrCellEditor::Procedure, static_cast<UINT_PTR>(kind),
                           reinterpret_cast<DWORD_PTR>(this))) {
        DestroyWindow(window);
        return false;
    }
    made.window = window;
    SendMessageW(window, WM_SETFONT, reinterpret_cast<WPARAM>(FontOf(list_)), FALSE);
    if (kind == kColorCombo) SendMessageW(window, CB_SETITEMHEIGHT, 0, FontDc(window).LineHeight() + 2);
    return true;
}

// The combo is hidden while it is filled, so nothing is drawn. (WM_SETREDRAW would show it.)
void KrCellEditor::Fill(Windows& windows) const {
    if (windows.filledWith == editing_.combo) return;
    windows.filledWith.reset();
    const FontDc font(windows.window);
    const GridChoices& choices = editing_.combo->choices;
    int width = 0;
    SendMessageW(windows.window, CB_RESETCONTENT, 0, 0);
    SendMessageW(windows.window, CB_INITSTORAGE, choices.size(), static_cast<LPARAM>(choices.size() * 16));
    for (const std::string& choice : choices) {
        const std::wstring text = WideForDisplay(choice);
        SendMessageW(windows.window, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
        width = std::max(width, font.WidthOf(text));
    }
    const int around = GetSystemMetrics(SM_CXVSCROLL) + Scaled(windows.window, 2 * KrGridPainter::kMargin) +
                       (editing_.colorOf ? font.SwatchWidth() : 0);
    SendMessageW(windows.window, CB_SETDROPPEDWIDTH, static_cast<WPARAM>(width + around), 0);
    windows.filledWith = editing_.combo;
}

int KrCellEditor::ChoiceOf(std::wstring_view text) const {
    const GridChoices& choices = editing_.combo->choices;
    const auto found =
        std::find_if(choices.begin(), choices.end(), [&](const std::string& c) { return WideForDisplay(c) == text; });
    return found == choices.end() ? -1 : static_cast<int>(found - choices.begin());
}

// The text before is what the window made of the cell's text, so that one which was not touched is seen as such.
void KrCellEditor::Load(const std::string& text, Start start) {
    const HWND window = windows_[kind_].window;
    const std::wstring shown = WideForDisplay(text);
    choiceBefore_ = kind_ == kEdit ? -1 : ChoiceOf(shown);
    if (kind_ != kEdit) SendMessageW(window, CB_SETCURSEL, static_cast<WPARAM>(choiceBefore_), 0);
    textBefore_ = shown;
    if (!Typed()) return;
    SendMessageW(TextWindow(), EM_SETLIMITTEXT, editing_.limit, 0);
    SetWindowTextW(TextWindow(), shown.c_str());
    textBefore_ = Text();
    if (start == Start::kReplaceText) SetWindowTextW(TextWindow(), L"");
    SendMessageW(TextWindow(), EM_EMPTYUNDOBUFFER, 0, 0);
}

bool KrCellEditor::Open(HWND list, const RECT& cell, const CellEditing& editing, const std::string& text, Start start,
                        bool prompts) {
    if (IsOpen() || !editing.Possible()) return false;
    list_ = list;
    editing_ = editing;
    kind_ = !editing.combo ? kEdit : !editing.typed ? kDropDownList : editing.colorOf ? kColorCombo : kCombo;
    if (!Make(kind_)) return false;
    Windows& windows = windows_[kind_];
    if (editing_.combo) Fill(windows);
    Load(text, start);
    dropped_ = edited_ = messageShown_ = faultShown_ = false;
    ++opening_;
    if (KrNamedAccessible* const known = accessible_[kind_].Get()) known->SetName(name_);
    open_ = windows.window;
    Place(cell);
    ShowWindow(open_, SW_SHOW);
    if (prompts) ShowPrompt(Typed() ? editing_.prompt : editing_.combo->prompt);
    const WPARAM opening = opening_;
    SetFocus(TextWindow());
    // The dialog may have done anything when it heard of the focus.
    if (!IsOpen() || opening != opening_) return false;
    if (Typed()) SendMessageW(TextWindow(), EM_SETSEL, 0, -1);
    if (start == Start::kDropDown && editing_.combo) SendMessageW(open_, CB_SHOWDROPDOWN, TRUE, 0);
    return IsOpen();
}

void KrCellEditor::PlaceEdit(const RECT& cell) const {
    const int frame = Scaled(list_, KrGridPainter::kFrame);
    const int height = std::min<int>(FontDc(open_).LineHeight() + 2, cell.bottom - cell.top - 2 * frame - 1);
    const int top = (cell.top + cell.bottom - height) / 2;
    // The text stands where the cell's text stood.
    const int margin = std::max(Scaled(list_, KrGridPainter::kMargin) - frame, 0);
    SendMessageW(open_, EM_SETMARGINS, EC_LEFTMARGIN | EC_RIGHTMARGIN, MAKELPARAM(margin, 1));
    SetWindowPos(open_, HWND_TOP, cell.left + frame, top, cell.right - cell.left - 2 * frame - 1, height,
                 SWP_NOACTIVATE);
}

// A combo's height follows from that of its field; the height that is given is that of the open list with it.
void KrCellEditor::PlaceCombo(const RECT& cell) const {
    const int height = cell.bottom - cell.top - 1;
    // The current style has a number of its own, and shows thirty unless it is told.
    SendMessageW(open_, CB_SETMINVISIBLE, kShownChoices, 0);
    SetWindowPos(open_, HWND_TOP, cell.left, cell.top, cell.right - cell.left - 1, height, SWP_NOACTIVATE);
    const auto field = static_cast<int>(SendMessageW(open_, CB_GETITEMHEIGHT, static_cast<WPARAM>(-1), 0));
    if (const int excess = HeightOf(open_) - height; excess != 0 && field - excess > 0)
        SendMessageW(open_, CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), field - excess);
    // The list gets what a combination box has below its field; its frame is two lines at either end.
    const auto choices = static_cast<int>(std::min<std::size_t>(editing_.combo->choices.size(), kShownChoices));
    const auto line = static_cast<int>(SendMessageW(open_, CB_GETITEMHEIGHT, 0, 0));
    const int frame = 4 * GetSystemMetricsForDpi(SM_CYBORDER, GetDpiForWindow(open_));
    SetWindowPos(open_, nullptr, 0, 0, cell.right - cell.left - 1, HeightOf(open_) + choices * line + frame,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void KrCellEditor::Place(const RECT& cell) { kind_ == kEdit ? PlaceEdit(cell) : PlaceCombo(cell); }

void KrCellEditor::Close(bool focusToList) {
    if (!IsOpen()) return;
    // Closed first: what follows sends messages that come back here.
    const HWND window = open_;
    const bool dropped = IsDropped();
    open_ = nullptr;
    ++opening_;
    if (dropped) SendMessageW(window, CB_SHOWDROPDOWN, FALSE, 0);
    if (focusToList && (GetFocus() == window || IsChild(window, GetFocus()))) SetFocus(list_);
    ShowWindow(window, SW_HIDE);
    if (messageShown_ && utility_) utility_->MessageText("");
    messageShown_ = faultShown_ = false;
}

// ---- The text ----

std::wstring KrCellEditor::Text() const {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(TextWindow())) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(TextWindow(), text.data(), static_cast<int>(text.size()))));
    return text;
}

KrCellEditor::Outcome KrCellEditor::Read() const {
    if (!IsOpen()) return {};
    if (kind_ == kDropDownList) {
        const auto index = static_cast<int>(SendMessageW(open_, CB_GETCURSEL, 0, 0));
        if (index < 0 || index == choiceBefore_) return {};
        return {editing_.combo->choices[static_cast<std::size_t>(index)], std::nullopt};
    }
    const std::wstring whole = Text();
    if (whole == textBefore_) return {};
    // A choice may be longer than what can be typed.
    if (const int index = kind_ != kEdit ? ChoiceOf(whole) : -1; index >= 0)
        return {editing_.combo->choices[static_cast<std::size_t>(index)], std::nullopt};
    const std::wstring_view text = WideWithoutSpacesAround(whole);
    if (auto fault = FindCellTextFault(text, editing_.limit)) {
        fault->from += static_cast<std::size_t>(text.data() - whole.data());
        return {std::nullopt, std::move(fault)};
    }
    return {To932(NormalCellText(text, editing_.kinds)), std::nullopt};
}

void KrCellEditor::Refuse(const CellTextFault& fault, bool takeFocus) {
    if (takeFocus) Focus();
    SendMessageW(TextWindow(), EM_SETSEL, fault.from, static_cast<LPARAM>(fault.from + fault.length));
    ShowFault(fault.message);
}

// The length of the text beside what is selected, which typing and pasting replace.
std::size_t KrCellEditor::KeptLength() const {
    DWORD from = 0;
    DWORD to = 0;
    SendMessageW(TextWindow(), EM_GETSEL, reinterpret_cast<WPARAM>(&from), reinterpret_cast<LPARAM>(&to));
    return static_cast<std::size_t>(GetWindowTextLengthW(TextWindow())) - (to - from);
}

// A text that cannot be taken whole is not taken at all: the operator would not see what is missing.
void KrCellEditor::Paste() {
    const std::optional<std::wstring> text = ClipboardText(open_, kMostPasted);
    if (!text) return;
    if (const auto fault = FindCellTextFault(*text, kMostPasted))
        return ShowFault("貼り付けできません。" + fault->message);
    if (KeptLength() + text->size() > editing_.limit)
        return ShowFault("貼り付けできません。" + TooLongMessage(editing_.limit));
    SendMessageW(TextWindow(), EM_REPLACESEL, TRUE, reinterpret_cast<LPARAM>(text->c_str()));
}

// ---- Messages ----

void KrCellEditor::ShowPrompt(const std::string& prompt) {
    if (prompt.empty() && !messageShown_) return;
    if (utility_) utility_->MessageText(prompt.c_str());
    messageShown_ = !prompt.empty();
    faultShown_ = false;
}

void KrCellEditor::ShowFault(const std::string& message) {
    if (utility_) utility_->ErrorText(message.c_str());
    messageShown_ = faultShown_ = true;
}

bool KrCellEditor::IsDropped() const {
    return kind_ != kEdit && SendMessageW(open_, CB_GETDROPPEDSTATE, 0, 0) != FALSE;
}

// A choice with its colour. What a combo box has its owner draw besides is its closed field, where an edit stands.
bool KrCellEditor::DrawChoice(const DRAWITEMSTRUCT& request) const {
    if (request.CtlType != ODT_COMBOBOX || !open_ || request.hwndItem != open_ || !editing_.combo) return false;
    const bool selected = request.itemState & ODS_SELECTED;
    FillRect(request.hDC, &request.rcItem, GetSysColorBrush(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
    if (request.itemID >= editing_.combo->choices.size()) return true;
    const std::string& choice = editing_.combo->choices[request.itemID];
    const COLORREF ink = GetSysColor(selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT);
    RECT area = request.rcItem;
    area.left += Scaled(open_, KrGridPainter::kFrame);
    if (const auto color = ColorOfText(choice, editing_.colorOf)) DrawSwatch(request.hDC, area, *color, ink);
    area.left += SwatchWidth(request.hDC);
    SetBkMode(request.hDC, TRANSPARENT);
    SetTextColor(request.hDC, ink);
    const std::wstring text = WideForDisplay(choice);
    DrawTextW(request.hDC, text.c_str(), -1, &area, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
    return true;
}

bool KrCellEditor::OnCommand(int notification, HWND control) {
    const auto ours = [&](const Windows& windows) { return windows.window && windows.window == control; };
    if (std::none_of(std::begin(windows_), std::end(windows_), ours)) return false;
    if (control != open_) return true;
    const bool combo = kind_ != kEdit;
    if (notification == (combo ? static_cast<int>(CBN_KILLFOCUS) : EN_KILLFOCUS)) {
        host_.OnEditor(EditorEvent::kFocusLost);
    } else if (notification == (combo ? static_cast<int>(CBN_EDITCHANGE) : EN_CHANGE)) {
        edited_ = true;
        if (faultShown_) ShowPrompt(editing_.prompt);
    } else if (!combo && notification == EN_MAXTEXT) {
        // An input method puts in several characters at once.
        ShowFault(TooLongMessage(editing_.limit));
    } else if (combo && notification == CBN_DROPDOWN) {
        dropped_ = true;
        textWhenDropped_ = Text();
        choiceWhenDropped_ = static_cast<int>(SendMessageW(open_, CB_GETCURSEL, 0, 0));
        ShowPrompt(editing_.combo->prompt);
    } else if (combo && notification == CBN_SELENDOK && dropped_) {
        // An arrow key tells the same while the list is closed, and does not end the editing.
        PostMessageW(list_, kGridPicked, opening_, 0);
    } else if (combo && notification == CBN_CLOSEUP) {
        dropped_ = false;
        if (Typed()) ShowPrompt(editing_.prompt);
    }
    return true;
}

void KrCellEditor::OnPicked(WPARAM opening) {
    if (IsOpen() && opening == opening_) host_.OnEditor(EditorEvent::kPicked);
}

// The list closes and what was shown before it opened is shown again.
void KrCellEditor::GiveUpChoosing() {
    const bool edited = edited_;
    dropped_ = false;  // first: nothing is picked now
    SendMessageW(open_, CB_SHOWDROPDOWN, FALSE, 0);
    SendMessageW(open_, CB_SETCURSEL, static_cast<WPARAM>(choiceWhenDropped_), 0);
    if (!Typed()) return;
    SetWindowTextW(TextWindow(), textWhenDropped_.c_str());
    SendMessageW(TextWindow(), EM_SETSEL, 0, -1);
    edited_ = edited;
}

LRESULT KrCellEditor::AnswerReader(WPARAM wParam) {
    const LRESULT answer = accessible_[kind_].Answer(TextWindow(), wParam);
    accessible_[kind_].Get()->SetName(name_);
    return answer;
}

bool KrCellEditor::OnKey(WPARAM key) {
    const auto tell = [this](EditorEvent event) {
        host_.OnEditor(event);
        return true;
    };
    switch (key) {
        case VK_RETURN:
            return tell(EditorEvent::kEnter);
        case VK_ESCAPE:
            if (!IsDropped()) return tell(EditorEvent::kEscape);
            GiveUpChoosing();
            return true;
        case VK_TAB:
            return tell(IsKeyDown(VK_SHIFT) ? EditorEvent::kBackTab : EditorEvent::kTab);
        case VK_UP:
        case VK_DOWN:
            // Where there are choices they go through them, but not over a text that was typed.
            if (kind_ != kEdit && (!edited_ || IsDropped())) return false;
            return tell(key == VK_UP ? EditorEvent::kUp : EditorEvent::kDown);
        default:
            return false;
    }
}

std::optional<LRESULT> KrCellEditor::OnMessage(Kind kind, UINT message, WPARAM wParam, LPARAM lParam) {
    // A hidden editor gets the focus back when the dialog, whose focus it had, becomes the active window again.
    if (!IsOpen() || kind != kind_) {
        if (message == WM_SETFOCUS) SetFocus(IsOpen() ? TextWindow() : list_);
        return message == WM_SETFOCUS || message == WM_CHAR ? std::optional<LRESULT>(0) : std::nullopt;
    }
    switch (message) {
        case WM_KEYDOWN:
            if (OnKey(wParam)) return 0;
            break;
        case WM_CHAR:
            // The characters of keys that were dealt with, perhaps in the cell before this one.
            if (wParam == kTabKey || wParam == kEnterKey || wParam == kEscapeKey) return 0;
            if (wParam < L' ' || wParam == kDeleteKey || !Typed() || !IsFull()) break;
            ShowFault(TooLongMessage(editing_.limit));
            return 0;
        case WM_PASTE:
            if (!Typed()) break;
            Paste();
            return 0;
        case WM_MOUSEWHEEL:
            // The wheel is for the grid. A closed combo would take it for another choice.
            if (IsDropped()) break;
            return SendMessageW(list_, message, wParam, lParam);
        case WM_GETOBJECT:
            if (static_cast<LONG>(lParam) == OBJID_CLIENT) return AnswerReader(wParam);
            break;
        default:
            break;
    }
    return std::nullopt;
}

LRESULT CALLBACK KrCellEditor::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR kind,
                                         DWORD_PTR data) {
    auto* self = reinterpret_cast<KrCellEditor*>(data);
    if (message == WM_NCDESTROY) {
        RemoveWindowSubclass(window, &KrCellEditor::Procedure, kind);
        self->windows_[kind] = {};
        self->accessible_[kind].End();
        self->open_ = self->kind_ == static_cast<Kind>(kind) ? nullptr : self->open_;
        return DefSubclassProc(window, message, wParam, lParam);
    }
    return AnswerAllKeys(window, message, wParam, lParam,
                         [&] { return self->OnMessage(static_cast<Kind>(kind), message, wParam, lParam); });
}
