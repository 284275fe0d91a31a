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
    SetParentList(nullptr);
    for (KrListControlImpl* child : children_) child->parent_ = nullptr;
    const auto id = reinterpret_cast<UINT_PTR>(this);
    if (dialog_) RemoveWindowSubclass(dialog_, &KrListControlImpl::DialogProc, id);
    if (!list_) return;
    RemoveWindowSubclass(list_, &KrListControlImpl::ListProc, id);
    Send(LVM_SETITEMCOUNT, 0);  // nobody answers for its texts any more
}

void KrListControlImpl::InitList(KrWindow dialog, int listId, int columns, int rows, int limit, int selection) {
    Guarded([&] {
        const HWND list = dialog ? GetDlgItem(dialog, listId) : nullptr;
        if (!list || !Attach(dialog, list)) return;
        editor_.Close(true);
        rows_.Reset(columns, rows, limit,
                    selection == kKrSelectSingle     ? GridRows::Marks::kSingle
                    : selection == kKrSelectMultiple ? GridRows::Marks::kMultiple
                                                     : GridRows::Marks::kNone);
        current_ = clicked_ = {};
        MakeColumns();
        Measure();  // the header has its height by now
        RowsChanged();
    });
}

void KrListControlImpl::SetColumn(int column, const char* title, double width) {
    Guarded([&] {
        GridColumn* of = rows_.FindColumn(column);
        if (!of) return;
        std::wstring text = WideForDisplay(Text(title));
        LVCOLUMNW description{};
        description.mask = LVCF_TEXT;
        description.pszText = text.data();
        of->share = std::isfinite(width) && width > 0 ? width : 0;
        SendTo(LVM_SETCOLUMNW, static_cast<WPARAM>(column), &description);
        FitColumns();
    });
}

