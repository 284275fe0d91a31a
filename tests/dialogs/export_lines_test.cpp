// The line table of the export: its hub and its editors, each opened as its parent opens it. How their windows look is
// in the golden text.
#include "dxfout_tables/KrDxfOutTbl_LStyle.h"
#include "dxfout_tables/KrDxfOutTbl_LStyle2.h"
#include "dxfout_tables/KrDxfOutTbl_LWidth.h"
#include "dxfout_tables/KrDxfOutTbl_Line.h"
#include "resources/dxfout_tables/KrDxfOutTbl_LStyle.ids.h"
#include "resources/dxfout_tables/KrDxfOutTbl_LStyle2.ids.h"
#include "resources/dxfout_tables/KrDxfOutTbl_Line.ids.h"
#include "tests/dialogs/ImportTables.h"

using namespace kiro::drive;

namespace {

constexpr wchar_t kFile[] = L"KIRODXF_LINE";
constexpr wchar_t kCaption[] = L"線種・線幅割当て";
constexpr char kPatterns[] =
    "LINE-FONT1 1=CONTINUOUS\nLINE-FONT1 "
    "2=DASHED\nPITCH-DASHED=2,-1\nPITCH-ODD=3\nPITCH-DOT=5,-1,0,-1\nPITCH-表=1,-1\nCOMMENT-CONTINUOUS=実線\n"
    "COMMENT-DASHED=a\nCOMMENT-ODD=b\nCOMMENT-DOT=c\nCOMMENT-表=d\n";

class ExportLines : public ImportTables {
  protected:
    void ReadTable(const std::string& file) {
        WriteTable(kFile, file);
        KrDxfOutTbl_IO(owner).ReadLineTable(table.get());
    }
    // Another way would be to go through the windows; what a valid "設定" gives back is in the table afterwards.
    template <class Editor, class Parent>
    INT_PTR EditOver(Parent& parent, const std::function<void(HWND, const Grid&, const Grid&)>& user) {
        Editor editor;
        editor.SetInfo(&parent);
        return Play(editor, [&](HWND dialog) {
            const bool second = GetDlgItem(dialog, kPitchGrid) != nullptr;
            user(dialog, Grid(dialog, kGrid), Grid(dialog, second ? kPitchGrid : kGrid));
            if (Settle()) Click(Settle(), IDCANCEL);
        });
    }
    template <class Editor>
    INT_PTR Edit(const std::function<void(HWND, const Grid&, const Grid&)>& user) {
        KrDxfOutTbl_Line hub;
        hub.SetTable(table.get());
        const INT_PTR result = EditOver<Editor>(hub, user);
        hub.GetTable(table.get());
        return result;
    }
    INT_PTR EditPatterns(const std::function<void(HWND, const Grid&, const Grid&)>& user) {
        KrDxfOutTbl_Line hub;
        hub.SetTable(table.get());
        KrDxfOutTbl_LStyle lineTypes;
        lineTypes.SetInfo(&hub);
        const INT_PTR result = EditOver<KrDxfOutTbl_LStyle2>(lineTypes, user);
        lineTypes.GetTable(table.get());
        return result;
    }
    static void ExpectRefused(HWND dialog, const Grid& grid, const wchar_t* caption, GridPlace cell,
                              const std::wstring& message) {
        Click(dialog, IDOK);
        Expect(caption, L"設定内容に誤りがあります。", MB_ICONERROR, IDOK);
        ASSERT_EQ(dialog, Settle()) << testing::PrintToString(message);
        EXPECT_EQ(cell, grid.Current());
        EXPECT_EQ(grid.List(), FocusWindow());
        EXPECT_TRUE(IsMarked(grid, cell));
        ExpectError(dialog, message);
    }
    // Of a pattern, as text.
    std::string PatternText(int i) const {
        const auto& pattern = table->patterns[i];
        std::string text = pattern.patternName + std::string(":") + pattern.patternComment;
        for (int pitch = 0; pitch < pattern.pitchCount; ++pitch)
            text += " " + std::to_string(pattern.pitch[pitch]).substr(0, 3);
        return text;
    }

