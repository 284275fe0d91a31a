// What is done with many cells and rows of the table editors at once: copied, pasted, filled, undone; and the keys by
// which rows come and go.

#include "tests/DrawingText.h"
#include "tests/dialogs/ImportTables.h"
#include "text/TextFormat.h"
#include "ui/GridBlock.h"

using namespace kiro::drive;

namespace {

void Control(WORD key) { KeyHolding(VK_CONTROL, key); }
void ControlShift(WORD key) { KeyHolding({VK_CONTROL, VK_SHIFT}, key); }
void ShiftTimes(WORD key, int times) {
    for (; times > 0; --times) KeyHolding(VK_SHIFT, key);
}
void PasteBlock(const std::wstring& text) {
    PutOnClipboard(text);
    Control('V');
}

constexpr char kDimensions[] = "0 TABLE/2 DIMSTYLE/0 DIMSTYLE/2 M/5 MARK/0 DIMSTYLE/2 D/5 solid/0 ENDTAB";

std::string Times(int count, const std::string& text) {
    std::string all;
    for (int i = 0; i < count; ++i) all += Formatted(text.c_str(), i);
    return all;
}
bool IsGrey(const Grid& grid, int row) {
    const RECT area = grid.Area(row, 2);
    for (int x = 0; x < area.right - area.left - 1; ++x)
        for (int y = 1; y < area.bottom - area.top - 1; ++y)
            if (grid.Pixel(row, 2, x, y) == GetSysColor(COLOR_GRAYTEXT)) return true;
    return false;
}

std::wstring Texts(const Grid& grid, int column, int from, int to) {
    std::wstring texts;
    for (int row = from; row <= to; ++row) texts += grid.Cell(row, column) + L" ";
    return texts;
}

// Another program.
class Spreadsheet {
  public:
    Spreadsheet() {
        wchar_t command[] = L"spreadsheet.exe";
        STARTUPINFOW start{};
        start.cb = sizeof start;
        PROCESS_INFORMATION process{};
        if (!CreateProcessW(nullptr, command, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process))
            throw Failure("the spreadsheet does not start");
        CloseHandle(process.hThread);
        process_ = process.hProcess;
        Until("the spreadsheet is there", [&] {
            DWORD owner = 0;
            window_ = FindWindowW(L"spreadsheet", nullptr);
            return window_ && GetWindowThreadProcessId(window_, &owner) && owner == process.dwProcessId;
        });
    }
    Spreadsheet(const Spreadsheet&) = delete;
    Spreadsheet& operator=(const Spreadsheet&) = delete;
    ~Spreadsheet() {
        PostMessageW(window_, WM_CLOSE, 0, 0);
        WaitForSingleObject(process_, kPatience);
        CloseHandle(process_);
    }
    void Offer(const wchar_t* text) const {
        Send(window_, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text));
        EXPECT_TRUE(Send(window_, WM_COPY));
    }
    std::wstring Taken() const {
        EXPECT_TRUE(Send(window_, WM_PASTE));
        wchar_t text[1000] = L"";
        Send(window_, WM_GETTEXT, 1000, reinterpret_cast<LPARAM>(text));
        return text;
    }

  private:
    HANDLE process_ = nullptr;
    HWND window_ = nullptr;
};

constexpr char kLayers[] = "LAYER 壁 = 5\nLAYER 柱 = 6\nLAYER 窓 = 7\n";

}  // namespace

TEST(GridBlocks, AreReadAsSpreadsheetsWriteThem) {
    using kiro::ui::GridBlock;
    using kiro::ui::ReadGridBlock;
    EXPECT_EQ((GridBlock{{L"a", L"", L"b"}, {L"c"}}), ReadGridBlock(L"a\t\tb\r\nc\r\n"));
    EXPECT_EQ((GridBlock{{L"a\tb\nc", L"d\"e"}, {L"\"f", L"\"g\""}}),
              ReadGridBlock(L"\"a\tb\nc\"\t\"d\"\"e\"\n\"f\t\"g\""));
    EXPECT_EQ((GridBlock{{L""}}), ReadGridBlock(L""));
    EXPECT_EQ((GridBlock{{L"a"}, {L""}}), ReadGridBlock(L"a\r\n\r\n"));
}

