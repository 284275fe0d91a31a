#include "ui/HoverZones.h"

#include <utility>

namespace kiro::ui {
namespace {

constexpr UINT kWatchMilliseconds = 50;  // how soon is noticed that the mouse has left a zone

}  // namespace

HoverZones::HoverZones(Dialog& dialog, std::vector<int> staticIds, std::function<void(int)> changed)
    : dialog_(dialog), staticIds_(std::move(staticIds)), changed_(std::move(changed)) {
    const auto follow = [this](WPARAM, LPARAM) -> std::optional<INT_PTR> {
        Follow();
        return std::nullopt;
    };
    dialog.BindMessage(WM_MOUSEMOVE, follow);
    // The dialog gets no mouse move while the mouse is over one of its controls, but it is asked for the cursor.
    dialog.BindMessage(WM_SETCURSOR, follow);
    // Where the mouse goes from a zone the dialog may not be told: into another window, the explanation itself too.
    dialog.BindMessage(WM_TIMER, [this](WPARAM wParam, LPARAM) -> std::optional<INT_PTR> {
        if (wParam == TimerId()) Follow();
        return std::nullopt;
    });
    // Nothing is explained at a place where it no longer is, or in a dialog that is not worked with.
    const auto leave = [this](WPARAM, LPARAM) -> std::optional<INT_PTR> {
        Leave();
        return std::nullopt;
    };
    dialog.BindMessage(WM_MOVE, leave);
    dialog.BindMessage(WM_ENABLE, leave);
    dialog.BindMessage(WM_ACTIVATE, [this](WPARAM wParam, LPARAM) -> std::optional<INT_PTR> {
        if (LOWORD(wParam) == WA_INACTIVE) Leave();
        return std::nullopt;
    });
}

RECT HoverZones::Zone(int index) const {
    return dialog_.Item<Window>(staticIds_[static_cast<std::size_t>(index)]).RectInParent();
}

void HoverZones::Follow() {
    POINT point{};
    GetCursorPos(&point);
    MoveTo(Under(point));
}

void HoverZones::MoveTo(int index) {
    if (index == current_) return;
    current_ = index;
    if (index >= 0) {
        SetTimer(dialog_.Handle(), TimerId(), kWatchMilliseconds, nullptr);
    } else {
        KillTimer(dialog_.Handle(), TimerId());
    }
    changed_(index);
}

int HoverZones::Under(POINT screenPoint) const {
    // Something else may lie over the zone: a message box, a nested dialog, another program.
    if (WindowFromPoint(screenPoint) != dialog_.Handle() || !IsWindowEnabled(dialog_.Handle()) ||
        GetActiveWindow() != dialog_.Handle()) {
        return -1;
    }
    ScreenToClient(dialog_.Handle(), &screenPoint);
    for (std::size_t i = 0; i < staticIds_.size(); ++i) {
        const RECT zone = Zone(static_cast<int>(i));
        if (PtInRect(&zone, screenPoint)) return static_cast<int>(i);
    }
    return -1;
}

}  // namespace kiro::ui
