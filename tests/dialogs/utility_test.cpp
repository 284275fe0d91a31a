// The dialogs' utility object, as its users see it.
#include <cmath>

#include "entry/host/KrUtility.h"
#include "entry/host/kirobc.h"
#include "hostlayer/kirodlglib/GuidanceLine.h"
#include "resources/dxfin/KrDxfIn.ids.h"
#include "tests/dialogs/TestHost.h"

namespace drive = kiro::drive;

namespace {

using Names = std::vector<std::string>;

class Utility : public TestHost {
  protected:
    Utility() {
        utility->SetParentWindow(owner);
        utility->SetCaption("読込み");
        utility->SetKeyword("#DXF#");
    }

    std::string Internal(const std::string& path) { return KrInternalPath(*utility, nullptr, path); }
    std::string Real(const char* key, const std::string& path) {
        char buffer[kKrPathSize];
        strcpy(buffer, path.c_str());
        return utility->RealPathName(key, buffer, kKrPathSize) ? buffer : "(none)";
    }
    // What another object, such as the next dialog's, gets.
    static Names Used(const char* key = "#DXF#", HWND combo = nullptr) {
        KrTextList list;
        int max = 0;
        EXPECT_NE(0, KrUtilityPtr(KrCreateUtility())->GetUsedFile(key, kKrUsedFiles, &list, &max, combo));
        EXPECT_EQ(16, max);
        Names names;
        for (int i = 0; i < list.GetCount(); ++i) names.emplace_back(list.GetAt(i));
        return names;
    }
    int SetUsed(const Names& names, int max = 16) {
        KrTextList list;
        for (const std::string& name : names) list.InsertAt(list.GetCount(), name.c_str());
        return utility->SetUsedFile("#DXF#", kKrUsedFiles, &list, &max);
    }
    // Runs a check that shows one box and answers it.
    drive::Box BoxOf(const std::function<int()>& check, int expectedResult, int answer = IDOK) {
        drive::Box box;
        EXPECT_EQ(expectedResult, drive::Drive(check, [&] {
                      box = drive::ReadBox();
                      drive::Answer(box, answer);
                  }));
        return box;
    }
    void ExpectRefusal(const std::function<int()>& check, const wchar_t* reason) {
        const drive::Box box = BoxOf(check, 0);
        EXPECT_NE(std::wstring::npos, box.text.find(reason)) << testing::PrintToString(box.text);
        EXPECT_LT(box.text.size(), 150U) << "must fit on the screen";
        EXPECT_EQ(L"読込み", box.caption);
        EXPECT_EQ(static_cast<UINT>(MB_ICONEXCLAMATION), box.icon);
    }

    KrUtilityPtr utility{KrCreateUtility()};
};

// Over one of the library's dialogs, without the library's code.
class UtilityDialog : public Utility {
  protected:
    UtilityDialog()
        : dialog(CreateDialogParamW(
              GetModuleHandleW(L"kirovanteo.dll"), MAKEINTRESOURCEW(kDxfInDialog), nullptr,
              [](HWND, UINT, WPARAM, LPARAM) -> INT_PTR { return FALSE; }, 0)) {
        utility->SetParentWindow(dialog);
    }
    ~UtilityDialog() override { DestroyWindow(dialog); }
    // The dialog's, or its guidance line's.
    RECT Client(const wchar_t* child = nullptr) const {
        const HWND window = child ? FindWindowExW(dialog, nullptr, child, nullptr) : dialog;
        RECT area{};
        GetClientRect(window, &area);
        MapWindowPoints(window, dialog, reinterpret_cast<POINT*>(&area), 2);
        return area;
    }

    const LibraryResources resources;
    const HWND dialog;
};

}  // namespace

// ---- Numbers ----

