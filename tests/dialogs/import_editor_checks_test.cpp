// What the editors of the import tables offer, take and refuse.
#include "tests/dialogs/ImportEditors.h"

using namespace kiro::drive;

namespace {

struct Column {
    const wchar_t* title;
    double share;
    int typed = 0;  // characters; 0: cannot be typed into
    const wchar_t* typedPrompt = L"";
    int choices = 0;
    const wchar_t* first = L"";
    const wchar_t* last = L"";
    const wchar_t* choicePrompt = L"";
};
struct Layout {
    const Editor& editor;
    int rows;
    int row;                          // one that can be edited
    std::vector<std::wstring> start;  // its cells
    std::vector<Column> columns;
    const char* file = "";
};

const Column kWeightColumn = {L"線幅", 3, 4, L"線幅を入力して下さい。", 16, L"1", L"16", L"線幅を選択して下さい。"};
const std::vector<Column> kFontColumns = {{L"番号", 0.65},
                                          {L"書体名", 1.5, 20},
                                          {L"横／縦", 0.84, 0, L"", 2, L"横", L"縦", L"横／縦を選択してください。"},
                                          {L"幅係数(漢字)", 1.5, 10, L"文字幅係数（漢字）を入力して下さい。"},
                                          {L"幅係数(英数)", 1.5, 10, L"文字幅係数（英数）を入力して下さい。"},
                                          {L"行間隔", 0.9, 10, L"行間隔係数を入力して下さい。"},
                                          {L"描画係数(漢字)", 1.7, 10, L"文字描画係数（漢字）を入力して下さい。"},
                                          {L"描画係数(英数)", 1.7, 10, L"文字描画係数（英数）を入力して下さい。"}};

const Layout kLayouts[] = {
    {kClassEditor,
     2,
     1,
     {L"2", L"壁", L"5"},
     {{L"番号", 1},
      {L"レイヤ名", 6, 24, L"レイヤ名を入力してください"},
      {L"クラス番号", 3, 4, L"クラス番号を入力してください", 256, L"1", L"256", L"クラス番号を選択してください"}},
     "LAYER 壁 = 5\n"},
    {kRevisionEditor,
     2,
     1,
     {L"2", L"壁", L"5"},
     {{L"番号", 1},
      {L"レイヤ名", 6, 24, L"レイヤ名を入力してください"},
      {L"レビジョン番号", 3, 4, L"レビジョン番号を入力してください", 256, L"1", L"256",
       L"レビジョン番号を選択してください"}},
     "LAYER-REVISION 壁 = 5\n"},
    {kColorRevisionEditor,
     255,
     254,
     {L"255", L"255"},
     {{L"色", 5},
      {L"レビジョン番号", 5, 4, L"レビジョン番号を入力してください", 256, L"1", L"256",
       L"レビジョン番号を選択してください"}}},
    {kColorClassEditor,
     255,
     254,
     {L"255", L"255"},
     {{L"色", 5},
      {L"クラス番号", 5, 4, L"クラス番号を入力してください", 256, L"1", L"256", L"クラス番号を選択してください"}}},
    {kLineTypeEditor,
     4,
     1,
     {L"2", L"DASHED", L"2", L"1"},
     {{L"番号", 1.5},
      {L"線種名", 5.5, 20, L"線種名を入力してください"},
      {L"線種", 1.5, 4, L"線種を入力してください", 63, L"1", L"63", L"線種を選択してください"},
      {L"線幅", 1.5, 4, L"線幅を入力してください", 16, L"1", L"16", L"線幅を選択してください"}}},
    {kPolylineEditor,
     2,
     0,
     {L"1", L"0", L"1"},
     {{L"番号", 3}, {L"線幅", 4, 10, L"ポリラインの線幅を入力して下さい。"}, kWeightColumn}},
    {kColorWidthEditor, 255, 254, {L"255", L"1"}, {{L"色番号", 3}, kWeightColumn}},
    {kLineWidthEditor, 24, 23, {L"24", L"2.11", L"1"}, {{L"番号", 3}, {L"線幅", 4}, kWeightColumn}},
    {kFontEditor,
     5,
     4,
     {L"5", L"図面", L"縦", L"1.1875", L"1", L"0.4", L"0.95", L"0.75"},
     kFontColumns,
     "STYLE=図面,1.1875,2,1,0.2,1.4,1,1,0.95,0.75\n"},
    {kArrowEditor,
     5,
     4,
     {L"5", L"記号", L"7", L"180", L"2.5"},
     {{L"番号", 1},
      {L"矢印名（複合図形名）", 5, 20, L"矢印名（複合図形名を入力して下さい。", 20, L"_CLOSEDFILLED", L"_NONE",
       L"矢印名を選択してください"},
      {L"マーク番号", 1.5, 4, L"マーク番号を入力して下さい。"},
      {L"角度", 1, 0, L"", 2, L"0", L"180", L"角度を選択してください"},
      {L"サイズ", 1.5, 10, L"サイズを入力して下さい。"}},
     "ARROW 記号=7,180,250\n"},
};

std::wstring Title(const Grid& grid, int column) {
    wchar_t text[64] = L"";
    LVCOLUMNW header{};
    header.mask = LVCF_TEXT;
    header.pszText = text;
    header.cchTextMax = 64;
    Send(grid.List(), LVM_GETCOLUMNW, static_cast<WPARAM>(column), reinterpret_cast<LPARAM>(&header));
    return text;
}

std::wstring Choice(const Grid& grid, int index) {
    wchar_t text[64] = L"";
    if (Send(grid.Editor(), CB_GETLBTEXTLEN, static_cast<WPARAM>(index)) < 64)
        Send(grid.Editor(), CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text));
    return text;
}

