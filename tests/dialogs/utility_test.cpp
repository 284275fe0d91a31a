// The dialogs' utility object and the model that the stand-alone host gives them, as their users see them.
#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <functional>

#include "driver/Driver.h"
#include "entry/host/KrUtility.h"
#include "entry/host/kirobc.h"
#include "entry/host/kirocontrol.h"
#include "hostlayer/include/KiroHost.h"
#include "hostlayer/kirodlglib/GuidanceLine.h"

namespace fs = std::filesystem;
namespace drive = kiro::drive;

namespace {

// A utility object with an empty home folder of its own and "#DXF#" as its key.
class Utility : public testing::Test {
  protected:
    void SetUp() override {
        static int count = 0;
        home_ = fs::temp_directory_path() /
                (L"kiro_utility_" + std::to_wstring(GetCurrentProcessId()) + L"_" + std::to_wstring(++count));
        fs::create_directories(home_ / L"DXF");
        KiroHostSetHome(home_.c_str());
        utility_->SetKeyword("#DXF#");
    }
    void TearDown() override {
        KiroHostSetHome(nullptr);
        fs::remove_all(home_);
    }

    fs::path Write(const fs::path& name, const std::string& text = "0\nEOF\n") {
        const fs::path path = home_ / name;
        fs::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << text;
        return path;
    }
    std::string Internal(const char* key, const std::string& path) { return KrInternalPath(*utility_, key, path); }
    std::string Real(const char* key, const std::string& path) {
        char buffer[kKrPathSize];
        strcpy(buffer, path.c_str());
        return utility_->RealPathName(key, buffer, kKrPathSize) ? buffer : "(none)";
    }
    std::vector<std::string> Used(const char* key = "#DXF#") {
        const KrUtilityPtr other(KrCreateUtility());
        KrTextList list;
        int max = 0;
        EXPECT_NE(0, other->GetUsedFile(key, kKrUsedFiles, &list, &max, nullptr));
        EXPECT_EQ(16, max);
        std::vector<std::string> names;
        for (int i = 0; i < list.GetCount(); ++i) names.emplace_back(list.GetAt(i));
        return names;
    }
    int SetUsed(const std::vector<std::string>& names) {
        KrTextList list;
        for (const std::string& name : names) list.InsertAt(list.GetCount(), name.c_str());
        const int max = 16;
        return utility_->SetUsedFile("#DXF#", kKrUsedFiles, &list, &max);
    }

    fs::path home_;
    KrUtilityPtr utility_{KrCreateUtility()};
};

// Runs a check that shows one box and answers it.
drive::Box BoxOf(const std::function<int()>& check, int& result, int answer = IDOK) {
    drive::Box box;
    result = drive::Drive(check, [&] {
        box = drive::ReadBox();
        drive::Answer(box, answer);
    });
    return box;
}

// A dialog without controls, not shown.
HWND MakeDialog() {
    alignas(4) static const struct {
        DLGTEMPLATE head{WS_POPUP | WS_CAPTION | DS_SETFONT, 0, 0, 10, 10, 200, 100};
        std::array<WORD, 3> menuClassTitle{};
        WORD points = 9;
        wchar_t face[16] = L"MS UI Gothic";
    } dialog;
    return CreateDialogIndirectParamW(
        GetModuleHandleW(nullptr), &dialog.head, nullptr, [](HWND, UINT, WPARAM, LPARAM) -> INT_PTR { return FALSE; },
        0);
}

RECT ClientOf(HWND window) {
    RECT area{};
    GetClientRect(window, &area);
    return area;
}

std::string LoadModelText(const fs::path& file, const std::string& text) {
    std::ofstream(file, std::ios::binary) << text;
    char message[200] = "?";
    const int result = KiroHostLoadModel(file.c_str(), message, sizeof message);
    EXPECT_EQ(result == 0, *message == 0) << text;
    return message;
}

}  // namespace

// ---- Numbers ----

