// The grid: editing in its cells.
#include "tests/dialogs/GridDialog.h"

namespace {

using Events = std::vector<std::string>;

}  // namespace

TEST_F(Grids, TypingReplacesAndEnterGoesDown) {
    Run([&](HWND dialog) {
        const Grid grid(dialog, kList);
        grid.Click(2, 1);
        TakeEvents();
        grid.Write(L"　 表題 ソ 　");
        EXPECT_EQ("表題 ソ", Stored(2, 1));
        EXPECT_EQ((Events{"changed 2,1", "moved 3,1"}), TakeEvents());
        EXPECT_EQ(kList, FocusId());
        Key(VK_F2);  // keeps the text, all of it selected
        EXPECT_EQ(L"レイヤ4", grid.Typed());
        grid.Keys(L"x");
        EXPECT_EQ(L"x", grid.Typed());
        Key(VK_ESCAPE);
        EXPECT_EQ(L"レイヤ4", grid.Cell(3, 1));
        EXPECT_EQ(dialog, Settle());
        Key(VK_F2);
        Key(VK_RETURN);  // nothing changed, so nothing is told
        EXPECT_EQ((Events{"moved 4,1"}), TakeEvents());
        grid.Keys(L"上");
        Key(VK_UP);
        EXPECT_EQ((Events{"changed 4,1", "moved 3,1"}), TakeEvents());
        grid.Keys(L"下");
        Key(VK_DOWN);
        EXPECT_EQ((Events{"changed 3,1", "moved 4,1"}), TakeEvents());
        Key(VK_LEFT);
        grid.Keys(L"1");  // not available
        Key(VK_F2);
        EXPECT_FALSE(grid.IsOpen());
        EXPECT_EQ(L"5", grid.Cell(4, 0));
        Key(VK_RIGHT);
        grid.Keys(L" 　");  // would only wipe the cell
        EXPECT_FALSE(grid.IsOpen());
        EXPECT_EQ("下", Stored(3, 1));
        Click(dialog, IDOK);
    });
}

TEST_F(Grids, TabGoesFromCellToCell) {
    rows = 3;
    Run([&](HWND dialog) {
        const Grid grid(dialog, kList);
        OnUi([&] { table().SetAvailableFlag(1, 1, 0); });
        grid.Click(0, 2);
        grid.Keys(L"9");
        Key(VK_TAB);
        EXPECT_EQ((GridPlace{1, 2}), grid.Current());  // past the number and the name that is not available
        EXPECT_EQ(L"1", grid.Typed());
        EXPECT_EQ("9", Stored(0, 2));
        KeyHolding(VK_SHIFT, VK_TAB);
        EXPECT_EQ((GridPlace{0, 2}), grid.Current());
        EXPECT_EQ(L"9", grid.Typed());
        for (int i = 0; i < 3; ++i) Key(VK_TAB);
        EXPECT_EQ((GridPlace{2, 2}), grid.Current());
        Key(VK_TAB);  // there is no next one
        EXPECT_FALSE(grid.IsOpen());
        EXPECT_EQ(kList, FocusId());
        Key(VK_TAB);
        EXPECT_EQ(kOther, FocusId());
        Click(dialog, IDOK);
    });
}

