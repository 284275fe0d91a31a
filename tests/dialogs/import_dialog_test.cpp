// The import dialog: its fields, its refusals in their order, and the record that the host receives.
#include <sstream>

#include "entry/host/FixedText.h"
#include "resources/dxfin/KrDxfIn.ids.h"
#include "resources/dxfin/KrDxfInAttr.ids.h"
#include "resources/dxfin_tables/KrDxfInTbl_Layer.ids.h"
#include "resources/grid.ids.h"
#include "tests/DrawingText.h"
#include "tests/dialogs/ImportHost.h"

using namespace kiro::drive;

namespace {

const std::wstring kVersion = L"ファイルバージョン：";
constexpr wchar_t kNoFile[] = L"ファイルが見つかりません";

std::string TextDxf(const std::string& version) { return Drawing("", "", "", version); }

// Run by a host and played by an operator.
class Import : public ImportHost {
  protected:
    using Names = std::vector<std::wstring>;

    int Run(const User& user) {
        return Drive([this] { return DxfInputDlg(&record.info); }, [&] { Use(user); });
    }
    void Look(const User& user) { EXPECT_EQ(1, Run(user)); }
    void Confirm(const User& user) {
        const int result = Run([&](HWND dialog) {
            user(dialog);
            Click(dialog, IDOK);
        });
        EXPECT_EQ(0, result);
    }
    static void GiveName(HWND dialog, const std::wstring& name) {
        Focus(dialog, kFileNameEdit);
        Type(dialog, kFileNameEdit, name);
        Focus(dialog, kSubModelEdit);
    }
    // A drawing in the DXF folder, chosen by its name alone.
    void GiveDrawing(HWND dialog) {
        Write(L"DXF\\図面.dxf", TextDxf("AC1015"));
        GiveName(dialog, L"図面.dxf");
    }
    std::wstring VersionOf(HWND dialog, const std::wstring& name) {
        GiveName(dialog, name);
        return Text(dialog, kVersionText);
    }
    // At DXF files, then at DWG files.
    void LookAtBoth(const std::function<void(HWND dialog, bool dwg)>& user) {
        for (const bool dwg : {false, true}) {
            input.inputIsDwg = dwg;
            Look([&](HWND dialog) { user(dialog, dwg); });
        }
    }
    void WriteDwg() { Write(L"DWG\\a.dwg", "AC1015" + std::string(100, '\0')); }

    TarnaImportView& input = record.info.input;
};

}  // namespace

TEST_F(Import, LeadsThroughAllWindows) {
    KiroHostSetModified(true);
    WriteTable(kLayerFile, "LAYER 壁 = 5\n");
    Write(L"DXF\\used.dxf", "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\n柱\n0\nENDSEC\n0\nEOF\n");
    record.params.colorConversion = 0;
    Confirm([&](HWND dialog) {
        Click(dialog, kParametersButton);
        EXPECT_EQ(L"読込み：変換パラメータ", Text(Settle()));
        EXPECT_FALSE(IsWindowEnabled(dialog));
        Click(Settle(), IDCANCEL);
        GiveName(dialog, L"used.dxf");
        Click(dialog, kAttributesButton);
        const HWND attributes = Settle();
        Click(attributes, kColorTableRadio);
        Choose(attributes, kColorChangeButton, kLayerFile);
        const HWND hub = Settle();
        Click(hub, kLayersToClassesRadio);
        Click(hub, kLayerClassButton);
        const HWND editor = Settle();
        const Grid grid(editor, kGrid);
        EXPECT_EQ(L"壁", grid.Cell(1, 1));
        Change(grid, 1, 2, L"7");
        Key(VK_F8);  // from the drawing that is named
        EXPECT_EQ(L"柱", grid.Cell(2, 1));
        Click(editor, IDOK);
        EXPECT_EQ(hub, Settle());
        Click(hub, IDOK);
        Expect(L"レイヤ割当て・色割当て", kSaveQuestion, MB_ICONQUESTION, IDYES);
        Click(attributes, IDOK);
        EXPECT_EQ(dialog, Settle());
        GiveDrawing(dialog);
        Click(dialog, kAddRadio);  // loses nothing: no question
    });
    EXPECT_NE(std::string::npos, Bytes(kLayerFile).find("LAYER 壁 = 7"));
    EXPECT_EQ(1, input.addMode);
    EXPECT_EQ(0, input.dataType);
    EXPECT_EQ(2, record.params.colorConversion);
}