TEST(GridBlocks, NumbersGoOn) {
    const struct {
        const char *first, *second, *fifth;
    } cases[] = {{"1", "2", "5"},          {"10", "8", "2"},        {"5", "3", "-3"},
                 {"-1", "-2", "-5"},       {"0.5", "0.75", "1.50"}, {"01", "02", "05"},
                 {"表08", "表09", "表12"}, {"3", "3", "3"},         {"L-1", "L-2", "L-5"}};
    for (const auto& of : cases) {
        const auto series = kiro::ui::GridSeries::From(of.first, of.second);
        ASSERT_TRUE(series) << of.first;
        EXPECT_EQ(of.fifth, series->At(4));
    }
    for (const char* other : {"", "x", "B2", "1234567890123"}) EXPECT_FALSE(kiro::ui::GridSeries::From("A1", other));
}

TEST_F(ImportTables, BlocksGoToASpreadsheetAndComeBack) {
    WriteTable(kLayerFile, kLayers);
    Edit(kClasses, true, [&](HWND dialog, const Grid& grid) {
        const Spreadsheet spreadsheet;
        const auto opened = AllRows(grid);
        grid.Click(1, 1);
        ShiftTimes(VK_DOWN, 1);
        ShiftTimes(VK_RIGHT, 1);
        EXPECT_EQ((GridPlace{1, 1}), grid.Current());
        Control('C');
        EXPECT_EQ(L"壁\t5\r\n柱\t6\r\n", spreadsheet.Taken());
        Control('A');
        Control('C');
        EXPECT_TRUE(spreadsheet.Taken().starts_with(L"1\tOTHER\t"));
        // From the first row on: the name of "OTHER" and the numbers of the rows stay; two rows are added.
        grid.Click(0, 0);
        spreadsheet.Offer(L"x\t別名\t２\r\n9\t 梁\t256\r\n9\t床\t1\r\n9\t\"a\"\"b\"\t7\r\n9\t屋根\r\n9\t表ソ\t12\r\n");
        Control('V');
        EXPECT_EQ(L"6 行に貼り付けました。編集できない列の値は除きました。", Guidance(dialog));
        const std::vector<Cells> pasted = {{L"1", L"OTHER", L"2"}, {L"2", L"梁", L"256"}, {L"3", L"床", L"1"},
                                           {L"4", L"a\"b", L"7"},  {L"5", L"屋根", L"1"}, {L"6", L"表ソ", L"12"}};
        EXPECT_EQ(pasted, AllRows(grid));
        EXPECT_EQ((GridPlace{0, 0}), grid.Current());
        Control('Z');
        EXPECT_EQ(opened, AllRows(grid));
        Control('Z');
        EXPECT_EQ(L"これより前には戻せません。", Guidance(dialog));
        Control('Y');
        EXPECT_EQ(pasted, AllRows(grid));
        EXPECT_EQ(L"やり直しました。", Guidance(dialog));
        Click(dialog, IDOK);
    });
    EXPECT_TRUE(Has(kLayerFile, "LAYER 屋根 = 1\r\nLAYER 表ソ = 12\r\n")) << Bytes(kLayerFile);
}

