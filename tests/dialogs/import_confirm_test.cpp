// The import dialog's end: refusals in their order, and the record that the host receives.
#include "entry/host/FixedText.h"
#include "tests/dialogs/ImportDialogTest.h"

using namespace kiro::drive;

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
        GiveName(dialog, L"none.dxf");
        Click(dialog, IDOK);
        Answer(ReadBox(), IDOK);
        EXPECT_EQ(kFileNameEdit, (Settle(), FocusId())) << "the file comes before the submodel";
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
    // Where the scale is that of a picture, the picture is at fault.
    const auto model = Write(L"model.json", R"({"baseScale": 10000000})");
    ASSERT_EQ(0, KiroHostLoadModel(model.c_str(), nullptr, 0));
    Look([&](HWND dialog) {
        Click(dialog, kAddRadio);
        ExpectRefusal(dialog, L"無効な倍率です", kPictureEdit);
    });
}

TEST_F(ImportDialog, AcceptsTheLimits) {
    for (const auto& [picture, scale] :
         {std::pair(L"-256", L"0.0000011"), std::pair(L"256", L"999999"), std::pair(L"+007", L"1")}) {
        EXPECT_EQ(0, Run([&](HWND dialog) {
                      Type(dialog, kPictureEdit, picture);
                      Type(dialog, kScaleEdit, scale);
                      GiveDrawing(dialog);
                      Type(dialog, kSubModelEdit, std::wstring(26, L'x'));
                      Click(dialog, IDOK);
                  }));
        EXPECT_STREQ(std::string(26, 'x').c_str(), record.info.input.subModelName);
        EXPECT_EQ(_wtoi(picture), record.info.input.pictureNumber);
        EXPECT_EQ(0, record.info.input.dataType);
        EXPECT_EQ(1, record.info.input.pictureMatrix);
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

TEST_F(ImportDialog, RefusesCharactersThatCannotBeStored) {
    record.info.input.inputIsDwg = 1;
    Write(L"DWG\\図面.dxf", "AC1015" + std::string(100, '\0'));
    const ImportRecord before = record;
    Look([&](HWND dialog) {
        GiveName(dialog, L"図\xD842\xDF9F.dxf");  // a character beyond code page 932
        Click(dialog, IDOK);
        const Box box = ReadBox();
        EXPECT_NE(std::wstring::npos, box.text.find(L"「\xD842\xDF9F」"));
        EXPECT_EQ(L"ＤＸＦ読込み", box.caption);
        Answer(box, IDOK);
        EXPECT_EQ(dialog, Settle());
        EXPECT_EQ(kFileNameEdit, FocusId());
        EXPECT_EQ(L"図\xD842\xDF9F.dxf", Text(dialog, kFileNameEdit)) << "the user's text was lost";
        GiveDrawing(dialog);
        Type(dialog, kSubModelEdit, L"\x00E9");
        Click(dialog, IDOK);
        EXPECT_EQ(L"ＤＸＦ読込み", ReadBox().caption);
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
              std::wstring(L"locked.dxf"), std::wstring(L"a|*.dxf"), std::wstring(255, L'表')}) {
            GiveName(dialog, name);
            Click(dialog, IDOK);
            const Box box = ReadBox();
            EXPECT_EQ(static_cast<UINT>(MB_ICONWARNING), box.icon);
            EXPECT_EQ(L"ＤＸＦ読込み", box.caption);
            texts.push_back(box.text.substr(box.text.find(L"\n\n")));  // behind the file's name
            Answer(box, IDOK);
            EXPECT_EQ(dialog, Settle());
            EXPECT_EQ(kFileNameEdit, FocusId());
        }
        std::sort(texts.begin(), texts.end());
        EXPECT_EQ(texts.end(), std::adjacent_find(texts.begin(), texts.end())) << "two faults with one text";
    });
    CloseHandle(locked);
    record.info.input.inputIsDwg = 1;
    Look([&](HWND dialog) {
        GiveName(dialog, L"none.dwg");
        Click(dialog, IDOK);
        EXPECT_EQ(L"ＤＷＧ読込み", ReadBox().caption);
        Answer(ReadBox(), IDOK);
        Settle();
    });
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
        Type(dialog, kFileNameEdit, L"patter?.dxf");
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
    // A name with a character that Shift-JIS does not have goes back as it came.
    WriteFixedText(record.info.input.layerTableFileName, "DXFKIRO_LAYER\x8F\xB0\xA1");
    const ImportRecord before = record;
    EXPECT_EQ(0, Run([&](HWND dialog) {
                  GiveDrawing(dialog);
                  Click(dialog, IDOK);
              }));
    EXPECT_STREQ(before.info.input.layerTableFileName, record.info.input.layerTableFileName);
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
                  Key(VK_RETURN);  // once too often
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
        EXPECT_EQ(kFileNameEdit, FocusId());
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
        Focus(dialog, kScaleEdit);
        EXPECT_FALSE(HasColor(dialog, frame, RGB(0xE0, 0xE0, 0xE0)));
        MouseDown();
        MouseUp();
        const HWND menu = OpenMenu();
        EXPECT_EQ(std::vector<std::wstring>{L"一覧クリア"}, MenuItems(menu));
        MoveMouse(Centre(menu));
        Until("the sunken frame", [&] { return HasColor(dialog, frame, RGB(0, 0, 0)); });
        PickMenu(0);
        Settle();
        Until("no frame", [&] {
            return !HasColor(dialog, frame, RGB(0, 0, 0)) && !HasColor(dialog, frame, RGB(0xE0, 0xE0, 0xE0));
        });
        EXPECT_TRUE(Items(dialog, kRecentCombo).empty());
    });
    Look([&](HWND dialog) { EXPECT_TRUE(Items(dialog, kRecentCombo).empty()); });
}

TEST_F(ImportDialog, FloppiesHaveTheirOwnList) {
    Write(L"FLOPPY_WIN\\f.dxf", TextDxf("AC1009"));
    EXPECT_EQ(0, Run([&](HWND dialog) {
                  Click(dialog, kFloppyRadio);
                  GiveName(dialog, L"f.dxf");
                  EXPECT_EQ(L"ファイルバージョン：AC1009(GX-5)", Text(dialog, kVersionText));
                  Click(dialog, kDiskRadio);  // of that name there is none
                  EXPECT_EQ(L"ファイルが見つかりません", Text(dialog, kVersionText));
                  Click(dialog, kFloppyRadio);
                  Click(dialog, IDOK);
              }));
    EXPECT_TRUE(std::string(record.info.input.inputFileName).ends_with("/FLOPPY_WIN/f.dxf"));
    Look([&](HWND dialog) {
        EXPECT_TRUE(Items(dialog, kRecentCombo).empty());
        Click(dialog, kFloppyRadio);
        EXPECT_EQ(std::vector<std::wstring>{L"f.dxf"}, Items(dialog, kRecentCombo));
    });
}

TEST_F(ImportDialog, ImportsWhereNothingCanBeKept) {
    Write(L"settings", "a file where the recent lists have their folder");
    EXPECT_EQ(0, Run([&](HWND dialog) {
                  GiveDrawing(dialog);
                  Click(dialog, IDOK);
              }));
    EXPECT_EQ(1, record.info.input.pictureNumber);
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
