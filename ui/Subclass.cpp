#include "ui/Subclass.h"

#include <utility>

namespace kiro::ui {
namespace {

constexpr wchar_t kProperty[] = L"KiroSubclass";

}  // namespace

void Subclass::Attach(HWND window, Handler handler) {
    Detach();
    if (!SetPropW(window, kProperty, this)) return;
    window_ = window;
    handler_ = std::move(handler);
    original_ = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Subclass::Procedure)));
}

void Subclass::Detach() {
    if (!window_) return;
    SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(original_));
    RemovePropW(window_, kProperty);
    window_ = nullptr;
}

LRESULT Subclass::CallOriginal(UINT message, WPARAM wParam, LPARAM lParam) const {
    return CallWindowProcW(original_, window_, message, wParam, lParam);
}

LRESULT CALLBACK Subclass::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* self = static_cast<Subclass*>(GetPropW(window, kProperty));
    if (!self) return DefWindowProcW(window, message, wParam, lParam);
    const WNDPROC original = self->original_;
    if (message == WM_NCDESTROY) {
        self->Detach();
    } else {
        try {
            if (const auto result = self->handler_(message, wParam, lParam)) return *result;
        } catch (...) {
            // No exception may pass through the system; the window goes on with its own behaviour.
        }
    }
    return CallWindowProcW(original, window, message, wParam, lParam);
}

}  // namespace kiro::ui