// Opens the cell in each way that its column has, and leaves it as it was.
void ExpectEditing(HWND dialog, const Grid& grid, int row, int index, const Column& column) {
    grid.Click(row, index);
    const std::wstring before = grid.Cell(row, index);
    Key(VK_F2);
    ASSERT_EQ(column.typed > 0 || column.choices > 0, grid.IsOpen());
    if (column.typed) {
        EXPECT_EQ(column.typedPrompt, Guidance(dialog));
        const auto limit = static_cast<std::size_t>(column.typed);
        grid.Paste(std::wstring(limit + 1, L'1'));
        EXPECT_TRUE(IsGuidanceError(dialog)) << "too long";
        EXPECT_EQ(before, grid.Typed());
        grid.Paste(std::wstring(limit, L'1'));
        EXPECT_EQ(std::wstring(limit, L'1'), grid.Typed());
        grid.Keys(L"2");
        EXPECT_EQ(std::wstring(limit, L'1'), grid.Typed());
    }
    if (column.choices) {
        if (!grid.IsDropped()) grid.Drop();
        EXPECT_EQ(column.choicePrompt, Guidance(dialog));
        ASSERT_EQ(column.choices, grid.Choices());
        EXPECT_EQ(column.first, Choice(grid, 0));
        EXPECT_EQ(column.last, Choice(grid, column.choices - 1));
    }
    if (grid.IsOpen()) Key(VK_ESCAPE);
    EXPECT_EQ(before, grid.Cell(row, index));
}

// A text that is typed into a cell, and what "設定" says; null: nothing. The cell that is marked when it is another.
struct Entry {
    int row;
    int column;
    const wchar_t* text;
    const wchar_t* message = nullptr;
    GridPlace marked = {};
};

}  // namespace

TEST_F(ImportEditors, ColumnsOfferWhatTheyTake) {
    for (const Layout& layout : kLayouts) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(layout.editor.title)));
        WriteTable(layout.editor.file, layout.file);
        Edit(layout.editor, false, [&](HWND dialog, const Grid& grid) {
            EXPECT_EQ(layout.rows, grid.Rows());
            EXPECT_EQ(layout.start, Row(grid, layout.row));
            const LRESULT style = LVS_EX_GRIDLINES | LVS_EX_FULLROWSELECT;
            EXPECT_EQ(style, Send(grid.List(), LVM_GETEXTENDEDLISTVIEWSTYLE) & style);
            double shares = 0;
            int all = 0, index = 0;
            for (const Column& column : layout.columns) {
                shares += column.share;
                all += grid.Width(index++);
            }
            index = 0;
            for (const Column& column : layout.columns) {
                SCOPED_TRACE(testing::PrintToString(std::wstring(column.title)));
                EXPECT_EQ(column.title, Title(grid, index));
                EXPECT_NEAR(all * column.share / shares, grid.Width(index), 2);
                ExpectEditing(dialog, grid, layout.row, index, column);
                ++index;
            }
            Click(dialog, IDCANCEL);
        });
    }
}

