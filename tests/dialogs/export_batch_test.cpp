// The batch of the export: the lists of pages and pictures, their names, and the run with what the host receives.
#include "dxfout/KrDxfOutAll.h"
#include "dxfout/KrDxfOutFiles.h"
#include "entry/host/FixedText.h"
#include "entry/host/ParamBlocks.h"
#include "entry/host/kirodxf.h"
#include "resources/dxfout/KrDxfOutAll.ids.h"
#include "resources/dxfout/KrDxfOutFiles.ids.h"
#include "resources/grid.ids.h"
#include "tests/dialogs/BatchHost.h"

using namespace kiro::drive;

namespace {

constexpr wchar_t kCaption[] = L"ＤＸＦ変換　一括変換";
constexpr int kExists = 3, kName = 4;

class Batch : public BatchHost {
  protected:
    Batch() {
        UseModel(
            u8R"({"pictures": [{"number": 2, "itemCount": 1, "scale": 0.5},
                                    {"number": 7, "itemCount": 3}, {"number": 9, "itemCount": 0}, {"number": 256, "itemCount": 1}],
                       "layouts": [{"number": 1, "windows": [2], "frame": {"valid": true, "kind": 0, "width": 420.7, "height": 297}},
                                   {"number": 2, "windows": [2], "frame": {"valid": false, "kind": 0, "width": 1, "height": 1}},
                                   {"number": 3, "frame": {"valid": true, "kind": 0, "width": 1, "height": 1}}]})");
        std::memset(&info, 0, sizeof info);
        info.output.exportParams = &params;
        WriteFixedText(info.output.layerTableFileName, "C:\\\x95\x5C");
    }

    template <class Dialog>
    INT_PTR Run(const User& user) {
        Dialog dialog;
        dialog.SetInfo(&info);
        const INT_PTR result = Play(dialog, user);
        if constexpr (requires { dialog.Summary(); }) summary = dialog.Summary();
        return result;
    }
    // What the writer was asked for, in the home folder.
    std::string Written(int picture) const {
        return "DxfOutFloppy 0 " + (home / L"DXF").generic_string() + "/TEMP00" + std::to_string(picture) + " 0 " +
               std::to_string(picture);
    }

    TARNAINFO info;
    DxfOutParamBlock params{};
    std::string summary;
};

}  // namespace

TEST_F(Batch, OffersWhatThereIsAndKeepsTheMedium) {
    Run<KrDxfOutAll>([&](HWND dialog) {
        Click(dialog, kOutAllFloppyRadio);
        EXPECT_EQ(1, info.output.mediaKind);
        Write(L"FLOPPY_WIN\\TEMP007", "");
        Click(dialog, kOutByPictureButton);
        const Grid pictures(Settle(), kGrid);
        EXPECT_EQ(3, pictures.Rows());
        EXPECT_EQ(L"○", pictures.Cell(1, kExists));  // on the floppy
        EXPECT_EQ(L"", pictures.Cell(0, kExists));
        Click(Settle(), IDCANCEL);
        Click(dialog, kOutByPageButton);
        EXPECT_EQ(1, Grid(Settle(), kGrid).Rows());
        EXPECT_EQ(L"420x297", Grid(Settle(), kGrid).Cell(0, 2));
        Click(Settle(), IDCANCEL);
        KiroHostLoadModel(nullptr, nullptr, 0);
        for (const auto& [button, text] : {std::pair(kOutByPictureButton, L"ピクチャにデータがありません。"),
                                           std::pair(kOutByPageButton, L"図面配置情報がありません。")}) {
            Click(dialog, button);
            Expect(kCaption, text, MB_ICONWARNING, IDOK);
        }
        Key(VK_RETURN);  // no button of "次へ" that could be pressed
        EXPECT_EQ(dialog, Settle());
    });
}

TEST_F(Batch, RefusesNamesThatAreNoneOrTheSame) {
    const INT_PTR result = Run<KrDxfOutPicture>([&](HWND dialog) {
        const Grid grid(dialog, kGrid);
        ExpectBadNames(dialog, grid, kName, kCaption,
                       {{1, L"", L"ファイル名が入力されていません。 2"},
                        {1, L"temp256", L"ファイル名が重複しています。 2 - 3"},
                        {0, L"A\\B", L"無効なファイル名です。 1 : A\\B"},
                        {2, L"NUL", L"無効なファイル名です。 3 : NUL"}});
        Change(grid, 1, kName, grid.Cell(0, kName));
        Click(dialog, IDOK);
        Answer(ReadBox(), IDOK);
        EXPECT_TRUE(IsMarked(grid, {0, kName}) && IsMarked(grid, {1, kName}));
        Type(dialog, kCommonNameEdit, L"表");
        Write(L"DXF\\表007", "");
        Click(dialog, kCommonNameButton);
        EXPECT_EQ(L"表256", grid.Cell(2, kName));
        EXPECT_EQ(L"○", grid.Cell(1, kExists));
        EXPECT_EQ(kGrid, FocusId());
        Click(dialog, IDOK);
        Expect(kCaption, L"出力ピクチャが選択されていません。", MB_ICONWARNING, IDOK);
    });
    EXPECT_EQ(IDCANCEL, result);
    EXPECT_EQ("", summary);
    EXPECT_EQ((std::vector<std::string>{"setdxfottblnam C:\\\x95\x5C", "setdxfotparam 0"}), calls);
}

