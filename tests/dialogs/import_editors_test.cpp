// The grid editors of the import tables: what they take and refuse, rows that come and go, and what becomes of it all
// in the files. How their windows look is in the golden text.

#include "tests/dialogs/ImportTables.h"

using namespace kiro::drive;

namespace {

// A text that is typed into a cell, and what "設定" says; null: nothing. The cell that is marked when it is another.
struct Entry {
    int row, column;
    const wchar_t* text;
    const wchar_t* message = nullptr;
    GridPlace marked = {};
};
struct Checks {
    const Editor& editor;
    const char* file;
    std::vector<Entry> entries;
    std::vector<std::string> written = {};  // with what was right
};

const Checks kChecks[] = {
    {kClasses,
     "LAYER 表 = 2\nLAYER 線 = 3\n",
     {{1, 1, L"", L"レイヤ名が入力されていません 2 : "},
      {2, 1, L"OTHER", L"レイヤ名が重複しています 1,3 : OTHER", {0, 1}},
      {1, 1, L"a=b", L"レイヤ名に空白と「=」は使えません 2 : a=b"},
      {1, 1, L"ソ能表"},  // bytes 0x5C at the end of characters
      {2, 1, L"other"},   // compared byte by byte
      {0, 2, L"256"},
      {2, 2, L"", L"無効なクラス番号です（1～256） 3 : "},
      {2, 2, L"257", L"無効なクラス番号です（1～256） 3 : 257"}},
     {"LAYER OTHER = 256\r\n", "LAYER ソ能表 = 2\r\nLAYER other = 3\r\n"}},
    {kRevisions,
     "LAYER-SWITCH 1\nLAYER-REVISION 表 = 2\nLAYER-REVISION 線 = 3\n",
     {{1, 2, L"0", L"無効なレビジョン番号です（1～256） 2 : 0"}}},
    {kColorRevisions, "", {{0, 1, L"256"}, {254, 1, L"9"}}, {"REVISION   1 = 256\r\n", "REVISION 255 =   9\r\n"}},
    {kColorClasses,
     "",
     {{9, 1, L"", L"無効なクラス番号です（1～256） 10 : "}, {0, 1, L"9"}, {254, 1, L"256"}},
     {"COLOR-CLASS   1 =   9\r\n", "COLOR-CLASS 255 = 256\r\n"}},
    {kLineTypes,
     "",
     {{1, 1, L"", L"線種名が入力されていません 2 : "},
      {3, 1, L"DASHED", L"線種名が重複しています 2,4 : DASHED", {1, 1}},
      {0, 1, L"A=B", L"線種名に空白と「=」は使えません 1 : A=B"},
      {0, 1, L"ソ,表"},
      {0, 2, L"0", L"無効な線種番号です 1 : 0"},
      {3, 2, L"64", L"無効な線種番号です 4 : 64"},
      {3, 2, L"63"},
      {0, 3, L"0", L"無効な線幅番号です 1 : 0"},
      {0, 3, L"17", L"無効な線幅番号です 1 : 17"},
      {0, 3, L"16"}},
     {"LINE-TYPE  ソ,表 = 1,16\r\n", "LINE-TYPE  PHANTOM = 63,1\r\n"}},
    {kColorWidths,
     "",
     {{0, 1, L"0", L"無効な線幅番号です 1 : 0"}, {0, 1, L"9"}, {254, 1, L"16"}},
     {"COLOR  1 = 9\r\n", "COLOR  255 = 16\r\n"}},
    {kLineWidths,
     "",
     {{23, 2, L"17", L"無効な線幅番号です 24 : 17"}, {0, 2, L"9"}, {23, 2, L"16"}},
     {"LINE-WIDTH  0.00 = 9\r\n", "LINE-WIDTH  2.11 = 16\r\n"}},
    {kPolylines,
     "WIDTH 0,0.5 = 2\nWIDTH 0.5,999 = 5\n",
     {{0, 1, L"", L"線幅が入力されていません 1"},
      {2, 1, L"999.1", L"無効な線幅です（0.0＜線幅＜999.0） 3 : 999.1"},
      {0, 1, L"-0.1", L"無効な線幅です（0.0＜線幅＜999.0） 1 : -0.1"},
      {0, 1, L"0.500", L"線幅が重複しています 1 : 0.500"},
      {1, 1, L"0.0", L"線幅が重複しています 1 : 0", {0, 1}},
      {2, 1, L"0.25", L"線幅が1つ前より小さい値になってます 3 : 0.25"},
      {0, 1, L"0.499"},
      {0, 2, L"17", L"無効な線幅番号です 1 : 17"},
      {1, 2, L"16"}}},
    {kFonts,
     "STYLE = 図面, 1.1875, 0, 1, 0.2, 1.4, 1, 1, 0.95, 0.75\n",
     {{4, 1, L"", L"書体名が入力されていません 5"},
      {4, 1, L"BIGFONT", L"書体名が重複しています 2 : BIGFONT", {1, 1}},
      {4, 1, L"a,b", L"書体名に空白と「,」は使えません 5 : a,b"},
      {4, 1, L"ソ表=能"},
      {0, 3, L"0.09", L"無効な文字幅係数です 1 : 0.09"},
      {4, 3, L"10.01", L"無効な文字幅係数です 5 : 10.01"},
      {4, 3, L"10"},
      {4, 4, L"", L"無効な文字幅係数です 5 : "},
      {4, 5, L"0.009", L"無効な行間隔係数です 5 : 0.009"},
      {4, 5, L"10.1", L"無効な行間隔係数です 5 : 10.1"},
      {4, 5, L"0.01"},
      {4, 6, L"10.1", L"無効な文字描画係数です 5 : 10.1"},
      {4, 6, L"10"},
      {4, 7, L"1.01", L"無効な文字描画係数です 5 : 1.01"},  // above its width factor
      {4, 7, L"1"},
      {4, 4, L"0.9", L"無効な文字描画係数です 5 : 1", {4, 7}},
      {0, 7, L"0.09", L"無効な文字描画係数です 1 : 0.09"}}},
    {kArrows,
     "ARROW 記号 = 7,0,250\n",
     {{4, 1, L"", L"矢印名（複合図形名）が入力されていません 5"},
      {4, 1, L"SOLID", L"矢印名（複合図形名）が重複しています 2 : SOLID", {1, 1}},
      {4, 1, L"記 号", L"矢印名に空白と「=」は使えません 5 : 記 号"},
      {4, 2, L"", L"マーク番号が入力されていません 5"},
      {4, 2, L"0", L"無効なマーク番号です 5 : 0"},
      {0, 2, L"4096", L"無効なマーク番号です 1 : 4096"},
      {0, 2, L"4095"},
      {4, 4, L"", L"サイズが入力されていません 5"},
      {4, 4, L"0.09", L"無効なサイズです 5 : 0.09"},
      {4, 4, L"300.1", L"無効なサイズです 5 : 300.1"},
      {4, 4, L"300"}}},
};

}  // namespace

