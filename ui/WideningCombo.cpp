#include "ui/WideningCombo.h"

#include <string>
#include <utility>

#include "ui/Text.h"

namespace kiro::ui {
namespace {

constexpr int kTextMargin = 3;  // pixels, as an edit has

int FontHeight(HWND window) {
    const HDC dc = GetDC(window);
    const HGDIOBJ before = SelectObject(dc, reinterpret_cast<HFONT>(SendMessageW(window, WM_GETFONT, 0, 0)));
    TEXTMETRICW metric{};
    GetTextMetricsW(dc, &metric);
    SelectObject(dc, before);
    ReleaseDC(window, dc);
    return metric.tmHeight;
}

LONG HeightOf(HWND window) {
    RECT rect{};
    GetWindowRect(window, &rect);
    return rect.bottom - rect.top;
}

// SetWindowPos gives a combo the height of its closed field; the height asked for is that of the open list. The width
// and place alone are wanted.
void Place(HWND combo, LONG left, LONG top, LONG width) {
    RECT dropped{};
    SendMessageW(combo, CB_GETDROPPEDCONTROLRECT, 0, reinterpret_cast<LPARAM>(&dropped));
    // The order of the windows is that of the Tab key: it stays.
    SetWindowPos(combo, nullptr, left, top, width, dropped.bottom - dropped.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace

WideningCombo::WideningCombo(Dialog& dialog, int comboId, int editId, std::function<void(int)> chosen, Wide wide)
    : dialog_(dialog),
      comboId_(comboId),
      editId_(editId),
      chosen_(std::move(chosen)),
      whileOpen_(wide == Wide::kWhileOpen) {
    dialog.BindMessage(WM_INITDIALOG, [this](WPARAM, LPARAM) -> std::optional<INT_PTR> {
        Init();
        return std::nullopt;
    });
    dialog.BindMessage(WM_DRAWITEM, [this](WPARAM wParam, LPARAM lParam) -> std::optional<INT_PTR> {
        if (static_cast<int>(wParam) != comboId_) return std::nullopt;
        Draw(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
        return TRUE;
    });
    if (!whileOpen_) dialog.BindFocus(comboId, [this](bool gained) { gained ? Widen() : Restore(); });
    dialog.Bind(comboId, CBN_DROPDOWN, [this] { OnDropDown(); });
    dialog.Bind(comboId, CBN_SELCHANGE, [this] { OnSelChange(); });
    dialog.Bind(comboId, CBN_SELENDOK, [this] { accepted_ = true; });
    dialog.Bind(comboId, CBN_CLOSEUP, [this] { OnCloseUp(); });
}

void WideningCombo::Init() {
    const HWND combo = Combo().Handle();
    const HWND edit = dialog_.Item<Window>(editId_).Handle();
    // The system has asked for the heights before the dialog could know of it.
    SendMessageW(combo, CB_SETITEMHEIGHT, 0, FontHeight(combo));
    const LRESULT field = SendMessageW(combo, CB_GETITEMHEIGHT, static_cast<WPARAM>(-1), 0);
    SendMessageW(combo, CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), field + HeightOf(edit) - HeightOf(combo));
    // As wide as its arrow: of the selected entry not even a first stroke shows beside the edit.
    const RECT rect = Combo().RectInParent();
    const UINT dpi = GetDpiForWindow(combo);
    const int arrow = GetSystemMetricsForDpi(SM_CXVSCROLL, dpi) + 2 * GetSystemMetricsForDpi(SM_CXEDGE, dpi);
    Place(combo, rect.left, rect.top, arrow);
}

void WideningCombo::Draw(const DRAWITEMSTRUCT& request) const {
    const bool field = (request.itemState & ODS_COMBOBOXEDIT) != 0;
    const bool selected = !field && (request.itemState & ODS_SELECTED);
    std::wstring text;
    if (field) {
        text = dialog_.Item<Window>(editId_).WideText();
    } else if (static_cast<int>(request.itemID) >= 0) {
        text = ToWide(Combo().GetLBText(static_cast<int>(request.itemID)));
    }
    RECT area = request.rcItem;
    FillRect(request.hDC, &area, GetSysColorBrush(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
    SetTextColor(request.hDC, GetSysColor(selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
    SetBkMode(request.hDC, TRANSPARENT);
    area.left += kTextMargin;
    // Of a path the end tells files apart.
    DrawTextW(request.hDC, text.c_str(), static_cast<int>(text.size()), &area,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | (field ? DT_PATH_ELLIPSIS : DT_END_ELLIPSIS));
    if (field && (request.itemState & ODS_FOCUS)) DrawFocusRect(request.hDC, &request.rcItem);
}

void WideningCombo::OnDropDown() {
    moved_ = accepted_ = false;
    before_ = Combo().GetCurSel();
    focused_ = Combo().HasFocus();
    if (whileOpen_) Widen();
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
    if (!whileOpen_) return;
    Restore();
    // A list also closes when the user goes to another control: the focus is not taken back from there.
    if (!focused_ || Combo().HasFocus()) dialog_.FocusTo(editId_);
}

void WideningCombo::Choose() {
    const int index = Combo().GetCurSel();
    if (index >= 0) chosen_(index);
    InvalidateRect(Combo().Handle(), nullptr, FALSE);  // its field shows what the edit says now
}

void WideningCombo::Widen() {
    if (wide_) return;
    wide_ = true;
    narrow_ = Combo().RectInParent();
    const RECT edit = dialog_.Item<Window>(editId_).RectInParent();
    Place(Combo().Handle(), edit.left, narrow_.top, narrow_.right - edit.left);
    // The edit lies above the combo. With nothing of it left to see or to click, the combo shows whole.
    SetWindowRgn(dialog_.Item<Window>(editId_).Handle(), CreateRectRgn(0, 0, 0, 0), TRUE);
}

void WideningCombo::Restore() {
    if (!wide_) return;
    wide_ = false;
    Place(Combo().Handle(), narrow_.left, narrow_.top, narrow_.right - narrow_.left);
    SetWindowRgn(dialog_.Item<Window>(editId_).Handle(), nullptr, TRUE);
}

}  // namespace kiro::ui
