// The batch of the import: its settings, the list of drawings with their names, and the run.

#include "dxfin/KrDxfInAll.h"
#include "dxfin/KrDxfInList.h"
#include "entry/host/FixedText.h"
#include "resources/dxfin/KrDxfIn.ids.h"
#include "resources/dxfin/KrDxfInAll.ids.h"
#include "resources/dxfin/KrDxfInList.ids.h"
#include "resources/dxfin/KrDxfInParam.ids.h"
#include "resources/grid.ids.h"
#include "tests/DrawingText.h"
#include "tests/dialogs/BatchHost.h"

using namespace kiro::drive;

namespace {

constexpr wchar_t kCaption[] = L"ＤＸＦ読込み　一括変換";
enum Column { kFile = 1, kSize, kVersion, kModel, kResult };

std::string ALine(const char* version = "AC1015") {
    return Drawing("", "0 LINE/8 0/10 0.0/20 0.0/11 1.0/21 1.0", "", version);
}

class ImportBatch : public BatchHost {
  protected:
    ImportBatch() {
        noted = "setdxfin";
        record.params = {};
        record.params.splitItemCount = 100;
        record.params.maxItemCount = 1000;
    }

    // The list alone.
    INT_PTR Open(const char* pattern, const User& user) {
        WriteFixedText(block.pattern, pattern);
        block.importParams = &record.params;
        KrDxfInList list(block);
        EXPECT_EQ(DrawingSearch::Start::kFound, list.Search());
        const INT_PTR result = Play(list, user);
        summary = list.Summary();
        return result;
    }
    // The user gets its grid when all versions are there.
    void List(const char* pattern, const std::function<void(HWND, const Grid&)>& user) {
        Open(pattern, [&](HWND dialog) {
            const Grid grid(dialog, kGrid);
            Until("the versions are there", [&] { return grid.Cell(grid.Rows() - 1, kVersion) != L"…"; });
            user(dialog, grid);
        });
    }
    static void Ended(HWND dialog) {
        Until("the run has ended", [&] { return IsEnabled(dialog, kMarkAllButton); });
    }
    std::filesystem::path Model(const std::wstring& name) const { return home / L"MODEL" / (name + L".mdl"); }
    std::vector<std::wstring> Models() const {
        std::vector<std::wstring> names;
        for (const auto& file : std::filesystem::directory_iterator(home / L"MODEL"))
            names.push_back(file.path().filename().native());
        std::ranges::sort(names);
        return names;
    }
    static std::vector<std::wstring> Cells(const Grid& grid, int column) {
        std::vector<std::wstring> cells;
        for (int row = 0; row < grid.Rows(); ++row) cells.push_back(grid.Cell(row, column));
        return cells;
    }

    DxfInListInfo block{};
    std::string summary;
};

using Texts = std::vector<std::wstring>;

}  // namespace

