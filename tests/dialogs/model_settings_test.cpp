// The settings of the model, as a host calls for them: what the user is refused, and what comes into the model and the
// host's journal. How the windows look is in the golden text; the arithmetic is tested natively.

#include "driver/GridDriver.h"
#include "resources/grid.ids.h"
#include "resources/model/KrDxfLayerName.ids.h"
#include "resources/model/KrDxfLineType.ids.h"
#include "resources/model/KrDxfLineWidth.ids.h"
#include "tests/dialogs/TestHost.h"
#include "workbench/HostCalls.h"

using namespace kiro::drive;
using kiro::Json;

namespace {

constexpr char8_t kModel[] =
    u8R"({"lineStyle": {
    "patterns": [{"number": 1, "name": "x"}, {"number": 2, "name": "破線", "pitches": [6, 2]},
                 {"number": 3, "name": {"hex": "B0A1FF41"}, "pitches": [0.004, 1.236]}],
    "widths": [0.5, 0.25, 0, 0.33], "weightPitch": 0.13, "realWeight": true},
  "classNames": [{"number": 3, "name": "外形線"}, {"number": 4, "name": {"hex": "FF"}}, {"number": 7, "name": "残る"}],
  "revisionNames": [{"number": 3, "name": "初版"}], "draftingScale": 0.25})";

constexpr std::size_t kUsed[] = {1, 2, 3, 4, 16, 63, 256};

// Their words have a width, a type and a layer of each kind; what is no flag is 2.
class ModelSettings : public TestHost {
  protected:
    ModelSettings() { UseModel(kModel); }
    // The user gets the dialog, behind its question if there is one, and closes it.
    using User = std::function<void(HWND dialog, const Grid& grid)>;
    template <class Call>
    bool Run(Call call, std::int32_t state, const User& user) {
        words.fill(2);
        words[0] = state;
        for (const std::size_t number : kUsed) words[number] = 1;
        const auto before = words;
        const kiro::HostCalls calls;
        const bool result = Drive([&] { return call(words.data()); },
                                  [&] {
                                      if (IsBox(Settle())) Answer(ReadBox(), IDYES);
                                      const HWND dialog = Settle();
                                      user(dialog, Grid(dialog, kGrid));
                                  });
        EXPECT_EQ(before, words);  // the results are in the model alone
        journal.clear();
        for (const Json& made : calls.List()) {
            journal += made["name"];
            for (const auto& [name, value] : made["arguments"].items()) journal += " " + value.dump();
            journal += "\n";
        }
        return result;
    }
    // Refused without a box: the message, and the marked cells as "row,column ".
    static void ExpectRefused(HWND dialog, int button, const std::wstring& message, const std::string& marked) {
        Click(dialog, button);
        ASSERT_EQ(dialog, Settle());
        EXPECT_EQ(message, Guidance(dialog));
        EXPECT_TRUE(IsGuidanceError(dialog));
        const Grid grid(dialog, kGrid);
        std::string seen;
        for (int row = 0; row < grid.Rows(); ++row)
            for (int column = 0; column < 10; ++column)
                if (grid.Width(column) > 0 && grid.Pixel(row, column, -6, 4) == RGB(0xFF, 0xE0, 0xE0))
                    seen += std::to_string(row) + "," + std::to_string(column) + " ";
        EXPECT_EQ(marked, seen) << testing::PrintToString(message);
    }
    static std::wstring Column(const Grid& grid, int column) {
        std::wstring texts;
        for (int row = 0; row < grid.Rows(); ++row) texts += grid.Cell(row, column) + L"|";
        return texts;
    }
    std::array<std::int32_t, 257> words;
    std::string journal;
};

}  // namespace

