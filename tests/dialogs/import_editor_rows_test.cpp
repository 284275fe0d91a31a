// Rows that come and go in the editors of the import tables, and what becomes of them in the files.
#include <algorithm>

#include "tests/dialogs/ImportEditors.h"

using namespace kiro::drive;

namespace {

using Cells = std::vector<std::wstring>;

// What the operator does with the rows of an editor, and finds.
struct RowCase {
    const Editor& editor;
    const char* file;            // four rows with it
    int fixed;                   // rows that cannot be renamed or deleted, from the top
    const wchar_t* fixedPrompt;  // for the name of such a row
    const wchar_t* prompt;       // for the name of another
    Cells start;                 // a new row, from the name on
    const char* written;         // by a new row named "新規"
};
const RowCase kRowCases[] = {
    {kClassEditor,
     "LAYER 壁 = 5\nLAYER 柱 = 6\nLAYER 窓 = 7\n",
     1,
     L"レイヤ名を変更できません",
     L"レイヤ名を入力してください",
     {L"", L"1"},
     "LAYER 新規 = 1\r\n"},
    {kRevisionEditor,
     "LAYER-REVISION 壁 = 5\nLAYER-REVISION 柱 = 6\nLAYER-REVISION 窓 = 7\n",
     1,
     L"レイヤ名を変更できません",
     L"レイヤ名を入力してください",
     {L"", L"1"},
     "LAYER-REVISION 新規 = 1\r\n"},
    {kLineTypeEditor, "", 0, L"", L"", {L"", L"1", L"1"}, "LINE-TYPE  新規 = 1,1\r\n"},
    {kFontEditor,
     "",
     4,
     L"書体名は変更できません。",
     L"",
     {L"", L"横", L"1.1875", L"0.95", L"0.4", L"0.95", L"0.75"},
     "STYLE = 新規, 1.1875, 0, 0.95, 0.2, 1.4, 1, 1, 0.95, 0.75\r\n"},
    {kArrowEditor,
     "",
     4,
     L"矢印名（複合図形名）は変更できません。",
     L"",
     {L"", L"1", L"180", L"3"},
     "ARROW 新規   =    1, 180,  300\r\n"},
};

// Without the lines that name the file and the time.
std::string Body(const std::string& file) {
    std::string body;
    for (std::size_t start = 0; start < file.size();) {
        const std::size_t end = std::min(file.find('\n', start), file.size() - 1) + 1;
        const std::string line = file.substr(start, end - start);
        if (line.find("/ File name") != 0 && line.find("/      Date") != 0) body += line;
        start = end;
    }
    return body;
}

}  // namespace

TEST_F(ImportEditors, RowsAreAddedInsertedAndDeletedWhereTheyMay) {
    for (const RowCase& rows : kRowCases) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(rows.editor.title)));
        WriteTable(rows.editor.file, rows.file);
        std::vector<Cells> last;
        Edit(rows.editor, true, [&](HWND dialog, const Grid& grid) {
            const auto before = AllRows(grid);
            ASSERT_EQ(4u, before.size());
            for (int row = 0; row < rows.fixed; ++row) {
                grid.Click(row, 1);
                EXPECT_EQ(rows.fixedPrompt, Guidance(dialog));
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
            EXPECT_EQ(4, grid.Current().row);
            Cells start = rows.start;
            start.insert(start.begin(), L"5");
            EXPECT_EQ(start, Row(grid, 4));
            // Left empty and given a name then.
            grid.Click(0, 0);
            EXPECT_TRUE(IsGuidanceError(dialog));
            Change(grid, 4, 1, L"新規");
            grid.Click(0, 0);
            grid.Click(4, 1);
            EXPECT_EQ(rows.prompt, Guidance(dialog));
            EXPECT_FALSE(IsGuidanceError(dialog));

            Command(kInsert);
            EXPECT_EQ((Cells{L"5", L""}), (Cells{grid.Cell(4, 0), grid.Cell(4, 1)}));
            EXPECT_EQ((Cells{L"6", L"新規"}), (Cells{grid.Cell(5, 0), grid.Cell(5, 1)}));
            grid.Keys(L"末ソ");
            Key(VK_RETURN);
            last = AllRows(grid);
            grid.Click(4, 0);
            Command(kInsert);
            EXPECT_EQ((GridPlace{4, 1}), grid.Current());  // where it lacks its name
            grid.Click(4, 0);
            EXPECT_FALSE(IsGuidanceError(dialog)) << "checked while its row is being filled";
            for (const int row : {0, 4}) {
                grid.Click(row, 0);
                EXPECT_TRUE(IsGuidanceError(dialog)) << row;
            }
            Command(kDelete);  // the row that came, and its message
            EXPECT_FALSE(IsGuidanceError(dialog));
            EXPECT_EQ(last, AllRows(grid));
            Click(dialog, IDOK);
        });
        EXPECT_NE(std::string::npos, Bytes(rows.editor.file).find(rows.written)) << Bytes(rows.editor.file);
        Edit(rows.editor, false, [&](HWND dialog, const Grid& grid) {
            EXPECT_EQ(last, AllRows(grid));
            while (grid.Rows() > rows.fixed) {
                grid.Click(grid.Rows() - 1, 0);
                Command(kDelete);
            }
            Command(kDelete);  // without a row, or with one that stays
            EXPECT_EQ(rows.fixed, grid.Rows());
            Click(dialog, IDOK);
        });
    }
}

