// Writing for the two databases: what follows what, the checks in their order, names that are there already, and what
// the host finds in the record.
#include "GuardedMemory.h"
#include "resources/peliondb/KrPlDraw.ids.h"
#include "resources/peliondb/KrPlOut.ids.h"
#include "resources/varosdb/KrVrOut.ids.h"
#include "tests/dialogs/DatabaseHost.h"

using namespace kiro::drive;

namespace {

constexpr wchar_t kPlw[] = L"ＰＬ／Ｗ ＤＢ書込み", kVaros[] = L"Ｖａｒｏｓ ＤＢ書込み（ＩＢＭ）";
constexpr wchar_t kRepeated[] = L"図面名が重複しています。";

// Two pages, two pictures of which the second is current, and an active list.
constexpr char8_t kRecord[] =
    u8R"({"plwVariant": 1, "plDrive": "C", "plGroup": "KAN1", "plUser": "QA", "dbSource": 9,
    "dbPicture": 2, "dbActiveListCount": 3, "dbPageCounts": {"7": 1, "120": 2}, "dbPageNames": {"7": "表"},
    "dbPictureCounts": {"2": 5, "9": 1}, "dbPictureNames": {"9": "側板"}, "dbOutModelCount": 3})";

class DatabaseOutput : public DatabaseHost {
  protected:
    static Json With(const char8_t* members) {
        Json all = Parsed(kRecord);
        all.update(Parsed(members));
        return all;
    }
    // The command of one of the two, by what they have in common.
    static void FillIn(HWND dialog, bool pelion, const wchar_t* file, const wchar_t* drawing) {
        Play(dialog, {{pelion ? kPlOutFileEdit : kVrOutFileEdit, file},
                      {pelion ? kPlOutDrawingEdit : kVrOutDrawingEdit, drawing}});
    }
};

}  // namespace

TEST_F(DatabaseOutput, DestinationDecidesWhatCanBeSaid) {
    const auto look = [](HWND dialog, const std::vector<int>& destinations) {
        for (const int destination : destinations) {
            Click(dialog, destination);
            const bool file = destination == kPlOutFileRadio, second = destination == kPlOutDatabaseRadio;
            ExpectAll(dialog, file,
                      {kPlOutNewRadio, kPlOutAddRadio, kPlOutFileEdit, kPlOutRecentCombo, kPlOutBrowseButton});
            ExpectAll(dialog, second, {kPlOutDriveEdit, kPlOutDriveButton});
            ExpectAll(dialog, !file, {kPlOutGroupButton, kPlOutUserButton});
        }
    };
    Run("PlOutputDlg", With(u8"{}"), [&](HWND dialog) {
        EXPECT_EQ(kPlw, Text(dialog));
        look(dialog, {kPlOutDatabaseRadio, kPlOutFloppyRadio, kPlOutFileRadio});
    });
    EXPECT_EQ(0, record["dbSource"]);
    Run("PlOutputDlg", With(u8R"({"plwVariant": 0})"), [&](HWND dialog) {
        EXPECT_EQ(L"フロッピー", Text(dialog, kPlOutDatabaseRadio));
        for (const int id : {kPlOutFloppyRadio, kPlOutDriveEdit, kPlOutDriveButton}) EXPECT_FALSE(IsShown(dialog, id));
        look(dialog, {kPlOutFileRadio, kPlOutDatabaseRadio});
    });
    EXPECT_EQ(2, record["dbSource"]);  // of the normal variant: the floppy
    std::filesystem::remove_all(home / L"FLOPPY_WIN");
    Run("PlOutputDlg", With(u8"{}"), [&](HWND dialog) {
        Click(dialog, kPlOutFloppyRadio);
        Answer(ReadBox(), IDOK);
        Sync();
        EXPECT_TRUE(IsChecked(dialog, kPlOutFileRadio));
        EXPECT_TRUE(IsEnabled(dialog, kPlOutFileEdit));
    });
    EXPECT_EQ(0, record["dbSource"]);
}