TEST_F(Import, PictureDecidesMatrixAndScale) {
    UseModel(u8R"({"baseScale": 0.5, "pictures": [{"number": 2, "scale": 0.1}]})");
    const struct {
        int control;
        const wchar_t* text;  // null: a radio button
        bool matrix;          // can be chosen
        const wchar_t* scale;
    } steps[] = {{kScaleEdit, L"5", false, L"5"},      {kPictureEdit, L"-3", true, L"5"},
                 {kPictureEdit, L"007", true, L"5"},  // no entry reads so: nothing follows
                 {kPictureEdit, L"1", false, L"5"},    {kAddRadio, nullptr, false, L"1/2"},
                 {kPictureEdit, L"-2", true, L"1/20"}, {kPictureEdit, L"x", true, L"1"},
                 {kNewRadio, nullptr, true, L"1"},     {kPictureEdit, L"-257", true, L"1"},
                 {kAddRadio, nullptr, true, L"1"},     {kPictureEdit, L"2", false, L"1/20"},
                 {kNewRadio, nullptr, false, L"1"},    {kAddRadio, nullptr, false, L"1/20"}};
    Look([&](HWND dialog) {
        for (const auto& step : steps) {
            SCOPED_TRACE(&step - steps);
            Play(dialog, {{step.control, step.text}});
            EXPECT_EQ(step.scale, Text(dialog, kScaleEdit));
            const bool own = !IsChecked(dialog, kAddRadio);
            ExpectEnabled(dialog, {{kMatrixOnRadio, step.matrix}, {kMatrixOffRadio, step.matrix}});
            ExpectEnabled(dialog, {{kScaleEdit, own}, {kScaleCombo, own}});
        }
        EXPECT_EQ(257, Picked(dialog, kPictureCombo));
        for (const auto& [index, number] : {std::pair(511, L"256"), std::pair(0, L"-256"), std::pair(256, L"1")}) {
            Pick(dialog, kPictureCombo, index);
            EXPECT_EQ(number, Text(dialog, kPictureEdit));
            EXPECT_EQ(kPictureEdit, FocusId());
            EXPECT_EQ(index == 0, IsEnabled(dialog, kMatrixOnRadio));
        }
    });
}

TEST_F(Import, ScaleListTakesKeysAndKeepsOneEntryOfTheUsers) {
    Look([&](HWND dialog) {
        const wchar_t kScales[] =
            L"1 1/2 1/3 1/4 1/5 1/6 1/8 1/10 1/20 1/30 1/40 1/50 1/60 1/80 1/100 1/200 1/300 1/400 1/500 1/1000 "
            L"2 3 4 5 10 20 30 40 50 100 ";
        std::wstring scales;
        for (const auto& item : Items(dialog, kScaleCombo)) scales += item + L" ";
        EXPECT_EQ(kScales, scales);
        // Walking through the open list decides nothing; Enter does, Esc does not.
        for (const auto& [end, text] : {std::pair(VK_ESCAPE, L"1"), std::pair(VK_RETURN, L"1/3")}) {
            Focus(dialog, kScaleCombo);
            Key(VK_F4);
            Until("the open list", [&] { return Send(Control(dialog, kScaleCombo), CB_GETDROPPEDSTATE) != 0; });
            Key(VK_DOWN);
            Key(VK_DOWN);
            EXPECT_EQ(L"1", Text(dialog, kScaleEdit));
            Key(static_cast<WORD>(end));
            EXPECT_EQ(dialog, Settle());
            EXPECT_EQ(text, Text(dialog, kScaleEdit));
            Focus(dialog, kSubModelEdit);
        }
        for (const wchar_t* text : {L" 1/7 ", L"1/9", L"1/50"}) {
            Type(dialog, kScaleEdit, text);
            Focus(dialog, kScaleEdit);
            Focus(dialog, kSubModelEdit);
            EXPECT_EQ(text[0] == L' ' ? L"1/7" : L"1/9", Items(dialog, kScaleCombo)[0]);
        }
        EXPECT_EQ(31u, Items(dialog, kScaleCombo).size());
        EXPECT_EQ(12, Picked(dialog, kScaleCombo));
        Pick(dialog, kScaleCombo, 30);
        EXPECT_EQ(L"100", Text(dialog, kScaleEdit));
        EXPECT_EQ(kScaleEdit, FocusId());
    });
}

