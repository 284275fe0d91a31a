// What the commands of the databases open on their way: what can be chosen, what is refused, and what comes into the
// record. How the windows look is in the golden text.
#include <climits>

#include "catalogue/PelionDrive.h"
#include "dxfin/DrawingSearch.h"
#include "entry/host/FixedText.h"
#include "peliondb/KrPlInDraw1.h"
#include "peliondb/KrPlInDraw2.h"
#include "peliondb/KrPlInDrive.h"
#include "peliondb/KrPlInDrive1.h"
#include "peliondb/KrPlOut.h"
#include "peliondb/KrPlOutDraw.h"
#include "peliondb/KrPlOutParam.h"
#include "resources/grid.ids.h"
#include "resources/peliondb/KrPlDraw.ids.h"
#include "resources/peliondb/KrPlInDrive.ids.h"
#include "resources/peliondb/KrPlOut.ids.h"
#include "resources/peliondb/KrPlOutParam.ids.h"
#include "resources/varosdb/KrVrOutParam.ids.h"
#include "tests/dialogs/CommandHost.h"
#include "tests/dialogs/SilentPlace.h"
#include "varosdb/KrVrOutParam.h"

using namespace kiro::drive;

namespace {

constexpr int kDrawings = 2000;
constexpr wchar_t kFaulty[] = L"設定内容に誤りがあります。";

class DatabaseChoices : public CommandHost {
  protected:
    void ExpectPlace(const char* drive, const char* group, const char* user) {
        EXPECT_STREQ(drive, info().plDrive);
        EXPECT_STREQ(group, info().plGroup);
        EXPECT_STREQ(user, info().plUser);
    }
    template <class Dialog>
    INT_PTR Run(const User& user) {
        Dialog dialog(record());
        return Play(dialog, user);
    }
    TARNAINFO* record() { return reinterpret_cast<TARNAINFO*>(bytes.data()); }
    TarnaDatabaseView& info() { return record()->database; }
    TarnaDrawing& Drawing(int index) { return (+info().dbDrawings)[index]; }
    void AddDrawing(std::int32_t& count, const char* drawing, const char* model) {
        TarnaDrawing& entry = Drawing(count++);
        entry.selected = 7;  // left by the host
        WriteFixedText(entry.drawingName, drawing);
        WriteFixedText(entry.modelName, model);
    }

    static std::wstring Names(HWND dialog, int list) {
        const Grid grid(dialog, list);
        std::wstring names;
        for (int row = 0; row < grid.Rows(); ++row) names += grid.Cell(row, 0) + L" ";
        return names;
    }
    static void Choose(HWND dialog, int list, const wchar_t* name) {
        const Grid grid(dialog, list);
        for (int row = 0; row < grid.Rows(); ++row)
            if (grid.Cell(row, 0) == name) return grid.Click(row, 0);
        throw Failure("there is no such name");
    }
    // As a program presses it: a button that is not enabled does not hinder that.
    static void Confirm(HWND dialog) {
        PostMessageW(dialog, WM_COMMAND, IDOK, 0);
        Sync();
    }
    static void ExpectState(HWND dialog, int button, bool enabled, const std::wstring& guidance, bool error = false) {
        EXPECT_EQ(enabled, IsEnabled(dialog, button));
        EXPECT_EQ(guidance, Guidance(dialog));
        EXPECT_EQ(error, IsGuidanceError(dialog));
    }
    // What is said while the choice is missing, also to a user who goes on without it; then it is made.
    static void MakeChoice(HWND dialog, const std::wstring& what, int list, const wchar_t* name) {
        ExpectState(dialog, IDOK, false, what + L"名を選択してください。");
        Confirm(dialog);
        ExpectState(dialog, IDOK, false, what + L"が選択されていません。", true);
        EXPECT_EQ(list, FocusId());
        Choose(dialog, list, name);
    }
    static void ExpectRefused(HWND dialog, const wchar_t* caption, const std::wstring& message) {
        Click(dialog, IDOK);
        Expect(caption, kFaulty, MB_ICONWARNING, IDOK);
        ExpectState(dialog, IDOK, true, message, true);
    }

