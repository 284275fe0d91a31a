// The import dialog's fields: what they show, what follows from what.
#include <filesystem>
#include <fstream>
#include <sstream>

#include "entry/host/FixedText.h"
#include "tests/dialogs/ImportDialogTest.h"

using namespace kiro::drive;

namespace {

constexpr wchar_t kPlaceholder[] = L"ファイル名を入力 または［参照］でファイルを選択";

}  // namespace

TEST_F(ImportDialog, StartsAsTheCommandSays) {
    for (const bool dwg : {false, true}) {
        record.info.input.inputIsDwg = dwg ? 7 : 0;
        record.info.input.pictureMatrix = dwg ? 0 : 1;
        WriteFixedText(record.info.input.layerTableFileName, "DXFKIRO_LAYER\xC9\xBD");  // EUC for 表
        Look([&](HWND dialog) {
            EXPECT_EQ(dwg ? L"ＤＷＧ読込み" : L"ＤＸＦ読込み", Text(dialog));
            EXPECT_EQ(dwg ? L"ＤＷＧ" : L"ＤＸＦ", Text(dialog, kDrawingRadio));
            EXPECT_TRUE(IsChecked(dialog, kDrawingRadio) && IsChecked(dialog, kNewRadio) &&
                        IsChecked(dialog, kDiskRadio));
            EXPECT_EQ(!dwg, IsChecked(dialog, kMatrixOnRadio));
            EXPECT_EQ(dwg, IsChecked(dialog, kMatrixOffRadio));
            EXPECT_FALSE(IsEnabled(dialog, kMatrixOnRadio) || IsEnabled(dialog, kMatrixOffRadio));
            EXPECT_EQ(L"1", Text(dialog, kPictureEdit));
            EXPECT_EQ(L"1", Text(dialog, kScaleEdit));
            EXPECT_EQ(L"DXFSUB", Text(dialog, kSubModelEdit));
            EXPECT_EQ(L"DXFKIRO_LAYER表", Text(dialog, kTableEdit));
            EXPECT_EQ(kPlaceholder, Text(dialog, kFileNameEdit));
            EXPECT_EQ(L"ファイルバージョン：", Text(dialog, kVersionText));

            const auto pictures = Items(dialog, kPictureCombo);
            ASSERT_EQ(512u, pictures.size());
            EXPECT_EQ(L"-256", pictures.front());
            EXPECT_EQ(L"-1", pictures[255]);
            EXPECT_EQ(L"1", pictures[256]);
            EXPECT_EQ(L"256", pictures.back());
            EXPECT_EQ(256, Picked(dialog, kPictureCombo));
            EXPECT_EQ(
                (std::vector<std::wstring>{
                    L"1",    L"1/2",  L"1/3",  L"1/4",  L"1/5",   L"1/6",   L"1/8",   L"1/10",  L"1/20",  L"1/30",
                    L"1/40", L"1/50", L"1/60", L"1/80", L"1/100", L"1/200", L"1/300", L"1/400", L"1/500", L"1/1000",
                    L"2",    L"3",    L"4",    L"5",    L"10",    L"20",    L"30",    L"40",    L"50",    L"100"}),
                Items(dialog, kScaleCombo));
        });
    }
}

TEST_F(ImportDialog, GuidanceFollowsTheFocus) {
    Look([&](HWND dialog) {
        const struct {
            int id;
            const wchar_t* text;
        } rows[] = {{kScaleEdit, L"図面の縮尺倍率を入力してください。"},
                    {kSubModelEdit, L"サブモデル名を入力してください。"},
                    {kFileNameEdit, L"ファイル名を入力してください。ワイルドカード文字が使えます。"},
                    {kPictureEdit, L"格納先ピクチャ番号を入力してください。"},
                    {kTableEdit, L""}};
        for (const auto& row : rows) {
            Focus(dialog, row.id);
            EXPECT_EQ(row.text, Guidance(dialog));
            EXPECT_FALSE(IsGuidanceError(dialog));
            Focus(dialog, kDrawingRadio);
            EXPECT_EQ(L"", Guidance(dialog));
        }
    });
}