TEST_F(Import, ChoosersStartWhereTheFilesAre) {
    const struct {
        int type, medium, button, field;
        const wchar_t *types, *file;
    } rows[] = {{kDrawingRadio, kDiskRadio, IDOK, kFileNameEdit, L"ＤＸＦファイル (patter?.dxf)", L"DXF\\pattern.dxf"},
                {kDrawingRadio, kDiskRadio, kBrowseButton, kFileNameEdit, L"ＤＸＦファイル", L"DXF\\a.dxf"},
                {kDrawingRadio, kDiskRadio, kTableBrowseButton, kTableEdit,
                 L"レイヤ変換テーブルファイル (DXFKIRO_LAYER*)", L"DXF\\TABLE\\DXFKIRO_LAYER1"},
                {kShapeRadio, kDiskRadio, kBrowseButton, kFileNameEdit, L"シェイプファイル", L"DXF\\SHAPE\\s.shp"},
                {kShapeRadio, kFloppyRadio, kBrowseButton, kFileNameEdit, L"シェイプファイル", L"FLOPPY_WIN\\s.shp"},
                {kDrawingRadio, kFloppyRadio, kBrowseButton, kFileNameEdit, L"ＤＸＦファイル", L"FLOPPY_WIN\\f.dxf"},
                {kDrawingRadio, kDiskRadio, kBrowseButton, kFileNameEdit, L"ＤＷＧファイル", L"DWG\\a.dwg"}};
    LookAtBoth([&](HWND dialog, bool dwg) {
        for (const auto& row : rows) {
            if ((&row == std::end(rows) - 1) != dwg) continue;
            const std::filesystem::path file = Write(row.file, dwg ? "AC1015" : TextDxf("AC1015"));
            Play(dialog, {{row.medium, nullptr}, {row.type, nullptr}});
            if (row.button == IDOK) {
                Click(dialog, IDOK);  // no name at all is a pattern too
                Click(Settle(), IDCANCEL);
                EXPECT_EQ(dialog, Settle());
                EXPECT_EQ(kFileNameEdit, FocusId());
                Type(dialog, kFileNameEdit, L"patter?.dxf");
            }
            Click(dialog, row.button);
            EXPECT_EQ(0u, Text(Settle(), 0x470).find(row.types));  // the system chooser's list of file types
            // A name alone means the folder that is shown.
            Send(Control(Settle(), kChooserField), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(file.filename().c_str()));
            Click(Settle(), IDOK);
            EXPECT_EQ(dialog, Settle()) << "the choice alone must not start the import";
            EXPECT_EQ(file.wstring(), Text(dialog, row.field));
            EXPECT_EQ(row.field == kFileNameEdit, Text(dialog, kVersionText).ends_with(L"AC1015(2000)"));
        }
    });
}