class ImportEditorChecks : public ImportEditors {
  protected:
    // Types each text in turn, presses "設定" and puts right what was refused.
    void ExpectChecks(const Editor& editor, const std::vector<Entry>& entries) {
        Edit(editor, false, [&](HWND dialog, const Grid& grid) {
            for (const Entry& entry : entries) {
                SCOPED_TRACE(testing::Message() << "row " << entry.row + 1 << ", column " << entry.column << ": "
                                                << testing::PrintToString(std::wstring(entry.text)));
                const std::wstring before = grid.Cell(entry.row, entry.column);
                Change(grid, entry.row, entry.column, entry.text);
                ASSERT_EQ(entry.text, grid.Cell(entry.row, entry.column));
                if (!entry.message) {
                    grid.Click(entry.row ? 0 : 1, 0);  // another row: all are checked
                    EXPECT_FALSE(IsGuidanceError(dialog)) << testing::PrintToString(Guidance(dialog));
                    continue;
                }
                const GridPlace marked = entry.marked.row < 0 ? GridPlace{entry.row, entry.column} : entry.marked;
                if (entry.marked.row >= 0) {
                    grid.Click(entry.row ? 0 : 1, 0);
                    EXPECT_TRUE(IsMarked(grid, marked)) << "found elsewhere, and not drawn there";
                }
                ExpectRefusal(editor, dialog, marked, entry.message);
                Change(grid, entry.row, entry.column, before);
                grid.Click(entry.row ? 0 : 1, 0);
                EXPECT_FALSE(IsMarked(grid, marked));
                EXPECT_FALSE(IsGuidanceError(dialog)) << testing::PrintToString(Guidance(dialog));
            }
            Click(dialog, IDOK);  // all is right again
        });
    }
};

TEST_F(ImportEditorChecks, Layers) {
    for (const bool revisions : {false, true}) {
        WriteTable(kLayerFile, revisions ? "LAYER-SWITCH 1\nLAYER-REVISION 表 = 2\nLAYER-REVISION 線 = 3\n"
                                         : "LAYER 表 = 2\nLAYER 線 = 3\n");
        const Editor& editor = revisions ? kRevisionEditor : kClassEditor;
        const std::wstring bad =
            revisions ? L"無効なレビジョン番号です（1～256） " : L"無効なクラス番号です（1～256） ";
        const std::wstring texts[] = {L"", L"0", L"257", L"１２", L"7x", L"-0", L"1e3"};
        std::vector<std::wstring> messages;
        for (const std::wstring& text : texts) messages.push_back(bad + L"2 : " + text);
        std::vector<Entry> entries = {
            {1, 1, L"", L"レイヤ名が入力されていません 2 : "},
            {2, 1, L"表", L"レイヤ名が重複しています 2,3 : 表", {1, 1}},
            {2, 1, L"OTHER", L"レイヤ名が重複しています 1,3 : OTHER", {0, 1}},
            {1, 1, L"階段 手摺", L"レイヤ名に空白と「=」は使えません 2 : 階段 手摺"},
            {1, 1, L"a=b", L"レイヤ名に空白と「=」は使えません 2 : a=b"},
            {1, 1, L"ソ能表"},  // bytes 0x5C at the end of characters
            {2, 1, L"ソ"},
            {2, 1, L"other"},  // compared byte by byte
            {0, 2, L"256"},
            {2, 2, L"1"},
            {2, 2, L"007"},
        };
        for (std::size_t i = 0; i < std::size(texts); ++i)
            entries.push_back({1, 2, texts[i].c_str(), messages[i].c_str()});
        ExpectChecks(editor, entries);
    }
}