TEST_F(ImportEditors, PolylineRangesMeet) {
    WriteTable(kLineFile, "");
    Edit(kPolylineEditor, true, [&](HWND dialog, const Grid& grid) {
        EXPECT_EQ((Cells{L"2", L"999", L""}), Row(grid, 1));
        grid.Click(1, 2);
        Key(VK_F2);
        EXPECT_FALSE(grid.IsOpen());  // the end of the last range has no weight
        grid.Click(0, 0);
        Command(kAdd);  // above it, whichever row is the current one
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
    const std::string two = "WIDTH  0, 0.5 = 2\r\nWIDTH  0.5, 999 = 5\r\n";
    EXPECT_NE(std::string::npos, Bytes(kLineFile).find(two)) << Bytes(kLineFile);
    EXPECT_NE(std::string::npos, Bytes(kLineFile).find("POLWIDTH-SWITCH  1\r\n"));
    Edit(kPolylineEditor, true, [&](HWND dialog, const Grid& grid) {
        ASSERT_EQ(3, grid.Rows());
        Change(grid, 1, 2, L"0");
        grid.Click(2, 0);
        EXPECT_TRUE(IsMarked(grid, {1, 2}));
        Command(kDelete);  // the range before it ends the table now
        EXPECT_FALSE(IsMarked(grid, {1, 2}));
        EXPECT_EQ((Cells{L"2", L"0.5", L""}), Row(grid, 1));
        grid.Click(0, 0);
        Command(kInsert);
        EXPECT_EQ((Cells{L"1", L"", L"1"}), Row(grid, 0));
        Command(kDelete);
        Click(dialog, IDOK);
    });
    EXPECT_NE(std::string::npos, Bytes(kLineFile).find("WIDTH  0, 0.5 = 2\r\n/\r\n")) << Bytes(kLineFile);
}

TEST_F(ImportEditors, NumbersAreWrittenAsTheyAreShown) {
    WriteTable(kFontEditor.file, "STYLE = 図面, 1.25, 2, 1, 0.3, 1.5, 7, 3, 1.1, 0.8\n");
    Edit(kFontEditor, true, [&](HWND dialog, const Grid& grid) {
        EXPECT_EQ((Cells{L"5", L"図面", L"縦", L"1.25", L"1", L"0.5", L"1.1", L"0.8"}), Row(grid, 4));
        grid.Click(4, 2);
        grid.Choose(0);
        EXPECT_EQ(L"横", grid.Cell(4, 2));
        Change(grid, 4, 5, L" 0.75 ");  // blanks around a number do not count
        Change(grid, 4, 7, L"0.9");
        Command(kInsert);
        Command(kDelete);
        Click(dialog, IDOK);
    });
    // What is not shown stays with its row.
    for (const char* style :
         {"STYLE = 図面, 1.25, 0, 1, 0.3, 1.75, 7, 3, 1.1, 0.9\r\n", "STYLE = TBIGFONT, 1.1875, 2, "})
        EXPECT_NE(std::string::npos, Bytes(kFontEditor.file).find(style)) << Bytes(kFontEditor.file);
    Edit(kArrowEditor, true, [&](HWND dialog, const Grid& grid) {
        EXPECT_EQ(RGB(0xFF, 0xFF, 0xFF), grid.Pixel(1, 1, 4, 4));  // no cell to type in, and yet white
        Change(grid, 0, 4, L"2.5");
        Change(grid, 1, 4, L"0.235");
        grid.Click(0, 3);
        grid.Choose(1);
        Command(kAdd);
        grid.Choose(0);
        EXPECT_NE(L"", grid.Cell(4, 1)) << "one of the host's arrow heads";
        Click(dialog, IDOK);
    });
    EXPECT_NE(std::string::npos, Bytes(kArrowEditor.file).find("ARROW LINE          =    1, 180,  250\r\n"));
    EXPECT_NE(std::string::npos, Bytes(kArrowEditor.file).find("ARROW SOLID         =    3,   0,   24\r\n"))
        << Bytes(kArrowEditor.file);
    Edit(kLineWidthEditor, true, [&](HWND dialog, const Grid& grid) {
        Change(grid, 23, 2, L"16");
        Click(dialog, IDOK);
    });
    EXPECT_NE(std::string::npos, Bytes(kLineFile).find("LINE-WIDTH  2.11 = 16\r\n"));
    const struct {
        const Editor& editor;
        const char *first, *last;
    } colors[] = {{kColorWidthEditor, "COLOR  1 = 9\r\n", "COLOR  255 = 9\r\n"},
                  {kColorRevisionEditor, "COLOR-REVISION   1 =   9\r\n", "COLOR-REVISION 255 =   9\r\n"},
                  {kColorClassEditor, "COLOR-CLASS   1 =   9\r\n", "COLOR-CLASS 255 =   9\r\n"}};
    for (const auto& color : colors) {
        Edit(color.editor, true, [&](HWND dialog, const Grid& grid) {
            for (const int row : {0, 254}) Change(grid, row, 1, L"9");
            Click(dialog, IDOK);
        });
        for (const char* line : {color.first, color.last})
            EXPECT_NE(std::string::npos, Bytes(color.editor.file).find(line)) << line << Bytes(color.editor.file);
    }
}

// Confirming an editor changes nothing that its grid does not show, nor what it shows.
TEST_F(ImportEditors, WhatIsNotTouchedStays) {
    const std::string longName(60, 'x');
    std::string layers = "LAYER OTHER = 9\nLAYER " + longName + " = 3\nLAYER ソ表 = 4\nLAYER-REVISION OTHER = 8\n" +
                         "LAYER-REVISION 壁 = 2\nCOLOR-CLASS 0 = 11\nCOLOR-CLASS 256 = 12\nCOLOR-REVISION 0 = 13\n" +
                         "COLOR-REVISION 256 = 14\nCOLOR-REVISION 7 = 250\nCOLOR-CLASS 255 = 251\n";
    const std::string lines =
        "LINE-TYPE " + longName + " = 63,16\nLINE-WIDTH 0.25 = 7\nWIDTH 0,0.125 = 3\n" +
        "WIDTH 0.125,0.3333 = 4\nWIDTH 0.3333,999 = 16\nCOLOR 0 = 5\nCOLOR 256 = 6\nCOLOR 9 = 7\n";
    const Editor* const editors[] = {&kClassEditor,    &kRevisionEditor, &kColorRevisionEditor, &kColorClassEditor,
                                     &kLineTypeEditor, &kPolylineEditor, &kColorWidthEditor,    &kLineWidthEditor};
    for (const Editor* editor : editors) {
        WriteTable(editor->file, editor->file == kLayerFile ? layers : lines);
        std::string saved[2];
        for (std::string& body : saved) {
            Edit(*editor, true, [&](HWND dialog, const Grid&) { Click(dialog, &body == saved ? IDCANCEL : IDOK); });
            body = Body(Bytes(editor->file));
        }
        EXPECT_GT(saved[0].size(), 300u);
        EXPECT_EQ(saved[0], saved[1]) << testing::PrintToString(std::wstring(editor->title));
    }
}

TEST_F(ImportEditors, CancelLeavesTableAndFile) {
    for (const RowCase& rows : kRowCases) {
        for (const bool closeBox : {false, true}) {
            WriteTable(rows.editor.file, rows.file);
            Edit(rows.editor, true, [&](HWND dialog, const Grid& grid) {
                Change(grid, 3, 1, L"失われる");
                Command(kAdd);
                Change(grid, 4, 1, L"消える");
                grid.Click(4, 2);
                closeBox ? CloseBox(dialog) : Click(dialog, IDCANCEL);
            });
            const std::string after = Bytes(rows.editor.file);
            EXPECT_EQ(std::string::npos, after.find("失われる")) << after;
            EXPECT_EQ(std::string::npos, after.find("消える"));
            EXPECT_TRUE(rows.editor.edit || after == rows.file) << after;
        }
    }
}

TEST_F(ImportEditors, FullTablesTakeNoMore) {
    const struct {
        const Editor& editor;
        int rows;
        std::string (*line)(int);
        int given;
    } cases[] = {
        {kClassEditor, 2048, [](int i) { return "LAYER L" + std::to_string(i) + " = 1\n"; }, 2047},
        {kLineTypeEditor, 256, [](int i) { return "LINE-TYPE T" + std::to_string(i) + " = 1,1\n"; }, 256},
        {kFontEditor, 256,
         [](int i) { return "STYLE = S" + std::to_string(i) + ",1.1875,0,1,0.2,1.4,1,1,0.95,0.75\n"; }, 252},
        {kArrowEditor, 256, [](int i) { return "ARROW A" + std::to_string(i) + " = 1,0,300\n"; }, 252},
        {kPolylineEditor, 50,
         [](int i) { return "WIDTH " + std::to_string(i) + "," + std::to_string(i + 1) + " = 1\n"; }, 49},
        {kPolylineEditor, 51,
         [](int i) { return "WIDTH " + std::to_string(i) + "," + std::to_string(i + 1) + " = 1\n"; }, 50},
    };
    for (const auto& full : cases) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(full.editor.title)));
        std::string file;
        for (int i = 0; i < full.given; ++i) file += full.line(i);
        WriteTable(full.editor.file, file);
        Edit(full.editor, true, [&](HWND dialog, const Grid& grid) {
            ASSERT_EQ(full.rows, grid.Rows());
            const int last = full.rows - 1;
            for (const RowCommand command : {kAdd, kInsert}) {
                grid.Click(last, 0);
                const Cells before = Row(grid, last);
                Command(command);
                ExpectError(dialog, L"これ以上追加できません。");
                EXPECT_EQ(full.rows, grid.Rows());
                EXPECT_EQ(before, Row(grid, last));
            }
            grid.Click(last - 1, 0);
            const std::wstring name = grid.Cell(last - 1, 1);
            Command(kDelete);
            Command(kAdd);
            EXPECT_EQ(full.rows, grid.Rows());
            Change(grid, grid.Current().row, 1, name);
            Click(dialog, IDOK);
        });
        Edit(full.editor, false, [&](HWND dialog, const Grid& grid) {
            EXPECT_EQ(full.rows, grid.Rows());
            Click(dialog, IDCANCEL);
        });
    }
}

