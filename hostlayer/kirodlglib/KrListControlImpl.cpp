#include "KrListControlImpl.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "KrGuarded.h"
#include "KrText.h"

static_assert(offsetof(KrListNotify, listId) == offsetof(NMHDR, idFrom) &&
              offsetof(KrListNotify, code) == offsetof(NMHDR, code) && sizeof(UINT) == sizeof(unsigned int));

namespace {

constexpr unsigned int kMostTyped = 30000;
constexpr int kMostNumber = 256;

const char* Text(const char* text) { return text ? text : ""; }

}  // namespace

KrListControl* KrCreateListControl(KrUtility* utility) {
    return Guarded(static_cast<KrListControl*>(nullptr), [&] { return new KrListControlImpl(utility); });
}

// ---- Setting up ----

void KrListControlImpl::Release() {
    const Busy busy(*this);
    released_ = true;
    utility_ = nullptr;  // may go at once, while this object is still in a message of its windows
    editor_.Mute();
}

KrListControlImpl::~KrListControlImpl() {
    LeaveDialog();
    if (!view_.List()) return;
    UnhookList(view_.List());
    view_.Send(LVM_SETITEMCOUNT, 0, LVSICF_NOINVALIDATEALL | LVSICF_NOSCROLL);  // nobody answers for its texts any more
}

bool KrListControlImpl::Attach(HWND dialog, HWND list) {
    if (view_.List()) return list == view_.List();
    if (!HookList(list)) return false;
    if (!JoinDialog(dialog)) {
        UnhookList(list);
        return false;
    }
    dialog_ = dialog;
    listId_ = GetDlgCtrlID(list);
    view_.Attach(list);
    return true;
}

void KrListControlImpl::InitList(KrWindow dialog, int listId, int columns, int rows, int limit, int selection) {
    const Busy busy(*this);
    Guarded([&] {
        const HWND list = dialog ? GetDlgItem(dialog, listId) : nullptr;
        if (!list || !Attach(dialog, list)) return;
        ClearCurrentCell();
        rows_.Reset(columns, rows, limit,
                    selection == kKrSelectSingle     ? GridRows::Marks::kSingle
                    : selection == kKrSelectMultiple ? GridRows::Marks::kMultiple
                                                     : GridRows::Marks::kNone);
        range_.Forget();
        order_.Set({});
        sorting_ = {};
        selection_.Forget();
        current_ = clicked_ = {};
        view_.Start();
    });
}

void KrListControlImpl::SetColumn(int column, const char* title, double width) {
    Guarded([&] {
        GridColumn* of = rows_.FindColumn(column);
        if (!of || !view_.List()) return;
        of->title = Text(title);
        view_.SetColumn(column, WideForDisplay(of->title), std::isfinite(width) && width > 0 ? width : 0);
        ColumnsChanged();
    });
}

void KrListControlImpl::ColumnsChanged() {
    if (editor_.IsOpen()) editor_.Place(view_.CellRect(current_));
}

void KrListControlImpl::SetExtendedStyle(unsigned long style) { view_.SetExtendedStyle(style); }

void KrListControlImpl::DrawItem() { view_.RepaintAll(); }

void KrListControlImpl::OnDrawItem(KrDrawItem* request) {
    Guarded([&] {
        if (request) view_.Draw(*request, current_, Selected(), editor_.IsOpen(), find_.HasFocus());
    });
}

void KrListControlImpl::SetEdit(int column, int, unsigned int limit, const char* prompt) {
    Guarded([&] {
        GridColumn* of = rows_.FindColumn(column);
        if (!of) return;
        std::string text = Text(prompt);
        of->editing.prompt = std::move(text);
        of->editing.limit = std::min(limit, kMostTyped);
        of->editing.typed = limit > 0;
    });
}

