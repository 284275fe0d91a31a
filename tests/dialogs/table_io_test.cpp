// The conversion tables' files as the editors read and write them: the error list, the boxes, and that no table is
// lost.
#include <memory>

#include "dxfin_tables/KrDxfInTbl_IO.h"
#include "dxfout_tables/KrDxfOutTbl_IO.h"
#include "entry/host/ParamBlocks.h"
#include "tables/FileBeside.h"
#include "tables/FileReplace.h"
#include "tests/dialogs/TestHost.h"
#include "text/SlotText.h"

namespace fs = std::filesystem;
namespace drive = kiro::drive;

namespace {

// What is to be said in a box, and what lies under it.
struct Table {
    const wchar_t* file;
    const wchar_t* caption;
};
constexpr Table kImport[] = {{L"DXFKIRO_LAYER", L"レイヤ・色割当"},
                             {L"DXFKIRO_LINE", L"線種・線幅割当"},
                             {L"DXFKIRO_STYLE", L"文字スタイル割当"},
                             {L"DXFKIRO_ARROW", L"矢印割当"}};
constexpr Table kExport[] = {{L"KIRODXF_LAYER", L"レイヤ・色割当"},
                             {L"KIRODXF_LINE", L"線種・線幅割当"},
                             {L"KIRODXF_STYLE", L"文字スタイル割当"},
                             {L"KIRODXF_ARROW", L"矢印割当"}};

class TableIoTest : public TestHost {
  protected:
    TableIoTest() {
        fs::create_directories(home / L"DXF\\TABLE");
        StoreText(layer->fileName, "DXFKIRO_LAYER");
        StoreText(outLayer->fileName, "KIRODXF_LAYER");
        std::memset(&info, 0, sizeof info);
        info.output.exportParams = &params;
    }

    fs::path PathOf(const wchar_t* file) const { return home / L"DXF\\TABLE" / file; }
    std::wstring Full(const wchar_t* file) const { return PathOf(file).wstring(); }
    std::string ErrorList() const { return ReadWholeFile(home / L"DXF_Interface.lis").value_or("none"); }
    std::string Bytes(const wchar_t* file) const { return ReadWholeFile(PathOf(file)).value_or("none"); }

    void ReadImport(std::size_t table) {
        if (table == 0) io.ReadLayerTable(*layer);
        if (table == 1) io.ReadLineTable(*line);
        if (table == 2) io.ReadStyleTable(*style);
        if (table == 3) io.ReadArrowTable(*arrow);
    }
    bool WriteImport(std::size_t table) {
        if (table == 0) return io.WriteLayerTable(*layer);
        if (table == 1) return io.WriteLineTable(*line);
        if (table == 2) return io.WriteStyleTable(*style);
        return io.WriteArrowTable(*arrow);
    }
    void ReadExport(std::size_t table) {
        if (table == 0) outIo.ReadLayerTable(outLayer.get());
        if (table == 1) outIo.ReadLineTable(outLine.get());
        if (table == 2) outIo.ReadStyleTable(&info, outStyle.get());
        if (table == 3) outIo.ReadArrowTable(outArrow.get());
    }
    bool WriteExport(std::size_t table) {
        if (table == 0) return outIo.WriteLayerTable(outLayer.get());
        if (table == 1) return outIo.WriteLineTable(outLine.get());
        if (table == 2) return outIo.WriteStyleTable(outStyle.get());
        return outIo.WriteArrowTable(outArrow.get());
    }