TEST_F(Utility, TakesNumbersOfTheKindAndRangeOnly) {
    using Texts = std::initializer_list<const char*>;
    const auto expect = [&](int ok, int kind, double min, double max, const Texts& texts) {
        for (const char* text : texts)
            EXPECT_EQ(ok, utility_->CheckNumber(text, kind, min, max)) << "\"" << text << "\" " << kind;
    };
    expect(1, kKrIntegerSigned, -256, 256, {"0", "-256", "256", "+7", "007"});
    expect(0, kKrIntegerSigned, -256, 256, {"257", "-257", "", "-", "+", "+-7", "--7", "7-"});
    expect(1, kKrInteger, 0, 9, {"0", "9", "-0"});
    expect(0, kKrInteger, 0, 9, {"-1", "10", "+7", "", "7x", "7.0", "7 ", " 7", "1 2", "７", "0x7", "7e0", "nan"});
    expect(1, kKrInteger, -1e12, 1e12, {"-1", "2147483647", "-2147483648"});
    expect(0, kKrInteger, -1e12, 1e12, {"2147483648", "-2147483649", "99999999999999999999"});
    expect(1, kKrReal, -1, 7.5, {"7.5", "+.5", "1.", "1e-3", "-1E0"});
    expect(0, kKrReal, -1, 7.5, {"7.51", "-1.01", "1e", ".", "", "nan", "0x1p1", "1,5", "1.5.1", "１", "1 ", "+-1"});
    expect(0, kKrReal, 0, HUGE_VAL, {"1e999", "inf", "infinity"});
    expect(0, kKrReal + 1, 0, 9, {"7"});
    expect(0, kKrInteger, NAN, NAN, {"1"});
    EXPECT_EQ(0, utility_->CheckNumber(nullptr, kKrInteger, 0, 9));
}

TEST_F(Utility, ReadsAndShowsScales) {
    using Pair = std::pair<double, const char*>;
    using Pairs = std::initializer_list<Pair>;
    for (const auto& [scale, text] :
         Pairs{{1, "1"}, {0.5, "0.5"}, {0.01, "1/100"}, {0.4, "1/2.5"}, {2, "1/0.5"}, {25.4, "25.4"}, {1000, "1e3"}}) {
        double value = -1;
        EXPECT_EQ(1, utility_->CheckScale(text, &value)) << text;
        EXPECT_DOUBLE_EQ(scale, value) << text;
    }
    for (const char* text : {"", "0", "-1", "+1", "1/0", "2/3", "1/", "/2", "1/-2", "1/+2", "1 / 2", "1/2/3", "1:2",
                             "１", "nan", "inf", "1/inf", "1/1e-320", "0.0"}) {
        double value = -1;
        EXPECT_EQ(0, utility_->CheckScale(text, &value)) << text;
        EXPECT_EQ(-1, value) << text;
    }
    const Pair scales[] = {{1, "1"},         {0.01, "1/100"}, {1.0 / 3, "1/3"},   {0.1 * 0.1, "1/100"},
                           {0.4, "0.4"},     {2, "2"},        {0.3333, "0.3333"}, {1e5, "100000"},
                           {1e-12, "1e-12"}, {-0.5, "-0.5"},  {NAN, ""}};
    for (const auto& [scale, text] : scales) {
        char shown[kKrTextSize];
        utility_->DisplayScale(scale, shown, sizeof shown);
        EXPECT_STREQ(text, shown);
    }
    for (const auto& [value, text] : Pairs{{0.1, "0.1"},
                                           {-0.0, "0"},
                                           {1e5, "100000"},
                                           {12345.678, "12345.678"},
                                           {2e6, "2000000"},
                                           {1e300, "1e+300"},
                                           {HUGE_VAL, ""}})
        EXPECT_STREQ(text, utility_->DtoA(value));
}

// ---- Text ----