    std::vector<char> bytes = std::vector<char>(sizeof(TARNAINFO) + kDrawings * sizeof(TarnaDrawing));
};

}  // namespace

TEST_F(DatabaseChoices, DriveGroupAndUserFollowOneAnother) {
    const wchar_t* const paths[] = {L"KAN1/SUZUKI/", L"KAN1/ACCESS/", L"KAN1/FORMAT/", L"KAN1/TOOLONG/",
                                    L"KAN1/.X/",     L"KAN1/file",    L"GUARD/A/",     L".GRP/A/",
                                    L"表ソ/能登子/", L"表ソ/access/", L"NONE/"};
    const kiro::PelionDrive drive(paths);
    WriteFixedText(info().plDrive, "C");  // left from before
    EXPECT_EQ(IDOK, Run<KrPlInDrive>([](HWND dialog) {
                  EXPECT_FALSE(IsShown(dialog, kPlSetButton));
                  MakeChoice(dialog, L"ドライブ", kPlFirstList, L"C:");
                  EXPECT_EQ(L"KAN1 NONE 表ソ ", Names(dialog, kPlSecondList));
                  MakeChoice(dialog, L"グループ", kPlSecondList, L"KAN1");
                  EXPECT_EQ(L"SUZUKI ", Names(dialog, kPlThirdList));
                  Choose(dialog, kPlSecondList, L"表ソ");
                  EXPECT_EQ(L"access 能登子 ", Names(dialog, kPlThirdList));
                  MakeChoice(dialog, L"ユーザ", kPlThirdList, L"能登子");
                  ExpectState(dialog, IDOK, true, L"");
                  Choose(dialog, kPlFirstList, L"C:");
                  EXPECT_EQ(L"", Names(dialog, kPlThirdList));
                  MakeChoice(dialog, L"グループ", kPlSecondList, L"表ソ");
                  Choose(dialog, kPlThirdList, L"能登子");
                  Click(dialog, IDOK);
              }));
    ExpectPlace("C", "表ソ", "能登子");
}

TEST_F(DatabaseChoices, WhatIsKnownIsChosenAndTheKeysGoOn) {
    const wchar_t* const paths[] = {L"KAN1/SUZUKI/", L"KAN1/TANAKA/", L"KAN2/SATO/"};
    const kiro::PelionDrive drive(paths);
    info().plDriveKnown = info().plGroupKnown = info().plSelectSettingMode = -1;
    std::memcpy(info().plDrive, "CC", 2);  // no NUL
    WriteFixedText(info().plGroup, "KAN1");
    WriteFixedText(info().plUser, "OLD");
    const auto before = bytes;
    EXPECT_EQ(IDCANCEL, Run<KrPlInDrive>([&](HWND dialog) {
                  ExpectState(dialog, kPlSetButton, false, L"ユーザ名を選択してください。");
                  EXPECT_FALSE(IsShown(dialog, IDOK));
                  EXPECT_EQ(kPlThirdList, FocusId());
                  Key(VK_DOWN);
                  Key(VK_DOWN);
                  ExpectState(dialog, kPlSetButton, true, L"");
              }));
    EXPECT_EQ(before, bytes);
    EXPECT_EQ(IDOK, Run<KrPlInDrive>([&](HWND dialog) {
                  Key(VK_DOWN);
                  Key(VK_DOWN);
                  Click(dialog, kPlSetButton);
              }));
    ExpectPlace("C", "KAN1", "TANAKA");

    std::memset(bytes.data(), 0xFF, bytes.size());
    Run<KrPlInDrive>([&](HWND dialog) { ExpectState(dialog, kPlSetButton, false, L"ドライブ名を選択してください。"); });
}