TEST_F(ImportTables, WhatCannotBePastedIsAskedFor) {
    WriteTable(kLayerFile, kLayers);
    Edit(kClasses, false, [&](HWND dialog, const Grid& grid) {
        const auto opened = AllRows(grid);
        const auto paste = [&](const std::wstring& text, const std::wstring& message, int answer) {
            PasteBlock(text);
            const Box box = ReadBox();
            EXPECT_EQ(0u, box.text.find(message)) << testing::PrintToString(box.text);
            Answer(box, answer);
            EXPECT_EQ(dialog, Settle());
        };
        grid.Click(2, 1);
        // What is bad: a name that is there already, that comes twice, that no table can hold; a number out of range.
        const std::wstring block = L"壁\t9\r\n梁\t257\r\n梁\t3\r\n図\x00E9\t4\r\n";
        paste(block,
              L"入れられない値が 4 個あります。最初の値は 3 行目の「レイヤ名」の列です。\n「壁」 "
              L"レイヤ名が重複しています 2,3 : 壁\n",
              IDNO);
        EXPECT_EQ(opened, AllRows(grid));
        EXPECT_EQ((GridPlace{2, 1}), grid.Current());
        Control('Z');
        EXPECT_EQ(L"これより前には戻せません。", Guidance(dialog));
        paste(block, L"入れられない値が 4 個あります。", IDYES);
        EXPECT_EQ(L"4 行に貼り付けました。入れなかった値 4 個に印を付けました。", Guidance(dialog));
        EXPECT_EQ(
            (std::vector<Cells>{
                opened[0], opened[1], {L"3", L"柱", L"9"}, {L"4", L"梁", L"7"}, {L"5", L"", L"3"}, {L"6", L"", L"4"}}),
            AllRows(grid));
        for (const GridPlace bad : {GridPlace{2, 1}, {3, 2}, {4, 1}, {5, 1}})
            EXPECT_TRUE(IsMarked(grid, bad)) << bad.row;
        EXPECT_FALSE(IsMarked(grid, {3, 1}));
        Control('Z');
        EXPECT_EQ(opened, AllRows(grid));
        EXPECT_FALSE(IsMarked(grid, {2, 1}));
        std::wstring many;
        for (int i = 0; i < kDxfInLayerSlots; ++i) many += L"L" + std::to_wstring(i) + L"\r\n";
        grid.Click(1, 1);
        paste(many, L"表に入らない行が 1 行あります。\n\n入れられる値だけを", IDYES);
        EXPECT_EQ(kDxfInLayerSlots, grid.Rows());
        grid.Click(1, 1);
        paste(L"=", L"入れられない値が 1 個あります。", IDOK);  // nothing else to take
        EXPECT_EQ(L"L0", grid.Cell(1, 1));
        Control('Z');
        EXPECT_EQ(opened, AllRows(grid));
    });
}

TEST_F(ImportTables, NamesAlonePastedBecomeRows) {
    WriteTable(kLayerFile, kLayers);
    Edit(kClasses, false, [&](HWND, const Grid& grid) {
        PutOnClipboard(L"梁\t1\r\n\r\n壁\r\n床\r\n");
        ControlShift('V');
        Answer(ReadBox(), IDYES);
        EXPECT_EQ(6, grid.Rows());
        EXPECT_EQ((Cells{L"6", L"床", L"1"}), Row(grid, 5));
        EXPECT_EQ((GridPlace{4, 1}), grid.Current());
    });
}

TEST_F(ImportTables, CellsAreFilledWhereRowsAreGiven) {
    WriteTable(kLayerFile, "");
    Edit(kColorRevisions, true, [&](HWND dialog, const Grid& grid) {
        const auto opened = AllRows(grid);
        const auto column = [&](int from, int to) { return Texts(grid, 1, from, to); };
        ExpectKeysListed(false, false);
        Change(grid, 9, 1, L"２０");  // typed with full-width digits
        Change(grid, 10, 1, L"22");
        grid.Click(9, 1);
        ShiftTimes(VK_DOWN, 4);
        Control('R');
        EXPECT_EQ(L"20 22 24 26 28 ", column(9, 13));
        grid.Click(13, 1);
        ShiftTimes(VK_UP, 3);  // from below
        Control('D');
        EXPECT_EQ(L"20 22 22 22 22 ", column(9, 13));
        grid.Click(14, 1);
        Control('D');  // one row: what stands above it
        EXPECT_EQ(L"22", grid.Cell(14, 1));
        grid.Click(0, 1);
        Control('D');
        ExpectError(dialog, L"上に値がありません。");
        grid.Click(20, 1);
        ShiftTimes(VK_DOWN, 3);
        PasteBlock(L"100");  // one text for all of them
        EXPECT_EQ(L"100 100 100 100 ", column(20, 23));
        Key(VK_DELETE);  // the rows are given
        Key(VK_INSERT);
        EXPECT_EQ(opened.size(), AllRows(grid).size());
        grid.Click(250, 1);
        ShiftTimes(VK_DOWN, 3);
        PutOnClipboard(L"250\n251\n252\n253\n254\n256");
        KeyHolding(VK_SHIFT, VK_INSERT);
        EXPECT_EQ(0u, ReadBox().text.find(L"表に入らない行が 1 行あります。"));
        Answer(ReadBox(), IDYES);
        EXPECT_EQ(L"250 251 252 253 254 ", column(250, 254));
        for (int step = 0; step < 20; ++step) Control('Z');
        EXPECT_EQ(opened, AllRows(grid));
        for (int step = 0; step < 20; ++step) ControlShift('Z');
        EXPECT_EQ(L"250 251 252 253 254 ", column(250, 254));
        EXPECT_EQ(L"20 22 22 22 22 22 ", column(9, 14));
        Click(dialog, IDOK);
    });
}

