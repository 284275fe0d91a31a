// What the windows and the operator send to a grid: keys, mouse, scrolling, and the list view's questions.
#include <windowsx.h>

#include <algorithm>
#include <cwchar>

#include "KrGridMessages.h"
#include "KrGuarded.h"
#include "KrListControlImpl.h"
#include "KrText.h"

namespace {

bool IsKeyDown(int key) { return GetKeyState(key) < 0; }

POINT PointOf(LPARAM lParam) { return {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)}; }

}  // namespace

// ---- Keys ----

// Where a key leads to from a place, as it is seen; maybe past the rows.
std::optional<GridPlace> KrListControlImpl::Target(WPARAM key, GridPlace from) const {
    const bool all = IsKeyDown(VK_CONTROL);
    const int last = rows_.Rows() - 1;
    const int page = std::max(view_.RowsOnPage() - 1, 1);
    GridPlace to{order_.IndexOf(from.row), from.column};
    switch (key) {
        case VK_UP:
            --to.row;
            break;
        case VK_DOWN:
            ++to.row;
            break;
        case VK_LEFT:
            --to.column;
            break;
        case VK_RIGHT:
            ++to.column;
            break;
        case VK_PRIOR:
            to.row -= page;
            break;
        case VK_NEXT:
            to.row += page;
            break;
        case VK_HOME:
            to = {0, all ? 0 : to.column};
            break;
        case VK_END:
            to = {last, all ? rows_.Columns() - 1 : to.column};
            break;
        default:
            return std::nullopt;
    }
    return GridPlace{order_.RowAt(std::clamp(to.row, 0, std::max(last, 0))),
                     std::clamp(to.column, 0, std::max(rows_.Columns() - 1, 0))};
}

// shift: with Shift the cells are selected, or where rows can be marked all rows are that the key goes over.
bool KrListControlImpl::Navigate(WPARAM key, bool shift) {
    const bool selects = shift && IsKeyDown(VK_SHIFT) && SelectsByShift();
    const bool extended = selects && selection_.End().row >= 0;
    const std::optional<GridPlace> to = Target(key, extended ? selection_.End() : current_);
    if (!to) return false;
    if (rows_.Rows() == 0 || rows_.Columns() == 0 || !TakeEdits()) return true;
    if (MakeCurrent()) return true;
    if (selects) {
        ExtendTo(*to);
        return true;
    }
    MoveTo(*to, shift);
    ShowWholeText();
    return true;
}

// Enter: the cell below, or behind the last cell a new row.
void KrListControlImpl::GoOn() {
    const bool last = rows_.CanEdit(current_) && !NextToEdit(current_, true);
    if (!last || !Ask(kKrAskAddRow)) Navigate(VK_DOWN);
}

void KrListControlImpl::MoveTo(GridPlace place, bool marks) {
    const int from = current_.row;
    const bool extends = marks && WantsRange();
    if (extends && !shifting_) range_.Begin(from);
    SetCurrent(place, By::kUser);
    shifting_ = extends;
    if (extends) ExtendMarks(from);
}

// The first key in a grid without a current cell makes one, and does nothing else. True when it did.
bool KrListControlImpl::MakeCurrent() {
    if (rows_.Has(current_)) return false;
    SetCurrent({order_.RowAt(0), rows_.FirstEditableColumn()}, By::kUser);
    ShowWholeText();
    return true;
}

// For who works with the keys: the mouse is not needed to read a text that is cut.
void KrListControlImpl::ShowWholeText() {
    const GridCell* cell = rows_.Find(current_);
    if (!cell || !view_.List() || GetFocus() != view_.List() || !view_.IsCut(current_)) return;
    tip_.ShowBelow(view_.List(), view_.CellRect(current_), WideForDisplay(cell->text));
}

bool KrListControlImpl::OnKey(WPARAM key) {
    if (OnChord(key)) return true;
    switch (key) {
        case VK_RETURN:
            GoOn();
            return true;
        case VK_F2:
            MakeCurrent();
            OpenEditor(KrCellEditor::Start::kKeepText);
            return true;
        case VK_F4:
            MakeCurrent();
            if (rows_.EditingOf(current_).combo) OpenEditor(KrCellEditor::Start::kDropDown);
            return true;
        case VK_SPACE:
            return true;  // its character counts
        default:
            return Navigate(key, true);
    }
}

void KrListControlImpl::OnCharacter(wchar_t character) {
    if (character < L' ' || character == 0x7F || rows_.Rows() == 0) return;
    MakeCurrent();
    if (character == L' ' || character == L'　') {
        // Never starts a text: where rows have no marks it would only wipe the cell.
        if (rows_.MarkKind() == GridRows::Marks::kNone) return;
        WantsRange() ? ExtendMarks(current_.row) : ToggleMark();
    } else if (OpenEditor(KrCellEditor::Start::kReplaceText)) {
        editor_.Forward(WM_CHAR, character, 1);
    } else {
        MessageBeep(MB_OK);
    }
}