TEST_F(DatabaseChoices, DriveThatDoesNotAnswerOrVanishesHoldsUpNobody) {
    const wchar_t* const paths[] = {L"KAN1/SUZUKI/"};
    const kiro::PelionDrive drive(paths);
    std::optional<SilentPlace> silent(L"C:\\");
    Run<KrPlInDrive>([&](HWND dialog) {
        EXPECT_EQ(L"", Names(dialog, kPlFirstList));
        ExpectState(dialog, IDOK, false, L"ドライブ名を選択してください。（応答なし： C:）");
    });
    silent.reset();
    info().plDriveKnown = 1;
    info().plDrive[0] = 'C';
    Run<KrPlInDrive>([&](HWND dialog) {  // which it stops to do between the lists
        silent.emplace(L"C:\\");
        Choose(dialog, kPlSecondList, L"KAN1");
        ExpectState(dialog, IDOK, false, L"ドライブが応答しません。", true);
        Choose(dialog, kPlFirstList, L"C:");
        ExpectState(dialog, IDOK, false, L"ドライブが応答しません。", true);
        silent.reset();
        Choose(dialog, kPlFirstList, L"C:");
        ExpectState(dialog, IDOK, false, L"グループ名を選択してください。");
        std::filesystem::remove_all(kiro::PelionDrive::Folder());  // it vanishes
        MakeChoice(dialog, L"グループ", kPlSecondList, L"KAN1");
        EXPECT_EQ(L"", Names(dialog, kPlThirdList));
        ExpectState(dialog, IDOK, false, L"ユーザ名を選択してください。");
    });
    info().plwVariant = 1;
    Run<KrPlOut>([&](HWND dialog) {
        silent.emplace(L"C:\\");
        Click(dialog, kPlOutDatabaseRadio);
        Click(dialog, IDOK);
        Expect(L"ＰＬ／Ｗ ＤＢ書込み", kFaulty, MB_ICONERROR, IDOK);
        ExpectState(dialog, IDOK, true, L"ドライブが応答しません。", true);
        EXPECT_EQ(kPlOutDriveEdit, FocusId());
        Click(dialog, kPlOutFileRadio);
        Type(dialog, kPlOutFileEdit, L"C:\\a");
        Click(dialog, IDOK);
        Expect(L"ＰＬ／Ｗ ＤＢ書込み", L"C:\\a\n\nフォルダが応答しません。\nネットワークの接続を確認してください。",
               MB_ICONWARNING, IDOK);
        EXPECT_EQ(kPlOutFileEdit, FocusId());
    });
    EXPECT_EQ(DrawingSearch::Start::kSilent, DrawingSearch().Begin("C:\\*"));
}

TEST_F(DatabaseChoices, ListsEndAt512Names) {
    std::vector<std::wstring> names;
    std::vector<const wchar_t*> paths;
    for (int i = 0; i <= 512; ++i) names.push_back(std::to_wstring(1000 + i) + L"/");
    for (const std::wstring& name : names) paths.push_back(name.c_str());
    const kiro::PelionDrive drive(paths);
    info().plDriveKnown = 1;
    info().plDrive[0] = 'C';
    Run<KrPlInDrive>([&](HWND dialog) { EXPECT_EQ(512, Grid(dialog, kPlSecondList).Rows()); });
}

TEST_F(DatabaseChoices, FloppyIsAskedForItsGroupsAndUsers) {
    const auto look = [&](const wchar_t* error) {
        Run<KrPlInDrive1>([&](HWND dialog) { ExpectState(dialog, IDOK, false, error, true); });
    };
    look(L"グループ名の登録がありません。");
    std::filesystem::create_directories(home / L"FLOPPY_WIN" / L"PELION" / L"KAN1" / L"ACCESS");
    std::filesystem::create_directories(home / L"FLOPPY_WIN" / L"PELION" / L"設計" / L"山田");
    std::filesystem::create_directories(home / L"FLOPPY_WIN" / L"PELION" / L"GUARD");
    info().plGroupKnown = 1;
    WriteFixedText(info().plGroup, "KAN1");
    look(L"ユーザ名の登録がありません。");
    info().plGroupKnown = 0;
    EXPECT_EQ(IDOK, Run<KrPlInDrive1>([&](HWND dialog) {
                  EXPECT_EQ(L"KAN1 設計 ", Names(dialog, kPlFirstList));
                  MakeChoice(dialog, L"グループ", kPlFirstList, L"設計");
                  EXPECT_STREQ("設計", info().plGroup);  // the host is asked by it
                  MakeChoice(dialog, L"ユーザ", kPlSecondList, L"山田");
                  Click(dialog, IDOK);
              }));
    ExpectPlace("", "設計", "山田");
}