    std::unique_ptr<DxfOutLineTable> table = std::make_unique<DxfOutLineTable>();
};

}  // namespace

// What the hub writes and what it asks; a change of the method alone is none.
TEST_F(ExportLines, OnlyTheHubWritesTheFile) {
    const struct {
        bool edits;
        int button;
        const wchar_t* question;
        int answer;
        INT_PTR result;
    } cases[] = {{false, IDCANCEL, nullptr, 0, IDCANCEL},
                 {true, IDCANCEL, L"テーブルが変更されています。\n変更内容を保存しますか？", IDNO, IDCANCEL},
                 {true, IDCANCEL, L"テーブルが変更されています。\n変更内容を保存しますか？", IDYES, IDCANCEL},
                 {false, IDOK, L"設定内容を保存しますか？", IDNO, IDOK},
                 {false, IDOK, L"設定内容を保存しますか？", IDYES, IDOK}};
    for (const auto& end : cases) {
        WriteTable(kFile, "WIDTH-TYPE 1\n");
        KrDxfOutTbl_Line hub;
        const INT_PTR result = Play(hub, [&](HWND dialog) {
            ExpectEnabled(dialog, {{kFontLineTypesButton, true}, {kWeightLineWidthsButton, true}});
            if (end.edits) {
                Click(dialog, kWeightLineWidthsButton);
                Click(Settle(), IDOK);
            }
            Click(dialog, kToPolylinesRadio);
            ExpectEnabled(dialog, {{kFontLineTypesButton, true}, {kWeightLineWidthsButton, false}});
            Click(dialog, end.button);
            if (end.question) Expect(kCaption, end.question, MB_ICONQUESTION, end.answer);
        });
        EXPECT_EQ(end.result, result);
        EXPECT_EQ(end.answer == IDYES, Has(kFile, "WIDTH-TYPE  0\r\n")) << Bytes(kFile);
        EXPECT_EQ(end.answer != IDYES, Bytes(kFile) == "WIDTH-TYPE 1\n");
    }
}

TEST_F(ExportLines, LineTypesAndWeightsAreCheckedInOnePass) {
    ReadTable("LINE-FONT1 1=CONTINUOUS\nLINE-FONT1 3=\nLINE-FONT2 2=0.123456789,256\nLINE-FONT2 16=1000,-1\n");
    EXPECT_EQ(15, table->fontCount);
    const INT_PTR result = Edit<KrDxfOutTbl_LStyle>([&](HWND dialog, const Grid& fonts, const Grid& weights) {
        fonts.Click(1, 1);
        ExpectError(dialog, L"無効な色番号です  2");
        EXPECT_TRUE(IsMarked(fonts, {2, 1}) && IsMarked(weights, {1, 1}));
        ExpectRefused(dialog, fonts, L"線幅の割当て", {2, 1}, L"線種名が入力されていません");
        fonts.Choose(0);
        const struct {
            int row;
            int column;
            const wchar_t* text;
            const wchar_t* message;  // null: taken
        } entries[] = {{1, 1, L"255", nullptr},
                       {15, 1, L"-1", L"無効な色番号です  16"},
                       {15, 1, L"1.5", L"無効な色番号です  16"},
                       {15, 1, L"0", L"無効な線幅です  16"},  // of 1000, which the file has
                       {15, 2, L"999.1", L"無効な線幅です  16"},
                       {15, 2, L"999", nullptr}};
        for (const auto& entry : entries) {
            Change(weights, entry.row, entry.column, entry.text);
            if (entry.message && entry.column == 2)
                ExpectRefused(dialog, weights, L"線幅の割当て", {entry.row, entry.column}, entry.message);
            weights.Click(0, 0);
            EXPECT_EQ(entry.message ? entry.message : entry.row == 1 ? L"無効な色番号です  16" : L"", Guidance(dialog));
        }
        Click(dialog, IDOK);
    });
    EXPECT_EQ(IDOK, result);
    EXPECT_EQ(63, table->fontCount);
    EXPECT_STREQ("CONTINUOUS", table->fontLineType[2]);
    EXPECT_EQ(1, table->fontPattern[62]) << "beyond the fonts that a file gives patterns to";
    EXPECT_EQ("255 0.123457 0 999", Formatted("%d %g %d %g", table->weightColor[1], table->weightWidth[1],
                                              table->weightColor[15], table->weightWidth[15]));
}