void KrListControlImpl::Taken(const KrStringList* choices, const char* prompt, GridComboPtr& combo) const {
    auto made = std::make_shared<GridCombo>();
    for (int i = 0; choices && i < choices->GetCount(); ++i) made->choices.emplace_back(Text(choices->GetAt(i)));
    made->prompt = Text(prompt);
    combo = std::move(made);
}

void KrListControlImpl::SetCombo(int column, int, const KrStringList* choices, const char* prompt) {
    Guarded([&] {
        if (GridColumn* of = rows_.FindColumn(column)) Taken(choices, prompt, of->editing.combo);
    });
}

void KrListControlImpl::SetRowCombo(int row, int column, int, const KrStringList* choices, const char* prompt) {
    Guarded([&] {
        if (GridCell* cell = rows_.Find({row, column})) Taken(choices, prompt, cell->combo);
    });
}

// ---- Texts and flags ----

void KrListControlImpl::SetItemText(int row, int column, const char* text) {
    Guarded([&] {
        if (GridCell* cell = rows_.Find({row, column})) cell->text = Text(text);
    });
}

int KrListControlImpl::GetItemText(int row, int column, char* out, int size) const {
    const GridCell* cell = rows_.Find({row, column});
    const std::string_view text = cell ? std::string_view(cell->text) : std::string_view();
    CopyText(text, out, size > 0 ? static_cast<std::size_t>(size) : 0);
    return static_cast<int>(text.size());
}

void KrListControlImpl::SetErrorFlag(int row, int column, int on) {
    if (GridCell* cell = rows_.Find({row, column})) cell->error = on != 0;
}

void KrListControlImpl::SetFadedFlag(int row, int column, int on) {
    if (GridCell* cell = rows_.Find({row, column})) cell->faded = on != 0;
}

void KrListControlImpl::SetAvailableFlag(int row, int column, int available) {
    rows_.SetAvailable({row, column}, available != 0);
}

void KrListControlImpl::SetItemColor(int row, int column, KrColor text, KrColor background) {
    if (GridCell* cell = rows_.Find({row, column})) cell->colors = GridColors{text, background};
}

void KrListControlImpl::ErrorText(const char* text) {
    errorShown_ = true;
    if (utility_) utility_->ErrorText(Text(text));
}

void KrListControlImpl::MessageText(const char* text) {
    errorShown_ = false;
    if (utility_) utility_->MessageText(Text(text));
}

int KrListControlImpl::CheckNumber(int row, const char* text, const char* message) {
    return Guarded(0, [&] {
        const std::string_view digits = Text(text);
        int value = 0;
        for (const char c : digits)
            value = c >= '0' && c <= '9' ? std::min(value * 10 + (c - '0'), kMostNumber + 1) : kMostNumber + 1;
        if (value >= 1 && value <= kMostNumber) return 1;
        ErrorText((message + std::to_string(row + 1LL) + " : " + std::string(digits)).c_str());
        return 0;
    });
}

int KrListControlImpl::CheckClassNumber(int row, const char* text) {
    return CheckNumber(row, text, "無効なクラス番号です（1～256） ");
}

int KrListControlImpl::CheckRevisionNumber(int row, const char* text) {
    return CheckNumber(row, text, "無効なレビジョン番号です（1～256） ");
}

void KrListControlImpl::SetSelectFlag(int row, int on) {
    range_.Forget();
    rows_.Mark(row, on != 0);
}

void KrListControlImpl::ClearSelectFlag() {
    range_.Forget();
    rows_.ClearMarks();
}

// ---- Rows ----

int KrListControlImpl::AddItem() { return Insert(rows_.Rows()); }

int KrListControlImpl::InsertItem() { return Insert(rows_.HasRow(current_.row) ? current_.row : rows_.Rows()); }

void KrListControlImpl::RowsChanged() {
    range_.Forget();
    view_.RowsChanged();
    ColumnsChanged();
}

