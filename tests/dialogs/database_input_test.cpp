// Reading from the two databases: the way from each source to its drawings, the checks in their order, and what the
// host finds in the record.
#include "resources/peliondb/KrPlIn.ids.h"
#include "resources/varosdb/KrVrIn.ids.h"
#include "tests/dialogs/DatabaseHost.h"

using namespace kiro::drive;

namespace {

constexpr wchar_t kPelion[] = L"Ｐｅｌｉｏｎ ＤＢ読込み";
constexpr wchar_t kFaultOfName[] = L"サブモデル名に無効な文字があります。";

class DatabaseInput : public DatabaseHost {};

}  // namespace

TEST_F(DatabaseInput, GoesFromEachSourceToItsDrawings) {
    constexpr const wchar_t* kOnDrive[] = {L"KAN1/ACCESS/", L"KAN1/SUZUKI/PIPE-1"};
    const kiro::PelionDrive drive(kOnDrive);
    const struct {
        int plw, source;
        const char8_t* place;  // "" when none is chosen
        const char8_t* drawings;
    } ways[] = {
        {0, kPlInFirstSourceRadio, u8"", u8"配管図=配管図"},
        {0, kPlInSecondSourceRadio, u8"", u8"表=表, ABC-1=ABC-1"},
        {0, kPlInFloppyRadio, u8"/設計/QA", u8"D ソ=DRAWING001"},
        {1, kPlInFirstSourceRadio, u8"", u8"表=表, ABC-1=ABC-1"},
        {1, kPlInSecondSourceRadio, u8"C/KAN1/SUZUKI", u8"PIPE-1=PIPE-1"},
        {1, kPlInFloppyRadio, u8"/設計/QA", u8"D ソ=DRAWING001"},
    };
    for (const auto& way : ways) {
        const bool choosesPlace = *way.place != 0;
        const bool isFile = way.source == (way.plw ? kPlInFirstSourceRadio : kPlInSecondSourceRadio);
        const int returned = Run("PlInputDlg", {{"plwVariant", way.plw}, {"plGroupKnown", 1}}, [&](HWND dialog) {
            Click(dialog, way.source);
            ExpectAll(dialog, isFile, {kPlInFileEdit, kPlInRecentCombo, kPlInBrowseButton});
            if (isFile) Type(dialog, kPlInFileEdit, L" 図ソ.dos ");
            Click(dialog, IDOK);
            if (choosesPlace) ChooseNames(Settle(), IDOK);
            Mark(Settle(), isFile ? 2 : 1);
        });
        EXPECT_EQ(0, returned);
        EXPECT_EQ(choosesPlace ? 0 : 1, record["plGroupKnown"]);
        EXPECT_EQ(1, record["dbDrawings"][0]["selected"]);
        // The real path, also of the "*" that the grey text stands for.
        const std::wstring file = (home / L"TARNA\\DOS" / (isFile ? L"図ソ.dos" : L"*")).wstring();
        EXPECT_EQ(kiro::Utf8FromWide(file), record["dbFileName"]);
        const Json told = result["calls"].back()["arguments"];
        const auto text = [&](const char* name) { return told[name].get<std::string>(); };
        EXPECT_EQ(way.source - kPlInFirstSourceRadio, told["source"]);
        EXPECT_EQ(choosesPlace ? Utf8(way.place) : "//", text("drive") + "/" + text("group") + "/" + text("user"));
        EXPECT_EQ(Utf8(way.drawings), text("drawings"));
        EXPECT_EQ(record["dbFileName"], told["file"]);
    }
}