TEST_F(ModelSettings, LayerNamesGoIntoTheListOfTheMode) {
    EXPECT_TRUE(Run(std::bind_front(DxfLayerNameDialog, 2), 0, [](HWND dialog, const Grid& grid) {
        ExpectRefused(dialog, IDOK, L"名前が入力されていません", "0,0 1,0 4,0 5,0 6,0 ");
        grid.Click(3, 1);
        Click(dialog, kNamesFromOneButton);
        EXPECT_EQ((GridPlace{3, 1}), grid.Current());
        EXPECT_EQ(kGrid, FocusId());
        for (const int row : {2, 6}) Change(grid, row, 1, L"1");
        ExpectRefused(dialog, IDOK, L"名前が重複しています", "2,1 6,1 ");
        Change(grid, 6, 1, L"表");
        Change(grid, 2, 1, std::wstring(200, L'髙'));  // three bytes each
        ExpectRefused(dialog, IDOK, L"名前が長すぎます。短くしてください。", "2,1 ");
        Click(dialog, kRestoreLayerNamesButton);
        for (const int row : {0, 1, 4, 5, 6}) Change(grid, row, 1, std::to_wstring(row));
        Click(dialog, IDOK);
    }));
    // The name that is no EUC and that of the unused layer stay.
    EXPECT_EQ(Json::parse(u8R"([{"number": 1, "name": "0"}, {"number": 2, "name": "1"}, {"number": 3, "name": "外形線"},
        {"number": 4, "name": {"hex": "FF"}}, {"number": 7, "name": "残る"}, {"number": 16, "name": "4"},
        {"number": 63, "name": "5"}, {"number": 256, "name": "6"}])"),
              kiro::HostModel()["classNames"]);
    EXPECT_TRUE(Run(std::bind_front(DxfLayerNameDialog, 3), 0, [](HWND dialog, const Grid& grid) {
        EXPECT_EQ(L"||初版|||||", Column(grid, 1));
        Click(dialog, kNamesFromZeroButton);
        Click(dialog, IDOK);
    }));
    EXPECT_EQ(R"({"number":256,"name":"6"})", kiro::HostModel()["revisionNames"][6].dump());
}

TEST_F(ModelSettings, LineTypesAreReadThenNamedThenStored) {
    const Json before = kiro::HostModel();
    const auto user = [](int end) {
        return [end](HWND dialog, const Grid& grid) {
            // There is room for twelve digits; "x" stands behind a gap.
            for (const auto& [column, text] : {std::pair(2, L"一"), {4, L"5"}, {3, L"1000000000001"}, {7, L"x"}})
                Change(grid, 5, column, text);
            ExpectRefused(dialog, kMultiplyPitchesButton, L"無効なピッチが入力されました", "5,2 5,4 ");
            Change(grid, 5, 2, L"-0");
            Change(grid, 5, 5, L"1e12");
            ExpectRefused(dialog, kMultiplyPitchesButton, L"線種が選択されていません", "");
            grid.Click(2, 2);
            Key(VK_SPACE);
            for (int i = 0; i < 3; ++i) KeyHolding(VK_SHIFT, VK_DOWN);
            Type(dialog, kPitchFactorEdit, L"1e6");
            ExpectRefused(dialog, kMultiplyPitchesButton, L"無効な倍率です", "");
            EXPECT_EQ(kPitchFactorEdit, FocusId());
            for (const int answer : {0, IDNO, IDYES}) {
                Type(dialog, kPitchFactorEdit, answer ? L"1/2" : L"1.000009");
                Focus(dialog, kPitchFactorEdit);
                Key(VK_RETURN);
                if (answer) Answer(ReadBox(), answer);
                EXPECT_EQ(L"1.0", Text(dialog, kPitchFactorEdit));
                EXPECT_EQ(kGrid, FocusId());
                EXPECT_EQ(answer == IDYES ? L"|6|0.01|||0.01|" : L"|6|0.004|||-0|", Column(grid, 2));
            }
            EXPECT_EQ(L"||||||", Column(grid, 7));
            ExpectRefused(dialog, IDOK, L"線種名が重複しています。または入力されていません。", "5,0 ");
            Click(dialog, kNameLineTypesButton);
            EXPECT_EQ(L"CONTINUOUS|LTYPE2|LTYPE3|LTYPE4|LTYPE16|LTYPE63|", Column(grid, 1));
            Change(grid, 1, 1, L"CONTINUOUS");
            ExpectRefused(dialog, IDOK, L"線種名が重複しています。または入力されていません。", "1,1 ");
            Click(dialog, kRestoreLineNamesButton);
            Change(grid, 5, 1, L"溶接");
            Click(dialog, kScaledPatternRadio);
            Click(dialog, end);
        };
    };
    EXPECT_FALSE(Run(DxfLineTypeDialog, 0, user(IDCANCEL)));
    EXPECT_EQ(before, kiro::HostModel());
    EXPECT_TRUE(Run(DxfLineTypeDialog, 0, user(IDOK)));
    const Json lines = kiro::HostModel()["lineStyle"];
    EXPECT_EQ(Json::parse(u8R"([{"number": 1, "name": "CONTINUOUS", "pitches": []},
        {"number": 2, "name": "破線", "pitches": [6.0, 2.0]},
        {"number": 3, "name": {"hex": "B0A1FF41"}, "pitches": [0.01, 0.62]},
        {"number": 63, "name": "溶接", "pitches": [0.01, 50000000000.0, 2.5, 500000000000.0]}])"),
              lines["patterns"]);
    EXPECT_EQ(true, lines["scaledFont"]);
    EXPECT_EQ("lftpattern 0.25\nRpt101 2\n", journal);
}