TEST_F(ImportEditorChecks, Colors) {
    ExpectChecks(kColorRevisionEditor, {{0, 1, L"0", L"無効なレビジョン番号です（1～256） 1 : 0"},
                                        {254, 1, L"257", L"無効なレビジョン番号です（1～256） 255 : 257"},
                                        {0, 1, L"256"},
                                        {254, 1, L"1"}});
    ExpectChecks(kColorClassEditor, {{9, 1, L"", L"無効なクラス番号です（1～256） 10 : "},
                                     {254, 1, L"１", L"無効なクラス番号です（1～256） 255 : １"},
                                     {254, 1, L"256"}});
}

TEST_F(ImportEditorChecks, Lines) {
    ExpectChecks(kLineTypeEditor, {{1, 1, L"", L"線種名が入力されていません 2 : "},
                                   {3, 1, L"DASHED", L"線種名が重複しています 2,4 : DASHED", {1, 1}},
                                   {0, 1, L"破 線", L"線種名に空白と「=」は使えません 1 : 破 線"},
                                   {0, 1, L"A=B", L"線種名に空白と「=」は使えません 1 : A=B"},
                                   {0, 1, L"ソ,表"},
                                   {0, 2, L"0", L"無効な線種番号です 1 : 0"},
                                   {3, 2, L"64", L"無効な線種番号です 4 : 64"},
                                   {3, 2, L"", L"無効な線種番号です 4 : "},
                                   {3, 2, L"１２", L"無効な線種番号です 4 : １２"},
                                   {3, 2, L"7x", L"無効な線種番号です 4 : 7x"},
                                   {3, 2, L"-0", L"無効な線種番号です 4 : -0"},
                                   {3, 2, L"1e1", L"無効な線種番号です 4 : 1e1"},
                                   {3, 2, L"63"},
                                   {0, 3, L"0", L"無効な線幅番号です 1 : 0"},
                                   {0, 3, L"17", L"無効な線幅番号です 1 : 17"},
                                   {0, 3, L"16"}});
    ExpectChecks(
        kColorWidthEditor,
        {{0, 1, L"0", L"無効な線幅番号です 1 : 0"}, {254, 1, L"17", L"無効な線幅番号です 255 : 17"}, {254, 1, L"16"}});
    ExpectChecks(
        kLineWidthEditor,
        {{0, 2, L"0", L"無効な線幅番号です 1 : 0"}, {23, 2, L"17", L"無効な線幅番号です 24 : 17"}, {23, 2, L"16"}});
}

TEST_F(ImportEditorChecks, Polylines) {
    WriteTable(kLineFile, "WIDTH 0,0.5 = 2\nWIDTH 0.5,999 = 5\n");
    const wchar_t* const range = L"無効な線幅です（0.0＜線幅＜999.0） ";
    const std::wstring over = range + std::wstring(L"3 : 999.1"), below = range + std::wstring(L"1 : -0.1"),
                       text = range + std::wstring(L"1 : 0x1"), wide = range + std::wstring(L"2 : ０．５");
    ExpectChecks(kPolylineEditor, {{0, 1, L"", L"線幅が入力されていません 1"},
                                   {2, 1, L"999.1", over.c_str()},
                                   {0, 1, L"-0.1", below.c_str()},
                                   {0, 1, L"0x1", text.c_str()},
                                   {1, 1, L"０．５", wide.c_str()},
                                   {0, 1, L"0.500", L"線幅が重複しています 1 : 0.500"},
                                   {1, 1, L"0.0", L"線幅が重複しています 1 : 0", {0, 1}},
                                   {2, 1, L"0.25", L"線幅が1つ前より小さい値になってます 3 : 0.25"},
                                   {0, 1, L"0.499"},
                                   {0, 2, L"17", L"無効な線幅番号です 1 : 17"},
                                   {1, 2, L"", L"無効な線幅番号です 2 : "},
                                   {1, 2, L"16"}});
}