// Types each text in turn, presses "設定" and puts right what was refused.
TEST_F(ImportTables, EditorsRefuseWhatIsWrong) {
    for (const Checks& checks : kChecks) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(checks.editor.caption)));
        WriteTable(checks.editor.file, checks.file);
        Edit(checks.editor, true, [&](HWND dialog, const Grid& grid) {
            const auto check = [&](const Entry& entry) {
                const std::wstring before = grid.Cell(entry.row, entry.column);
                const int elsewhere = entry.row ? 0 : 1;  // another row: all are checked
                Change(grid, entry.row, entry.column, entry.text);
                ASSERT_EQ(entry.text, grid.Cell(entry.row, entry.column));
                if (!entry.message) {
                    grid.Click(elsewhere, 0);
                    EXPECT_FALSE(IsGuidanceError(dialog)) << testing::PrintToString(Guidance(dialog));
                    return;
                }
                const bool there = entry.marked.row < 0;
                const GridPlace marked = there ? GridPlace{entry.row, entry.column} : entry.marked;
                if (!there) grid.Click(elsewhere, 0);
                EXPECT_TRUE(there || IsMarked(grid, marked)) << "found elsewhere, and not drawn there";
                ExpectRefusal(checks.editor, dialog, marked, entry.message);
                Change(grid, entry.row, entry.column, before);
                grid.Click(elsewhere, 0);
                EXPECT_FALSE(IsMarked(grid, marked));
                EXPECT_FALSE(IsGuidanceError(dialog)) << testing::PrintToString(Guidance(dialog));
            };
            for (const Entry& entry : checks.entries) {
                SCOPED_TRACE(testing::Message() << "row " << entry.row + 1 << ", column " << entry.column << ": "
                                                << testing::PrintToString(std::wstring(entry.text)));
                check(entry);
            }
            Click(dialog, IDOK);  // all is right again
        });
        for (const std::string& lines : checks.written) EXPECT_TRUE(Has(checks.editor.file, lines)) << lines;
    }
}