TEST_F(DatabaseChoices, DrawingsAreMarked) {
    for (int i = 0; i < kDrawings; ++i) AddDrawing(info().dbDrawingCount, std::to_string(i).c_str(), "M");
    std::memset(Drawing(1).drawingName, 'A', sizeof Drawing(1).drawingName);  // no NUL
    EXPECT_EQ(IDOK, Run<KrPlInDraw1>([&](HWND dialog) {
                  const Grid grid(dialog, kGrid);
                  EXPECT_EQ(L"2000", grid.Cell(1999, 0));
                  EXPECT_EQ(std::wstring(41, L'A'), grid.Cell(1, 1));
                  EXPECT_FALSE(IsEnabled(dialog, IDOK));
                  grid.Click(1, 1);
                  EXPECT_TRUE(IsEnabled(dialog, IDOK));
                  grid.Click(1, 0);
                  EXPECT_FALSE(IsEnabled(dialog, IDOK));
                  Confirm(dialog);
                  KeyHolding(VK_SHIFT, VK_END);  // from the second to the last
                  Click(dialog, IDOK);
              }));
    EXPECT_EQ(7, Drawing(0).selected);
    for (int i = 1; i < kDrawings; ++i) EXPECT_EQ(1, Drawing(i).selected);
    for (const int count : {-1, INT_MAX}) {
        info().dbDrawingCount = info().dbOutModelCount = count;
        const User look = [&](HWND dialog) {
            const int rows = Grid(dialog, kGrid).Rows();
            EXPECT_TRUE(count < 0 ? rows == 0 : rows >= kDrawings && rows <= 10000) << rows;
        };
        Run<KrPlInDraw1>(look);
        Run<KrPlInDraw2>(look);
        Run<KrPlOutDraw>(look);
    }
}

TEST_F(DatabaseChoices, ModelNamesOfAllDrawingsAreChecked) {
    for (const char* model : {"", "A", "A", "B"}) AddDrawing(info().dbDrawingCount, "D", model);
    const auto before = bytes;
    const struct {
        int row;
        std::wstring name;
        const wchar_t* message;
        std::vector<int> marked;
    } kFaults[] = {
        {0, L"", L"モデル名が入力されていません。： 1", {0}},
        {0, std::wstring(17, L'長'), L"モデル名が長すぎます。： 1", {0}},
        {0, L"a/b", L"モデル名に無効な文字が使用されています。： 1", {0}},
        {0, std::wstring(16, L'長'), L"モデル名が重複しています。： 2 - 3", {1, 2}},
    };
    EXPECT_EQ(IDOK, Run<KrPlInDraw2>([&](HWND dialog) {
                  const Grid grid(dialog, kGrid);
                  grid.Click(3, 0);  // marked, and without a fault of its own
                  for (const auto& fault : kFaults) {
                      grid.Click(fault.row, 2);
                      grid.Write(fault.name);
                      grid.Click(3, 2);
                      ExpectState(dialog, IDOK, true, fault.message, true);
                      ExpectRefused(dialog, L"図面名選択", fault.message);
                      EXPECT_EQ((GridPlace{fault.marked[0], 2}), grid.Current());
                      for (const int row : fault.marked) EXPECT_TRUE(IsMarked(grid, {row, 2})) << row;
                  }
                  EXPECT_FALSE(IsMarked(grid, {0, 2}));
                  EXPECT_EQ(before, bytes);
                  grid.Click(2, 2);
                  grid.Write(L"C");
                  Click(dialog, IDOK);
              }));
    EXPECT_STREQ("長長長長長長長長長長長長長長長長", Drawing(0).modelName);
    EXPECT_STREQ("C", Drawing(2).modelName);
    EXPECT_EQ(std::pair(7, 1), std::pair(Drawing(0).selected, Drawing(3).selected));
}