// Of widths that are not shown nothing is checked or changed.
TEST_F(ExportLines, HiddenWeightsStay) {
    ReadTable("WIDTH-TYPE 1\nLINE-FONT2 2=1000,256\n");
    EXPECT_EQ(IDOK, Edit<KrDxfOutTbl_LStyle>([&](HWND dialog, const Grid&, const Grid&) {
                  EXPECT_FALSE(IsShown(dialog, kWeightGrid));
                  Click(dialog, IDOK);
              }));
    EXPECT_EQ("256 1000", Formatted("%d %g", table->weightColor[1], table->weightWidth[1]));
}

TEST_F(ExportLines, PatternsAreCustomizedForWhatTheGridsHold) {
    ReadTable(kPatterns);
    for (const int end : {IDCANCEL, IDOK}) {
        Edit<KrDxfOutTbl_LStyle>([&](HWND dialog, const Grid& fonts, const Grid& weights) {
            fonts.Click(62, 1);
            fonts.Choose(4);
            EXPECT_EQ(L"表", fonts.Cell(62, 1));
            Change(weights, 0, 1, L"abc");
            Click(dialog, kCustomizeButton);
            const HWND customizer = Settle();
            const Grid patterns(customizer, kGrid);
            // Under another name its fonts still want it, until there is another one of that name.
            for (const wchar_t* name : {L"表", L"新線種"}) {
                Change(patterns, 4, 1, name);
                Key(VK_APPS);
                PickMenu(kDelete);
                Expect(L"線種のカスタマイズ", L"使用されています。削除できません。", MB_ICONERROR, IDOK);
                ASSERT_EQ(customizer, Settle());
                EXPECT_EQ(kGrid, FocusId());
            }
            Change(patterns, 3, 1, L"表");
            Command(kDelete);
            EXPECT_EQ(4, patterns.Rows());
            patterns.Click(2, 0);
            Command(kDelete);
            patterns.Click(0, 0);
            Click(customizer, end);
            ASSERT_EQ(dialog, Settle());
            EXPECT_EQ(L"abc", weights.Cell(0, 1)) << "nothing typed vanishes";
            fonts.Click(62, 1);
            fonts.Drop();
            EXPECT_EQ(end == IDOK ? 3 : 5, fonts.Choices());
            Key(VK_ESCAPE);
            Key(VK_ESCAPE);
            Change(weights, 0, 1, L"7");
            Click(dialog, IDOK);
        });
        EXPECT_EQ(end == IDOK ? 3 : 5, table->patternCount);
        EXPECT_STREQ("表", table->fontLineType[62]);
        EXPECT_EQ(end == IDOK ? 3 : 5, table->fontPattern[62]);
        EXPECT_STREQ("", table->patterns[end == IDOK ? 3 : 5].patternName);
    }
}

