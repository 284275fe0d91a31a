// The attribute conversion of an export, and the editor of its text fonts.
#include <algorithm>

#include "dxfout/KrDxfOutAttr.h"
#include "dxfout_tables/KrDxfOutTbl_TFont.h"
#include "entry/host/kirodxf.h"
#include "resources/dxfout/KrDxfOutAttr.ids.h"
#include "resources/dxfout_tables/KrDxfOutTbl_TFont.ids.h"
#include "tests/dialogs/ImportTables.h"

using namespace kiro::drive;

namespace {

using Block = DxfOutParamBlock;
const struct {
    std::int32_t Block::*word;
    int automatic;
    int byTable;
    std::vector<int> buttons;
} kRows[] = {
    {&Block::layerConversion, kOutLayerAutoRadio, kOutLayerTableRadio, {kOutLayerNewButton, kOutLayerChangeButton}},
    {&Block::lineConversion, kOutLineAutoRadio, kOutLineTableRadio, {kOutLineChangeButton}},
    {&Block::fontConversion, kOutFontAutoRadio, kOutFontTableRadio, {kOutFontChangeButton}},
    {&Block::arrowConversion, kOutArrowAutoRadio, kOutArrowTableRadio, {kOutArrowChangeButton}},
};

constexpr wchar_t kStyleFile[] = L"KIRODXF_STYLE";
constexpr Editor kStyles = {L"文字フォント割当て", kStyleFile};
enum Column { kName = 1, kDirection, kKanjiWidth, kWidth, kKanjiDrawing, kDrawing, kFont, kBigFont };

class ExportAttributes : public ImportTables {
  protected:
    ExportAttributes() {
        std::memset(&params, 0x5A, sizeof params);
        params.outputVersion = 2;
        info->output.exportParams = &params;
    }
    void Convert(const std::function<void(HWND dialog)>& user) {
        KrDxfOutAttr dialog(*info, params);
        Play(dialog, user);
    }
    void Styles(const std::function<void(HWND dialog, const Grid&)>& user) {
        KrDxfOutTbl_TFont dialog(info.get());
        Play(dialog, [&](HWND window) { user(window, Grid(window, kGrid)); });
    }

    std::unique_ptr<TARNAINFO> info = std::make_unique<TARNAINFO>();
    Block params;
};

}  // namespace

TEST_F(ExportAttributes, RadiosShowTheBlockAndSetIt) {
    for (const std::int32_t value : {0, 1, 7}) {  // the last shows as 1
        for (std::size_t changed = 0; changed < std::size(kRows); ++changed) {
            for (const auto& row : kRows) params.*row.word = value;
            const Block before = params;
            const auto user = [&](HWND dialog, int end) {
                for (const auto& row : kRows) {
                    EXPECT_EQ(value != 0, IsChecked(dialog, row.byTable));
                    EXPECT_EQ(value == 0, IsChecked(dialog, row.automatic));
                    for (const int button : row.buttons) EXPECT_EQ(value != 0, IsEnabled(dialog, button)) << button;
                }
                Click(dialog, value ? kRows[changed].automatic : kRows[changed].byTable);
                for (const auto& row : kRows) {
                    const bool table = (value != 0) != (&row == &kRows[changed]);
                    for (const int button : row.buttons) EXPECT_EQ(table, IsEnabled(dialog, button)) << button;
                }
                Click(dialog, end);
            };
            Convert([&](HWND dialog) { user(dialog, IDCANCEL); });
            EXPECT_EQ(0, std::memcmp(&before, &params, sizeof params));
            Convert([&](HWND dialog) { user(dialog, IDOK); });
            Block expected = before;
            for (const auto& row : kRows) expected.*row.word = (value != 0) != (&row == &kRows[changed]);
            EXPECT_EQ(0, std::memcmp(&expected, &params, sizeof params));
        }
    }
}

TEST_F(ExportAttributes, KeepsTheSettingsWhereItIsWanted) {
    for (const auto& row : kRows) params.*row.word = 0;
    Block kept{};
    for (const auto& [radio, keep, value] :
         {std::tuple(kOutLineTableRadio, false, -1), {kOutLineTableRadio, true, 1}, {kOutLineAutoRadio, false, 1}}) {
        Convert([&, choice = radio, mark = keep](HWND dialog) {
            Click(dialog, choice);
            if (mark) Click(dialog, kOutKeepSettingsCheck);
            Click(dialog, IDOK);
        });
        EXPECT_EQ(value < 0, DxfOutReadParam(&kept) != 0);
        EXPECT_TRUE(value < 0 || kept.lineConversion == value);
    }
}

TEST_F(ExportAttributes, TextFontsAreThoseOfTheVersion) {
    params.fontConversion = 1;
    const auto font = [](HWND dialog) {
        const std::wstring text = Grid(dialog, kGrid).Cell(0, kFont);
        Click(dialog, IDCANCEL);
        return text;
    };
    Convert([&](HWND dialog) {
        Click(dialog, kOutFontChangeButton);
        EXPECT_EQ(L"monotxt", font(Settle()));
        ASSERT_EQ(dialog, Settle());
        Click(dialog, IDCANCEL);
    });
    info->output.exportParams = nullptr;
    Styles([&](HWND dialog, const Grid&) { EXPECT_EQ(L"txt", font(dialog)); });
    info = nullptr;
    Styles([&](HWND dialog, const Grid&) { EXPECT_EQ(L"txt", font(dialog)); });
    EXPECT_FALSE(std::filesystem::exists(TableFile(kStyleFile)));
}

