// The conversion tables' files as the editors read and write them: the error list, the boxes, and that no table is
// lost.

#include "dxfin_tables/KrDxfInTbl_IO.h"
#include "dxfout_tables/KrDxfOutTbl_IO.h"
#include "tables/FileBeside.h"
#include "tables/FileReplace.h"
#include "tests/dialogs/CommandHost.h"
#include "text/SlotText.h"

namespace fs = std::filesystem;
namespace drive = kiro::drive;

namespace {

// What is to be said in a box, what lies under it, and how it is read and written.
struct Table {
    const wchar_t* file;
    const wchar_t* caption;
    std::function<void()> read;
    std::function<bool()> write;
};

class TableIoTest : public CommandHost {
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

    void Change(const Table& table, const char* bytes) const { Write(Full(table.file), bytes); }

    // The call shows this box and nothing else.
    template <class Call>
    void ExpectBox(const std::wstring& caption, const std::wstring& text, UINT icon, Call call) {
        drive::Drive(call, [&] {
            drive::Settle();
            EXPECT_FALSE(IsWindowEnabled(owner));
            Expect(caption, text, icon, IDOK);
        });
    }
    static void ExpectNoBox(const std::function<void()>& call) {
        drive::Drive(call, [] { EXPECT_EQ(nullptr, drive::Settle()); });
    }
    void ExpectErrorBox(const Table& table, const wchar_t* end = L" を参照してください。\n") {
        const std::wstring path = Full(table.file);
        ExpectBox(table.caption, L"\nテーブルファイル\n" + path + L"\nにエラーがあります。\nDXF_Interface.lis" + end,
                  MB_ICONERROR, table.read);
    }
    static void ExpectWritten(const Table& table) {
        ExpectNoBox([&] { EXPECT_TRUE(table.write()); });
    }
    // Writing asks whether a file may be replaced that another program has changed.
    void ExpectQuestion(const Table& table, int answer) {
        const std::string before = Bytes(table.file);
        const bool written = drive::Drive(table.write, [&] {
            EXPECT_EQ(IDNO, drive::ReadBox().defaultButton);
            Expect(table.caption,
                   Full(table.file) + L"\n\nこのファイルは、開いた後に他で変更されています。\n上書きしますか。",
                   MB_ICONWARNING, answer);
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
    const Table tables[8] = {
        {L"DXFKIRO_LAYER", L"レイヤ・色割当", [&] { io.ReadLayerTable(*layer); },
         [&] { return io.WriteLayerTable(*layer); }},
        {L"DXFKIRO_LINE", L"線種・線幅割当", [&] { io.ReadLineTable(*line); },
         [&] { return io.WriteLineTable(*line); }},
        {L"DXFKIRO_STYLE", L"文字スタイル割当", [&] { io.ReadStyleTable(*style); },
         [&] { return io.WriteStyleTable(*style); }},
        {L"DXFKIRO_ARROW", L"矢印割当", [&] { io.ReadArrowTable(*arrow); }, [&] { return io.WriteArrowTable(*arrow); }},
        {L"KIRODXF_LAYER", L"レイヤ・色割当", [&] { outIo.ReadLayerTable(outLayer.get()); },
         [&] { return outIo.WriteLayerTable(outLayer.get()); }},
        {L"KIRODXF_LINE", L"線種・線幅割当", [&] { outIo.ReadLineTable(outLine.get()); },
         [&] { return outIo.WriteLineTable(outLine.get()); }},
        {L"KIRODXF_STYLE", L"文字スタイル割当", [&] { outIo.ReadStyleTable(&info, outStyle.get()); },
         [&] { return outIo.WriteStyleTable(outStyle.get()); }},
        {L"KIRODXF_ARROW", L"矢印割当", [&] { outIo.ReadArrowTable(outArrow.get()); },
         [&] { return outIo.WriteArrowTable(outArrow.get()); }},
    };
    const Table& layers = tables[0];
};

// "無効なデータです" in the code page of the files, whatever the system's own is.
const std::string kBadLine = "    ???\r\n ***** 無効なデータです *****\r\n";

TEST_F(TableIoTest, OneBoxPointsToTheListOfAllErrors) {
    for (const Table& table : tables) {
        Change(table, "/ comment\r\n???\r\nLINE-WIDTH 99=1\r\n");
        ExpectErrorBox(table);
        const std::string head = "\r\nFile Name : " + PathOf(table.file).string() + "\r\n\r\n    / comment\r\n";
        EXPECT_EQ(head, ErrorList().substr(0, head.size()));
    }
    Change(layers, "???\r\n???\r\n");
    ExpectErrorBox(layers);
    EXPECT_TRUE(ErrorList().ends_with("\r\n\r\n" + kBadLine + kBadLine)) << ErrorList();
    EXPECT_EQ(4, style->styleCount);
}

TEST_F(TableIoTest, MissingFilesAreSilent) {
    layer->layerSwitch = 7;
    outArrow->arrowCount = 7;
    params.outputVersion = 3;
    for (const Table& table : tables) ExpectNoBox(table.read);
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
    for (DxfOutParamBlock* given : {&params, static_cast<DxfOutParamBlock*>(nullptr)}) {
        info.output.exportParams = given;
        StoreText(outStyle->styles[0].fontFile, "");
        outIo.ReadStyleTable(&info, outStyle.get());
        EXPECT_EQ("txt", SlotText(outStyle->styles[0].fontFile));
    }
}

TEST_F(TableIoTest, LayerFilesOfAnyName) {
    Write(L"DXF\\TABLE\\表 1", "LAYER A=7\n");
    StoreText(layer->fileName, "表 1");
    layers.read();
    EXPECT_EQ(1, layer->layerClassCount);
    const fs::path path = Write(L"別\\図面表", "LAYER A=7\nLAYER B=8\n");
    // As the file chooser gives it.
    StoreText(layer->fileName, home.string() + "\\別\\図面表");
    layers.read();
    EXPECT_EQ(2, layer->layerClassCount);
    EXPECT_TRUE(layers.write());
    EXPECT_NE(std::string::npos, ReadWholeFile(path).value_or("").find("\r\nLAYER B = 8\r\n"));
    layer->noFileRead = 1;
    layers.read();
    EXPECT_EQ(0, layer->layerClassCount);
}

TEST_F(TableIoTest, WhatIsWrittenIsReadAgain) {
    for (const Table& table : tables) {
        table.read();
        ExpectWritten(table);
        const std::string bytes = Bytes(table.file);
        const std::string head = "/ File name : " + PathOf(table.file).string() + "\r\n/      Date : ";
        EXPECT_EQ(head, bytes.substr(0, head.size()));
        EXPECT_EQ("\r\n/\r\n", bytes.substr(head.size() + 19, 5)) << "a date has 19 characters";
        ExpectNoBox(table.read);
    }
}

TEST_F(TableIoTest, AFileThatCannotBeWrittenStays) {
    for (const Table& table : tables) {
        const std::wstring path = Full(table.file);
        Change(table, "/ old\r\n");
        table.read();
        SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY);
        const bool isExport = &table >= tables + 4;
        ExpectBox(table.caption,
                  isExport ? L"No such a file or directory : " + path : path + L"\n\nファイルを開けません。",
                  MB_ICONWARNING, [&] { EXPECT_FALSE(table.write()); });
        EXPECT_EQ("/ old\r\n", Bytes(table.file));
        SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
    }
}

// What an operator keeps beside a table is none of ours. What an earlier run left there is, and goes.
TEST_F(TableIoTest, NothingIsLeftBesideATable) {
    const std::wstring folder = L"DXF\\TABLE\\", own = L"~DXFKIRO_LAYER";
    const fs::path path = Write(folder + layers.file, "/ old\r\n");
    layers.read();
    for (const std::wstring& name : {own, std::wstring(L"~kiro-1.tmp"), std::wstring(L"~kiro-00000001.tmp")})
        Write(folder + name, "own");
    const unsigned long last = std::wcstoul(NameBeside(GetCurrentProcessId()).c_str() + 6, nullptr, 16);
    wchar_t next[32];  // is taken
    std::swprintf(next, 32, L"~kiro-%08lx.tmp", last + 1);
    fs::create_directory(PathOf(next));
    ExpectWritten(layers);
    const std::string written = Bytes(layers.file);
    EXPECT_NE("/ old\r\n", written);
    // Another program has it open.
    const HANDLE reader = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    drive::Drive([&] { EXPECT_FALSE(layers.write()); }, [] { drive::Answer(drive::ReadBox(), IDOK); });
    CloseHandle(reader);
    EXPECT_EQ(written, Bytes(layers.file));
    EXPECT_EQ("own", Bytes(own.c_str()));
    EXPECT_EQ(4, std::distance(fs::directory_iterator(home / folder), {}));
}

TEST_F(TableIoTest, ReadsWithoutAnErrorList) {
    fs::create_directories(home / L"DXF_Interface.lis" / L"in its place");
    Change(layers, "LAYER A=7\n???\nLAYER B\n");
    ExpectErrorBox(layers,
                   L" に書き込めません。最初のエラーは次のとおりです。\n2 行目：無効なデータです\n"
                   L"3 行目：書式が違います LAYER layer_name = class#\n");
    EXPECT_EQ(1, layer->layerClassCount);
}

TEST_F(TableIoTest, WhatAnotherProgramChangedIsReplacedOnlyWhenAskedFor) {
    for (const Table& table : tables) {
        table.read();  // there is no file
        Change(table, "/ new\n");
        ExpectQuestion(table, IDNO);
        ExpectQuestion(table, IDYES);
        ExpectWritten(table);
        Change(table, "/ newer\n");
        ExpectQuestion(table, IDNO);
        table.read();
        ExpectWritten(table);
        fs::remove(PathOf(table.file));
        ExpectWritten(table);
    }
    // A new table in the place of one that the user has agreed to lose.
    layer->noFileRead = 1;
    Change(layers, "/ old\n");
    layers.read();
    ExpectWritten(layers);
    Change(layers, "/ new\n");
    ExpectQuestion(layers, IDNO);
}

TEST_F(TableIoTest, DigitsAlone) {
    ExpectNoBox([&] { EXPECT_TRUE(io.IsAllDigits("") && io.IsAllDigits("0123456789")); });
    ExpectBox(L"テーブル編集", L"数字以外の文字が入力されました: x", MB_ICONWARNING,
              [&] { EXPECT_FALSE(io.IsAllDigits("12x3y")); });
    ExpectBox(L"テーブル編集", L"数字以外の文字が入力されました: 表", MB_ICONWARNING,
              [&] { EXPECT_FALSE(io.IsAllDigits("1表")); });
}

}  // namespace