TEST_F(ExportLines, PatternsAreChecked) {
    ReadTable(kPatterns + ("PITCH-" + std::string(67, 'x') + "=1\nCOMMENT-CONTINUOUS=c\n") +
              "COMMENT-X=" + std::string(115, 'c') + "\n");
    EXPECT_EQ(IDCANCEL, EditPatterns([&](HWND dialog, const Grid& patterns, const Grid& pitches) {
                  const wchar_t* const caption = L"線種のカスタマイズ";
                  const auto refused = [&](GridPlace cell, const std::wstring& message, const wchar_t* text) {
                      ExpectRefused(dialog, patterns, caption, cell, message);
                      patterns.Write(text);
                  };
                  refused({5, 1}, L"線種名が長すぎます（半角66文字以内） 6 : " + std::wstring(67, L'x'), L"y");
                  refused({5, 2}, L"注釈が入力されていません。 6", L"e");  // its pitches have emptied it
                  refused({6, 2}, L"注釈が長すぎます（線種名と合わせて半角115文字以内） 7 : " + std::wstring(115, L'c'),
                          L"表");
                  const struct {
                      GridPlace cell;
                      const wchar_t* text;
                      const wchar_t* message;
                      const wchar_t* right;
                      GridPlace marked = cell;
                  } entries[] = {{{1, 1}, L"", L"線種名が入力されていません。 2", L"A"},
                                 {{4, 1}, L"A", L"線種名が重複しています。 2 - 5", L"B", {1, 1}},
                                 {{4, 1}, L"a b", L"線種名に空白と「,」「=」は使えません 5 : a b", L"ソ"},
                                 {{4, 1}, L"a,b", L"線種名に空白と「,」「=」は使えません 5 : a,b", L"能"},
                                 {{4, 2}, L"", L"注釈が入力されていません。 5", L"a = b , c"}};
                  for (const auto& entry : entries) {
                      Change(patterns, entry.cell.row, entry.cell.column, entry.text);
                      ExpectRefused(dialog, patterns, caption, entry.marked, entry.message);
                      Change(patterns, entry.cell.row, entry.cell.column,
                             entry.marked == entry.cell ? entry.right : L"B");
                  }
                  patterns.Click(1, 0);
                  const struct {
                      int pair;
                      int column;
                      const wchar_t* text;
                      const wchar_t* message;  // null: taken
                      int marked = column;
                  } values[] = {{1, 2, L"1", L"描画ピッチが入力されていません。 2", 1},
                                {1, 1, L"0.09", L"無効な描画ピッチです。 2"},
                                {1, 1, L"999.1", L"無効な描画ピッチです。 2"},
                                {1, 1, L"999", nullptr},
                                {0, 2, L"", L"空白ピッチが入力されていません。 1"},
                                {0, 2, L"x", L"無効な空白ピッチです。 1"},
                                {0, 2, L"0.1", nullptr}};
                  for (const auto& value : values) {
                      Change(pitches, value.pair, value.column, value.text);
                      pitches.Click(7, 0);
                      EXPECT_EQ(value.message ? value.message : L"", Guidance(dialog));
                      if (value.message)
                          ExpectRefused(dialog, pitches, caption, {value.pair, value.marked}, value.message);
                  }
                  for (int i = 0; i < 16; ++i) Change(pitches, i / 2, 1 + i % 2, L"123.45");
                  refused({1, 1}, L"描画長さと空白長さの桁数が多すぎて、ファイルに書けません 2 : A", L"A");
              }));
}