TEST_F(Utility, CutsSpacesOfBothWidthsAndNoHalfCharacter) {
    const auto cut = [&](const char* text, void (KrUtility::*edit)(char*)) { return KrEdited(*utility_, text, edit); };
    EXPECT_EQ("  表 示", cut("  表 示 　 ", &KrUtility::SpaceNull));
    EXPECT_EQ("表 示", cut("　 表 示　", &KrUtility::ExceptSpace));
    EXPECT_EQ("", cut(" 　 ", &KrUtility::KillFocus));
    // The second byte of one character and the first of the next are not a full-width space.
    EXPECT_EQ("\x83\x81\x40", cut("\x83\x81\x40", &KrUtility::KillFocus));
    EXPECT_EQ("a\x81", cut("a\x81 ", &KrUtility::KillFocus));
    utility_->KillFocus(nullptr);
}

TEST_F(Utility, ModelNamesHoldLettersAndJapanese) {
    for (const char* name : {"", "A-1_b.2", "部品表ソ", "ｱｲｳ"}) EXPECT_EQ(1, utility_->CheckModelName(name)) << name;
    for (const char* name : {"a b", "部　品", "a/b", "a\\b", "a:b", "a*",   "a?",       "\"a",  "<a",   "a>",  "a|",
                             "a,b", "a;b",    "a=b", "a\tb", "a#",  "\x83", "\x81\x20", "\x80", "\xA0", "\xFD"})
        EXPECT_EQ(0, utility_->CheckModelName(name)) << name;
}

TEST_F(Utility, ConvertsInPlaceWithinTheBuffer) {
    char text[8] = "ｱｲｳ";  // three bytes here, six in EUC
    EXPECT_EQ(1, utility_->ToEUC(text, sizeof text));
    EXPECT_STREQ("\x8E\xB1\x8E\xB2\x8E\xB3", text);
    utility_->ToSJIS(text);
    EXPECT_STREQ("ｱｲｳ", text);
    EXPECT_EQ(0, utility_->ToEUC(text, 6));
    EXPECT_STREQ("\x8E\xB1\x8E\xB2", text);
    char message[20] = "?";
    EXPECT_EQ(1, utility_->GetMessageText(9, message, 6));
    EXPECT_STREQ("メモ", message);
    EXPECT_EQ(0, utility_->GetMessageText(-1, message, 20));
    EXPECT_STREQ("", message);
}

// ---- Paths ----

TEST_F(Utility, InternalAndRealPathsAreInverses) {
    for (const char* path : {"C:\\表\\ソフト\\能.dxf", "\\\\srv\\表\\ﾊﾝｶｸ.dxf", "C:\\a b\\髙①.dxf", "D:\\"}) {
        const std::string internal = Internal(nullptr, path);
        EXPECT_EQ(std::string::npos, internal.find('\\')) << path;
        EXPECT_EQ(path, Real(nullptr, internal));
        EXPECT_EQ(internal, Internal(nullptr, HxEucEncoder::Euc2Sjis(internal))) << "shown to the user and taken back";
    }
    EXPECT_EQ("C:/a/c.dxf", Internal(nullptr, "c:\\a\\.\\b\\..\\c.dxf"));
    EXPECT_EQ(HxEucEncoder::Sjis2Euc("C:/表/ソ"), Internal(nullptr, "C:\\表\\ソ"));
}

TEST_F(Utility, NamesMeanTheKeysFolder) {
    const std::string home = home_.string();
    EXPECT_EQ(home + "\\DXF\\a.dxf", Real(nullptr, "a.dxf"));
    EXPECT_EQ(home + "\\DXF\\TABLE\\s\\a", Real("#DXF:TABLE#", "s/a"));
    utility_->SetFloppy("#DXF#");
    EXPECT_EQ(Real("#FLOPPY_WIN#", "a.dxf"), Real(nullptr, "a.dxf"));
    EXPECT_NE(Real("#DXF#", "a.dxf"), Real(nullptr, "a.dxf"));
    utility_->SetKeyword("#DXF#");
    Write(L"DXF/表.dxf");
    EXPECT_EQ(0, utility_->Access(nullptr, "表.dxf"));
    EXPECT_NE(0, utility_->Access("#DXF#", "")) << "an empty field names no file";
    EXPECT_NE(0, utility_->Access("#DWG#", "表.dxf"));
    EXPECT_EQ(0, utility_->Access("", "DXF"));
}