TEST_F(ImportDialog, PictureAndMatrixGoTogether) {
    Look([&](HWND dialog) {
        Type(dialog, kPictureEdit, L"-3");
        EXPECT_EQ(253, Picked(dialog, kPictureCombo));
        EXPECT_TRUE(IsEnabled(dialog, kMatrixOnRadio) && IsEnabled(dialog, kMatrixOffRadio));
        Type(dialog, kPictureEdit, L"007");  // no entry reads so: nothing follows
        EXPECT_EQ(253, Picked(dialog, kPictureCombo));
        EXPECT_TRUE(IsEnabled(dialog, kMatrixOnRadio));
        Pick(dialog, kPictureCombo, 511);
        EXPECT_EQ(L"256", Text(dialog, kPictureEdit));
        EXPECT_EQ(kPictureEdit, FocusId());
        EXPECT_FALSE(IsEnabled(dialog, kMatrixOnRadio));
        Pick(dialog, kPictureCombo, 0);
        EXPECT_EQ(L"-256", Text(dialog, kPictureEdit));
        EXPECT_TRUE(IsEnabled(dialog, kMatrixOffRadio));
    });
}

TEST_F(ImportDialog, AddedModelsTakeThePicturesScale) {
    const auto model = Write(L"model.json", R"({"baseScale": 0.5, "pictures": [{"number": 2, "scale": 0.1}]})");
    ASSERT_EQ(0, KiroHostLoadModel(model.c_str(), nullptr, 0));
    Look([&](HWND dialog) {
        Type(dialog, kScaleEdit, L"5");
        Click(dialog, kAddRadio);
        EXPECT_FALSE(IsEnabled(dialog, kScaleEdit) || IsEnabled(dialog, kScaleCombo));
        EXPECT_EQ(L"1/2", Text(dialog, kScaleEdit));
        Type(dialog, kPictureEdit, L"-2");
        EXPECT_EQ(L"1/20", Text(dialog, kScaleEdit));
        Type(dialog, kPictureEdit, L"x");
        EXPECT_EQ(L"1", Text(dialog, kScaleEdit));
        Click(dialog, kNewRadio);
        Type(dialog, kPictureEdit, L"-257");
        Click(dialog, kAddRadio);
        EXPECT_EQ(L"1", Text(dialog, kScaleEdit));
        Type(dialog, kPictureEdit, L"2");
        Click(dialog, kNewRadio);
        EXPECT_TRUE(IsEnabled(dialog, kScaleEdit) && IsEnabled(dialog, kScaleCombo));
        EXPECT_EQ(L"1", Text(dialog, kScaleEdit));
        Click(dialog, kAddRadio);
        EXPECT_EQ(L"1/20", Text(dialog, kScaleEdit));
    });
}

TEST_F(ImportDialog, ScaleListKeepsOneEntryOfTheUsers) {
    Look([&](HWND dialog) {
        const auto enter = [&](const wchar_t* text) {
            Focus(dialog, kScaleEdit);
            Type(dialog, kScaleEdit, text);
            Focus(dialog, kSubModelEdit);
            return Items(dialog, kScaleCombo);
        };
        EXPECT_EQ(L"1/7", enter(L" 1/7 ").front());
        const auto second = enter(L"1/9");
        EXPECT_EQ(31u, second.size());
        EXPECT_EQ(L"1/9", second.front());
        EXPECT_EQ(31u, enter(L"1/50").size());
        EXPECT_EQ(12, Picked(dialog, kScaleCombo));
        Pick(dialog, kScaleCombo, 30);
        EXPECT_EQ(L"100", Text(dialog, kScaleEdit));
        EXPECT_EQ(kScaleEdit, FocusId());
        Focus(dialog, kSubModelEdit);
        Type(dialog, kSubModelEdit, L"　A ");
        Focus(dialog, kScaleEdit);
        EXPECT_EQ(L"A", Text(dialog, kSubModelEdit));
    });
}

