#include "ui/IdleWork.h"

#include <utility>

namespace kiro::ui {
namespace {

constexpr UINT_PTR kTimer = 0x4C;

}  // namespace

// By a timer, which comes last of all: a chain of posted messages would go before keys and painting, and before the
// moment without a message in which a dialog is shown.
IdleWork::IdleWork(Dialog& dialog, std::function<bool()> slice) : dialog_(dialog), slice_(std::move(slice)) {
    dialog.BindMessage(WM_TIMER, [this](WPARAM wParam, LPARAM) -> std::optional<INT_PTR> {
        if (wParam != kTimer) return std::nullopt;
        Pause();
        // When its initialisation took longer than the timer: the user is to see what is going on.
        if (!IsWindowVisible(dialog_.Handle())) ShowWindow(dialog_.Handle(), SW_SHOWNORMAL);
        done_ = !slice_();
        Start();
        return TRUE;
    });
}

void IdleWork::Start() {
    if (!done_) SetTimer(dialog_.Handle(), kTimer, USER_TIMER_MINIMUM, nullptr);
}

void IdleWork::Pause() { KillTimer(dialog_.Handle(), kTimer); }

}  // namespace kiro::ui