TEST_F(ModelSettings, WidthsAreFilledCheckedAndWrittenIntoTheJournal) {
    const auto written = [](const std::string& end) {
        std::string lines;
        const Json model = kiro::HostModel();
        for (int number = 1; const Json& width : model["lineStyle"]["widths"])
            lines += "LogoutMDF 38 1 " + std::to_string(number++) + " false false\nLogoutSCL " + width.dump() +
                     " false true\n";
        return lines + "LogoutMDF 34 1 12 false false\nLogoutSCL 1.0 false true\n" + end + "Rpt101 2\n";
    };
    EXPECT_TRUE(Run(std::bind_front(DxfLineWidthDialog, 0), 0, [](HWND dialog, const Grid& grid) {
        ExpectRefused(dialog, IDOK, L"無効な線幅が設定されています", "3,1 ");
        Change(grid, 1, 1, L"2.12");
        ExpectRefused(dialog, IDOK, L"無効な入力があります", "1,1 ");
        Click(dialog, kWidthsFromPitchButton);
        EXPECT_EQ(L"0|0.25|0.4|0.53|2.11|", Column(grid, 1));
        Click(dialog, kRestoreWidthsButton);
        EXPECT_EQ(L"0|0.25||0.33||", Column(grid, 1));
        Click(dialog, kNoWidthsButton);
        EXPECT_EQ(L"0|0.0|0.0|0.0|0.0|", Column(grid, 1));
        Change(grid, 1, 1, L"0.0004");
        ExpectRefused(dialog, IDOK, L"無効な線幅が設定されています", "1,1 ");
        EXPECT_EQ(L"0|0.0004||||", Column(grid, 1));  // as they were read
        grid.Choose(0);
        Focus(dialog, kRealDisplayRadio);  // with which Windows sends a click
        Send(dialog, WM_COMMAND, kRealDisplayRadio, reinterpret_cast<LPARAM>(Control(dialog, kRealDisplayRadio)));
        EXPECT_EQ(kRealDisplayRadio, FocusId());
        Key(VK_UP);
        EXPECT_EQ(kGrid, FocusId());
        Click(dialog, IDOK);
    }));
    EXPECT_EQ("clearUserPen\n" + written("LogoutMDF 35 1 90 false true\n"), journal);
    const Json lines = kiro::HostModel()["lineStyle"];
    EXPECT_TRUE(lines["weightEnabled"] && !lines["realWeight"]);
    EXPECT_EQ("[0.0,0.05,0.0,0.0,", lines["widths"].dump().substr(0, 18));

    EXPECT_TRUE(Run(std::bind_front(DxfLineWidthDialog, 2), 1, [](HWND dialog, const Grid& grid) {
        Change(grid, 0, 1, L"");
        ExpectRefused(dialog, IDOK, L"線幅が設定されていません", "2,1 3,1 4,1 ");
        Click(dialog, kWidthsFromPitchButton);
        EXPECT_EQ(L"0.13|0.26|0.39|0.52|2.08|", Column(grid, 1));
        Change(grid, 2, 1, L"10.001");
        ExpectRefused(dialog, kSaveWidthsButton, L"無効な入力があります", "2,1 ");
        Change(grid, 2, 1, L"10");
        Click(dialog, kSaveWidthsButton);
    }));
    EXPECT_EQ(written("LogoutMDF 34 1 215 false true\nd161907cnsout\n"), journal);
    EXPECT_EQ("[0.13,0.26,10.0,0.52,", kiro::HostModel()["lineStyle"]["widths"].dump().substr(0, 21));
}

TEST_F(ModelSettings, AModelWithoutLinesIsToldOf) {
    const User user = [this](HWND dialog, const Grid& grid) {
        Change(grid, 2, 1, L"1");
        UseModel(u8R"({"lineStyle": null})");
        static_assert(kRestoreLineNamesButton == kSaveWidthsButton);
        Click(dialog, kRestoreLineNamesButton);
        EXPECT_EQ(L"モデルに線種と線幅の設定がありません。", Guidance(dialog));
        Click(dialog, IDCANCEL);
    };
    EXPECT_FALSE(Run(DxfLineTypeDialog, 0, user));
    UseModel(kModel);
    EXPECT_FALSE(Run(std::bind_front(DxfLineWidthDialog, 2), 0, user));
    EXPECT_FALSE(Drive([this] { return DxfLineTypeDialog((words[0] = 0, words.data())); },
                       [] {
                           EXPECT_EQ(L"モデルに線種と線幅の設定がありません。", ReadBox().text);
                           Answer(ReadBox(), IDOK);
                       }));
}
