// The batch of the export: the lists of pages and pictures, their names, and the run with what the host receives.
#include "driver/GridDriver.h"
#include "dxfout/KrDxfOutAll.h"
#include "dxfout/KrDxfOutFiles.h"
#include "entry/host/FixedText.h"
#include "entry/host/ParamBlocks.h"
#include "entry/host/kirodxf.h"
#include "resources/dxfout/KrDxfOutAll.ids.h"
#include "resources/dxfout/KrDxfOutFiles.ids.h"
#include "resources/grid.ids.h"
#include "tests/dialogs/CommandHost.h"

using namespace kiro::drive;

namespace {

constexpr wchar_t kCaption[] = L"ＤＸＦ変換　一括変換";
constexpr wchar_t kFaulty[] = L"設定内容に誤りがあります。";
constexpr int kExists = 3, kName = 4;

class Batch : public CommandHost {
  protected:
    Batch() {
        UseModel(
            u8R"({"pictures": [{"number": 2, "itemCount": 1, "scale": 0.5, "writerError": -4},
                                    {"number": 7, "itemCount": 3}, {"number": 9, "itemCount": 0}, {"number": 256, "itemCount": 1}],
                       "layouts": [{"number": 1, "windows": [2], "frame": {"valid": true, "kind": 0, "width": 420.7, "height": 297}},
                                   {"number": 2, "windows": [2], "frame": {"valid": false, "kind": 0, "width": 1, "height": 1}},
                                   {"number": 3, "frame": {"valid": true, "kind": 0, "width": 1, "height": 1}}]})");
        std::memset(&info, 0, sizeof info);
        info.output.exportParams = &params;
        WriteFixedText(info.output.layerTableFileName, "C:\\\x95\x5C");
        KiroHostObserveCalls(
            [](void* batch, const KiroHostCall* call) {
                std::string text = call->name;
                for (std::size_t i = 0; i < call->count; ++i) {
                    const KiroHostValue& value = call->arguments[i];
                    text += value.kind == kKiroHostText ? std::string(" ") + static_cast<const char*>(value.pointer)
                                                        : " " + std::to_string(value.integer);
                }
                static_cast<Batch*>(batch)->calls.push_back(text);
                if (static_cast<Batch*>(batch)->onCall) static_cast<Batch*>(batch)->onCall(call);
            },
            this);
    }
    ~Batch() override { KiroHostObserveCalls(nullptr, nullptr); }

    void UseModel(const char8_t* json) const {
        ASSERT_EQ(0, KiroHostLoadModel(Write(L"model.json", reinterpret_cast<const char*>(json)).c_str(), nullptr, 0));
    }
    template <class Dialog>
    INT_PTR Run(const User& user) {
        const LibraryResources resources;
        Dialog dialog;
        dialog.SetInfo(&info);
        const INT_PTR result = Drive([&] { return dialog.DoModal(owner); }, [&] { user(Settle()); });
        if constexpr (requires { dialog.Summary(); }) summary = dialog.Summary();
        return result;
    }
    // The run goes on while the user looks.
    static Box Asked() {
        Until("the question of the run", [] { return IsBox(Settle()); });
        return ReadBox();
    }
    // What the writer was asked for, in the home folder.
    std::string Written(int picture, const char* name) const {
        return "DxfOutFloppy 0 " + (home / L"DXF").generic_string() + "/" + name + " 0 " + std::to_string(picture);
    }

    TARNAINFO info;
    DxfOutParamBlock params{};
    std::vector<std::string> calls;
    std::function<void(const KiroHostCall*)> onCall;
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
        Click(dialog, IDCANCEL);
    });
}

