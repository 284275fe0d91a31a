// The attribute conversion of an export, and the editor of its text fonts.
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
    int automatic, byTable, button;
} kRows[] = {
    {&Block::layerConversion, kOutLayerAutoRadio, kOutLayerTableRadio, kOutLayerNewButton},
    {&Block::lineConversion, kOutLineAutoRadio, kOutLineTableRadio, kOutLineChangeButton},
    {&Block::fontConversion, kOutFontAutoRadio, kOutFontTableRadio, kOutFontChangeButton},
    {&Block::arrowConversion, kOutArrowAutoRadio, kOutArrowTableRadio, kOutArrowChangeButton},
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
    // Types what must be refused, and puts it right.
    static void Refuse(HWND dialog, const Grid& grid, GridPlace cell, const std::wstring& text,
                       const std::wstring& message) {
        const std::wstring before = grid.Cell(cell.row, cell.column);
        Change(grid, cell.row, cell.column, text);
        ExpectRefusal(kStyles, dialog, cell, message);
        Change(grid, cell.row, cell.column, before);
    }

    std::unique_ptr<TARNAINFO> info = std::make_unique<TARNAINFO>();
    Block params;
};

}  // namespace

TEST_F(ExportAttributes, RadiosShowTheBlockAndSetIt) {
    for (int round = 0; round < 3; ++round) {
        const bool unknown = round == 2;  // values that no button has: by the table
        for (int i = 0; i < 4; ++i) params.*kRows[i].word = unknown ? 7 : (i + round) % 2;
        const Block before = params;
        Block changed = params;
        for (const auto& row : kRows) changed.*row.word = unknown ? 1 : 1 - before.*row.word;
        for (const bool confirm : {false, true}) {
            Convert([&](HWND dialog) {
                for (const auto& row : kRows) {
                    EXPECT_EQ(before.*row.word != 0, IsChecked(dialog, row.byTable));
                    Click(dialog, changed.*row.word ? row.byTable : row.automatic);
                }
                for (const auto& row : kRows) EXPECT_EQ(changed.*row.word != 0, IsEnabled(dialog, row.button));
                Click(dialog, confirm ? IDOK : IDCANCEL);
            });
            EXPECT_EQ(0, std::memcmp(confirm ? &changed : &before, &params, sizeof params));
        }
    }
}

TEST_F(ExportAttributes, KeepsTheSettingsWhereItIsWanted) {
    Block kept{};
    for (const bool keep : {false, true}) {
        Convert([&](HWND dialog) {
            Click(dialog, kOutLineAutoRadio);
            if (keep) Click(dialog, kOutKeepSettingsCheck);
            Click(dialog, IDOK);
        });
        EXPECT_EQ(keep, DxfOutReadParam(&kept) == 0);
    }
    EXPECT_EQ(0, std::memcmp(&params, &kept, sizeof kept));
}

TEST_F(ExportAttributes, TextFontsAreThoseOfTheVersion) {
    const auto expect = [](const wchar_t* font, HWND dialog) {
        EXPECT_EQ(font, Grid(dialog, kGrid).Cell(0, kFont));
        Click(dialog, IDCANCEL);
    };
    Convert([&](HWND dialog) {
        Click(dialog, kOutFontChangeButton);
        expect(L"monotxt", Settle());
    });
    info->output.exportParams = nullptr;
    Styles([&](HWND dialog, const Grid&) { expect(L"txt", dialog); });
    info = nullptr;
    Styles([&](HWND dialog, const Grid&) { expect(L"txt", dialog); });
}

