// The grid: editing in its cells.
#include "tests/dialogs/GridDialog.h"

TEST_F(Grids, TypingReplacesAndEnterGoesDown) {
    Run([&](const Steps& step) {
        step({2, 1}, L"2,1 / click -1>2");
        step(L" 　", L"2,1");  // would only wipe the cell
        step(VK_F4, L"2,1");   // nothing to choose from
        step(L"表題 ソ 　", L"2,1 [表題 ソ 　]");
        step(VK_RETURN, L"3,1 / changed 2,1=表題 ソ / moved 3,1");
        step(VK_F2, L"3,1 [レイヤ4]");
        step(L"x", L"3,1 [x]");  // it was selected
        step(VK_ESCAPE, L"3,1");
        EXPECT_EQ(L"レイヤ4", step.Cell(3, 1));
        EXPECT_EQ(dialog_, Settle());
        step(VK_F2, L"3,1 [レイヤ4]");
        step(VK_RETURN, L"4,1 / moved 4,1");  // nothing changed, so nothing is told
        step(L"レイヤ5 ", L"4,1 [レイヤ5 ]");
        step(VK_UP, L"3,1 / moved 3,1");  // nor here
        step(VK_DOWN, L"4,1 / moved 4,1");
        step(L"上", L"4,1 [上]");
        step(VK_UP, L"3,1 / changed 4,1=上 / moved 3,1");
        step(L"下", L"3,1 [下]");
        step(VK_DOWN, L"4,1 / changed 3,1=下 / moved 4,1");
        step(VK_LEFT, L"4,0 / moved 4,0");
        step(L"1", L"4,0");  // not available
        step(VK_F2, L"4,0");
        // The composition of an input method starts at the list view; some send the characters there as well.
        step(VK_RIGHT, L"4,1 / moved 4,1");
        step([&] { Send(step.List(), WM_IME_STARTCOMPOSITION); }, L"4,1 [上]");  // stays when it is given up
        for (const wchar_t unit : {L'図', L'面'}) Send(step.List(), WM_CHAR, unit, 1);
        step(VK_RETURN, L"5,1 / changed 4,1=図面 / moved 5,1");
    });
}

TEST_F(Grids, TabGoesFromCellToCell) {
    rows = 3;
    Run([&](const Steps& step) {
        OnUi([&] { table().SetAvailableFlag(1, 1, 0); });
        step({0, 2}, L"0,2 / click -1>0");
        step(L"9", L"0,2 [9] クラス番号を入力してください");
        // Past the number and the name that is not available.
        step(VK_TAB, L"1,2 [1] クラス番号を入力してください / changed 0,2=9 / moved 1,2");
        step([] { KeyHolding(VK_SHIFT, VK_TAB); }, L"0,2 [9] クラス番号を入力してください / moved 0,2");
        step(VK_TAB, L"1,2 [1] クラス番号を入力してください / moved 1,2");
        step(VK_TAB, L"2,1 [レイヤ3] / moved 2,1");
        step(VK_TAB, L"2,2 [1] クラス番号を入力してください / moved 2,2");
        step(VK_TAB, L"2,2");  // there is no next one
        step(VK_TAB, L"2,2 @4060");
    });
}

TEST_F(Grids, WhatACellCannotHoldIsRefusedThere) {
    Run([&](const Steps& step) {
        Deed(1, 1).act(step);
        Key(VK_F2);
        const auto enter = [&](const wchar_t* text) {
            return [&step, text] {
                step.SetText(text);
                Key(VK_RETURN);
            };
        };
        events.clear();
        step(enter(L" 表\x00E9"), L"1,1 [ 表\x00E9] !2文字目（U+00E9）は使えない文字です。");
        step(L"x", L"1,1 [ 表x]");  // what was wrong is selected; the message goes with the fault
        step(enter(L"\xD842\xDF9F"), L"1,1 [\xD842\xDF9F] !1文字目（U+20B9F）は使えない文字です。");
        step(enter(L"～\x301C"), L"1,1 [～\x301C] !2文字目（U+301C）は使えない文字です。");
        step(enter(L"a\tb"), L"1,1 [a\tb] !タブや改行などの制御文字は使えません。");
        step(enter(L"1234567890123456789012345"), L"1,1 [1234567890123456789012345] !24文字以内で入力してください。");
        step(L"\b", L"1,1 [123456789012345678901234]");  // what was too much
        step(L"x", L"1,1 [123456789012345678901234] !24文字以内で入力してください。");
        EXPECT_EQ(L"レイヤ2", step.Cell(1, 1));
        step(VK_RETURN, L"2,1 / changed 1,1=123456789012345678901234 / moved 2,1");
        // A refused text stays open wherever the operator goes, and nothing takes it.
        step(VK_F2, L"2,1 [レイヤ3]");
        step.SetText(L"\x00E9");
        const wchar_t* const refused = L"2,1 [\x00E9] !1文字目（U+00E9）は使えない文字です。";
        step([&] { Focus(dialog_, IDCANCEL); }, L"2,1 [\x00E9] !1文字目（U+00E9）は使えない文字です。 @2");
        step([&] { Click(dialog_, IDOK); }, refused);
        Focus(dialog_, kOther);
        step([&] { Focus(dialog_, kList); }, refused);
        step({5, 1}, refused);
        OnUi([&] {
            EXPECT_EQ(-1, table().AddItem());
            EXPECT_EQ(0, table().EndEdit());
        });
        step(VK_ESCAPE, L"2,1");
        OnUi([&] { EXPECT_NE(0, table().EndEdit()); });
        EXPECT_EQ(L"レイヤ3", step.Cell(2, 1));
    });
}