TEST_F(ImportTables, NamesThatTheFileCannotGiveBackAreRefused) {
    const struct {
        const Editor& editor;
        const char* before;
        std::size_t longest;
        const char* behind;
        int row;
        std::wstring message;
    } cases[] = {
        {kClasses, "LAYER ", 68, "=1\n", 1, L"レイヤ名が長すぎます（半角68文字以内） 2 : "},
        {kRevisions, "LAYER-REVISION ", 58, "=1\n", 1, L"レイヤ名が長すぎます（半角58文字以内） 2 : "},
        {kLineTypes, "LINE-TYPE ", 107, "=1,1\n", 0, L"線種名が長すぎます（半角107文字以内） 1 : "},
        {kFonts, "STYLE=", 45, ",1.1875,0,1,0.2,1.4,1,1,0.95,0.75\n", 4, L"書体名が長すぎます（半角45文字以内） 5 : "},
        {kArrows, "ARROW ", 51, "=1,0,300\n", 4, L"矢印名が長すぎます（半角51文字以内） 5 : "},
    };
    for (const auto& name : cases) {
        WriteTable(name.editor.file, name.before + std::string(name.longest + 1, 'x') + name.behind + name.before +
                                         std::string(name.longest, 'y') + name.behind);
        Edit(name.editor, true, [&](HWND dialog, const Grid& grid) {
            ExpectRefusal(name.editor, dialog, {name.row, 1}, name.message + std::wstring(name.longest + 1, L'x'));
            grid.Write(L"短い名前");
            Click(dialog, IDOK);
        });
    }
}

TEST_F(ImportTables, MarksAndMessagesFollowTheText) {
    Edit(kColorRevisions, false, [&](HWND dialog, const Grid& grid) {
        grid.Keys(L"999");
        Key(VK_TAB);  // the next cell opens, and the message stays to be read
        EXPECT_TRUE(grid.IsOpen());
        ExpectError(dialog, L"無効なレビジョン番号です（1～256） 1 : 999");
        Key(VK_ESCAPE);
        ExpectError(dialog, L"無効なレビジョン番号です（1～256） 1 : 999");
        EXPECT_TRUE(IsMarked(grid, {0, 1}));
        Change(grid, 254, 1, L"0");
        Change(grid, 0, 1, L"7");
        grid.Click(3, 1);
        EXPECT_FALSE(IsMarked(grid, {0, 1}));
        EXPECT_NE(grid.Pixel(0, 1, 4, 4), grid.Pixel(0, 0, 4, 4)) << "numbers that cannot be edited are grey";
        ExpectError(dialog, L"無効なレビジョン番号です（1～256） 255 : 0");
        Change(grid, 254, 1, L"8");  // in the last row Enter goes nowhere
        EXPECT_FALSE(IsMarked(grid, {254, 1}));
        Key(VK_APPS);  // no menu: the rows are given
        EXPECT_FALSE(IsMenuOpen());
        Click(dialog, IDOK);
    });
}

