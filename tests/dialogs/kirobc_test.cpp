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