TEST_F(DatabaseOutput, ModelDecidesWhichDataThereAre) {
    const auto expect = [](HWND dialog, int chosen, std::size_t pages, bool byName) {
        ExpectAll(dialog, byName, {kPlOutPatternEdit, kPlOutModelsButton});
        ExpectAll(dialog, !byName, {kPlOutDrawingEdit, kPlOutCurrentRadio, kPlOutActiveRadio});
        ExpectAll(dialog, true, {kPlOutPageRadio, kPlOutPictureRadio});
        ExpectAll(dialog, chosen == kPlOutPageRadio, {kPlOutPageCombo});
        ExpectAll(dialog, chosen == kPlOutPictureRadio, {kPlOutPictureCombo});
        EXPECT_TRUE(IsChecked(dialog, chosen));
        EXPECT_EQ(pages, Items(dialog, kPlOutPageCombo).size());
    };
    Run("PlOutputDlg", With(u8"{}"), [&](HWND dialog) {
        expect(dialog, kPlOutCurrentRadio, 2, false);
        EXPECT_EQ((std::vector<std::wstring>{L"  7 : 表", L"120 : "}), Items(dialog, kPlOutPageCombo));
        Type(dialog, kPlOutDrawingEdit, L"A");
        Click(dialog, kPlOutByNameRadio);
        expect(dialog, kPlOutPictureRadio, 256, true);
        EXPECT_EQ(0, Picked(dialog, kPlOutPictureCombo));
        EXPECT_EQ(L"", Text(dialog, kPlOutDrawingEdit));
        Type(dialog, kPlOutPatternEdit, L"x*");
        Click(dialog, kPlOutModelsButton);
        ASSERT_EQ(dialog, Settle());
        EXPECT_EQ(L"該当するモデルが見つかりません。", Guidance(dialog));
        Click(dialog, kPlOutPageRadio);
        expect(dialog, kPlOutPageRadio, 256, true);
        Click(dialog, kPlOutCurrentModelRadio);
        expect(dialog, kPlOutCurrentRadio, 2, false);
        EXPECT_EQ(L"*", Text(dialog, kPlOutPatternEdit));
    });
    Run("PlOutputDlg", Json::object(), [&](HWND dialog) {
        for (int turn = 0; turn < 2; ++turn) {
            ExpectAll(dialog, false, {kPlOutPageRadio, kPlOutActiveRadio});
            Click(dialog, kPlOutByNameRadio);
            Click(dialog, kPlOutCurrentModelRadio);
        }
        Click(dialog, kPlOutPictureRadio);
        Expect(L"Ｐｅｌｉｏｎ ＤＢ書込み", L"ピクチャにデータがありません", MB_ICONWARNING, IDOK);
        Sync();
        EXPECT_TRUE(IsChecked(dialog, kPlOutCurrentRadio));
    });
}

TEST_F(DatabaseOutput, WritesTheChoicesOfBothDatabases) {
    const struct {
        bool pelion;
        int radio;
        int entry;                  // of its list
        int page, picture, active;  // in the record
    } ways[] = {
        {true, kPlOutCurrentRadio, -1, 0, 2, 0}, {true, kPlOutPageRadio, 1, 120, 0, 0},
        {true, kPlOutPictureRadio, 1, 0, 9, 0},  {true, kPlOutActiveRadio, -1, 0, 0, 1},
        {false, kVrOutPictureRadio, 0, 0, 2, 0}, {false, kVrOutActiveRadio, -1, 0, 0, 1},
    };
    for (const auto& way : ways) {
        const char* folder = way.pelion ? "TARNA/DOS/" : "TARNA/DB_R/";
        const int returned = Run(way.pelion ? "PlOutputDlg" : "VrOutputDlg", With(u8"{}"), [&](HWND dialog) {
            Click(dialog, way.radio);
            const int list = way.radio == kPlOutPageRadio && way.pelion ? kPlOutPageCombo : kPlOutPictureCombo;
            if (way.entry >= 0) Pick(dialog, list, way.entry);
            FillIn(dialog, way.pelion, L"新.out", L" 図a ");
            Click(dialog, IDOK);
        });
        EXPECT_EQ(0, returned);
        EXPECT_EQ(HomePath(std::string(folder) + Utf8(u8"新.out")), record["dbFileName"]);
        EXPECT_EQ(way.page, record["dbOutPage"]);
        EXPECT_EQ(way.picture, record["dbPicture"]);
        EXPECT_EQ(way.active, record["dbFromActiveList"]);
        ExpectRecord(
            u8R"({"dbDrawingName": "図A", "dbSource": 0, "dbMode": 0, "dbModelByName": 0, "plDrive": "C",
                           "plGroup": "KAN1", "plUser": "QA", "dbOutModelCount": 0, "dbModelPattern": ""})");
    }
    // A picture without items is refused for Pelion alone.
    const Json empty = With(u8R"({"dbPicture": 3})");
    Run("PlOutputDlg", empty, [](HWND dialog) {
        FillIn(dialog, true, L"新.out", L"A");
        Click(dialog, IDOK);
        Expect(kPlw, L"出力するアイテムがありません。", MB_ICONERROR, IDOK);
    });
    EXPECT_EQ(0, Run("VrOutputDlg", empty, [](HWND dialog) {
                  FillIn(dialog, false, L"新.out", L"A");
                  Click(dialog, IDOK);
              }));
}