// Characters come one by one, also from an input method that composed them. One that shows its composition in place
// needs the editor before that: the list view takes no text.
std::optional<LRESULT> KrListControlImpl::OnListText(UINT message, WPARAM wParam, LPARAM lParam) {
    if (editor_.IsOpen()) return editor_.Forward(message, wParam, lParam);
    if (message == WM_CHAR) {
        OnCharacter(static_cast<wchar_t>(wParam));
        return 0;
    }
    if (message == WM_IME_STARTCOMPOSITION) {
        MakeCurrent();
        // The text is selected, and stays when the composition is given up.
        if (rows_.EditingOf(current_).typed && OpenEditor(KrCellEditor::Start::kKeepText))
            return editor_.Forward(message, wParam, lParam);
    }
    return std::nullopt;
}

// ---- The mouse ----

// False when the list view shall go on with it.
bool KrListControlImpl::Press(POINT point, bool right) {
    const GridPlace hit = view_.Hit(point);
    clickOpens_ = view_.HasFocus() && hit == current_ && rows_.Has(hit) && selection_.End().row < 0;
    if (!TakeEdits()) return true;
    if (!view_.List()) return false;
    if (!right) {
        if (!IsKeyDown(VK_SHIFT) || !SelectsByShift() || !rows_.Has(current_) || !rows_.Has(hit)) return false;
        SetFocus(view_.List());
        clickOpens_ = false;
        ExtendTo(hit);
        return true;
    }
    rightPressed_ = true;
    SetFocus(view_.List());
    // The selection stays for a menu over it.
    if (rows_.Has(hit) && !IsSelected(hit)) SetCurrent(hit, By::kUser);
    return true;
}

std::optional<LRESULT> KrListControlImpl::OnListMouse(UINT message, WPARAM wParam, LPARAM lParam) {
    POINT point = PointOf(lParam);
    if (!Drag(message, point)) RelayToTip(message, wParam, lParam);
    if (message == WM_MOUSEMOVE || message == WM_LBUTTONUP) return std::nullopt;
    if (message != WM_RBUTTONUP)
        return Press(point, message == WM_RBUTTONDOWN || message == WM_RBUTTONDBLCLK) ? std::optional<LRESULT>(0)
                                                                                      : std::nullopt;
    // No menu where the press was refused, as the row under the mouse is not the current one.
    if (!std::exchange(rightPressed_, false)) return 0;
    ClientToScreen(view_.List(), &point);
    return SendMessageW(dialog_, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(view_.List()), MAKELPARAM(point.x, point.y));
}

void KrListControlImpl::RelayToTip(UINT message, WPARAM wParam, LPARAM lParam) {
    const GridPlace place = view_.Hit(PointOf(lParam));
    const bool edited = editor_.IsOpen() && place == current_;
    const bool cut = !edited && view_.IsCut(place);
    tip_.Relay(view_.List(), message, wParam, lParam, cut ? view_.CellRect(place) : RECT{},
               cut ? WideForDisplay(rows_.Find(place)->text) : std::wstring());
}

void KrListControlImpl::BeforeClick(const NMITEMACTIVATE& click) {
    const GridPlace place{order_.RowAt(click.iItem), click.iSubItem};
    clicked_ = rows_.Has(place) ? place : GridPlace{};
    clickPending_ = true;
    // In a cell that can be edited a click is for that. The second click of a double click chooses nothing.
    clickMarks_ = click.hdr.code == NM_CLICK && rows_.MarkKind() != GridRows::Marks::kNone && !rows_.CanEdit(clicked_);
}

void KrListControlImpl::Dragged(POINT from) {
    const GridPlace place = view_.Hit(from);
    if (!rows_.Has(place) || !TakeEdits()) return;
    SetCurrent(place, By::kUser);
    dragging_ = IsKeyDown(VK_LBUTTON) && current_ == place;
    if (dragging_) SetCapture(view_.List());
}

// The current cell is still the one before until the dialog calls ClickItem; one that does not know of clicks need not.
void KrListControlImpl::AfterClick(UINT code) {
    if (clickPending_) ClickItem();
    const bool opens = std::exchange(clickOpens_, false) || code == NM_DBLCLK;
    if (!opens || current_ != clicked_ || editor_.IsOpen()) return;
    const bool choosesOnly = !rows_.EditingOf(current_).typed;
    OpenEditor(choosesOnly ? KrCellEditor::Start::kDropDown : KrCellEditor::Start::kKeepText);
}

// ---- The editor ----