TEST_F(ImportDialog, CombosReachOverTheirEditsWhileTheyHaveTheFocus) {
    const int pairs[][2] = {{kPictureCombo, kPictureEdit}, {kScaleCombo, kScaleEdit}, {kRecentCombo, kFileNameEdit}};
    Look([&](HWND dialog) {
        GiveName(dialog, L"図面.dxf");
        for (const auto& [combo, edit] : pairs) {
            RECT narrow{}, wide{}, field{}, again{};
            GetWindowRect(Control(dialog, combo), &narrow);
            GetWindowRect(Control(dialog, edit), &field);
            Focus(dialog, combo);
            GetWindowRect(Control(dialog, combo), &wide);
            EXPECT_EQ(field.left, wide.left);
            EXPECT_EQ(narrow.right, wide.right);
            EXPECT_TRUE(HasColor(dialog, edit, GetSysColor(COLOR_WINDOWTEXT))) << "its text cannot be read";
            Focus(dialog, kSubModelEdit);
            GetWindowRect(Control(dialog, combo), &again);
            EXPECT_TRUE(EqualRect(&narrow, &again));
        }
    });
}

TEST_F(ImportDialog, ListsTakeTheKeyboard) {
    Look([&](HWND dialog) {
        // Walking through the open list decides nothing; Enter does, Esc does not.
        for (const auto& [end, text] : {std::pair(VK_ESCAPE, L"1"), std::pair(VK_RETURN, L"1/3")}) {
            Focus(dialog, kScaleCombo);
            Key(VK_F4);
            Until("the open list",
                  [&] { return SendMessageW(Control(dialog, kScaleCombo), CB_GETDROPPEDSTATE, 0, 0) != 0; });
            Key(VK_DOWN);
            Key(VK_DOWN);
            EXPECT_EQ(L"1", Text(dialog, kScaleEdit));
            Key(static_cast<WORD>(end));
            EXPECT_EQ(dialog, Settle());
            EXPECT_EQ(text, Text(dialog, kScaleEdit));
            Focus(dialog, kSubModelEdit);
        }
    });
}

TEST_F(ImportDialog, ChoosersStartWhereTheFilesAre) {
    const auto choose = [&](HWND dialog, int button, int field, const std::wstring& types,
                            const std::filesystem::path& file) {
        Write(file.wstring(), TextDxf("AC1009"));
        Click(dialog, button);
        const HWND chooser = Settle();
        EXPECT_EQ(0u, Text(chooser, 0x470).find(types));  // the system chooser's list of file types
        // A name alone means the folder that is shown.
        SendMessageW(GetDlgItem(chooser, 0x47C), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(file.filename().c_str()));
        Click(chooser, IDOK);
        EXPECT_EQ(dialog, Settle());
        EXPECT_EQ((home / file).wstring(), Text(dialog, field));
    };
    Look([&](HWND dialog) {
        choose(dialog, kBrowseButton, kFileNameEdit, L"ＤＸＦファイル", L"DXF\\a.dxf");
        choose(dialog, kTableBrowseButton, kTableEdit, L"レイヤ変換テーブルファイル (DXFKIRO_LAYER*)",
               L"DXF\\TABLE\\DXFKIRO_LAYER1");
        Click(dialog, kShapeRadio);
        choose(dialog, kBrowseButton, kFileNameEdit, L"シェイプファイル", L"DXF\\SHAPE\\s.shp");
        Click(dialog, kFloppyRadio);
        Click(dialog, kShapeRadio);
        choose(dialog, kBrowseButton, kFileNameEdit, L"シェイプファイル", L"FLOPPY_WIN\\s.shp");
        Click(dialog, kDrawingRadio);
        choose(dialog, kBrowseButton, kFileNameEdit, L"ＤＸＦファイル", L"FLOPPY_WIN\\f.dxf");
    });
    record.info.input.inputIsDwg = 1;
    Look([&](HWND dialog) { choose(dialog, kBrowseButton, kFileNameEdit, L"ＤＷＧファイル", L"DWG\\a.dwg"); });
}