TEST_F(ExportAttributes, StylesThatTheFileCannotGiveBackAreRefused) {
    const struct {
        int row;
        int column;
        std::wstring text;
        std::wstring message;
    } cases[] = {
        {0, kWidth, L"-0.1", L"無効な文字幅係数です 1 : -0.1"},
        {2, kWidth, L"999.1", L"無効な文字幅係数です 3 : 999.1"},
        {1, kKanjiWidth, L"0", L"無効な文字幅係数です 2 : 0"},
        {1, kKanjiDrawing, L"0", L"無効な文字描画係数です 2 : 0"},
        {2, kDrawing, L"", L"無効な文字描画係数です 3 : "},
        {0, kFont, L"", L"フォントファイル名が入力されていません 1"},
        {3, kFont, L"a,b", L"フォントファイル名に空白と「,」は使えません 4 : a,b"},
        {1, kBigFont, L"", L"ビッグフォントファイル名が入力されていません 2"},
        {3, kBigFont, L"a b", L"ビッグフォントファイル名に空白と「,」は使えません 4 : a b"},
        {0, kFont, std::wstring(32, L'x'), L"1行に書ける長さを半角1文字分超えています 1 : " + std::wstring(32, L'x')},
        {3, kFont, std::wstring(40, L'表'),
         L"1行に書ける長さを半角58文字分超えています 4 : " + std::wstring(40, L'表')},
    };
    const std::wstring longest = std::wstring(15, L'表') + L"x";
    Styles([&](HWND dialog, const Grid& grid) {
        for (const auto& entry : cases) {
            SCOPED_TRACE(testing::PrintToString(entry.text));
            const std::wstring before = grid.Cell(entry.row, entry.column);
            Change(grid, entry.row, entry.column, entry.text);
            ExpectRefusal(kStyles, dialog, {entry.row, entry.column}, entry.message);
            Change(grid, entry.row, entry.column, before);
        }
        Change(grid, 0, kWidth, L"0");
        Change(grid, 0, kFont, longest);
        Click(dialog, IDOK);
    });
    Styles([&](HWND dialog, const Grid& grid) {
        EXPECT_EQ(longest, grid.Cell(0, kFont));
        EXPECT_EQ(L"0.75", grid.Cell(0, kDrawing)) << "behind the font, and still read";
        EXPECT_EQ(L"0", grid.Cell(0, kWidth));
        Click(dialog, IDCANCEL);
    });
}

TEST_F(ExportAttributes, PairsShareTheirFactors) {
    std::vector<Cells> rows;
    Styles([&](HWND dialog, const Grid& grid) {
        for (const auto& [row, column] : {std::pair(0, kWidth), {1, kKanjiWidth}, {2, kDrawing}, {3, kKanjiDrawing}}) {
            const int partner = row ^ 1;
            grid.Click(partner, column);
            EXPECT_NE(L"", Guidance(dialog));
            Key(VK_F2);
            EXPECT_FALSE(grid.IsOpen()) << partner;
            Change(grid, row, column, L"1.5");
            EXPECT_EQ(L"1.5", grid.Cell(partner, column));
        }
        grid.Click(1, kDirection);
        grid.Choose(1);
        Change(grid, 0, kBigFont, L"big");
        Click(dialog, kTwoToOneCheck);
        rows = AllRows(grid);
        Click(dialog, IDOK);
    });
    EXPECT_TRUE(Has(kStyleFile,
                    "STYLE = BIGFONT, 1.5, 2, 1.5,,, monotxt, bigfont, 0.75, 0.95\r\n"
                    "STYLE = TSTANDARD, 1, 2, 1.1875,,, monotxt, , 1.5, 1.5\r\n"))
        << Bytes(kStyleFile);
    Styles([&](HWND dialog, const Grid& grid) {
        EXPECT_EQ(rows, AllRows(grid));
        EXPECT_TRUE(IsChecked(dialog, kTwoToOneCheck));
        Click(dialog, IDCANCEL);
    });
}

// A name that is not known takes the place of the style before it.
TEST_F(ExportAttributes, OtherNamesStandInTheFirstRowOnly) {
    WriteTable(kStyleFile, "STYLE = ROMAN,1,,1,,,f,,1,1\nSTYLE = BIGFONT,1\nSTYLE = OTHER,1,,1,,,f,g,1,1\n");
    Styles([&](HWND dialog, const Grid& grid) {
        ExpectRefusal(kStyles, dialog, {1, kName}, L"この行の書体名は「BIGFONT」です 2 : OTHER");
        Change(grid, 1, kName, L"BIGFONT");
        for (const auto& [name, message] : {std::pair(L"", L"書体名が入力されていません 1"),
                                            {L"BIGFONT", L"書体名が重複しています 1 : BIGFONT"},
                                            {L"A,B", L"書体名に空白と「,」は使えません 1 : A,B"}}) {
            Change(grid, 0, kName, name);
            ExpectRefusal(kStyles, dialog, {0, kName}, message);
        }
        Change(grid, 0, kName, L"ROMANS");
        grid.Click(1, kName);
        EXPECT_EQ(L"書体名は変更できません。", Guidance(dialog));
        Key(VK_F2);
        EXPECT_FALSE(grid.IsOpen());
        Click(dialog, IDOK);
    });
    Styles([&](HWND dialog, const Grid& grid) {
        EXPECT_EQ((Cells{L"1", L"ROMANS", L"横", L"1", L"1", L"1", L"1", L"f", L""}), Row(grid, 0));
        EXPECT_EQ(L"g", grid.Cell(1, kBigFont));
        Click(dialog, IDCANCEL);
    });
}
