#include "ui/MenuLabel.h"

#include <utility>

namespace kiro::ui {
namespace {

constexpr int kFrameDistance = 4;  // pixels between the text's rectangle and the frame around it
constexpr COLORREF kGrey = RGB(0x80, 0x80, 0x80);
constexpr COLORREF kBlack = RGB(0, 0, 0);
constexpr COLORREF kLightGrey = RGB(0xE0, 0xE0, 0xE0);

// One L-shaped pair of lines: the upper and left or the lower and right edges of a rectangle.
void DrawCorner(HDC dc, const RECT& rect, bool upperLeft, COLORREF color) {
    const HPEN pen = CreatePen(PS_SOLID, 1, color);
    const HGDIOBJ previous = SelectObject(dc, pen);
    MoveToEx(dc, rect.left, rect.bottom - 1, nullptr);
    LineTo(dc, upperLeft ? rect.left : rect.right - 1, upperLeft ? rect.top : rect.bottom - 1);
    LineTo(dc, rect.right - 1, rect.top - (upperLeft ? 0 : 1));
    SelectObject(dc, previous);
    DeleteObject(pen);
}

}  // namespace

MenuLabel::MenuLabel(Dialog& dialog, int labelId, int menuId, std::function<void(UINT)> chosen)
    : dialog_(dialog), labelId_(labelId), menuId_(menuId), chosen_(std::move(chosen)) {
    dialog.BindPaint([this](HDC dc) { Paint(dc); });
    dialog.BindAnyAction([this] { Draw(State::kFlat); });
}

void MenuLabel::Init() {
    subclass_.Attach(GetDlgItem(dialog_.Handle(), labelId_),
                     [this](UINT message, WPARAM, LPARAM) { return OnLabelMessage(message); });
}

std::optional<LRESULT> MenuLabel::OnLabelMessage(UINT message) {
    switch (message) {
        case WM_MOUSEMOVE: {
            if (state_ == State::kFlat) Draw(State::kHovered);
            TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, GetDlgItem(dialog_.Handle(), labelId_), 0};
            TrackMouseEvent(&track);
            return std::nullopt;
        }
        case WM_MOUSELEAVE:
            if (state_ != State::kPressed) Draw(State::kFlat);
            return std::nullopt;
        case WM_LBUTTONDOWN:
        case WM_RBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
        case WM_RBUTTONDBLCLK:
            Press();
            return 0;
        default:
            return std::nullopt;
    }
}

void MenuLabel::Press() {
    if (state_ == State::kPressed) {
        Draw(UnderMouse() ? State::kHovered : State::kFlat);
        return;
    }
    Draw(State::kPressed);
    OpenMenu();
}

void MenuLabel::OpenMenu() {
    const HMENU menu = LoadMenuW(ResourceModule(), MAKEINTRESOURCEW(menuId_));
    if (!menu) return;
    POINT corner{Frame().right, Frame().bottom};
    ClientToScreen(dialog_.Handle(), &corner);
    const BOOL command = TrackPopupMenu(GetSubMenu(menu, 0), TPM_RETURNCMD | TPM_LEFTBUTTON | TPM_RIGHTBUTTON, corner.x,
                                        corner.y, 0, dialog_.Handle(), nullptr);
    DestroyMenu(menu);
    Draw(UnderMouse() ? State::kHovered : State::kFlat);
    if (command) chosen_(static_cast<UINT>(command));
}

void MenuLabel::Draw(State state) {
    if (state == state_) return;
    state_ = state;
    const RECT frame = Frame();
    InvalidateRect(dialog_.Handle(), &frame, TRUE);
}

void MenuLabel::Paint(HDC dc) const {
    if (state_ == State::kFlat) return;
    const bool raised = state_ == State::kHovered;
    RECT frame = Frame();
    DrawCorner(dc, frame, true, raised ? kLightGrey : kBlack);
    DrawCorner(dc, frame, false, raised ? kBlack : kLightGrey);
    InflateRect(&frame, -1, -1);
    DrawCorner(dc, frame, !raised, kGrey);
}

RECT MenuLabel::Frame() const {
    RECT rect = dialog_.Item<Window>(labelId_).RectInParent();
    InflateRect(&rect, kFrameDistance, kFrameDistance);
    return rect;
}

bool MenuLabel::UnderMouse() const {
    POINT point{};
    RECT rect{};
    GetCursorPos(&point);
    GetWindowRect(GetDlgItem(dialog_.Handle(), labelId_), &rect);
    return PtInRect(&rect, point);
}

}  // namespace kiro::ui