TEST_F(ImportTables, RowsComeAndGoByKey) {
    WriteTable(kLayerFile, kLayers);
    Edit(kClasses, true, [&](HWND dialog, const Grid& grid) {
        const auto opened = AllRows(grid);
        EXPECT_EQ(kGrid, FocusId());
        EXPECT_EQ((GridPlace{0, 2}), grid.Current());  // its name stays
        Key(VK_APPS);
        EXPECT_EQ(grid.Area(0, 2).left, MenuPlace(grid).x);
        EXPECT_EQ(grid.Area(0, 2).bottom, MenuPlace(grid).y);
        CancelMenu();
        ExpectKeysListed(true, true);
        Key(VK_DELETE);
        ExpectError(dialog, L"削除できません。");
        ShiftTimes(VK_DOWN, 1);
        Key(VK_DELETE);  // all or none
        ExpectError(dialog, L"削除できません。");
        Key(VK_INSERT);
        ExpectError(dialog, L"ここには挿入できません。");
        EXPECT_EQ(opened, AllRows(grid));
        grid.Click(1, 1);
        Key(VK_INSERT);
        EXPECT_EQ((Cells{L"2", L"", L"1"}), Row(grid, 1));
        grid.Keys(L"新");
        Key(VK_TAB);
        grid.Keys(L"8");
        Key(VK_RETURN);
        ShiftTimes(VK_DOWN, 1);
        Key(VK_DELETE);
        EXPECT_EQ((std::vector<Cells>{opened[0], {L"2", L"新", L"8"}, {L"3", L"窓", L"7"}}), AllRows(grid));
        EXPECT_EQ((GridPlace{2, 2}), grid.Current());
        // Behind the last cell: a row to go on with, by Enter or by Tab.
        Key(VK_RETURN);
        EXPECT_EQ((GridPlace{3, 1}), grid.Current());
        grid.Keys(L"続き");
        Key(VK_TAB);
        Key(VK_TAB);
        EXPECT_EQ((GridPlace{4, 1}), grid.Current());
        EXPECT_TRUE(grid.IsOpen());
        Key(VK_TAB);
        Key(VK_TAB);  // one that is not used is enough
        EXPECT_EQ(5, grid.Rows());
        Key(VK_TAB);
        EXPECT_EQ(IDOK, FocusId());
        grid.Click(0, 2);
        EXPECT_FALSE(IsGuidanceError(dialog)) << "a row that is not used is not checked";
        while (Guidance(dialog) != L"これより前には戻せません。") Control('Z');
        EXPECT_EQ(opened, AllRows(grid));
        while (Guidance(dialog) != L"やり直す操作はありません。") Control('Y');
        grid.Click(3, 2);
        Key(VK_F2);
        Key(VK_TAB);
        Focus(dialog, IDOK);
        Key(VK_RETURN);
    });
    EXPECT_TRUE(Has(kLayerFile, "LAYER 新 = 8\r\nLAYER 窓 = 7\r\nLAYER 続き = 1\r\n")) << Bytes(kLayerFile);
}

