#include "ui/Dialog.h"

#include <algorithm>
#include <utility>

#include "ui/MessageBoxes.h"
#include "ui/Text.h"

namespace kiro::ui {
namespace {

// One value for each thread, which takes no memory: a host may unload the library when it pleases.
class ThreadSlot {
  public:
    ThreadSlot() : index_(TlsAlloc()) {}
    ThreadSlot(const ThreadSlot&) = delete;
    ThreadSlot& operator=(const ThreadSlot&) = delete;
    ~ThreadSlot() { TlsFree(index_); }

    HMODULE Get() const { return static_cast<HMODULE>(TlsGetValue(index_)); }
    void Set(HMODULE module) const { TlsSetValue(index_, module); }

  private:
    DWORD index_;
};

// A host with several threads may run a command on each.
const ThreadSlot resourceModule;

constexpr int kNoControl = 0;
constexpr INT_PTR kNotShown = -1;

// The notification codes of edits, combos and buttons overlap; the window class tells which is meant.
enum class FocusEvent { kNone, kGained, kLost };

FocusEvent FocusEventOf(HWND control, int notification) {
    wchar_t name[16] = L"";
    GetClassNameW(control, name, 16);
    const auto is = [&](const wchar_t* wanted) { return lstrcmpiW(name, wanted) == 0; };
    const auto match = [&](int gained, int lost) {
        return notification == gained ? FocusEvent::kGained
               : notification == lost ? FocusEvent::kLost
                                      : FocusEvent::kNone;
    };
    if (is(L"Edit")) return match(EN_SETFOCUS, EN_KILLFOCUS);
    if (is(L"ComboBox")) return match(CBN_SETFOCUS, CBN_KILLFOCUS);
    if (is(L"Button")) return match(BN_SETFOCUS, BN_KILLFOCUS);
    return FocusEvent::kNone;
}

}  // namespace

HMODULE ResourceModule() { return resourceModule.Get(); }

ScopedResourceModule::ScopedResourceModule(HMODULE module) : previous_(resourceModule.Get()) {
    resourceModule.Set(module);
}

ScopedResourceModule::~ScopedResourceModule() { resourceModule.Set(previous_); }

Dialog::~Dialog() { Destroy(); }

INT_PTR Dialog::DoModal(HWND owner) {
    modal_ = true;
    shown_ = false;
    result_.reset();
    const bool ownerEnabled = owner && IsWindowEnabled(owner);
    DialogBoxParamW(ResourceModule(), MAKEINTRESOURCEW(templateId_), owner, &Dialog::Procedure,
                    reinterpret_cast<LPARAM>(this));
    if (result_) return *result_;
    // What the system gives is no result when WM_QUIT has broken off its loop: it may be 1, which is IDOK. (It has put
    // the message back for the loops around.) Nor does it always enable the owner then.
    if (ownerEnabled && IsWindow(owner)) EnableWindow(owner, TRUE);
    return shown_ ? IDCANCEL : kNotShown;
}

bool Dialog::Create(HWND owner) {
    modal_ = false;
    return CreateDialogParamW(ResourceModule(), MAKEINTRESOURCEW(templateId_), owner, &Dialog::Procedure,
                              reinterpret_cast<LPARAM>(this)) != nullptr;
}

void Dialog::Destroy() {
    if (handle_) DestroyWindow(handle_);
}

void Dialog::Bind(int controlId, int notification, std::function<void()> handler) {
    commands_.push_back({controlId, notification, std::move(handler)});
}

void Dialog::BindMessage(UINT message, MessageHandler handler) { messages_.push_back({message, std::move(handler)}); }

void Dialog::BindFocus(int controlId, std::function<void(bool)> handler) {
    focus_.push_back({controlId, std::move(handler)});
}

void Dialog::Guide(std::initializer_list<GuidanceText> texts) {
    for (const GuidanceText& guidance : texts) {
        BindFocus(guidance.controlId, [this, text = guidance.text](bool gained) { ShowGuidance(gained ? text : ""); });
    }
}

void Dialog::End(INT_PTR result) {
    // A dialog whose window is gone has ended already, as cancelled.
    if (!modal_ || !handle_ || result_) return;
    result_ = result;
    EndDialog(handle_, result);
}

void Dialog::FocusTo(int controlId) const {
    const HWND control = GetDlgItem(handle_, controlId);
    if (!IsWindowEnabled(control)) return;  // with the focus there no key would do anything
    SendMessageW(handle_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
}

std::optional<std::string> Dialog::ReadText(int controlId, const std::string& caption) {
    const std::wstring text = Item<Window>(controlId).WideText();
    auto sjis = ToSjis(text);
    if (!sjis) {
        const std::wstring message = L"「" + std::wstring(FirstForeignCharacter(text)) +
                                     L"」は使用できない文字です。\n（シフトＪＩＳにない文字は入力できません）";
        DefaultBeep();
        MessageBoxW(handle_, message.c_str(), ToWide(caption).c_str(), MB_OK | MB_ICONEXCLAMATION);
        FocusTo(controlId);
    }
    return sjis;
}

INT_PTR CALLBACK Dialog::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        reinterpret_cast<Dialog*>(lParam)->handle_ = window;
        SetWindowLongPtrW(window, DWLP_USER, lParam);
    }
    auto* self = reinterpret_cast<Dialog*>(GetWindowLongPtrW(window, DWLP_USER));
    if (!self) return FALSE;
    try {
        return self->Handle(message, wParam, lParam);
    } catch (...) {
        // Out of memory, most likely. The command ends as cancelled and the host lives on.
        self->End(IDCANCEL);
        return FALSE;
    }
}

