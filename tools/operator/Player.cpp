#include "Player.h"

#include <commctrl.h>

#include <cstring>
#include <vector>

#include "Calls.h"
#include "driver/Clipboard.h"
#include "driver/Driver.h"
#include "driver/State.h"

namespace kiro {
namespace {

using namespace drive;

// None with which the system's windows are left for others or something could be deleted outside the dialogs.
constexpr WORD kKeys[] = {VK_TAB,   VK_TAB,    VK_RETURN, VK_ESCAPE, VK_SPACE, VK_UP, VK_DOWN, VK_LEFT,
                          VK_RIGHT, VK_HOME,   VK_END,    VK_PRIOR,  VK_NEXT,  VK_F2, VK_F4,   VK_APPS,
                          VK_BACK,  VK_DELETE, VK_INSERT, '0',       '1',      'A',   'Z',     VK_F3};
constexpr struct {
    WORD held;
    WORD key;
} kChords[] = {{0, VK_TAB},          {VK_SHIFT, VK_TAB},
               {0, VK_SPACE},        {0, VK_RETURN},
               {0, VK_ESCAPE},       {0, VK_UP},
               {0, VK_DOWN},         {0, VK_LEFT},
               {0, VK_RIGHT},        {0, VK_F2},
               {0, VK_F4},           {0, VK_APPS},
               {VK_SHIFT, VK_F10},   {VK_CONTROL, 'A'},
               {VK_CONTROL, 'C'},    {VK_CONTROL, 'X'},
               {VK_CONTROL, 'V'},    {VK_CONTROL, 'Z'},
               {VK_MENU, VK_DOWN},   {VK_MENU, VK_UP},
               {VK_CONTROL, VK_END}, {VK_MENU, VK_SPACE},
               {VK_MENU, VK_F4},     {VK_MENU, 'A'},
               {VK_SHIFT, VK_DOWN},  {VK_CONTROL, VK_HOME},
               {VK_CONTROL, 'Y'},    {VK_CONTROL, 'D'},
               {VK_CONTROL, 'R'},    {VK_CONTROL, 'F'},
               {0, VK_F1},           {VK_SHIFT, VK_RIGHT},
               {VK_SHIFT, VK_INSERT}};
// Names that a chooser is given; they are all in the home folder.
constexpr const wchar_t* kNames[] = {L"DXFKIRO_LAYER", L"DXFKIRO_NEW", L"demo.dxf", L"無い表", L"*", L"ソ|表"};
constexpr const wchar_t* kTexts[] = {L"",
                                     L"0",
                                     L"1",
                                     L"-1",
                                     L"256",
                                     L"257",
                                     L"1/2",
                                     L"0.95",
                                     L"1e9",
                                     L"図面",
                                     L"ソ表能",
                                     L"*",
                                     L"a b",
                                     L"=,\"'",
                                     L"🙂",
                                     L"é²",
                                     L"　 ",
                                     L"demo.dxf",
                                     L"名\t前",
                                     L"C:\\",
                                     L"\r\n",
                                     L"OTHER",
                                     L"9999999999999999999",
                                     L"DXFKIRO_LAYER",
                                     L"a\tb\r\n1\t2\r\n"};

bool IsOurs(HWND dialog) {
    const auto module = reinterpret_cast<HMODULE>(GetWindowLongPtrW(dialog, GWLP_HINSTANCE));
    return module == GetModuleHandleW(L"kirovanteo.dll");
}

bool HasClass(HWND window, const wchar_t* name) {
    wchar_t text[64];
    return GetClassNameW(window, text, 64) > 0 && std::wcscmp(text, name) == 0;
}

std::string Named(HWND window) {
    wchar_t text[64] = L"";
    InternalGetWindowText(window, text, 64);
    wchar_t name[64] = L"";
    GetClassNameW(window, name, 64);
    return std::to_string(GetDlgCtrlID(window)) + " " + Utf8FromWide(name) + " \"" + Utf8FromWide(text) + "\"";
}

HWND Target(HWND dialog) {
    const HWND focus = FocusWindow();
    return focus ? focus : dialog;
}

// The list of a combo that is dropped.
HWND DroppedList() {
    HWND found = nullptr;
    for (HWND window = nullptr; !found && (window = FindWindowExW(nullptr, window, L"ComboLBox", nullptr));)
        if (GetWindowThreadProcessId(window, nullptr) == UiThread() && IsWindowVisible(window)) found = window;
    return found;
}

// A dialog may close just now, and what is sent to a window that goes is for nobody.
LRESULT Tell(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
    DWORD_PTR result = 0;
    SendMessageTimeoutW(window, message, wParam, lParam, SMTO_NORMAL, kPatience, &result);
    return static_cast<LRESULT>(result);
}

// The messages of the player's own window.
void Pump() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
}

}  // namespace