TEST_F(DatabaseChoices, DrawingNamesOfMarkedModelsAreChecked) {
    for (const char* name : {"", "D", "D", "ABCDEFGHIJKLMNOPQRSTU", "E"})
        AddDrawing(info().dbOutModelCount, name, "\xBF\xDE");  // 図
    Run<KrPlOutDraw>([](HWND dialog) {
        Grid(dialog, kGrid).Click(1, 0);
        ExpectEnabled(dialog, {{IDOK, true}, {kSelectAllButton, false}, {kSelectNoneButton, true}});
    });
    EXPECT_EQ(7, Drawing(1).selected);
    info().dbSelectAllAllowed = 1;
    EXPECT_EQ(IDOK, Run<KrPlOutDraw>([&](HWND dialog) {
                  const Grid grid(dialog, kGrid);
                  EXPECT_EQ(L"図", grid.Cell(0, 1));
                  Click(dialog, kSelectAllButton);
                  ExpectEnabled(dialog, {{IDOK, true}, {kSelectAllButton, true}, {kSelectNoneButton, true}});
                  ExpectRefused(dialog, L"モデル名選択", L"図面名が入力されていません。 : 1");
                  Click(dialog, kSelectNoneButton);
                  ExpectEnabled(dialog, {{IDOK, false}, {kSelectAllButton, true}, {kSelectNoneButton, false}});
                  EXPECT_EQ(kGrid, FocusId());
                  grid.Click(1, 0);
                  grid.Click(2, 0);
                  ExpectRefused(dialog, L"モデル名選択", L"図面名が重複しています。 : 2 - 3");
                  EXPECT_TRUE(IsMarked(grid, {1, 2}) && IsMarked(grid, {2, 2}));
                  grid.Click(2, 0);
                  grid.Click(3, 0);
                  ExpectRefused(dialog, L"モデル名選択", L"図面名が長すぎます。 : 4");
                  EXPECT_FALSE(IsMarked(grid, {2, 2}));
                  grid.Click(0, 2);
                  grid.Write(L"NOT-MARKED");
                  grid.Click(3, 0);
                  grid.Click(4, 0);
                  for (const wchar_t* name : {L"日", L"瓏"}) {  // of bytes below and above those of katakana
                      grid.Click(4, 2);
                      grid.Write(name);
                      ExpectRefused(dialog, L"モデル名選択", L"図面名に無効な文字が使用されています。 : 5");
                  }
                  grid.Click(4, 2);
                  grid.Write(L"ﾎﾟﾝﾌﾟ-1");
                  Click(dialog, IDOK);
              }));
    EXPECT_STREQ("ﾎﾟﾝﾌﾟ-1", Drawing(4).drawingName);
    EXPECT_STREQ("\xBF\xDE", Drawing(4).modelName);
    EXPECT_STREQ("", Drawing(0).drawingName);
    for (int row = 0; row < 5; ++row) EXPECT_EQ(row == 1 || row == 4, Drawing(row).selected) << row;
}

// ---- Parameters ----