TEST_F(ImportBatch, GoesFromThePatternToTheModelsAndKeepsTheRecord) {
    Write(L"DXF\\図面.dxf", ALine());
    Write(L"DXF\\SUB\\内.dxf", ALine());
    WriteTable(L"表", "");
    WriteFixedText(record.info.input.layerTableFileName, HxEucEncoder::Sjis2Euc("表"));
    const std::string table = (home / L"DXF\\TABLE").generic_string() + "/" + HxEucEncoder::Sjis2Euc("表");
    ImportRecord before = record;
    Drive([&] { return DxfInputDlg(&record.info); },
          [&] {
              const HWND import = Settle();
              Click(import, kBatchButton);
              const HWND dialog = Settle();
              EXPECT_EQ(kCaption, Text(dialog));
              EXPECT_EQ(L"表", Text(dialog, kBatchTableEdit));
              Key(VK_RETURN);  // no button "OK" that could be pressed
              EXPECT_EQ(dialog, Settle());
              for (const int button : {IDCANCEL, IDOK}) {
                  Click(dialog, kBatchParametersButton);
                  const HWND parameters = Settle();
                  Click(parameters, kFromEucRadio);
                  Click(parameters, button);
                  EXPECT_EQ(button == IDOK ? 1u : 0u, calls.size());
              }
              const struct {
                  const wchar_t *pattern, *message;
              } kPatterns[] = {
                  {L"*.dwg", L"該当するファイルがありません。"},
                  {L"SUB", L"フォルダが指定されています。"},
                  {L"NONE\\*", L"ファイルを探せません。"},
                  {L"", L"ファイル名を入力してください。"},
                  {L"a|b", L"使えない文字"},
                  {L"\U0001F600.dxf", L"使用できない文字"},
              };
              for (const auto& [pattern, message] : kPatterns) {
                  Type(dialog, kPatternEdit, pattern);
                  ExpectRefusal(dialog, message, kPatternEdit, kCaption, kListButton);
              }
              Click(dialog, kBatchFloppyRadio);  // an empty folder of its own
              Type(dialog, kPatternEdit, L"図面.dxf");
              Click(dialog, kListButton);
              Answer(ReadBox(), IDOK);
              Click(dialog, kBatchDiskRadio);
              Click(dialog, kListButton);
              const HWND list = Settle();
              EXPECT_EQ(L"図面.dxf", Grid(list, kGrid).Cell(0, kFile));
              Click(list, kMarkAllButton);
              Click(list, IDOK);
              Ended(list);
              Click(list, IDCANCEL);
              EXPECT_EQ(0u, Guidance(dialog).find(L"1 件中 1 件を変換しました。"));
              Click(dialog, IDCANCEL);
              Click(import, IDCANCEL);
          });
    before.params.kanjiCode = 1;
    EXPECT_TRUE(before == record);
    EXPECT_EQ((std::vector<std::string>{"setdxfinparam 0", "setdxfinparam 0", "setdxfintblnam " + table}), calls);
    const std::string path = HxFile::ToFullPath("#MODEL#", HxEucEncoder::Sjis2Euc("図面.mdl"), false, false);
    EXPECT_EQ(0, Mdlread1(path.c_str()));
    EXPECT_EQ(1, HxPermItemDbGetItemCount(GetActiveModel()->GetPermItemDb(), 1));
}

TEST_F(ImportBatch, ProposesNamesAndChecksThoseThatAreMarked) {
    for (const wchar_t* name : {L"断面 A.dxf", L"断面 A.dwg", L"b.dxf"}) Write(std::wstring(L"DXF\\") + name, ALine());
    Write(L"DXF\\c.dxf", "memo");
    Write(L"DXF\\" + std::wstring(250, L'd') + L".dxf", ALine("AC1009"));  // its path is longer than 256 bytes
    Write(L"DXF\\e.dxf", "");
    Write(L"DXF\\~kiro-0000000a.tmp", "");  // left by a program that was killed
    std::filesystem::create_directories(home / L"DXF\\folder");
    List("*", [&](HWND dialog, const Grid& grid) {
        EXPECT_EQ((Texts{L"b", L"c", std::wstring(63, L'd'), L"e", L"断面_A", L"断面_A_2"}), Cells(grid, kModel));
        EXPECT_EQ((Texts{L"AC1015(2000)", L"", L"AC1009(GX-5)", L"", L"AC1015(2000)", L"AC1015(2000)"}),
                  Cells(grid, kVersion));
        EXPECT_EQ(L"0 KB", grid.Cell(3, kSize));
        Click(dialog, IDOK);
        Expect(kCaption, L"変換するファイルが選択されていません。", MB_ICONWARNING, IDOK);
        Click(dialog, kMarkAllButton);
        grid.Click(1, 0);  // not "c", whatever its name
        EXPECT_EQ(L"6 件のうち 5 件を選択しています。", Text(dialog, kDrawingCount));
        grid.Click(1, kModel);
        grid.Write(L"?");
        ExpectBadNames(dialog, grid, kModel, kCaption,
                       {{0, L"", L"モデル名が入力されていません。 1"},
                        {0, L"a b", L"モデル名に無効な文字が入力されています。 1 : a b"},
                        {4, L"B", L"モデル名が重複しています。 1 - 5"},
                        {5, L"CON", L"無効なモデル名です。 6 : CON"}});
        for (const int answer : {IDNO, IDYES}) {
            Click(dialog, kNamesFromFilesButton);
            const Box box = ReadBox();
            EXPECT_EQ(IDNO, box.defaultButton);
            Answer(box, answer);
            EXPECT_EQ(answer == IDYES ? L"c" : L"?", grid.Cell(1, kModel));
        }
        Click(dialog, kNamesFromFilesButton);  // nothing to be lost: no question
        EXPECT_EQ(dialog, Settle());
        EXPECT_TRUE(calls.empty());
        // A bad name is none when its mark goes.
        grid.Click(1, kModel);
        grid.Write(L"?");
        grid.Click(1, 0);
        Click(dialog, IDOK);
        Answer(ReadBox(), IDOK);
        grid.Click(1, 0);
        Click(dialog, IDOK);
        Click(Asked(dialog), IDCANCEL);  // "e" is empty
        Ended(dialog);
        EXPECT_EQ((Texts{L"変換しました", L"", L"変換しました"}),
                  Texts({grid.Cell(0, kResult), grid.Cell(1, kResult), grid.Cell(2, kResult)}));
    });
}