TEST_F(Grids, WhatACellCannotHoldIsRefusedThere) {
    Run([&](HWND dialog) {
        const Grid grid(dialog, kList);
        grid.Click(1, 1);
        const auto refused = [&](const wchar_t* text, const wchar_t* message) {
            grid.SetText(text);
            Key(VK_RETURN);
            EXPECT_TRUE(grid.IsOpen() && FocusWindow() == grid.Editor()) << "the editor stays";
            EXPECT_EQ(text, grid.Typed());
            EXPECT_EQ(message, Guidance(dialog));
            EXPECT_TRUE(IsGuidanceError(dialog));
            EXPECT_EQ("レイヤ2", Stored(1, 1));
        };
        Key(VK_F2);
        refused(L" 表\x00E9", L"2文字目（U+00E9）は使えない文字です。");
        refused(L"\xD842\xDF9F", L"1文字目（U+20B9F）は使えない文字です。");
        refused(L"～\x301C", L"2文字目（U+301C）は使えない文字です。");
        refused(L"a\tb", L"タブや改行などの制御文字は使えません。");
        refused(L"1234567890123456789012345", L"24文字以内で入力してください。");
        grid.Keys(L"\b");  // what was too much is selected; the message goes with the fault
        EXPECT_EQ(L"", Guidance(dialog));
        grid.SetText(std::wstring(24, L'表'));
        grid.Keys(L"x");  // no more can be typed
        EXPECT_EQ(L"24文字以内で入力してください。", Guidance(dialog));
        Key(VK_RETURN);
        EXPECT_EQ(std::wstring(24, L'表'), grid.Cell(1, 1));
        EXPECT_EQ(L"", Guidance(dialog));
        // Leaving a refused text keeps it open; taking it is then refused where the operator wanted to go.
        Key(VK_F2);
        grid.SetText(L"\x00E9");
        Focus(dialog, IDCANCEL);
        EXPECT_EQ(L"\x00E9", grid.Typed());
        EXPECT_TRUE(IsGuidanceError(dialog));
        Click(dialog, IDOK);
        EXPECT_EQ(grid.Editor(), FocusWindow());
        Focus(dialog, kOther);
        Focus(dialog, kList);
        EXPECT_EQ(grid.Editor(), FocusWindow());
        grid.Click(5, 1);
        EXPECT_EQ((GridPlace{2, 1}), grid.Current());
        OnUi([&] {
            EXPECT_EQ(-1, table().AddItem());
            EXPECT_EQ(0, table().EndEdit());
        });
        Key(VK_ESCAPE);
        OnUi([&] { EXPECT_NE(0, table().EndEdit()); });
        EXPECT_EQ("レイヤ3", Stored(2, 1));
        Click(dialog, IDOK);
    });
}

TEST_F(Grids, PastedTextIsTakenWholeOrNotAtAll) {
    Run([&](HWND dialog) {
        const Grid grid(dialog, kList);
        grid.Click(1, 2);
        Key(VK_F2);  // a combo with an edit, at most 4 characters
        const auto refused = [&](const std::wstring& text, const wchar_t* message) {
            grid.Paste(text);
            EXPECT_EQ(L"1", grid.Typed());
            EXPECT_EQ(std::wstring(L"貼り付けできません。") + message, Guidance(dialog));
            EXPECT_TRUE(IsGuidanceError(dialog));
        };
        refused(L"12345", L"4文字以内で入力してください。");
        refused(L"1\t2", L"タブや改行などの制御文字は使えません。");
        refused(L"1\r\n2\r\n", L"タブや改行などの制御文字は使えません。");
        refused(L"1\n\n", L"タブや改行などの制御文字は使えません。");
        refused(L"\x00BC", L"1文字目（U+00BC）は使えない文字です。");
        refused(std::wstring(100000, L'x'), L"4文字以内で入力してください。");
        grid.Paste(L"25\r\n");  // as spreadsheets put it; the selected text gives way
        EXPECT_EQ(L"25", grid.Typed());
        EXPECT_EQ(L"クラス番号を入力してください", Guidance(dialog));
        grid.Paste(L"表ソ");
        EXPECT_EQ(L"25表ソ", grid.Typed());
        Key(VK_RETURN);
        EXPECT_EQ("25表ソ", Stored(1, 2));
        Click(dialog, IDOK);
    });
}

TEST_F(Grids, ChoicesAreOfferedWithTheirPrompt) {
    Run([&](HWND dialog) {
        const Grid grid(dialog, kList);
        grid.Click(2, 2);
        Key(VK_F2);
        EXPECT_EQ(L"クラス番号を入力してください", Guidance(dialog));
        grid.Drop();
        EXPECT_EQ(L"クラス番号を選択してください", Guidance(dialog));
        EXPECT_EQ(256, grid.Choices());
        TakeEvents();
        grid.Choose(255);
        EXPECT_FALSE(grid.IsOpen());
        EXPECT_EQ(kList, FocusId());
        EXPECT_EQ("256", Stored(2, 2));
        EXPECT_EQ((Events{"changed 2,2"}), TakeEvents());
        EXPECT_EQ(L"", Guidance(dialog));
        grid.Keys(L"300");  // typed past the choices: the dialog judges
        Key(VK_RETURN);
        EXPECT_EQ("300", Stored(2, 2));
        Key(VK_F4);
        Key(VK_DOWN);
        Key(VK_DOWN);
        EXPECT_TRUE(grid.IsOpen());
        OnUi([&] { table().CloseComboBox(); });
        EXPECT_FALSE(grid.IsOpen());
        EXPECT_EQ("3", Stored(3, 2));
        Click(dialog, IDOK);
    });
}