TEST_F(ImportDialog, PlaceholderStandsWhileNoNameIsEntered) {
    Look([&](HWND dialog) {
        EXPECT_TRUE(HasColor(dialog, kFileNameEdit, RGB(0x80, 0x80, 0x80)));
        EXPECT_FALSE(HasColor(dialog, kSubModelEdit, RGB(0x80, 0x80, 0x80)));
        Focus(dialog, kFileNameEdit);
        EXPECT_EQ(L"*", Text(dialog, kFileNameEdit));
        Focus(dialog, kSubModelEdit);
        EXPECT_EQ(kPlaceholder, Text(dialog, kFileNameEdit));
        GiveName(dialog, L"　none.dxf ");
        EXPECT_EQ(L"none.dxf", Text(dialog, kFileNameEdit));
        EXPECT_EQ(L"ファイルが見つかりません", Text(dialog, kVersionText));
        GiveName(dialog, L"  ");
        EXPECT_EQ(kPlaceholder, Text(dialog, kFileNameEdit));
        EXPECT_EQ(L"ファイルバージョン：", Text(dialog, kVersionText));
        GiveDrawing(dialog);
        EXPECT_EQ(L"ファイルバージョン：AC1015(2000)", Text(dialog, kVersionText));
        EXPECT_FALSE(HasColor(dialog, kFileNameEdit, RGB(0x80, 0x80, 0x80)));
        Click(dialog, kShapeRadio);  // another type: another file
        EXPECT_EQ(kPlaceholder, Text(dialog, kFileNameEdit));
        EXPECT_EQ(L"ファイルバージョン：", Text(dialog, kVersionText));
    });
}

TEST_F(ImportDialog, VersionLineOfDxfFiles) {
    const std::string header = "0\nSECTION\n2\nHEADER\n";
    const struct {
        std::string bytes;
        const wchar_t* line;
    } rows[] = {
        {TextDxf("AC1006"), L"AC1006(GX-3)"},
        {TextDxf("AC1009"), L"AC1009(GX-5)"},
        {TextDxf("AC1012"), L"AC1012(R13)"},
        {TextDxf("AC1014"), L"AC1014(R14)"},
        {TextDxf("AC1018"), L"AC1018(2004)"},
        {TextDxf("AC1021"), L"AC1021(2007)"},
        {TextDxf("AC1024"), L"AC1024(2010)"},
        {TextDxf("AC1027"), L"AC1027(2013)"},
        {TextDxf("AC1032"), L"AC1032(不明)"},
        {TextDxf("AC1015&x"), L"AC1015&x(不明)"},
        {"999\nmade by hand\n" + TextDxf("AC1009"), L"AC1009(GX-5)"},
        {"0\nSECTION\n2\nTABLES\n0\nENDSEC\n" + TextDxf("AC1009"), L""},
        {"2\nHEADER\n" + TextDxf("AC1009"), L""},
        {header + "9\n$ACADMAINTVER\n70\n6\n9\n$ACADVERSION\n-5\nx\n1\nAC1012\n", L"AC1012(R13)"},
        {header + "9\n$ACADVER\n9\n$DWGCODEPAGE\n1\nAC1012\n", L""},
        {header + "9\n$ACADVER\n1", L""},  // cut off inside the pair
        {header + "9\n" + std::string(10 << 20, 'x') + "\n9\n$ACADVER\n1\nAC1012\n", L"AC1012(R13)"},
        {std::string("AutoCAD Binary DXF\r\n\x1A\0\0SECTION\0\2HEADER\0\x09$ACADVER\0\1AC1009\0", 57), L"AC1009(GX-5)"},
        {std::string("AutoCAD Binary DXF\r\n\x1A\0\0SECTION\0\2HEADER\0\x09$ACADVER\0\1AC1", 53), L""},
        {header + "0\nENDSEC\n" + TextDxf("AC1012"), L""},
        {header + "9\n$ACADVER\n0\nSECTION\n1\nAC1012\n", L""},
        {"0\nSECTION\n9\n$ACADVER\n1\nAC1012\n", L""},
        {"0\nSECTIOX\n2\nHEADER\n9\n$ACADVER\n1\nAC1012\n", L""},
        {"0\nSECTION\n2\nHEADEX\n9\n$ACADVER\n1\nAC1012\n", L""},
        {header + "9\n$ACADVEX\n1\nAC1012\n", L""},
        {header + "9\n$ACADVER\n1\n\n", L"(不明)"},
        {"", L""},
    };
    Look([&](HWND dialog) {
        for (const auto& row : rows) {
            Write(L"DXF\\v.dxf", row.bytes);
            EXPECT_EQ(std::wstring(L"ファイルバージョン：") + row.line, VersionOf(dialog, L"v.dxf"))
                << row.bytes.substr(0, 80);
        }
        std::filesystem::create_directories(home / L"DXF\\folder.dxf");
        EXPECT_EQ(L"ファイルが見つかりません", VersionOf(dialog, L"folder.dxf"));
    });
}

