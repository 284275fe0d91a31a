// A user who does anything in a grid: the rows stay within their limit, all of it can be undone and redone, the marks
// of rows are no part of that, and "取消" writes nothing. Every kind of grid that the dialogs have.
//
// KIRO_RANDOM_EVENTS: how much he does in each of them, 60 when it is not set. The same number does the same.
#include <algorithm>
#include <array>
#include <cstdlib>
#include <map>
#include <random>
#include <set>

#include "catalogue/Catalogue.h"
#include "catalogue/DemoHome.h"
#include "driver/GridDriver.h"
#include "resources/dxfin/KrDxfInList.ids.h"
#include "resources/dxfout/KrDxfOutFiles.ids.h"
#include "resources/model/KrDxfLayerName.ids.h"
#include "resources/model/KrDxfLineType.ids.h"
#include "resources/model/KrDxfLineWidth.ids.h"
#include "tests/dialogs/TestHost.h"
#include "workbench/HostCalls.h"

using namespace kiro::drive;

namespace {

using Cells = std::vector<std::wstring>;

struct GridKind {
    const char* dialog;             // of the catalogue
    int most = 0;                   // rows; 0: those that it opens with
    bool marks = false;             // of rows
    std::vector<int> buttons = {};  // that change cells or marks
    bool linked = false;            // the second grid shows something of the first one's current row
};

void PrintTo(const GridKind& kind, std::ostream* out) { *out << kind.dialog; }

const GridKind kKinds[] = {
    {"table-layer-classes", 2048},
    {"table-colors"},
    {"table-polylines", 50},
    {"table-fonts", 256},
    {"table-arrows", 256},
    {"export-table-classes"},
    {"export-table-arrows", 256},
    {"export-table-fonts"},
    // Two of them, the second one for itself or for the current row of the first.
    {"export-table-line-types"},
    {"export-table-patterns", 256, false, {}, true},
    // With marks.
    {"line-types", 0, true, {kMultiplyPitchesButton, kNameLineTypesButton, kRestoreLineNamesButton}},
    {"import-list", 0, true, {kMarkAllButton, kMarkNoneButton, kNamesFromFilesButton}},
    {"export-pictures", 0, true, {kCommonNameButton}},
    {"pelion-drawing-models", 0, true},
    // Others of the model's.
    {"line-widths", 0, false, {kWidthsFromPitchButton, kRestoreWidthsButton, kNoWidthsButton}},
    {"layer-names", 0, false, {kNamesFromZeroButton, kRestoreLayerNamesButton}},
};

constexpr int kEventsOfOneOpening = 500;
constexpr int kFindField = 0x7E12;  // in the bar below a grid
constexpr wchar_t kNothingToUndo[] = L"これより前には戻せません。";
constexpr wchar_t kNothingToRedo[] = L"やり直す操作はありません。";

int EventsWanted() {
    const char* const wanted = std::getenv("KIRO_RANDOM_EVENTS");
    return wanted ? std::atoi(wanted) : 60;
}

// By their first cells, which hold numbers or are never seen in another order.
bool IsBefore(const Cells& one, const Cells& other) {
    return std::pair(one[0].size(), one[0]) < std::pair(other[0].size(), other[0]);
}

class Player {
  public:
    Player(HWND dialog, const GridKind& kind, unsigned seed) : dialog_(dialog), kind_(kind), random_(seed) {
        for (HWND list = nullptr; (list = FindWindowExW(dialog, list, WC_LISTVIEWW, nullptr));)
            if (IsWindowVisible(list)) grids_.emplace_back(dialog, GetDlgCtrlID(list));
        Until("what is read beside the user is there", [&] {
            return std::ranges::none_of(
                Tables().front(), [](const Cells& cells) { return std::ranges::find(cells, L"…") != cells.end(); });
        });
        for (const Grid& grid : grids_) most_.push_back(grid.Rows());
        most_.front() = std::max(most_.front(), kind.most);
    }