TEST_F(Grids, EscapeClosesTheListThenTheCellThenTheDialog) {
    EXPECT_EQ(IDCANCEL, Run([&](HWND dialog) {
                  const Grid choices(dialog, kOther);
                  const Grid grid(dialog, kList);
                  choices.Click(1, 1);
                  Key(VK_F4);
                  Key(VK_DOWN);
                  Key(VK_ESCAPE);
                  EXPECT_FALSE(choices.IsDropped());
                  Key(VK_RETURN);
                  EXPECT_EQ(L"横", choices.Cell(1, 1)) << "the choice that was given up is taken";
                  grid.Click(2, 2);
                  grid.Keys(L"77");
                  grid.Drop();
                  Key(VK_DOWN);
                  EXPECT_NE(L"77", grid.Typed());
                  Key(VK_ESCAPE);
                  EXPECT_FALSE(grid.IsDropped());
                  EXPECT_EQ(L"77", grid.Typed());
                  EXPECT_EQ(L"クラス番号を入力してください", Guidance(dialog));
                  Key(VK_ESCAPE);
                  EXPECT_FALSE(grid.IsOpen());
                  EXPECT_EQ("1", Stored(2, 2));
                  EXPECT_EQ(dialog, Settle());
                  EXPECT_EQ(kList, FocusId());
                  Key(VK_ESCAPE);
              }));
}

TEST_F(Grids, ArrowsTakeATypedNumberAndChooseOtherwise) {
    Run([&](HWND dialog) {
        const Grid grid(dialog, kList);
        grid.Click(2, 2);
        for (const auto& [key, row, next] : {std::tuple(VK_DOWN, 2, 3), {VK_UP, 3, 2}}) {
            grid.Keys(L"25");
            Key(static_cast<WORD>(key));
            EXPECT_EQ("25", Stored(row, 2));
            EXPECT_EQ((GridPlace{next, 2}), grid.Current());
            EXPECT_FALSE(grid.IsOpen());
        }
        Key(VK_F2);  // nothing typed: the next choice
        Key(VK_DOWN);
        EXPECT_EQ(L"26", grid.Typed());
        grid.Keys(L"3");
        grid.Drop();  // in the open list they choose, too
        Key(VK_DOWN);
        EXPECT_TRUE(grid.IsDropped());
        EXPECT_EQ((GridPlace{2, 2}), grid.Current());
        Key(VK_ESCAPE);
        Key(VK_UP);
        EXPECT_EQ((GridPlace{1, 2}), grid.Current());
        Click(dialog, IDOK);
    });
}

TEST_F(Grids, ChoicesAloneAreChosenByKey) {
    Run([&](HWND dialog) {
        const Grid grid(dialog, kOther);
        OnUi([&] {
            KrTextList row;
            row.InsertAt(0, "一つ");
            row.InsertAt(1, "二つ");
            other().SetRowCombo(3, 1, 1, &row, "数を選択してください");
            other().SetItemText(4, 1, "古い名前");
            row.RemoveAll();
            other().SetRowCombo(5, 1, 1, &row, "");
        });
        grid.Click(1, 1);
        Key(VK_F2);
        EXPECT_EQ(L"方向を選択してください", Guidance(dialog));
        EXPECT_EQ(4, grid.Choices());
        Key(VK_DOWN);  // moves among the choices, and the cell stays open
        EXPECT_TRUE(grid.IsOpen());
        Key(VK_RETURN);
        EXPECT_EQ(L"縦", grid.Cell(1, 1));
        grid.Keys(L"ソ");  // finds the choice that begins so
        Key(VK_RETURN);
        EXPECT_EQ(L"ソ連", grid.Cell(2, 1));
        Key(VK_F4);
        EXPECT_EQ(L"数を選択してください", Guidance(dialog));
        EXPECT_EQ(2, grid.Choices());
        Key(VK_DOWN);
        Key(VK_RETURN);
        EXPECT_EQ(L"一つ", grid.Cell(3, 1));
        Key(VK_F2);  // a text that is none of the choices stays until one is chosen
        Key(VK_RETURN);
        EXPECT_EQ(L"古い名前", grid.Cell(4, 1));
        Key(VK_F2);  // nothing to choose from
        EXPECT_FALSE(grid.IsOpen());
        Click(dialog, IDOK);
    });
}