TEST_F(ImportEditorChecks, Fonts) {
    WriteTable(kFontEditor.file, "STYLE = 図面, 1.1875, 0, 1, 0.2, 1.4, 1, 1, 0.95, 0.75\n");
    ExpectChecks(kFontEditor, {{4, 1, L"", L"書体名が入力されていません 5"},
                               {4, 1, L"BIGFONT", L"書体名が重複しています 2 : BIGFONT", {1, 1}},
                               {4, 1, L"図 面", L"書体名に空白と「,」は使えません 5 : 図 面"},
                               {4, 1, L"a,b", L"書体名に空白と「,」は使えません 5 : a,b"},
                               {4, 1, L"ソ表=能"},
                               {0, 3, L"0.09", L"無効な文字幅係数です 1 : 0.09"},
                               {4, 3, L"10.01", L"無効な文字幅係数です 5 : 10.01"},
                               {4, 3, L"10"},
                               {4, 4, L"", L"無効な文字幅係数です 5 : "},
                               {4, 4, L"１", L"無効な文字幅係数です 5 : １"},
                               {4, 5, L"0.009", L"無効な行間隔係数です 5 : 0.009"},
                               {4, 5, L"10.1", L"無効な行間隔係数です 5 : 10.1"},
                               {4, 5, L"0.01"},
                               {4, 6, L"10.1", L"無効な文字描画係数です 5 : 10.1"},
                               {4, 6, L"10"},
                               {4, 6, L"0.1"},
                               {4, 7, L"1.01", L"無効な文字描画係数です 5 : 1.01"},  // above its width factor
                               {4, 7, L"1"},
                               {4, 4, L"0.9", L"無効な文字描画係数です 5 : 1", {4, 7}},
                               {0, 7, L"0.09", L"無効な文字描画係数です 1 : 0.09"}});
}

TEST_F(ImportEditorChecks, Arrows) {
    WriteTable(kArrowEditor.file, "ARROW 記号 = 7,0,250\n");
    ExpectChecks(kArrowEditor, {{4, 1, L"", L"矢印名（複合図形名）が入力されていません 5"},
                                {4, 1, L"SOLID", L"矢印名（複合図形名）が重複しています 2 : SOLID", {1, 1}},
                                {4, 1, L"記 号", L"矢印名に空白と「=」は使えません 5 : 記 号"},
                                {4, 1, L"ソ,表"},
                                {4, 2, L"", L"マーク番号が入力されていません 5"},
                                {4, 2, L"0", L"無効なマーク番号です 5 : 0"},
                                {0, 2, L"4096", L"無効なマーク番号です 1 : 4096"},
                                {0, 2, L"4095"},
                                {4, 4, L"", L"サイズが入力されていません 5"},
                                {4, 4, L"0.09", L"無効なサイズです 5 : 0.09"},
                                {4, 4, L"300.1", L"無効なサイズです 5 : 300.1"},
                                {4, 4, L"1e3", L"無効なサイズです 5 : 1e3"},
                                {4, 4, L"300"},
                                {4, 4, L"0.1"}});
}

TEST_F(ImportEditors, NamesThatTheFileCannotGiveBackAreRefused) {
    const struct {
        const Editor& editor;
        const char* before;
        std::size_t longest;
        const char* behind;
        int row;
        std::wstring message;
    } cases[] = {
        {kClassEditor, "LAYER ", 68, "=1\n", 1, L"レイヤ名が長すぎます（半角68文字以内） 2 : "},
        {kRevisionEditor, "LAYER-REVISION ", 58, "=1\n", 1, L"レイヤ名が長すぎます（半角58文字以内） 2 : "},
        {kLineTypeEditor, "LINE-TYPE ", 107, "=1,1\n", 0, L"線種名が長すぎます（半角107文字以内） 1 : "},
        {kFontEditor, "STYLE=", 45, ",1.1875,0,1,0.2,1.4,1,1,0.95,0.75\n", 4,
         L"書体名が長すぎます（半角45文字以内） 5 : "},
        {kArrowEditor, "ARROW ", 51, "=1,0,300\n", 4, L"矢印名が長すぎます（半角51文字以内） 5 : "},
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

TEST_F(ImportEditors, MarksAndMessagesFollowTheText) {
    Edit(kColorRevisionEditor, false, [&](HWND dialog, const Grid& grid) {
        EXPECT_EQ((GridPlace{0, 1}), grid.Current());
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
        grid.Keys(L" ");  // starts no text
        EXPECT_FALSE(grid.IsOpen());
        EXPECT_EQ(L"8", grid.Cell(254, 1));
        Key(VK_APPS);  // nor a menu: the rows are given
        EXPECT_FALSE(IsMenuOpen());
        Click(dialog, IDOK);
    });
}
