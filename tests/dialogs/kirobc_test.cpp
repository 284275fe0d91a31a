// kirobc as a program sees it: the exported functions on real files and folders.
#include <fcntl.h>

#include <algorithm>

#include "entry/host/kirobc.h"
#include "tests/dialogs/TestHost.h"
#include "ui/Text.h"

namespace {

namespace fs = std::filesystem;

std::wstring Folder(const char* key) {
    wchar_t out[512];
    const std::size_t length = KiroHostGetFolder(key, out, std::size(out));
    EXPECT_EQ(length, std::wcslen(out));
    return out;
}

std::string Internal(const fs::path& path) {
    return HxEucEncoder::Sjis2Euc(kiro::ui::ToSjis(path.generic_wstring()).value_or(""));
}

class Kirobc : public TestHost {
  protected:
    Kirobc() { KiroHostSetHome((own.wstring() + L"\\").c_str()); }

    const fs::path own = home / L"表ソ能①髙";
    const fs::path file = own / L"DXF" / L"図面 表①髙.dxf";
    const std::string path = Internal(file);
    HxFileIO io;
};

}  // namespace

TEST_F(Kirobc, KeysAreFoldersUnderHome) {
    EXPECT_EQ(Folder("#DXF:TABLE#"), (own / "DXF" / "TABLE").wstring());
    EXPECT_TRUE(fs::is_directory(own / "DXF" / "TABLE"));
    EXPECT_EQ(Folder(""), own.wstring());
    EXPECT_EQ(Folder("#TARNA:DB_R#"), (own / "TARNA" / "DB_R").wstring());
    const bool floppy = GetDriveTypeW(L"A:\\") == DRIVE_REMOVABLE;
    EXPECT_EQ(Folder("#FLOPPY_WIN#"), floppy ? L"A:\\" : (own / "FLOPPY_WIN").wstring());
    for (const char* bad : {"#", "##", "DXF", "#DXF", "DXF#", "#A:#", "#:A#", "#A::B#", "#dxf#", "#..#", "#A\\B#",
                            "#A##B#", "#\x95\x5C#"})
        EXPECT_EQ(Folder(bad), L"") << bad;
    wchar_t small[4] = L"###";
    EXPECT_EQ(KiroHostGetFolder("#DXF#", small, 4), (own / "DXF").wstring().size());
    EXPECT_EQ(small, own.wstring().substr(0, 3));
    EXPECT_EQ(KiroHostGetFolder("#DXF#", nullptr, 0), (own / "DXF").wstring().size());
    KiroHostSetHome(L"Z:\\");
    EXPECT_EQ(Folder(""), L"Z:\\");
}

TEST_F(Kirobc, HomeComesFromTheEnvironment) {
    KiroHostSetHome(L"");
    SetEnvironmentVariableW(L"KIRO_HOME", (own / "env").c_str());
    EXPECT_EQ(Folder("#A#"), (own / "env" / "A").wstring());
    SetEnvironmentVariableW(L"KIRO_HOME", nullptr);
    SetEnvironmentVariableW(L"LOCALAPPDATA", own.c_str());
    EXPECT_EQ(Folder("#A#"), (own / "Kiro" / "A").wstring());
    SetEnvironmentVariableW(L"LOCALAPPDATA", nullptr);
    EXPECT_EQ(Folder("#A#"), L"");
}

TEST_F(Kirobc, FullPathOfAName) {
    const auto full = [](const std::string& name, bool upperCase = false, bool create = false) {
        return HxFile::ToFullPath("#DXF#", name, upperCase, create);
    };
    const std::string name = HxEucEncoder::Sjis2Euc("ab表z.dxf");
    EXPECT_EQ(full(name), Internal(own / L"DXF" / L"ab表z.dxf"));
    EXPECT_FALSE(fs::exists(own / "DXF"));
    EXPECT_EQ(full(name, true, true), Internal(own / L"DXF" / L"AB表Z.DXF"));
    EXPECT_TRUE(fs::is_directory(own / "DXF"));
    for (const char* bad : {"", "..", " . ", "a/b", "a\\b", "C:x", "a*", "a?", "a\n", "\xB4", "\x8F\xA1\xA1"})
        EXPECT_EQ(full(bad), "") << bad;
    EXPECT_EQ(HxFile::ToFullPath("#dxf#", "a", false, false), "");
    char out[1024];
    const std::string whole = full("\x8F\xF4\xFB");
    EXPECT_EQ(HxFileToFullPath("#DXF#", "\x8F\xF4\xFB", false, true, out, whole.size()), whole.size());
    EXPECT_EQ(out, whole.substr(0, whole.size() - 3)) << "cut at a character";
    KiroHostSetHome(L"C:\\\xE9");  // an e with an accent: not in 932
    EXPECT_EQ(full("a"), "");
}