INT_PTR Dialog::Handle(UINT message, WPARAM wParam, LPARAM lParam) {
    for (std::size_t i = 0; i < messages_.size(); ++i) {
        if (messages_[i].message != message) continue;
        if (const auto result = messages_[i].handler(wParam, lParam)) return *result;
    }
    switch (message) {
        case WM_INITDIALOG:
            Initialise();
            if (modal_ && startId_) {
                FocusTo(startId_);
                return FALSE;
            }
            return modal_;  // a modeless dialog takes no focus
        case WM_PAINT:
            return Paint();
        case WM_COMMAND:
            return Command(LOWORD(wParam), HIWORD(wParam), reinterpret_cast<HWND>(lParam));
        case WM_NCDESTROY:
            SetWindowLongPtrW(handle_, DWLP_USER, 0);
            handle_ = nullptr;
            return FALSE;
        default:
            return FALSE;
    }
}

void Dialog::Initialise() {
    const Loading loading(*this);
    shown_ = true;
    OnInit();
    if (modal_) CenterOnOwner();
}

INT_PTR Dialog::Paint() {
    if (painters_.empty()) return FALSE;
    PAINTSTRUCT paint{};
    if (const HDC dc = BeginPaint(handle_, &paint)) {
        for (const auto& painter : painters_) painter(dc);
    }
    EndPaint(handle_, &paint);
    return TRUE;
}

INT_PTR Dialog::Command(int controlId, int notification, HWND control) {
    if (loading_ > 0 || result_) return FALSE;
    for (const auto& handler : anyAction_) handler();
    const FocusEvent event = control ? FocusEventOf(control, notification) : FocusEvent::kNone;
    if (event != FocusEvent::kNone) FocusChanged(controlId, event == FocusEvent::kGained);
    bool handled = event != FocusEvent::kNone;
    // By index: a handler may close the dialog, but none binds anew while the dialog is open.
    for (std::size_t i = 0; i < commands_.size(); ++i) {
        if (commands_[i].controlId != controlId || commands_[i].notification != notification) continue;
        commands_[i].handler();
        handled = true;
    }
    if (handled || notification != BN_CLICKED) return handled;
    if (controlId == IDOK) OnOk();
    if (controlId == IDCANCEL) OnCancel();
    return controlId == IDOK || controlId == IDCANCEL;
}

void Dialog::FocusChanged(int controlId, bool gained) {
    for (std::size_t i = 0; i < focus_.size(); ++i) {
        if (focus_[i].controlId == controlId || focus_[i].controlId == kNoControl) focus_[i].handler(gained);
    }
}

void Dialog::CenterOnOwner() const {
    const HWND owner = GetWindow(handle_, GW_OWNER);
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    if (!GetMonitorInfoW(MonitorFromWindow(owner ? owner : handle_, MONITOR_DEFAULTTONEAREST), &monitor)) return;
    const RECT& work = monitor.rcWork;
    RECT around = work;
    if (owner && IsWindowVisible(owner) && !IsIconic(owner)) GetWindowRect(owner, &around);
    RECT rect{};
    GetWindowRect(handle_, &rect);
    const LONG width = rect.right - rect.left;
    const LONG height = rect.bottom - rect.top;
    const auto place = [](LONG from, LONG to, LONG size, LONG least, LONG most) {
        const LONG at = from + (to - from - size) / 2;
        // The upper left corner wins: there are the caption and the first fields.
        return (std::max)(least, (std::min)(at, most - size));
    };
    SetWindowPos(handle_, nullptr, place(around.left, around.right, width, work.left, work.right),
                 place(around.top, around.bottom, height, work.top, work.bottom), 0, 0,
                 SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace kiro::ui