TEST_F(ImportTables, RowsAreAddedInsertedAndDeletedWhereTheyMay) {
    const struct {
        const Editor& editor;
        const char* file;  // four rows with it
        int fixed;         // rows that cannot be renamed or deleted, from the top
        const char* written;
    } cases[] = {{kClasses, "LAYER 壁 = 5\nLAYER 柱 = 6\nLAYER 窓 = 7\n", 1, "LAYER 新規 = 1\r\n"},
                 {kFonts, "", 4, "STYLE = 新規, 1.1875, 0, 0.95, 0.2, 1.4, 1, 1, 0.95, 0.75\r\n"}};
    for (const auto& rows : cases) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(rows.editor.caption)));
        WriteTable(rows.editor.file, rows.file);
        std::vector<Cells> last;
        Edit(rows.editor, true, [&](HWND dialog, const Grid& grid) {
            const auto before = AllRows(grid);
            for (int row = 0; row < rows.fixed; ++row) {
                grid.Click(row, 1);
                Key(VK_F2);
                EXPECT_FALSE(grid.IsOpen()) << row;
                Command(kInsert);
                ExpectError(dialog, L"ここには挿入できません。");
                Command(kDelete);
                ExpectError(dialog, L"削除できません。");
            }
            EXPECT_EQ(before, AllRows(grid));

            Command(kAdd);
            ASSERT_EQ(5, grid.Rows());
            EXPECT_EQ((GridPlace{4, 1}), grid.Current());  // where it lacks its name
            Key(VK_RIGHT);
            EXPECT_FALSE(IsGuidanceError(dialog)) << "checked while its row is being filled";
            grid.Click(0, 0);
            EXPECT_TRUE(IsGuidanceError(dialog));
            Change(grid, 4, 1, L"新規");
            Command(kInsert);
            EXPECT_EQ((Cells{L"5", L"", L"6", L"新規"}),
                      (Cells{grid.Cell(4, 0), grid.Cell(4, 1), grid.Cell(5, 0), grid.Cell(5, 1)}));
            grid.Keys(L"末ソ");
            Key(VK_RETURN);
            last = AllRows(grid);
            grid.Click(4, 0);
            Command(kInsert);
            grid.Click(0, 0);
            grid.Click(4, 0);
            EXPECT_TRUE(IsGuidanceError(dialog));
            Command(kDelete);  // the row that came, and its message
            EXPECT_FALSE(IsGuidanceError(dialog));
            EXPECT_EQ(last, AllRows(grid));
            Click(dialog, IDOK);
        });
        EXPECT_TRUE(Has(rows.editor.file, rows.written)) << Bytes(rows.editor.file);
        Edit(rows.editor, true, [&](HWND dialog, const Grid& grid) {
            EXPECT_EQ(last, AllRows(grid));
            while (grid.Rows() > rows.fixed) {
                grid.Click(grid.Rows() - 1, 0);
                Command(kDelete);
            }
            Command(kDelete);  // a row that stays
            EXPECT_EQ(rows.fixed, grid.Rows());
            rows.editor.edit ? Click(dialog, IDCANCEL) : CloseBox(dialog);
        });
        EXPECT_TRUE(Has(rows.editor.file, rows.written)) << "a cancellation writes nothing";
    }
    // Line types may all go, and none comes back from the file.
    WriteTable(kLineFile, "LINE-TYPE A = 1,1\nLINE-TYPE B = 2,2\n");
    Edit(kLineTypes, true, [&](HWND dialog, const Grid& grid) {
        grid.Click(0, 0);
        while (grid.Rows()) Command(kDelete);
        Command(kDelete);
        EXPECT_FALSE(IsGuidanceError(dialog));
        Click(dialog, IDOK);
    });
    EXPECT_TRUE(Has(kLineFile, "LINE-") && !Has(kLineFile, "LINE-TYPE  ")) << Bytes(kLineFile);
}