TEST_F(DatabaseOutput, ModelsByNameGetDrawingNamesOfTheirOwn) {
    for (const bool pelion : {true, false}) {
        const int returned = Run(pelion ? "PlOutputDlg" : "VrOutputDlg", With(u8"{}"), [&](HWND dialog) {
            Click(dialog, pelion ? kPlOutByNameRadio : kVrOutByNameRadio);
            Play(dialog, {{pelion ? kPlOutFileEdit : kVrOutFileEdit, L"新.out"},
                          {pelion ? kPlOutPatternEdit : kVrOutPatternEdit, L"P?m*"}});
            ExpectFault(dialog, L"モデルが選択されていません。", pelion ? kPlOutModelsButton : kVrOutModelsButton,
                        MB_ICONERROR);
            Click(dialog, pelion ? kPlOutModelsButton : kVrOutModelsButton);
            const Grid grid(Settle(), kGrid);
            EXPECT_EQ(L"PUMP-A", grid.Cell(0, 2));
            grid.Click(1, 2);
            grid.Write(L"ﾎﾟﾝﾌﾟ2");
            grid.Click(1, 0);
            Click(Settle(), IDOK);
            ASSERT_EQ(dialog, Settle());
            Click(dialog, IDOK);
        });
        EXPECT_EQ(0, returned);
        ExpectRecord(
            u8R"({"dbModelByName": 1, "dbPicture": 1, "dbModelPattern": "P?m*", "dbDrawingName": "",
            "dbSelectAllAllowed": 1, "dbOutModelCount": 2, "dbDrawings": [
            {"selected": 0, "drawingName": "PUMP-A", "modelName": "pump-A"},
            {"selected": 1, "drawingName": "ﾎﾟﾝﾌﾟ2", "modelName": "PUMP-b"}]})");
    }
}

TEST_F(DatabaseOutput, ChecksInTheOrderOfTheScreen) {
    const struct {
        int id;
        const wchar_t* text;
        int refused;
        const wchar_t* fault;
    } kSteps[] = {
        {kPlOutFileEdit, L"*", kPlOutFileEdit, L"図面ファイル名が入力されていません。"},
        {kPlOutFileEdit, L"a?", kPlOutFileEdit, L"図面ファイル名が入力されていません。"},
        {kPlOutFileEdit, L"a|b", kPlOutFileEdit, L"図面ファイル名に無効な文字があります。"},
        {kPlOutFileEdit, L"新.dos", kPlOutGroupEdit, L"グループ名が入力されていません。"},
        {kPlOutGroupEdit, L"図図図", kPlOutGroupEdit, L"グループ名が長すぎます。（半角で5文字）"},
        {kPlOutGroupEdit, L"g", kPlOutUserEdit, L"ユーザ名が入力されていません。"},
        {kPlOutUserEdit, L"u", kPlOutDrawingEdit, L"図面名が入力されていません。"},
        {kPlOutDrawingEdit, L"図面図面図面図面図面図面", kPlOutDrawingEdit, L"図面名が長すぎます。（半角で23文字）"},
    };
    Run("PlOutputDlg", Json::object(), [&](HWND dialog) {
        for (const auto& step : kSteps) {
            Focus(dialog, step.id);
            Type(dialog, step.id, step.text);
            ExpectFault(dialog, step.fault, step.refused, MB_ICONERROR);
        }
        Type(dialog, kPlOutFileEdit, L"図ソ.dos");
        Click(dialog, IDOK);
        Answer(ReadBox(), IDNO);  // it is there: written over?
        // It left for the box: "*" alone is no name.
        Type(dialog, kPlOutFileEdit, L"*");
        Focus(dialog, kPlOutUserEdit);
        EXPECT_EQ(L"ファイル名を入力 または［参照］でファイルを選択", Text(dialog, kPlOutFileEdit));
    });
    Run("PlOutputDlg", With(u8R"({"plDrive": ""})"), [](HWND dialog) {
        Click(dialog, kPlOutDatabaseRadio);
        ExpectFault(dialog, L"ドライブ名が入力されていません。", kPlOutDriveEdit, MB_ICONERROR);
    });
}