void KrListControlImpl::SetExtendedStyle(unsigned long style) {
    // Without flicker, where the system can do that.
    Send(LVM_SETEXTENDEDLISTVIEWSTYLE, 0, static_cast<LPARAM>(style | LVS_EX_DOUBLEBUFFER));
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

// ---- Rows ----

int KrListControlImpl::AddItem() { return Insert(rows_.Rows()); }

int KrListControlImpl::InsertItem() { return Insert(rows_.HasRow(current_.row) ? current_.row : rows_.Rows()); }

int KrListControlImpl::Insert(int at) {
    const Busy busy(*this);
    return Guarded(-1, [&] {
        if (!Commit(true) || !rows_.InsertRow(at)) return -1;
        RowsChanged();
        const int column = current_.column >= 0 ? current_.column : rows_.FirstEditableColumn();
        current_ = {};  // the row of that number is another one
        SetCurrent({at, column}, By::kProgram);
        return at;
    });
}

void KrListControlImpl::DeleteItem() {
    const Busy busy(*this);
    Guarded([&] {
        if (!rows_.HasRow(current_.row)) return;
        editor_.Close(true);
        const GridPlace deleted = current_;
        rows_.DeleteRow(deleted.row);
        RowsChanged();
        current_ = {};
        SetCurrent({std::min(deleted.row, rows_.Rows() - 1), deleted.column}, By::kProgram);
    });
}

// ---- The current cell ----

void KrListControlImpl::SetCurrent(GridPlace place, By by) {
    if (!rows_.Has(place)) place.row = -1;
    const GridPlace before = current_;
    if (place == before) return Reveal(place.row);
    current_ = place;
    Repaint(before.row < 0 ? 0 : before.row);
    Repaint(place.row);
    // The list view's own selection follows, for programs that read the screen aloud.
    // The row before is freed by itself: otherwise a list view may go through all rows in search of it.
    LVITEMW item{};
    item.stateMask = LVIS_FOCUSED | LVIS_SELECTED;
    if (before.row >= 0) SendTo(LVM_SETITEMSTATE, static_cast<WPARAM>(before.row), &item);
    item.state = place.row < 0 ? 0 : item.stateMask;
    SendTo(LVM_SETITEMSTATE, static_cast<WPARAM>(place.row), &item);
    Reveal(place.row);
    if (place.row >= 0 && GetFocus() == list_) NotifyWinEvent(EVENT_OBJECT_FOCUS, list_, OBJID_CLIENT, place.row + 1);
    if (place.row != before.row) Lead(&KrListControlImpl::Follow, place.row);
    if (by == By::kUser) Notify(kKrListCellMoved, place);
}

void KrListControlImpl::Reveal(int row) {
    if (rows_.HasRow(row)) Send(LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
}

void KrListControlImpl::Notify(unsigned int code, GridPlace place) {
    if (!list_ || !dialog_ || released_) return;
    KrListNotify notice{list_, static_cast<std::uintptr_t>(listId_), code, place.row, place.column};
    SendMessageW(dialog_, WM_NOTIFY, static_cast<WPARAM>(listId_), reinterpret_cast<LPARAM>(&notice));
}

void KrListControlImpl::ClickCell(int row, int column) {
    const Busy busy(*this);
    Guarded([&] {
        if (!rows_.Has({row, column}) || !Commit(true)) return;
        SetCurrent({row, column}, By::kProgram);
        if (list_ && !HasFocus()) SetFocus(list_);
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
        clickPending_ = false;
        if (!rows_.Has(clicked_) || !Commit(true)) return;
        SetCurrent(clicked_, By::kProgram);
        // The only one stays marked when it is clicked once more.
        const bool single = rows_.MarkKind() == GridRows::Marks::kSingle;
        if (marks) SetMark(clicked_.row, single || !rows_.IsMarked(clicked_.row));
    });
}

void KrListControlImpl::SetMark(int row, bool on) {
    if (rows_.IsMarked(row) == on) return;
    rows_.Mark(row, on);
    RepaintAll();
    Notify(kKrListMarkChanged, current_);
}

// ---- Editing ----

bool KrListControlImpl::OpenEditor(KrCellEditor::Start start, bool prompts) {
    if (!Commit(true) || !rows_.CanEdit(current_) || !list_ || !IsWindowVisible(list_) || released_) return false;
    Reveal(current_.row);
    const CellEditing editing = rows_.EditingOf(current_);
    const bool open = editor_.Open(list_, CellRect(current_), editing, rows_.Find(current_)->text, start, prompts);
    Repaint(current_.row);
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
    Repaint(place.row);
    if (changed) Notify(kKrListCellChanged, place);
    return true;
}

int KrListControlImpl::EndEdit() {
    const Busy busy(*this);
    return Guarded(0, [&] { return static_cast<int>(Commit(true)); });
}

void KrListControlImpl::CloseComboBox() { EndEdit(); }

// ---- Grids side by side ----

void KrListControlImpl::SetParentList(KrListControl* parent) {
    if (parent_) std::erase(parent_->children_, this);
    parent_ = nullptr;
    // Every grid is one of ours: the library makes no other.
    auto* grid = static_cast<KrListControlImpl*>(parent);
    if (!grid || grid == this) return;
    Guarded([&] {
        grid->children_.push_back(this);
        parent_ = grid;
        Follow(grid->current_.row);
        ScrollTo(grid->top_);
    });
}

// Has the other grids do as this one did. What they do does not come back here.
void KrListControlImpl::Lead(void (KrListControlImpl::*follow)(int), int value) {
    if (leading_) return;
    struct Scope {
        bool& flag;
        ~Scope() { flag = false; }
    };
    leading_ = true;
    const Scope scope{leading_};
    if (parent_ && !parent_->leading_) (parent_->*follow)(value);
    for (std::size_t i = 0; i < children_.size(); ++i)
        if (!children_[i]->leading_) (children_[i]->*follow)(value);
}

void KrListControlImpl::Follow(int row) {
    const Busy busy(*this);
    if (row == current_.row || !Commit(false)) return;
    const int column = current_.column >= 0 ? current_.column : rows_.FirstEditableColumn();
    SetCurrent({row, column}, By::kProgram);
}

void KrListControlImpl::ScrollTo(int top) {
    const Busy busy(*this);
    const RECT row = RowRect(0);
    const auto now = static_cast<int>(Send(LVM_GETTOPINDEX));
    if (top != now && Commit(false)) Send(LVM_SCROLL, 0, static_cast<LPARAM>((top - now) * (row.bottom - row.top)));
}

void KrListControlImpl::Scrolled() {
    const auto top = static_cast<int>(Send(LVM_GETTOPINDEX));
    if (top == top_) return;
    top_ = top;
    Lead(&KrListControlImpl::ScrollTo, top);
}
