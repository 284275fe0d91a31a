// The kept parameters as a program sees them: the exported functions on a real settings folder. Both directions share
// their code, so that all but the last test look at imports.
#include "entry/host/kirodxf.h"
#include "tests/dialogs/TestHost.h"

namespace {

namespace fs = std::filesystem;

DxfInParamBlock Filled(int byte) {
    DxfInParamBlock params;
    std::memset(&params, byte, sizeof params);
    return params;
}

class Kirodxf : public TestHost {
  protected:
    static void Set(int byte) {
        const DxfInParamBlock params = Filled(byte);
        setdxfinparam(&params);
    }
    // The byte that the kept parameters are filled with; -1 when there are none, and nothing is stored.
    static int Kept() {
        DxfInParamBlock params = Filled(0x77);
        const bool isRead = DxfInReadParam(&params) == 0;
        const int byte = *reinterpret_cast<const unsigned char*>(&params);
        const DxfInParamBlock expected = Filled(byte);
        EXPECT_EQ(std::memcmp(&params, &expected, sizeof params), 0);
        EXPECT_NE(isRead, byte == 0x77);
        return isRead ? byte : -1;
    }
    const fs::path settings = home / L"settings", file = settings / L"dxfin_params";
};

}  // namespace

// First in the program: later no parameters are not given any more.
TEST_F(Kirodxf, NothingIsKeptBeforeParametersAreGiven) {
    EXPECT_NE(DxfInWriteParam(), 0);
    setdxfinparam(nullptr);
    EXPECT_NE(DxfInWriteParam(), 0);
    EXPECT_FALSE(fs::exists(file));
    EXPECT_EQ(Kept(), -1);
}

TEST_F(Kirodxf, KeepsACopyOfTheParametersGivenLast) {
    Set(0x11);
    EXPECT_EQ(Kept(), -1);  // given is not kept
    setdxfinparam(nullptr);
    ASSERT_EQ(DxfInWriteParam(), 0);
    Set(0x22);
    const std::ifstream otherReader(file);
    EXPECT_NE(DxfInReadParam(nullptr), 0);
    EXPECT_EQ(Kept(), 0x11);
    KiroHostSetHome((home / L"表").c_str());
    EXPECT_EQ(Kept(), -1);
    ASSERT_EQ(DxfInWriteParam(), 0);
    EXPECT_EQ(Kept(), 0x22);
}

TEST_F(Kirodxf, ADamagedFileCountsAsNoneAndStays) {
    Set(0x11);
    ASSERT_EQ(DxfInWriteParam(), 0);
    const std::string whole = BytesOf(file);
    for (const std::string& damaged : {std::string(), whole + "x", std::string(whole.size(), 'x')}) {
        Write(L"settings\\dxfin_params", damaged);
        EXPECT_EQ(Kept(), -1) << damaged.size();
        EXPECT_EQ(BytesOf(file), damaged);
    }
    ASSERT_EQ(DxfInWriteParam(), 0);
    EXPECT_EQ(BytesOf(file), whole);
}

TEST_F(Kirodxf, WhatCannotBeWrittenIsReported) {
    Set(0x11);
    fs::create_directories(file / L"a folder where the file would be");
    EXPECT_NE(DxfInWriteParam(), 0);
    EXPECT_EQ(Kept(), -1);
    EXPECT_EQ(std::distance(fs::directory_iterator(settings), {}), 1) << "no new file is left behind";

    // What was kept before stays.
    fs::remove_all(file);
    ASSERT_EQ(DxfInWriteParam(), 0);
    Set(0x22);
    fs::create_directories(settings / L"dxfin_params.new");
    EXPECT_NE(DxfInWriteParam(), 0);
    EXPECT_EQ(Kept(), 0x11);
}

TEST_F(Kirodxf, ExportParametersAreKeptApart) {
    DxfOutParamBlock given, kept;
    std::memset(&given, 0x33, sizeof given);
    std::memset(&kept, 0x77, sizeof kept);
    EXPECT_NE(DxfOutWriteParam(), 0) << "none are given";
    setdxfotparam(&given);
    ASSERT_EQ(DxfOutWriteParam(), 0);
    Set(0x11);
    ASSERT_EQ(DxfInWriteParam(), 0);
    ASSERT_EQ(DxfOutReadParam(&kept), 0);
    EXPECT_EQ(std::memcmp(&given, &kept, sizeof given), 0);
}
