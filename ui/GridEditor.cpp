#include "ui/GridEditor.h"

#include <commctrl.h>

#include <charconv>
#include <cstring>
#include <unordered_map>

#include "text/TextFormat.h"
#include "ui/MessageBoxes.h"

namespace kiro::ui {
namespace {

constexpr unsigned long kGridStyle = 33;  // grid lines and full-row selection
constexpr int kCellSize = 1024;

struct MenuDeleter {
    void operator()(HMENU menu) const { DestroyMenu(menu); }
};
using Menu = std::unique_ptr<HMENU__, MenuDeleter>;

bool CanEdit(const GridColumn& column) { return column.typed || column.numbers || column.choices; }

KrTextList ChoicesOf(const GridColumn& column) {
    KrTextList list;
    for (int number = 1; number <= column.numbers; ++number)
        list.InsertAt(list.GetCount(), std::to_string(number).c_str());
    for (const char* const* choice = column.choices; choice && *choice; ++choice)
        list.InsertAt(list.GetCount(), *choice);
    return list;
}

}  // namespace

GridEditor::GridEditor(int templateId) : HostDialog(templateId), grid_(KrCreateListControl(&Utility())) {
    if (!grid_) throw std::bad_alloc();
    BindMessage(WM_DRAWITEM, [this](WPARAM wParam, LPARAM lParam) -> std::optional<INT_PTR> {
        if (wParam != kGrid) return std::nullopt;
        grid_->OnDrawItem(reinterpret_cast<DRAWITEMSTRUCT*>(lParam));
        return TRUE;
    });
    BindMessage(WM_NOTIFY, [this](WPARAM, LPARAM lParam) { return Notified(lParam); });
    BindMessage(WM_CONTEXTMENU, [this](WPARAM wParam, LPARAM lParam) { return ContextMenu(wParam, lParam); });
}

const char* GridEditor::ClickText(int, int) const { return ""; }

// ---- Filling ----

void GridEditor::OnInit() {
    InitUtility();
    Load();
    const Shape form = Form();
    Window(Handle()).SetText(form.title);
    Utility().SetCaption(form.title);
    const auto columns = Columns();
    grid_->InitList(Handle(), kGrid, static_cast<int>(columns.size()), RowCount(), form.limit, kKrSelectNone);
    grid_->SetExtendedStyle(kGridStyle);
    SetColumns();
    FillRows();
    grid_->DrawItem();
    if (Rows() > 0) grid_->ClickCell(0, FirstColumnToEdit(0));
}

// Where the user can start to type at once.
int GridEditor::FirstColumnToEdit(int row) const {
    int index = 0;
    for (const GridColumn& column : Columns()) {
        if (CanEdit(column) && grid_->GetAvailableFlag(row, index)) return index;
        ++index;
    }
    return 0;
}

void GridEditor::SetColumns() {
    int index = 0;
    for (const GridColumn& column : Columns()) {
        grid_->SetColumn(index, column.title, column.width);
        if (column.numbers || column.choices) {
            const KrTextList choices = ChoicesOf(column);
            grid_->SetCombo(index, 1, &choices, column.choicePrompt);
        }
        if (column.typed) grid_->SetEdit(index, 0, column.typed, column.typedPrompt);
        if (!CanEdit(column)) grid_->SetAvailableFlag(-1, index, 0);
        ++index;
    }
}

void GridEditor::FillRows() {
    Number(0);
    for (int row = 0; row < Rows(); ++row) FillRow(row);
}

void GridEditor::Number(int from) {
    for (int row = from; row < Rows(); ++row) SetTextAt(row, 0, std::to_string(row + 1));
}

// ---- Texts ----

std::string GridEditor::TextAt(int row, int column) const {
    char text[kCellSize];
    const int length = grid_->GetItemText(row, column, text, kCellSize);
    return std::string(text, static_cast<std::size_t>(std::min(length, kCellSize - 1)));
}

int GridEditor::NumberAt(int row, int column) const {
    const std::string text = TextAt(row, column);
    int number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

void GridEditor::SetTextAt(int row, int column, std::string_view text) {
    grid_->SetItemText(row, column, std::string(text).c_str());
}

// ---- Checking ----

bool GridEditor::Pass(int row, int column) {
    grid_->SetErrorFlag(row, column, 0);
    return true;
}

bool GridEditor::Fail(int row, int column, std::string message) {
    grid_->SetErrorFlag(row, column, 1);
    badRow_ = row;
    badColumn_ = column;
    message_ = std::move(message);
    return false;
}

bool GridEditor::CheckNumber(int row, int column, int kind, double low, double high, const char* message) {
    const std::string text = TextAt(row, column);
    if (Utility().CheckNumber(text.c_str(), kind, low, high)) return Pass(row, column);
    return Fail(row, column, Formatted(message, row + 1, text));
}

bool GridEditor::CheckInteger(int row, int column, int low, int high, const char* message) {
    return CheckNumber(row, column, kKrInteger, low, high, message);
}

bool GridEditor::CheckReal(int row, int column, double low, double high, const char* message) {
    return CheckNumber(row, column, kKrReal, low, high, message);
}

bool GridEditor::CheckName(int row, int column, const GridNames& names) {
    if (sameName_.empty()) sameName_ = SameTextBelow(column);
    const std::string name = TextAt(row, column);
    const int same = sameName_[static_cast<std::size_t>(row)];
    if (name.empty()) return Fail(row, column, Formatted(names.missing, row + 1));
    if (same >= 0) {
        const bool both = std::strstr(names.repeated, "%d,%d") != nullptr;
        return Fail(
            row, column,
            both ? Formatted(names.repeated, row + 1, same + 1, name) : Formatted(names.repeated, row + 1, name));
    }
    if (name.find_first_of(" \t\r\n") != name.npos || name.find_first_of(names.separators) != name.npos)
        return Fail(row, column, Formatted(names.separated, row + 1, name));
    if (name.size() > names.longest) return Fail(row, column, Formatted(names.tooLong, row + 1, name));
    return Pass(row, column);
}

std::vector<int> GridEditor::SameTextBelow(int column) const {
    const int rows = Rows();
    std::vector<int> below(static_cast<std::size_t>(rows), -1);
    std::unordered_map<std::string, int> nearest;
    nearest.reserve(below.size());
    for (int row = rows - 1; row >= 0; --row) {
        const auto [found, isNew] = nearest.try_emplace(TextAt(row, column), row);
        if (isNew) continue;
        below[static_cast<std::size_t>(row)] = found->second;
        found->second = row;
    }
    return below;
}

// Stops at the first bad row. Without a change since the last check its result still holds.
bool GridEditor::CheckRows() {
    if (!checked_) {
        badRow_ = badColumn_ = -1;
        message_.clear();
        sameName_.clear();
        BeforeCheck();
        for (int row = 0; row < Rows() && badRow_ < 0; ++row) CheckRow(row);
        checked_ = true;
        grid_->DrawItem();
    }
    // A check without a message of its own has shown one.
    if (badRow_ >= 0 && message_.empty()) CheckRow(badRow_);
    if (!message_.empty()) grid_->ErrorText(message_.c_str());
    return badRow_ < 0;
}

void GridEditor::CellMoved() {
    const int row = grid_->GetSelectedItem();
    const bool moved = row != row_;
    row_ = row;
    grid_->MessageText(ClickText(row, grid_->GetSelectedColumn()));
    if (moved) CheckRows();
}

void GridEditor::OnOk() {
    if (!grid_->EndEdit()) return;
    if (!CheckRows()) {
        Tell(Handle(), "設定内容に誤りがあります。", Form().caption, Icon::kError);
        grid_->ClickCell(badRow_, badColumn_);
        row_ = badRow_;
        CheckRows();
        return;
    }
    Store();
    if (Save()) End(IDOK);
}

// ---- The grid's events ----

std::optional<INT_PTR> GridEditor::Notified(LPARAM lParam) {
    const auto* header = reinterpret_cast<const NMHDR*>(lParam);
    if (header->idFrom != kGrid) return std::nullopt;
    switch (header->code) {
        case static_cast<UINT>(NM_CLICK):
        case static_cast<UINT>(NM_DBLCLK):
            grid_->ClickItem();
            CellMoved();
            break;
        case kKrListCellMoved:
            CellMoved();
            break;
        case kKrListCellChanged: {
            // Its mark was for the text before.
            const auto& change = *reinterpret_cast<const KrListNotify*>(lParam);
            grid_->SetErrorFlag(change.row, change.column, 0);
            checked_ = false;
            break;
        }
        default:
            break;
    }
    return std::nullopt;
}

std::optional<INT_PTR> GridEditor::ContextMenu(WPARAM wParam, LPARAM lParam) {
    if (reinterpret_cast<HWND>(wParam) != Item<Window>(kGrid).Handle() || !Form().rowCommands) return std::nullopt;
    if (!grid_->EndEdit()) return TRUE;
    const Menu menu(LoadMenuW(ResourceModule(), MAKEINTRESOURCEW(kGridMenu)));
    const POINT place = MenuPlace(lParam);
    const int command = TrackPopupMenu(GetSubMenu(menu.get(), 0), TPM_RETURNCMD | TPM_RIGHTBUTTON, place.x, place.y, 0,
                                       Handle(), nullptr);
    if (command) RowCommand(static_cast<UINT>(command));
    return TRUE;
}

// Where the mouse is, or below the current cell when a key opened the menu.
POINT GridEditor::MenuPlace(LPARAM lParam) const {
    if (lParam != -1) return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
    const HWND list = Item<Window>(kGrid).Handle();
    RECT cell{};
    const int row = grid_->GetSelectedItem();
    if (row >= 0) ListView_GetSubItemRect(list, row, grid_->GetSelectedColumn(), LVIR_LABEL, &cell);
    POINT place{cell.left, cell.bottom};
    ClientToScreen(list, &place);
    return place;
}

// ---- Rows ----

void GridEditor::RowCommand(UINT command) {
    switch (command) {
        case kAddRowCommand:
            AddRow(false);
            break;
        case kInsertRowCommand:
            AddRow(true);
            break;
        case kDeleteRowCommand:
            DeleteRow();
            break;
        default:
            break;
    }
    grid_->DrawItem();
    SetFocus(Item<Window>(kGrid).Handle());
}

void GridEditor::AddRow(bool insert) {
    const int current = grid_->GetSelectedItem();
    if (insert && current >= 0 && current < Form().fixedRows) return grid_->ErrorText("ここには挿入できません。");
    const bool aboveLast = !insert && Form().addAboveLast && Rows() > 0;
    if (aboveLast) {
        grid_->ClearSelectFlag();
        grid_->ClickCell(Rows() - 1, 1);
    }
    const int row = insert || aboveLast ? grid_->InsertItem() : grid_->AddItem();
    if (row < 0) return grid_->ErrorText("これ以上追加できません。");
    FillNewRow(row);
    grid_->ClickCell(row, FirstColumnToEdit(row));
    RowsChanged(row);
}

void GridEditor::DeleteRow() {
    const int row = grid_->GetSelectedItem();
    if (row < 0) return;
    if (row < Form().fixedRows) return grid_->ErrorText("削除できません。");
    grid_->DeleteItem();
    RowDeleted(row);
    RowsChanged(row);
}

void GridEditor::RowsChanged(int from) {
    checked_ = false;
    Number(from);
    RowsMoved();
    row_ = grid_->GetSelectedItem();
    grid_->MessageText(ClickText(row_, grid_->GetSelectedColumn()));
}

}  // namespace kiro::ui