namespace {

struct ParamFault {
    int edit;
    const wchar_t *bad, *good;
};

class DatabaseParameters : public DatabaseChoices {
  protected:
    // Each is refused alone, in this order; what is good stays.
    static void ExpectFaults(HWND dialog, const ParamFault (&faults)[6], const wchar_t* caption,
                             const std::wstring& name) {
        const std::wstring whats[] = {name, L"グループ名", L"ユーザ名", L"図面容量", L"文字高倍率", L"文字幅倍率"};
        for (const ParamFault& fault : faults) Type(dialog, fault.edit, fault.bad);
        for (int i = 0; i < 6; ++i) {
            ExpectRefused(dialog, caption, L"無効な" + whats[i] + L"です。");
            EXPECT_EQ(faults[i].edit, FocusId());
            Type(dialog, faults[i].edit, faults[i].good);
        }
    }
    template <class Block>
    void Begin(Block& block) {
        std::memset(&block, 0, sizeof block);
        block.drawingCapacity = 64;
        block.textHeightRatio = block.textWidthRatio = 1;
        WriteFixedText(block.group, "KAN1");
        WriteFixedText(block.user, "SUZUKI");
        info().dbOutParams = &block;
    }
    // What both have; of the words, 1 in each but the frame's.
    template <class Block>
    static void ExpectParams(const Block& block, int frame, int capacity, double height, double width,
                             const char* group, const char* user) {
        EXPECT_EQ(std::tuple(1, frame, 1, 1),
                  std::tuple(block.symbolsAsSymbols, block.frameMode, block.skipHiddenItems, block.mergeViews));
        EXPECT_EQ(std::tuple(capacity, height, width),
                  std::tuple(block.drawingCapacity, block.textHeightRatio, block.textWidthRatio));
        EXPECT_STREQ(group, block.group);
        EXPECT_STREQ(user, block.user);
    }

    PlOutParamBlock pelion;
    VrOutParamBlock varos;
};

constexpr wchar_t kPelionCaption[] = L"Ｐｅｌｉｏｎ 変換パラメータ", kVarosCaption[] = L"Ｖａｒｏｓ 変換パラメータ";

}  // namespace

TEST_F(DatabaseParameters, OfPelionAreCheckedThenWritten) {
    Begin(pelion);
    info().plwVariant = 1;
    const ParamFault faults[] = {
        {kPlDriveEdit, L"1", L"D"},      {kPlGroupEdit, L"A*", L"部品"},        {kPlUserEdit, L"ACCESS", L"YAMADA"},
        {kPlCapacityEdit, L"65", L"64"}, {kPlHeightRatioEdit, L"0.09", L"0.1"}, {kPlWidthRatioEdit, L"10.1", L"10"}};
    const PlOutParamBlock before = pelion;
    Write(L"settings", "");  // no folder can be made where a file is
    Run<KrPlOutParam>([&](HWND dialog) {
        ExpectFaults(dialog, faults, kPelionCaption, L"ドライブ名");
        Click(dialog, kPlVersion3Radio);
        EXPECT_TRUE(IsChecked(dialog, kPlDoublePrecisionRadio) && !IsEnabled(dialog, kPlSinglePrecisionRadio));
        EXPECT_EQ(L"10 ～ 9999K", Text(dialog, kPlCapacityRange));
        Type(dialog, kPlCapacityEdit, L"9999");
        for (const int id : {kPlKeepSymbolsRadio, kPlTitleOnlyRadio, kPlCompositeDetailsRadio, kPlOverlaysRadio,
                             kPlNoHiddenRadio, kPlOneViewRadio, kPlKeepParametersCheck})
            Click(dialog, id);
        EXPECT_EQ(0, std::memcmp(&before, &pelion, sizeof before));
        Click(dialog, IDOK);
        Expect(kPelionCaption, L"パラメータファイルの書込みに失敗しました。", MB_ICONWARNING, IDOK);
        EXPECT_EQ(dialog, Settle());
    });
    // Written all the same.
    EXPECT_EQ(std::tuple(1, 1, 4, 1),
              std::tuple(pelion.version, pelion.doublePrecision, pelion.detailMode, pelion.convertOverlays));
    EXPECT_STREQ("D", pelion.drive);
    ExpectParams(pelion, 2, 9999, 0.1, 10, "部品", "YAMADA");
    PlOutParamBlock kept;
    EXPECT_NE(0, ReadPlParameter(&kept));
    std::filesystem::remove(home / L"settings");
    EXPECT_EQ(IDOK, Run<KrPlOutParam>([&](HWND dialog) {
                  Click(dialog, kPlVersion2Radio);
                  EXPECT_TRUE(IsChecked(dialog, kPlDoublePrecisionRadio) && IsEnabled(dialog, kPlSinglePrecisionRadio));
                  EXPECT_EQ(L"10 ～ 64K", Text(dialog, kPlCapacityRange));
                  Type(dialog, kPlCapacityEdit, L"10");
                  Click(dialog, kPlKeepParametersCheck);
                  Click(dialog, IDOK);
              }));
    EXPECT_EQ(0, ReadPlParameter(&kept));
    EXPECT_EQ(0, std::memcmp(&kept, &pelion, sizeof kept));
}

