// The grid: its rows and their flags, marks, and linked grids.
#include "tests/dialogs/GridDialog.h"

namespace {

using Events = std::vector<std::string>;

}  // namespace

TEST_F(Grids, RowsComeAndGoWithTheirFlags) {
    rows = 3;
    limit = 5;
    Run([&](HWND dialog) {
        const Grid grid(dialog, kList);
        OnUi([&] {
            table().SetErrorFlag(1, 1, 1);
            table().SetAvailableFlag(1, 2, 0);
            table().ClickCell(1, 1);
            EXPECT_EQ(1, table().InsertItem());
            EXPECT_EQ(1, table().GetSelectedItem());
            EXPECT_EQ(4, table().AddItem());
            EXPECT_EQ(4, table().GetSelectedItem());
            EXPECT_EQ(-1, table().AddItem());
            EXPECT_EQ(-1, table().InsertItem());
            EXPECT_EQ(5, table().GetItemCount());
            EXPECT_NE(0, table().GetAvailableFlag(1, 2));  // a new row is as its columns are
            EXPECT_EQ(0, table().GetAvailableFlag(1, 0));
            EXPECT_EQ(0, table().GetAvailableFlag(2, 2));  // and the old ones kept theirs
        });
        EXPECT_EQ(5, grid.Rows());
        EXPECT_EQ(L"", grid.Cell(1, 1));
        EXPECT_EQ(L"レイヤ2", grid.Cell(2, 1));
        EXPECT_EQ(RGB(0xC0, 0, 0), grid.Pixel(2, 1, -10, 0));
        OnUi([&] {
            table().DeleteItem();
            EXPECT_EQ(3, table().GetSelectedItem());  // the last one
            table().ClickCell(1, 1);
            table().DeleteItem();
            EXPECT_EQ(1, table().GetSelectedItem());  // the next one
        });
        EXPECT_EQ(L"レイヤ2", grid.Cell(1, 1));
        OnUi([&] {
            while (table().GetItemCount() > 0) table().DeleteItem();
            table().DeleteItem();
            EXPECT_EQ(-1, table().GetSelectedItem());
        });
        Focus(dialog, kList);
        for (const int key : {VK_DOWN, VK_END, VK_NEXT, VK_F2, VK_F4, VK_RETURN, VK_SPACE}) Key(static_cast<WORD>(key));
        EXPECT_FALSE(grid.IsOpen());
        OnUi([&] { EXPECT_EQ(0, table().InsertItem()); });  // with no current row: the last
        Click(dialog, IDCANCEL);
    });
}

TEST_F(Grids, RowsAreMarkedBySpaceBarAndClick) {
    for (const int kind : {kKrSelectSingle, kKrSelectMultiple}) {
        selection = kind;
        const bool many = kind == kKrSelectMultiple;
        tablePtr.reset(KrCreateListControl(utility.get()));
        Run([&](HWND dialog) {
            const Grid grid(dialog, kList);
            const auto marked = [&] {
                std::string rowsMarked;
                OnUi([&] {
                    for (int row = 0; row < 6; ++row) rowsMarked += table().GetSelectFlag(row) ? '1' : '0';
                });
                return rowsMarked;
            };
            grid.Click(1, 0);
            EXPECT_EQ("010000", marked());
            grid.Click(3, 1);  // in a cell to edit a click is for that
            EXPECT_EQ("010000", marked());
            grid.Keys(L" ");
            EXPECT_EQ(many ? "010100" : "000100", marked());
            EXPECT_EQ((Events{"mark 1,0", "click -1>1", "click 1>3", "mark 3,1"}), TakeEvents());
            grid.Keys(L" ");
            EXPECT_EQ(many ? "010000" : "000000", marked());
            grid.DoubleClick(5, 0);
            grid.Click(1, 0);
            EXPECT_EQ(many ? "000001" : "010000", marked());
            OnUi([&] { table().SetSelectFlag(4, 1); });
            EXPECT_EQ(many ? "000011" : "000010", marked());
            OnUi([&] { table().ClearSelectFlag(); });
            EXPECT_EQ("000000", marked());
            EXPECT_FALSE(grid.IsOpen());
            Click(dialog, IDCANCEL);
        });
        events.clear();
    }
}