TEST_F(ImportEditors, ManyLayersOfOneName) {
    std::string file;
    for (int i = 0; i < 2047; ++i) file += "LAYER 壁 = 5\n";
    WriteTable(kLayerFile, file);
    Edit(kClassEditor, false, [&](HWND dialog, const Grid& grid) {
        ASSERT_EQ(2048, grid.Rows());
        ExpectRefusal(kClassEditor, dialog, {1, 1}, L"レイヤ名が重複しています 2,3 : 壁");
        grid.Click(2047, 1);
        Change(grid, 2047, 1, L"柱");
        ExpectRefusal(kClassEditor, dialog, {1, 1}, L"レイヤ名が重複しています 2,3 : 壁");
        EXPECT_LE(grid.TopRow(), 1) << "the bad cell is scrolled to";
        Click(dialog, IDCANCEL);
    });
}

TEST_F(ImportEditors, FilesThatChangeOrVanishMeanwhile) {
    for (const Editor* editor : {&kClassEditor, &kLineTypeEditor, &kFontEditor, &kArrowEditor}) {
        for (const bool vanishes : {false, true}) {
            WriteTable(editor->file, "");
            Edit(*editor, true, [&](HWND dialog, const Grid& grid) {
                const bool blocked = vanishes && !editor->edit;  // by a folder of the file's name
                if (vanishes) {
                    std::filesystem::remove_all(home / kTables);
                    if (blocked) std::filesystem::create_directories(TableFile(editor->file));
                } else {
                    WriteTable(editor->file, "別の内容\n");
                }
                Change(grid, 0, editor->file == kArrowFile ? 4 : 3, L"2");
                grid.Click(0, 0);
                Command(kAdd);
                Change(grid, grid.Rows() - 1, 1, L"新規");
                Click(dialog, IDOK);
                if (!vanishes && !editor->edit) {
                    // Asked first: the other program's file stays when the user does not want to lose it.
                    EXPECT_EQ(TableFile(editor->file).wstring() +
                                  L"\n\nこのファイルは、開いた後に他で変更されています。\n上書きしますか。",
                              ReadBox().text);
                    Key(VK_RETURN);
                    ASSERT_EQ(dialog, Settle());
                    EXPECT_EQ("別の内容\n", Bytes(editor->file));
                    Click(dialog, IDOK);
                    Answer(ReadBox(), IDYES);
                }
                if (blocked) {
                    // Told, and nothing is lost as long as the dialog is open.
                    Answer(ReadBox(), IDOK);
                    ASSERT_EQ(dialog, Settle());
                    std::filesystem::remove(TableFile(editor->file));
                    Click(dialog, IDOK);
                }
            });
            EXPECT_NE(std::string::npos, Bytes(editor->file).find("新規")) << Bytes(editor->file);
            EXPECT_EQ(std::string::npos, Bytes(editor->file).find("別の内容"));
        }
    }
}