TEST_F(Kirobc, ReadsFiles) {
    Folder("#DXF#");
    std::ofstream(file, std::ios::binary) << "one\r\ntwo\x1Athree";
    char buffer[64];
    ASSERT_TRUE(io.Open(path, _O_RDONLY | _O_BINARY, 0666));
    EXPECT_EQ(io.Read(buffer, 4), 4);
    EXPECT_EQ(io.Read(buffer + 4, 60), 10);
    EXPECT_EQ(std::string(buffer, 14), "one\r\ntwo\x1Athree");
    EXPECT_EQ(io.Read(buffer, 64), 0);
    EXPECT_EQ(io.Read(nullptr, 4), -1);
    ASSERT_TRUE(io.Open(path, _O_RDONLY, 0666));  // text mode
    EXPECT_EQ(io.Read(buffer, 64), 7);
    EXPECT_EQ(std::string(buffer, 7), "one\ntwo");

    const std::string folder = Internal(file.parent_path());
    for (const std::string& bad : {folder, path + "/", std::string("x.dxf"), std::string(), path + ":s", path + "*",
                                   "//?/" + path, "//./" + path, std::string("C:x"), std::string("C:/NUL"),
                                   folder + "/missing", folder + "/CON", path.substr(0, path.size() - 6)})
        EXPECT_FALSE(io.Open(bad, _O_RDONLY | _O_BINARY, 0666)) << bad;
    EXPECT_EQ(HxFileIOOpen(nullptr, _O_RDONLY, 0), nullptr);
    HxFileIOClose(nullptr);
    EXPECT_EQ(HxFileIORead(nullptr, buffer, 1), -1);
}

TEST_F(Kirobc, OpenFlags) {
    Folder("#DXF#");
    EXPECT_FALSE(io.Open(path, _O_RDWR | _O_BINARY, 0666));
    ASSERT_TRUE(io.Open(path, _O_RDWR | _O_CREAT | _O_EXCL | _O_BINARY, 0666));
    EXPECT_FALSE(io.Open(path, _O_RDWR | _O_CREAT | _O_EXCL | _O_BINARY, 0666));
    std::ofstream(file) << "text";
    EXPECT_FALSE(io.Open(path, _O_RDONLY | _O_TRUNC, 0666));
    EXPECT_FALSE(io.Open(path, _O_WRONLY | _O_RDWR, 0666));
    ASSERT_TRUE(io.Open(path, _O_WRONLY | _O_CREAT | _O_BINARY, 0666));
    char c;
    EXPECT_EQ(io.Read(&c, 1), -1);
    EXPECT_EQ(fs::file_size(file), 4u);
    ASSERT_TRUE(io.Open(path, _O_RDWR | _O_TRUNC, 0666));
    EXPECT_EQ(fs::file_size(file), 0u);
    io.Close();
    // What another program is writing can be read, unless it says otherwise.
    for (const DWORD share : {FILE_SHARE_READ, 0}) {
        const HANDLE writer =
            CreateFileW(file.c_str(), GENERIC_WRITE | DELETE, share, nullptr, OPEN_ALWAYS, 0, nullptr);
        EXPECT_EQ(io.Open(path, _O_RDONLY | _O_BINARY, 0666), share != 0);
        io.Close();
        CloseHandle(writer);
    }
}

TEST(KirobcText, ExportsKeepTheBufferContract) {
    const std::string euc = HxEucEncoder::Sjis2Euc("a表ｱ髙");
    EXPECT_EQ(euc, "a\xC9\xBD\x8E\xB1\x8F\xF4\xFB") << testing::PrintToString(euc);
    EXPECT_EQ(HxEucEncoder::Euc2Sjis(euc), "a表ｱ髙");
    EXPECT_EQ(HxEucEncoder::Sjis2Euc("a表ｱ髙", 4), "a\xC9\xBD");
    EXPECT_EQ(HxEucEncoder::Euc2Sjis(euc, 2), "a");
    char out[4] = "###";
    EXPECT_EQ(HxEucToSjis(euc.data(), euc.size(), nullptr, 9), 6u);
    for (const auto& [size, text] : {std::pair(0, "###"), std::pair(1, ""), std::pair(3, "a")}) {
        EXPECT_EQ(HxEucToSjis(euc.data(), euc.size(), out, static_cast<std::size_t>(size)), 6u);
        EXPECT_STREQ(out, text);
    }
    EXPECT_EQ(HxEucToSjis(nullptr, 3, out, 4), 0u);
    EXPECT_STREQ(out, "");
}

