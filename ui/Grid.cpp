#include "ui/Grid.h"

#include <commctrl.h>

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "entry/host/kirodxf.h"
#include "resources/grid.ids.h"

namespace kiro::ui {
namespace {

constexpr int kLastColor = 255;
constexpr unsigned long kGridStyle = 33;  // grid lines and full-row selection

struct MenuDeleter {
    void operator()(HMENU menu) const { DestroyMenu(menu); }
};
using Menu = std::unique_ptr<HMENU__, MenuDeleter>;

KrTextList ChoicesOf(const GridColumn& column) {
    KrTextList list;
    for (int number = column.numbers.first; number <= column.numbers.last; ++number)
        list.InsertAt(list.GetCount(), std::to_string(number).c_str());
    for (const char* const* choice = column.choices; choice && *choice; ++choice)
        list.InsertAt(list.GetCount(), *choice);
    return list;
}

// Where the current row is on the screen.
int FocusedIndex(HWND list) { return ListView_GetNextItem(list, -1, LVNI_FOCUSED); }

// The palette is the host's. Its colours are 1 to 255; those of a block and of a layer are none of their own.
int PaletteColor(int number, KrColor* color) {
    if (number < 1 || number > kLastColor) return 0;
    std::int16_t red = 0;
    std::int16_t green = 0;
    std::int16_t blue = 0;
    DxfGetColorRGB(number, &red, &green, &blue);
    *color = RGB(red, green, blue);
    return 1;
}

unsigned int KindsOf(const GridColumn& column) { return column.isNumber || column.numbers.Any() ? kKrCellNumber : 0; }

}  // namespace

Grid::Grid(HostDialog& dialog, int listId, GridColumns columns, GridModel& rows)
    : dialog_(dialog),
      listId_(listId),
      columns_(columns),
      rows_(rows),
      control_(KrCreateListControl(&dialog.Utility())) {
    if (!control_) throw std::bad_alloc();
    dialog.BindMessage(WM_DRAWITEM, [this](WPARAM wParam, LPARAM lParam) -> std::optional<INT_PTR> {
        if (static_cast<int>(wParam) != listId_) return std::nullopt;
        control_->OnDrawItem(reinterpret_cast<DRAWITEMSTRUCT*>(lParam));
        return TRUE;
    });
    dialog.BindMessage(WM_NOTIFY, [this](WPARAM, LPARAM lParam) { return Notified(lParam); });
    dialog.BindMessage(WM_CONTEXTMENU, [this](WPARAM wParam, LPARAM lParam) -> std::optional<INT_PTR> {
        return reinterpret_cast<HWND>(wParam) == List() && menu_ ? ContextMenu(lParam) : std::nullopt;
    });
}

void Grid::CheckRowsWith(RowChecker check, std::function<void()> before) {
    checkRow_ = std::move(check);
    beforeCheck_ = std::move(before);
}

HWND Grid::List() const { return dialog_.Item<Window>(listId_).Handle(); }

// ---- Filling ----

void Grid::Init(int limit, int marks) {
    limit_ = limit;
    marks_ = marks;
    Fill();
}

void Grid::ShowOthers() {
    valid_ = false;
    faults_.clear();
    Fill();
}

void Grid::Fill() {
    control_->InitList(dialog_.Handle(), listId_, static_cast<int>(columns_.size()), rows_.Count(), limit_, marks_);
    control_->SetExtendedStyle(kGridStyle);
    SetColumns();
    for (int row = 0; row < Rows(); ++row) ShowRow(row);
    Number(0);
    ForgetHistory();
    control_->DrawItem();
}

void Grid::SetColumns() {
    int index = 0;
    for (const GridColumn& column : columns_) {
        control_->SetColumn(index, column.title, column.width);
        if (column.numbers.Any() || column.choices) {
            const KrTextList choices = ChoicesOf(column);
            control_->SetCombo(index, 1, &choices, column.choicePrompt);
        }
        if (column.typed) control_->SetEdit(index, 0, column.typed, column.typedPrompt);
        if (!column.CanEdit()) control_->SetAvailableFlag(-1, index, 0);
        control_->SetColumnKinds(index, KindsOf(column));
        control_->SetColumnColors(index, column.isColor ? PaletteColor : nullptr);
        ++index;
    }
}

void Grid::SetChoices(int column, const std::vector<std::string>& choices) {
    KrTextList list;
    for (const std::string& choice : choices) list.InsertAt(list.GetCount(), choice.c_str());
    control_->SetCombo(column, 1, &list, columns_[static_cast<std::size_t>(column)].choicePrompt);
}

void Grid::ShowRow(int row) {
    for (int column = 0; column < static_cast<int>(columns_.size()); ++column)
        control_->SetItemText(row, column, TextAt(row, column).c_str());
}

void Grid::RepaintRow(int row) const {
    const int place = control_->GetPlaceOfRow(row);
    const int below = place - ListView_GetTopIndex(List());
    if (below >= 0 && below <= ListView_GetCountPerPage(List())) ListView_RedrawItems(List(), place, place);
}

void Grid::Reveal(int row) const { ListView_EnsureVisible(List(), control_->GetPlaceOfRow(row), FALSE); }

std::vector<int> Grid::RowsOnScreen() const {
    const int top = ListView_GetTopIndex(List());
    const int end = (std::min)(Rows(), top + ListView_GetCountPerPage(List()) + 1);
    std::vector<int> rows;
    for (int place = top; place < end; ++place) rows.push_back(control_->GetRowAtPlace(place));
    return rows;
}

void Grid::SetTextAt(int row, int column, std::string_view text) {
    // What changes with a text that comes from the history comes from there as well.
    if (!toggling_) ReplaceText(row, column, std::string(text));
}

void Grid::Number(int from) {
    for (int row = from; numbered_ && row < Rows(); ++row) {
        rows_.Text(row, 0) = std::to_string(row + 1);
        control_->SetItemText(row, 0, TextAt(row, 0).c_str());
    }
}

bool Grid::EndEdit() {
    history_.EndLoose();
    if (!control_->EndEdit()) return false;
    DropUnusedRow();
    return true;
}

int Grid::FirstColumnToEdit(int row) const {
    for (int column = 0; column < static_cast<int>(columns_.size()); ++column) {
        if (columns_[static_cast<std::size_t>(column)].CanEdit() && control_->GetAvailableFlag(row, column))
            return column;
    }
    return 0;
}

// ---- Checking ----

bool Grid::Check(Extent extent) {
    if (std::exchange(valid_, true)) return faults_.empty();
    faults_.clear();
    sameBelow_.clear();
    ended_ = false;
    if (beforeCheck_) beforeCheck_();
    const int rows = Rows() - (LastRowIsUnused() ? 1 : 0);
    for (int row = 0; row < rows && (!ended_ || extent == Extent::kAll); ++row) CheckRow(row);
    // Now: a cell that was noted may have passed the checks of its own row afterwards.
    for (const GridFault& fault : faults_) control_->SetErrorFlag(fault.row, fault.column, 1);
    control_->DrawItem();
    return faults_.empty();
}

void Grid::CheckRow(int row) {
    if (checkRow_) checkRow_(RowCheck(*this, row));
}

bool Grid::Pass(int row, int column) {
    if (refused_.empty() || !refused_.contains({row, column})) control_->SetErrorFlag(row, column, 0);
    return true;
}

void Grid::ShowFault(std::size_t index) {
    if (index >= faults_.size()) return;
    if (!faults_[index].message.empty()) return control_->ErrorText(faults_[index].message.c_str());
    // What the host has found it tells only while it checks.
    const std::vector<GridFault> found = faults_;
    CheckRow(found[index].row);
    faults_ = found;
}

int Grid::SameTextBelow(int row, int column) {
    std::vector<int>& below = sameBelow_[column];
    if (below.empty()) {
        // One look at each row, from the bottom on.
        below.assign(static_cast<std::size_t>(Rows()), -1);
        std::unordered_map<std::string_view, int> nearest;
        nearest.reserve(below.size());
        for (int at = Rows() - 1; at >= 0; --at) {
            const auto [found, isNew] = nearest.try_emplace(TextAt(at, column), at);
            if (!isNew) below[static_cast<std::size_t>(at)] = std::exchange(found->second, at);
        }
    }
    return below[static_cast<std::size_t>(row)];
}

// ---- What the user does ----

std::optional<INT_PTR> Grid::Notified(LPARAM lParam) {
    const auto* header = reinterpret_cast<const NMHDR*>(lParam);
    if (static_cast<int>(header->idFrom) != listId_) return std::nullopt;
    const auto& notice = *reinterpret_cast<const KrListNotify*>(lParam);
    switch (header->code) {
        case kKrListRequest: {
            auto& asked = *reinterpret_cast<KrListRequest*>(lParam);
            asked.done = Serve(asked.request);
            break;
        }
        case static_cast<UINT>(NM_CLICK):
        case static_cast<UINT>(NM_DBLCLK):
            control_->ClickItem();
            Moved();
            break;
        case kKrListCellMoved:
            Moved();
            break;
        case kKrListCellChanged:
            TakeChange(notice.row, notice.column);
            break;
        case kKrListMarkChanged:
            if (marked_) marked_();
            break;
        default:
            break;
    }
    return std::nullopt;
}

void Grid::Moved() {
    Unfade();
    if (moved_) moved_(control_->GetSelectedItem(), control_->GetSelectedColumn());
}

void Grid::TakeChange(int row, int column) {
    if (row < 0 || row >= Rows() || column < 0 || column >= Columns()) return;
    char none[1];
    std::string text(static_cast<std::size_t>(control_->GetItemText(row, column, none, 1)) + 1, '\0');
    control_->GetItemText(row, column, text.data(), static_cast<int>(text.size()));
    text.pop_back();
    const Step step(*this);
    Unfade();
    refused_.erase({row, column});
    ReplaceText(row, column, std::move(text));
    Pass(row, column);  // its mark was for the text before
    Changed();
    if (changed_) changed_(row, column);
}

std::optional<INT_PTR> Grid::ContextMenu(LPARAM lParam) {
    if (!control_->EndEdit()) return TRUE;
    const Menu menu(LoadMenuW(ResourceModule(), MAKEINTRESOURCEW(kGridMenu)));
    const POINT place = MenuPlace(lParam);
    const int command = TrackPopupMenu(GetSubMenu(menu.get(), 0), TPM_RETURNCMD | TPM_RIGHTBUTTON, place.x, place.y, 0,
                                       dialog_.Handle(), nullptr);
    if (command) RowCommand(static_cast<UINT>(command));
    return TRUE;
}

// Where the mouse is, or below the current cell when a key opened the menu.
POINT Grid::MenuPlace(LPARAM lParam) const {
    if (lParam != -1) return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
    RECT cell{};
    const int row = CurrentRow();
    if (row >= 0)
        ListView_GetSubItemRect(List(), FocusedIndex(List()), control_->GetSelectedColumn(), LVIR_LABEL, &cell);
    POINT place{cell.left, cell.bottom};
    ClientToScreen(List(), &place);
    return place;
}

}  // namespace kiro::ui