TEST_F(ExportLines, PitchesBelongToTheirPattern) {
    std::string pitches = "9";
    for (int i = 1; i < 18; ++i) pitches += ",1";
    ReadTable(kPatterns + ("PITCH-L=" + pitches + "\nCOMMENT-L=l\n"));
    const std::string before[] = {PatternText(2), PatternText(3), PatternText(5)};
    EXPECT_EQ(IDOK, EditPatterns([&](HWND dialog, const Grid& patterns, const Grid& pairs) {
                  EXPECT_FALSE(IsEnabled(dialog, kPitchGrid));
                  EXPECT_EQ(-1, patterns.Current().row);
                  Key(VK_DOWN);  // the first key makes a row current
                  EXPECT_TRUE(IsEnabled(dialog, kPitchGrid));
                  patterns.Click(1, 0);
                  EXPECT_EQ((Cells{L"1", L"2", L"1"}), Row(pairs, 0));
                  EXPECT_EQ((Cells{L"2", L"", L""}), Row(pairs, 1));
                  // A text that is refused keeps its pattern; one that is taken goes with it.
                  pairs.Click(1, 1);
                  pairs.Keys(L"4");
                  pairs.SetText(L"\xE9");
                  patterns.Click(4, 0);
                  EXPECT_EQ(1, patterns.Current().row);
                  pairs.SetText(L"4");
                  patterns.Click(4, 0);
                  EXPECT_EQ((Cells{L"2", L"", L""}), Row(pairs, 1));
                  ExpectError(dialog, L"空白ピッチが入力されていません。 2 : DASHED");
                  ExpectRefused(dialog, pairs, L"線種のカスタマイズ", {1, 2}, L"空白ピッチが入力されていません。 2");
                  pairs.Write(L"0.5");
                  // Unusual ones only bother who comes to see them.
                  patterns.Click(2, 0);
                  ExpectError(dialog, L"空白ピッチが入力されていません。 1");
                  patterns.Click(3, 0);
                  ExpectError(dialog, L"無効な描画ピッチです。 2");
                  patterns.Click(5, 0);
                  EXPECT_FALSE(IsGuidanceError(dialog));
                  Command(kInsert);
                  EXPECT_EQ((Cells{L"1", L"", L""}), Row(pairs, 0)) << "a new row has a pattern of its own";
                  Command(kDelete);
                  EXPECT_EQ((Cells{L"1", L"9", L"1"}), Row(pairs, 0));
                  patterns.Click(0, 0);
                  for (int i = 0; i < 4; ++i) Change(pairs, i / 2, 1 + i % 2, L"0.25");
                  Change(pairs, 3, 1, L"5");  // behind the row that ends the pattern
                  Click(dialog, IDOK);
              }));
    EXPECT_EQ("CONTINUOUS:実線 0.2 0.2 0.2 0.2", PatternText(1 - 1));
    EXPECT_EQ("DASHED:a 2.0 1.0 4.0 0.5", PatternText(1));
    EXPECT_EQ(before[0], PatternText(2));
    EXPECT_EQ(before[1], PatternText(3));
    EXPECT_EQ(before[2], PatternText(5)) << "more than the grid has room for";
    for (const wchar_t* text : {L"8", L""}) {
        EditPatterns([&](HWND dialog, const Grid& patterns, const Grid& pairs) {
            patterns.Click(5, 0);
            for (const int column : {1, 2}) Change(pairs, 7, column, text);
            Click(dialog, IDOK);
        });
        EXPECT_EQ(*text ? 18 : 14, table->patterns[5].pitchCount) << "it goes only with the rows before it";
    }
    EXPECT_EQ(0.0, table->patterns[5].pitch[14]);
}

TEST_F(ExportLines, LineWidthsAreThoseOfDxf) {
    ReadTable("");
    const std::pair<int, bool> widths[] = {{0, true}, {30, true}, {31, false}, {106, true}, {211, true}, {212, false}};
    table->lineWidth[0] = 77;
    for (const auto& [hundredths, standard] : widths) {
        table->lineWidth[16] = hundredths;
        EXPECT_EQ(IDOK, Edit<KrDxfOutTbl_LWidth>([&, good = standard](HWND dialog, const Grid& grid, const Grid&) {
                      if (!good) {
                          ExpectRefused(dialog, grid, L"線幅の割当て", {15, 1}, L"無効な線幅です  16");
                          grid.Choose(9);
                      }
                      Click(dialog, IDOK);
                  }));
        EXPECT_EQ(standard ? hundredths : 35, table->lineWidth[16]);
    }
    EXPECT_EQ(77, table->lineWidth[0]);
}
