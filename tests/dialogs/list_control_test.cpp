// The grid: what it shows, the keys and the mouse, and its end.
#include "driver/Leaks.h"
#include "tests/dialogs/GridDialog.h"

namespace {

using Events = std::vector<std::string>;

int WidthOf(const Grid& grid, int columns) {
    int width = 0;
    for (int i = 0; i < columns; ++i) width += grid.Width(i);
    return width;
}

RECT ClientOf(HWND window) {
    RECT area{};
    GetClientRect(window, &area);
    return area;
}

std::string Repeated(const char* text, int times) {
    std::string whole;
    while (times-- > 0) whole += text;
    return whole;
}

bool HasStyle(HWND window, LONG style) { return (GetWindowLongW(window, GWL_STYLE) & style) != 0; }

}  // namespace

// ---- What it shows ----

TEST_F(Grids, ColumnsFillTheGridAndTextsAreThereForEveryReader) {
    Run([&](HWND dialog) {
        const Grid grid(dialog, kList);
        const Grid second(dialog, kOther);
        EXPECT_TRUE(HasStyle(grid.List(), WS_VSCROLL) && !HasStyle(grid.List(), WS_HSCROLL));
        EXPECT_TRUE(!HasStyle(second.List(), WS_VSCROLL | WS_HSCROLL));
        EXPECT_EQ(ClientOf(grid.List()).right, WidthOf(grid, 3));
        EXPECT_EQ(ClientOf(second.List()).right, WidthOf(second, 2));
        EXPECT_NEAR(6.0, grid.Width(1) * 1.0 / grid.Width(0), 0.2);
        EXPECT_EQ(30, grid.Rows());
        OnUi([&] { table().SetItemText(29, 1, "表ソ能"); });
        EXPECT_EQ(L"表ソ能", grid.Cell(29, 1));
        EXPECT_EQ("表ソ能", Stored(29, 1));
        const auto window = reinterpret_cast<HWND>(Send(grid.List(), LVM_GETHEADER));
        // The user drags a divider: the columns to its right make room, and no scroll bar comes.
        NMHEADERW drag{};
        drag.hdr = {window, 0, static_cast<UINT>(HDN_ENDTRACKW)};
        Send(grid.List(), LVM_SETCOLUMNWIDTH, 0, 100);
        Send(grid.List(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&drag));
        Sync();
        EXPECT_EQ(100, grid.Width(0));
        EXPECT_NEAR(2.0, grid.Width(1) * 1.0 / grid.Width(2), 0.1);
        EXPECT_EQ(ClientOf(grid.List()).right, WidthOf(grid, 3));
        Click(dialog, IDCANCEL);
    });
}

TEST_F(Grids, AnswersNothingForCellsThatAreNotThere) {
    Run([&](HWND dialog) {
        char text[4];
        OnUi([&] {
            EXPECT_EQ(-1, table().GetSelectedItem());
            EXPECT_EQ(-1, table().GetSelectedColumn());
            for (const auto& [row, column] : {std::pair(-1, 0), {30, 0}, {0, 3}, {0, -1}}) {
                table().SetItemText(row, column, "x");
                table().SetErrorFlag(row, column, 1);
                table().SetItemColor(row, column, 0, 0);
                table().ClickCell(row, column);
                table().SetEditMode(row, column);
                EXPECT_EQ(0, table().GetItemText(row, column, text, sizeof text));
                EXPECT_STREQ("", text);
            }
            EXPECT_EQ(0, table().GetAvailableFlag(30, 1));
            EXPECT_EQ(0, table().GetSelectFlag(30));
            EXPECT_EQ(-1, table().GetSelectedItem());
            // A text that has no room is cut at a character's end, and its whole length told.
            table().SetItemText(0, 1, "表題欄");
            EXPECT_EQ(6, table().GetItemText(0, 1, text, sizeof text));
            EXPECT_STREQ("表", text);
            EXPECT_EQ(6, table().GetItemText(0, 1, nullptr, 0));
            table().SetItemText(0, 1, nullptr);
            EXPECT_EQ(0, table().GetItemText(0, 1, text, sizeof text));
        });
        Click(dialog, IDCANCEL);
    });
}

