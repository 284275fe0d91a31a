// Many cells at once: selecting and copying them, rows in blocks, and what the dialog is asked for.
#include <algorithm>

#include "KrCellText.h"
#include "KrGuarded.h"
#include "KrListControlImpl.h"
#include "KrText.h"

namespace {

bool IsKeyDown(int key) { return GetKeyState(key) < 0; }

constexpr int kMostLengths = 64;

// A text that would look like a quoted one is quoted itself.
std::wstring AsCopied(const GridCell& cell) {
    std::wstring text = WideForDisplay(cell.text);
    if (!text.starts_with(L'"')) return text;
    std::wstring quoted = L"\"";
    for (const wchar_t unit : text) quoted.append(unit == L'"' ? 2 : 1, unit);
    return quoted + L'"';
}

}  // namespace

// ---- The selection ----

void KrListControlImpl::ForgetSelection() {
    if (selection_.End().row < 0) return;
    selection_.Forget();
    view_.RepaintAll();
}

void KrListControlImpl::ExtendTo(GridPlace end, bool reveal) {
    if (!rows_.Has(current_) || !rows_.Has(end) || end == selection_.End()) return;
    tip_.Hide();
    selection_.ExtendTo(end);
    view_.RepaintAll();
    if (reveal) view_.Reveal(end.row);
    NotifyWinEvent(EVENT_OBJECT_SELECTIONWITHIN, view_.List(), OBJID_CLIENT, CHILDID_SELF);
}

void KrListControlImpl::SelectAll() {
    if (rows_.Rows() == 0 || rows_.Columns() == 0 || !TakeEdits()) return;
    SetCurrent({order_.RowAt(0), 0}, By::kUser);
    ExtendTo({order_.RowAt(rows_.Rows() - 1), rows_.Columns() - 1}, false);
}

// Beside the rows, the one at that end of the view or just beyond it.
void KrListControlImpl::ExtendWithMouse(POINT point) {
    RECT client{};
    GetClientRect(view_.List(), &client);
    const int top = static_cast<int>(view_.Send(LVM_GETTOPINDEX));
    const int first = view_.RowRect(order_.RowAt(top)).top;
    GridPlace end = view_.Hit({std::clamp(point.x, client.left, client.right - 1), point.y});
    if (end.row < 0) {
        const int beyond = point.y < first ? top - 1 : top + view_.RowsOnPage();
        end.row = order_.RowAt(std::clamp(beyond, 0, rows_.Rows() - 1));
        end.column = selection_.End().row < 0 ? current_.column : selection_.End().column;
    }
    ExtendTo(end);
}

// The mouse is held down on a cell and moves. Both go on to the list view.
bool KrListControlImpl::Drag(UINT message, POINT point) {
    if (!dragging_) return false;
    if (message == WM_MOUSEMOVE && IsKeyDown(VK_LBUTTON)) {
        ExtendWithMouse(point);
    } else {
        // Of quick moves only the last position may be told, and that with the release.
        if (message == WM_LBUTTONUP) ExtendWithMouse(point);
        dragging_ = false;
        dragged_ = message == WM_LBUTTONUP;
        if (GetCapture() == view_.List()) ReleaseCapture();
    }
    return true;
}

int KrListControlImpl::GetSelectedRows(int* rows, int count) const {
    const GridArea area = Selected();
    if (area.top < 0) return 0;
    const int all = area.bottom - area.top + 1;
    for (int i = 0; rows && i < std::min(count, all); ++i) rows[i] = order_.RowAt(area.top + i);
    return all;
}

void KrListControlImpl::GetSelectedColumns(int* first, int* last) const {
    const GridArea area = Selected();
    if (first) *first = area.left;
    if (last) *last = area.right;
}

void KrListControlImpl::SelectCells(int firstRow, int firstColumn, int lastRow, int lastColumn) {
    const Busy busy(*this);
    Guarded([&] {
        const GridPlace last{lastRow, lastColumn};
        if (!rows_.Has({firstRow, firstColumn}) || !rows_.Has(last) || !TakeEdits()) return;
        SetCurrent({firstRow, firstColumn}, By::kProgram);
        if (last != current_) ExtendTo(last, false);
    });
}

int KrListControlImpl::GetNextRow(int row) const {
    const int index = order_.IndexOf(row) + 1;
    return rows_.HasRow(row) && index < rows_.Rows() ? order_.RowAt(index) : -1;
}

void KrListControlImpl::Copy() {
    if (!TakeEdits()) return;
    const GridArea area = Selected();
    if (area.top < 0) return;
    std::wstring text;
    for (int index = area.top; index <= area.bottom; ++index) {
        for (int column = area.left; column <= area.right; ++column) {
            if (column > area.left) text += L'\t';
            text += AsCopied(*rows_.Find({order_.RowAt(index), column}));
        }
        if (!area.IsOneCell()) text += L"\r\n";
    }
    if (!PutClipboardText(view_.List(), text))
        ErrorText("コピーできません。ほかのプログラムがクリップボードを使っています。");
}

// ---- Rows in blocks ----

int KrListControlImpl::InsertRows(int at, int count) {
    const Busy busy(*this);
    return Guarded(0, [&] {
        if (count <= 0 || !AddRows(at, count)) return 0;
        const bool moved = current_.row >= at;
        if (moved) {
            view_.Select(current_.row, -1);
            current_.row += count;
        }
        RowsChanged();
        if (!moved) return count;
        view_.Select(-1, current_.row);
        Notify(kKrListCurrentCell, Current());
        return count;
    });
}