TEST_F(Kirobc, FinderListsFoldersOrFiles) {
    for (const wchar_t* name : {L"A", L"表ソ", L"é"}) fs::create_directories(own / L"D" / name);  // é: not in 932
    for (const wchar_t* name : {L"A.TXT", L"AB.TXT", L"B"}) Write((own / L"D" / name).wstring(), "");
    const HxFileFinderPtr finder(HxFileFinderCreateInstance());
    const auto list = [&](const std::string& pattern, bool directories) {
        std::vector<std::string> names;
        if (!finder->Open(pattern.c_str(), directories)) return std::string("none");
        do names.push_back(finder->Current());
        while (finder->Next());
        EXPECT_FALSE(finder->Next());
        std::ranges::sort(names);
        std::string text;
        for (const std::string& name : names) text += name.substr(Internal(own / L"D").size()) + " ";
        return HxEucEncoder::Euc2Sjis(text);
    };
    const std::string folder = Internal(own / L"D");
    EXPECT_EQ(list(folder + "/*", true), "/A /表ソ ");
    EXPECT_EQ(list(folder + "/*", false), "/A.TXT /AB.TXT /B ");
    EXPECT_EQ(list(folder + "/A?.T*", false), "/AB.TXT ");
    for (const std::string& none : {folder + "/X*", folder + "/A/*", folder + "/", std::string("D/*"), std::string(),
                                    folder + "/\xB4*", folder + "?/*", folder + "/A:*"})
        EXPECT_EQ(list(none, false), "none") << none;
    EXPECT_FALSE(finder->Open(nullptr, true));
    ASSERT_TRUE(finder->Open((folder + "/*").c_str(), true));
    finder->Close();
    EXPECT_FALSE(finder->Next());
    EXPECT_STREQ(finder->Current(), "");
    EXPECT_TRUE(RemoveDirectoryW((own / L"D" / L"A").c_str()));  // nothing is held open
}

TEST(KirobcNames, OfGroupsAndUsersAreThoseOfFolders) {
    for (const char* name : {"A", "ABCD", "部品", "ﾎﾟﾝﾌ", "a b", "ソ", "COM"})
        EXPECT_TRUE(CheckGroupName(name)) << name;
    for (const char* name : {"", "ABCDE", "部品A", "A*", "A/B", "A\\", ".A", "A.", " A", "A ", "　", "CON", "nul",
                             "COM1", "lpt9", "A\t", "\x83", "\xFF"})
        EXPECT_FALSE(CheckGroupName(name)) << name;
    EXPECT_TRUE(CheckUserName("access", CheckGroupName("A")) && CheckUserName("能登子", CheckGroupName("A")));
    for (const char* name : {"ABCDEFG", "ACCESS", "FORMAT", "NUL.A", ""}) EXPECT_FALSE(CheckUserName(name, 1)) << name;
    EXPECT_FALSE(CheckUserName("A", 0) || CheckGroupName(nullptr) || CheckUserName(nullptr, 1));
}

TEST_F(Kirobc, FloppyIsAFolder) {
    using namespace kiro::drive;
    const auto info = std::make_unique<TARNAINFO>();
    TarnaDatabaseView& database = info->database;
    const auto refused = [&](int what, const wchar_t* text) {
        const int result = Drive([&] { return GetPlFloppy(what, info.get()); },
                                 [&] {
                                     const Box box = ReadBox();
                                     EXPECT_NE(std::wstring::npos, box.text.find(text));
                                     Answer(box, IDOK);
                                 });
        EXPECT_NE(result, 0);
    };
    const fs::path floppy = own / L"FLOPPY_WIN";
    for (const int what : {0, 10}) refused(what, L"準備ができていません");
    for (const int what : {1, 2, 3}) EXPECT_NE(GetPlFloppy(what, info.get()), 0);
    fs::create_directories(floppy);
    refused(0, L"Ｐｅｌｉｏｎのフロッピーではありません。");
    Write((floppy / L"PELION").wstring(), "");
    refused(10, L"書き込めません");
    fs::remove(floppy / L"PELION");
    EXPECT_EQ(GetPlFloppy(10, info.get()), 0);
    EXPECT_EQ(GetPlFloppy(0, info.get()), 0);
    EXPECT_TRUE(fs::is_empty(floppy / L"PELION"));
    for (const wchar_t* name : {L"A/ACCESS", L"A/能登子", L"表ソ/X", L"GUARD/X"})
        fs::create_directories(floppy / L"PELION" / name);
    std::memset(database.plGroup, ' ', sizeof database.plGroup);
    database.plGroup[0] = 'A';
    EXPECT_EQ(GetPlFloppy(1, info.get()), 0);
    EXPECT_EQ(GetPlFloppy(2, info.get()), 0);
    ASSERT_EQ(std::pair(2, 1), std::pair(database.plFloppyGroupCount, database.plFloppyUserCount));
    EXPECT_EQ(0, std::memcmp(database.plFloppyGroups[1], "表ソ  ", 6));
    EXPECT_EQ(0, std::memcmp(database.plFloppyUsers[0], "能登子  ", 8));
    EXPECT_NE(GetPlFloppy(0, nullptr), 0);
}