TEST_F(Utility, TakesNumbersOfTheKindAndRangeOnly) {
    const auto expect = [&](int ok, int kind, double min, double max, std::initializer_list<const char*> texts) {
        for (const char* text : texts)
            EXPECT_EQ(ok, utility->CheckNumber(text, kind, min, max)) << "\"" << text << "\" " << kind;
    };
    expect(1, kKrIntegerSigned, -256, 256, {"0", "-256", "256", "+7", "007"});
    expect(0, kKrIntegerSigned, -256, 256, {"257", "-257", "", "-", "+", "+-7", "--7", "7-"});
    expect(1, kKrInteger, 0, 9, {"0", "9", "-0"});
    expect(0, kKrInteger, 0, 9, {"-1", "10", "+7", "", "7x", "7.0", "7 ", " 7", "７", "0x7", "7e0", "nan"});
    expect(0, kKrInteger, -1e12, 1e12, {"2147483648", "-2147483649", "99999999999999999999"});
    expect(1, kKrReal, -1, 7.5, {"7.5", "+.5", "1.", "1e-3", "-1E0"});
    expect(0, kKrReal, -1, 7.5, {"7.51", "-1.01", "1e", ".", "", "nan", "0x1p1", "1,5", "1.5.1", "１", "1 ", "+-1"});
    expect(0, kKrReal, 0, HUGE_VAL, {"1e999", "inf", "infinity"});
    expect(0, kKrReal + 1, 0, 9, {"7"});
    EXPECT_EQ(0, utility->CheckNumber(nullptr, kKrInteger, 0, 9));
}

TEST_F(Utility, ReadsAndShowsScales) {
    const auto read = [&](const char* text) {
        double value = -1;
        const int ok = utility->CheckScale(text, &value);
        EXPECT_EQ(ok, value != -1) << text;
        return value;
    };
    const struct {
        const char* text;
        double scale;
    } good[] = {{"1", 1}, {"1/100", 0.01}, {"1/2.5", 0.4}, {"1/0.5", 2}, {"1e3", 1000}},
      shown[] = {{"1", 1},        {"1/100", 0.01},  {"1/100", 0.1 * 0.1}, {"1/3", 1.0 / 3}, {"0.3333", 0.3333},
                 {"100000", 1e5}, {"1e-12", 1e-12}, {"-0.5", -0.5},       {"", NAN}},
      numbers[] = {{"0", -0.0}, {"12345.678", 12345.678}, {"1e+300", 1e300}, {"", HUGE_VAL}};
    for (const auto& row : good) EXPECT_DOUBLE_EQ(row.scale, read(row.text)) << row.text;
    for (const char* text : {"", "0", "-1", "+1", "1/0", "2/3", "1/", "/2", "1/-2", "1/+2", "1 / 2", "1/2/3", "1:2",
                             "１", "nan", "inf", "1/inf", "1/1e-320"})
        EXPECT_EQ(-1, read(text)) << text;
    for (const auto& row : shown) {
        char text[kKrTextSize];
        utility->DisplayScale(row.scale, text, sizeof text);
        EXPECT_STREQ(row.text, text);
    }
    for (const auto& row : numbers) EXPECT_STREQ(row.text, utility->DtoA(row.scale));
}

// ---- Text ----

TEST_F(Utility, CutsSpacesOfBothWidthsAndNoHalfCharacter) {
    const auto cut = [&](const char* text, void (KrUtility::*edit)(char*)) { return KrEdited(*utility, text, edit); };
    EXPECT_EQ("  表 示", cut("  表 示 　 ", &KrUtility::SpaceNull));
    EXPECT_EQ("表 示", cut("　 表 示　", &KrUtility::ExceptSpace));
    EXPECT_EQ("", cut(" 　 ", &KrUtility::KillFocus));
    // The second byte of one character and the first of the next are not a full-width space.
    EXPECT_EQ("\x83\x81\x40", cut("\x83\x81\x40", &KrUtility::KillFocus));
    EXPECT_EQ("a\x81", cut("a\x81 ", &KrUtility::KillFocus));
    utility->KillFocus(nullptr);
}

TEST_F(Utility, ModelNamesHoldLettersAndJapanese) {
    for (const char* name : {"", "A-1_b.2", "部品表ソ", "ｱｲｳ"}) EXPECT_EQ(1, utility->CheckModelName(name)) << name;
    for (const char* name : {"a b", "部　品", "a/b", "a\\b", "a:b", "a*", "a?", "a,b", "a\tb", "a#", "\x83", "\x81\x20",
                             "\x80", "\xA0", "\xFD"})
        EXPECT_EQ(0, utility->CheckModelName(name)) << name;
}