    // The call shows this box and nothing else.
    template <class Call>
    void ExpectBox(const std::wstring& caption, const std::wstring& text, UINT icon, Call call) {
        drive::Drive(call, [&] {
            const drive::Box box = drive::ReadBox();
            EXPECT_EQ(caption, box.caption);
            EXPECT_EQ(text, box.text);
            EXPECT_EQ(icon, box.icon);
            EXPECT_EQ(std::vector<int>{IDOK}, box.buttons);
            EXPECT_FALSE(IsWindowEnabled(owner));
            drive::Answer(box, IDOK);
        });
    }
    template <class Call>
    void ExpectNoBox(Call call) {
        drive::Drive(call, [] { EXPECT_EQ(nullptr, drive::Settle()); });
    }
    template <class Read>
    void ExpectErrorBox(const Table& table, Read read, const wchar_t* end = L" を参照してください。\n") {
        const std::wstring path = Full(table.file);
        ExpectBox(table.caption, L"\nテーブルファイル\n" + path + L"\nにエラーがあります。\nDXF_Interface.lis" + end,
                  MB_ICONERROR, read);
    }
    // Writing asks whether a file may be replaced that another program has changed.
    template <class WriteTable>
    void ExpectQuestion(const Table& table, int answer, WriteTable write) {
        const std::string before = Bytes(table.file);
        const bool written = drive::Drive(write, [&] {
            const drive::Box box = drive::ReadBox();
            EXPECT_EQ(table.caption, box.caption);
            EXPECT_EQ(Full(table.file) + L"\n\nこのファイルは、開いた後に他で変更されています。\n上書きしますか。",
                      box.text);
            EXPECT_EQ(MB_ICONWARNING, box.icon);
            EXPECT_EQ((std::vector<int>{IDYES, IDNO}), box.buttons);
            EXPECT_EQ(IDNO, box.defaultButton);
            drive::Answer(box, answer);
        });
        EXPECT_EQ(answer == IDYES, written);
        EXPECT_EQ(answer == IDYES, Bytes(table.file) != before);
    }