const Player::Action Player::kActions[] = {
    {20, &Player::ClickControl}, {18, &Player::PostKeys},   {12, &Player::PressKeys},  {10, &Player::TypeText},
    {4, &Player::SetText},       {22, &Player::UseMouse},   {8, &Player::UseList},     {5, &Player::UseClipboard},
    {6, &Player::MoveFocus},     {3, &Player::GoElsewhere}, {3, &Player::CloseDialog}, {2, &Player::Disturb},
};

void Player::Play() {
    other_ = CreateWindowExW(0, L"STATIC", L"別のプログラム", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 700, 500, 200, 100,
                             nullptr, nullptr, nullptr, nullptr);
    const auto leave = [&] {
        DestroyWindow(other_);
        Pump();
    };
    try {
        HWND dialog = nullptr;
        for (Place place; left_ > 0 && (place = Look(dialog)) != Place::kReturned; --left_) Step(place, dialog);
        Log(left_ > 0 ? "closed" : "the user closes everything");
        CancelEverything();
        Log("the call returns");
    } catch (const Failure& failure) {
        Log(std::string("FAILURE: ") + failure.what() + "\n" + StateOf(UiThread()));
        leave();
        throw;
    }
    leave();
}

void Player::Log(const std::string& what, HWND window) {
    log_.Write(std::to_string(done_) + " " + what + (window ? " " + Named(window) : ""));
}

Player::Place Player::Look(HWND& dialog) {
    for (const ULONGLONG start = GetTickCount64(); GetTickCount64() - start < 2 * kPatience; Pause()) {
        Pump();
        if (!SyncInput()) return Place::kReturned;
        const GUITHREADINFO state = GuiState();
        if (state.flags & GUI_INMENUMODE) return Place::kMenu;
        if (state.flags & GUI_INMOVESIZE) return Place::kMoving;
        dialog = ModalDialog();
        // A closing may be a message that brings another.
        if (!dialog && GetTickCount64() - start > 1000) LeaveModes();
        if (!dialog || !SyncInput() || ModalDialog() != dialog) continue;
        if (IsBox(dialog)) return Place::kBox;
        return IsOurs(dialog) ? Place::kDialog : Place::kChooser;
    }
    throw Failure("no dialog is open and the call does not return");
}

void Player::Step(Place place, HWND dialog) {
    ++done_;
    switch (place) {
        case Place::kMenu:
            return InMenu();
        case Place::kMoving:
            return InMove();
        case Place::kBox:
            return InBox(dialog);
        case Place::kChooser:
            return InChooser(dialog);
        default:
            break;
    }
    int sum = 0;
    for (const Action& action : kActions) sum += action.weight;
    int at = Pick(sum);
    for (const Action& action : kActions) {
        if ((at -= action.weight) < 0) return (this->*action.act)(dialog);
    }
}

// ---- Places ----

void Player::InMenu() {
    constexpr WORD kMenuKeys[] = {VK_DOWN, VK_DOWN, VK_UP, VK_RETURN, VK_RETURN, VK_ESCAPE, VK_RIGHT, VK_LEFT};
    const HWND owner = GuiState().hwndMenuOwner;
    if (Chance(10)) {
        Log("cancels the menu of", owner);
        PostMessageW(owner, WM_CANCELMODE, 0, 0);
        return;
    }
    const WORD key = PickOf(kMenuKeys);
    Log("menu key " + std::to_string(key), owner);
    PostMessageW(owner, WM_KEYDOWN, key, 1);
}

void Player::InMove() {
    constexpr WORD kMoveKeys[] = {VK_LEFT, VK_UP, VK_RETURN, VK_ESCAPE, VK_ESCAPE};
    const HWND window = GuiState().hwndMoveSize;
    const WORD key = PickOf(kMoveKeys);
    Log("moves with key " + std::to_string(key), window);
    PostMessageW(window, WM_KEYDOWN, key, 1);
}

