// A grid as text: its columns, how each cell of some rows is edited, and what the row menu does.
#include <map>
#include <vector>

#include "RecordJson.h"
#include "catalogue/DialogText.h"
#include "driver/GridDriver.h"

namespace kiro {

using namespace drive;

namespace {

constexpr int kFirstRows = 5;  // that are shown, beside the last
constexpr int kComboEdit = 1001;

class GridWriter {
  public:
    GridWriter(HWND dialog, int listId) : dialog_(dialog), grid_(dialog, listId) {
        const auto header = reinterpret_cast<HWND>(Send(grid_.List(), LVM_GETHEADER));
        columns_ = static_cast<int>(Send(header, HDM_GETITEMCOUNT));
    }

    std::string Write() {
        Until("what is read beside the user is there", [&] { return !IsBeingRead(); });
        std::string text = "grid " + std::to_string(GetDlgCtrlID(grid_.List())) + ", " + std::to_string(grid_.Rows()) +
                           " rows, current cell " + Place(grid_.Current()) + Style() + "\n";
        for (int row : SomeRows()) text += "  row " + Row(row);
        for (int column = 0; column < columns_; ++column) text += Column(column);
        return text + RowMenu();
    }

  private:
    // Counted from 1, as the operators do.
    static std::string Place(GridPlace place) {
        return std::to_string(place.row + 1) + "," + std::to_string(place.column + 1);
    }
    std::string Style() const {
        const LRESULT style = Send(grid_.List(), LVM_GETEXTENDEDLISTVIEWSTYLE);
        return std::string(style & LVS_EX_FULLROWSELECT ? ", rows selected whole" : "") +
               (style & LVS_EX_GRIDLINES ? ", lines between cells" : "");
    }
    // A cell whose text is still to come shows dots.
    bool IsBeingRead() const {
        for (const int row : SomeRows())
            for (int column = 0; column < columns_; ++column)
                if (grid_.Cell(row, column) == L"…") return true;
        return false;
    }
    std::vector<int> SomeRows() const {
        std::vector<int> rows;
        for (int row = 0; row < std::min(grid_.Rows(), kFirstRows); ++row) rows.push_back(row);
        if (grid_.Rows() > kFirstRows) rows.push_back(grid_.Rows() - 1);
        return rows;
    }
    std::string Row(int row) const {
        std::string text = std::to_string(row + 1) + ":";
        for (int column = 0; column < columns_; ++column)
            text += (column ? " | " : " ") + Utf8FromWide(grid_.Cell(row, column));
        return text + "\n";
    }
    std::wstring Title(int column) const {
        wchar_t text[128] = L"";
        LVCOLUMNW item{};
        item.mask = LVCF_TEXT;
        item.pszText = text;
        item.cchTextMax = 128;
        Send(grid_.List(), LVM_GETCOLUMNW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&item));
        return text;
    }
    int Share(int column) const {  // of the width, in hundredths
        int whole = 0;
        for (int i = 0; i < columns_; ++i) whole += grid_.Width(i);
        return MulDiv(grid_.Width(column), 100, whole);
    }

    // ---- Editing ----

    // Rows that are edited alike stand in one line.
    std::string Column(int column) {
        std::string text = "  column " + std::to_string(column + 1) + " " + Quoted(Title(column)) + ", " +
                           std::to_string(Share(column)) + " %\n";
        std::vector<std::pair<std::string, std::string>> ways;  // how, and in which rows
        for (const int row : SomeRows()) {
            const std::string way = Editing(row, column);
            if (ways.empty() || ways.back().first != way) ways.push_back({way, ""});
            ways.back().second += " " + std::to_string(row + 1);
        }
        for (const auto& [way, rows] : ways) text += "    row" + rows + ": " + way + "\n";
        return text;
    }
    std::string Editing(int row, int column) {
        grid_.Click(row, column);
        std::string text = grid_.Current() == GridPlace{row, column} ? "" : "not current, ";
        const std::wstring told = Told();
        Key(VK_F2);
        text += grid_.IsOpen() ? Editor(told) : "not edited";
        Close();
        return told.empty() ? text : text + "; clicked " + Quoted(told);
    }
    // clicked: what was told before the cell was opened.
    std::string Editor(const std::wstring& clicked) {
        const HWND editor = grid_.Editor();
        const HWND typed = GetDlgItem(editor, kComboEdit);
        const bool combo = Send(editor, CB_GETCOUNT) > 0;
        std::string text;
        if (!combo || typed) {
            text += "typed, at most " + std::to_string(Send(combo ? typed : editor, EM_GETLIMITTEXT));
            if (Told() != clicked) text += " " + Quoted(Told());
        }
        if (!combo) return text;
        grid_.Drop();
        const auto count = static_cast<int>(Send(editor, CB_GETCOUNT));
        text += (text.empty() ? "" : "; ") + std::to_string(count) + " choices " + Choice(editor, 0) + " to " +
                Choice(editor, count - 1);
        return Told() == clicked ? text : text + " " + Quoted(Told());
    }
    static std::string Choice(HWND combo, int index) {
        std::wstring text(static_cast<std::size_t>(Send(combo, CB_GETLBTEXTLEN, static_cast<WPARAM>(index))), L'\0');
        Send(combo, CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.data()));
        return Quoted(text);
    }
    void Close() {
        while (grid_.IsOpen()) Key(VK_ESCAPE);
    }
    std::wstring Told() const { return HasGuidance(dialog_) ? Guidance(dialog_) : std::wstring(); }

    // ---- The row menu ----

    static bool IsMenuOpen() { return (GuiState().flags & GUI_INMENUMODE) != 0; }
    std::vector<std::wstring> OpenRowMenu(int row) {
        if (row >= 0) grid_.Click(row, 1);
        SetFocusToGrid();
        Key(VK_APPS);
        return IsMenuOpen() ? MenuItems(OpenMenu()) : std::vector<std::wstring>();
    }
    void SetFocusToGrid() {
        if (FocusWindow() == grid_.List()) return;
        Send(dialog_, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(grid_.List()), TRUE);
    }
    std::string RowMenu() {
        const int first = grid_.Rows() > 0 ? 0 : -1;
        const auto items = OpenRowMenu(first);
        if (items.empty()) return "  no row menu\n";
        CancelMenu();
        std::string text = "  row menu";
        for (const std::wstring& item : items) text += " " + Quoted(item);
        text += "\n";
        // From the last command to the first: adding rows is tried when deleting has been.
        for (int command = static_cast<int>(items.size()) - 1; command >= 0; --command)
            text += Command(command, items[static_cast<std::size_t>(command)], first);
        return text;
    }
    std::string Command(int command, const std::wstring& name, int row) {
        const int rows = grid_.Rows();
        OpenRowMenu(grid_.Rows() > 0 ? row : -1);
        PickMenu(command);
        std::string text = "  " + Quoted(name) + " in row 1: ";
        if (IsBox(Settle())) {
            const Box box = ReadBox();
            Answer(box, IDOK);
            Settle();
            return text + "box " + Quoted(box.caption) + ", " + Quoted(box.text) + "\n";
        }
        if (grid_.Rows() < rows) return text + "deleted\n";
        if (grid_.Rows() > rows)
            return text + "current cell " + Place(grid_.Current()) + ", row " + Row(grid_.Current().row);
        return text + Quoted(Told()) + "\n";
    }

    HWND dialog_;
    Grid grid_;
    int columns_ = 0;
};

}  // namespace

std::string GridText(HWND dialog, int listId) { return GridWriter(dialog, listId).Write(); }

}  // namespace kiro