    void Do(int events) {
        while (events-- > 0) {
            Settle();
            Act(random_() % 16);
            Sync();
            for (std::size_t i = 0; i < grids_.size(); ++i) ASSERT_LE(grids_[i].Rows(), most_[i]);
        }
        Rest();
    }
    // By Ctrl and a key, until the guidance line says that there is nothing any more.
    void Repeat(WORD key, const wchar_t* end) {
        ForEachGrid([&](const Grid& grid) {
            Focus(dialog_, GetDlgCtrlID(grid.List()));
            int steps = 0;
            do {
                KeyHolding(VK_CONTROL, key);
                if (++steps > 4 * kEventsOfOneOpening) throw Failure("there is no end to the history");
            } while (Guidance(dialog_) != end);
        });
    }
    // In the order of the tables.
    std::vector<std::vector<Cells>> Tables() const {
        std::vector<std::vector<Cells>> tables;
        ForEachGrid([&](const Grid& grid) {
            const auto columns = Send(reinterpret_cast<HWND>(Send(grid.List(), LVM_GETHEADER)), HDM_GETITEMCOUNT);
            std::vector<Cells>& table = tables.emplace_back();
            for (int row = 0; row < grid.Rows(); ++row) {
                Cells& cells = table.emplace_back();
                for (int column = 0; column < columns; ++column) cells.push_back(grid.Cell(row, column));
            }
            std::stable_sort(table.begin(), table.end(), IsBefore);
        });
        if (kind_.linked) std::stable_sort(tables.begin() + 1, tables.end());
        return tables;
    }
    // The rows whose box is seen to have a mark.
    std::set<std::wstring> Marked() const {
        std::set<std::wstring> marked;
        const Grid& grid = grids_.front();
        for (int row = 0; kind_.marks && row < grid.Rows(); ++row) {
            Send(grid.List(), LVM_ENSUREVISIBLE, static_cast<WPARAM>(row), FALSE);
            const int middle = (grid.Area(row, 0).bottom - grid.Area(row, 0).top) / 2;
            bool dark = false;
            for (int x = 6; x < 13; ++x) dark = dark || GetRValue(grid.Pixel(row, 0, x, middle)) < 0x80;
            if (dark) marked.insert(grid.Cell(row, 0));
        }
        return marked;
    }

  private:
    // One that is linked with another: for each row of that.
    void ForEachGrid(const std::function<void(const Grid& grid)>& work) const {
        for (const Grid& grid : grids_) {
            const bool linked = kind_.linked && &grid != &grids_.front();
            for (int row = 0; row < (linked ? grids_.front().Rows() : 1); ++row) {
                if (linked) grids_.front().Click(row, 0);
                work(grid);
            }
        }
    }
    template <std::size_t N>
    auto Pick(const std::array<const wchar_t*, N>& from) {
        return from[random_() % N];
    }
    WORD Pick(std::initializer_list<WORD> from) { return from.begin()[random_() % from.size()]; }
    int Below(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }

    bool IsInGrid(HWND focus) const {
        return std::ranges::any_of(
            grids_, [&](const Grid& grid) { return focus == grid.List() || IsChild(grid.List(), focus); });
    }

    // Whatever has opened is answered or left, and a grid has the focus.
    void Settle() {
        for (HWND open; (open = kiro::drive::Settle()) != dialog_;) {
            if (!open) throw Failure("the dialog has closed");
            const Box box = IsBox(open) ? ReadBox() : Box{};
            if (!box.window)
                PostMessageW(open, WM_COMMAND, IDCANCEL, 0);
            else
                Answer(box, box.buttons[random_() % box.buttons.size()]);
            Sync();
        }
        if (IsInGrid(FocusWindow()) || FocusId() == kFindField) return;
        GoToGrid();
    }
    void GoToGrid() {
        const Grid& grid = grids_[random_() % grids_.size()];
        Focus(dialog_, GetDlgCtrlID((IsWindowEnabled(grid.List()) ? grid : grids_.front()).List()));
    }
    // No editor is open, and no bar.
    void Rest() {
        Settle();
        if (FocusId() == kFindField) Key(VK_ESCAPE);
        for (const Grid& grid : grids_) {
            while (grid.IsOpen()) {
                Focus(dialog_, GetDlgCtrlID(grid.List()));
                if (grid.IsOpen()) Key(VK_ESCAPE);  // a text that was refused
            }
        }
        Settle();
    }