TEST_F(DatabaseInput, PelionFillsTheRecordBeforeWhatFollows) {
    KiroHostSetModified(true);
    const auto fill = [](HWND dialog) {
        Play(dialog, {{kPlInViewEdit, L" A "},
                      {kPlInSubModelEdit, L"部品"},
                      {kPlInNewSymbolRadio, nullptr},
                      {kPlInSecondSourceRadio, nullptr},
                      {kPlInNoErrorsRadio, nullptr}});
        Pick(dialog, kPlInPictureCombo, 256);
        Type(dialog, kPlInFileEdit, L"*.dos");
        Choose(dialog, IDOK, L"図ソ.dos");  // a pattern is what the chooser lists
        Expect(kPelion, L"モデルが保存されていません。\nモデルが壊れます。\nよろしいですか。", MB_ICONWARNING, IDNO);
        ASSERT_EQ(dialog, Settle());
    };
    const char8_t* filled =
        u8R"({"dbInputView": "A", "dbSubModelName": "部品", "plSymbolMode": 2, "dbSource": 1,
                                  "dbNoErrorOutput": 1, "dbPicture": 256, "dbMode": 0, "dbDrawingCount": 0})";
    EXPECT_EQ(1, Run("PlInputDlg", Json::object(), fill));
    ExpectRecord(filled);
    EXPECT_EQ(kiro::Utf8FromWide((home / L"TARNA\\DOS\\図ソ.dos").wstring()), record["dbFileName"]);
    // Nothing is lost by being added to: no question, and drawings that become no models.
    EXPECT_EQ(0, Run("PlInputDlg", Json::object(), [&](HWND dialog) {
                  fill(dialog);
                  Click(dialog, kPlInOverlayRadio);
                  Click(dialog, IDOK);
                  Click(Settle(), IDCANCEL);
                  ASSERT_EQ(dialog, Settle());
                  EXPECT_EQ(L"部品", Text(dialog, kPlInSubModelEdit));
                  Click(dialog, IDOK);
                  Mark(Settle(), 1);
              }));
    EXPECT_EQ(2, record["dbMode"]);
    EXPECT_EQ("", record["dbDrawings"][0]["modelName"]);
    // The files that were used are kept, whatever the source; the grey text and "*" are none.
    EXPECT_EQ(0, Run("PlInputDlg", {{"dbMode", 1}}, [&](HWND dialog) {
                  EXPECT_EQ(1u, Items(dialog, kPlInRecentCombo).size());
                  Click(dialog, kPlInAddRadio);
                  Click(dialog, IDOK);
                  Mark(Settle(), 1);
              }));
    Run("PlInputDlg", {{"plwVariant", 1}}, [&](HWND dialog) { EXPECT_EQ(1u, Items(dialog, kPlInRecentCombo).size()); });
}