TEST_F(ExportAttributes, StylesComeBackOrAreRefused) {
    std::vector<Cells> rows;
    Styles([&](HWND dialog, const Grid& grid) {
        const auto refuse = [&](GridPlace cell, const std::wstring& text, const std::wstring& message) {
            Refuse(dialog, grid, cell, text, message);
        };
        refuse({0, kWidth}, L"-0.1", L"無効な文字幅係数です 1 : -0.1");
        refuse({2, kWidth}, L"999.1", L"無効な文字幅係数です 3 : 999.1");
        refuse({1, kKanjiWidth}, L"0", L"無効な文字幅係数です 2 : 0");
        refuse({1, kKanjiDrawing}, L"0", L"無効な文字描画係数です 2 : 0");
        refuse({2, kDrawing}, L"0", L"無効な文字描画係数です 3 : 0");
        refuse({0, kFont}, L"", L"フォントファイル名が入力されていません 1");
        refuse({3, kFont}, L"a,b", L"フォントファイル名に空白と「,」は使えません 4 : a,b");
        refuse({1, kBigFont}, L"", L"ビッグフォントファイル名が入力されていません 2");
        refuse({3, kBigFont}, L"a b", L"ビッグフォントファイル名に空白と「,」は使えません 4 : a b");
        for (const auto& [row, text, excess] : {std::tuple(0, std::wstring(32, L'x'), L"1文字分超えています 1 : "),
                                                {3, std::wstring(40, L'表'), L"58文字分超えています 4 : "}})
            refuse({row, kFont}, text, L"1行に書ける長さを半角" + (excess + text));
        for (const auto& [row, column] : {std::pair(0, kWidth), {1, kKanjiWidth}, {2, kDrawing}, {3, kKanjiDrawing}}) {
            Change(grid, row, column, L"1.5");
            EXPECT_EQ(L"1.5", grid.Cell(row ^ 1, column));
        }
        Change(grid, 0, kWidth, L"0");
        Change(grid, 0, kFont, std::wstring(17, L'表'));  // all that the record can hold
        grid.Click(1, kDirection);
        grid.Choose(1);
        Click(dialog, kTwoToOneCheck);
        rows = AllRows(grid);
        Click(dialog, IDOK);
    });
    EXPECT_TRUE(Has(kStyleFile, "STYLE = BIGFONT, 0, 2, 1.5,,, monotxt, bigfont, 0.75, 0.95\r\n"));
    EXPECT_TRUE(Has(kStyleFile, "STYLE = TSTANDARD, 1, 2, 1.1875,,, monotxt, , 1.5, 1.5\r\n"));
    Styles([&](HWND dialog, const Grid& grid) {
        EXPECT_EQ(rows, AllRows(grid));
        EXPECT_TRUE(IsChecked(dialog, kTwoToOneCheck));
    });
}

// A name that is not known takes the place of the style before it.
TEST_F(ExportAttributes, OtherNamesStandInTheFirstRowOnly) {
    WriteTable(kStyleFile, "STYLE = ROMAN,1,,1,,,f,,1,1\nSTYLE = BIGFONT,1\nSTYLE = OTHER,1,,1,,,f,g,1,1\n");
    Styles([&](HWND dialog, const Grid& grid) {
        ExpectRefusal(kStyles, dialog, {1, kName}, L"この行の書体名は「BIGFONT」です 2 : OTHER");
        Change(grid, 1, kName, L"BIGFONT");
        Refuse(dialog, grid, {0, kName}, L"BIGFONT", L"書体名が重複しています 1 : BIGFONT");
        Refuse(dialog, grid, {0, kName}, L"A,B", L"書体名に空白と「,」は使えません 1 : A,B");
        Change(grid, 0, kName, L"ROMANS");
        grid.Click(1, kName);
        Key(VK_F2);
        EXPECT_FALSE(grid.IsOpen()) << "it is as it must be";
        Click(dialog, IDOK);
    });
    Styles([&](HWND, const Grid& grid) {
        EXPECT_EQ((Cells{L"1", L"ROMANS", L"横", L"1", L"1", L"1", L"1", L"f", L""}), Row(grid, 0));
        EXPECT_EQ(L"g", grid.Cell(1, kBigFont));
    });
}