// Drawings of many programs, where a folder of them lies beside the project.
TEST_F(ImportDialog, VersionLineOfRealDrawings) {
    const std::filesystem::path folder = KIRO_SAMPLES;
    std::ifstream list(folder / "manifest.tsv");
    if (!list) GTEST_SKIP() << "no drawings beside the project";
    std::string line;
    std::getline(list, line);  // the columns' names
    int drawings = 0;
    while (std::getline(list, line)) {
        std::vector<std::wstring> columns;
        std::istringstream fields(line);
        for (std::string field; std::getline(fields, field, '\t');) columns.emplace_back(field.begin(), field.end());
        const std::wstring name = columns[0], version = columns[6] == L"none" ? L"" : columns[6];
        record.info.input.inputIsDwg = name.ends_with(L".dwg");
        const std::wstring type = name.ends_with(L".dwg") ? L"DWG" : L"DXF";
        // A copy of its own: the drawings may be read-only, and a copy of the file would be too.
        std::ostringstream bytes;
        bytes << std::ifstream(folder / name, std::ios::binary).rdbuf();
        Write(type + L"\\" + name, bytes.str());
        Look([&](HWND dialog) {
            const std::wstring shown = VersionOf(dialog, name);
            EXPECT_EQ(0u, shown.find(L"ファイルバージョン：" + version)) << line;
            EXPECT_EQ(version.empty(), shown.ends_with(L"：")) << line;
        });
        ++drawings;
    }
    EXPECT_GT(drawings, 0);
}

TEST_F(ImportDialog, VersionLineOfDwgFiles) {
    record.info.input.inputIsDwg = 1;
    const struct {
        std::string bytes;
        const wchar_t* line;
    } rows[] = {{"AC1014" + std::string(200, '\0'), L"ファイルバージョン：AC1014(R14)"},
                {"AC1032" + std::string(200, '\0'), L"ファイルバージョン：AC1032(不明)"},
                {"MC0.0" + std::string(200, '\0'), L"ファイルバージョン："},
                {"AC1015", L"ファイルバージョン：AC1015(2000)"},
                {"AC101", L"ファイルバージョン："},
                {"AC1", L"ファイルバージョン："}};
    Look([&](HWND dialog) {
        for (const auto& row : rows) {
            Write(L"DWG\\v.dwg", row.bytes);
            EXPECT_EQ(row.line, VersionOf(dialog, L"v.dwg"));
        }
        EXPECT_EQ(L"ファイルが見つかりません", VersionOf(dialog, L"none.dwg"));
    });
}

TEST_F(ImportDialog, TabKeyFollowsTheEye) {
    Look([&](HWND) {
        EXPECT_EQ(kDrawingRadio, FocusId());
        std::vector<int> stops;
        for (int i = 0; i < 40 && (stops.empty() || FocusId() != kDrawingRadio); ++i) {
            stops.push_back(FocusId());
            const HWND before = FocusWindow();
            Key(VK_TAB);
            Until("the next stop", [&] { return FocusWindow() != before; });
        }
        EXPECT_EQ(
            (std::vector<int>{kDrawingRadio, kNewRadio, kPictureEdit, kPictureCombo, kScaleEdit, kScaleCombo,
                              kDiskRadio, kFileNameEdit, kRecentCombo, kBrowseButton, kSubModelEdit, kTableEdit,
                              kTableBrowseButton, kParametersButton, kAttributesButton, kBatchButton, IDOK, IDCANCEL}),
            stops);
    });
}