    void Act(unsigned kind) {
        constexpr wchar_t kManyRows[] = L"1\n2\n3\n4\n5\n6\n7\n8\n9\n10\n11\n12\n13\n14\n15\n16\n17\n18\n";
        const std::array<const wchar_t*, 13> kTexts = {
            L"1",          L"２",          L"300",   L"壁",     L"a\tb\tc",
            L"\t7\n\t8\n", L"x\r\ny\r\nz", L"=",     L"\x00E9", L"0.5\t3\n1.5\t4",
            L"999999",     L"壁",          kManyRows};
        if (kind < 3)  // what is done often has several numbers
            return Key(Pick({VK_UP, VK_DOWN, VK_LEFT, VK_RIGHT, VK_HOME, VK_END, VK_RETURN, VK_RETURN, VK_TAB,
                             VK_INSERT, VK_INSERT, VK_DELETE, VK_F2, VK_F3, VK_F4, VK_PRIOR, VK_NEXT}));
        if (kind == 3)
            return KeyHolding(VK_SHIFT, Pick({VK_UP, VK_DOWN, VK_LEFT, VK_RIGHT, VK_NEXT, VK_INSERT, VK_TAB, VK_F3}));
        if (kind == 4) return KeyHolding({VK_CONTROL, VK_SHIFT}, Pick({'V', 'Z', 'L', VK_HOME, VK_END}));
        if (kind < 8)
            return KeyHolding(
                VK_CONTROL, Pick({'V', 'V', 'D', 'R', 'Z', 'Z', 'Z', 'Y', 'A', 'C', 'F', VK_HOME, VK_END, VK_INSERT}));
        if (kind == 8) return PutOnClipboard(Pick(kTexts));
        if (kind < 11) return Point();
        if (kind < 13) return Type(Pick(kTexts)[0]);
        if (kind == 13) return Type(L' ');  // marks the row, where there are marks
        kind == 14 ? UseMenu() : PressButton();
    }
    static void Type(wchar_t unit) { PostMessageW(FocusWindow(), WM_CHAR, unit, 1); }
    void Point() {
        const Grid& grid = grids_[random_() % grids_.size()];
        if (grid.Rows() == 0 || !IsWindowEnabled(grid.List())) return;
        const int row = Below(grid.Rows());
        const int column = Below(3);
        const int way = Below(6);
        if (way == 0) return grid.DoubleClick(row, 1);
        if (way == 1) return Holding(VK_SHIFT, [&] { grid.Click(row, column % 2); });
        way == 2 ? ClickHead(grid, column % 2) : grid.Click(row, column % 2);
    }
    void ClickHead(const Grid& grid, int column) {
        const auto header = reinterpret_cast<HWND>(Send(grid.List(), LVM_GETHEADER));
        const bool divider = random_() % 4 == 0;
        const int left = column * grid.Width(0);
        const LPARAM place = MAKELPARAM(divider ? left + grid.Width(column) : left + grid.Width(column) / 2, 5);
        PostMessageW(header, divider ? WM_LBUTTONDBLCLK : WM_LBUTTONDOWN, MK_LBUTTON, place);
        PostMessageW(header, WM_LBUTTONUP, 0, place);
    }
    void UseMenu() {
        if (FocusId() == kFindField) return Key(VK_ESCAPE);
        Key(VK_APPS);
        if (!(GuiState().flags & GUI_INMENUMODE)) return;
        const int item = Below(4);
        item < static_cast<int>(MenuItems(OpenMenu()).size()) ? PickMenu(item) : CancelMenu();
    }
    void PressButton() {
        if (kind_.buttons.empty() || random_() % 4) return GoToGrid();
        if (kind_.buttons.front() == kMultiplyPitchesButton) SetDlgItemTextW(dialog_, kPitchFactorEdit, L"2");
        PostMessageW(Control(dialog_, kind_.buttons[random_() % kind_.buttons.size()]), BM_CLICK, 0, 0);
    }

    HWND dialog_;
    const GridKind& kind_;
    std::mt19937 random_;
    std::vector<Grid> grids_;
    std::vector<int> most_;
};

std::vector<std::vector<std::byte>> KeptBytes(const kiro::Opening& opening) {
    std::vector<std::vector<std::byte>> bytes;
    for (const auto& part : opening.kept) bytes.emplace_back(part.begin(), part.end());
    return bytes;
}

}  // namespace

class GridPlay : public TestHost, public testing::WithParamInterface<GridKind> {
  protected:
    std::map<std::filesystem::path, std::string> Tables() const {
        std::map<std::filesystem::path, std::string> files;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(home / L"DXF" / L"TABLE"))
            files.emplace(entry.path(), BytesOf(entry.path()));
        return files;
    }
};

TEST_P(GridPlay, WhateverIsDoneCanBeUndone) {
    kiro::MakeDemoHome(home);
    const GridKind& kind = GetParam();
    unsigned seed = 0;
    for (int left = EventsWanted(); left > 0 && !HasFailure(); left -= kEventsOfOneOpening) {
        SCOPED_TRACE("opening " + std::to_string(++seed));
        const kiro::Opening opening = kiro::FindDialog(kind.dialog)->prepare();
        const auto bytes = KeptBytes(opening);
        const auto files = Tables();
        const kiro::Json model = kiro::HostModel();
        const INT_PTR result = Drive(opening.run, [&] {
            const HWND dialog = Settle();
            Player player(dialog, kind, seed);
            const auto opened = player.Tables();
            player.Do(std::min(left, kEventsOfOneOpening));
            player.Repeat('Y', kNothingToRedo);
            const auto done = player.Tables();
            const auto marked = player.Marked();
            player.Repeat('Z', kNothingToUndo);
            EXPECT_EQ(opened, player.Tables());
            player.Repeat('Y', kNothingToRedo);
            EXPECT_EQ(done, player.Tables());
            player.Repeat('Z', kNothingToUndo);
            EXPECT_EQ(opened, player.Tables());
            EXPECT_EQ(marked, player.Marked());
            Click(dialog, IDCANCEL);
        });
        EXPECT_EQ(IDCANCEL, result);
        EXPECT_EQ(bytes, KeptBytes(opening));
        EXPECT_EQ(files, Tables());
        EXPECT_EQ(model, kiro::HostModel());
    }
}

INSTANTIATE_TEST_SUITE_P(Kinds, GridPlay, testing::ValuesIn(kKinds), [](const auto& kind) {
    std::string name = kind.param.dialog;
    std::erase(name, '-');
    return name;
});
