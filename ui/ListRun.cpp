#include "ui/ListRun.h"

#include <utility>

namespace kiro::ui {
namespace {

constexpr UINT kNextStep = WM_APP + 0x4B;
constexpr UINT_PTR kTimer = 0x4B;

}  // namespace

ListRun::ListRun(Dialog& dialog) : dialog_(dialog) {
    dialog.BindMessage(kNextStep, [this](WPARAM, LPARAM) -> std::optional<INT_PTR> {
        Next();
        return TRUE;
    });
    dialog.BindMessage(WM_TIMER, [this](WPARAM wParam, LPARAM) -> std::optional<INT_PTR> {
        if (wParam != kTimer) return std::nullopt;
        KillTimer(dialog_.Handle(), kTimer);
        Next();
        return TRUE;
    });
}

void ListRun::Start(std::vector<int> rows, std::function<bool(int)> step, std::function<void()> ended) {
    if (running_) return;
    rows_ = std::move(rows);
    step_ = std::move(step);
    ended_ = std::move(ended);
    next_ = 0;
    stop_ = false;
    running_ = true;
    Continue();
}

// A posted message comes before what the user does and before painting. When there is any of that, the next step waits
// behind it: a timer comes last of all.
void ListRun::Continue() {
    const bool waiting = HIWORD(GetQueueStatus(QS_INPUT | QS_PAINT)) != 0;
    if (waiting && SetTimer(dialog_.Handle(), kTimer, USER_TIMER_MINIMUM, nullptr)) return;
    PostMessageW(dialog_.Handle(), kNextStep, 0, 0);
}

void ListRun::Next() {
    if (!running_) return;
    if (!stop_ && next_ < rows_.size() && step_(rows_[next_++])) return Continue();
    running_ = false;
    ended_();
}

}  // namespace kiro::ui
