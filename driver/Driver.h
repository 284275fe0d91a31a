// The operator of a host program: runs a command on this thread, as a host does, while a second thread plays the user
// on the real windows.
//
//     const int result = Drive([&] { return DxfInputPass(&record); }, [&] {
//         const HWND dialog = Settle();
//         Type(dialog, kPasswordEdit, L"secret");
//         Click(dialog, IDOK);
//     });
//
// Everything below Drive is for the user function. What a user could not do (click a disabled button, type into a
// read-only field) and what does not happen in time is a Failure. It ends the user function; Drive then cancels what is
// open, so that the command returns, and throws the Failure to its caller. So does a user function that returns while a
// dialog is open. Nothing here sleeps: it waits for what is to happen, kPatience at most.
//
// Text is UTF-16, as on the screen.
#pragma once

#include <windows.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <vector>

namespace kiro::drive {

constexpr DWORD kPatience = 10000;  // ms

class Failure : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

void Run(const std::function<void()>& call, const std::function<void()>& user);

template <class Call>
auto Drive(Call call, const std::function<void()>& user) {
    using Result = std::invoke_result_t<Call>;
    if constexpr (std::is_void_v<Result>) {
        Run(call, user);
    } else {
        Result result{};
        Run([&] { result = call(); }, user);
        return result;
    }
}

// ---- Waiting ----

// The innermost modal dialog or message box, shown and with nothing left in its queue; null when the call has returned.
HWND Settle();
// Everything posted so far has been handled. False when the call has returned.
bool Sync();
// The same, and the windows have taken what mouse and keyboard sent (or take none of it).
bool SyncInput();
// Waits until the condition holds; `what` names it in the Failure. Call it also for what input, timers and painting
// bring about: those come after everything posted, so Sync does not wait for them.
void Until(const char* what, const std::function<bool()>& condition);

// ---- Reading ----

HWND Control(HWND dialog, int id);  // a Failure when there is none
std::wstring Text(HWND window);
std::wstring Text(HWND dialog, int id);
bool IsEnabled(HWND dialog, int id);
bool IsShown(HWND dialog, int id);
bool IsChecked(HWND dialog, int id);
std::vector<std::wstring> Items(HWND dialog, int comboId);
int Picked(HWND dialog, int comboId);  // -1: none
HWND FocusWindow();
int FocusId();  // the control with the focus, 0 when none has it

bool HasGuidance(HWND dialog);
std::wstring Guidance(HWND dialog);  // the guidance line's text
bool IsGuidanceError(HWND dialog);

// The dialogs without a caption that stand over this one, such as help popups.
std::vector<HWND> Popups(HWND owner);
// The texts of a window's statics, in the order of the template.
std::vector<std::wstring> Lines(HWND window);

// ---- Acting. Each returns when the windows have dealt with it. ----

void Click(HWND dialog, int id);
void Type(HWND dialog, int id, const std::wstring& text);      // replaces the text, as pasting over it does
void TypeKeys(HWND dialog, int id, const std::wstring& text);  // key by key at the caret, with the focus
void Focus(HWND dialog, int id);
void Pick(HWND dialog, int comboId, int index);
void Key(WORD virtualKey);   // to the control with the focus
void CloseBox(HWND dialog);  // the caption's close button

// Cancels whatever is open, innermost first, until the call returns. A question without a cancel button is answered No.
void CancelEverything();

constexpr int kChooserField = 0x47C;  // the system's file chooser: the combo that takes a name

// ---- Message boxes ----

struct Box {
    HWND window = nullptr;
    std::wstring caption;
    std::wstring text;
    UINT icon = 0;  // MB_ICONERROR, MB_ICONWARNING, MB_ICONQUESTION, MB_ICONINFORMATION or 0
    int defaultButton = 0;
    std::vector<int> buttons;
};
bool IsBox(HWND window);
Box ReadBox();  // the message box that is open; a Failure when what is open is none
void Answer(const Box& box, int button);

// ---- Popup menus ----

HWND OpenMenu();  // waits for a popup menu that takes keys
std::vector<std::wstring> MenuItems(HWND menu);
void PickMenu(int index);
void CancelMenu();

// ---- The mouse and the keyboard themselves ----

// The mouse is one for all programs of a desktop. A program that moves it asks for a desktop of its own, before it
// makes its first window, so that programs can run side by side.
void UsePrivateDesktop();
POINT Centre(HWND window);  // in screen coordinates, as all of these
void MoveMouse(POINT point);
void MouseDown(bool right = false);
void MouseUp(bool right = false);
void MouseWheel(int notches);
// A key as from the keyboard, to whatever has the focus on the desktop; held: 0 or a key held down meanwhile.
void PressKey(WORD virtualKey, WORD held = 0);

// Used by the parts of this library, and by who plays a user of another kind.
DWORD UiThread();
GUITHREADINFO GuiState();  // of the call's thread
HWND ModalDialog();        // the innermost dialog that is shown and takes input; null: none
void LeaveModes();         // ends menus, and the moving and sizing of windows
bool Pause();              // between two looks at the windows; false when the call has returned
LRESULT Send(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);  // a Failure when there is no answer
HDESK PrivateDesktop();                                                         // null: that of the process

}  // namespace kiro::drive