TEST_F(Import, PlaceholderAndCombosChangePlacesWithTheTexts) {
    constexpr COLORREF kGrey = RGB(0x80, 0x80, 0x80);
    Look([&](HWND dialog) {
        const auto expectPlaceholder = [&] {
            EXPECT_EQ(L"ファイル名を入力 または［参照］でファイルを選択", Text(dialog, kFileNameEdit));
            EXPECT_EQ(kVersion, Text(dialog, kVersionText));
            EXPECT_TRUE(HasColor(dialog, Area(dialog, kFileNameEdit), kGrey));
        };
        EXPECT_FALSE(HasColor(dialog, Area(dialog, kSubModelEdit), kGrey));
        Focus(dialog, kFileNameEdit);
        EXPECT_EQ(L"*", Text(dialog, kFileNameEdit));
        Focus(dialog, kSubModelEdit);
        expectPlaceholder();
        EXPECT_EQ(kNoFile, VersionOf(dialog, L"　none.dxf "));
        EXPECT_EQ(L"none.dxf", Text(dialog, kFileNameEdit));
        GiveName(dialog, L"  ");
        expectPlaceholder();
        GiveDrawing(dialog);
        EXPECT_EQ(kVersion + L"AC1015(2000)", Text(dialog, kVersionText));
        EXPECT_FALSE(HasColor(dialog, Area(dialog, kFileNameEdit), kGrey));
        // The combos reach over their edits while they have the focus.
        for (const auto& [combo, edit] : {std::pair(kPictureCombo, kPictureEdit), std::pair(kScaleCombo, kScaleEdit),
                                          std::pair(kRecentCombo, kFileNameEdit)}) {
            const RECT narrow = Area(dialog, combo), field = Area(dialog, edit);
            RECT inside = field, shown{};
            InflateRect(&inside, -4, -4);
            Focus(dialog, combo);
            EXPECT_EQ(field.left, Area(dialog, combo).left);
            EXPECT_EQ(narrow.right, Area(dialog, combo).right);
            EXPECT_TRUE(HasColor(dialog, inside, GetSysColor(COLOR_WINDOWTEXT))) << "its text cannot be read";
            EXPECT_EQ(NULLREGION, GetWindowRgnBox(Control(dialog, edit), &shown)) << "the edit covers it";
            Focus(dialog, kSubModelEdit);
            EXPECT_EQ(narrow.left, Area(dialog, combo).left);
            EXPECT_EQ(ERROR, GetWindowRgnBox(Control(dialog, edit), &shown)) << "the edit does not come back";
            EXPECT_EQ(Control(dialog, edit), GetWindow(Control(dialog, combo), GW_HWNDPREV)) << "the Tab key's order";
        }
        EXPECT_EQ(kVersion, VersionOf(dialog, L"\x00E9"));  // a text that cannot be read is no name
        Click(dialog, kShapeRadio);                         // another type: another file
        expectPlaceholder();
    });
}

