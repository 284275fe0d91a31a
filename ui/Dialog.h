// A dialog of a template. A class per template derives from Dialog and states in its constructor what belongs to what:
//
//     On(kBrowseButton, BN_CLICKED, &KrDxfIn::Browse);
//     Guide({{kScaleEdit, "…"}, {kSubModelEdit, "…"}});
//
// No dialog has a message switch; messages that nobody bound go to the system.
#pragma once

#include <windows.h>

#include <functional>
#include <initializer_list>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "ui/Window.h"

namespace kiro::ui {

// The module whose templates, menus and bitmaps this thread shows: the library's own while a command runs.
HMODULE ResourceModule();

class ScopedResourceModule {
  public:
    explicit ScopedResourceModule(HMODULE module);
    ScopedResourceModule(const ScopedResourceModule&) = delete;
    ScopedResourceModule& operator=(const ScopedResourceModule&) = delete;
    ~ScopedResourceModule();

  private:
    HMODULE previous_;
};

// The guidance text that a control has while it holds the focus. Shift-JIS.
struct GuidanceText {
    int controlId;
    const char* text;
};

class Dialog {
  public:
    explicit Dialog(int templateId) : templateId_(templateId) {}
    Dialog(const Dialog&) = delete;
    Dialog& operator=(const Dialog&) = delete;
    virtual ~Dialog();

    // Runs modally over the owner (null: none) and gives the result that End was given; IDCANCEL when something else
    // ended it, such as WM_QUIT or the destruction of the owner; -1 when it could not be shown.
    INT_PTR DoModal(HWND owner);
    // Makes a modeless dialog, not shown yet; false when it cannot be made. It is destroyed by Destroy, with its owner
    // or with this object.
    bool Create(HWND owner);
    void Destroy();

    HWND Handle() const { return handle_; }
    bool HasEnded() const { return !handle_ || result_; }
    template <class Control>
    Control Item(int controlId) const {
        return Control(GetDlgItem(handle_, controlId));
    }

    // ---- What belongs to what. Handlers of one event run in the order in which they were bound. ----

    void Bind(int controlId, int notification, std::function<void()> handler);
    // Other messages. A result ends the message; a handler without one leaves it to the next and to the system.
    using MessageHandler = std::function<std::optional<INT_PTR>(WPARAM wParam, LPARAM lParam)>;
    void BindMessage(UINT message, MessageHandler handler);
    // An edit, combo or button that takes the focus or gives it away; 0 for the control means any of them. A button
    // tells only when it has the style BS_NOTIFY.
    void BindFocus(int controlId, std::function<void(bool gained)> handler);
    // Whatever the user does to a control, before its own handlers run.
    void BindAnyAction(std::function<void()> handler) { anyAction_.push_back(std::move(handler)); }
    // Paints on the dialog itself, beside its controls.
    void BindPaint(std::function<void(HDC)> painter) { painters_.push_back(std::move(painter)); }

    void FocusTo(int controlId) const;

    // The text of a control. When code page 932 cannot hold it, the user is told which character it is, the focus goes
    // to the control and there is nothing.
    std::optional<std::string> ReadText(int controlId, const std::string& caption);

    // While one lives, filling a control fires no handler.
    class Loading {
      public:
        explicit Loading(Dialog& dialog) : dialog_(dialog) { ++dialog_.loading_; }
        Loading(const Loading&) = delete;
        Loading& operator=(const Loading&) = delete;
        ~Loading() { --dialog_.loading_; }

      private:
        Dialog& dialog_;
    };

  protected:
    virtual void OnInit() {}
    virtual void OnOk() { End(IDOK); }
    virtual void OnCancel() { End(IDCANCEL); }
    virtual void ShowGuidance(const char*) {}  // "" clears

    template <class D>
    void On(int controlId, int notification, void (D::*handler)()) {
        Bind(controlId, notification, [this, handler] { (static_cast<D*>(this)->*handler)(); });
    }
    void Guide(std::initializer_list<GuidanceText> texts);

    // For OnInit: which control has the focus when a modal dialog is shown. Otherwise the first in the order of Tab.
    void StartAt(int controlId) { startId_ = controlId; }

    // Ends a modal dialog. Nothing that happens to its controls afterwards runs a handler, and the first result stands.
    void End(INT_PTR result);

  private:
    struct CommandBinding {
        int controlId;
        int notification;
        std::function<void()> handler;
    };
    struct MessageBinding {
        UINT message;
        MessageHandler handler;
    };
    struct FocusBinding {
        int controlId;
        std::function<void(bool)> handler;
    };

    static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR Handle(UINT message, WPARAM wParam, LPARAM lParam);
    void Initialise();
    INT_PTR Paint();
    INT_PTR Command(int controlId, int notification, HWND control);
    void FocusChanged(int controlId, bool gained);
    void CenterOnOwner() const;

    int templateId_;
    HWND handle_ = nullptr;
    bool modal_ = false;
    int startId_ = 0;
    bool shown_ = false;             // the window has been there
    std::optional<INT_PTR> result_;  // what End was given
    int loading_ = 0;
    std::vector<CommandBinding> commands_;
    std::vector<MessageBinding> messages_;
    std::vector<FocusBinding> focus_;
    std::vector<std::function<void()>> anyAction_;
    std::vector<std::function<void(HDC)>> painters_;
};

}  // namespace kiro::ui