TEST_F(ImportTables, RowsAreSeenInAnotherOrderAndStayInTheirs) {
    WriteTable(kLayerFile, "LAYER b = 10\nLAYER C = 9\nLAYER ａ = 200\n");
    Edit(kClasses, true, [&](HWND dialog, const Grid& grid) {
        const auto seen = [&](int column) { return Texts(grid, column, 0, grid.Rows() - 1); };
        grid.Click(2, 2);
        ControlShift('L');
        EXPECT_EQ(L"3 2 4 1 ", seen(0)) << "numbers as numbers";
        EXPECT_EQ((GridPlace{2, 2}), grid.Current());
        EXPECT_TRUE(grid.IsSelected(0)) << "the current row goes with its place";
        Key(VK_DOWN);
        EXPECT_EQ((GridPlace{1, 2}), grid.Current());
        KeyHolding(VK_SHIFT, VK_DOWN);
        Control('C');
        EXPECT_EQ(L"10\r\n200\r\n", TextOnClipboard());
        PasteBlock(L"11\r\n12\r\n");
        EXPECT_EQ(L"9 11 12 256 ", seen(2));
        ControlShift('L');
        EXPECT_EQ(L"256 12 11 9 ", seen(2));
        grid.Click(1, 1);
        EXPECT_EQ((GridPlace{3, 1}), grid.Current());
        ControlShift('L');
        EXPECT_EQ(L"ａ b C OTHER ", seen(1)) << "case and width do not count";
        Key(VK_INSERT);
        EXPECT_EQ(L" ａ b C OTHER ", seen(1));
        grid.Keys(L"新");
        Key(VK_RETURN);
        EXPECT_EQ((GridPlace{4, 1}), grid.Current()) << "the row seen below";
        ControlShift('L');
        ControlShift('L');
        EXPECT_EQ(L"OTHER b C 新 ａ ", seen(1));
        Click(dialog, IDOK);
    });
    EXPECT_TRUE(Has(kLayerFile, "LAYER b = 11\r\nLAYER C = 9\r\nLAYER 新 = 1\r\nLAYER ａ = 12\r\n"))
        << Bytes(kLayerFile);
}

TEST_F(ImportTables, TextsAreFoundAsTheyAreTyped) {
    WriteTable(kLayerFile, "LAYER ＡＢ = 1\nLAYER x = 2\nLAYER ｶﾍﾞab = 3\nLAYER カベ = 4\n");
    Edit(kClasses, false, [&](HWND dialog, const Grid& grid) {
        const auto type = [&](const wchar_t* text) {
            for (; *text; ++text) PostMessageW(FocusWindow(), WM_CHAR, *text, 1);
            Sync();
            return grid.Current();
        };
        const auto height = [&] {
            RECT area{};
            GetWindowRect(grid.List(), &area);
            return area.bottom - area.top;
        };
        const auto before = height();
        grid.Click(0, 1);
        Control('F');
        EXPECT_EQ((GridPlace{1, 1}), type(L"ａ"));
        EXPECT_EQ((GridPlace{1, 1}), type(L"b"));
        Key(VK_F3);
        EXPECT_EQ((GridPlace{3, 1}), grid.Current());
        Key(VK_RETURN);
        EXPECT_EQ((GridPlace{1, 1}), grid.Current());
        EXPECT_EQ(L"端まで探して、反対側から続けました。", Guidance(dialog));
        EXPECT_EQ((GridPlace{1, 1}), type(L"q"));
        ExpectError(dialog, L"見つかりません。");
        Send(FocusWindow(), EM_SETSEL, 0, -1);
        EXPECT_EQ((GridPlace{3, 1}), type(L"カベ"));
        EXPECT_LT(height(), before);
        Key(VK_ESCAPE);  // the bar, and not the dialog
        EXPECT_EQ(dialog, Settle());
        EXPECT_EQ(kGrid, FocusId());
        EXPECT_EQ(before, height());
        Key(VK_F3);
        EXPECT_EQ((GridPlace{4, 1}), grid.Current());
        Key(VK_ESCAPE);
    });
}