bool KrListControlImpl::AddRows(int at, int count) {
    if (!TakeEdits()) return false;
    GridOrder order = order_;  // nothing fails once the rows are in
    order.Inserted(at, std::max(count, 0));
    if (!rows_.InsertRows(at, count)) return false;
    order_ = std::move(order);
    selection_.Forget();
    return true;
}

int KrListControlImpl::Insert(int at) {
    const Busy busy(*this);
    return Guarded(-1, [&] {
        if (!AddRows(at, 1)) return -1;
        RowsChanged();
        const int column = current_.column >= 0 ? current_.column : rows_.FirstEditableColumn();
        current_ = {};  // the row of that number is another one
        SetCurrent({at, column}, By::kProgram);
        return at;
    });
}

// False when none of them is the current row.
bool KrListControlImpl::RemoveRows(int at, int count) {
    const bool current = current_.row >= at && current_.row < at + count;
    if (current) DropEdits();
    rows_.DeleteRows(at, count);
    order_.Deleted(at, count);
    selection_.Forget();
    return current;
}

void KrListControlImpl::DeleteItem() {
    const Busy busy(*this);
    Guarded([&] {
        if (!rows_.HasRow(current_.row)) return;
        const GridPlace deleted = current_;
        RemoveRows(deleted.row, 1);
        RowsChanged();
        const int next = std::min(deleted.row, rows_.Rows() - 1);
        if (next >= 0) current_ = {};  // the row of that number is another one
        SetCurrent({next, deleted.column}, By::kProgram);
    });
}

// ---- The current cell ----

void KrListControlImpl::SetCurrent(GridPlace place, By by) {
    if (!rows_.Has(place)) place.row = -1;
    const GridPlace before = current_;
    ForgetSelection();
    current_ = place;
    shifting_ = false;
    tip_.Hide();
    if (place == before || (place.row < 0 && before.row < 0)) return view_.Reveal(place.row);
    view_.Repaint(std::max(before.row, 0));
    view_.Repaint(place.row);
    if (place.row != before.row) view_.Select(before.row, place.row);
    view_.Reveal(place.row);
    // After what the list view says of the row.
    if (IsWindowVisible(view_.List()) && GetFocus() == view_.List()) Announce(EVENT_OBJECT_FOCUS, place);
    Notify(kKrListCurrentCell, Current());
    if (by == By::kUser) Notify(kKrListCellMoved, place);
}

void KrListControlImpl::ClearCurrentCell() {
    const Busy busy(*this);
    Guarded([&] {
        DropEdits();
        SetCurrent({-1, current_.column}, By::kProgram);
        ForgetSorting();
        view_.ScrollToTop();
    });
}

// For programs that read the screen aloud.
void KrListControlImpl::Announce(DWORD event, GridPlace place) const {
    if (place.row < 0) return;
    place.row = order_.IndexOf(place.row);
    NotifyWinEvent(event, view_.List(), OBJID_CLIENT, ChildOfPlace(place));
}

void KrListControlImpl::Notify(unsigned int code, GridPlace place) {
    if (!view_.List() || !dialog_ || released_) return;
    KrListNotify notice{view_.List(), static_cast<std::uintptr_t>(listId_), code, place.row, place.column};
    SendMessageW(dialog_, WM_NOTIFY, static_cast<WPARAM>(listId_), reinterpret_cast<LPARAM>(&notice));
}

void KrListControlImpl::ClickCell(int row, int column) {
    const Busy busy(*this);
    Guarded([&] {
        if (!rows_.Has({row, column}) || !TakeEdits()) return;
        SetCurrent({row, column}, By::kProgram);
        // Which control has it first is for the dialog's manager to say.
        if (IsWindowVisible(view_.List()) && !view_.HasFocus()) SetFocus(view_.List());
    });
}

void KrListControlImpl::GetClickItem(int* row, int* column) const {
    if (row) *row = clicked_.row;
    if (column) *column = clicked_.column;
}