TEST_F(Utility, ConvertsInPlaceWithinTheBuffer) {
    char text[8] = "ｱｲｳ";  // three bytes here, six in EUC
    EXPECT_EQ(1, utility->ToEUC(text, sizeof text));
    EXPECT_STREQ("\x8E\xB1\x8E\xB2\x8E\xB3", text);
    utility->ToSJIS(text);
    EXPECT_STREQ("ｱｲｳ", text);
    EXPECT_EQ(0, utility->ToEUC(text, 6));
    EXPECT_STREQ("\x8E\xB1\x8E\xB2", text);
    char message[20] = "?";
    EXPECT_EQ(1, utility->GetMessageText(80, message, 6));
    EXPECT_STREQ("メモ", message);
    EXPECT_EQ(0, utility->GetMessageText(-1, message, 20));
    EXPECT_STREQ("", message);
}

// ---- Paths ----

TEST_F(Utility, InternalAndRealPathsAreInverses) {
    for (const char* path : {"C:\\表\\ソフト\\能.dxf", "\\\\srv\\表\\ﾊﾝｶｸ.dxf", "C:\\a b\\髙①.dxf", "D:\\"}) {
        const std::string internal = Internal(path);
        EXPECT_EQ(std::string::npos, internal.find('\\')) << path;
        EXPECT_EQ(path, Real(nullptr, internal));
        EXPECT_EQ(internal, Internal(HxEucEncoder::Euc2Sjis(internal))) << "shown to the user and taken back";
    }
    EXPECT_EQ("C:/a/c.dxf", Internal("c:\\a\\.\\b\\..\\c.dxf"));
    for (const char* path : {"", "C:a.dxf", "a:b", "\\\\?\\C:\\a", "\\\\.\\COM1", "\\\\srv", "\x83", "C:\\\xA0"})
        EXPECT_EQ("", Internal(path)) << path;
    char tight[9] = "C:\\ｱｲｳ";  // nine bytes in EUC, and a NUL
    EXPECT_EQ(0, utility->InternalPathName(nullptr, tight, sizeof tight));
    EXPECT_STREQ("C:\\ｱｲｳ", tight);
    char open[3] = {'C', ':', '\\'};  // without a NUL
    EXPECT_EQ(0, utility->InternalPathName(nullptr, open, sizeof open));
    EXPECT_EQ(0, utility->RealPathName(nullptr, nullptr, 10));
    EXPECT_EQ("(none)", Real(nullptr, "C:/\xB4")) << "half a character";
}

TEST_F(Utility, NamesMeanTheKeysFolder) {
    EXPECT_EQ(home.string() + "\\DXF\\a.dxf", Real(nullptr, "a.dxf"));
    EXPECT_EQ(home.string() + "\\DXF\\TABLE\\s\\a", Real("#DXF:TABLE#", "s/a"));
    utility->SetFloppy("#DXF#");
    EXPECT_EQ(Real("#FLOPPY_WIN#", "a.dxf"), Real(nullptr, "a.dxf"));
    EXPECT_NE(Real("#DXF#", "a.dxf"), Real(nullptr, "a.dxf"));
    utility->SetKeyword("#DXF#");
    Write(L"DXF/表.dxf", "x");
    EXPECT_EQ(0, utility->Access(nullptr, "表.dxf"));
    EXPECT_NE(0, utility->Access("#DXF#", "")) << "an empty field names no file";
    EXPECT_NE(0, utility->Access("#DWG#", "表.dxf"));
    EXPECT_EQ(0, utility->Access("", "DXF"));
}

// ---- File checks ----