void KrListControlImpl::OnEditor(EditorEvent event) {
    const Busy busy(*this);
    Guarded([&] {
        switch (event) {
            case EditorEvent::kFocusLost:
                Commit(false);
                view_.Repaint(current_.row);
                break;
            case EditorEvent::kEscape:
                editor_.Close(true);
                view_.Repaint(current_.row);
                break;
            case EditorEvent::kPicked:
                Commit(true);
                break;
            case EditorEvent::kEnter:
                if (Commit(true) && !editor_.IsOpen()) GoOn();
                break;
            case EditorEvent::kDown:
                if (Commit(true) && !editor_.IsOpen()) Navigate(VK_DOWN);
                break;
            case EditorEvent::kUp:
                if (Commit(true) && !editor_.IsOpen()) Navigate(VK_UP);
                break;
            case EditorEvent::kTab:
            case EditorEvent::kBackTab:
                OpenNext(event == EditorEvent::kTab);
                break;
        }
    });
}

// Row by row, as they are seen.
std::optional<GridPlace> KrListControlImpl::NextToEdit(GridPlace from, bool forwards) const {
    const int step = forwards ? 1 : -1;
    for (GridPlace at{order_.IndexOf(from.row), from.column};;) {
        at.column += step;
        if (!rows_.FindColumn(at.column)) at = {at.row + step, forwards ? 0 : rows_.Columns() - 1};
        if (!rows_.HasRow(at.row) || rows_.Columns() == 0) return std::nullopt;
        const GridPlace place{order_.RowAt(at.row), at.column};
        if (rows_.CanEdit(place)) return place;
    }
}

void KrListControlImpl::OpenNext(bool forwards) {
    const GridPlace from = current_;
    if (!TakeEdits() || editor_.IsOpen()) return;
    std::optional<GridPlace> next = NextToEdit(from, forwards);
    if (!next && forwards && Ask(kKrAskAddRow)) next = NextToEdit(from, true);
    if (!next) return;
    errorShown_ = false;
    SetCurrent(*next, By::kUser);
    // What the dialog found wrong when it heard of the move stays to be read.
    if (current_ == *next) OpenEditor(KrCellEditor::Start::kKeepText, !errorShown_);
}

// ---- The list view ----

std::optional<LRESULT> KrListControlImpl::OnHeader(const NMHEADERW& header) {
    switch (header.hdr.code) {
        case HDN_BEGINTRACKA:
        case HDN_BEGINTRACKW:
            return Commit(true) ? std::nullopt : std::optional<LRESULT>(TRUE);
        case HDN_ENDTRACKA:
        case HDN_ENDTRACKW:
            PostMessageW(view_.List(), kGridFit, static_cast<WPARAM>(header.iItem), 0);
            return std::nullopt;
        case HDN_DIVIDERDBLCLICKA:
        case HDN_DIVIDERDBLCLICKW:
            FitColumn(header.iItem);
            return 0;
        case HDN_ITEMCLICKA:
        case HDN_ITEMCLICKW:
            SortBy(header.iItem);
            return 0;
        default:
            return std::nullopt;
    }
}

std::optional<LRESULT> KrListControlImpl::OnList(UINT message, WPARAM wParam, LPARAM lParam) {
    const auto handled = [](bool yes) { return yes ? std::optional<LRESULT>(0) : std::nullopt; };
    switch (message) {
        case WM_GETDLGCODE: {
            const LRESULT code = UsualOfList(message, wParam, lParam);
            const auto* key = reinterpret_cast<const MSG*>(lParam);
            const bool down = key && key->message == WM_KEYDOWN;
            const bool wanted = down && (key->wParam == VK_RETURN || (key->wParam == VK_ESCAPE && find_.IsOpen()));
            return wanted ? code | DLGC_WANTMESSAGE : code;
        }
        case WM_KEYDOWN:
            return handled(OnKey(wParam));
        case WM_KEYUP:
            // Not left to the system: a list view may keep it from it.
            if (wParam != VK_APPS) return std::nullopt;
            return SendMessageW(dialog_, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(view_.List()), -1);
        case WM_SYSKEYDOWN:
            return handled(wParam == VK_DOWN ? OnKey(VK_F4) : OnChord(wParam));
        case WM_CHAR:
        case WM_IME_CHAR:
        case WM_IME_STARTCOMPOSITION:
        case WM_IME_COMPOSITION:
        case WM_IME_ENDCOMPOSITION:
            return OnListText(message, wParam, lParam);
        case WM_CAPTURECHANGED:
            dragging_ = false;
            return std::nullopt;
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
        case WM_LBUTTONUP:
        case WM_RBUTTONDOWN:
        case WM_RBUTTONDBLCLK:
        case WM_RBUTTONUP:
        case WM_MOUSEMOVE:
            return OnListMouse(message, wParam, lParam);
        case WM_VSCROLL:
        case WM_HSCROLL:
        case WM_MOUSEWHEEL:
        case LVM_SCROLL:
            return handled(!Commit(true));
        case WM_SIZE:
            Commit(false);
            return std::nullopt;
        case WM_NOTIFY:
            return reinterpret_cast<const NMHDR*>(lParam)->hwndFrom == reinterpret_cast<HWND>(view_.Send(LVM_GETHEADER))
                       ? OnHeader(*reinterpret_cast<const NMHEADERW*>(lParam))
                       : std::nullopt;
        case WM_COMMAND:
            return handled(editor_.OnCommand(HIWORD(wParam), reinterpret_cast<HWND>(lParam)));
        case WM_DRAWITEM:
            return handled(editor_.DrawChoice(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam)));
        case kGridPicked:
            editor_.OnPicked(wParam);
            return 0;
        case kGridFit:
            view_.KeepResized(static_cast<int>(wParam));
            ColumnsChanged();
            return 0;
        case WM_GETOBJECT:
            if (static_cast<LONG>(lParam) != OBJID_CLIENT || released_) return std::nullopt;
            return accessible_.Answer(view_.List(), wParam, static_cast<ReadableGrid&>(*this));
        case WM_DESTROY:
            editor_.Close(false);
            return std::nullopt;
        default:
            return std::nullopt;
    }
}