TEST_F(ImportTables, PolylineRangesMeet) {
    WriteTable(kLineFile, "");
    Edit(kPolylines, true, [&](HWND dialog, const Grid& grid) {
        ExpectKeysListed(true, false);
        EXPECT_EQ((Cells{L"2", L"999", L""}), Row(grid, 1));
        grid.Click(0, 0);
        Command(kAdd);  // above the last one, whichever row is the current one
        EXPECT_EQ((Cells{L"2", L"", L"1"}), Row(grid, 1));
        EXPECT_EQ((Cells{L"3", L"999", L""}), Row(grid, 2));
        Change(grid, 1, 1, L"0.5");
        Change(grid, 1, 2, L"");
        grid.Click(0, 0);
        Command(kInsert);
        Command(kDelete);
        EXPECT_EQ((Cells{L"2", L"0.5", L""}), Row(grid, 1)) << "no weight that nobody gave";
        Change(grid, 1, 2, L"5");
        Change(grid, 0, 1, L"-0");
        Change(grid, 0, 2, L"2");
        Click(dialog, IDOK);
    });
    EXPECT_TRUE(Has(kLineFile, "WIDTH  0, 0.5 = 2\r\nWIDTH  0.5, 999 = 5\r\n")) << Bytes(kLineFile);
    Edit(kPolylines, true, [&](HWND dialog, const Grid& grid) {
        Change(grid, 1, 2, L"0");
        grid.Click(2, 2);
        EXPECT_TRUE(IsMarked(grid, {1, 2}));
        Command(kDelete);  // the range before it ends the table now
        EXPECT_FALSE(IsMarked(grid, {1, 2}));
        EXPECT_EQ((Cells{L"2", L"0.5", L""}), Row(grid, 1));
        Key(VK_F2);
        EXPECT_FALSE(grid.IsOpen()) << "the end of the last range has no weight";
        Click(dialog, IDOK);
    });
    EXPECT_TRUE(Has(kLineFile, "WIDTH  0, 0.5 = 2\r\n/\r\n")) << Bytes(kLineFile);
}

TEST_F(ImportTables, NumbersAreWrittenAsTheyAreShown) {
    WriteTable(kFontFile, "STYLE = 図面, 1.25, 2, 1, 0.3, 1.5, 7, 3, 1.1, 0.8\n");
    Edit(kFonts, true, [&](HWND dialog, const Grid& grid) {
        EXPECT_EQ((Cells{L"5", L"図面", L"縦", L"1.25", L"1", L"0.5", L"1.1", L"0.8"}), Row(grid, 4));
        grid.Click(4, 2);
        grid.Choose(0);
        Change(grid, 4, 5, L" 0.75 ");  // blanks around a number do not count
        Change(grid, 4, 7, L"0.9");
        Command(kInsert);
        Command(kDelete);
        Click(dialog, IDOK);
    });
    // What is not shown stays with its row.
    EXPECT_TRUE(Has(kFontFile, "STYLE = 図面, 1.25, 0, 1, 0.3, 1.75, 7, 3, 1.1, 0.9\r\n")) << Bytes(kFontFile);
    EXPECT_TRUE(Has(kFontFile, "STYLE = TBIGFONT, 1.1875, 2, "));
    Edit(kArrows, true, [&](HWND dialog, const Grid& grid) {
        bool grey = false;
        for (int x = 0; x < 60 && !grey; ++x) grey = grid.Pixel(1, 1, x, 9) == RGB(0x60, 0x60, 0x60);
        EXPECT_TRUE(grey && grid.Pixel(1, 1, 4, 4) == RGB(0xFF, 0xFF, 0xFF)) << "how a name is drawn that stays";
        Change(grid, 0, 4, L"2.5");
        Change(grid, 1, 4, L"0.235");
        grid.Click(0, 3);
        grid.Choose(1);
        Command(kAdd);
        grid.Choose(0);
        EXPECT_NE(L"", grid.Cell(4, 1)) << "one of the host's arrow heads";
        Click(dialog, IDOK);
    });
    EXPECT_TRUE(Has(kArrowFile, "ARROW LINE          =    1, 180,  250\r\n"));
    EXPECT_TRUE(Has(kArrowFile, "ARROW SOLID         =    3,   0,   24\r\n")) << Bytes(kArrowFile);
    EXPECT_TRUE(Has(kArrowFile, " =    1, 180,  300\r\n"));
}