TEST_F(Utility, InputFileIsRefusedWithAReason) {
    Write(L"DXF/empty.dxf", "");
    const std::filesystem::path locked = Write(L"DXF/locked.dxf", "x");
    const HANDLE lock = CreateFileW(locked.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    for (const auto& [name, reason] : std::initializer_list<std::pair<std::string, const wchar_t*>>{
             {"", L"入力してください"},
             {std::string(251, 'a') + ".dxf", L"長すぎます"},
             {std::string(2000, 'a'), L"長すぎます"},
             {"C:\\" + std::string(130, '\xB1'), L"長すぎます"},  // 133 bytes, but 263 in EUC
             {"a<b.dxf", L"使えない文字"},
             {"a\nb.dxf", L"使えない文字"},
             {"C:a.dxf", L"使えない文字"},
             {"a.dxf ", L"末尾"},
             {"sub.\\a.dxf", L"末尾"},
             {"*.dxf", L"ワイルドカード"},
             {"nul.dxf", L"予約"},
             {"C:\\Com1\\a.dxf", L"予約"},
             {"a\x83", L"正しくない"},
             {"none.dxf", L"ファイルが見つかりません"},
             {"none\\a.dxf", L"フォルダが見つかりません"},
             {home.string(), L"フォルダが指定"},
             {home.string() + "\\", L"フォルダが指定"},
             {"empty.dxf", L"空です"},
             {"locked.dxf", L"使用している"},
         }) {
        SCOPED_TRACE(name);
        ExpectRefusal([&, text = name] { return utility->CheckInputFile(text.c_str()); }, reason);
    }
    CloseHandle(lock);
    Write(L"DXF/表 ソ.dxf", "x");
    EXPECT_EQ(1, utility->CheckInputFile("表 ソ.dxf"));
    EXPECT_EQ(1, utility->CheckInputFile((home.generic_string() + "/DXF/locked.dxf").c_str()));
}

TEST_F(Utility, OutputFileAsksBeforeItIsOverwritten) {
    const auto check = [&] { return utility->CheckOutputFile("a.dxf"); };
    EXPECT_EQ(1, check());
    EXPECT_FALSE(std::filesystem::exists(home / L"DXF/a.dxf")) << "a check leaves nothing behind";
    const std::filesystem::path file = Write(L"DXF/a.dxf", "old");
    const drive::Box box = BoxOf(check, 0, IDNO);
    EXPECT_EQ(L"a.dxf\n\nファイルが既に存在します。上書きしますか。", box.text);
    EXPECT_EQ(IDNO, box.defaultButton);
    BoxOf(check, 1, IDYES);
    EXPECT_EQ(3U, std::filesystem::file_size(file));

    SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_READONLY);
    ExpectRefusal(check, L"読み取り専用");
    SetFileAttributesW(file.c_str(), FILE_ATTRIBUTE_NORMAL);
    ExpectRefusal([&] { return utility->CheckOutputFile("none\\a.dxf"); }, L"フォルダが見つかりません");
    ExpectRefusal([&] { return utility->CheckOutputFile(home.string().c_str()); }, L"フォルダが指定");
}

TEST_F(Utility, PatternsAreNamesForCheckFileOnly) {
    for (const char* name : {"*.dxf", "C:\\表\\?.dxf", "a.dxf"}) EXPECT_EQ(1, utility->CheckFile(name)) << name;
    BoxOf([&] { return utility->CheckFile("*\\a.dxf"); }, 0);
    EXPECT_EQ(1, utility->CheckFileName("表.dxf"));
    for (const char* name : {"*.dxf", "", "a|b", "prn"}) EXPECT_EQ(0, utility->CheckFileName(name)) << name;
}

TEST_F(Utility, ChooserGivesTheFullPath) {
    Write(L"DXF/表.dxf", "x");
    const wchar_t* korean = L"한.dxf";
    Write(std::wstring(L"DXF/") + korean, "x");
    const std::filesystem::path before = std::filesystem::current_path();
    drive::Box box;
    const auto choose = [&](const wchar_t* name, int button) {
        const auto use = [&] {
            const HWND chooser = drive::Settle();
            EXPECT_EQ(L"読込み", drive::Text(chooser));
            SetDlgItemTextW(chooser, drive::kChooserField, name);
            drive::Click(chooser, button);
            if (drive::Settle()) drive::Answer(box = drive::ReadBox(), IDOK);
        };
        return drive::Drive([&] { return utility->FileDialog(kKrChooseExisting); }, use);
    };
    EXPECT_EQ(1, choose(L"表.dxf", IDOK));
    EXPECT_EQ(home.string() + "\\DXF\\表.dxf", utility->GetFileName());
    EXPECT_EQ(0, choose(L"表.dxf", IDCANCEL));
    EXPECT_STREQ("", utility->GetFileName());
    EXPECT_EQ(0, choose(korean, IDOK));
    EXPECT_NE(std::wstring::npos, box.text.find(L"シフトＪＩＳにない文字"));
    EXPECT_EQ(before, std::filesystem::current_path());
}