TEST_F(Grids, PastedTextIsTakenWholeOrNotAtAll) {
    Run([&](const Steps& step) {
        step({1, 2}, L"1,2 / click -1>1");
        step(VK_F2, L"1,2 [1] クラス番号を入力してください");  // a combo with an edit, at most 4 characters
        const auto paste = [&](const std::wstring& text) { return [&step, text] { step.Paste(text); }; };
        for (const wchar_t* control : {L"1\t2", L"1\r\n2\r\n", L"1\n\n"})
            step(paste(control), L"1,2 [1] !貼り付けできません。タブや改行などの制御文字は使えません。");
        step(paste(L"\x00BC"), L"1,2 [1] !貼り付けできません。1文字目（U+00BC）は使えない文字です。");
        for (const std::wstring& text : {std::wstring(L"12345"), std::wstring(100000, L'x')})
            step(paste(text), L"1,2 [1] !貼り付けできません。4文字以内で入力してください。");
        // As spreadsheets put it; the selected text gives way.
        step(paste(L"25\r\n"), L"1,2 [25] クラス番号を入力してください");
        step(paste(L"表ソ"), L"1,2 [25表ソ] クラス番号を入力してください");
        step(paste(L"x"), L"1,2 [25表ソ] !貼り付けできません。4文字以内で入力してください。");
        step(VK_RETURN, L"2,2 / changed 1,2=25表ソ / moved 2,2");
    });
}

TEST_F(Grids, NumbersAreTypedOrChosen) {
    Run([&](const Steps& step) {
        const auto drop = [&] { step.Drop(); };
        step({2, 2}, L"2,2 / click -1>2");
        step(VK_F2, L"2,2 [1] クラス番号を入力してください");
        step(drop, L"2,2 [1▼] クラス番号を選択してください");
        EXPECT_EQ(256, step.Choices());
        step([&] { step.Choose(255); }, L"2,2 / changed 2,2=256");
        step(L"300", L"2,2 [300] クラス番号を入力してください");
        step(VK_RETURN, L"3,2 / changed 2,2=300 / moved 3,2");  // past the choices: the dialog judges
        step(VK_F4, L"3,2 [1▼] クラス番号を選択してください");
        step(VK_DOWN, L"3,2 [2▼] クラス番号を選択してください");
        step.Ui([&] { table().CloseComboBox(); }, L"3,2 / changed 3,2=2");
        // The arrows take a typed number, and choose otherwise and in the open list.
        step(L"25", L"3,2 [25] クラス番号を入力してください");
        step(VK_DOWN, L"4,2 / changed 3,2=25 / moved 4,2");
        step(VK_UP, L"3,2 / moved 3,2");
        step(VK_F2, L"3,2 [25] クラス番号を入力してください");
        step(VK_DOWN, L"3,2 [26] クラス番号を入力してください");
        step(L"77", L"3,2 [77] クラス番号を入力してください");
        step(drop, L"3,2 [77▼] クラス番号を選択してください");
        step(VK_DOWN, L"3,2 [78▼] クラス番号を選択してください");
        // Escape closes the list, then the cell, then the dialog.
        step(VK_ESCAPE, L"3,2 [77] クラス番号を入力してください");
        step(VK_ESCAPE, L"3,2");
        EXPECT_EQ(L"25", step.Cell(3, 2));
        EXPECT_EQ(dialog_, Settle());
        Key(VK_ESCAPE);
        EXPECT_EQ(nullptr, Settle());
    });
}