TEST_F(DatabaseOutput, NamesThatAreThereAlready) {
    constexpr const wchar_t* kOnDrive[] = {L"KAN1/QA/Pipe"};
    const kiro::PelionDrive drive(kOnDrive);
    Write(L"TARNA\\DOS\\no.dos", "KIRO VAROS 1\n");
    constexpr wchar_t kAsked[] = L"図面名が重複しています。\n上書きしますか。";
    const struct {
        int destination, source;
        const wchar_t *file, *name, *told;
        int answer, returned;
    } kCases[] = {
        {kPlOutFileRadio, 0, L"図ソ.dos", L"abc-1", kRepeated, IDOK, 1},
        {kPlOutFileRadio, 0, L"no.dos", L"A", L"ＤＯＳファイルではありません。", IDOK, 1},
        {kPlOutFileRadio, 0, L"図ソ.dos", L"ABC-2", nullptr, 0, 0},
        {kPlOutDatabaseRadio, 1, nullptr, L"PIPE", kAsked, IDNO, 1},
        {kPlOutDatabaseRadio, 1, nullptr, L"PIPE", kAsked, IDYES, 0},
        {kPlOutFloppyRadio, 2, nullptr, L"PIPE", nullptr, 0, 0},
    };
    for (const auto& way : kCases) {
        const int returned = Run("PlOutputDlg", With(u8"{}"), [&](HWND dialog) {
            Click(dialog, way.destination);
            if (way.file) Play(dialog, {{kPlOutAddRadio, nullptr}, {kPlOutFileEdit, way.file}});
            Type(dialog, kPlOutDrawingEdit, way.name);
            Click(dialog, IDOK);
            if (!way.told) return;
            EXPECT_EQ(way.answer == IDOK ? IDOK : IDNO, ReadBox().defaultButton);
            Expect(kPlw, way.told, way.answer == IDOK ? MB_ICONERROR : MB_ICONWARNING, way.answer);
        });
        EXPECT_EQ(way.returned, returned);
        EXPECT_EQ(std::pair(way.source, way.file ? 1 : 0), std::pair(int{record["dbSource"]}, int{record["dbMode"]}));
        EXPECT_EQ(!way.file, record["dbFileName"] == "");
    }
    const auto varos = [](const wchar_t* file, const std::wstring& text) {
        return [=](HWND dialog) {
            Click(dialog, kVrOutAddRadio);
            FillIn(dialog, false, file, L"frame-a");
            Click(dialog, IDOK);
            Expect(kVaros, text, MB_ICONERROR, IDOK);
        };
    };
    EXPECT_EQ(1, Run("VrOutputDlg", With(u8"{}"), varos(L"plant.vdb", kRepeated)));
    Write(L"TARNA\\DB_R\\表.vdb", "x");
    const std::wstring path = home.generic_wstring() + L"/TARNA/DB_R/表.vdb";
    EXPECT_EQ(
        1, Run("VrOutputDlg", With(u8"{}"), varos(L"表.vdb", path + L"\n\nＸＡＲＶＥＮＴＯファイルではありません。")));
}