TEST_F(Grids, ShiftMarksRanges) {
    selection = kKrSelectMultiple;
    Run([&](HWND dialog) {
        const Grid grid(dialog, kList);
        const auto expect = [&](const char* expected) {
            std::string marked;
            OnUi([&] {
                for (int row = 0; row < 10; ++row) marked += table().GetSelectFlag(row) ? '1' : '0';
            });
            EXPECT_EQ(expected, marked);
        };
        grid.Click(4, 1);
        grid.Keys(L" ");
        grid.Click(2, 1);
        TakeEvents();
        KeyHolding(VK_SHIFT, VK_DOWN);
        KeyHolding(VK_SHIFT, VK_DOWN);
        expect("0011100000");
        EXPECT_EQ((Events{"moved 3,1", "mark 3,1", "moved 4,1"}), TakeEvents());  // row 4 was marked already
        for (int i = 0; i < 3; ++i) KeyHolding(VK_SHIFT, VK_UP);
        expect("0110100000");  // what leaves the range is as it was
        Key(VK_DOWN);
        Key(VK_DOWN);
        KeyHolding(VK_SHIFT, VK_DOWN);  // another range
        expect("0111100000");
        grid.Click(6, 1);
        grid.Keys(L" ");
        Key(VK_DOWN);
        Key(VK_DOWN);
        Key(VK_DOWN);
        TakeEvents();
        Holding(VK_SHIFT, [&] { grid.Keys(L" "); });
        expect("0111101111");
        EXPECT_EQ((Events{"mark 9,1"}), TakeEvents());  // one for all of them
        OnUi([&] { table().ClearSelectFlag(); });
        grid.Click(1, 0);
        Holding(VK_SHIFT, [&] { grid.Click(3, 0); });
        expect("0111000000");
        grid.Click(4, 1);
        Holding(VK_SHIFT, [&] { grid.Write(L"大文字"); });  // Enter with Shift is no range
        expect("0111000000");
        Click(dialog, IDCANCEL);
    });
}

// ---- Linked grids ----

TEST_F(Grids, AChildsTextIsTakenBeforeTheParentsRowChanges) {
    Run([&](HWND dialog) {
        const Grid parent(dialog, kList);
        const Grid child(dialog, kOther);
        OnUi([&] {
            other().SetEdit(1, 0, 10, "");
            other().SetParentList(&table());
            table().SetParentList(&other());  // not both ways
        });
        parent.Click(4, 1);
        EXPECT_EQ(GridPlace(), child.Current());
        child.Click(6, 1);
        EXPECT_EQ((GridPlace{4, 1}), parent.Current());
        Send(parent.List(), WM_VSCROLL, SB_LINEDOWN, 0);
        EXPECT_EQ(0, child.TopRow());
        const auto stays = [&](const std::function<void()>& leave) {
            leave();
            EXPECT_EQ((GridPlace{4, 1}), parent.Current());
            EXPECT_EQ(L"\x00E9", child.Typed());
            EXPECT_TRUE(IsChild(child.List(), FocusWindow()) && IsGuidanceError(dialog));
        };
        child.Keys(L"\x00E9");
        stays([&] { parent.Click(7, 1); });
        stays([&] { parent.RightClick(7, 1); });
        stays([&] {
            Focus(dialog, kList);
            Key(VK_DOWN);
        });
        stays([&] {
            OnUi([&] {
                EXPECT_EQ(0, table().EndEdit());
                EXPECT_EQ(-1, table().AddItem());
                table().ClickCell(0, 1);
            });
        });
        int rowWhenTaken = -1;
        onChange = [&] { rowWhenTaken = table().GetSelectedItem(); };
        child.SetText(L"斜め");
        parent.Click(7, 1);
        EXPECT_EQ(4, rowWhenTaken);
        EXPECT_EQ((GridPlace{7, 1}), parent.Current());
        EXPECT_EQ(L"斜め", child.Cell(6, 1));
        child.Click(2, 1);
        child.Keys(L"\x00E9");
        OnUi([&] { table().DeleteItem(); });  // what is typed goes with the row
        EXPECT_FALSE(child.IsOpen());
        EXPECT_EQ(L"横", child.Cell(2, 1));
        OnUi([&] { tablePtr.reset(); });
        child.Click(5, 1);  // alone now
        EXPECT_EQ((GridPlace{5, 1}), child.Current());
        Click(dialog, IDCANCEL);
    });
}
