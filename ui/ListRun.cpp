#include "ui/ListRun.h"

#include <commctrl.h>

#include <utility>

namespace kiro::ui {
namespace {

constexpr UINT kNextStep = WM_APP + 0x4B;
constexpr UINT_PTR kTimer = 0x4B;
constexpr ULONGLONG kSlice = 20;  // milliseconds
constexpr int kBarHeight = 4;     // dialog units; templates have that much room below their last controls

}  // namespace

ListRun::ListRun(Dialog& dialog) : dialog_(dialog) {
    dialog.BindMessage(WM_INITDIALOG, [this](WPARAM, LPARAM) -> std::optional<INT_PTR> {
        RECT client{};
        GetClientRect(dialog_.Handle(), &client);
        lowerEdge_ = client.bottom;
        return std::nullopt;
    });
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
    ShowBar();
    Continue();
}

// Without the system's class of such bars there is none, and nothing else is different.
void ListRun::ShowBar() {
    const HWND dialog = dialog_.Handle();
    RECT units{0, 0, 0, kBarHeight};
    RECT client{};
    MapDialogRect(dialog, &units);
    GetClientRect(dialog, &client);
    bar_ = CreateWindowExW(0, PROGRESS_CLASSW, L"", WS_CHILD | WS_VISIBLE | PBS_SMOOTH, 0, lowerEdge_ - units.bottom,
                           client.right, units.bottom, dialog, nullptr, nullptr, nullptr);
    SendMessageW(bar_, PBM_SETRANGE32, 0, static_cast<LPARAM>(rows_.size()));
}

void ListRun::Paint() {
    SendMessageW(bar_, PBM_SETPOS, next_, 0);
    RedrawWindow(dialog_.Handle(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    painted_ = GetTickCount64();
}

// A posted message comes before what the user does. When there is any of that, the next step waits behind it: a timer
// comes last of all. So does painting, which would keep short steps waiting longer than they take.
void ListRun::Continue() {
    const bool waiting = HIWORD(GetQueueStatus(QS_INPUT)) != 0;
    if (waiting && SetTimer(dialog_.Handle(), kTimer, USER_TIMER_MINIMUM, nullptr)) return;
    PostMessageW(dialog_.Handle(), kNextStep, 0, 0);
}

// Short steps are taken together, as long as nobody notices and nothing else is to be done.
void ListRun::Next() {
    const ULONGLONG end = GetTickCount64() + kSlice;
    while (running_ && !dialog_.HasEnded()) {
        if (stop_ || next_ == rows_.size() || !step_(rows_[next_++])) return Ended();
        if (IsPaintDue()) Paint();
        if (GetTickCount64() >= end || HIWORD(GetQueueStatus(QS_INPUT | QS_POSTMESSAGE | QS_SENDMESSAGE)) != 0)
            return Continue();
    }
}

void ListRun::Ended() {
    running_ = false;
    DestroyWindow(std::exchange(bar_, nullptr));
    ended_();
}

}  // namespace kiro::ui
