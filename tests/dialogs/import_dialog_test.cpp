// The import dialog as an operator meets it, up to the record that the host receives.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "entry/host/FixedText.h"
#include "resources/dxfin/KrDxfIn.ids.h"
#include "tests/dialogs/TestHost.h"

using namespace kiro::drive;

namespace {

constexpr wchar_t kPlaceholder[] = L"ファイル名を入力 または［参照］でファイルを選択";

class ImportDialog : public TestHost {
  protected:
    // Runs the command. The user gets the open dialog and closes it.
    int Run(const std::function<void(HWND dialog)>& user) {
        return Drive([this] { return DxfInputDlg(&record.info); }, [&] { user(Settle()); });
    }
    // The same, closed with "取消" at the end.
    void Look(const std::function<void(HWND dialog)>& user) {
        EXPECT_EQ(1, Run([&](HWND dialog) {
                      user(dialog);
                      Click(dialog, IDCANCEL);
                  }));
    }
    void GiveName(HWND dialog, const std::wstring& name) {
        Focus(dialog, kFileNameEdit);
        Type(dialog, kFileNameEdit, name);
        Focus(dialog, kSubModelEdit);
    }
    // A drawing in the DXF folder, chosen by its name alone.
    void GiveDrawing(HWND dialog) {
        Write(L"DXF\\図面.dxf", TextDxf("AC1015"));
        GiveName(dialog, L"図面.dxf");
    }
    // "処理開始" must be refused with this box and leave the focus there.
    void ExpectRefusal(HWND dialog, const std::wstring& text, int focus) {
        Click(dialog, IDOK);
        const Box box = ReadBox();
        EXPECT_EQ(L"ＤＸＦ読込み", box.caption);
        EXPECT_EQ(text, box.text);
        EXPECT_EQ(static_cast<UINT>(MB_ICONWARNING), box.icon);
        EXPECT_EQ(std::vector<int>{IDOK}, box.buttons);
        Answer(box, IDOK);
        EXPECT_EQ(dialog, Settle()) << "closed after a refusal";
        EXPECT_EQ(focus, FocusId());
    }
    std::wstring VersionOf(HWND dialog, const std::wstring& name) {
        GiveName(dialog, name);
        return Text(dialog, kVersionText);
    }

    // The upper edge of the frame around the label.
    static RECT LabelFrame(HWND dialog) {
        RECT rect{};
        GetWindowRect(Control(dialog, kFileNameLabel), &rect);
        MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&rect), 2);
        return {rect.left, rect.top - 4, rect.right, rect.top - 3};
    }
    // Whether a point of a control is painted in the colour.
    static bool HasColor(HWND dialog, int id, COLORREF color) {
        const HWND control = Control(dialog, id);
        RECT rect{};
        GetWindowRect(control, &rect);
        MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&rect), 2);
        return HasColor(dialog, rect, color);
    }
    static bool HasColor(HWND window, const RECT& rect, COLORREF color) {
        RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
        const HDC dc = GetDC(window);
        bool found = false;
        for (int y = rect.top; y < rect.bottom && !found; ++y) {
            for (int x = rect.left; x < rect.right && !found; ++x) found = GetPixel(dc, x, y) == color;
        }
        ReleaseDC(window, dc);
        return found;
    }

    // The first line of the one explanation that is open; empty while one goes and another comes.
    static std::wstring FirstLineOfPopup(HWND dialog) {
        try {
            const auto popups = Popups(dialog);
            const auto lines = popups.size() == 1 ? Lines(popups[0]) : std::vector<std::wstring>();
            return lines.empty() ? std::wstring() : lines[0];
        } catch (const Failure&) {
            return {};
        }
    }

    ImportRecord record;
};

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
    });
}