TEST_F(DatabaseInput, ChecksInTheOrderOfTheScreen) {
    const std::wstring thirtyOne = std::wstring(15, L'あ') + L'a', thirty = std::wstring(15, L'あ');
    struct Step {
        int id;
        std::wstring text;
        const wchar_t* fault = nullptr;  // none yet
        int focus = 0;                   // 0: where it is typed
    };
    const auto refuse = [](HWND dialog, const std::vector<Step>& steps) {
        for (const Step& step : steps) {
            Type(dialog, step.id, step.text);
            if (step.fault) ExpectFault(dialog, step.fault, step.focus ? step.focus : step.id, MB_ICONWARNING);
        }
    };
    Run("PlInputDlg", Json::object(), [&](HWND dialog) {
        Click(dialog, kPlInSecondSourceRadio);
        refuse(dialog, {{kPlInSubModelEdit, L""},
                        {kPlInViewEdit, L"　", L"入力ビュー名が入力されていません。"},
                        {kPlInViewEdit, L"図A", L"無効な入力ビュー名です。"},
                        {kPlInViewEdit, L"図", L"サブモデル名が入力されていません。", kPlInSubModelEdit},
                        {kPlInSubModelEdit, thirtyOne, L"サブモデル名が長すぎます。（半角で30文字）"},
                        {kPlInSubModelEdit, L"a/b", kFaultOfName},
                        {kPlInSubModelEdit, thirty}});
        // With the focus in the field, which the Enter key leaves there.
        Focus(dialog, kPlInFileEdit);
        Type(dialog, kPlInFileEdit, L"");
        Key(VK_RETURN);
        ExpectFaultTold(dialog, L"ファイル名が入力されていません。", kPlInFileEdit, MB_ICONWARNING);
        std::filesystem::create_directory(home / L"TARNA\\DOS\\folder");
        Write(L"TARNA\\DOS\\empty.dos", "");
        Write(L"TARNA\\DOS\\other.dos", "KIRO VAROS 1\nA\n");
        for (const auto& [name, refusal] : {std::pair(L"ない.dos", L"ファイルが見つかりません。"),
                                            {L"folder", L"フォルダが指定されています。"},
                                            {L"empty.dos", L"ファイルの内容が空です。"}}) {
            Type(dialog, kPlInFileEdit, name);
            ExpectRefusal(dialog, refusal, kPlInFileEdit, kPelion);
        }
        Type(dialog, kPlInFileEdit, L"other.dos");
        Click(dialog, IDOK);
        Expect(kPelion, L"図面が登録されていません。", MB_ICONWARNING, IDOK);
    });
    Run("VrInputDlg", {{"vrCharSpacing", 0.09}, {"vrLineSpacing", 10.5}, {"vrFacom", 1}}, [&](HWND dialog) {
        EXPECT_EQ(L"Ｖａｒｏｓ ＤＢ読込み（ＦＡＣＯＭ）", Text(dialog));
        refuse(dialog, {{kVrInSubModelEdit, thirtyOne},
                        {kVrInViewEdit, L"abc", L"無効な入力ビュー名です。"},
                        {kVrInViewEdit, L"0", L"無効な文字間隔です。", kVrInCharSpacingEdit},
                        {kVrInCharSpacingEdit, L"0.1", L"無効な行間隔です。", kVrInLineSpacingEdit},
                        {kVrInLineSpacingEdit, L"10", L"サブモデル名が長すぎます。（半角で30文字）", kVrInSubModelEdit},
                        {kVrInSubModelEdit, L"a b", kFaultOfName}});
    });
    EXPECT_EQ(0.09, record["vrCharSpacing"]);
}

TEST_F(DatabaseInput, VarosReadsItsDatabaseFile) {
    EXPECT_EQ(0, Run("VrInputDlg", {{"vrCharSpacing", 1.0}, {"vrLineSpacing", 0.25}}, [](HWND dialog) {
                  EXPECT_EQ(L"1", Text(dialog, kVrInCharSpacingEdit));
                  Play(dialog, {{kVrInSubModelEdit, L"部品"},
                                {kVrInCharSpacingEdit, L"1.5"},
                                {kVrInAddRadio, nullptr},
                                {kVrInFileEdit, L"plant.vdb"}});
                  Click(dialog, IDOK);
                  Mark(Settle(), 2);
              }));
    ExpectRecord(
        u8R"({"dbMode": 1, "dbNoErrorOutput": 0, "vrCharSpacing": 1.5, "vrLineSpacing": 0.25,
        "dbInputView": "0", "dbSubModelName": "部品", "dbPicture": 0, "dbDrawings": [
        {"selected": 1, "drawingName": "架台", "modelName": ""}, {"selected": 1, "drawingName": "FRAME-A", "modelName": ""}]})");
    const std::string path = HomePath("TARNA/DB_R/plant.vdb");
    EXPECT_EQ(path, record["dbFileName"]);
    EXPECT_EQ(R"({"file":")" + path + Utf8(u8R"(","drawings":"架台, FRAME-A"})"), Journal());
}

TEST_F(DatabaseInput, FloppyThatIsNotReadyIsNoSource) {
    std::filesystem::remove_all(home / L"FLOPPY_WIN");
    Run("PlInputDlg", {{"plwVariant", 1}}, [](HWND dialog) {
        Click(dialog, kPlInSecondSourceRadio);
        EXPECT_FALSE(IsEnabled(dialog, kPlInFileEdit));
        Click(dialog, kPlInFloppyRadio);
        Answer(ReadBox(), IDOK);
        Sync();
        EXPECT_TRUE(IsChecked(dialog, kPlInFirstSourceRadio));
        EXPECT_TRUE(IsEnabled(dialog, kPlInFileEdit));
        EXPECT_EQ(kPlInFirstSourceRadio, FocusId());
    });
}