TEST_F(Utility, ChooserOfANewFileProposesWhatItsNameBeginsWith) {
    constexpr struct {
        int mode;
        const char* pattern;
        const wchar_t* proposed;
        const char* chosen;  // when "1" is typed behind it
    } kCases[] = {
        {kKrChooseNew, "KIRO_表*", L"KIRO_表", "KIRO_表1"},
        {kKrChooseExisting, "KIRO_表*", L"", "1"},
        {kKrChooseNew, "*.dxf", L"", "1.dxf"},
        {kKrChooseNew, "KIRO?*", L"", "1"},
        {kKrChooseNew, "a;KIRO*", L"", "1"},
        {kKrChooseNew, "*", L"", "1"},
    };
    for (const auto& [mode, pattern, proposed, chosen] : kCases) {
        SCOPED_TRACE(pattern);
        utility->SetWildcard(pattern);
        const auto use = [first = proposed] {
            const HWND chooser = drive::Settle(), name = drive::FocusWindow();
            EXPECT_EQ(first, drive::Text(name));
            EXPECT_EQ(MAKELONG(0, drive::Text(name).size()), drive::Send(name, EM_GETSEL)) << "typing replaces it";
            drive::Key(VK_END);
            PostMessageW(name, WM_CHAR, L'1', 1);
            drive::Click(chooser, IDOK);
        };
        EXPECT_EQ(1, drive::Drive([&, how = mode] { return utility->FileDialog(how); }, use));
        EXPECT_EQ(home.string() + "\\DXF\\" + chosen, utility->GetFileName());
    }
}

// ---- Recently used files ----

TEST_F(Utility, UsedFilesAreKeptNewestFirst) {
    KrTextList list;
    EXPECT_EQ(Names(), Used());
    for (int i = 0; i < 20; ++i) utility->SetFilePath(&list, ("表" + std::to_string(i) + ".dxf").c_str(), nullptr, 16);
    EXPECT_EQ(16, list.GetCount());
    utility->SetFilePath(&list, "表10.DXF", nullptr, 16);  // the same file
    EXPECT_EQ(16, list.GetCount());
    utility->SetFilePath(&list, list.GetAt(1), nullptr, 16);  // a text of the list itself
    utility->DelFilePath(&list, "表4.dxf", nullptr, 16);
    int max = 3;
    EXPECT_EQ(1, utility->SetUsedFile(nullptr, kKrUsedFiles, &list, &max));
    EXPECT_EQ((Names{"表19.dxf", "表10.DXF", "表18.dxf"}), Used());
    EXPECT_EQ(Names(), Used("#DWG#"));
    EXPECT_EQ(1, SetUsed({"a.dxf"}, 0));
    EXPECT_EQ(Names(), Used());
}

TEST_F(Utility, DamagedUsedFileListGivesItsGoodNames) {
    const std::string good = "\xE8\xA1\xA8.dxf";  // UTF-8
    const std::string cjk = "\xED\x95\x9C.dxf";   // no character of 932
    Write(L"settings/used__DXF_.txt", "\xEF\xBB\xBF" + good + "\r\n\xFF\xFE.dxf\r\n" + std::string("a\0b.dxf\n", 8) +
                                          std::string(5000, 'a') + "\n" + cjk + "\n\n\tx.dxf\nb.dxf\nB.DXF\n" + good +
                                          "\nlast.dxf\nbroken of");
    EXPECT_EQ((Names{"表.dxf", "b.dxf", "last.dxf"}), Used());
}