TEST_F(Utility, PathThatCannotBeFormedStaysAsItIs) {
    for (const char* path : {"", "C:a.dxf", "a:b", "\\\\?\\C:\\a", "\\\\.\\COM1", "\\\\srv", "\x83", "C:\\\xA0"}) {
        char buffer[kKrPathSize];
        strcpy(buffer, path);
        EXPECT_EQ(0, utility_->InternalPathName(nullptr, buffer, kKrPathSize)) << path;
        EXPECT_STREQ(path, buffer);
    }
    char tight[8] = "C:\\ｱｲｳ";  // nine bytes in EUC
    EXPECT_EQ(0, utility_->InternalPathName(nullptr, tight, sizeof tight));
    EXPECT_STREQ("C:\\ｱｲｳ", tight);
    char open[3] = {'C', ':', '\\'};  // without a NUL
    EXPECT_EQ(0, utility_->InternalPathName(nullptr, open, sizeof open));
    EXPECT_EQ(0, utility_->RealPathName(nullptr, nullptr, 10));
}

// ---- File checks ----

TEST_F(Utility, InputFileIsRefusedWithAReason) {
    Write(L"DXF/empty.dxf", "");
    const fs::path locked = Write(L"DXF/locked.dxf");
    const HANDLE lock = CreateFileW(locked.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(INVALID_HANDLE_VALUE, lock);
    const HWND dialog = MakeDialog();
    utility_->SetParentWindow(dialog);
    utility_->SetCaption("読込み");
    for (const auto& [name, reason] : std::initializer_list<std::pair<std::string, const wchar_t*>>{
             {"", L"入力してください"},
             {std::string(251, 'a') + ".dxf", L"長すぎます"},
             {std::string(2000, 'a'), L"長すぎます"},
             {"C:\\" + std::string(130, '\xB1'), L"長すぎます"},  // 133 bytes, but 263 in EUC
             {"a<b.dxf", L"使えない文字"},
             {"a\nb.dxf", L"使えない文字"},
             {"C:a.dxf", L"使えない文字"},
             {"a.dxf:stream", L"使えない文字"},
             {"a.dxf ", L"末尾"},
             {"sub.\\a.dxf", L"末尾"},
             {"*.dxf", L"ワイルドカード"},
             {"nul.dxf", L"予約"},
             {"C:\\Com1\\a.dxf", L"予約"},
             {"a\x83", L"正しくない"},
             {"\xA0.dxf", L"正しくない"},
             {"none.dxf", L"ファイルが見つかりません"},
             {"none\\a.dxf", L"フォルダが見つかりません"},
             {home_.string(), L"フォルダが指定"},
             {home_.string() + "\\", L"フォルダが指定"},
             {"empty.dxf", L"空です"},
             {"locked.dxf", L"使用している"},
         }) {
        int result = -1;
        const drive::Box box = BoxOf([&] { return utility_->CheckInputFile(name.c_str()); }, result);
        EXPECT_EQ(0, result) << name;
        EXPECT_NE(std::wstring::npos, box.text.find(reason)) << name << testing::PrintToString(box.text);
        EXPECT_EQ(L"読込み", box.caption);
        EXPECT_EQ(static_cast<UINT>(MB_ICONEXCLAMATION), box.icon);
        EXPECT_LT(box.text.size(), 150U) << "must fit on the screen";
    }
    CloseHandle(lock);
    DestroyWindow(dialog);
    utility_->SetParentWindow(nullptr);
    EXPECT_EQ(1, utility_->CheckInputFile("locked.dxf"));
    Write(L"DXF/表 ソ.dxf");
    EXPECT_EQ(1, utility_->CheckInputFile("表 ソ.dxf"));
    EXPECT_EQ(1, utility_->CheckInputFile((home_.generic_string() + "/DXF/locked.dxf").c_str()));
}

TEST_F(Utility, OutputFileAsksBeforeItIsOverwritten) {
    const auto check = [&] { return utility_->CheckOutputFile("a.dxf"); };
    EXPECT_EQ(1, check());
    EXPECT_FALSE(fs::exists(home_ / L"DXF/a.dxf")) << "a check leaves nothing behind";
    const fs::path file = Write(L"DXF/a.dxf", "old");
    int result = -1;
    const drive::Box box = BoxOf(check, result, IDNO);
    EXPECT_EQ(L"a.dxf\n\nファイルが既に存在します。上書きしますか。", box.text);
    EXPECT_EQ(IDNO, box.defaultButton);
    EXPECT_EQ(0, result);
    BoxOf(check, result, IDYES);
    EXPECT_EQ(1, result);
    EXPECT_EQ(3U, fs::file_size(file));

    SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY);
    EXPECT_NE(std::wstring::npos, BoxOf(check, result).text.find(L"読み取り専用"));
    EXPECT_EQ(0, result);
    SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL);
    const auto missing = [&] { return utility_->CheckOutputFile("none\\a.dxf"); };
    EXPECT_NE(std::wstring::npos, BoxOf(missing, result).text.find(L"フォルダが見つかりません"));
    const auto folder = [&] { return utility_->CheckOutputFile(home_.string().c_str()); };
    EXPECT_NE(std::wstring::npos, BoxOf(folder, result).text.find(L"フォルダが指定"));
}