void KrListControlImpl::ClickItem() {
    const Busy busy(*this);
    Guarded([&] {
        const bool marks = clickPending_ && clickMarks_;
        const int from = current_.row;
        clickPending_ = false;
        if (!rows_.Has(clicked_) || !TakeEdits()) return;
        SetCurrent(clicked_, By::kProgram);
        if (!marks) return;
        if (WantsRange()) return ExtendMarks(from);
        // The only one stays marked when it is clicked once more.
        if (rows_.MarkKind() != GridRows::Marks::kSingle || !rows_.IsMarked(current_.row)) ToggleMark();
    });
}

// ---- Marks ----

bool KrListControlImpl::WantsRange() const {
    return GetKeyState(VK_SHIFT) < 0 && rows_.MarkKind() == GridRows::Marks::kMultiple;
}

void KrListControlImpl::ToggleMark() {
    rows_.Mark(current_.row, !rows_.IsMarked(current_.row));
    range_.Begin(current_.row);
    MarksChanged();
}

// Marks all rows up to the current one: from where the last mark was set, or from this row when none was.
void KrListControlImpl::ExtendMarks(int from) {
    if (!range_.HasBegun()) range_.Begin(std::max(from, 0));
    if (range_.ExtendTo(current_.row)) MarksChanged();
}

void KrListControlImpl::MarksChanged() {
    view_.RepaintAll();
    Announce(EVENT_OBJECT_STATECHANGE, current_);
    Notify(kKrListMarkChanged, current_);
}

// ---- Editing ----

bool KrListControlImpl::OpenEditor(KrCellEditor::Start start, bool prompts) {
    const HWND list = view_.List();
    if (!Commit(true) || !rows_.CanEdit(current_) || !list || !IsWindowVisible(list) || released_) return false;
    view_.Reveal(current_.row);
    tip_.Hide();
    const CellEditing editing = rows_.EditingOf(current_);
    editor_.SetName(CellName(rows_, current_));
    const bool open = editor_.Open(list, view_.CellRect(current_), editing, rows_.Find(current_)->text, start, prompts);
    view_.Repaint(current_.row);
    return open;
}

void KrListControlImpl::SetEditMode(int row, int column) {
    const Busy busy(*this);
    Guarded([&] {
        ClickCell(row, column);
        if (current_ == GridPlace{row, column}) OpenEditor(KrCellEditor::Start::kKeepText);
    });
}

// Takes what is being edited into its cell. False when it was refused: the editor is still open.
bool KrListControlImpl::Commit(bool takeFocus) {
    if (!editor_.IsOpen()) return true;
    KrCellEditor::Outcome outcome = editor_.Read();
    if (outcome.fault) {
        editor_.Refuse(*outcome.fault, takeFocus);
        return false;
    }
    const GridPlace place = current_;
    GridCell* cell = rows_.Find(place);
    const bool changed = cell && outcome.text && *outcome.text != cell->text;
    if (changed) cell->text = std::move(*outcome.text);
    editor_.Close(takeFocus);
    view_.Repaint(place.row);
    if (!changed) return true;
    Announce(EVENT_OBJECT_VALUECHANGE, place);
    Notify(kKrListCellChanged, place);
    return true;
}

int KrListControlImpl::EndEdit() { return TakeEdits(); }

void KrListControlImpl::CloseComboBox() { EndEdit(); }

// ---- Linked grids ----

void KrListControlImpl::SetParentList(KrListControl* parent) {
    // Every grid is one of ours: the library makes no other.
    auto* grid = static_cast<KrListControlImpl*>(parent);
    Guarded([&] { links_.SetParent(grid ? &grid->links_ : nullptr); });
}

bool KrListControlImpl::TakeEdits() {
    const Busy busy(*this);
    return Guarded(false, [&] { return Commit(true) && links_.TakeChildrensEdits(); });
}

void KrListControlImpl::DropEdits() {
    editor_.Close(true);
    links_.DropChildrensEdits();
}