void KrListControlImpl::DeleteRows(int at, int count) {
    const Busy busy(*this);
    Guarded([&] {
        if (count <= 0 || !rows_.HasRow(at) || !rows_.HasRow(at + count - 1)) return;
        const GridPlace before = current_;
        view_.Select(before.row, -1);
        const bool current = RemoveRows(at, count);
        if (before.row >= at + count) current_.row -= count;
        if (current) current_.row = -1;
        RowsChanged();
        if (current) return SetCurrent({std::min(at, rows_.Rows() - 1), before.column}, By::kProgram);
        view_.Select(-1, current_.row);
        if (current_ != before) Notify(kKrListCurrentCell, Current());
    });
}

// ---- What a cell takes ----

void KrListControlImpl::SetColumnKinds(int column, unsigned int kinds) {
    if (GridColumn* of = rows_.FindColumn(column)) of->editing.kinds = kinds;
}

void KrListControlImpl::SetColumnColors(int column, KrColorOf colorOf) {
    if (GridColumn* of = rows_.FindColumn(column)) of->editing.colorOf = colorOf;
}

void KrListControlImpl::SetItemPattern(int row, int column, const double* lengths, int count) {
    Guarded([&] {
        GridCell* const cell = rows_.Find({row, column});
        if (!cell) return;
        cell->pattern.reset();
        if (count < 0 || (count > 0 && !lengths)) return;
        cell->pattern = std::make_shared<const std::vector<double>>(lengths, lengths + std::min(count, kMostLengths));
    });
}

int KrListControlImpl::TakesText(int row, int column, const char16_t* wide, char* taken, int takenSize, char* reason,
                                 int reasonSize) const {
    const auto tell = [](std::string_view text, char* out, int size) {
        CopyText(text, out, size > 0 ? static_cast<std::size_t>(size) : 0);
    };
    return Guarded(0, [&] {
        tell("", reason, reasonSize);
        const CellEditing editing = rows_.EditingOf({row, column});
        if (!editing.Possible() || !wide) return 0;
        const std::wstring text = NormalCellText(reinterpret_cast<const wchar_t*>(wide), editing.kinds);
        const auto narrow = To932(text);
        const auto is = [&](const std::string& choice) { return choice == narrow; };
        const bool chosen =
            editing.combo && std::any_of(editing.combo->choices.begin(), editing.combo->choices.end(), is);
        if (!chosen) {
            const auto fault = FindCellTextFault(text, editing.typed ? editing.limit : text.size());
            if (fault || !editing.typed) {
                tell(fault ? fault->message : "選択肢にない値です。", reason, reasonSize);
                return 0;
            }
        }
        if (static_cast<int>(narrow->size()) >= takenSize) return 0;
        tell(*narrow, taken, takenSize);
        return 1;
    });
}

// ---- Keys ----

bool KrListControlImpl::Ask(int request) {
    if (!view_.List() || !dialog_ || released_) return false;
    if (!TakeEdits()) return true;
    KrListRequest asked{
        {view_.List(), static_cast<std::uintptr_t>(listId_), kKrListRequest, current_.row, GetSelectedColumn()},
        request,
        0};
    SendMessageW(dialog_, WM_NOTIFY, static_cast<WPARAM>(listId_), reinterpret_cast<LPARAM>(&asked));
    return asked.done != 0;
}

bool KrListControlImpl::OnFunctionKey(WPARAM key, bool shift) {
    switch (key) {
        case VK_INSERT:
            return Ask(shift ? kKrAskPaste : kKrAskInsertRow);
        case VK_DELETE:
            return !shift && Ask(kKrAskDeleteRows);
        case VK_F1:
            return Ask(kKrAskKeys);
        case VK_F8:
            return !shift && Ask(kKrAskUsedNames);
        case VK_F3:
            FindNext(!shift);
            return true;
        case VK_ESCAPE:
            if (!find_.IsOpen()) return false;
            OnFind(FindBarHost::Event::kClosed);
            return true;
        default:
            return false;
    }
}

// The keys that do something with many cells. True when that was done.
bool KrListControlImpl::OnChord(WPARAM key) {
    const bool control = IsKeyDown(VK_CONTROL);
    const bool shift = IsKeyDown(VK_SHIFT);
    if (IsKeyDown(VK_MENU)) return key == VK_BACK && !control && Ask(kKrAskUndo);
    if (!control) return OnFunctionKey(key, shift);
    switch (key) {
        case 'F':
            OpenFind();
            return true;
        case 'L':
            if (shift) SortBy(GetSelectedColumn());
            return shift;
        case 'A':
            SelectAll();
            return true;
        case 'C':
        case VK_INSERT:
            Copy();
            return true;
        case 'V':
            return Ask(shift ? kKrAskPasteNames : kKrAskPaste);
        case 'Z':
            return Ask(shift ? kKrAskRedo : kKrAskUndo);
        case 'Y':
            return Ask(kKrAskRedo);
        case 'D':
            return Ask(kKrAskFillDown);
        case 'R':
            return Ask(kKrAskCountUp);
        default:
            return false;
    }
}