TEST_F(ImportEditors, TheKeyboardAloneSuffices) {
    WriteTable(kLayerFile, "LAYER 壁 = 5\n");
    Edit(kClassEditor, true, [&](HWND dialog, const Grid& grid) {
        EXPECT_EQ(kGrid, FocusId());
        EXPECT_EQ((GridPlace{0, 2}), grid.Current());  // its name stays
        Key(VK_APPS);
        EXPECT_EQ(grid.Area(0, 2).left, MenuPlace(grid).x);
        EXPECT_EQ(grid.Area(0, 2).bottom, MenuPlace(grid).y);
        CancelMenu();
        Command(kAdd);
        grid.Keys(L"柱");
        Key(VK_TAB);  // to its number
        EXPECT_EQ((GridPlace{2, 2}), grid.Current());
        grid.Keys(L"300");
        Key(VK_RETURN);
        Key(VK_UP);  // the rows are checked
        ExpectError(dialog, L"無効なクラス番号です（1～256） 3 : 300");
        Key(VK_DOWN);
        grid.Keys(L"30");
        Key(VK_ESCAPE);
        EXPECT_EQ(L"300", grid.Cell(2, 2));
        Key(VK_F2);
        Key(VK_END);
        Key(VK_BACK);
        Key(VK_RETURN);
        EXPECT_EQ(L"30", grid.Cell(2, 2));
        Key(VK_HOME);
        Key(VK_F4);
        EXPECT_TRUE(grid.IsDropped());
        Key(VK_UP);
        Key(VK_RETURN);
        EXPECT_EQ(L"255", grid.Cell(0, 2));
        Key(VK_TAB);
        EXPECT_EQ(IDOK, FocusId());
        Key(VK_RETURN);
    });
    EXPECT_NE(std::string::npos, Bytes(kLayerFile).find("LAYER OTHER = 255\r\n")) << Bytes(kLayerFile);
    EXPECT_NE(std::string::npos, Bytes(kLayerFile).find("LAYER 柱 = 30\r\n"));
}

// The mouse goes from an open cell to the buttons and to the row menu.
TEST_F(ImportEditors, AnOpenCellCountsWhereverTheUserGoes) {
    const std::wstring unknown = L"\xE9";
    for (const bool menu : {false, true}) {
        WriteTable(kFontEditor.file, "");
        Edit(kFontEditor, true, [&](HWND dialog, const Grid& grid) {
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
            if (menu) {
                grid.RightClick(3, 0);
                const RECT cell = grid.Area(3, 0);
                EXPECT_TRUE(PtInRect(&cell, MenuPlace(grid)));
                PickMenu(kAdd);
                EXPECT_EQ(L"2.5", grid.Cell(0, 3));
                Command(kDelete);
            } else {
                Click(dialog, kExplainButton);
                EXPECT_EQ(L"パラメータの説明", Text(Settle()));
                Click(Settle(), IDOK);
                EXPECT_EQ(L"2.5", grid.Cell(0, 3));
            }
            Click(dialog, IDOK);
        });
        EXPECT_NE(std::string::npos, Bytes(kFontEditor.file).find("STYLE = STANDARD, 2.5,"));
    }
}
