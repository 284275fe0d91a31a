#include "driver/Driver.h"

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cwchar>
#include <exception>
#include <thread>

#include "driver/GridWatch.h"
#include "driver/State.h"

namespace kiro::drive {
namespace {

constexpr UINT kSyncMessage = WM_APP + 0x3FF;
constexpr UINT kGuidanceIsError = WM_APP + 1;
constexpr wchar_t kGuidanceClass[] = L"KiroGuidanceLine";
constexpr wchar_t kDialogClass[] = L"#32770";
constexpr wchar_t kMenuClass[] = L"#32768";
constexpr int kBoxText = 0xFFFF;
constexpr int kBoxIcons[] = {1088, 20};  // Wine's message box and that of Windows

class Event {
  public:
    explicit Event(bool manual) : handle_(CreateEventW(nullptr, manual, FALSE, nullptr)) {}
    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;
    ~Event() { CloseHandle(handle_); }
    HANDLE Handle() const { return handle_; }
    void Set() const { SetEvent(handle_); }
    bool Wait(DWORD time) const { return WaitForSingleObject(handle_, time) == WAIT_OBJECT_0; }

  private:
    HANDLE handle_;
};

// One run of a call. There is one at a time: the hook procedure has no other way to its data.
struct Session {
    DWORD uiThread = GetCurrentThreadId();
    Event synced{false};
    Event done{true};
    std::atomic<LONG> asked{0};
    std::atomic<LONG> seen{0};
    std::atomic<bool> inputWaits{false};  // of mouse or keyboard, at the last sync
    std::exception_ptr failure;
};
Session* session;

// Sees the messages as the thread takes them from its queue, in whatever modal loop it is.
LRESULT CALLBACK OnMessageTaken(int code, WPARAM removed, LPARAM data) {
    auto* message = reinterpret_cast<MSG*>(data);
    if (code == HC_ACTION && removed == PM_REMOVE && message->message == kSyncMessage && session) {
        session->inputWaits = (HIWORD(GetQueueStatus(QS_INPUT)) & QS_INPUT) != 0;
        session->seen = static_cast<LONG>(message->wParam);
        message->message = WM_NULL;
        session->synced.Set();
    }
    return CallNextHookEx(nullptr, code, removed, data);
}

class MessageHook {
  public:
    MessageHook() : hook_(SetWindowsHookExW(WH_GETMESSAGE, OnMessageTaken, nullptr, GetCurrentThreadId())) {
        if (!hook_) throw Failure("cannot watch the thread's messages");
    }
    MessageHook(const MessageHook&) = delete;
    MessageHook& operator=(const MessageHook&) = delete;
    ~MessageHook() { UnhookWindowsHookEx(hook_); }

