// The line table of the export: its hub and its editors, each opened as its parent opens it. How their windows look is
// in the golden text.
#include "dxfout_tables/KrDxfOutTbl_LStyle.h"
#include "dxfout_tables/KrDxfOutTbl_LStyle2.h"
#include "dxfout_tables/KrDxfOutTbl_LWidth.h"
#include "dxfout_tables/KrDxfOutTbl_Line.h"
#include "resources/dxfout_tables/KrDxfOutTbl_LStyle.ids.h"
#include "resources/dxfout_tables/KrDxfOutTbl_Line.ids.h"
#include "tests/dialogs/ImportTables.h"

using namespace kiro::drive;

namespace {

constexpr wchar_t kFile[] = L"KIRODXF_LINE";
constexpr wchar_t kCustomizing[] = L"線種のカスタマイズ";
constexpr char kPatterns[] =
    "LINE-FONT1 1=CONTINUOUS\nLINE-FONT1 "
    "2=DASHED\nPITCH-DASHED=2,-1\nPITCH-ODD=3\nPITCH-DOT=5,-1,0,-1\nCOMMENT-DASHED=a\n"
    "COMMENT-ODD=b\nCOMMENT-DOT=c\nPITCH-表=9,1,1,1,1,1,1,1,1,1,1,1,1,1,1,1,7,8\nCOMMENT-表=d\n";

class ExportLines : public ImportTables {
  protected:
    using User = std::function<void(const Grid& grid, const Grid& second)>;

    void ReadTable(const std::string& file) {
        WriteTable(kFile, file);
        KrDxfOutTbl_IO(owner).ReadLineTable(table.get());
    }
    // What a valid "設定" gives back is in the table afterwards.
    template <class Editor, class Parent = KrDxfOutTbl_Line>
    void Edit(const User& user) {
        Parent parent;
        parent.SetTable(table.get());
        Editor editor;
        editor.SetInfo(&parent);
        Play(editor, [&](HWND window) {
            dialog = window;
            user(Grid(dialog, kGrid), Grid(dialog, GetDlgItem(dialog, kWeightGrid) ? kWeightGrid : kGrid));
        });
        parent.GetTable(table.get());
    }
    void EditPatterns(const User& user) { Edit<KrDxfOutTbl_LStyle2, KrDxfOutTbl_LStyle>(user); }
    std::string Pitches(int i) const { return table->patterns[i].patternName + DxfOutPitchText(table->patterns[i]); }