TEST_F(Utility, UsedFileListSurvivesAWriteThatFails) {
    ASSERT_EQ(1, SetUsed({"a.dxf"}));
    const std::filesystem::path settings = home / L"settings", file = settings / L"used__DXF_.txt";
    const HANDLE lock =
        CreateFileW(file.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_EQ(0, SetUsed({"b.dxf"}));
    CloseHandle(lock);
    EXPECT_EQ(Names{"a.dxf"}, Used());
    EXPECT_EQ(1, std::distance(std::filesystem::directory_iterator(settings), {}));
    std::filesystem::create_hard_link(file, home / L"old");
    EXPECT_EQ(1, SetUsed({"bb.dxf"}));
    EXPECT_EQ(7U, std::filesystem::file_size(home / L"old")) << "the old file is replaced, not written in";
}

TEST_F(Utility, ComboShowsTheListAndKeepsItsText) {
    ASSERT_EQ(1, SetUsed({"表.dxf", "b.dxf"}));
    const HWND combo =
        CreateWindowW(L"COMBOBOX", L"", WS_POPUP | CBS_DROPDOWN, 0, 0, 100, 200, nullptr, nullptr, nullptr, nullptr);
    SetWindowTextW(combo, L"typed");
    EXPECT_EQ(2u, Used("#DXF#", combo).size());
    EXPECT_EQ(2, SendMessageW(combo, CB_GETCOUNT, 0, 0));
    KrTextList list;
    for (const char* name : {"b.dxf", "表.dxf", "c.dxf"}) utility->SetFilePath(&list, name, combo, 16);
    EXPECT_EQ(3, SendMessageW(combo, CB_GETCOUNT, 0, 0));
    utility->DelFilePath(&list, "b.dxf", combo, 16);
    EXPECT_EQ(2, SendMessageW(combo, CB_GETCOUNT, 0, 0));
    EXPECT_EQ(L"typed", drive::Text(combo));
    DestroyWindow(combo);
}

// ---- The dialog ----

TEST_F(UtilityDialog, GuidanceLineTakesTheLowerEdge) {
    const RECT before = Client();
    utility->MessageText("not yet");
    utility->SetMessageZone();
    const RECT after = Client(), strip = Client(kGuidanceLineClass);
    EXPECT_TRUE(strip.top == before.bottom && strip.bottom == after.bottom && strip.top < strip.bottom);
    EXPECT_TRUE(strip.right == before.right && strip.right == after.right);
    const HWND line = FindWindowExW(dialog, nullptr, kGuidanceLineClass, nullptr);
    EXPECT_FALSE(GetWindowLongW(line, GWL_STYLE) & WS_TABSTOP);

    utility->ErrorText("表示 & 誤り");
    utility->SetMessageZone();
    EXPECT_EQ(after.bottom, Client().bottom) << "the second call does nothing";
    EXPECT_EQ(L"表示 & 誤り", drive::Text(line));
    EXPECT_TRUE(SendMessageW(line, kGuidanceLineIsError, 0, 0));
    utility->MessageText("");
    EXPECT_EQ(L"", drive::Text(line));
    EXPECT_FALSE(SendMessageW(line, kGuidanceLineIsError, 0, 0));
}

TEST_F(UtilityDialog, GuidanceLineShowsErrorsInAReadableRed) {
    utility->SetMessageZone();
    ShowWindow(dialog, SW_SHOW);
    const auto shows = [&](COLORREF color) { return HasColor(dialog, Client(kGuidanceLineClass), color); };
    constexpr COLORREF kRed = RGB(0xC0, 0, 0), kLightRed = RGB(0xFF, 0x99, 0x99);
    utility->ErrorText("誤り");
    EXPECT_TRUE(shows(kRed));
    // An operator who likes a dark screen.
    const int face = COLOR_BTNFACE;
    const COLORREF light = GetSysColor(face), dark = RGB(0x20, 0x20, 0x20);
    SetSysColors(1, &face, &dark);
    EXPECT_TRUE(shows(kLightRed) && !shows(kRed));
    SetSysColors(1, &face, &light);
    utility->MessageText("案内");
    EXPECT_FALSE(shows(kRed));
}

TEST_F(UtilityDialog, SetFocusSelectsTheText) {
    const HWND edit = GetDlgItem(dialog, kScaleEdit);
    SetWindowTextW(edit, L"text");
    ShowWindow(GetDlgItem(dialog, kSubModelEdit), SW_HIDE);
    ShowWindow(dialog, SW_SHOW);
    utility->SetFocus(kScaleEdit);
    EXPECT_EQ(MAKELRESULT(0, 4), SendMessageW(edit, EM_GETSEL, 0, 0));
    utility->SetFocus(kSubModelEdit);
    utility->SetFocus(999);
    EXPECT_EQ(edit, GetFocus());
}