  private:
    HHOOK hook_;
};

Session& Current() {
    if (!session) throw Failure("no call is being driven");
    return *session;
}

bool HasClass(HWND window, const wchar_t* name) {
    wchar_t text[64];
    return GetClassNameW(window, text, 64) > 0 && std::wcscmp(text, name) == 0;
}

bool HasCaption(HWND window) { return (GetWindowLongW(window, GWL_STYLE) & WS_CAPTION) == WS_CAPTION; }

template <class Visit>
void ForEachWindow(DWORD thread, Visit visit) {
    EnumThreadWindows(
        thread,
        [](HWND window, LPARAM data) -> BOOL { return (*reinterpret_cast<Visit*>(data))(window) ? TRUE : FALSE; },
        reinterpret_cast<LPARAM>(&visit));
}

template <class Visit>
void ForEachChild(HWND parent, Visit visit) {
    for (HWND child = GetWindow(parent, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) visit(child);
}

void Post(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (!PostMessageW(window, message, wParam, lParam)) throw Failure("a message cannot be posted: the window is gone");
}

HWND UsableControl(HWND dialog, int id, const char* action) {
    const HWND control = Control(dialog, id);
    if (IsWindowEnabled(control) && IsWindowVisible(control) && IsWindowEnabled(dialog)) return control;
    throw Failure(std::string(action) + ": control " + std::to_string(id) + " is disabled or hidden");
}

HWND WritableEdit(HWND dialog, int id) {
    const HWND edit = UsableControl(dialog, id, "typing");
    if (GetWindowLongW(edit, GWL_STYLE) & ES_READONLY && !HasClass(edit, L"ComboBox"))
        throw Failure("typing: control " + std::to_string(id) + " is read-only");
    return edit;
}

void PlayUser(const std::function<void()>& user) {
    if (PrivateDesktop()) SetThreadDesktop(PrivateDesktop());
    Session& current = Current();
    try {
        user();
        if (Settle()) throw Failure("the user left a dialog open");
    } catch (...) {
        current.failure = std::current_exception();
    }
    try {
        if (current.failure) CancelEverything();
        if (current.done.Wait(kPatience)) return;
    } catch (const std::exception&) {
    }
    // The call can no longer be ended, nor can a thread be. A test that hangs would say less.
    std::fprintf(stderr, "driver: the call does not return\n%s", StateOf(current.uiThread).c_str());
    std::_Exit(3);
}

// What the user sent to a dialog that is gone by now is for nobody: F10 would open the main window's menu.
bool IsInput(UINT message) {
    return (message >= WM_KEYFIRST && message <= WM_KEYLAST) || (message >= WM_MOUSEFIRST && message <= WM_MOUSELAST) ||
           (message >= WM_NCMOUSEMOVE && message <= WM_NCXBUTTONDBLCLK) || message == WM_SYSCOMMAND ||
           message == WM_CONTEXTMENU;
}

}  // namespace

void Run(const std::function<void()>& call, const std::function<void()>& user) {
    MSG message;
    PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE);  // makes the thread's queue, to which the user thread posts
    Session current;
    session = &current;
    std::exception_ptr failure;
    {
        const MessageHook hook;
        const GridWatch grids;
        std::thread player(PlayUser, std::cref(user));
        try {
            call();
        } catch (...) {
            failure = std::current_exception();
        }
        current.done.Set();
        player.join();
    }
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
        if (!IsInput(message.message)) DispatchMessageW(&message);
    session = nullptr;
    if (current.failure) std::rethrow_exception(current.failure);
    if (failure) std::rethrow_exception(failure);
}

// Every modal dialog disables its owner, so the one that is enabled is the innermost.
HWND ModalDialog() {
    HWND found = nullptr;
    ForEachWindow(Current().uiThread, [&](HWND window) {
        if (HasClass(window, kDialogClass) && IsWindowVisible(window) && IsWindowEnabled(window) && HasCaption(window))
            found = window;
        return found == nullptr;
    });
    return found;
}

// Posted messages outrank input, painting, timers and the moment at which a modal loop shows its dialog. A poll without
// this pause would keep the queue full and hold them all back. False when the call has returned.
bool Pause() { return !Current().done.Wait(1); }

GUITHREADINFO GuiState() {
    GUITHREADINFO state{};
    state.cbSize = sizeof state;
    GetGUIThreadInfo(Current().uiThread, &state);
    return state;
}

DWORD UiThread() { return Current().uiThread; }

LRESULT Send(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    DWORD_PTR result = 0;
    if (!SendMessageTimeoutW(window, message, wParam, lParam, SMTO_NORMAL, kPatience, &result))
        throw Failure("a window does not answer message " + std::to_string(message));
    return static_cast<LRESULT>(result);
}

bool Sync() {
    Session& current = Current();
    const LONG number = ++current.asked;
    PostThreadMessageW(current.uiThread, kSyncMessage, static_cast<WPARAM>(number), 0);
    // The end of the call comes first: a call that has returned takes no more messages.
    const HANDLE events[] = {current.done.Handle(), current.synced.Handle()};
    for (;;) {
        switch (WaitForMultipleObjects(2, events, FALSE, kPatience)) {
            case WAIT_OBJECT_0:
                return false;
            case WAIT_OBJECT_0 + 1:
                if (current.seen == number) return true;
                break;
            default:
                throw Failure("the windows do not take their messages");
        }
    }
}

bool SyncInput() {
    // Input comes after everything posted, so it may still wait when that has been handled.
    for (int i = 0; i < 200; ++i) {
        if (!Sync()) return false;
        if (!Current().inputWaits) return true;
        if (!Pause()) return false;
    }
    return true;
}

HWND Settle() {
    for (const ULONGLONG start = GetTickCount64(); GetTickCount64() - start < kPatience; Pause()) {
        if (!Sync()) return nullptr;
        const HWND dialog = ModalDialog();
        if (!dialog) continue;
        if (!Sync()) return nullptr;
        if (ModalDialog() == dialog) return dialog;
    }
    throw Failure("no dialog is open and the call does not return");
}

void Until(const char* what, const std::function<bool()>& condition) {
    const ULONGLONG start = GetTickCount64();
    while (!condition()) {
        if (GetTickCount64() - start > kPatience) throw Failure(std::string("this did not happen: ") + what);
        if (!Pause() && !condition()) throw Failure(std::string("the call returned before this happened: ") + what);
    }
}

HWND Control(HWND dialog, int id) {
    if (const HWND control = GetDlgItem(dialog, id)) return control;
    throw Failure("there is no control " + std::to_string(id) + " in the dialog");
}

std::wstring Text(HWND window) {
    std::wstring text(static_cast<std::size_t>(Send(window, WM_GETTEXTLENGTH)) + 1, L'\0');
    const LRESULT length =
        Send(window, WM_GETTEXT, static_cast<WPARAM>(text.size()), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

std::wstring Text(HWND dialog, int id) { return Text(Control(dialog, id)); }
bool IsEnabled(HWND dialog, int id) { return IsWindowEnabled(Control(dialog, id)) != FALSE; }
bool IsShown(HWND dialog, int id) { return IsWindowVisible(Control(dialog, id)) != FALSE; }
bool IsChecked(HWND dialog, int id) { return Send(Control(dialog, id), BM_GETCHECK) == BST_CHECKED; }
int Picked(HWND dialog, int comboId) { return static_cast<int>(Send(Control(dialog, comboId), CB_GETCURSEL)); }

std::vector<std::wstring> Items(HWND dialog, int comboId) {
    const HWND combo = Control(dialog, comboId);
    std::vector<std::wstring> items(static_cast<std::size_t>(Send(combo, CB_GETCOUNT)));
    for (std::size_t i = 0; i < items.size(); ++i) {
        std::wstring text(static_cast<std::size_t>(Send(combo, CB_GETLBTEXTLEN, i)) + 1, L'\0');
        text.resize(static_cast<std::size_t>(Send(combo, CB_GETLBTEXT, i, reinterpret_cast<LPARAM>(text.data()))));
        items[i] = std::move(text);
    }
    return items;
}

HWND FocusWindow() { return GuiState().hwndFocus; }

int FocusId() {
    const HWND focus = FocusWindow();
    return focus ? GetDlgCtrlID(focus) : 0;
}

bool HasGuidance(HWND dialog) { return FindWindowExW(dialog, nullptr, kGuidanceClass, nullptr) != nullptr; }

std::wstring Guidance(HWND dialog) {
    const HWND line = FindWindowExW(dialog, nullptr, kGuidanceClass, nullptr);
    if (!line) throw Failure("the dialog has no guidance line");
    return Text(line);
}

bool IsGuidanceError(HWND dialog) {
    const HWND line = FindWindowExW(dialog, nullptr, kGuidanceClass, nullptr);
    return line && Send(line, kGuidanceIsError) == 1;
}

std::vector<HWND> Popups(HWND owner) {
    std::vector<HWND> popups;
    ForEachWindow(Current().uiThread, [&](HWND window) {
        if (GetWindow(window, GW_OWNER) == owner && HasClass(window, kDialogClass) && IsWindowVisible(window) &&
            !HasCaption(window))
            popups.push_back(window);
        return true;
    });
    return popups;
}

std::vector<std::wstring> Lines(HWND window) {
    std::vector<std::wstring> lines;
    ForEachChild(window, [&](HWND child) {
        if (HasClass(child, L"Static")) lines.push_back(Text(child));
    });
    return lines;
}

void Click(HWND dialog, int id) {
    // Posted, because a click may open a dialog and a sent one would not come back before that is closed.
    Post(UsableControl(dialog, id, "clicking"), BM_CLICK, 0, 0);
    Sync();
}

void Type(HWND dialog, int id, const std::wstring& text) {
    Send(WritableEdit(dialog, id), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
    Sync();
}

void TypeKeys(HWND dialog, int id, const std::wstring& text) {
    const HWND edit = WritableEdit(dialog, id);
    if (FocusWindow() != edit) Focus(dialog, id);
    for (const wchar_t unit : text) Post(edit, WM_CHAR, unit, 1);
    Sync();
}

void Focus(HWND dialog, int id) {
    const HWND control = UsableControl(dialog, id, "focusing");
    Send(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
    Sync();
}

void Pick(HWND dialog, int comboId, int index) {
    const HWND combo = UsableControl(dialog, comboId, "picking");
    Focus(dialog, comboId);
    if (Send(combo, CB_SETCURSEL, static_cast<WPARAM>(index)) != index)
        throw Failure("picking: the list has no entry " + std::to_string(index));
    Post(dialog, WM_COMMAND, MAKEWPARAM(comboId, CBN_SELCHANGE), reinterpret_cast<LPARAM>(combo));
    Sync();
}

void Key(WORD virtualKey) {
    const HWND focus = FocusWindow();
    if (!focus) throw Failure("a key is pressed, but no window has the focus");
    Post(focus, WM_KEYDOWN, virtualKey, 1);
    PostMessageW(focus, WM_KEYUP, virtualKey, static_cast<LPARAM>(0xC0000001));
    Sync();
}

void CloseBox(HWND dialog) {
    Post(dialog, WM_SYSCOMMAND, SC_CLOSE, 0);
    Sync();
}

// A menu, or a window that the user moves, has a loop of its own, which may outlive the dialog that it belongs to.
void LeaveModes() {
    const GUITHREADINFO state = GuiState();
    if (state.flags & GUI_INMENUMODE) PostMessageW(state.hwndMenuOwner, WM_CANCELMODE, 0, 0);
    if (state.flags & GUI_INMOVESIZE) PostMessageW(state.hwndMoveSize, WM_KEYDOWN, VK_ESCAPE, 1);
    // The loop of a window that is moved by keys goes on under Wine when something else has taken the capture, and even
    // when the window is hidden; nothing tells of it any more. Escape ends it, and is for nobody else.
    if (!ModalDialog()) PostThreadMessageW(UiThread(), WM_KEYDOWN, VK_ESCAPE, 1);
}

void CancelEverything() {
    constexpr int kTries = 30;  // of one dialog
    HWND last = nullptr;
    int tries = 0;
    for (const ULONGLONG start = GetTickCount64(); Sync(); Pause()) {
        LeaveModes();
        const HWND dialog = ModalDialog();
        tries = dialog && dialog == last ? tries + 1 : 0;
        last = dialog;
        const bool late = GetTickCount64() - start > kPatience;
        if (tries > kTries && late) throw Failure("a dialog does not close");
        if (!dialog && late) throw Failure("no dialog is open and the call does not return");
        if (!dialog) continue;
        const HWND no = GetDlgItem(dialog, IDNO);
        PostMessageW(dialog, WM_COMMAND, IsBox(dialog) && no ? IDNO : IDCANCEL, 0);
        if (!Sync()) return;
        if (IsWindow(dialog) && IsWindowEnabled(dialog)) PostMessageW(dialog, WM_CLOSE, 0, 0);
    }
}

bool IsBox(HWND window) { return HasClass(window, kDialogClass) && GetDlgItem(window, kBoxText); }

Box ReadBox() {
    static const struct {
        LPCWSTR name;
        UINT kind;
    } kIcons[] = {{IDI_ERROR, MB_ICONERROR},
                  {IDI_WARNING, MB_ICONWARNING},
                  {IDI_QUESTION, MB_ICONQUESTION},
                  {IDI_INFORMATION, MB_ICONINFORMATION}};
    Box box;
    box.window = Settle();
    if (!box.window) throw Failure("a message box was expected, but the call has returned");
    if (!IsBox(box.window)) throw Failure("a message box was expected, but a dialog is open");
    box.caption = Text(box.window);
    box.text = Text(box.window, kBoxText);
    for (const int id : kBoxIcons) {
        const HWND control = GetDlgItem(box.window, id);
        const LRESULT icon = control ? Send(control, STM_GETICON) : 0;
        for (const auto& known : kIcons)
            if (icon && icon == reinterpret_cast<LRESULT>(LoadIconW(nullptr, known.name))) box.icon = known.kind;
    }
    ForEachChild(box.window, [&](HWND child) {
        if (HasClass(child, L"Button") && IsWindowVisible(child)) box.buttons.push_back(GetDlgCtrlID(child));
    });
    box.defaultButton = FocusId();
    return box;
}

void Answer(const Box& box, int button) { Click(box.window, button); }

HWND OpenMenu() {
    // The menu's window is there before its loop runs; keys that come in between are lost.
    HWND menu = nullptr;
    Until("a popup menu opens", [&] {
        ForEachWindow(Current().uiThread, [&](HWND window) {
            if (HasClass(window, kMenuClass) && IsWindowVisible(window)) menu = window;
            return menu == nullptr;
        });
        return menu && (GuiState().flags & GUI_INMENUMODE);
    });
    return menu;
}

std::vector<std::wstring> MenuItems(HWND window) {
    const auto menu = reinterpret_cast<HMENU>(Send(window, MN_GETHMENU));
    std::vector<std::wstring> items(static_cast<std::size_t>(std::max(GetMenuItemCount(menu), 0)));
    for (std::size_t i = 0; i < items.size(); ++i) {
        wchar_t text[256];
        const int length = GetMenuStringW(menu, static_cast<UINT>(i), text, 256, MF_BYPOSITION);
        items[i].assign(text, static_cast<std::size_t>(length));
    }
    return items;
}

void PickMenu(int index) {
    OpenMenu();
    const HWND owner = GuiState().hwndMenuOwner;
    for (int i = 0; i <= index; ++i) Post(owner, WM_KEYDOWN, VK_DOWN, 1);
    Post(owner, WM_KEYDOWN, VK_RETURN, 1);
    Until("the menu closes", [] { return !(GuiState().flags & GUI_INMENUMODE); });
    Sync();
}

void CancelMenu() {
    Post(GuiState().hwndMenuOwner, WM_CANCELMODE, 0, 0);
    Until("the menu closes", [] { return !(GuiState().flags & GUI_INMENUMODE); });
}

}  // namespace kiro::drive