TEST_F(DatabaseParameters, HiddenDriveAndOddWordsAreTheHosts) {
    Begin(pelion);
    pelion.detailMode = 2;
    Run<KrPlOutParam>([&](HWND dialog) {
        EXPECT_FALSE(IsShown(dialog, kPlDriveEdit));
        for (const int id : {kPlNoDetailsRadio, kPlDetailsRadio, kPlCompositeDetailsRadio})
            EXPECT_FALSE(IsChecked(dialog, id));
        ExpectRefused(dialog, kPelionCaption, L"無効なドライブ名です。");
        EXPECT_EQ(IDOK, FocusId());
    });
    WriteFixedText(pelion.drive, "Z");
    EXPECT_EQ(IDOK, Run<KrPlOutParam>([&](HWND dialog) { Click(dialog, IDOK); }));
    EXPECT_EQ(2, pelion.detailMode);
    PlOutParamBlock kept;
    EXPECT_NE(0, ReadPlParameter(&kept));  // nobody has asked for that

    std::memset(&pelion, 0xFF, sizeof pelion);
    const PlOutParamBlock before = pelion;
    Run<KrPlOutParam>([&](HWND dialog) {
        Click(dialog, IDOK);
        Expect(kPelionCaption, kFaulty, MB_ICONWARNING, IDOK);
    });
    EXPECT_EQ(0, std::memcmp(&before, &pelion, sizeof before));
    info().dbOutParams = nullptr;
    EXPECT_EQ(IDCANCEL, Run<KrPlOutParam>([](HWND) {}));
}

TEST_F(DatabaseParameters, OfVarosAreCheckedThenWritten) {
    Begin(varos);
    const ParamFault faults[] = {{kVrLabelEdit, L"あ", L"A部品名"},  {kVrGroupEdit, L"CON", L"G"},
                                 {kVrUserEdit, L"", L"U"},           {kVrCapacityEdit, L"9", L"10"},
                                 {kVrHeightRatioEdit, L"x", L"2.5"}, {kVrWidthRatioEdit, L"0.09", L"0.5"}};
    EXPECT_EQ(IDOK, Run<KrVrOutParam>([&](HWND dialog) {
                  EXPECT_TRUE(IsChecked(dialog, kVrDetailsRadio) && IsChecked(dialog, kVrOverlaysRadio));
                  ExpectFaults(dialog, faults, kVarosCaption, L"ラベル名");
                  for (const int id : {kVrKeepSymbolsRadio, kVrFrameRadio, kVrNoDetailsRadio, kVrNoOverlaysRadio,
                                       kVrNoHiddenRadio, kVrOneViewRadio, kVrKeepParametersCheck, IDOK})
                      Click(dialog, id);
              }));
    EXPECT_EQ(std::pair(1, 1), std::pair(varos.skipDetails, varos.skipOverlays));
    EXPECT_STREQ("A部品名", varos.labelName);
    ExpectParams(varos, 1, 10, 2.5, 0.5, "G", "U");
    VrOutParamBlock kept;
    ASSERT_EQ(0, ReadVrParameter(&kept));
    EXPECT_EQ(0, std::memcmp(&kept, &varos, sizeof kept));
}