TEST_F(Grids, ChoicesAloneAreChosenByKey) {
    Run([&](const Steps&) {
        const Steps step(*this, kOther);
        OnUi([&] {
            KrTextList row;
            row.InsertAt(0, "一つ");
            row.InsertAt(1, "二つ");
            other().SetRowCombo(3, 1, 1, &row, "数を選択してください");
            other().SetItemText(4, 1, "古い名前");
            row.RemoveAll();
            other().SetRowCombo(5, 1, 1, &row, "");
        });
        step({1, 1}, L"1,1 / click -1>1");
        step(VK_F4, L"1,1 [横▼] 方向を選択してください");
        step(VK_DOWN, L"1,1 [縦▼] 方向を選択してください");
        step(VK_ESCAPE, L"1,1 [横] 方向を選択してください");  // given up
        step(VK_RETURN, L"2,1 / moved 2,1");
        step(VK_F2, L"2,1 [横] 方向を選択してください");
        EXPECT_EQ(4, step.Choices());
        step(VK_DOWN, L"2,1 [縦] 方向を選択してください");
        step(L"ソ", L"2,1 [ソ連] 方向を選択してください");  // the choice that begins so
        step(VK_RETURN, L"3,1 / changed 2,1=ソ連 / moved 3,1");
        step(VK_F4, L"3,1 [▼] 数を選択してください");
        EXPECT_EQ(2, step.Choices());
        step(VK_DOWN, L"3,1 [一つ▼] 数を選択してください");
        step(VK_RETURN, L"4,1 / changed 3,1=一つ / moved 4,1");
        step(VK_F2, L"4,1 [] 方向を選択してください");
        step(VK_RETURN, L"5,1 / moved 5,1");  // a text that is none of the choices stays until one is chosen
        EXPECT_EQ(L"古い名前", step.Cell(4, 1));
        step(VK_F2, L"5,1");  // nothing to choose from
        step([&] { step.DoubleClick(6, 1); }, L"6,1 [横▼] 方向を選択してください / click 5>6 / click 6>6");
    });
}

TEST_F(Grids, AnEditIsNeverLost) {
    Run([&](const Steps& grid) {
        const HWND list = grid.List(), header = reinterpret_cast<HWND>(Send(list, LVM_GETHEADER));
        const auto notify = [](HWND to, HWND from, int code) {
            NMHEADERW notice{};  // as long as any of them
            notice.hdr = {from, kList, static_cast<UINT>(code)};
            Send(to, WM_NOTIFY, kList, reinterpret_cast<LPARAM>(&notice));
        };
        const Deed ways[] = {
            [&] { Focus(dialog_, IDCANCEL); },
            [&] { grid.Click(4, 1); },
            [&] { Send(list, WM_VSCROLL, SB_LINEDOWN); },
            [&] { Send(grid.Editor(), WM_MOUSEWHEEL, MAKEWPARAM(0, -120)); },
            [&] { notify(dialog_, list, LVN_BEGINSCROLL); },
            [&] { notify(list, header, HDN_BEGINTRACKW); },
            [&] { SetWindowPos(list, nullptr, 0, 0, 300, 200, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE); },
            [&] { OnUi([&] { table().AddItem(); }); },
        };
        for (const Deed& leave : ways) {
            const std::wstring text = std::to_wstring(&leave - ways);
            grid.Click(3, 1);
            grid.Click(2, 1);
            grid.Keys(text);
            events.clear();
            leave.act(grid);
            EXPECT_EQ(text, grid.Cell(2, 1));
            EXPECT_EQ(L"changed 2,1=" + text, events.empty() ? L"" : events.front());
            EXPECT_FALSE(grid.IsOpen()) << "way " << &leave - ways;
        }
    });
}

// The dialog gives the focus back to the window that had it, be it hidden by now.
TEST_F(Grids, AHiddenEditorHandsTheFocusOn) {
    Run([&](const Steps& step) {
        step({2, 1}, L"2,1 / click -1>2");
        step(VK_F2, L"2,1 [レイヤ3]");
        const HWND edit = step.Editor();
        const auto focus = [&] { SetFocus(edit); };
        step(VK_RETURN, L"3,1 / moved 3,1");
        step(VK_RIGHT, L"3,2 / moved 3,2");
        step(VK_F2, L"3,2 [1] クラス番号を入力してください");
        const HWND combo = step.Editor();
        ASSERT_NE(edit, combo);
        step.Ui(focus, L"3,2");
        Key(VK_F2);
        step.SetText(L"\x00E9");  // cannot be left
        step.Ui(focus, L"3,2 [\x00E9] !1文字目（U+00E9）は使えない文字です。");
        EXPECT_EQ(combo, step.Editor()) << "an editor is made once";
    });
}