TEST_F(ImportTables, NamesOfADrawingGetRows) {
    const std::string path = Write(L"plan.dxf", Drawing(kDimensions,
                                                        "0 LINE/8 壁/0 LINE/8 my Wall/0 LINE/8 my Wall/0 LINE/8 Z/"
                                                        "0 LINE/8 MYWALL/0 LINE/8 A=B/0 LINE/8 \x81/0 LINE/8 " +
                                                            std::string(68, 'x') +
                                                            "/0 LINE/8 z/6 Dashed/0 LINE/8 z/6 NEW/0 LINE/8 z/6 NEW/"
                                                            "0 LINE/8 z/6 LAST/0 TEXT/8 z/7 NOTE/0 TEXT/8 z/7 a,b/"
                                                            "0 DIMENSION/8 z/3 M/0 DIMENSION/8 z/3 D",
                                                        "", "AC1009"))
                                 .generic_string();
    const struct {
        const Editor& editor;
        std::string table;
        std::vector<Cells> added;
        const wchar_t* guidance;
        int grey;  // a row
    } cases[] = {
        {kClasses,
         "LAYER 壁 = 5\nLAYER 古 = 6\n",
         {{L"4", L"Z", L"1"}, {L"5", L"myWall", L"1"}, {L"6", std::wstring(68, L'x'), L"1"}},
         L"plan.dxf：3 行を追加しました。書けない名前 2 件は除きました。灰色の 1 行は図面にありません。",
         2},
        {kLineTypes,
         "LINE-TYPE DASHED = 2,1\n" + Times(254, "LINE-TYPE T%d = 1,1\n"),
         {{L"256", L"CONTINUOUS", L"1", L"1"}},
         L"plan.dxf：1 行を追加しました。表に入らない名前が 2 件あります。灰色の 254 行は図面にありません。",
         1},
        {kFonts,
         "",
         {{L"5", L"NOTE", L"横", L"1.1875", L"0.95", L"0.4", L"0.95", L"0.75"}},
         L"plan.dxf：1 行を追加しました。書けない名前 1 件は除きました。灰色の 4 行は図面にありません。",
         1},
        {kArrows,
         "",
         {{L"5", L"MARK", L"1", L"180", L"3"}},
         L"plan.dxf：1 行を追加しました。灰色の 2 行は図面にありません。",
         2},
    };
    drawing = path;
    for (const auto& of : cases) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(of.editor.caption)));
        WriteTable(of.editor.file, of.table);
        Edit(of.editor, false, [&](HWND dialog, const Grid& grid) {
            const auto opened = AllRows(grid);
            auto more = opened;
            more.insert(more.end(), of.added.begin(), of.added.end());
            Key(VK_F8);
            EXPECT_EQ(of.guidance, Guidance(dialog));
            EXPECT_EQ(more, AllRows(grid));
            EXPECT_EQ((GridPlace{static_cast<int>(opened.size()), 1}), grid.Current());
            Control('Z');
            EXPECT_EQ(opened, AllRows(grid));
            Control('Y');
            Key(VK_F8);
            EXPECT_EQ(0u, Guidance(dialog).find(L"plan.dxf：追加する名前はありません。"));
            EXPECT_EQ(more, AllRows(grid));
            Control(VK_HOME);
            Key(VK_F8);
            EXPECT_TRUE(IsGrey(grid, of.grey));
            Key(VK_RIGHT);
            EXPECT_FALSE(IsGrey(grid, of.grey));
            Click(dialog, IDOK);
        });
    }
}

TEST_F(ImportTables, ADrawingThatIsNotNamedIsAskedFor) {
    Write(L"DXF\\plan.dxf", Drawing("", "0 LINE/8 z/6 NEW"));
    Write(L"DXF\\plan.dwg", "AC1015" + std::string(100, '\0'));
    for (const char* named : {"", "C:/gone/plan.dxf"}) {
        drawing = named;
        Edit(kLineTypes, false, [&](HWND dialog, const Grid& grid) {
            const auto opened = AllRows(grid);
            const auto choose = [&](const wchar_t* name, int button) {
                Key(VK_F8);
                const HWND chooser = Settle();
                SendMessageW(kiro::drive::Control(chooser, kChooserField), WM_SETTEXT, 0,
                             reinterpret_cast<LPARAM>(name));
                Click(chooser, button);
            };
            choose(L"plan.dxf", IDCANCEL);
            choose(L"plan.dwg", IDOK);
            const Box box = ReadBox();
            EXPECT_NE(std::wstring::npos, box.text.find(L"plan.dwg\n\nDWGファイルの読込みには対応していません。"));
            EXPECT_EQ(L"線種割当て", box.caption);
            Answer(box, IDOK);
            EXPECT_EQ(opened, AllRows(grid));
            EXPECT_EQ(kGrid, FocusId());
            choose(L"plan.dxf", IDOK);
            EXPECT_EQ(L"NEW", grid.Cell(static_cast<int>(opened.size()), 1));
            Click(dialog, IDOK);
        });
    }
}