void Player::InBox(HWND box) {
    constexpr int kAnswers[] = {IDOK, IDYES, IDNO, IDCANCEL};
    const int answer = PickOf(kAnswers);
    if (const HWND button = GetDlgItem(box, answer)) {
        Log("answers " + std::to_string(answer), box);
        PostMessageW(button, BM_CLICK, 0, 0);
    } else {
        const WORD key = Chance(50) ? VK_RETURN : VK_ESCAPE;
        Log("answers with key " + std::to_string(key), box);
        PostMessageW(Target(box), WM_KEYDOWN, key, 1);
    }
}

// The system's own: it is given a name or closed, and nothing else, for it could do things to other files.
void Player::InChooser(HWND chooser) {
    const HWND name = GetDlgItem(chooser, kChooserField);
    if (!name || Chance(40)) {
        Log("cancels", chooser);
        PostMessageW(chooser, WM_COMMAND, IDCANCEL, 0);
        return;
    }
    const wchar_t* text = PickOf(kNames);
    Log("chooses " + Utf8FromWide(text) + " in", chooser);
    Tell(name, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text));
    PostMessageW(chooser, WM_COMMAND, IDOK, 0);
}

// ---- Picking ----

std::wstring Player::PickText() {
    if (Chance(8)) return std::wstring(static_cast<std::size_t>(1 + Pick(400)), L"x図1"[Pick(3)]);
    return PickOf(kTexts);
}

// One that a user can get at; the dialog when there is none.
HWND Player::PickChild(HWND dialog) {
    std::vector<HWND> children;
    for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        if (IsWindowVisible(child) && IsWindowEnabled(child)) children.push_back(child);
    return children.empty() ? dialog : children[static_cast<std::size_t>(Pick(static_cast<int>(children.size())))];
}

POINT Player::PickPoint(HWND dialog) {
    const HWND list = DroppedList();
    const HWND window = list && Chance(60) ? list : Chance(75) ? PickChild(dialog) : dialog;
    RECT area{};
    GetWindowRect(window, &area);
    const int width = std::max<int>(area.right - area.left, 1);
    const int height = std::max<int>(area.bottom - area.top, 1);
    const int x = Pick(width);
    return {area.left + x, area.top + Pick(height)};
}

// ---- In a dialog ----

void Player::ClickControl(HWND dialog) {
    const HWND child = PickChild(dialog);
    const int id = GetDlgCtrlID(child);
    if (!HasClass(child, L"Button") || ((id == IDOK || id == IDCANCEL) && Chance(70))) return MoveFocus(dialog);
    Log("clicks", child);
    PostMessageW(child, BM_CLICK, 0, 0);
}

// Several at once: the next is there before the dialog has dealt with the last.
void Player::PostKeys(HWND dialog) {
    const HWND target = Target(dialog);
    const int count = Chance(20) ? 2 + Pick(6) : 1;
    std::string keys = "keys";
    for (int i = 0; i < count; ++i) {
        const WORD key = PickOf(kKeys);
        keys += " " + std::to_string(key);
        PostMessageW(target, WM_KEYDOWN, key, 1);
        PostMessageW(target, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));
    }
    Log(keys + " to", target);
}

void Player::PressKeys(HWND dialog) {
    auto [held, key] = PickOf(kChords);
    if (key == 'A' && held == VK_MENU) key = static_cast<WORD>('A' + Pick(26));
    Log("presses " + std::to_string(held) + "+" + std::to_string(key) + " at", Target(dialog));
    PressKey(key, held);
}

void Player::TypeText(HWND dialog) {
    const HWND target = Target(dialog);
    const std::wstring text = PickText();
    Log("types \"" + Utf8FromWide(text) + "\" into", target);
    for (const wchar_t unit : text) PostMessageW(target, WM_CHAR, unit, 1);
}