// The demonstration's drawing in three pictures, written for real: but for the first one, which is not to be replaced.
TEST_F(Batch, GoesThroughTheMarkedRowsAndAsksAfterAFailure) {
    const auto drawing = Write(L"demo.dxf", BytesOf(KIRO_DEMO_DRAWING));
    KiroHostLoadModel(nullptr, nullptr, 0);
    record.params = {};
    setdxfinparam(&record.params);
    TARNAINFO target{};
    target.input.scale = 1.0;
    for (const int picture : {3, 5, 8}) {
        target.input.pictureNumber = picture;
        target.input.addMode = 1;
        ASSERT_EQ(0, dxfin(drawing.generic_string().c_str(), &target));
    }
    params.outputVersion = 7;
    const struct {
        int answer;  // 0: stopped while the first one is written, which succeeds
        std::vector<int> tried;
        const char* summary;
    } kWays[] = {{IDYES, {3, 5, 8}, "3 件中 2 件を出力しました。（失敗 1 件）"},
                 {IDNO, {3}, "3 件中 0 件を出力しました。（失敗 1 件）"},
                 {0, {3}, "3 件中 1 件を出力しました。"}};
    for (const auto& way : kWays) {
        SCOPED_TRACE(way.answer);
        calls.clear();
        std::filesystem::remove(home / L"DXF\\TEMP008");
        const auto first = Write(L"DXF\\TEMP003", "old");
        if (way.answer) SetFileAttributesW(first.c_str(), FILE_ATTRIBUTE_READONLY);
        EXPECT_EQ(IDOK, Run<KrDxfOutPicture>([&](HWND dialog) {
                      if (!way.answer) onExport = [dialog] { PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0); };
                      const Grid grid(dialog, kGrid);
                      grid.Click(0, 1);
                      for (const int row : {1, 2}) {
                          grid.Click(row, kName);
                          grid.Keys(L" ");
                      }
                      Click(dialog, IDOK);
                      if (way.answer) {
                          Asked(dialog);
                          const Box box = ReadBox();
                          EXPECT_EQ(L"書き込みが禁止されています。\n　　処理を続行しますか？。", box.text);
                          EXPECT_EQ(L"Picture 3 Output", Guidance(dialog));
                          Answer(box, way.answer);
                      }
                      Until("the end of the run", [&] { return !IsWindow(dialog); });
                  }));
        SetFileAttributesW(first.c_str(), FILE_ATTRIBUTE_NORMAL);
        std::vector<std::string> expected{"setdxfottblnam C:\\\x95\x5C", "setdxfotparam 0"};
        for (const int picture : way.tried) expected.push_back(Written(picture));
        EXPECT_EQ(expected, calls);
        EXPECT_EQ(way.summary, summary);
        EXPECT_EQ(way.answer != 0, std::filesystem::file_size(first) == 3);
        EXPECT_EQ(way.tried.size() == 3, std::filesystem::exists(home / L"DXF\\TEMP008"));
    }
}

TEST_F(Batch, ChecksTheModelUnlessSubmodelsAreExpanded) {
    UseModel(
        u8R"({"checkBeforeExport": true, "layouts": [{"number": 1, "windows": [1], "frame": {"valid": true, "kind": 0,
                   "width": 1, "height": 1}}], "pictures": [{"number": 1, "itemCount": 5, "faults": [{"item": 1, "text": "x"}]}]})");
    Run<KrDxfOutPage>([&](HWND dialog) {
        Grid(dialog, kGrid).Click(0, 1);
        Click(dialog, IDOK);
        Expect(kCaption, L"モデル内のアイテムにエラーがあります。\nDXF_Interface.lis を参照してください。",
               MB_ICONERROR, IDOK);
        EXPECT_EQ(dialog, Settle());
        params.submodelExpand = 1;
        Click(dialog, IDOK);
        Asked(dialog);
        Answer(ReadBox(), IDNO);
    });
    ASSERT_FALSE(calls.empty());
    EXPECT_EQ("DxfOutFloppy 0 " + (home / L"DXF").generic_string() + "/TEMP001 1 0", calls.back());
}