TEST_F(Import, VersionLineTellsTheCodeInTheFile) {
    const std::string header = "0\nSECTION\n2\nHEADER\n", version = "9\n$ACADVER\n", r13 = "1\nAC1012\n";
    const std::string binary("AutoCAD Binary DXF\r\n\x1A\0\0SECTION\0\2HEADER\0\x09$ACADVER\0\1AC1009\0", 57);
    const std::string zeros(200, '\0');
    const struct {
        std::string bytes;
        const wchar_t* line;
        bool dwg = false;
    } rows[] = {{TextDxf("AC1006"), L"AC1006(GX-3)"},
                {TextDxf("AC1018"), L"AC1018(2004)"},
                {TextDxf("AC1021"), L"AC1021(2007)"},
                {TextDxf("AC1024"), L"AC1024(2010)"},
                {TextDxf("AC1015&x"), L"AC1015&x(不明)"},
                {TextDxf(""), L"(不明)"},
                {"999\nmade by hand\n" + TextDxf("AC1009"), L"AC1009(GX-5)"},
                {"2\nHEADER\n" + TextDxf("AC1009"), L""},
                {"0\nSECTION\n" + version + r13, L""},
                {"0\nSECTIOX\n2\nHEADER\n" + version + r13, L""},
                {"0\nSECTION\n2\nHEADEX\n" + version + r13, L""},
                {header + "9\n$ACADMAINTVER\n70\n6\n9\n$ACADVERSION\n-5\nx\n" + r13, L"AC1012(R13)"},
                {header + version + "2\nname\n" + r13, L"AC1012(R13)"},
                {header + version + "9\n$DWGCODEPAGE\n" + r13, L""},
                {header + version + "0\nSECTION\n" + r13, L""},
                {header + "0\nSECTION\n" + version + r13, L""},
                {header + "9\n$ACADVEX\n" + r13, L""},
                {header + version + "1", L""},  // cut off inside the pair
                {header + "9\n" + std::string(10 << 20, 'x') + "\n" + version + r13, L"AC1012(R13)"},
                {binary, L"AC1009(GX-5)"},
                {binary.substr(0, 53), L""},
                {"AC1014" + zeros, L"AC1014(R14)", true},
                {"AC1032" + std::string(200, '1'), L"AC1032(不明)", true},
                {"MC0.0" + zeros, L"", true},
                {"AX1015" + zeros, L"", true},
                {"AC1015", L"AC1015(2000)", true},
                {"AC101", L"", true}};
    std::filesystem::create_directories(home / L"DXF\\folder.dxf");
    LookAtBoth([&](HWND dialog, bool dwg) {
        for (const auto& row : rows) {
            if (row.dwg != dwg) continue;
            Write(dwg ? L"DWG\\v" : L"DXF\\v", row.bytes);
            EXPECT_EQ(kVersion + row.line, VersionOf(dialog, L"v")) << row.bytes.substr(0, 80);
        }
        EXPECT_EQ(kNoFile, VersionOf(dialog, L"folder.dxf"));
    });
}

// Drawings of many programs, where a folder of them lies beside the project.
TEST_F(Import, VersionLineOfRealDrawings) {
    const std::filesystem::path folder = KIRO_SAMPLES;
    std::ifstream list(folder / "manifest.tsv");
    if (!list) GTEST_SKIP() << "no drawings beside the project";
    std::string line, columns[7];
    std::getline(list, line);  // the columns' names
    while (std::getline(list, line)) {
        std::istringstream fields(line);
        for (std::string& column : columns) std::getline(fields, column, '\t');
        const std::wstring version(columns[6].begin(), columns[6].end());
        input.inputIsDwg = columns[0].ends_with(".dwg");
        Look([&](HWND dialog) {
            const std::wstring shown = VersionOf(dialog, folder / columns[0]);
            EXPECT_EQ(kVersion + (version == L"none" ? L"" : version), shown.substr(0, shown.find(L'('))) << line;
        });
    }
}