TEST_F(ImportBatch, GoesThroughTheMarkedDrawingsAndTellsWhyOnesFail) {
    const struct {
        const wchar_t* name;
        std::string bytes;
        const wchar_t* result;
    } kFiles[] = {{L"1.dxf", ALine(), L"変換しました"},
                  {L"2.dxf", "", L"DXFファイルではありません。"},
                  {L"3.dxf", ALine().substr(0, 90), L"ファイルが途中で終わっています。"},
                  {L"4.dxf", ALine(), L"ファイルが見つかりません。"},
                  {L"5.dxf", ALine(), L"ファイルは他のプログラムで使用されています。"},
                  {L"6.dxf", ALine(), L"同じ名前のモデルファイルがあります。"},
                  {L"7.dxf", ALine(), L"同じ名前のモデルファイルがあります。"},
                  {L"8.dxf", ALine(), L"書き込みが禁止されています。"},
                  {L"9.dxf", ALine(), L"変換しました"}};
    for (const auto& file : kFiles) Write(std::wstring(L"DXF\\") + file.name, file.bytes);
    std::filesystem::create_directories(Model(L"6x"));
    const auto isProtected = Write(L"MODEL\\8.mdl", "old");
    SetFileAttributesW(isProtected.c_str(), FILE_ATTRIBUTE_READONLY);
    Write(L"MODEL\\9.MDL", "old");
    KiroHostSetModified(true);
    List("*", [&](HWND dialog, const Grid& grid) {
        std::filesystem::remove(home / L"DXF\\4.dxf");
        const HANDLE locked =
            CreateFileW((home / L"DXF\\5.dxf").c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
        grid.Click(5, kModel);
        grid.Write(L"6x");
        Click(dialog, kMarkAllButton);
        Click(dialog, IDOK);
        Box box = ReadBox();
        EXPECT_EQ(L"同じ名前のモデルファイルが既に存在します。（2 件）\n8.mdl など\n\n上書きしますか。", box.text);
        EXPECT_EQ(IDNO, box.defaultButton);
        Answer(box, IDNO);
        EXPECT_EQ(L"同じ名前のモデルファイルがあります。 8 : 8", Guidance(dialog));
        EXPECT_EQ((GridPlace{7, kModel}), grid.Current());
        EXPECT_FALSE(std::filesystem::exists(Model(L"1")));
        Click(dialog, IDOK);
        Answer(ReadBox(), IDYES);
        // Stopped at the first failure.
        const HWND question = Asked(dialog);
        EXPECT_EQ(IDOK, FocusId());
        EXPECT_EQ(0u, Text(question, kGoOnText).find(L"2.dxf\nDXFファイルではありません。"));
        EXPECT_EQ(L"2/9 2.dxf", Guidance(dialog));
        Click(question, IDCANCEL);
        Ended(dialog);
        EXPECT_EQ((Texts{L"変換しました", L"DXFファイルではありません。", L""}),
                  Texts({grid.Cell(0, kResult), grid.Cell(1, kResult), grid.Cell(2, kResult)}));
        EXPECT_EQ(L"9 件のうち 8 件を選択しています。", Text(dialog, kDrawingCount));
        EXPECT_TRUE(GetActiveModel()->IsModified());  // the user's own model is back
        EXPECT_EQ((GridPlace{1, kResult}), grid.Current());
        // The others, asked once for all.
        Click(dialog, IDOK);
        Answer(ReadBox(), IDYES);
        Click(Asked(dialog), kGoOnForAllCheck);
        Write(L"MODEL\\7.mdl", "new");
        Click(Settle(), IDOK);
        Ended(dialog);
        CloseHandle(locked);
        for (int row = 0; row < 9; ++row)
            EXPECT_EQ(0u, grid.Cell(row, kResult).find(kFiles[row].result))
                << row << testing::PrintToString(grid.Cell(row, kResult));
        EXPECT_EQ(L"9 件のうち 7 件を選択しています。", Text(dialog, kDrawingCount));
    });
    EXPECT_EQ(0u, summary.find("8 件中 1 件を変換しました。（失敗 7 件）"));
    const std::string list = BytesOf(home / L"MODEL" / L"DXF_Batch.lis");
    EXPECT_NE(std::string::npos, list.find("2 : 2.dxf -> 2.mdl : DXFファイルではありません。\r\n"));
    EXPECT_NE(std::string::npos, list.find("9 : 9.dxf -> 9.mdl : 変換しました\r\n"));
    EXPECT_EQ("setdxfintblnam ", calls.back());
    SetFileAttributesW(isProtected.c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(4, std::ranges::count_if(Models(), [](const std::wstring& name) { return name.size() == 5; }));
    for (const int model : {1, 7, 8, 9})
        EXPECT_EQ(model == 7 || model == 8, std::filesystem::file_size(Model(std::to_wstring(model))) == 3) << model;
}

TEST_F(ImportBatch, EndsBetweenTwoDrawingsWhereverItIsStopped) {
    for (int i = 0; i < 300; ++i) Write(L"DXF\\" + std::to_wstring(i) + L".dxf", ALine());
    Write(L"DXF\\000.dxf", "memo");  // the first of them
    KiroHostSetModified(true);
    const struct {
        const char* what;
        std::function<void(HWND)> deed;
        bool starts;
    } kWays[] = {
        {"cancel", [](HWND dialog) { Click(dialog, IDCANCEL); }, true},
        {"quit", [](HWND) { PostThreadMessageW(UiThread(), WM_QUIT, 0, 0); }, true},
        {"owner", [this](HWND) { PostMessageW(owner, WM_CLOSE, 0, 0); }, true},
        {"cancel the list", [](HWND dialog) { Click(dialog, IDCANCEL); }, false},
        {"quit the list", [](HWND) { PostThreadMessageW(UiThread(), WM_QUIT, 0, 0); }, false},
    };
    for (const auto& way : kWays) {
        SCOPED_TRACE(way.what);
        if (!IsWindow(owner)) owner = nullptr;
        EXPECT_EQ(IDCANCEL, Open("*", [&](HWND dialog) {
                      if (!way.starts) return way.deed(dialog);
                      const Grid grid(dialog, kGrid);
                      Until("the rows are there", [&] { return grid.Rows() == 301; });
                      grid.Click(0, kFile);
                      for (int i = 0; i < 2; ++i) KeyHolding({VK_CONTROL, VK_SHIFT}, 'L');  // it is seen last
                      KeyHolding(VK_CONTROL, VK_HOME);
                      Click(dialog, kMarkAllButton);
                      Click(dialog, IDOK);
                      if (IsBox(Settle())) Answer(ReadBox(), IDYES);
                      const HWND question = Asked(dialog);
                      EXPECT_EQ(300, Send(grid.List(), LVM_GETTOPINDEX) + Send(grid.List(), LVM_GETCOUNTPERPAGE) - 1);
                      Click(question, IDOK);
                      way.deed(dialog);
                      if (!IsWindow(dialog) || !Settle()) return;
                      Ended(dialog);
                      EXPECT_NE(std::wstring::npos, Guidance(dialog).find(L"（失敗 1 件）（中止、残り "));
                      Click(dialog, IDCANCEL);
                  }));
        EXPECT_TRUE(GetActiveModel()->IsModified());
        for (const std::wstring& name : Models()) EXPECT_TRUE(name.ends_with(L".mdl") || name.ends_with(L".lis"));
    }
}

TEST_F(ImportBatch, ListsDwgFilesToo) {
    Write(L"DWG\\1.dwg", "AC1027" + std::string(100, ' '));
    block.inputIsDwg = 1;
    List("*", [&](HWND dialog, const Grid& grid) {
        EXPECT_EQ(L"ＤＷＧ読込み一括変換", Text(dialog));
        EXPECT_EQ(L"AC1027(2013)", grid.Cell(0, kVersion));
        Click(dialog, kMarkAllButton);
        Click(dialog, IDOK);
        Ended(dialog);  // the host reads none
        EXPECT_EQ(L"1 件のうち 1 件を選択しています。", Text(dialog, kDrawingCount));
        EXPECT_NE(L"", grid.Cell(0, kResult));
    });
}