TEST_F(Utility, PatternsAreNamesForCheckFileOnly) {
    for (const char* name : {"*.dxf", "C:\\表\\?.dxf", "a.dxf"}) EXPECT_EQ(1, utility_->CheckFile(name)) << name;
    int result = -1;
    BoxOf([&] { return utility_->CheckFile("*\\a.dxf"); }, result);
    EXPECT_EQ(0, result);
    EXPECT_EQ(1, utility_->CheckFileName("表.dxf"));
    for (const char* name : {"*.dxf", "", "a|b", "prn"}) EXPECT_EQ(0, utility_->CheckFileName(name)) << name;
}

// ---- The chooser ----

TEST_F(Utility, ChooserGivesTheFullPath) {
    Write(L"DXF/表.dxf");
    const wchar_t* korean = L"한.dxf";
    Write(fs::path(L"DWG") / korean);
    wchar_t before[MAX_PATH], after[MAX_PATH];
    GetCurrentDirectoryW(MAX_PATH, before);
    utility_->SetCaption("ファイル選択");
    utility_->SetComment("ＤＸＦファイル");
    utility_->SetWildcard("*.dxf");
    const auto choose = [&](const wchar_t* name, int button, const std::function<void()>& then) {
        return drive::Drive([&] { return utility_->FileDialog(kKrChooseExisting); },
                            [&] {
                                const HWND chooser = drive::Settle();
                                EXPECT_EQ(L"ファイル選択", drive::Text(chooser));
                                const HWND name1 = drive::Control(chooser, 0x47C);
                                const HWND name2 = FindWindowExW(name1, nullptr, L"ComboBox", nullptr);
                                const HWND edit = FindWindowExW(name2, nullptr, L"Edit", nullptr);
                                drive::Send(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(name));
                                drive::Click(chooser, button);
                                then();
                            });
    };
    EXPECT_EQ(1, choose(L"表.dxf", IDOK, [] {}));
    EXPECT_EQ(home_.string() + "\\DXF\\表.dxf", utility_->GetFileName());
    EXPECT_EQ(0, choose(L"表.dxf", IDCANCEL, [] {}));
    EXPECT_STREQ("", utility_->GetFileName());
    utility_->SetKeyword("#DWG#");
    drive::Box box;
    EXPECT_EQ(0, choose(korean, IDOK, [&] {
                  box = drive::ReadBox();
                  drive::Answer(box, IDOK);
              }));
    EXPECT_NE(std::wstring::npos, box.text.find(L"シフトＪＩＳにない文字"));
    GetCurrentDirectoryW(MAX_PATH, after);
    EXPECT_STREQ(before, after);
}

