#include "ui/WideningCombo.h"

#include <utility>

namespace kiro::ui {
namespace {

constexpr int kFrameDistance = 2;  // pixels

// SetWindowPos gives a combo the height of its closed field; the height asked for is that of the open list. The width
// and place alone are wanted.
void Place(HWND combo, LONG left, LONG top, LONG width) {
    RECT dropped{};
    SendMessageW(combo, CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&dropped));
    // The order of the windows is that of the Tab key: it stays.
    SetWindowPos(combo, nullptr, left, top, width, dropped.bottom - dropped.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace

WideningCombo::WideningCombo(Dialog& dialog, int comboId, int editId, std::function<void(int)> chosen)
    : dialog_(dialog), comboId_(comboId), editId_(editId), chosen_(std::move(chosen)) {
    dialog.BindMessage(WM_INITDIALOG, [this](WPARAM, LPARAM) -> std::optional<INT_PTR> {
        Init();
        return std::nullopt;
    });
    dialog.BindPaint([this](HDC dc) {
        const RECT frame = Frame();
        if (wide_) DrawFocusRect(dc, &frame);
    });
    dialog.BindFocus(comboId, [this](bool gained) { gained ? Widen() : Restore(); });
    dialog.Bind(comboId, CBN_DROPDOWN, [this] {
        moved_ = accepted_ = false;
        before_ = Combo().GetCurSel();
    });
    dialog.Bind(comboId, CBN_SELCHANGE, [this] { OnSelChange(); });
    dialog.Bind(comboId, CBN_SELENDOK, [this] { accepted_ = true; });
    dialog.Bind(comboId, CBN_CLOSEUP, [this] { OnCloseUp(); });
}

void WideningCombo::Init() {
    const HWND combo = Combo().Handle();
    // As wide as its arrow: of the selected entry not even a first stroke shows beside the edit.
    const RECT rect = Combo().RectInParent();
    const UINT dpi = GetDpiForWindow(combo);
    const int arrow = GetSystemMetricsForDpi(SM_CXVSCROLL, dpi) + 2 * GetSystemMetricsForDpi(SM_CXEDGE, dpi);
    Place(combo, rect.left, rect.top, arrow);
    // The edit comes before it in the template and so lies above it: what the combo paints must not cover it.
    SetWindowLongPtrW(combo, GWL_STYLE, GetWindowLongPtrW(combo, GWL_STYLE) | WS_CLIPSIBLINGS);
}

// The mouse closes the list and then tells of the new selection; the keyboard tells of each step while the list is
// open.
void WideningCombo::OnSelChange() {
    if (SendMessageW(Combo().Handle(), CB_GETDROPPEDSTATE, 0, 0)) {
        moved_ = true;
    } else {
        Choose();
    }
}

void WideningCombo::OnCloseUp() {
    if (moved_ && accepted_) Choose();
    if (moved_ && !accepted_) Combo().SetCurSel(before_);
    moved_ = accepted_ = false;
}

void WideningCombo::Choose() {
    const int index = Combo().GetCurSel();
    if (index >= 0) chosen_(index);
}

void WideningCombo::Widen() {
    if (wide_) return;
    wide_ = true;
    narrow_ = Combo().RectInParent();
    const RECT edit = dialog_.Item<Window>(editId_).RectInParent();
    Place(Combo().Handle(), edit.left, narrow_.top, narrow_.right - edit.left);
    Repaint();
}

void WideningCombo::Restore() {
    if (!wide_) return;
    wide_ = false;
    Place(Combo().Handle(), narrow_.left, narrow_.top, narrow_.right - narrow_.left);
    Repaint();
}

void WideningCombo::Repaint() const {
    RECT frame = Frame();
    InvalidateRect(dialog_.Handle(), &frame, TRUE);
    InvalidateRect(dialog_.Item<Window>(editId_).Handle(), nullptr, TRUE);
}

RECT WideningCombo::Frame() const {
    const RECT edit = dialog_.Item<Window>(editId_).RectInParent();
    const RECT combo = Combo().RectInParent();
    RECT frame{};
    UnionRect(&frame, &edit, &combo);
    InflateRect(&frame, kFrameDistance, kFrameDistance);
    return frame;
}

}  // namespace kiro::ui