TEST_F(Grids, ErrorsCurrentCellAndMissingAvailabilityAreSeen) {
    rows = 5;
    Run([&](HWND dialog) {
        const Grid grid(dialog, kList);
        const COLORREF white = GetSysColor(COLOR_WINDOW);
        OnUi([&] {
            table().SetErrorFlag(3, 2, 1);
            table().SetItemColor(4, 1, RGB(0, 0, 255), RGB(0, 255, 0));
            table().DrawItem();
        });
        EXPECT_EQ(white, grid.Pixel(3, 1, -10, 10));
        EXPECT_NE(white, grid.Pixel(3, 2, -10, 10));
        EXPECT_EQ(RGB(0xC0, 0, 0), grid.Pixel(3, 2, -10, 0));  // the frame
        EXPECT_EQ(RGB(0, 255, 0), grid.Pixel(4, 1, -10, 10));
        EXPECT_NE(white, grid.Pixel(3, 0, -10, 10));  // not available
        grid.Click(3, 1);
        const COLORREF row = grid.Pixel(3, 0, -10, 10);
        EXPECT_EQ(GetSysColor(COLOR_HIGHLIGHT), grid.Pixel(3, 1, -10, 0));
        EXPECT_EQ(RGB(0xC0, 0, 0), grid.Pixel(3, 2, -10, 0));  // still found in the current row
        Focus(dialog, IDOK);
        EXPECT_NE(row, grid.Pixel(3, 0, -10, 10));
        EXPECT_NE(white, grid.Pixel(3, 1, -10, 10));
        OnUi([&] {
            table().SetErrorFlag(3, 2, 0);
            table().DrawItem();
        });
        EXPECT_NE(RGB(0xC0, 0, 0), grid.Pixel(3, 2, -10, 0));
        Click(dialog, IDCANCEL);
    });
}

TEST_F(Grids, ChecksNumbersByTheirDigits) {
    for (const char* good : {"1", "256", "007", "0256"}) EXPECT_NE(0, table().CheckClassNumber(0, good)) << good;
    for (const char* bad :
         {"", "0", "257", "１２", "7x", "-0", "+5", "1e3", " 7", "99999999999999999999", "4294967297"})
        EXPECT_EQ(0, table().CheckRevisionNumber(0, bad)) << bad;
    EXPECT_EQ(0, table().CheckClassNumber(0, nullptr));
}

// ---- Keys and mouse ----

TEST_F(Grids, KeysMoveTheCurrentCell) {
    Run([&](HWND dialog) {
        const Grid grid(dialog, kList);
        Focus(dialog, kList);
        EXPECT_EQ(GridPlace(), grid.Current());
        const auto expect = [&](WORD key, int row, int column) {
            Key(key);
            EXPECT_EQ((GridPlace{row, column}), grid.Current()) << "key " << key;
            EXPECT_TRUE(grid.IsSelected(row)) << "key " << key;
        };
        expect(VK_DOWN, 0, 1);  // the first key finds the first cell to edit
        expect(VK_UP, 0, 1);
        expect(VK_DOWN, 1, 1);
        expect(VK_RETURN, 2, 1);  // and not the default button
        expect(VK_RIGHT, 2, 2);
        expect(VK_RIGHT, 2, 2);
        expect(VK_END, 29, 2);
        expect(VK_DOWN, 29, 2);
        EXPECT_GT(grid.TopRow(), 0);
        expect(VK_HOME, 0, 2);
        const int page = static_cast<int>(Send(grid.List(), LVM_GETCOUNTPERPAGE)) - 1;
        expect(VK_NEXT, page, 2);
        expect(VK_LEFT, page, 1);
        expect(VK_PRIOR, 0, 1);
        const auto control = [&](WORD key, int row, int column) {
            KeyHolding(VK_CONTROL, key);
            EXPECT_EQ((GridPlace{row, column}), grid.Current());
        };
        control(VK_END, 29, 2);
        control(VK_HOME, 0, 0);
        EXPECT_EQ("moved 0,1", events.front());
        EXPECT_EQ("moved 0,0", events.back());
        EXPECT_EQ(11u, events.size());  // a key that moves nothing tells nothing
        Key(VK_TAB);
        EXPECT_EQ(kOther, FocusId());
        Key(VK_ESCAPE);  // with nothing open it is the dialog's
    });
}