    const KrUtilityPtr utility{KrCreateUtility()};
    KrDxfInTbl_IO io{*utility, owner};
    KrDxfOutTbl_IO outIo{owner};
    const std::unique_ptr<DxfInLayerTable> layer = std::make_unique<DxfInLayerTable>();
    const std::unique_ptr<DxfInLineTable> line = std::make_unique<DxfInLineTable>();
    const std::unique_ptr<DxfInStyleTable> style = std::make_unique<DxfInStyleTable>();
    const std::unique_ptr<DxfInArrowTable> arrow = std::make_unique<DxfInArrowTable>();
    const std::unique_ptr<DxfOutLayerTable> outLayer = std::make_unique<DxfOutLayerTable>();
    const std::unique_ptr<DxfOutLineTable> outLine = std::make_unique<DxfOutLineTable>();
    const std::unique_ptr<DxfOutStyleTable> outStyle = std::make_unique<DxfOutStyleTable>();
    const std::unique_ptr<DxfOutArrowTable> outArrow = std::make_unique<DxfOutArrowTable>();
    TARNAINFO info;
    DxfOutParamBlock params{};
};

// "無効なデータです" in the code page of the files, whatever the system's own is.
const std::string kBadLine = "    ???\r\n ***** 無効なデータです *****\r\n";

TEST_F(TableIoTest, OneBoxPointsToTheListOfAllErrors) {
    for (std::size_t i = 0; i < std::size(kImport); ++i) {
        Write(std::wstring(L"DXF\\TABLE\\") + kImport[i].file, "/ comment\r\n???\r\n???\r\n");
        ExpectErrorBox(kImport[i], [&] { ReadImport(i); });
        EXPECT_EQ(
            "\r\nFile Name : " + PathOf(kImport[i].file).string() + "\r\n\r\n    / comment\r\n" + kBadLine + kBadLine,
            ErrorList());
    }
    EXPECT_EQ(4, style->styleCount);
    for (std::size_t i = 0; i < std::size(kExport); ++i) {
        Write(std::wstring(L"DXF\\TABLE\\") + kExport[i].file, i == 1 ? "LINE-WIDTH 99=1\n" : "???\n");
        ExpectErrorBox(kExport[i], [&] { ReadExport(i); });
        EXPECT_NE(std::string::npos, ErrorList().find(PathOf(kExport[i].file).string()));
    }
}

TEST_F(TableIoTest, MissingFilesAreSilent) {
    layer->layerSwitch = 7;
    outArrow->arrowCount = 7;
    for (std::size_t i = 0; i < std::size(kImport); ++i) ExpectNoBox([&] { ReadImport(i); });
    params.outputVersion = 3;
    for (std::size_t i = 0; i < std::size(kExport); ++i) ExpectNoBox([&] { ReadExport(i); });
    EXPECT_EQ(0, layer->layerSwitch);
    EXPECT_EQ(0, layer->colorRgb[1][1]);
    EXPECT_EQ(255, layer->colorRgb[1][0]);
    EXPECT_EQ(4, line->lineTypeCount);
    EXPECT_EQ(4, arrow->arrowCount);
    EXPECT_EQ(257, outLayer->spareSlot);
    EXPECT_EQ(15, outLine->fontCount);
    EXPECT_EQ("monotxt", SlotText(outStyle->styles[0].fontFile));
    EXPECT_EQ(7, outArrow->arrowCount) << "without a file the table stays";
    EXPECT_EQ("\r\nFile Name : " + PathOf(L"KIRODXF_ARROW").string() + "\r\n\r\n", ErrorList());

    params.outputVersion = 0;
    ReadExport(2);
    EXPECT_EQ("txt", SlotText(outStyle->styles[0].fontFile));
    info.output.exportParams = nullptr;
    ReadExport(2);
    EXPECT_EQ("txt", SlotText(outStyle->styles[0].fontFile));
}

TEST_F(TableIoTest, LayerFilesOfAnyName) {
    Write(L"DXF\\TABLE\\表 1", "LAYER A=7\n");
    StoreText(layer->fileName, "表 1");
    ReadImport(0);
    EXPECT_EQ(1, layer->layerClassCount);
    const fs::path path = Write(L"別\\図面表", "LAYER A=7\nLAYER B=8\n");
    // As the file chooser gives it.
    StoreText(layer->fileName, home.string() + "\\別\\図面表");
    ReadImport(0);
    EXPECT_EQ(2, layer->layerClassCount);
    EXPECT_TRUE(WriteImport(0));
    EXPECT_NE(std::string::npos, ReadWholeFile(path).value_or("").find("\r\nLAYER B = 8\r\n"));
    layer->noFileRead = 1;
    ReadImport(0);
    EXPECT_EQ(0, layer->layerClassCount);
}

TEST_F(TableIoTest, WhatIsWrittenIsReadAgain) {
    for (std::size_t i = 0; i < std::size(kImport); ++i) {
        ReadImport(i);
        ExpectNoBox([&] { EXPECT_TRUE(WriteImport(i)); });
        const std::string bytes = Bytes(kImport[i].file);
        const std::string head = "/ File name : " + PathOf(kImport[i].file).string() + "\r\n/      Date : ";
        EXPECT_EQ(head, bytes.substr(0, head.size()));
        EXPECT_EQ("\r\n/\r\n", bytes.substr(head.size() + 19, 5)) << "a date has 19 characters";
        ExpectNoBox([&] { ReadImport(i); });
    }
    for (std::size_t i = 0; i < std::size(kExport); ++i) {
        ReadExport(i);
        ExpectNoBox([&] { EXPECT_TRUE(WriteExport(i)); });
        EXPECT_EQ("/ File name : ", Bytes(kExport[i].file).substr(0, 14));
        ExpectNoBox([&] { ReadExport(i); });
    }
}

TEST_F(TableIoTest, AFileThatCannotBeWrittenStays) {
    for (std::size_t i = 0; i < std::size(kImport); ++i) {
        const fs::path path = Write(std::wstring(L"DXF\\TABLE\\") + kImport[i].file, "/ old\r\n");
        ReadImport(i);
        SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY);
        ExpectBox(kImport[i].caption, path.wstring() + L"\n\nファイルを開けません。", MB_ICONWARNING,
                  [&] { EXPECT_FALSE(WriteImport(i)); });
        EXPECT_EQ("/ old\r\n", Bytes(kImport[i].file));
        SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
    }
    for (std::size_t i = 0; i < std::size(kExport); ++i) {
        ReadExport(i);
        fs::create_directories(PathOf(kExport[i].file) / L"in its place");
        ExpectBox(kExport[i].caption, L"No such a file or directory : " + Full(kExport[i].file), MB_ICONWARNING,
                  [&] { EXPECT_FALSE(WriteExport(i)); });
    }
}