    std::unique_ptr<DxfOutLineTable> table = std::make_unique<DxfOutLineTable>();
    HWND dialog = nullptr;
};

TEST_F(ExportLines, OnlyTheHubWritesTheFile) {
    const struct {
        bool edits;
        int button;
        const wchar_t* question;
        int answer;
    } cases[] = {{false, IDCANCEL, nullptr, 0},  // another method is no change
                 {true, IDCANCEL, L"テーブルが変更されています。\n変更内容を保存しますか？", IDYES},
                 {false, IDOK, L"設定内容を保存しますか？", IDNO}};
    for (const auto& end : cases) {
        WriteTable(kFile, "WIDTH-TYPE 1\n");
        KrDxfOutTbl_Line hub;
        const INT_PTR result = Play(hub, [&](HWND window) {
            if (end.edits) {
                Click(window, kWeightLineWidthsButton);
                Click(Settle(), IDOK);
            }
            Click(window, kToPolylinesRadio);
            EXPECT_FALSE(IsEnabled(window, kWeightLineWidthsButton));
            Click(window, end.button);
            if (end.question) Expect(L"線種・線幅割当て", end.question, MB_ICONQUESTION, end.answer);
        });
        EXPECT_EQ(end.button, result);
        EXPECT_EQ(end.answer == IDYES, Has(kFile, "WIDTH-TYPE  0\r\n")) << Bytes(kFile);
    }
}

TEST_F(ExportLines, LineTypesAndWeightsAreCheckedInOnePass) {
    ReadTable("LINE-FONT1 1=CONTINUOUS\nLINE-FONT1 3=\nLINE-FONT2 2=0.123456789,256\nLINE-FONT2 16=1000,-1\n");
    Edit<KrDxfOutTbl_LStyle>([&](const Grid& fonts, const Grid& weights) {
        fonts.Click(1, 1);
        ExpectError(dialog, L"無効な色番号です  2");
        EXPECT_TRUE(IsMarked(fonts, {2, 1}) && IsMarked(weights, {1, 1}));
        ExpectRefusal(L"線幅の割当て", dialog, fonts, {2, 1}, L"線種名が入力されていません");
        fonts.Choose(0);
        Change(weights, 1, 1, L"255");
        ExpectRefusal(L"線幅の割当て", dialog, weights, {15, 1}, L"無効な色番号です  16");
        weights.Write(L"0");
        ExpectRefusal(L"線幅の割当て", dialog, weights, {15, 2}, L"無効な線幅です  16");
        weights.Write(L"999");
        Click(dialog, IDOK);
    });
    EXPECT_STREQ("CONTINUOUS", table->fontLineType[2]);
    EXPECT_EQ("1 63", Formatted("%d %d", table->fontPattern[62], table->fontCount));
    EXPECT_EQ("255 0.123457 999",
              Formatted("%d %g %g", table->weightColor[1], table->weightWidth[1], table->weightWidth[15]));
    // Of weights that are not shown nothing is checked or changed.
    table->widthType = 1;
    table->weightColor[1] = 256;
    table->weightWidth[1] = 1 / 3.0;
    const auto before = std::make_unique<DxfOutLineTable>(*table);
    Edit<KrDxfOutTbl_LStyle>([&](const Grid&, const Grid&) {
        EXPECT_FALSE(IsShown(dialog, kWeightGrid));
        Click(dialog, IDOK);
    });
    EXPECT_TRUE(*before == *table);
}

TEST_F(ExportLines, PatternsAreCustomizedForWhatTheGridsHold) {
    ReadTable(kPatterns);
    for (const int end : {IDCANCEL, IDOK}) {
        Edit<KrDxfOutTbl_LStyle>([&](const Grid& fonts, const Grid& weights) {
            fonts.Click(62, 1);
            fonts.Choose(4);
            Change(weights, 0, 1, L"abc");
            Click(dialog, kCustomizeButton);
            const HWND customizer = Settle();
            const Grid patterns(customizer, kGrid);
            // Under another name its fonts still want it, until there is another one of that name.
            for (const wchar_t* name : {L"表", L"新線種"}) {
                Change(patterns, 4, 1, name);
                Key(VK_APPS);
                PickMenu(kDelete);
                Expect(kCustomizing, L"使用されています。削除できません。", MB_ICONERROR, IDOK);
                ASSERT_EQ(customizer, Settle());
            }
            Change(patterns, 2, 1, L"表");
            patterns.Click(4, 0);
            Command(kDelete);
            patterns.Click(0, 0);
            Click(customizer, end);
            ASSERT_EQ(dialog, Settle());
            EXPECT_EQ(L"abc", weights.Cell(0, 1)) << "nothing typed vanishes";
            fonts.Click(62, 1);
            fonts.Choose(2);
            Change(weights, 0, 1, L"7");
            Click(dialog, IDOK);
        });
        EXPECT_STREQ(end == IDOK ? "表" : "ODD", table->fontLineType[62]);
    }
    EXPECT_STREQ("", table->patterns[4].patternName);
}

TEST_F(ExportLines, PatternsAreChecked) {
    ReadTable(kPatterns + ("PITCH-" + std::string(67, 'x') + "=1\n"));
    const std::wstring tooLong(80, L'注');
    const struct {
        bool inPitches;
        GridPlace cell;
        std::wstring text, message;
        GridPlace marked = cell;
    } entries[] = {{false, {5, 1}, L"A=b", L"線種名に空白と「,」「=」は使えません 6 : A=b"},
                   {false, {5, 1}, L"DOT", L"線種名が重複しています。 4 - 6", {3, 1}},
                   {false, {5, 1}, L"", L"線種名が入力されていません。 6"},
                   {false, {5, 1}, L"能", L"注釈が入力されていません。 6", {5, 2}},  // its pitches have emptied it
                   {false, {5, 2}, tooLong, L"注釈が長すぎます（線種名と合わせて半角115文字以内） 6 : " + tooLong},
                   {true, {5, 2}, L"a = b, c", L"空白ピッチが入力されていません。 1", {0, 2}},
                   {true, {0, 2}, L"0.09", L"無効な空白ピッチです。 1"},
                   {true, {0, 2}, L"999.1", L"無効な空白ピッチです。 1"},
                   {true, {1, 2}, L"1", L"無効な空白ピッチです。 1", {0, 2}},
                   {true, {0, 2}, L"999", L"描画ピッチが入力されていません。 2", {1, 1}}};
    EditPatterns([&](const Grid& patterns, const Grid& pitches) {
        ExpectRefusal(kCustomizing, dialog, patterns, {5, 1},
                      L"線種名が長すぎます（半角66文字以内） 6 : " + std::wstring(67, L'x'));
        for (const auto& entry : entries) {
            Change(entry.cell.row == 5 ? patterns : pitches, entry.cell.row, entry.cell.column, entry.text);
            ExpectRefusal(kCustomizing, dialog, entry.inPitches ? pitches : patterns, entry.marked, entry.message);
        }
        for (int i = 0; i < 16; ++i) Change(pitches, i / 2, 1 + i % 2, L"123.45");
        ExpectRefusal(kCustomizing, dialog, patterns, {5, 1},
                      L"描画長さと空白長さの桁数が多すぎて、ファイルに書けません 6 : 能");
    });
}

TEST_F(ExportLines, PitchesBelongToTheirPattern) {
    ReadTable(kPatterns);
    EditPatterns([&](const Grid& patterns, const Grid& pairs) {
        EXPECT_FALSE(IsEnabled(dialog, kWeightGrid));
        Key(VK_DOWN);  // the first key makes a row current
        EXPECT_TRUE(IsEnabled(dialog, kWeightGrid));
        patterns.Click(1, 0);
        // A text that is refused keeps its pattern; one that is taken goes with it.
        pairs.Click(1, 1);
        pairs.Keys(L"4");
        pairs.SetText(L"\xE9");
        patterns.Click(4, 0);
        EXPECT_EQ(1, patterns.Current().row);
        pairs.SetText(L"4");
        patterns.Click(4, 0);
        EXPECT_EQ((Cells{L"1", L"9", L"1"}), Row(pairs, 0));
        ExpectError(dialog, L"空白ピッチが入力されていません。 2 : DASHED");
        ExpectRefusal(kCustomizing, dialog, pairs, {1, 2}, L"空白ピッチが入力されていません。 2");
        pairs.Write(L"0.5");
        patterns.Click(4, 0);
        EXPECT_FALSE(IsGuidanceError(dialog));
        Command(kInsert);
        EXPECT_EQ((Cells{L"1", L"", L""}), Row(pairs, 0));
        Command(kDelete);
        patterns.Click(0, 0);
        Change(pairs, 0, 1, L"6");
        Change(pairs, 0, 2, L"7");
        Change(pairs, 2, 1, L"8");  // behind the row that ends the pattern
        Click(dialog, IDOK);
    });
    EXPECT_EQ("CONTINUOUS 6, -7", Pitches(0));
    EXPECT_EQ("DASHED 2, -1, 4, -0.5", Pitches(1));
    // Unusual ones only bother who comes to see them; those that are too many stay as long as all rows are filled.
    EXPECT_EQ("ODD 3", Pitches(2));
    EXPECT_EQ("DOT 5, -1, 0, -1", Pitches(3));
    const std::string shown = "表 9, -1, 1, -1, 1, -1, 1, -1, 1, -1, 1, -1, 1, -1";
    EXPECT_EQ(shown + ", 1, -1, 7, -8", Pitches(4));
    for (const auto& [text, left] : {std::pair(L"5", ", 5, -5, 7, -8"), std::pair(L"", "")}) {
        EditPatterns([&, typed = text](const Grid& patterns, const Grid& pairs) {
            patterns.Click(4, 0);
            for (const int column : {1, 2}) Change(pairs, 7, column, typed);
            Click(dialog, IDOK);
        });
        EXPECT_EQ(shown + left, Pitches(4));
    }
}

TEST_F(ExportLines, LineWidthsAreThoseOfDxf) {
    ReadTable("LINE-WIDTH 0 = 7.77\n");
    const std::pair<int, bool> widths[] = {{30, true}, {31, false}, {211, true}, {212, false}};
    for (const auto& [hundredths, standard] : widths) {
        table->lineWidth[16] = hundredths;
        Edit<KrDxfOutTbl_LWidth>([&, good = standard](const Grid& grid, const Grid&) {
            if (!good) {
                ExpectRefusal(L"線幅の割当て", dialog, grid, {15, 1}, L"無効な線幅です  16");
                grid.Choose(9);
            }
            Click(dialog, IDOK);
        });
        EXPECT_EQ(standard ? hundredths : 35, table->lineWidth[16]);
    }
    EXPECT_EQ(777, table->lineWidth[0]);
}

}  // namespace