// ---- Recently used files ----

TEST_F(Utility, UsedFilesAreKeptNewestFirst) {
    KrTextList list;
    EXPECT_EQ(std::vector<std::string>(), Used());
    for (int i = 0; i < 20; ++i) utility_->SetFilePath(&list, ("表" + std::to_string(i) + ".dxf").c_str(), nullptr, 16);
    EXPECT_EQ(16, list.GetCount());
    utility_->SetFilePath(&list, "表10.DXF", nullptr, 16);  // the same file
    EXPECT_EQ(16, list.GetCount());
    utility_->SetFilePath(&list, list.GetAt(1), nullptr, 16);  // a text of the list itself
    utility_->DelFilePath(&list, "表4.dxf", nullptr, 16);
    int max = 3;
    EXPECT_EQ(1, utility_->SetUsedFile(nullptr, kKrUsedFiles, &list, &max));
    EXPECT_EQ((std::vector<std::string>{"表19.dxf", "表10.DXF", "表18.dxf"}), Used());
    EXPECT_EQ(std::vector<std::string>(), Used("#DWG#"));
    max = 0;
    EXPECT_EQ(1, utility_->SetUsedFile("#DXF#", kKrUsedFiles, &list, &max));
    EXPECT_EQ(std::vector<std::string>(), Used());
}

TEST_F(Utility, DamagedUsedFileListGivesItsGoodNames) {
    const std::string good = "\xE8\xA1\xA8.dxf";  // UTF-8
    const std::string cjk = "\xED\x95\x9C.dxf";   // no character of 932
    Write(L"settings/used__DXF_.txt", "\xEF\xBB\xBF" + good + "\r\n\xFF\xFE.dxf\r\n" + std::string("a\0b.dxf\n", 8) +
                                          std::string(5000, 'a') + "\n" + cjk + "\n\n\tx.dxf\nb.dxf\nB.DXF\n" + good +
                                          "\nlast.dxf\nbroken of");
    EXPECT_EQ((std::vector<std::string>{"表.dxf", "b.dxf", "last.dxf"}), Used());
    Write(L"settings/used__DXF_.txt", std::string(1 << 20, '\xE8'));
    EXPECT_EQ(std::vector<std::string>(), Used());
}

