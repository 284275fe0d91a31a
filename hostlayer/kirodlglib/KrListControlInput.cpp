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

bool KrListControlImpl::Navigate(WPARAM key) {
    const bool all = IsKeyDown(VK_CONTROL);
    const int last = rows_.Rows() - 1;
    const int page = std::max(static_cast<int>(Send(LVM_GETCOUNTPERPAGE)) - 1, 1);
    GridPlace to = current_;
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
            return false;
    }
    if (last < 0 || rows_.Columns() == 0) return true;
    if (!MakeCurrent())
        SetCurrent({std::clamp(to.row, 0, last), std::clamp(to.column, 0, rows_.Columns() - 1)}, By::kUser);
    return true;
}

// The first key in a grid without a current cell makes one, and does nothing else. True when it did.
bool KrListControlImpl::MakeCurrent() {
    if (rows_.Has(current_)) return false;
    SetCurrent({0, rows_.FirstEditableColumn()}, By::kUser);
    return true;
}

bool KrListControlImpl::OnKey(WPARAM key) {
    switch (key) {
        case VK_RETURN:
            return Navigate(VK_DOWN);
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
            return Navigate(key);
    }
}

void KrListControlImpl::OnCharacter(wchar_t character) {
    if (character < L' ' || character == 0x7F || rows_.Rows() == 0) return;
    MakeCurrent();
    if (character == L' ' || character == L'　') {
        // Never starts a text: where rows have no marks it would only wipe the cell.
        if (rows_.MarkKind() != GridRows::Marks::kNone) SetMark(current_.row, !rows_.IsMarked(current_.row));
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

GridPlace KrListControlImpl::Hit(POINT point) const {
    LVHITTESTINFO hit{};
    hit.pt = point;
    if (SendTo(LVM_SUBITEMHITTEST, 0, &hit) < 0) return {};
    const GridPlace place{hit.iItem, hit.iSubItem};
    return rows_.Has(place) ? place : GridPlace{};
}

// False when the list view shall go on with it.
bool KrListControlImpl::Press(POINT point, bool right) {
    const GridPlace hit = Hit(point);
    clickOpens_ = HasFocus() && hit == current_ && rows_.Has(hit);
    if (!Commit(true)) return true;
    if (!right || !list_) return false;
    rightPressed_ = true;
    SetFocus(list_);
    if (rows_.Has(hit)) SetCurrent(hit, By::kUser);
    return true;
}

std::optional<LRESULT> KrListControlImpl::OnListMouse(UINT message, LPARAM lParam) {
    POINT point = PointOf(lParam);
    if (message != WM_RBUTTONUP)
        return Press(point, message == WM_RBUTTONDOWN || message == WM_RBUTTONDBLCLK) ? std::optional<LRESULT>(0)
                                                                                      : std::nullopt;
    if (!std::exchange(rightPressed_, false)) return std::nullopt;
    ClientToScreen(list_, &point);
    return SendMessageW(dialog_, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(list_), MAKELPARAM(point.x, point.y));
}

void KrListControlImpl::BeforeClick(const NMITEMACTIVATE& click) {
    const GridPlace place{click.iItem, click.iSubItem};
    clicked_ = rows_.Has(place) ? place : GridPlace{};
    clickPending_ = true;
    // In a cell that can be edited a click is for that. The second click of a double click chooses nothing.
    clickMarks_ = click.hdr.code == NM_CLICK && rows_.MarkKind() != GridRows::Marks::kNone && !rows_.CanEdit(clicked_);
}

void KrListControlImpl::Dragged(POINT from) {
    const GridPlace place = Hit(from);
    if (rows_.Has(place) && Commit(true)) SetCurrent(place, By::kUser);
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
                Repaint(current_.row);
                break;
            case EditorEvent::kEscape:
                editor_.Close(true);
                Repaint(current_.row);
                break;
            case EditorEvent::kPicked:
                Commit(true);
                break;
            case EditorEvent::kEnter:
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

void KrListControlImpl::OpenNext(bool forwards) {
    const GridPlace from = current_;
    if (!Commit(true) || editor_.IsOpen()) return;
    const std::optional<GridPlace> next = rows_.NextEditable(from, forwards);
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
            PostMessageW(list_, kGridFit, static_cast<WPARAM>(header.iItem), 0);
            return std::nullopt;
        case HDN_DIVIDERDBLCLICKA:
        case HDN_DIVIDERDBLCLICKW:
            return 0;  // would measure the texts of all rows
        default:
            return std::nullopt;
    }
}

std::optional<LRESULT> KrListControlImpl::OnList(UINT message, WPARAM wParam, LPARAM lParam) {
    const auto handled = [](bool yes) { return yes ? std::optional<LRESULT>(0) : std::nullopt; };
    switch (message) {
        case WM_GETDLGCODE: {
            const LRESULT code = DefSubclassProc(list_, message, wParam, lParam);
            const auto* key = reinterpret_cast<const MSG*>(lParam);
            const bool enter = key && key->message == WM_KEYDOWN && key->wParam == VK_RETURN;
            return enter ? code | DLGC_WANTMESSAGE : code;
        }
        case WM_KEYDOWN:
            return handled(OnKey(wParam));
        case WM_KEYUP:
            // Not left to the system: a list view may keep it from it.
            if (wParam != VK_APPS) return std::nullopt;
            return SendMessageW(dialog_, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(list_), -1);
        case WM_SYSKEYDOWN:
            return handled(wParam == VK_DOWN && OnKey(VK_F4));
        case WM_CHAR:
        case WM_IME_CHAR:
        case WM_IME_STARTCOMPOSITION:
        case WM_IME_COMPOSITION:
        case WM_IME_ENDCOMPOSITION:
            return OnListText(message, wParam, lParam);
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK:
        case WM_RBUTTONDOWN:
        case WM_RBUTTONDBLCLK:
        case WM_RBUTTONUP:
            return OnListMouse(message, lParam);
        case WM_VSCROLL:
        case WM_HSCROLL:
        case WM_MOUSEWHEEL:
        case LVM_SCROLL:
            return handled(!Commit(true));
        case WM_SIZE:
            Commit(false);
            return std::nullopt;
        case WM_NOTIFY:
            return reinterpret_cast<const NMHDR*>(lParam)->hwndFrom == reinterpret_cast<HWND>(Send(LVM_GETHEADER))
                       ? OnHeader(*reinterpret_cast<const NMHEADERW*>(lParam))
                       : std::nullopt;
        case WM_COMMAND:
            return handled(editor_.OnCommand(HIWORD(wParam), reinterpret_cast<HWND>(lParam)));
        case kGridPicked:
            editor_.OnPicked(wParam);
            return 0;
        case kGridFit:
            KeepResized(static_cast<int>(wParam));
            return 0;
        case kGridCurrentCell:
            return current_.row < 0 ? -1 : MAKELONG(current_.column, current_.row);
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
            [[fallthrough]];
        case WM_KILLFOCUS:
            Repaint(std::max(current_.row, 0));
            break;
        case WM_ENABLE:
            RepaintAll();
            break;
        case WM_SIZE:
            // Not for the scroll bar that comes while the user draws a column wider.
            if (WidthForColumns() != fitted_) FitColumns();
            [[fallthrough]];
        case WM_VSCROLL:
        case WM_MOUSEWHEEL:
        case WM_KEYDOWN:
        case LVM_SCROLL:
        case LVM_ENSUREVISIBLE:
        case LVM_SETITEMCOUNT:
            Scrolled();
            break;
        default:
            break;
    }
}

LRESULT CALLBACK KrListControlImpl::ListProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                             DWORD_PTR data) {
    auto& grid = *reinterpret_cast<KrListControlImpl*>(data);
    const Busy busy(grid);
    if (message == WM_NCDESTROY) {
        RemoveWindowSubclass(window, &KrListControlImpl::ListProc, id);
        grid.list_ = nullptr;
        return DefSubclassProc(window, message, wParam, lParam);
    }
    const auto result = Guarded(std::optional<LRESULT>(), [&] { return grid.OnList(message, wParam, lParam); });
    if (result) return *result;
    const LRESULT usual = DefSubclassProc(window, message, wParam, lParam);
    Guarded([&] { grid.AfterList(message); });
    return usual;
}

// ---- The dialog ----

void KrListControlImpl::AnswerText(NMLVDISPINFOW& request) const {
    LVITEMW& item = request.item;
    if (!(item.mask & LVIF_TEXT) || !item.pszText || item.cchTextMax <= 0) return;
    const GridCell* cell = rows_.Find({item.iItem, item.iSubItem});
    const std::wstring text = cell ? WideForDisplay(cell->text) : std::wstring();
    const std::size_t length = std::min(text.size(), static_cast<std::size_t>(item.cchTextMax) - 1);
    std::wmemcpy(item.pszText, text.data(), length);
    item.pszText[length] = 0;
}

std::optional<LRESULT> KrListControlImpl::OnDialog(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_NOTIFY: {
            auto* notice = reinterpret_cast<NMHDR*>(lParam);
            if (notice->hwndFrom != list_ || !list_) return std::nullopt;
            if (notice->code == LVN_GETDISPINFOW) {
                AnswerText(*reinterpret_cast<NMLVDISPINFOW*>(lParam));
                return 0;
            }
            if (notice->code == LVN_BEGINSCROLL) Commit(true);
            // A press that moves a little is no click, yet the list view has taken the row.
            if (notice->code == LVN_BEGINDRAG) Dragged(reinterpret_cast<const NMLISTVIEW*>(lParam)->ptAction);
            if (notice->code != NM_CLICK && notice->code != NM_DBLCLK) return std::nullopt;
            const UINT code = notice->code;
            BeforeClick(*reinterpret_cast<const NMITEMACTIVATE*>(lParam));
            const LRESULT result = DefSubclassProc(dialog_, message, wParam, lParam);
            AfterClick(code);
            return result;
        }
        case WM_MEASUREITEM: {
            auto* request = reinterpret_cast<MEASUREITEMSTRUCT*>(lParam);
            if (request->CtlType != ODT_LISTVIEW || static_cast<int>(request->CtlID) != listId_) return std::nullopt;
            request->itemHeight = static_cast<UINT>(RowHeight());
            return TRUE;
        }
        case WM_SETTINGCHANGE:
        case WM_SYSCOLORCHANGE:
            painter_.ReadColors();
            RepaintAll();
            return std::nullopt;
        default:
            return std::nullopt;
    }
}

LRESULT CALLBACK KrListControlImpl::DialogProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                               DWORD_PTR data) {
    auto& grid = *reinterpret_cast<KrListControlImpl*>(data);
    const Busy busy(grid);
    if (message == WM_NCDESTROY) {
        RemoveWindowSubclass(window, &KrListControlImpl::DialogProc, id);
        grid.dialog_ = nullptr;
    } else if (const auto result =
                   Guarded(std::optional<LRESULT>(), [&] { return grid.OnDialog(message, wParam, lParam); })) {
        return *result;
    }
    return DefSubclassProc(window, message, wParam, lParam);
}