TEST_F(Import, ExplanationsFollowTheMouse) {
    Look([&](HWND dialog) {
        HWND popup = nullptr;
        const auto hover = [&](int zone) {
            MoveMouse(Centre(Control(dialog, zone)));
            const HWND before = std::exchange(popup, nullptr);
            Until("the zone's explanation", [&] {
                const auto popups = Popups(dialog);
                if (popups.size() == 1 && popups[0] != before) popup = popups[0];
                return popup != nullptr;
            });
        };
        const auto expectNone = [&] {
            Until("no explanation", [&] { return Popups(dialog).empty(); });
            popup = nullptr;
        };
        // How much of the zone's width the popup is to the right of the zone, and how much of its own to the left.
        const struct {
            int zone, right, left;  // in halves
        } rows[] = {
            {kDataTypeZone, 0, 0}, {kModeZone, 0, 0}, {kPictureZone, 1, 1}, {kMatrixZone, 2, 2}, {kScaleZone, 0, 2}};
        for (const auto& row : rows) {
            hover(row.zone);
            const RECT zone = Area(dialog, row.zone), place = Area(dialog, popup);
            const LONG width = place.right - place.left, height = place.bottom - place.top;
            EXPECT_EQ(zone.bottom + 5, place.top);
            EXPECT_EQ(zone.left + (zone.right - zone.left) * row.right / 2 - width * row.left / 2, place.left);
            EXPECT_TRUE(HasColor(popup, {20, 2, 21, 3}, 0x00FFFFF0));
            EXPECT_FALSE(HasColor(popup, {20, 2, width - 20, 60}, GetSysColor(COLOR_BTNFACE)));
            const HRGN shape = CreateRectRgn(0, 0, 0, 0);
            GetWindowRgn(popup, shape);
            for (const LONG x : {0L, width - 1})
                for (const LONG y : {0L, height - 1}) EXPECT_FALSE(PtInRegion(shape, x, y)) << "the corners are round";
            EXPECT_TRUE(PtInRegion(shape, width / 2, 1) && PtInRegion(shape, 1, height / 2));
            DeleteObject(shape);
            EXPECT_EQ(dialog, GuiState().hwndActive);
        }
        MoveMouse(Centre(Control(dialog, kSubModelEdit)));
        expectNone();
        hover(kModeZone);
        SetWindowPos(dialog, nullptr, 5, 5, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        expectNone();  // at the old place
        hover(kPictureZone);
        MoveMouse(Centre(popup));  // straight into the explanation: outside the zone
        expectNone();
        hover(kModeZone);
        // Closed with the popup open: Look presses "取消".
    });
}

TEST_F(Import, RefusesBadEntriesInScreenOrder) {
    const std::wstring picture = L"無効なピクチャ番号です。（-256～-1、1～256）", scale = L"無効な倍率です";
    const std::wstring tooLong = L"サブモデル名が長すぎます（最大半角２６文字）";
    const std::wstring foreign = L"図\xD842\xDF9F.dwg";  // with a character beyond code page 932
    const struct {
        int field;
        std::wstring text, message;
        int focus;
        const wchar_t* caption = L"ＤＸＦ読込み";  // of the dialog's own, also when DWG files are read
    } rows[] = {{kScaleEdit, L"1/0", scale, kScaleEdit},
                {kPictureEdit, L"0", picture, kPictureEdit},
                {kPictureEdit, L"257", picture, kPictureEdit},
                {kPictureEdit, L"-1", scale, kScaleEdit},
                {kScaleEdit, L"0.000001", scale, kScaleEdit},
                {kScaleEdit, L"1000000", scale, kScaleEdit},
                {kSubModelEdit, std::wstring(27, L'x'), scale, kScaleEdit},
                {kFileNameEdit, L"none.dwg", scale, kScaleEdit},
                {kScaleEdit, L"1/1000", L"none.dwg", kFileNameEdit, L"ＤＷＧ読込み"},
                {kFileNameEdit, L"a|*.dwg", L"|", kFileNameEdit, L"ＤＷＧ読込み"},
                {kFileNameEdit, foreign, L"「\xD842\xDF9F」", kFileNameEdit},
                {kFileNameEdit, std::wstring(255, L'表'), L"長すぎます", kFileNameEdit, L"ＤＷＧ読込み"},
                {kFileNameEdit, L"a.dwg", tooLong, kSubModelEdit},
                {kSubModelEdit, L"ＡＢＣＤＥＦＧＨＩＪＫＬＭＮ", tooLong, kSubModelEdit},  // 28 bytes
                {kSubModelEdit, L"", L"サブモデル名が入力されていません", kSubModelEdit},
                {kSubModelEdit, L"A*B", L"サブモデル名に無効な文字が入力されています", kSubModelEdit},
                {kSubModelEdit, L"\x00E9", L"「\x00E9」", kSubModelEdit}};
    UseModel(u8R"({"baseScale": 10000000})");
    input.inputIsDwg = 1;
    WriteDwg();
    const ImportRecord before = record;
    EXPECT_EQ(1, Run([&](HWND dialog) {
                  Click(dialog, kAddRadio);  // the scale is that of the picture: the picture is at fault
                  ExpectRefusal(dialog, scale, kPictureEdit, rows[0].caption);
                  Click(dialog, kNewRadio);
                  for (const auto& row : rows) {
                      Type(dialog, row.field, row.text);
                      ExpectRefusal(dialog, row.message, row.focus, row.caption);
                      EXPECT_EQ(row.text, Text(dialog, row.field)) << "the user's text was lost";
                  }
                  Click(dialog, kMatrixOffRadio);
                  CloseBox(dialog);
              }));
    EXPECT_TRUE(before == record);
}

// Also where nothing can be kept, and with the texts as they are when the focus leaves them.
TEST_F(Import, RecordHoldsTheChoices) {
    const std::string internal = TableFile(L"DXFKIRO_LAYER").generic_string() + "\xC9\xBD";  // EUC for 表
    const std::string foreign = "DXFKIRO_LAYER\x8F\xB0\xA1";  // goes back as it came: Shift-JIS does not have it
    const struct {
        const wchar_t *picture, *scale;
        double ratio;
        std::string table, result;
    } rows[] = {{L" -256", L"0.0000011", 0.0000011, "DXFKIRO_LAYER\xC9\xBD", internal},
                {L"256", L"999999", 999999, internal, internal},
                {L"+007", L"1/250", 1.0 / 250, foreign, foreign}};
    Write(L"settings", "a file where the recent lists have their folder");
    Write(L"DXF\\図面.dxf", TextDxf("AC1015"));
    ImportRecord expected = record;
    TarnaImportView& view = expected.info.input;
    view.inputStatus = view.addMode = view.pictureMatrix = 0;
    view.dataType = 1;
    WriteFixedText(view.inputFileName, (home / L"DXF").generic_string() + "/\xBF\xDE\xCC\xCC.dxf");  // EUC for 図面
    WriteFixedText(view.subModelName, "\x8E\xBB\x8E\xCC\x8E\xDE\xA5\xE2\xA5\xC7\xA5\xEB_1ABCDEFGHIJKLMNO");
    WriteFixedText(view.password, "");
    for (const auto& row : rows) {
        WriteFixedText(input.layerTableFileName, row.table);
        EXPECT_EQ(0, Run([&](HWND dialog) {
                      EXPECT_EQ(row.table == foreign, !Text(dialog, kTableEdit).ends_with(L"DXFKIRO_LAYER表"));
                      EXPECT_EQ(&row == rows, IsChecked(dialog, kMatrixOnRadio));
                      Play(dialog, {{kShapeRadio, nullptr},
                                    {kPictureEdit, L"-12"},
                                    {kMatrixOffRadio, nullptr},
                                    {kPictureEdit, row.picture},
                                    {kScaleEdit, row.scale},
                                    {kSubModelEdit, L"　ｻﾌﾞモデル_1ABCDEFGHIJKLMNO "},
                                    {kFileNameEdit, L" 図面.dxf　"}});
                      Focus(dialog, kFileNameEdit);
                      Key(VK_RETURN);
                  }));
        view.pictureNumber = _wtoi(row.picture);
        view.scale = row.ratio;
        WriteFixedText(view.layerTableFileName, row.result);
        EXPECT_TRUE(expected == record) << view.pictureNumber;
    }
}

TEST_F(Import, RecentFilesLastAcrossCalls) {
    const auto floppy = Write(L"FLOPPY_WIN\\f.dxf", TextDxf("AC1009"));
    Confirm([&](HWND dialog) {
        Click(dialog, kFloppyRadio);
        EXPECT_EQ(kVersion + L"AC1009(GX-5)", VersionOf(dialog, L"f.dxf"));
        Click(dialog, kDiskRadio);  // of that name there is none
        EXPECT_EQ(kNoFile, Text(dialog, kVersionText));
        Click(dialog, kFloppyRadio);
    });
    EXPECT_EQ(floppy.generic_string(), input.inputFileName);
    for (const std::wstring name : {L"a.dxf", L"b.dxf"}) {
        Write(L"DXF\\" + name, TextDxf("AC1009"));
        Confirm([&](HWND dialog) { GiveName(dialog, name); });
    }
    std::filesystem::remove(home / L"DXF\\b.dxf");
    Look([&](HWND dialog) {
        EXPECT_EQ((Names{L"b.dxf", L"a.dxf"}), Items(dialog, kRecentCombo));
        Pick(dialog, kRecentCombo, 1);
        EXPECT_EQ(L"a.dxf", Text(dialog, kFileNameEdit));
        EXPECT_EQ(kFileNameEdit, FocusId());
        EXPECT_EQ(kVersion + L"AC1009(GX-5)", Text(dialog, kVersionText));
        EXPECT_EQ((Names{L"a.dxf", L"b.dxf"}), Items(dialog, kRecentCombo));
        Pick(dialog, kRecentCombo, 1);  // gone from the disk
        ExpectRefusal(dialog, L"b.dxf", kFileNameEdit, L"ＤＸＦ読込み");
        EXPECT_EQ(Names{L"a.dxf"}, Items(dialog, kRecentCombo));
        Click(dialog, kFloppyRadio);  // a list of its own
        EXPECT_EQ(Names{L"f.dxf"}, Items(dialog, kRecentCombo));
        Click(dialog, kDiskRadio);
        EXPECT_EQ(2u, Items(dialog, kRecentCombo).size());  // as kept: nothing has been confirmed

        constexpr COLORREF kRaised = RGB(0xE0, 0xE0, 0xE0), kSunken = RGB(0, 0, 0);
        const RECT label = Area(dialog, kFileNameLabel), edge{label.left, label.top - 4, label.right, label.top - 3};
        const auto framed = [&](COLORREF color) { return HasColor(dialog, edge, color); };
        MoveMouse(Centre(Control(dialog, kFileNameLabel)));
        Until("the raised frame", [&] { return framed(kRaised) && !framed(kSunken); });
        Focus(dialog, kScaleEdit);
        EXPECT_FALSE(framed(kRaised));
        MouseDown();
        MouseUp();
        const HWND menu = OpenMenu();
        EXPECT_EQ(Names{L"一覧クリア"}, MenuItems(menu));
        MoveMouse(Centre(menu));
        Until("the sunken frame", [&] { return framed(kSunken); });
        PickMenu(0);
        Settle();
        Until("no frame", [&] { return !framed(kSunken) && !framed(kRaised); });
        EXPECT_TRUE(Items(dialog, kRecentCombo).empty());
    });
    Look([&](HWND dialog) { EXPECT_TRUE(Items(dialog, kRecentCombo).empty()); });
}

TEST_F(Import, ARecordOfRubbishIsSurvivedAndAnUnsavedModelAskedFor) {
    std::memset(&record.info, 0xFF, sizeof record.info);
    const ImportRecord before = record;
    KiroHostSetModified(true);
    WriteDwg();
    EXPECT_EQ(0, Run([&](HWND dialog) {
                  GiveName(dialog, L"a.dwg");
                  Click(dialog, IDOK);
                  ReadBox();
                  Key(VK_RETURN);  // once too often
                  EXPECT_EQ(dialog, Settle());
                  EXPECT_TRUE(before == record);
                  Click(dialog, IDOK);
                  Expect(L"ＤＷＧ読込み", L"モデルが保存されていません。\nモデルが壊れます。\nよろしいですか。",
                         MB_ICONWARNING, IDYES);
              }));
    // A table's name that is none goes back as it came.
    EXPECT_EQ(0, std::memcmp(before.info.input.layerTableFileName, input.layerTableFileName, 257));
}