TEST_F(Batch, RefusesNamesThatAreNoneOrTheSame) {
    const INT_PTR result = Run<KrDxfOutPicture>([&](HWND dialog) {
        const Grid grid(dialog, kGrid);
        const struct {
            int row;
            const wchar_t* name;
            const wchar_t* message;
        } kNames[] = {
            {1, L"", L"ファイル名が入力されていません。 2"},
            {1, L"temp256", L"ファイル名が重複しています。 2 - 3"},
            {0, L"A\\B", L"無効なファイル名です。 1 : A\\B"},
            {2, L"NUL", L"無効なファイル名です。 3 : NUL"},
        };
        for (const auto& [row, name, message] : kNames) {
            const std::wstring before = grid.Cell(row, kName);
            grid.Click(row, kName);
            grid.Write(name);
            Click(dialog, IDOK);
            Expect(kCaption, kFaulty, MB_ICONERROR, IDOK);
            EXPECT_EQ(message, Guidance(dialog));
            grid.Click(row, kName);
            grid.Write(before);
        }
        Type(dialog, kCommonNameEdit, L"表");
        Write(L"DXF\\表007", "");
        Click(dialog, kCommonNameButton);
        EXPECT_EQ(L"表256", grid.Cell(2, kName));
        EXPECT_EQ(L"○", grid.Cell(1, kExists));
        EXPECT_EQ(kGrid, FocusId());
        Click(dialog, IDOK);
        Expect(kCaption, L"出力ピクチャが選択されていません。", MB_ICONWARNING, IDOK);
        Click(dialog, IDCANCEL);
    });
    EXPECT_EQ(IDCANCEL, result);
    EXPECT_EQ("", summary);
    EXPECT_EQ((std::vector<std::string>{"setdxfottblnam C:\\\x95\x5C", "setdxfotparam 0"}), calls);
}

TEST_F(Batch, GoesThroughTheMarkedRowsAndAsksAfterAFailure) {
    for (const int answer : {IDYES, IDNO}) {
        calls.clear();
        const INT_PTR result = Run<KrDxfOutPicture>([&](HWND dialog) {
            const Grid grid(dialog, kGrid);
            grid.Click(0, 1);
            grid.Click(2, kName);
            grid.Keys(L" ");
            Click(dialog, IDOK);
            const Box box = Asked();
            EXPECT_NE(std::wstring::npos, box.text.find(L"\n　　処理を続行しますか？。"));
            EXPECT_EQ(L"Picture 2 Output", Guidance(dialog));
            Answer(box, answer);
            if (answer == IDYES) Answer(Asked(), IDNO);
        });
        EXPECT_EQ(IDOK, result);
        std::vector<std::string> expected{"setdxfottblnam C:\\\x95\x5C", "setdxfotparam 0", Written(2, "TEMP002")};
        if (answer == IDYES) expected.push_back(Written(256, "TEMP256"));
        EXPECT_EQ(expected, calls);
    }
}

// The demonstration's drawing in two pictures, written for real.
TEST_F(Batch, WritesEveryMarkedRowUntilItIsStopped) {
    std::ifstream demo(KIRO_DEMO_DRAWING, std::ios::binary);
    const auto drawing = Write(L"demo.dxf", {std::istreambuf_iterator<char>(demo), {}});
    KiroHostLoadModel(nullptr, nullptr, 0);
    DxfInParamBlock in{};
    setdxfinparam(&in);
    TARNAINFO target{};
    target.input.scale = 1.0;
    for (const int picture : {3, 5, 8}) {
        target.input.pictureNumber = picture;
        target.input.addMode = 1;
        ASSERT_EQ(0, dxfin(drawing.generic_string().c_str(), &target));
    }
    params.outputVersion = 7;
    for (const bool stops : {false, true}) {
        calls.clear();
        for (const wchar_t* name : {L"DXF\\TEMP003", L"DXF\\TEMP005", L"DXF\\TEMP008"})
            std::filesystem::remove(home / name);
        HWND list = nullptr;
        const auto stop = [&](const KiroHostCall* call) {
            if (stops && std::string_view(call->name) == "DxfOutFloppy") PostMessageW(list, WM_COMMAND, IDCANCEL, 0);
        };
        onCall = stop;
        const INT_PTR result = Run<KrDxfOutPicture>([&](HWND dialog) {
            list = dialog;
            const Grid grid(dialog, kGrid);
            grid.Click(0, 1);
            for (const int row : {1, 2}) {
                grid.Click(row, kName);
                grid.Keys(L" ");
            }
            Click(dialog, IDOK);
            Until("the end of the run", [&] { return !IsWindow(dialog); });
        });
        onCall = nullptr;
        EXPECT_EQ(IDOK, result);
        EXPECT_EQ(stops ? "3 件中 1 件を出力しました。" : "3 件中 3 件を出力しました。", summary);
        EXPECT_TRUE(std::filesystem::exists(home / L"DXF\\TEMP003"));
        EXPECT_EQ(!stops, std::filesystem::exists(home / L"DXF\\TEMP008"));
        EXPECT_EQ(stops ? 3u : 5u, calls.size());
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
        Answer(Asked(), IDNO);
    });
    ASSERT_FALSE(calls.empty());
    EXPECT_EQ("DxfOutFloppy 0 " + (home / L"DXF").generic_string() + "/TEMP001 1 0", calls.back());
}