// What an operator keeps beside a table is none of ours. What an earlier run left there is, and goes.
TEST_F(TableIoTest, NothingIsLeftBesideATable) {
    const std::wstring folder = L"DXF\\TABLE\\", own = L"~DXFKIRO_LAYER";
    const fs::path path = Write(folder + kImport[0].file, "/ old\r\n");
    ReadImport(0);
    for (const std::wstring& name : {own, std::wstring(L"~kiro-1.tmp"), std::wstring(L"~kiro-00000001.tmp")})
        Write(folder + name, "own");
    const unsigned long last = std::wcstoul(NameBeside(GetCurrentProcessId()).c_str() + 6, nullptr, 16);
    wchar_t next[32];  // is taken
    std::swprintf(next, 32, L"~kiro-%08lx.tmp", last + 1);
    fs::create_directory(PathOf(next));
    ExpectNoBox([&] { EXPECT_TRUE(WriteImport(0)); });
    const std::string written = Bytes(kImport[0].file);
    EXPECT_NE("/ old\r\n", written);
    // Another program has it open.
    const HANDLE reader = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    drive::Drive([&] { EXPECT_FALSE(WriteImport(0)); }, [] { drive::Answer(drive::ReadBox(), IDOK); });
    CloseHandle(reader);
    EXPECT_EQ(written, Bytes(kImport[0].file));
    EXPECT_EQ("own", Bytes(own.c_str()));
    EXPECT_EQ(4, std::distance(fs::directory_iterator(home / folder), {}));
}

TEST_F(TableIoTest, ReadsWithoutAnErrorList) {
    fs::create_directories(home / L"DXF_Interface.lis" / L"in its place");
    Write(L"DXF\\TABLE\\DXFKIRO_LAYER", "LAYER A=7\n???\nLAYER B\n");
    ExpectErrorBox(
        kImport[0], [&] { ReadImport(0); },
        L" に書き込めません。最初のエラーは次のとおりです。\n2 行目：無効なデータです\n"
        L"3 行目：書式が違います LAYER layer_name = class#\n");
    EXPECT_EQ(1, layer->layerClassCount);
}

TEST_F(TableIoTest, WhatAnotherProgramChangedIsReplacedOnlyWhenAskedFor) {
    const auto change = [this](const Table& table, const char* bytes) {
        Write(std::wstring(L"DXF\\TABLE\\") + table.file, bytes);
    };
    for (std::size_t i = 0; i < std::size(kImport); ++i) {
        change(kImport[i], "/ old\n");
        ReadImport(i);
        change(kImport[i], "/ new\n");
        ExpectQuestion(kImport[i], IDNO, [&] { return WriteImport(i); });
        ExpectQuestion(kImport[i], IDYES, [&] { return WriteImport(i); });
        ExpectNoBox([&] { EXPECT_TRUE(WriteImport(i)); });
        change(kImport[i], "/ newer\n");
        ReadImport(i);
        ExpectNoBox([&] { EXPECT_TRUE(WriteImport(i)); });
        fs::remove(PathOf(kImport[i].file));
        ExpectNoBox([&] { EXPECT_TRUE(WriteImport(i)); });
    }
    for (std::size_t i = 0; i < std::size(kExport); ++i) {
        ReadExport(i);  // there is no file
        change(kExport[i], "/ new\n");
        ExpectQuestion(kExport[i], IDNO, [&] { return WriteExport(i); });
    }
    // A new table in the place of one that the user has agreed to lose.
    layer->noFileRead = 1;
    change(kImport[0], "/ old\n");
    ReadImport(0);
    ExpectNoBox([&] { EXPECT_TRUE(WriteImport(0)); });
    change(kImport[0], "/ new\n");
    ExpectQuestion(kImport[0], IDNO, [&] { return WriteImport(0); });
}

TEST_F(TableIoTest, DigitsAlone) {
    ExpectNoBox([&] { EXPECT_TRUE(io.IsAllDigits("") && io.IsAllDigits("0123456789")); });
    ExpectBox(L"テーブル編集", L"数字以外の文字が入力されました: x", MB_ICONWARNING,
              [&] { EXPECT_FALSE(io.IsAllDigits("12x3y")); });
    ExpectBox(L"テーブル編集", L"数字以外の文字が入力されました: 表", MB_ICONWARNING,
              [&] { EXPECT_FALSE(io.IsAllDigits("1表")); });
}

}  // namespace
