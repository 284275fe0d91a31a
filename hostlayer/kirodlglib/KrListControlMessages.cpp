// The procedures through which a grid hears its list view and its dialog.
#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

#include "KrGuarded.h"
#include "KrListControlImpl.h"

// ---- The list view ----

// The list view's user data. A list view gets many messages, so its procedure is our own: the system's subclasses look
// for their properties with each of them.
struct KrListControlImpl::Hook {
    WNDPROC before;
    KrListControlImpl* grid;  // null: gone, but a procedure that came later goes on calling ours

    static Hook* Of(HWND list) { return reinterpret_cast<Hook*>(GetWindowLongPtrW(list, GWLP_USERDATA)); }
    static void Keep(HWND list, Hook* hook) {
        SetWindowLongPtrW(list, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(hook));
    }
    static WNDPROC SetProcedure(HWND list, WNDPROC procedure) {
        const auto before = SetWindowLongPtrW(list, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
        return reinterpret_cast<WNDPROC>(before);
    }
    LRESULT Usual(HWND list, UINT message, WPARAM wParam, LPARAM lParam) const {
        return CallWindowProcW(before, list, message, wParam, lParam);
    }
};

bool KrListControlImpl::HookList(HWND list) {
    if (Hook* const hook = Hook::Of(list)) {
        if (hook->grid) return false;
        hook->grid = this;
        return true;
    }
    auto hook = std::make_unique<Hook>(nullptr, this);
    Hook::Keep(list, hook.get());
    hook->before = Hook::SetProcedure(list, &KrListControlImpl::ListProc);
    hook.release();
    return true;
}

void KrListControlImpl::UnhookList(HWND list) {
    Hook* const hook = Hook::Of(list);
    hook->grid = nullptr;
    if (reinterpret_cast<WNDPROC>(GetWindowLongPtrW(list, GWLP_WNDPROC)) != &KrListControlImpl::ListProc) return;
    Hook::SetProcedure(list, hook->before);
    Hook::Keep(list, nullptr);
    delete hook;
}

LRESULT KrListControlImpl::UsualOfList(UINT message, WPARAM wParam, LPARAM lParam) const {
    return Hook::Of(view_.List())->Usual(view_.List(), message, wParam, lParam);
}

LRESULT CALLBACK KrListControlImpl::ListProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    Hook* const hook = Hook::Of(window);
    const Hook usual = *hook;
    if (message == WM_NCDESTROY) {
        Hook::SetProcedure(window, hook->before);
        delete hook;
        if (usual.grid) {
            usual.grid->accessible_.End();
            usual.grid->view_.Detach();
        }
    }
    if (message == WM_NCDESTROY || !usual.grid) return usual.Usual(window, message, wParam, lParam);
    auto& grid = *usual.grid;
    const Busy busy(grid);
    const auto result = Guarded(std::optional<LRESULT>(), [&] { return grid.OnList(message, wParam, lParam); });
    if (result) return *result;
    // What the focus changes in the picture is painted later, with all else.
    const bool focus = message == WM_SETFOCUS || message == WM_KILLFOCUS;
    if (message == WM_PAINT || focus) grid.view_.Draws(focus ? KrGridView::Drawing::kNot : KrGridView::Drawing::kAll);
    const LRESULT done = usual.Usual(window, message, wParam, lParam);
    if (message == WM_PAINT || focus) grid.view_.Draws(KrGridView::Drawing::kSingly);
    Guarded([&] { grid.AfterList(message); });
    return done;
}

// ---- The dialog ----

// However many grids a dialog has, it has one subclass.
struct KrListControlImpl::Dialog {
    std::vector<KrListControlImpl*> grids;  // null: gone
    std::shared_ptr<Dialog> own;            // until the window is destroyed, maybe in the middle of another message

    static Dialog* Of(HWND dialog) { return static_cast<Dialog*>(GetPropW(dialog, kProperty)); }
    static constexpr wchar_t kProperty[] = L"KrListControlDialog";
};

bool KrListControlImpl::JoinDialog(HWND dialog) {
    Dialog* joined = Dialog::Of(dialog);
    if (!joined) {
        const auto made = std::make_shared<Dialog>();
        joined = made.get();
        if (!SetPropW(dialog, Dialog::kProperty, joined)) return false;
        if (!SetWindowSubclass(dialog, &KrListControlImpl::DialogProc, 0, reinterpret_cast<DWORD_PTR>(joined))) {
            RemovePropW(dialog, Dialog::kProperty);
            return false;
        }
        joined->own = made;
    }
    joined->grids.push_back(this);
    return true;
}

void KrListControlImpl::LeaveDialog() {
    if (Dialog* const joined = dialog_ ? Dialog::Of(dialog_) : nullptr)
        std::ranges::replace(joined->grids, this, nullptr);
}

LRESULT CALLBACK KrListControlImpl::DialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                               DWORD_PTR data) {
    const std::shared_ptr<Dialog> dialog = reinterpret_cast<Dialog*>(data)->own;
    auto& grids = dialog->grids;
    if (message == WM_NCDESTROY) {
        RemoveWindowSubclass(window, &KrListControlImpl::DialogProc, id);
        RemovePropW(window, Dialog::kProperty);
        dialog->own.reset();
        for (KrListControlImpl* const grid : std::exchange(grids, {}))
            if (grid) grid->dialog_ = nullptr;
    }
    // By index: what a grid is told may end it, or make another one.
    for (std::size_t i = 0; i < grids.size(); ++i) {
        if (!grids[i]) continue;
        KrListControlImpl& grid = *grids[i];
        const Busy busy(grid);
        const auto result = Guarded(std::optional<LRESULT>(), [&] { return grid.OnDialog(message, wParam, lParam); });
        if (result) return *result;
    }
    return DefSubclassProc(window, message, wParam, lParam);
}
