// The kept import parameters as a program sees them: the exported functions on a real settings folder.
#include <gtest/gtest.h>
#include <windows.h>

#include <cstring>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "entry/host/kirodxf.h"
#include "hostlayer/include/KiroHost.h"

namespace {

namespace fs = std::filesystem;

DxfInParamBlock Filled(int byte) {
    DxfInParamBlock params;
    std::memset(&params, byte, sizeof params);
    return params;
}

bool Same(const DxfInParamBlock& left, const DxfInParamBlock& right) {
    return std::memcmp(&left, &right, sizeof left) == 0;
}

class Kirodxf : public testing::Test {
  protected:
    void SetUp() override {
        fs::remove_all(home_);  // of a run that was ended from outside
        KiroHostSetHome(home_.c_str());
    }
    void TearDown() override {
        KiroHostSetHome(nullptr);
        fs::remove_all(home_);
    }

    fs::path Settings() const { return home_ / L"settings"; }
    fs::path File() const { return Settings() / L"dxfin_params"; }
    std::string Bytes() const {
        std::ifstream in(File(), std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    static void Write(const fs::path& path, const std::string& bytes) {
        fs::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << bytes;
    }
    static bool NoneToRead() {
        DxfInParamBlock params = Filled(0x77);
        return DxfInReadParam(&params) != 0 && Same(params, Filled(0x77));
    }
    // Neither a new file left behind nor a lock on the kept one.
    void ExpectNothingElse() const {
        EXPECT_EQ(std::distance(fs::directory_iterator(Settings()), fs::directory_iterator()), 1);
        std::error_code error;
        fs::rename(File(), File(), error);
        EXPECT_FALSE(error);
    }

    const fs::path home_ = fs::temp_directory_path() / (L"kirodxf_" + std::to_wstring(GetCurrentProcessId()));
};

// First in the program: later no parameters are not given any more.
TEST_F(Kirodxf, NothingIsKeptBeforeParametersAreGiven) {
    EXPECT_NE(DxfInWriteParam(), 0);
    setdxfinparam(nullptr);
    EXPECT_NE(DxfInWriteParam(), 0);
    EXPECT_FALSE(fs::exists(File()));
    EXPECT_TRUE(NoneToRead());
}

TEST_F(Kirodxf, KeepsACopyOfTheParametersGivenLast) {
    DxfInParamBlock params = Filled(0x11);
    setdxfinparam(&params);
    EXPECT_TRUE(NoneToRead());  // given is not kept
    params = Filled(0x22);
    setdxfinparam(nullptr);
    ASSERT_EQ(DxfInWriteParam(), 0);
    ASSERT_EQ(DxfInReadParam(&params), 0);
    EXPECT_TRUE(Same(params, Filled(0x11)));

    params = Filled(0x33);
    setdxfinparam(&params);
    ASSERT_EQ(DxfInReadParam(&params), 0);
    EXPECT_TRUE(Same(params, Filled(0x11)));
    ASSERT_EQ(DxfInWriteParam(), 0);
    ASSERT_EQ(DxfInReadParam(&params), 0);
    EXPECT_TRUE(Same(params, Filled(0x33)));
    ExpectNothingElse();

    EXPECT_NE(DxfInReadParam(nullptr), 0);
    const std::ifstream otherReader(File());
    EXPECT_EQ(DxfInReadParam(&params), 0);

    // They are found by their folder alone.
    KiroHostSetHome((home_ / L"表").c_str());
    EXPECT_TRUE(NoneToRead());
    KiroHostSetHome(home_.c_str());
    EXPECT_EQ(DxfInReadParam(&params), 0);
}

TEST_F(Kirodxf, ADamagedFileCountsAsNoneAndStays) {
    const DxfInParamBlock params = Filled(0x11);
    setdxfinparam(&params);
    ASSERT_EQ(DxfInWriteParam(), 0);
    const std::string whole = Bytes();
    for (const std::string& damaged : {std::string(), whole.substr(1), whole + "x", std::string(whole.size(), 'x')}) {
        Write(File(), damaged);
        EXPECT_TRUE(NoneToRead()) << damaged.size();
        EXPECT_EQ(Bytes(), damaged);
    }
    ASSERT_EQ(DxfInWriteParam(), 0);
    EXPECT_EQ(Bytes(), whole);
}

TEST_F(Kirodxf, WhatCannotBeWrittenIsReported) {
    DxfInParamBlock params = Filled(0x11);
    setdxfinparam(&params);
    Write(Settings(), "a file where the folder would be");
    EXPECT_NE(DxfInWriteParam(), 0);
    EXPECT_TRUE(NoneToRead());

    fs::remove(Settings());
    fs::create_directories(File() / L"a folder where the file would be");
    EXPECT_NE(DxfInWriteParam(), 0);
    EXPECT_TRUE(NoneToRead());
    ExpectNothingElse();

    // What was kept before stays.
    fs::remove_all(File());
    ASSERT_EQ(DxfInWriteParam(), 0);
    params = Filled(0x22);
    setdxfinparam(&params);
    fs::create_directories(Settings() / L"dxfin_params.new");
    EXPECT_NE(DxfInWriteParam(), 0);
    ASSERT_EQ(DxfInReadParam(&params), 0);
    EXPECT_TRUE(Same(params, Filled(0x11)));
}

}  // namespace