// As an input method or a program for the blind does.
void Player::SetText(HWND dialog) {
    HWND target = Target(dialog);
    if (!HasClass(target, L"Edit")) return TypeText(dialog);
    const std::wstring text = PickText();
    Log("sets \"" + Utf8FromWide(text) + "\" in", target);
    Tell(target, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

void Player::UseMouse(HWND dialog) {
    const POINT point = PickPoint(dialog);
    const std::string at = " at " + std::to_string(point.x) + "," + std::to_string(point.y);
    MoveMouse(point);
    switch (Pick(7)) {
        case 0:
            return Log("moves the mouse to" + at);
        case 1: {
            Log("clicks right" + at, WindowFromPoint(point));
            MouseDown(true);
            return MouseUp(true);
        }
        case 2: {
            const int notches = Pick(5) - 2;
            Log("turns the wheel" + at, WindowFromPoint(point));
            return MouseWheel(notches);
        }
        case 3: {
            Log("double-clicks" + at, WindowFromPoint(point));
            MouseDown();
            MouseUp();
            MouseDown();
            return MouseUp();
        }
        case 4: {
            const POINT to = PickPoint(dialog);
            Log("drags to " + std::to_string(to.x) + "," + std::to_string(to.y) + " from" + at, WindowFromPoint(point));
            MouseDown();
            MoveMouse(to);
            return MouseUp();
        }
        default: {
            Log("clicks" + at, WindowFromPoint(point));
            MouseDown();
            return MouseUp();
        }
    }
}

void Player::UseList(HWND dialog) {
    std::vector<HWND> combos;
    for (HWND child = GetWindow(dialog, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        if (HasClass(child, L"ComboBox") && IsWindowEnabled(child) && IsWindowVisible(child)) combos.push_back(child);
    if (combos.empty()) return MoveFocus(dialog);
    const HWND combo = combos[static_cast<std::size_t>(Pick(static_cast<int>(combos.size())))];
    if (Chance(50)) {
        Log("drops or closes", combo);
        Tell(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(combo), TRUE);
        PostMessageW(combo, CB_SHOWDROPDOWN, !Tell(combo, CB_GETDROPPEDSTATE), 0);
        return;
    }
    const auto count = static_cast<int>(Tell(combo, CB_GETCOUNT));
    const int index = count > 0 ? Pick(count) : -1;
    Log("picks entry " + std::to_string(index) + " of", combo);
    Tell(combo, CB_SETCURSEL, static_cast<WPARAM>(index));
    PostMessageW(dialog, WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(combo), CBN_SELCHANGE), reinterpret_cast<LPARAM>(combo));
}

void Player::UseClipboard(HWND dialog) {
    constexpr UINT kCommands[] = {WM_PASTE, WM_PASTE, WM_PASTE, WM_COPY, WM_CUT, WM_CLEAR, WM_UNDO, EM_UNDO};
    const HWND target = Target(dialog);
    const UINT command = PickOf(kCommands);
    const std::wstring text = PickText();
    Log("clipboard " + std::to_string(command) + " \"" + Utf8FromWide(text) + "\" at", target);
    if (command == WM_PASTE) PutOnClipboard(text);
    PostMessageW(target, command, 0, 0);
}

void Player::MoveFocus(HWND dialog) {
    const HWND child = PickChild(dialog);
    if (HasClass(child, L"Static") || child == dialog) {
        Log("next control");
        PostMessageW(dialog, WM_NEXTDLGCTL, Chance(50), 0);
        return;
    }
    Log("focus to", child);
    PostMessageW(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(child), TRUE);
}

void Player::GoElsewhere(HWND dialog) {
    Log("goes to another program and comes back");
    SetForegroundWindow(other_);
    Pump();
    if (!SyncInput()) return;
    SetForegroundWindow(dialog);
}

void Player::CloseDialog(HWND dialog) {
    constexpr struct {
        UINT message;
        WPARAM wParam;
    } kClosings[] = {{WM_SYSCOMMAND, SC_CLOSE}, {WM_CLOSE, 0}, {WM_COMMAND, IDCANCEL}, {WM_COMMAND, IDOK}};
    const auto& closing = PickOf(kClosings);
    Log("closes by " + std::to_string(closing.message) + "," + std::to_string(closing.wParam), dialog);
    const int times = Chance(20) ? 2 : 1;  // an impatient user's second click
    for (int i = 0; i < times; ++i) PostMessageW(dialog, closing.message, closing.wParam, 0);
}

// What the system tells all windows.
void Player::Disturb(HWND dialog) {
    constexpr UINT kMessages[] = {WM_SYSCOLORCHANGE, WM_CANCELMODE, WM_THEMECHANGED, WM_SETTINGCHANGE, WM_TIMER};
    const UINT message = PickOf(kMessages);
    const HWND target = Chance(50) ? dialog : PickChild(dialog);
    Log("system message " + std::to_string(message) + " to", target);
    PostMessageW(target, message, 0, 0);
}

}  // namespace kiro