TEST_F(Grids, ClicksAreTheDialogsUntilItCallsClickItem) {
    Run([&](HWND dialog) {
        const Grid grid(dialog, kList);
        grid.Click(2, 1);
        EXPECT_EQ((Events{"click -1>2"}), TakeEvents());
        EXPECT_FALSE(grid.IsOpen());
        grid.Click(4, 0);
        grid.Click(4, 0);  // cannot be edited
        EXPECT_FALSE(grid.IsOpen());
        grid.Click(4, 1);
        grid.Click(4, 1);
        EXPECT_EQ(L"レイヤ5", grid.Typed());
        grid.Click(6, 2);  // closes what is open
        EXPECT_FALSE(grid.IsOpen());
        EXPECT_EQ((GridPlace{6, 2}), grid.Current());
        grid.DoubleClick(8, 1);
        EXPECT_EQ(L"レイヤ9", grid.Typed());
        OnUi([&] {
            int row = 0;
            int column = 0;
            table().GetClickItem(&row, &column);
            EXPECT_EQ(8, row);
            EXPECT_EQ(1, column);
        });
        TakeEvents();
        grid.RightClick(3, 2);
        EXPECT_FALSE(grid.IsOpen());
        EXPECT_EQ((Events{"moved 3,2", "menu 3 mouse"}), TakeEvents());
        Focus(dialog, kList);
        Send(grid.List(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(grid.List()), -1);
        EXPECT_EQ((Events{"menu 3 key"}), TakeEvents());
        // A press that moves a little is no click, and yet the list view has selected its row.
        const RECT cell = grid.Area(5, 1);
        NMLISTVIEW drag{};
        drag.hdr = {grid.List(), kList, static_cast<UINT>(LVN_BEGINDRAG)};
        drag.ptAction = {cell.left + 3, cell.top + 3};
        Send(dialog, WM_NOTIFY, kList, reinterpret_cast<LPARAM>(&drag));
        EXPECT_EQ((Events{"moved 5,1"}), TakeEvents());
        const Grid second(dialog, kOther);
        second.DoubleClick(1, 1);  // choices alone: they are shown at once
        EXPECT_TRUE(second.IsDropped());
        Key(VK_ESCAPE);
        Focus(dialog, IDCANCEL);
        grid.Click(5, 1);  // brings the focus only
        EXPECT_FALSE(grid.IsOpen());
        Click(dialog, IDCANCEL);
    });
}

TEST_F(Grids, EveryChangeOfTheCurrentCellIsTold) {
    rows = 4;
    Run([&](HWND dialog) {
        const Grid grid(dialog, kList);
        const auto tells = [&](const char* expected, const std::function<void()>& act) {
            act();
            EXPECT_EQ(expected, std::exchange(currents, {}));
        };
        const auto operation = [&](const char* expected, const std::function<void()>& act) {
            tells(expected, [&] { OnUi(act); });
        };
        tells("", [&] { Focus(dialog, kList); });
        tells("0,1 ", [] { Key(VK_DOWN); });
        tells("1,2 ", [&] { grid.Click(1, 2); });
        tells("", [&] { grid.Click(1, 2); });
        tells("2,2 ", [&] {
            grid.Keys(L"7");
            Key(VK_RETURN);
        });
        tells("0,0 ", [&] { grid.RightClick(0, 0); });
        operation("3,1 ", [&] { table().ClickCell(3, 1); });
        operation("3,1 ", [&] { table().InsertItem(); });  // of that number, but a new row
        operation("5,1 ", [&] { table().AddItem(); });
        operation("4,1 ", [&] { table().DeleteItem(); });
        EXPECT_EQ((GridPlace{4, 1}), grid.Current());
        operation("-1,-1 ", [&] { table().ClearCurrentCell(); });
        EXPECT_EQ(GridPlace(), grid.Current());
        EXPECT_EQ(-1, Send(grid.List(), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
        operation("1,1 -1,-1 ", [&] {
            table().ClickCell(1, 1);
            table().InitList(dialog_, kList, 2, 1, 1, kKrSelectNone);
        });
        operation("0,0 -1,-1 ", [&] {
            table().ClickCell(0, 0);
            table().DeleteItem();
        });
        Click(dialog, IDCANCEL);
    });
}

TEST_F(Grids, WhatIsCutCanBeReadWhole) {
    const auto tip = [] {  // what a tooltip shows
        static std::wstring text;
        text.clear();
        EnumThreadWindows(
            UiThread(),
            [](HWND window, LPARAM) -> BOOL {
                wchar_t name[20] = L"";
                GetClassNameW(window, name, 20);
                if (IsWindowVisible(window) && std::wcscmp(name, TOOLTIPS_CLASSW) == 0) text = drive::Text(window);
                return TRUE;
            },
            0);
        return text;
    };
    Run([&](HWND dialog) {
        const Grid grid(dialog, kList);
        const std::wstring wide = std::wstring(60, L'表') + L"&題";
        OnUi([&] { table().SetItemText(3, 1, (Repeated("表", 60) + "&題").c_str()); });
        const auto over = [&](int row, int column) {
            const RECT cell = grid.Area(row, column);
            POINT point{(cell.left + cell.right) / 2, (cell.top + cell.bottom) / 2};
            ClientToScreen(grid.List(), &point);
            MoveMouse(point);
        };
        grid.Click(2, 1);
        EXPECT_EQ(L"", tip());
        for (const int away : {VK_DOWN, VK_UP, VK_F2}) {  // by key: at once, until the cell is left or opened
            if (grid.Current().row != 3) Key(static_cast<WORD>(grid.Current().row < 3 ? VK_DOWN : VK_UP));
            if (away == VK_F2) {
                Key(VK_LEFT);
                Key(VK_RIGHT);
            }
            EXPECT_EQ(wide, tip());
            Key(static_cast<WORD>(away));
            EXPECT_EQ(L"", tip());
        }
        Key(VK_ESCAPE);
        over(3, 1);
        Until("the tooltip comes", [&] { return tip() == wide; });
        over(5, 1);
        Until("the tooltip goes", [&] { return tip().empty(); });
        OnUi([&] { utility->MessageText(Repeated("案内", 60).c_str()); });
        MoveMouse(Centre(FindWindowExW(dialog, nullptr, L"KiroGuidanceLine", nullptr)));
        Until("the guidance is shown whole", [&] { return tip() == Guidance(dialog); });
        Click(dialog, IDCANCEL);
    });
}

// ---- Its end, and leaks ----

TEST_F(Grids, EndsInTheMiddleOfEditing) {
    for (const bool released : {false, true}) {
        for (const auto& leave : std::initializer_list<std::function<void(HWND)>>{
                 [](HWND) { Key(VK_RETURN); }, [](HWND dialog) { Focus(dialog, IDOK); }}) {
            tablePtr.reset(KrCreateListControl(utility.get()));
            onChange = [&] {
                if (released) tablePtr.reset();
                EndDialog(dialog_, 7);
            };
            EXPECT_EQ(7, Run([&](HWND dialog) {
                          const Grid grid(dialog, kList);
                          grid.Click(2, 2);
                          grid.Keys(L"5");
                          leave(dialog);
                          Until("the end", [] { return Settle() == nullptr; });
                      }));
        }
    }
    // Ended from outside with a cell open; released before the windows are gone, with one open too.
    onChange = nullptr;
    tablePtr.reset(KrCreateListControl(utility.get()));
    Run([&](HWND dialog) {
        Grid(dialog, kList).Click(2, 2);
        Key(VK_F4);
        PostMessageW(dialog, WM_CLOSE, 0, 0);
    });
    tablePtr.reset(KrCreateListControl(utility.get()));
    Run([&](HWND dialog) {
        const Grid grid(dialog, kList);
        grid.Click(2, 1);
        Key(VK_F2);
        OnUi([&] { tablePtr.reset(); });
        EXPECT_FALSE(grid.IsOpen());
        EXPECT_EQ(0, grid.Rows());
        Click(dialog, IDCANCEL);
    });
}

TEST_F(Grids, LeavesNothingBehind) {
    const auto round = [&] {
        tablePtr.reset(KrCreateListControl(utility.get()));
        otherPtr.reset(KrCreateListControl(utility.get()));
        Run([&](HWND dialog) {
            const Grid grid(dialog, kList);
            grid.Click(1, 1);
            Key(VK_F2);
            Key(VK_TAB);
            RedrawWindow(dialog, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
            Click(dialog, IDCANCEL);
        });
        tablePtr.reset();
        otherPtr.reset();
        events = {};
    };
    rows = 12;
    for (int i = 0; i < 5; ++i) round();
    const Holdings before = CountHoldings();
    constexpr int kRounds = 40;
    for (int i = 0; i < kRounds; ++i) round();
    const Holdings after = CountHoldings();
    EXPECT_TRUE(before.SameObjects(after));
    // The heap may grow by what the system keeps; a grid's rows alone are many times this.
    EXPECT_LT(after.heapBytes, before.heapBytes + kRounds * 200);
}