TEST_F(Utility, UsedFileListSurvivesAWriteThatFails) {
    ASSERT_EQ(1, SetUsed({"a.dxf"}));
    const fs::path file = home_ / L"settings/used__DXF_.txt";
    const HANDLE lock =
        CreateFileW(file.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_EQ(0, SetUsed({"b.dxf"}));
    CloseHandle(lock);
    EXPECT_EQ(std::vector<std::string>{"a.dxf"}, Used());
    EXPECT_EQ(1, std::distance(fs::directory_iterator(home_ / L"settings"), fs::directory_iterator()));

    fs::create_hard_link(file, home_ / L"old");
    EXPECT_EQ(1, SetUsed({"bb.dxf"}));
    EXPECT_EQ(7U, fs::file_size(home_ / L"old")) << "the old file is replaced, not written in";

    const fs::path blocked = Write(L"file") / L"home";  // nothing can be made under a file
    KiroHostSetHome(blocked.c_str());
    EXPECT_EQ(0, SetUsed({"b.dxf"}));
}

TEST_F(Utility, ComboShowsTheListAndKeepsItsText) {
    ASSERT_EQ(1, SetUsed({"表.dxf", "b.dxf"}));
    const HWND combo =
        CreateWindowW(L"COMBOBOX", L"", WS_POPUP | CBS_DROPDOWN, 0, 0, 100, 200, nullptr, nullptr, nullptr, nullptr);
    SetWindowTextW(combo, L"typed");
    KrTextList list;
    int max = 0;
    EXPECT_EQ(1, utility_->GetUsedFile("#DXF#", kKrUsedFiles, &list, &max, combo));
    utility_->SetFilePath(&list, "c.dxf", combo, max);
    utility_->DelFilePath(&list, "b.dxf", combo, max);
    wchar_t text[20] = L"";
    EXPECT_EQ(2, SendMessageW(combo, CB_GETCOUNT, 0, 0));
    SendMessageW(combo, CB_GETLBTEXT, 1, reinterpret_cast<LPARAM>(text));
    EXPECT_STREQ(L"表.dxf", text);
    GetWindowTextW(combo, text, 20);
    EXPECT_STREQ(L"typed", text);
    DestroyWindow(combo);
}

// ---- The dialog ----

TEST_F(Utility, GuidanceLineTakesTheLowerEdge) {
    const HWND dialog = MakeDialog();
    const RECT before = ClientOf(dialog);
    utility_->SetParentWindow(dialog);
    utility_->MessageText("not yet");
    utility_->SetMessageZone();
    const RECT after = ClientOf(dialog);
    const HWND line = FindWindowExW(dialog, nullptr, kGuidanceLineClass, nullptr);
    ASSERT_NE(nullptr, line);
    RECT strip = ClientOf(line);
    MapWindowPoints(line, dialog, reinterpret_cast<POINT*>(&strip), 2);
    EXPECT_EQ(before.bottom, strip.top);
    EXPECT_EQ(after.bottom, strip.bottom);
    EXPECT_EQ(after.right, strip.right);
    EXPECT_EQ(before.right, after.right);

    utility_->ErrorText("表示 & 誤り");
    EXPECT_EQ(L"表示 & 誤り", drive::Text(line));
    EXPECT_EQ(1, SendMessageW(line, kGuidanceLineIsError, 0, 0));
    utility_->SetMessageZone();
    EXPECT_EQ(after.bottom, ClientOf(dialog).bottom) << "the second call does nothing";
    EXPECT_EQ(L"表示 & 誤り", drive::Text(line));
    EXPECT_EQ(nullptr, GetNextDlgTabItem(dialog, nullptr, FALSE));

    const auto redPixels = [&] {
        const RECT area = ClientOf(line);
        const HDC screen = GetDC(nullptr), memory = CreateCompatibleDC(screen);
        const HBITMAP bitmap = CreateCompatibleBitmap(screen, area.right, area.bottom);
        const HGDIOBJ previous = SelectObject(memory, bitmap);
        SendMessageW(line, WM_PRINTCLIENT, reinterpret_cast<WPARAM>(memory), PRF_CLIENT);
        int count = 0;
        COLORREF brightest = 0;
        for (int y = 0; y < area.bottom; ++y)
            for (int x = 0; x < area.right; ++x) {
                const COLORREF pixel = GetPixel(memory, x, y);
                if (GetRValue(pixel) < GetGValue(pixel) + 0x28 || GetGValue(pixel) != GetBValue(pixel)) continue;
                ++count;
                brightest = std::max(brightest, pixel);
            }
        SelectObject(memory, previous);
        DeleteObject(bitmap);
        DeleteDC(memory);
        ReleaseDC(nullptr, screen);
        return std::pair(count, brightest);
    };
    EXPECT_GT(redPixels().first, 10);
    EXPECT_LE(GetRValue(redPixels().second), 0xC0);
    // An operator who likes a dark screen.
    const int face = COLOR_BTNFACE;
    const COLORREF light = GetSysColor(face), dark = RGB(0x20, 0x20, 0x20);
    SetSysColors(1, &face, &dark);
    EXPECT_GT(redPixels().first, 10);
    EXPECT_GE(GetGValue(redPixels().second), 0x90);
    SetSysColors(1, &face, &light);
    utility_->MessageText("");
    EXPECT_EQ(L"", drive::Text(line));
    EXPECT_EQ(0, SendMessageW(line, kGuidanceLineIsError, 0, 0));
    EXPECT_EQ(0, redPixels().first);
    DestroyWindow(dialog);
    utility_->MessageText("gone");
}

TEST_F(Utility, SetFocusSelectsTheText) {
    const HWND dialog = MakeDialog();
    utility_->SetParentWindow(dialog);
    const auto add = [&](int id, DWORD style) {
        return CreateWindowW(L"EDIT", L"text", WS_CHILD | WS_TABSTOP | style, 0, 0, 50, 20, dialog,
                             reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr, nullptr);
    };
    const HWND edit = add(100, WS_VISIBLE);
    add(101, 0);
    ShowWindow(dialog, SW_SHOW);
    SendMessageW(edit, EM_SETSEL, 1, 1);
    utility_->SetFocus(100);
    EXPECT_EQ(edit, GetFocus());
    EXPECT_EQ(MAKELRESULT(0, 4), SendMessageW(edit, EM_GETSEL, 0, 0));
    utility_->SetFocus(101);
    utility_->SetFocus(102);
    EXPECT_EQ(edit, GetFocus());
    DestroyWindow(dialog);
}

// ---- The model ----

TEST_F(Utility, ModelComesFromAFile) {
    const fs::path file = home_ / L"モデル.json";
    EXPECT_EQ("", LoadModelText(file, R"({"modified": true, "baseScale": 2, "maxItemCount": 5000, "maxSplitCount": 300,
                                          "pictures": [{"number": 1, "scale": 0.5}, {"number": 256, "scale": 4e0}]})"));
    const auto expectAsLoaded = [] {
        EXPECT_NE(0, HxModelIsModified(GetActiveModel()));
        EXPECT_EQ(2.0, Scfval101(-1));
        EXPECT_EQ(0.5, Scfval101(1));
        EXPECT_EQ(4.0, Scfval101(256));
        for (const int picture : {-2, 0, 2, 257}) EXPECT_EQ(1.0, Scfval101(picture));
        EXPECT_EQ(5000, HxPermItemDbGetMaxItemCount());
        EXPECT_EQ(300, HxItemMaxSrCount());
    };
    expectAsLoaded();
    for (const auto& [text, message] : std::initializer_list<std::pair<const char*, const char*>>{
             {"{\n  \"modified\": yes}", "line 2, column 15: this is not JSON"},
             {"", "line 1, column 1: this is not JSON"},
             {"[]", "model: an object {...} is expected"},
             {R"({"modified": 1})", "modified: true or false is expected"},
             {R"({"baseScale": 0})", "baseScale: a number above 0 is expected"},
             {R"({"baseScale": 1e999})", "model: a number is too large"},
             {R"({"maxItemCount": 2147483648})", "maxItemCount: a whole number from 1 to 2147483647 is expected"},
             {R"({"maxSplitCount": 18446744073709551615})",
              "maxSplitCount: a whole number from 1 to 2147483647 is expected"},
             {R"({"pictures": {}})", "pictures: a list [...] is expected"},
             {R"({"pictures": [{"number": 1}, {"number": 257}]})",
              "pictures[1].number: a whole number from 1 to 256 is expected"},
             {R"({"pictures": [{"number": 1.5}]})", "pictures[0].number: a whole number from 1 to 256 is expected"},
             {R"({"pictures": [{"scale": 2}]})", "pictures[0]: \"number\" is missing"},
             {R"({"pictures": [{"number": 3}, {"number": 3}]})", "pictures[1]: picture 3 is given twice"},
             {R"({"modifed": true})", "model: unknown member \"modifed\""},
         }) {
        EXPECT_EQ(message, LoadModelText(file, text));
        expectAsLoaded();
    }
    char message[20];
    EXPECT_NE(0, KiroHostLoadModel((home_ / L"none").c_str(), message, sizeof message));
    EXPECT_STREQ("file: cannot be ope", message);
    EXPECT_EQ(0, KiroHostLoadModel(nullptr, nullptr, 0));
    EXPECT_FALSE(GetActiveModel()->IsModified());
    EXPECT_EQ(1.0, Scfval101(-1));
}