TEST_F(DatabaseOutput, BrowsesForDriveGroupAndUser) {
    constexpr const wchar_t* kOnDrive[] = {L"設計/山田/"};
    const kiro::PelionDrive drive(kOnDrive);
    const struct {
        int destination, button;
        std::vector<int> lists;  // what is before them is known
        const wchar_t* user;
    } kWays[] = {
        {kPlOutDatabaseRadio, kPlOutDriveButton, {kPlFirstList, kPlSecondList, kPlThirdList}, L"山田"},
        {kPlOutDatabaseRadio, kPlOutGroupButton, {kPlSecondList, kPlThirdList}, L"山田"},
        {kPlOutDatabaseRadio, kPlOutUserButton, {kPlThirdList}, L"山田"},
        {kPlOutFloppyRadio, kPlOutUserButton, {kPlSecondList}, L"QA"},
    };
    Run("PlOutputDlg", With(u8"{}"), [&](HWND dialog) {
        for (const auto& way : kWays) {
            Click(dialog, way.destination);
            Click(dialog, way.button);
            const HWND chooser = Settle();
            for (const int list : way.lists) Grid(chooser, list).Click(0, 0);
            Click(chooser, kPlSetButton);
            ASSERT_EQ(dialog, Settle());
            EXPECT_EQ(L"設計", Text(dialog, kPlOutGroupEdit));
            EXPECT_EQ(way.user, Text(dialog, kPlOutUserEdit));
        }
        Click(dialog, kPlOutParametersButton);
        Click(Settle(), IDCANCEL);
    });
    // The second choice of the normal variant is the floppy, and its button still shows the drives.
    Run("PlOutputDlg", With(u8R"({"plwVariant": 0})"), [&](HWND dialog) {
        Click(dialog, kPlOutDatabaseRadio);
        Click(dialog, kPlOutGroupButton);
        EXPECT_NE(nullptr, GetDlgItem(Settle(), kPlThirdList));
        Click(Settle(), IDCANCEL);
    });
}

// Counts of two billion, null pointers, fields without an end.
TEST_F(DatabaseOutput, RecordsThatMakeNoSenseDoNoHarm) {
    kiro::GuardedMemory<TARNAINFO> info;
    TarnaDatabaseView& database = info->database;
    KiroHostSetDrawingRoom(1);
    for (const int filler : {0xFF, 0x7F}) {
        for (const auto command : {PlInputDlg, VrInputDlg, PlOutputDlg, VrOutputDlg}) {
            std::memset(info.Get(), filler, info.Bytes().size());
            database.dbOutParams = nullptr;
            const auto play = [&](HWND dialog) {
                const auto press = [&](int id) {
                    Click(dialog, id);
                    while (Settle() != dialog) CloseBox(Settle());
                };
                press(IDOK);
                for (const int id : {kPlOutByNameRadio, kPlOutModelsButton, kVrOutByNameRadio, kVrOutModelsButton})
                    if (command != PlInputDlg && command != VrInputDlg && IsEnabled(dialog, id)) press(id);
            };
            EXPECT_EQ(1, Drive([&] { return command(info.Get()); }, [&] { Use(play); }));
        }
        for (const auto list : {GetPlInputDrawing, GetVrInputDrawing}) EXPECT_EQ(-1, list(info.Get()));
        for (const auto check : {CheckPlDrawingName, CheckVrDrawingName}) check(info.Get());
        EXPECT_EQ(0, SetPlInputDrawing(info.Get()));
    }
}

TEST_F(DatabaseOutput, HostListsNoMoreThanTheRecordHolds) {
    std::string file = "KIRO VAROS 1\n" + std::string(41, 'x') + "\n\n";
    for (int i = 0; i < 2000; ++i) file += "D" + std::to_string(i) + "\n";
    Write(L"TARNA\\DB_R\\large.vdb", file);
    kiro::GuardedMemory<TARNAINFO> info(2 * sizeof(TarnaDrawing));
    KiroHostSetDrawingRoom(3);
    const std::string path = HomePath("TARNA/DB_R/large.vdb");
    path.copy(info->database.dbFileName, path.size());
    EXPECT_EQ(1, GetVrInputDrawing(info.Get()));
    EXPECT_EQ(3, info->database.dbDrawingCount);
    EXPECT_STREQ("D0", info->database.dbDrawings[0].drawingName);
    EXPECT_STREQ("D2", (&info->database.dbDrawings[0])[2].modelName);
}
