// kirobc as a program sees it: the exported functions on real files and folders.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>

#include "hostlayer/include/KiroHost.h"

namespace {

namespace fs = std::filesystem;

std::wstring Folder(const char* key) {
    wchar_t out[512];
    const std::size_t length = KiroHostGetFolder(key, out, std::size(out));
    EXPECT_EQ(length, std::wcslen(out));
    return out;
}

std::string InternalPath(const fs::path& path) {
    std::wstring wide = path.wstring();
    std::ranges::replace(wide, L'\\', L'/');
    char sjis[1024];
    const int length =
        WideCharToMultiByte(932, 0, wide.data(), static_cast<int>(wide.size()), sjis, sizeof sjis, nullptr, nullptr);
    return HxEucEncoder::Sjis2Euc(std::string(sjis, static_cast<std::size_t>(length)));
}

class Kirobc : public testing::Test {
  protected:
    void SetUp() override {
        home_ = fs::temp_directory_path() / (L"表ソ能①髙_" + std::to_wstring(GetCurrentProcessId()));
        KiroHostSetHome((home_.wstring() + L"\\").c_str());
    }
    void TearDown() override {
        std::error_code ignored;
        fs::remove_all(home_, ignored);
        KiroHostSetHome(nullptr);
    }

    fs::path home_;
};

TEST_F(Kirobc, KeysAreFoldersUnderHome) {
    EXPECT_EQ(Folder("#DXF:TABLE#"), (home_ / "DXF" / "TABLE").wstring());
    EXPECT_TRUE(fs::is_directory(home_ / "DXF" / "TABLE"));
    EXPECT_EQ(Folder(""), home_.wstring());
    EXPECT_EQ(Folder("#TARNA:DB_R#"), (home_ / "TARNA" / "DB_R").wstring());
    const bool floppy = GetDriveTypeW(L"A:\\") == DRIVE_REMOVABLE;
    EXPECT_EQ(Folder("#FLOPPY_WIN#"), floppy ? L"A:\\" : (home_ / "FLOPPY_WIN").wstring());
    for (const char* bad : {"#", "##", "DXF", "#DXF", "DXF#", "#:#", "#A:#", "#:A#", "#A::B#", "#dxf#", "#..#",
                            "#A\\B#", "#A/B#", "#A##B#", "#\x95\x5C#"}) {
        EXPECT_EQ(Folder(bad), L"") << bad;
    }
    wchar_t small[4] = L"###";
    EXPECT_EQ(KiroHostGetFolder("#DXF#", small, 4), (home_ / "DXF").wstring().size());
    EXPECT_EQ(std::wstring(small), home_.wstring().substr(0, 3));
    EXPECT_EQ(KiroHostGetFolder("#DXF#", nullptr, 0), (home_ / "DXF").wstring().size());
    KiroHostSetHome(L"Z:\\");
    EXPECT_EQ(Folder(""), L"Z:\\");
}

TEST_F(Kirobc, HomeComesFromTheEnvironment) {
    KiroHostSetHome(L"");
    SetEnvironmentVariableW(L"KIRO_HOME", (home_ / "env").c_str());
    EXPECT_EQ(Folder("#A#"), (home_ / "env" / "A").wstring());
    SetEnvironmentVariableW(L"KIRO_HOME", nullptr);
    SetEnvironmentVariableW(L"LOCALAPPDATA", home_.c_str());
    EXPECT_EQ(Folder("#A#"), (home_ / "Kiro" / "A").wstring());
    SetEnvironmentVariableW(L"LOCALAPPDATA", nullptr);
    EXPECT_EQ(Folder("#A#"), L"");
}

TEST_F(Kirobc, FullPathOfAName) {
    const std::string name = HxEucEncoder::Sjis2Euc("ab表z.dxf");
    EXPECT_EQ(HxFile::ToFullPath("#DXF#", name, false, false), InternalPath(home_ / L"DXF" / L"ab表z.dxf"));
    EXPECT_FALSE(fs::exists(home_ / "DXF"));
    EXPECT_EQ(HxFile::ToFullPath("#DXF#", name, true, true), InternalPath(home_ / L"DXF" / L"AB表Z.DXF"));
    EXPECT_TRUE(fs::is_directory(home_ / "DXF"));
    for (const char* bad : {"", ".", "..", " . ", "a/b", "a\\b", "C:x", "a*", "a?", "a\n", "\xB4", "\x8F\xA1\xA1"}) {
        EXPECT_EQ(HxFile::ToFullPath("#DXF#", bad, false, false), "") << bad;
    }
    EXPECT_EQ(HxFile::ToFullPath("#dxf#", "a", false, false), "");
    KiroHostSetHome(L"C:\\\xE9");  // an e with an accent: not in 932
    EXPECT_EQ(HxFile::ToFullPath("#DXF#", "a", false, false), "");
}

TEST_F(Kirobc, FullPathIsCutAtACharacter) {
    const std::string whole = HxFile::ToFullPath("", HxEucEncoder::Sjis2Euc("表髙"), false, true);
    char out[1024];
    const std::size_t at = whole.size() - 1;
    EXPECT_EQ(HxFileToFullPath("", whole.c_str() + whole.size() - 5, false, true, out, at + 1), whole.size());
    EXPECT_EQ(out, whole.substr(0, whole.size() - 3));
}

TEST_F(Kirobc, ReadsFiles) {
    const std::wstring folder = Folder("#DXF#");
    const fs::path file = fs::path(folder) / L"図面 表①髙.dxf";
    std::ofstream(file, std::ios::binary) << "one\r\ntwo\x1Athree";
    const std::string path = InternalPath(file);
    char buffer[64];

    HxFileIO io;
    ASSERT_TRUE(io.Open(path, _O_RDONLY | _O_BINARY, 0666));
    EXPECT_EQ(io.Read(buffer, 4), 4);
    EXPECT_EQ(io.Read(buffer + 4, 60), 10);
    EXPECT_EQ(std::string(buffer, 14), "one\r\ntwo\x1Athree");
    EXPECT_EQ(io.Read(buffer, 64), 0);
    EXPECT_EQ(io.Read(nullptr, 4), -1);
    ASSERT_TRUE(io.Open(path, _O_RDONLY, 0666));  // text mode
    EXPECT_EQ(io.Read(buffer, 64), 7);
    EXPECT_EQ(std::string(buffer, 7), "one\ntwo");
    io.Close();

    for (const std::string& bad :
         {InternalPath(folder), path + "/", std::string("x.dxf"), std::string(), path + ":s", path + "*", "//?/" + path,
          "//./" + path, std::string("//./PhysicalDrive0"), std::string("C:x"), InternalPath(folder) + "/missing",
          std::string("C:/NUL"), InternalPath(folder) + "/CON", path.substr(0, path.size() - 6)}) {
        EXPECT_FALSE(io.Open(bad, _O_RDONLY | _O_BINARY, 0666)) << bad;
    }
    EXPECT_EQ(HxFileIOOpen(nullptr, _O_RDONLY, 0), nullptr);
    HxFileIOClose(nullptr);
    EXPECT_EQ(HxFileIORead(nullptr, buffer, 1), -1);
}

TEST_F(Kirobc, OpenFlags) {
    const fs::path file = fs::path(Folder("#DXF#")) / "a";
    const std::string path = InternalPath(file);
    HxFileIO io;
    EXPECT_FALSE(io.Open(path, _O_RDWR | _O_BINARY, 0666));
    ASSERT_TRUE(io.Open(path, _O_RDWR | _O_CREAT | _O_EXCL | _O_BINARY, 0666));
    EXPECT_FALSE(io.Open(path, _O_RDWR | _O_CREAT | _O_EXCL | _O_BINARY, 0666));
    std::ofstream(file) << "text";
    EXPECT_FALSE(io.Open(path, _O_RDONLY | _O_TRUNC, 0666));
    EXPECT_FALSE(io.Open(path, _O_WRONLY | _O_RDWR, 0666));
    EXPECT_EQ(fs::file_size(file), 4u);
    ASSERT_TRUE(io.Open(path, _O_WRONLY | _O_CREAT | _O_BINARY, 0666));
    char c;
    EXPECT_EQ(io.Read(&c, 1), -1);
    io.Close();
    EXPECT_EQ(fs::file_size(file), 4u);
    ASSERT_TRUE(io.Open(path, _O_RDWR | _O_TRUNC, 0666));
    io.Close();
    EXPECT_EQ(fs::file_size(file), 0u);
}

TEST_F(Kirobc, ReadsAFileThatAnotherProgramIsWriting) {
    const fs::path file = fs::path(Folder("#DXF#")) / "a";
    const auto open = [&](DWORD share) {
        return CreateFileW(file.c_str(), GENERIC_WRITE | DELETE, share, nullptr, OPEN_ALWAYS, 0, nullptr);
    };
    HxFileIO io;
    HANDLE writer = open(FILE_SHARE_READ);
    EXPECT_TRUE(io.Open(InternalPath(file), _O_RDONLY | _O_BINARY, 0666));
    io.Close();
    CloseHandle(writer);
    writer = open(0);
    EXPECT_FALSE(io.Open(InternalPath(file), _O_RDONLY | _O_BINARY, 0666));
    CloseHandle(writer);
}

TEST(KirobcText, ExportsKeepTheBufferContract) {
    const std::string euc = HxEucEncoder::Sjis2Euc("a表ｱ髙");
    EXPECT_EQ(euc, "a\xC9\xBD\x8E\xB1\x8F\xF4\xFB") << testing::PrintToString(euc);
    EXPECT_EQ(HxEucEncoder::Euc2Sjis(euc), "a表ｱ髙");
    EXPECT_EQ(HxEucEncoder::Sjis2Euc("a表ｱ髙", 4), "a\xC9\xBD");
    EXPECT_EQ(HxEucEncoder::Euc2Sjis(euc, 2), "a");
    char out[4] = "###";
    EXPECT_EQ(HxEucToSjis(euc.data(), euc.size(), nullptr, 0), 6u);
    EXPECT_EQ(HxEucToSjis(euc.data(), euc.size(), nullptr, 9), 6u);
    EXPECT_EQ(HxEucToSjis(euc.data(), euc.size(), out, 0), 6u);
    EXPECT_EQ(out[0], '#');
    EXPECT_EQ(HxEucToSjis(euc.data(), euc.size(), out, 1), 6u);
    EXPECT_EQ(out[0], '\0');
    EXPECT_EQ(HxEucToSjis(euc.data(), euc.size(), out, 3), 6u);
    EXPECT_STREQ(out, "a");
    EXPECT_EQ(HxEucToSjis(nullptr, 3, out, 4), 0u);
    EXPECT_STREQ(out, "");
}

}  // namespace