void KrListControlImpl::AfterList(UINT message) {
    switch (message) {
        case WM_SETFOCUS:
            // A text that was refused waits to be put right.
            if (editor_.IsOpen()) editor_.Focus();
            if (GetFocus() == view_.List()) Announce(EVENT_OBJECT_FOCUS, current_);
            view_.Repaint(std::max(current_.row, 0));
            break;
        case WM_KILLFOCUS:
            tip_.Hide();
            view_.Repaint(std::max(current_.row, 0));
            break;
        case WM_ENABLE:
            view_.RepaintAll();
            break;
        case WM_SIZE:
            // Not for the scroll bar that comes while the user draws a column wider.
            if (view_.NeedsFit()) view_.FitColumns();
            ColumnsChanged();
            break;
        case WM_LBUTTONUP:
            dragged_ = false;
            break;
        case WM_VSCROLL:
        case WM_MOUSEWHEEL:
            tip_.Hide();
            break;
        default:
            break;
    }
}

// ---- The dialog ----

void KrListControlImpl::AnswerText(NMLVDISPINFOW& request) const {
    LVITEMW& item = request.item;
    if (!(item.mask & LVIF_TEXT) || !item.pszText || item.cchTextMax <= 0) return;
    const GridCell* cell = rows_.Find({order_.RowAt(item.iItem), item.iSubItem});
    const std::wstring text = cell ? WideForDisplay(cell->text) : std::wstring();
    const std::size_t length = std::min(text.size(), static_cast<std::size_t>(item.cchTextMax) - 1);
    std::wmemcpy(item.pszText, text.data(), length);
    item.pszText[length] = 0;
}

std::optional<LRESULT> KrListControlImpl::OnDialog(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_NOTIFY: {
            auto* notice = reinterpret_cast<NMHDR*>(lParam);
            if (notice->hwndFrom != view_.List() || !view_.List()) return std::nullopt;
            if (notice->code == LVN_GETDISPINFOW) {
                AnswerText(*reinterpret_cast<NMLVDISPINFOW*>(lParam));
                return 0;
            }
            if (notice->code == LVN_BEGINSCROLL) Commit(true);
            // A press that moves a little is no click, yet the list view has taken the row.
            if (notice->code == LVN_BEGINDRAG) Dragged(reinterpret_cast<const NMLISTVIEW*>(lParam)->ptAction);
            if (notice->code != NM_CLICK && notice->code != NM_DBLCLK) return std::nullopt;
            if (dragged_) return 0;
            const UINT code = notice->code;
            BeforeClick(*reinterpret_cast<const NMITEMACTIVATE*>(lParam));
            const LRESULT result = DefSubclassProc(dialog_, message, wParam, lParam);
            AfterClick(code);
            return result;
        }
        case WM_COMMAND:
            if (!find_.OnCommand(HIWORD(wParam), reinterpret_cast<HWND>(lParam))) return std::nullopt;
            if (HIWORD(wParam) == EN_KILLFOCUS) view_.RepaintAll();
            return 0;
        case WM_MEASUREITEM: {
            auto* request = reinterpret_cast<MEASUREITEMSTRUCT*>(lParam);
            if (request->CtlType != ODT_LISTVIEW || static_cast<int>(request->CtlID) != listId_) return std::nullopt;
            request->itemHeight = static_cast<UINT>(view_.MeasureRow());
            return TRUE;
        }
        case WM_SETTINGCHANGE:
        case WM_SYSCOLORCHANGE:
            view_.ReadColors();
            view_.RepaintAll();
            return std::nullopt;
        default:
            return std::nullopt;
    }
}