TEST_F(ImportDialog, ExplanationsFollowTheMouse) {
    enum class Side { kLeft, kCentre, kRight, kBefore };
    const struct {
        int zone;
        const wchar_t* firstLine;
        std::size_t lines;
        Side side;
    } rows[] = {{kDataTypeZone, L"入力ファイルの種別を選択します。", 5, Side::kLeft},
                {kModeZone, L"入力モードを選択します。", 6, Side::kLeft},
                {kPictureZone, L"格納先のピクチャを指定します。", 12, Side::kCentre},
                {kMatrixZone, L"ピクチャマトリックスを使用しての座標変換を指定します。", 6, Side::kRight},
                {kScaleZone, L"倍率を指定します。", 5, Side::kBefore}};
    Look([&](HWND dialog) {
        for (const auto& row : rows) {
            RECT zone{};
            GetWindowRect(Control(dialog, row.zone), &zone);
            MoveMouse(Centre(Control(dialog, row.zone)));
            Until("the explanation of the zone", [&] { return FirstLineOfPopup(dialog) == row.firstLine; });
            const HWND popup = Popups(dialog)[0];
            EXPECT_EQ(row.lines, Lines(popup).size());
            RECT place{};
            GetWindowRect(popup, &place);
            EXPECT_EQ(zone.bottom + 5, place.top);
            const LONG width = place.right - place.left;
            const LONG left = row.side == Side::kLeft     ? zone.left
                              : row.side == Side::kCentre ? (zone.left + zone.right) / 2 - width / 2
                              : row.side == Side::kRight  ? zone.right - width
                                                          : zone.left - width;
            EXPECT_EQ(left, place.left);
            EXPECT_TRUE(HasColor(popup, {20, 2, 21, 3}, 0x00FFFFF0));
            EXPECT_FALSE(HasColor(popup, {20, 2, width - 20, 60}, GetSysColor(COLOR_BTNFACE)));
            const HRGN shape = CreateRectRgn(0, 0, 0, 0);
            GetWindowRgn(popup, shape);
            const LONG right = width - 1, bottom = place.bottom - place.top - 1;
            for (const auto& [x, y] :
                 {std::pair(0L, 0L), std::pair(right, 0L), std::pair(0L, bottom), std::pair(right, bottom)}) {
                EXPECT_FALSE(PtInRegion(shape, x, y)) << "the corners are round";
            }
            EXPECT_TRUE(PtInRegion(shape, width / 2, 1) && PtInRegion(shape, 1, bottom / 2));
            DeleteObject(shape);
            GUITHREADINFO thread{};
            thread.cbSize = sizeof thread;
            GetGUIThreadInfo(UiThread(), &thread);
            EXPECT_EQ(dialog, thread.hwndActive);
            EXPECT_TRUE(IsWindowEnabled(dialog));
        }
        MoveMouse(Centre(Control(dialog, kSubModelEdit)));
        Until("no explanation", [&] { return Popups(dialog).empty(); });
        const auto hover = [&] {
            MoveMouse(Centre(Control(dialog, kModeZone)));
            Until("an explanation", [&] { return Popups(dialog).size() == 1; });
        };
        hover();
        SetWindowPos(dialog, nullptr, 5, 5, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
        Until("no explanation at the old place", [&] { return Popups(dialog).empty(); });
        MoveMouse(Centre(Control(dialog, kSubModelEdit)));
        hover();
        // Straight into the explanation: the pointer is outside the zone.
        MoveMouse(Centre(Popups(dialog)[0]));
        Until("no explanation under the pointer", [&] { return Popups(dialog).empty(); });
        hover();
        // Closed with the popup open: Look presses "取消".
    });
    EXPECT_TRUE(IsWindowEnabled(owner));
}

TEST_F(ImportDialog, OpensTheDialogsBehindItsButtons) {
    WriteFixedText(record.info.input.layerTableFileName, "\xC9\xBD");  // EUC for 表
    const ImportRecord before = record;
    Look([&](HWND dialog) {
        for (const auto& [button, title] :
             {std::pair(kParametersButton, L"ＤＸＦ読込みパラメータ"),
              std::pair(kAttributesButton, L"読込み：属性変換"), std::pair(kBatchButton, L"ＤＸＦ読込み 一括変換")}) {
            Click(dialog, button);
            const HWND nested = Settle();
            EXPECT_EQ(title, Text(nested));
            EXPECT_FALSE(IsWindowEnabled(dialog));
            const bool shown = std::string(record.info.input.layerTableFileName) == "\x95\x5C";
            EXPECT_EQ(button == kBatchButton, shown) << "the batch dialog has the name as it is shown";
            Click(nested, IDCANCEL);
            EXPECT_EQ(dialog, Settle());
        }
    });
    EXPECT_TRUE(before == record) << "the batch dialog had the table's name in another form";
}