TEST_F(ImportDialog, CombosReachOverTheirEditsWhileTheyHaveTheFocus) {
    const int pairs[][2] = {{kPictureCombo, kPictureEdit}, {kScaleCombo, kScaleEdit}, {kRecentCombo, kFileNameEdit}};
    Look([&](HWND dialog) {
        for (const auto& [combo, edit] : pairs) {
            RECT narrow{}, wide{}, field{}, again{};
            GetWindowRect(Control(dialog, combo), &narrow);
            GetWindowRect(Control(dialog, edit), &field);
            Focus(dialog, combo);
            GetWindowRect(Control(dialog, combo), &wide);
            EXPECT_EQ(field.left, wide.left);
            EXPECT_EQ(narrow.right, wide.right);
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

TEST_F(ImportDialog, EnterTakesTheTextsAsTheyAreWhenTheFocusLeaves) {
    Write(L"DXF\\a.dxf", TextDxf("AC1015"));
    EXPECT_EQ(0, Run([&](HWND dialog) {
                  Type(dialog, kPictureEdit, L" 5");
                  Focus(dialog, kFileNameEdit);
                  Type(dialog, kFileNameEdit, L" a.dxf　");
                  Key(VK_RETURN);
              }));
    EXPECT_EQ(5, record.info.input.pictureNumber);
    EXPECT_TRUE(std::string(record.info.input.inputFileName).ends_with("/DXF/a.dxf"));
}

TEST_F(ImportDialog, ChoosersListTheRightFiles) {
    const auto filter = [](HWND dialog, int button) {
        Click(dialog, button);
        const HWND chooser = Settle();
        const std::wstring text = Text(chooser, 0x470);  // the system chooser's list of file types
        Click(chooser, IDCANCEL);
        EXPECT_EQ(dialog, Settle());
        return text;
    };
    Look([&](HWND dialog) {
        EXPECT_EQ(0u, filter(dialog, kBrowseButton).find(L"ＤＸＦファイル"));
        EXPECT_NE(std::wstring::npos,
                  filter(dialog, kTableBrowseButton).find(L"レイヤ変換テーブルファイル (DXFKIRO_LAYER*)"));
        Click(dialog, kShapeRadio);
        EXPECT_EQ(0u, filter(dialog, kBrowseButton).find(L"シェイプファイル"));
        EXPECT_TRUE(std::filesystem::exists(home / L"DXF\\SHAPE"));
        Click(dialog, kDrawingRadio);
        Click(dialog, kFloppyRadio);
        filter(dialog, kBrowseButton);
        EXPECT_TRUE(std::filesystem::exists(home / L"FLOPPY_WIN"));
    });
}

TEST_F(ImportDialog, PlaceholderStandsWhileNoNameIsEntered) {
    Look([&](HWND dialog) {
        EXPECT_TRUE(HasColor(dialog, kFileNameEdit, RGB(0x80, 0x80, 0x80)));
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
        std::filesystem::copy_file(folder / name, home / type / name);
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
                {"AC1", L"ファイルバージョン："}};
    Look([&](HWND dialog) {
        for (const auto& row : rows) {
            Write(L"DWG\\v.dwg", row.bytes);
            EXPECT_EQ(row.line, VersionOf(dialog, L"v.dwg"));
        }
        EXPECT_EQ(L"ファイルが見つかりません", VersionOf(dialog, L"none.dwg"));
    });
}

TEST_F(ImportDialog, RefusesBadEntriesInScreenOrder) {
    const std::wstring picture = L"無効なピクチャ番号です。（-256～-1、1～256）";
    Look([&](HWND dialog) {
        // Everything is wrong; each refusal is for the first that is left.
        Type(dialog, kScaleEdit, L"1/0");
        Type(dialog, kSubModelEdit, std::wstring(27, L'x'));
        for (const wchar_t* text : {L"0", L"257", L"-257", L"", L"１", L"1x", L"99999999999"}) {
            Type(dialog, kPictureEdit, text);
            ExpectRefusal(dialog, picture, kPictureEdit);
        }
        Type(dialog, kPictureEdit, L"-1");
        for (const wchar_t* text : {L"1/0", L"0.000001", L"1000000", L"1e6", L"", L"-1", L"nan"}) {
            Type(dialog, kScaleEdit, text);
            ExpectRefusal(dialog, L"無効な倍率です", kScaleEdit);
        }
        Type(dialog, kScaleEdit, L"1/1000");
        GiveDrawing(dialog);
        ExpectRefusal(dialog, L"サブモデル名が長すぎます（最大半角２６文字）", kSubModelEdit);
        Type(dialog, kSubModelEdit, L"ＡＢＣＤＥＦＧＨＩＪＫＬＭＮ");  // 14 characters, 28 bytes
        ExpectRefusal(dialog, L"サブモデル名が長すぎます（最大半角２６文字）", kSubModelEdit);
        Type(dialog, kSubModelEdit, L" 　");
        ExpectRefusal(dialog, L"サブモデル名が入力されていません", kSubModelEdit);
        Type(dialog, kSubModelEdit, L"A*B");
        ExpectRefusal(dialog, L"サブモデル名に無効な文字が入力されています", kSubModelEdit);
    });
    // The caption of the refusals is the same when DWG files are read.
    record.info.input.inputIsDwg = 1;
    Look([&](HWND dialog) {
        Type(dialog, kPictureEdit, L"0");
        ExpectRefusal(dialog, picture, kPictureEdit);
    });
}

TEST_F(ImportDialog, AcceptsTheLimits) {
    for (const auto& [picture, scale] : {std::pair(L"-256", L"0.0000011"), std::pair(L"256", L"999999")}) {
        EXPECT_EQ(0, Run([&](HWND dialog) {
                      Type(dialog, kPictureEdit, picture);
                      Type(dialog, kScaleEdit, scale);
                      GiveDrawing(dialog);
                      Type(dialog, kSubModelEdit, std::wstring(26, L'x'));
                      Click(dialog, IDOK);
                  }));
        EXPECT_STREQ(std::string(26, 'x').c_str(), record.info.input.subModelName);
        EXPECT_EQ(picture, std::to_wstring(record.info.input.pictureNumber));
    }
    const std::pair<int, std::size_t> limits[] = {
        {kPictureEdit, 12}, {kScaleEdit, 20}, {kSubModelEdit, 26}, {kFileNameEdit, 255}};
    Look([&](HWND dialog) {
        for (const auto& [edit, limit] : limits) {
            Focus(dialog, edit);
            Type(dialog, edit, L"");
            TypeKeys(dialog, edit, std::wstring(limit + 1, L'1'));
            EXPECT_EQ(limit, Text(dialog, edit).size()) << edit;
        }
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

TEST_F(ImportDialog, RefusesCharactersThatCannotBeStored) {
    const ImportRecord before = record;
    Look([&](HWND dialog) {
        GiveName(dialog, L"図\xD842\xDF9F.dxf");  // a character beyond code page 932
        Click(dialog, IDOK);
        const Box box = ReadBox();
        EXPECT_NE(std::wstring::npos, box.text.find(L"「\xD842\xDF9F」"));
        Answer(box, IDOK);
        EXPECT_EQ(dialog, Settle());
        EXPECT_EQ(kFileNameEdit, FocusId());
        EXPECT_EQ(L"図\xD842\xDF9F.dxf", Text(dialog, kFileNameEdit)) << "the user's text was lost";
        GiveDrawing(dialog);
        Type(dialog, kSubModelEdit, L"\x00E9");
        Click(dialog, IDOK);
        Answer(ReadBox(), IDOK);
        EXPECT_EQ(kSubModelEdit, (Settle(), FocusId()));
    });
    EXPECT_TRUE(before == record);
}

TEST_F(ImportDialog, RefusesFilesThatCannotBeRead) {
    Write(L"DXF\\empty.dxf", "");
    std::filesystem::create_directories(home / L"DXF\\folder.dxf");
    const auto lockedPath = Write(L"DXF\\locked.dxf", TextDxf("AC1015"));
    const HANDLE locked = CreateFileW(lockedPath.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(INVALID_HANDLE_VALUE, locked);
    Look([&](HWND dialog) {
        std::vector<std::wstring> texts;
        for (const std::wstring& name :
             {std::wstring(L"none.dxf"), std::wstring(L"empty.dxf"), std::wstring(L"folder.dxf"),
              std::wstring(L"locked.dxf"), std::wstring(L"a|b.dxf"), std::wstring(255, L'表')}) {
            GiveName(dialog, name);
            Click(dialog, IDOK);
            const Box box = ReadBox();
            EXPECT_EQ(static_cast<UINT>(MB_ICONWARNING), box.icon);
            texts.push_back(box.text.substr(box.text.find(L"\n\n")));  // behind the file's name
            Answer(box, IDOK);
            EXPECT_EQ(dialog, Settle());
            EXPECT_EQ(kFileNameEdit, FocusId());
        }
        std::sort(texts.begin(), texts.end());
        EXPECT_EQ(texts.end(), std::adjacent_find(texts.begin(), texts.end())) << "two faults with one text";
    });
    CloseHandle(locked);
}

TEST_F(ImportDialog, PatternsOpenTheChooser) {
    const auto drawing = Write(L"DXF\\pattern.dxf", TextDxf("AC1015"));
    Look([&](HWND dialog) {
        Click(dialog, IDOK);  // nothing entered: the pattern is "*"
        HWND chooser = Settle();
        ASSERT_NE(dialog, chooser);
        Click(chooser, IDCANCEL);
        EXPECT_EQ(dialog, Settle());
        EXPECT_EQ(kFileNameEdit, FocusId());
        Type(dialog, kFileNameEdit, L"p*.dxf");
        Click(dialog, IDOK);
        chooser = Settle();
        const HWND name = GetDlgItem(chooser, 0x47C);  // the system chooser's file-name combo
        ASSERT_NE(nullptr, name);
        SendMessageW(name, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(drawing.c_str()));
        Click(chooser, IDOK);
        EXPECT_EQ(dialog, Settle()) << "the choice alone must not start the import";
        EXPECT_EQ(drawing.wstring(), Text(dialog, kFileNameEdit));
        EXPECT_EQ(L"ファイルバージョン：AC1015(2000)", Text(dialog, kVersionText));
    });
}

TEST_F(ImportDialog, ConfirmedRecordHoldsTheChoices) {
    ImportRecord expected = record;
    const int returned = Run([&](HWND dialog) {
        Click(dialog, kShapeRadio);
        Click(dialog, kAddRadio);
        Type(dialog, kPictureEdit, L"-12");
        Click(dialog, kMatrixOffRadio);
        Click(dialog, kNewRadio);
        Type(dialog, kScaleEdit, L"1/250");
        GiveDrawing(dialog);
        Type(dialog, kSubModelEdit, L"ｻﾌﾞモデル_1  ");
        Click(dialog, IDOK);
    });
    EXPECT_EQ(0, returned);

    TarnaImportView& input = expected.info.input;
    input.inputStatus = 0;
    input.addMode = 0;
    input.dataType = 1;
    input.pictureNumber = -12;
    input.pictureMatrix = 0;
    input.scale = 1.0 / 250;
    std::string folder = (home / L"DXF").string();
    std::replace(folder.begin(), folder.end(), '\\', '/');
    WriteFixedText(input.inputFileName, folder + "/\xBF\xDE\xCC\xCC.dxf");  // EUC for 図面
    WriteFixedText(input.subModelName, "\x8E\xBB\x8E\xCC\x8E\xDE\xA5\xE2\xA5\xC7\xA5\xEB_1");
    WriteFixedText(input.password, "");
    EXPECT_EQ(input.scale, record.info.input.scale);
    EXPECT_STREQ(input.inputFileName, record.info.input.inputFileName);
    EXPECT_STREQ(input.subModelName, record.info.input.subModelName);
    EXPECT_TRUE(expected == record) << "a byte that is not the dialog's was changed";
}

TEST_F(ImportDialog, ConfirmedTableIsInInternalForm) {
    std::filesystem::create_directories(home / L"DXF\\TABLE");
    const auto table = Write(L"DXF\\TABLE\\DXFKIRO_LAYER表", "/\n");
    EXPECT_EQ(0, Run([&](HWND dialog) {
                  GiveDrawing(dialog);
                  Click(dialog, kTableBrowseButton);
                  const HWND chooser = Settle();
                  SendMessageW(GetDlgItem(chooser, 0x47C), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(table.c_str()));
                  Click(chooser, IDOK);
                  EXPECT_EQ(dialog, Settle());
                  EXPECT_EQ(table.wstring(), Text(dialog, kTableEdit));
                  Click(dialog, IDOK);
              }));
    const std::string first = record.info.input.layerTableFileName;
    EXPECT_NE(std::string::npos, first.find("/DXF/TABLE/DXFKIRO_LAYER\xC9\xBD"));
    // The next call shows that name and hands it on as it is.
    EXPECT_EQ(0, Run([&](HWND dialog) {
                  GiveDrawing(dialog);
                  Click(dialog, IDOK);
              }));
    EXPECT_EQ(first, record.info.input.layerTableFileName);
}

TEST_F(ImportDialog, CancelLeavesTheRecordByteForByte) {
    for (const bool closeBox : {false, true}) {
        const ImportRecord before = record;
        EXPECT_EQ(1, Run([&](HWND dialog) {
                      Click(dialog, kAddRadio);
                      Type(dialog, kPictureEdit, L"-5");
                      Click(dialog, kMatrixOffRadio);
                      GiveDrawing(dialog);
                      closeBox ? CloseBox(dialog) : Click(dialog, IDCANCEL);
                  }));
        EXPECT_TRUE(before == record);
    }
}

TEST_F(ImportDialog, AsksBeforeAnUnsavedModelIsLost) {
    KiroHostSetModified(true);
    record.info.input.inputIsDwg = 1;
    Write(L"DWG\\a.dwg", "AC1015" + std::string(100, '\0'));
    EXPECT_EQ(0, Run([&](HWND dialog) {
                  GiveName(dialog, L"a.dwg");
                  Click(dialog, IDOK);
                  Box box = ReadBox();
                  EXPECT_EQ(L"モデルが保存されていません。\nモデルが壊れます。\nよろしいですか。", box.text);
                  EXPECT_EQ(L"ＤＷＧ読込み", box.caption);
                  EXPECT_EQ((std::vector<int>{IDYES, IDNO}), box.buttons);
                  Answer(box, IDNO);
                  EXPECT_EQ(dialog, Settle());
                  Click(dialog, kAddRadio);  // an added drawing loses nothing
                  Click(dialog, kNewRadio);
                  Click(dialog, IDOK);
                  Answer(ReadBox(), IDYES);
              }));
    EXPECT_EQ(0, Run([&](HWND dialog) {
                  GiveName(dialog, L"a.dwg");
                  Click(dialog, kAddRadio);
                  Click(dialog, IDOK);
              }));
    EXPECT_EQ(1, record.info.input.addMode);
}

TEST_F(ImportDialog, RecentFilesLastAcrossCalls) {
    for (const wchar_t* name : {L"a.dxf", L"b.dxf"}) {
        Write(std::wstring(L"DXF\\") + name, TextDxf("AC1009"));
        EXPECT_EQ(0, Run([&](HWND dialog) {
                      GiveName(dialog, name);
                      Click(dialog, IDOK);
                  }));
    }
    std::filesystem::remove(home / L"DXF\\b.dxf");
    Look([&](HWND dialog) {
        EXPECT_EQ((std::vector<std::wstring>{L"b.dxf", L"a.dxf"}), Items(dialog, kRecentCombo));
        Pick(dialog, kRecentCombo, 1);
        EXPECT_EQ(L"a.dxf", Text(dialog, kFileNameEdit));
        EXPECT_EQ(L"ファイルバージョン：AC1009(GX-5)", Text(dialog, kVersionText));
        EXPECT_EQ((std::vector<std::wstring>{L"a.dxf", L"b.dxf"}), Items(dialog, kRecentCombo));
        Pick(dialog, kRecentCombo, 1);  // gone from the disk
        Click(dialog, IDOK);
        Answer(ReadBox(), IDOK);
        EXPECT_EQ(dialog, Settle());
        EXPECT_EQ(std::vector<std::wstring>{L"a.dxf"}, Items(dialog, kRecentCombo));
        Click(dialog, kFloppyRadio);  // a list of its own
        EXPECT_TRUE(Items(dialog, kRecentCombo).empty());
        Click(dialog, kDiskRadio);
        EXPECT_EQ(2u, Items(dialog, kRecentCombo).size());  // as kept: nothing has been confirmed
        RECT frame = LabelFrame(dialog);
        EXPECT_FALSE(HasColor(dialog, frame, RGB(0, 0, 0)));
        MoveMouse(Centre(Control(dialog, kFileNameLabel)));
        Until("the raised frame", [&] { return HasColor(dialog, frame, RGB(0xE0, 0xE0, 0xE0)); });
        EXPECT_FALSE(HasColor(dialog, frame, RGB(0, 0, 0)));
        MouseDown();
        MouseUp();
        const HWND menu = OpenMenu();
        EXPECT_EQ(std::vector<std::wstring>{L"一覧クリア"}, MenuItems(menu));
        MoveMouse(Centre(menu));
        Until("the sunken frame", [&] { return HasColor(dialog, frame, RGB(0, 0, 0)); });
        PickMenu(0);
        Settle();
        EXPECT_TRUE(Items(dialog, kRecentCombo).empty());
    });
    Look([&](HWND dialog) { EXPECT_TRUE(Items(dialog, kRecentCombo).empty()); });
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
            EXPECT_TRUE(HasColor(popup, {0, 0, width, 40}, 0x00FFFFF0));
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
        // Closed with the popup open: Look presses "取消".
    });
    EXPECT_TRUE(IsWindowEnabled(owner));
}

TEST_F(ImportDialog, OpensTheDialogsBehindItsButtons) {
    WriteFixedText(record.info.input.layerTableFileName, "\xC9\xBD");  // EUC for 表
    ImportRecord expected = record;
    Look([&](HWND dialog) {
        for (const auto& [button, title] :
             {std::pair(kParametersButton, L"ＤＸＦ読込みパラメータ"),
              std::pair(kAttributesButton, L"読込み：属性変換"), std::pair(kBatchButton, L"ＤＸＦ読込み 一括変換")}) {
            Click(dialog, button);
            const HWND nested = Settle();
            EXPECT_EQ(title, Text(nested));
            EXPECT_FALSE(IsWindowEnabled(dialog));
            Click(nested, IDCANCEL);
            EXPECT_EQ(dialog, Settle());
        }
    });
    // The batch dialog takes the table's name from the record, as it is shown: this alone is written before "処理開始".
    WriteFixedText(expected.info.input.layerTableFileName, "\x95\x5C");
    EXPECT_TRUE(expected == record);
}

TEST_F(ImportDialog, SurvivesARecordOfRubbish) {
    std::memset(&record.info, 0xFF, sizeof record.info);
    const ImportRecord before = record;
    Look([&](HWND dialog) {
        EXPECT_EQ(L"ＤＷＧ読込み", Text(dialog));
        EXPECT_LE(Text(dialog, kTableEdit).size(), 257u);
        Write(L"DWG\\a.dwg", "AC1015" + std::string(100, '\0'));
        GiveName(dialog, L"a.dwg");
    });
    EXPECT_TRUE(before == record);
    // A table's name that is none goes back as it came.
    EXPECT_EQ(0, Run([&](HWND dialog) {
                  GiveName(dialog, L"a.dwg");
                  Click(dialog, IDOK);
              }));
    EXPECT_EQ(0, std::memcmp(before.info.input.layerTableFileName, record.info.input.layerTableFileName, 257));
}