TEST_F(Grids, AnEditIsNeverLost) {
    const std::vector<std::pair<const char*, std::function<void(HWND, const Grid&)>>> ways = {
        {"focus", [](HWND dialog, const Grid&) { Focus(dialog, IDCANCEL); }},
        {"click", [](HWND, const Grid& grid) { grid.Click(4, 1); }},
        {"scroll", [](HWND, const Grid& grid) { Send(grid.List(), WM_VSCROLL, SB_LINEDOWN); }},
        {"wheel", [](HWND, const Grid& grid) { Send(grid.Editor(), WM_MOUSEWHEEL, MAKEWPARAM(0, -120)); }},
        {"scroll notice",
         [](HWND dialog, const Grid& grid) {
             NMLVSCROLL notice{};
             notice.hdr = {grid.List(), kList, static_cast<UINT>(LVN_BEGINSCROLL)};
             Send(dialog, WM_NOTIFY, kList, reinterpret_cast<LPARAM>(&notice));
         }},
        {"column",
         [](HWND, const Grid& grid) {
             NMHEADERW notice{};
             notice.hdr.hwndFrom = reinterpret_cast<HWND>(Send(grid.List(), LVM_GETHEADER));
             notice.hdr.code = static_cast<UINT>(HDN_BEGINTRACKW);
             Send(grid.List(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&notice));
         }},
        {"size",
         [](HWND, const Grid& grid) {
             SetWindowPos(grid.List(), nullptr, 0, 0, 300, 200, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
         }},
        {"AddItem", [this](HWND, const Grid&) { OnUi([&] { table().AddItem(); }); }},
    };
    for (const auto& [name, leave] : ways) {
        tablePtr.reset(KrCreateListControl(utility.get()));
        Run([&](HWND dialog) {
            const Grid grid(dialog, kList);
            grid.Click(2, 1);
            grid.Keys(L"新");
            TakeEvents();
            leave(dialog, grid);
            EXPECT_EQ("新", Stored(2, 1)) << name;
            EXPECT_EQ("changed 2,1", (events.empty() ? "" : events.front())) << name;
            EXPECT_FALSE(grid.IsOpen()) << name;
            Click(dialog, IDCANCEL);
        });
    }
}

TEST_F(Grids, AnInputMethodFindsTheEditor) {
    Run([&](HWND dialog) {
        const Grid grid(dialog, kList);
        grid.Click(2, 1);
        // The composition starts at the list view; some methods send the characters there as well.
        Send(grid.List(), WM_IME_STARTCOMPOSITION);
        EXPECT_EQ(grid.Editor(), FocusWindow());
        EXPECT_EQ(L"レイヤ3", grid.Typed());  // stays when the composition is given up
        for (const wchar_t unit : {L'図', L'面'}) Send(grid.List(), WM_CHAR, unit, 1);
        EXPECT_EQ(L"図面", grid.Typed());
        Key(VK_RETURN);
        EXPECT_EQ(L"図面", grid.Cell(2, 1));
        Click(dialog, IDOK);
    });
}

// The dialog gives the focus back to the window that had it, be it hidden by now.
TEST_F(Grids, AHiddenEditorHandsTheFocusOn) {
    Run([&](HWND dialog) {
        const Grid grid(dialog, kList);
        grid.Click(2, 1);
        Key(VK_F2);
        const HWND edit = grid.Editor();
        Key(VK_RETURN);
        Key(VK_RIGHT);
        Key(VK_F2);
        const HWND combo = grid.Editor();
        ASSERT_NE(edit, combo);
        OnUi([&] { SetFocus(edit); });
        EXPECT_EQ(grid.List(), FocusWindow());
        Key(VK_F2);
        grid.SetText(L"\x00E9");  // cannot be left
        OnUi([&] { SetFocus(edit); });
        EXPECT_TRUE(IsChild(combo, FocusWindow()));
        Key(VK_ESCAPE);
        Click(dialog, IDOK);
    });
}