// Confirming an editor changes nothing that its grid does not show, nor what it shows.
TEST_F(ImportTables, WhatIsNotTouchedStays) {
    const std::string longName(60, 'x');
    const std::string layers = "LAYER OTHER = 9\nLAYER " + longName +
                               " = 3\nLAYER ソ表 = 4\nLAYER-REVISION OTHER = 8\n" +
                               "LAYER-REVISION 壁 = 2\nCOLOR-CLASS 0 = 11\nCOLOR-CLASS 256 = 12\n" +
                               "COLOR-REVISION 0 = 13\nCOLOR-REVISION 256 = 14\nCOLOR-REVISION 7 = 250\n";
    const std::string lines = "LINE-TYPE " + longName + " = 63,16\nLINE-WIDTH 0.25 = 7\nWIDTH 0,0.125 = 3\n" +
                              "WIDTH 0.125,0.3333 = 4\nWIDTH 0.3333,999 = 16\nCOLOR 0 = 5\nCOLOR 256 = 6\n";
    const Editor* const editors[] = {&kClasses,   &kRevisions, &kColorRevisions, &kColorClasses,
                                     &kLineTypes, &kPolylines, &kColorWidths,    &kLineWidths};
    for (const Editor* editor : editors) {
        WriteTable(editor->file, editor->file == kLayerFile ? layers : lines);
        std::string saved[2];
        for (std::string& body : saved) {
            Edit(*editor, true, [&](HWND dialog, const Grid&) { Click(dialog, &body == saved ? IDCANCEL : IDOK); });
            body = Bytes(editor->file);
            body.erase(0, body.find("/\r\n"));  // the lines that name the file and the time
        }
        EXPECT_GT(saved[0].size(), 300u);
        EXPECT_EQ(saved[0], saved[1]) << testing::PrintToString(std::wstring(editor->caption));
    }
}

TEST_F(ImportTables, FullTablesTakeNoMore) {
    const struct {
        const Editor& editor;
        int rows, given;
        const char *before, *behind;
    } cases[] = {{kClasses, 2048, 2047, "LAYER L", " = 1\n"},
                 {kRevisions, 2048, 2047, "LAYER-REVISION L", " = 1\n"},
                 {kLineTypes, 256, 256, "LINE-TYPE T", " = 1,1\n"},
                 {kFonts, 256, 252, "STYLE = S", ",1.1875,0,1,0.2,1.4,1,1,0.95,0.75\n"},
                 {kArrows, 256, 252, "ARROW A", " = 1,0,300\n"},
                 {kPolylines, 50, 49, "WIDTH ", " = 1\n"},
                 {kPolylines, 51, 50, "WIDTH ", " = 1\n"}};
    for (const auto& full : cases) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(full.editor.caption)));
        std::string file;
        for (int i = 0; i < full.given; ++i) {
            const std::string range = full.editor.choose == kPolylinesOnRadio ? "," + std::to_string(i + 1) : "";
            file += full.before + std::to_string(i) + range + full.behind;
        }
        WriteTable(full.editor.file, file);
        Edit(full.editor, false, [&](HWND dialog, const Grid& grid) {
            ASSERT_EQ(full.rows, grid.Rows());
            for (const RowCommand command : {kAdd, kInsert}) {
                grid.Click(full.rows - 1, 0);
                const Cells before = Row(grid, full.rows - 1);
                Command(command);
                ExpectError(dialog, L"これ以上追加できません。");
                EXPECT_EQ(full.rows, grid.Rows());
                EXPECT_EQ(before, Row(grid, full.rows - 1));
            }
            Click(dialog, IDOK);
        });
    }
}

TEST_F(ImportTables, ManyLayersOfOneName) {
    std::string file;
    for (int i = 0; i < 2047; ++i) file += "LAYER 壁 = 5\n";
    WriteTable(kLayerFile, file);
    Edit(kClasses, false, [&](HWND dialog, const Grid& grid) {
        grid.Click(2047, 1);
        Change(grid, 2047, 1, L"柱");
        ExpectRefusal(kClasses, dialog, {1, 1}, L"レイヤ名が重複しています 2,3 : 壁");
        EXPECT_LE(grid.TopRow(), 1) << "the bad cell is scrolled to";
    });
}

// Of an editor that owns its file; the hubs' way is told with them.
TEST_F(ImportTables, FilesThatChangeOrVanishMeanwhile) {
    for (const bool vanishes : {false, true}) {
        WriteTable(kFontFile, "");
        Edit(kFonts, true, [&](HWND dialog, const Grid& grid) {
            vanishes ? Obstruct(kFontFile) : static_cast<void>(WriteTable(kFontFile, "別の内容\n"));
            Command(kAdd);
            Change(grid, grid.Rows() - 1, 1, L"新規");
            Click(dialog, IDOK);
            // Told or asked, and nothing is lost as long as the dialog is open.
            Key(VK_RETURN);
            ASSERT_EQ(dialog, Settle());
            EXPECT_EQ(vanishes ? "" : "別の内容\n", Bytes(kFontFile));
            if (vanishes) std::filesystem::remove_all(home / kTables);
            Click(dialog, IDOK);
            if (!vanishes) Answer(ReadBox(), IDYES);
        });
        EXPECT_TRUE(Has(kFontFile, "新規")) << Bytes(kFontFile);
    }
}

// The mouse goes from an open cell to the buttons and to the row menu.
TEST_F(ImportTables, AnOpenCellCountsWhereverTheUserGoes) {
    const std::wstring unknown = L"\xE9";
    WriteTable(kFontFile, "");
    Edit(kFonts, true, [&](HWND dialog, const Grid& grid) {
        grid.Click(0, 3);
        grid.Keys(L"2.5");
        grid.SetText(unknown);  // no text for a table: the cell stays open whatever the user presses
        for (const int button : {kExplainButton, IDOK}) {
            Click(dialog, button);
            ASSERT_EQ(dialog, Settle());
            EXPECT_EQ(unknown, grid.Typed());
        }
        grid.RightClick(3, 0);
        EXPECT_FALSE(IsMenuOpen());
        grid.SetText(L"2.5");
        grid.RightClick(3, 0);
        const RECT cell = grid.Area(3, 0);
        EXPECT_TRUE(PtInRect(&cell, MenuPlace(grid)));
        PickMenu(kAdd);
        EXPECT_EQ(L"2.5", grid.Cell(0, 3));
        Command(kDelete);
        grid.Click(1, 3);
        grid.Keys(L"3.5");
        Click(dialog, kExplainButton);
        EXPECT_EQ(L"パラメータの説明", Text(Settle()));
        Click(Settle(), IDOK);
        grid.Click(2, 3);
        grid.Keys(L"4.5");
        Click(dialog, IDOK);
    });
    for (const char* line : {"STANDARD, 2.5,", "BIGFONT, 3.5,", "TSTANDARD, 4.5,"})
        EXPECT_TRUE(Has(kFontFile, line)) << Bytes(kFontFile);
}
