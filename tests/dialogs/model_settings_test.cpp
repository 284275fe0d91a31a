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
                 {"number": 3, "name": {"hex": "B0A1FF41"}, "pitches": [0.004, 1.236]}, {"number": 4, "name": "未使用"},
                 {"number": 63}],
    "widths": [0.5, 0.25, 0, 0.33], "weightPitch": 0.13, "realWeight": true},
  "classNames": [{"number": 3, "name": "外形線"}, {"number": 4, "name": "残る"}, {"number": 7, "name": {"hex": "FF"}}],
  "revisionNames": [{"number": 3, "name": "初版"}], "draftingScale": 0.25})";

class ModelSettings : public TestHost {
  protected:
    ModelSettings() { Load(kModel); }
    void Load(const std::u8string& model) const {
        ASSERT_EQ(0, KiroHostLoadModel(Write(L"model.json", {model.begin(), model.end()}).c_str(), nullptr, 0));
    }
    // The user gets the dialog, behind its question if there is one, and closes it. The words stay as they came.
    using User = std::function<void(HWND dialog, const Grid& grid)>;
    template <std::size_t count>
    bool Run(bool (*call)(std::int32_t, std::int32_t*), std::int32_t mode, std::int32_t state,
             std::initializer_list<std::size_t> used, const User& user) {
        std::array<std::int32_t, count> words;
        words.fill(2);  // no flag
        words[0] = state;
        for (const std::size_t number : used) words[number] = 1;
        const auto before = words;
        const kiro::HostCalls calls;
        const bool result = Drive([&] { return call(mode, words.data()); },
                                  [&] {
                                      if (IsBox(Settle())) Answer(ReadBox(), IDYES);
                                      const HWND dialog = Settle();
                                      user(dialog, Grid(dialog, kGrid));
                                  });
        EXPECT_EQ(before, words);
        journal.clear();
        for (const Json& call_ : calls.List()) {
            journal.push_back(call_["name"]);
            for (const auto& [name, value] : call_["arguments"].items()) journal.back() += " " + value.dump();
        }
        return result;
    }
    bool LayerNames(std::int32_t mode, const User& user) {
        return Run<257>(DxfLayerNameDialog, mode, 0, {3, 7, 256}, user);
    }
    bool LineTypes(std::int32_t state, const User& user) {
        const auto call = [](std::int32_t, std::int32_t* words) { return DxfLineTypeDialog(words); };
        return Run<64>(call, 0, state, {1, 2, 3, 63}, user);
    }
    bool LineWidths(std::int32_t mode, std::int32_t state, const User& user) {
        return Run<17>(DxfLineWidthDialog, mode, state, {1, 2, 3, 4, 16}, user);
    }
    static std::wstring Column(const Grid& grid, int column) {
        std::wstring texts;
        for (int row = 0; row < grid.Rows(); ++row) texts += (row ? L"|" : L"") + grid.Cell(row, column);
        return texts;
    }
    static std::wstring Line(const Grid& grid, int row) {
        std::wstring texts = grid.Cell(row, 1);
        for (int column = 2; column < 10; ++column) texts += L"|" + grid.Cell(row, column);
        return texts;
    }
    static void Change(const Grid& grid, int row, int column, const std::wstring& text) {
        grid.Click(row, column);
        grid.Write(text);
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
    std::vector<std::string> journal;
};

}  // namespace

TEST_F(ModelSettings, LayerNamesGoIntoTheListOfTheMode) {
    EXPECT_TRUE(LayerNames(2, [](HWND dialog, const Grid& grid) {
        EXPECT_EQ(L"3|7|256", Column(grid, 0));
        ExpectRefused(dialog, IDOK, L"名前が入力されていません", "2,0 ");
        EXPECT_EQ((GridPlace{2, 1}), grid.Current());
        Click(dialog, kNamesFromZeroButton);
        EXPECT_EQ(L"0|1|2", Column(grid, 1));
        EXPECT_EQ((GridPlace{2, 1}), grid.Current());
        Click(dialog, kNamesFromOneButton);
        EXPECT_EQ(L"1|2|3", Column(grid, 1));
        EXPECT_EQ(kGrid, FocusId());
        Change(grid, 0, 1, L"3");
        ExpectRefused(dialog, IDOK, L"名前が重複しています", "2,1 ");
        Click(dialog, kRestoreLayerNamesButton);
        EXPECT_EQ(L"外形線", grid.Cell(0, 1));
        grid.Click(2, 1);
        Key(VK_F2);
        grid.SetText(std::wstring(200, L'髙'));  // three bytes each
        Key(VK_RETURN);
        ExpectRefused(dialog, IDOK, L"名前が長すぎます。短くしてください。", "2,1 ");
        Change(grid, 2, 1, L"表");
        Click(dialog, IDOK);
    }));
    // The name that is no EUC and the unused layer's stay.
    EXPECT_EQ(Json::parse(u8R"([{"number": 3, "name": "外形線"}, {"number": 4, "name": "残る"},
                                {"number": 7, "name": {"hex": "FF"}}, {"number": 256, "name": "表"}])"),
              kiro::HostModel()["classNames"]);
    EXPECT_TRUE(LayerNames(3, [](HWND dialog, const Grid& grid) {
        EXPECT_EQ(L"初版||", Column(grid, 1));
        Click(dialog, kNamesFromOneButton);
        Click(dialog, IDOK);
    }));
    EXPECT_EQ(3u, kiro::HostModel()["revisionNames"].size());
}

TEST_F(ModelSettings, LineTypesAreReadThenNamedThenStored) {
    const Json before = kiro::HostModel();
    const auto user = [](int end) {
        return [end](HWND dialog, const Grid& grid) {
            EXPECT_EQ(L"1|2|3|63", Column(grid, 0));
            EXPECT_EQ(L"CONTINUOUS", grid.Cell(0, 1));
            Change(grid, 3, 2, L"１");
            Change(grid, 3, 3, L"1000000000001");  // one digit more than there is room for is not taken
            EXPECT_EQ(L"100000000000", grid.Cell(3, 3));
            Change(grid, 3, 4, L"5");
            Change(grid, 3, 7, L"x");  // behind the gap
            ExpectRefused(dialog, kMultiplyPitchesButton, L"無効なピッチが入力されました", "3,2 3,4 ");
            Change(grid, 3, 2, L"-0");
            Change(grid, 3, 5, L"1e12");
            ExpectRefused(dialog, kMultiplyPitchesButton, L"線種が選択されていません", "");
            grid.Click(2, 2);
            Key(VK_SPACE);
            KeyHolding(VK_SHIFT, VK_DOWN);
            for (const wchar_t* factor : {L"1e6", L"0.000001", L"２", L""}) {
                Type(dialog, kPitchFactorEdit, factor);
                ExpectRefused(dialog, kMultiplyPitchesButton, L"無効な倍率です", "");
                EXPECT_EQ(kPitchFactorEdit, FocusId());
            }
            for (const int answer : {0, IDNO, IDYES}) {
                Type(dialog, kPitchFactorEdit, answer ? L"1/2" : L"1.000009");
                Focus(dialog, kPitchFactorEdit);
                Key(VK_RETURN);
                if (answer) {
                    EXPECT_EQ(L"線種ピッチに倍率(1/2)をかけます。\nよろしいですか。", ReadBox().text);
                    Answer(ReadBox(), answer);
                }
                EXPECT_EQ(L"1.0", Text(dialog, kPitchFactorEdit));
                EXPECT_EQ(kGrid, FocusId());
                EXPECT_EQ(answer == IDYES ? L"0.01" : L"0.004", grid.Cell(2, 2));
            }
            EXPECT_EQ(L"破線|6|2||||||", Line(grid, 1));
            EXPECT_EQ(L"|0.01|50000000000|2.5|500000000000||||", Line(grid, 3));
            ExpectRefused(dialog, IDOK, L"線種名が重複しています。または入力されていません。", "3,0 ");
            Click(dialog, kNameLineTypesButton);
            EXPECT_EQ(L"CONTINUOUS|LTYPE2|LTYPE3|LTYPE63", Column(grid, 1));
            Change(grid, 1, 1, L"CONTINUOUS");
            ExpectRefused(dialog, IDOK, L"線種名が重複しています。または入力されていません。", "1,1 ");
            Click(dialog, kRestoreLineNamesButton);
            EXPECT_EQ(L"破線", grid.Cell(1, 1));
            Change(grid, 3, 1, L"溶接");
            Click(dialog, kScaledPatternRadio);
            Click(dialog, end);
        };
    };
    EXPECT_FALSE(LineTypes(0, user(IDCANCEL)));
    EXPECT_EQ(before, kiro::HostModel());
    EXPECT_TRUE(LineTypes(0, user(IDOK)));
    const Json lines = kiro::HostModel()["lineStyle"];
    EXPECT_EQ(Json::parse(u8R"([{"number": 1, "name": "CONTINUOUS", "pitches": []},
        {"number": 2, "name": "破線", "pitches": [6.0, 2.0]}, {"number": 3, "name": {"hex": "B0A1FF41"}, "pitches": [0.01, 0.62]},
        {"number": 4, "name": "未使用", "pitches": []},
        {"number": 63, "name": "溶接", "pitches": [0.01, 50000000000.0, 2.5, 500000000000.0]}])"),
              lines["patterns"]);
    EXPECT_EQ(true, lines["scaledFont"]);
    EXPECT_EQ((std::vector<std::string>{"lftpattern 0.25", "Rpt101 2"}), journal);
}

TEST_F(ModelSettings, StandardWidthsAreFilledCheckedAndSaved) {
    const auto journalOf = [](std::vector<const char*> widths, const char* display, std::vector<std::string> end) {
        std::vector<std::string> expected;
        for (std::size_t number = 1; number <= 16; ++number) {
            expected.push_back("LogoutMDF 38 1 " + std::to_string(number) + " false false");
            expected.push_back(std::string("LogoutSCL ") + widths[number - 1] + " false true");
        }
        expected.push_back("LogoutMDF 34 1 12 false false");
        expected.push_back(std::string("LogoutSCL ") + display + " false true");
        expected.insert(expected.end(), end.begin(), end.end());
        expected.push_back("Rpt101 2");
        return expected;
    };
    std::vector<const char*> widths(16, "0.0");
    EXPECT_TRUE(LineWidths(0, 0, [](HWND dialog, const Grid& grid) {
        EXPECT_EQ(L"0|0.25||0.33|", Column(grid, 1));
        ExpectRefused(dialog, IDOK, L"無効な線幅が設定されています", "3,1 ");
        Change(grid, 1, 1, L"2.12");
        ExpectRefused(dialog, IDOK, L"無効な入力があります", "1,1 ");
        Click(dialog, kWidthsFromPitchButton);
        EXPECT_EQ(L"0|0.25|0.4|0.53|2.11", Column(grid, 1));
        Click(dialog, kRestoreWidthsButton);
        EXPECT_EQ(L"0|0.25||0.33|", Column(grid, 1));
        Click(dialog, kNoWidthsButton);
        EXPECT_EQ(L"0|0.0|0.0|0.0|0.0", Column(grid, 1));
        Change(grid, 1, 1, L"0.0004");
        ExpectRefused(dialog, IDOK, L"無効な線幅が設定されています", "1,1 ");
        EXPECT_EQ(L"0|0.0004|||", Column(grid, 1));  // shown again as they were read
        grid.Click(1, 1);
        grid.Choose(0);
        EXPECT_EQ(kGrid, (Click(dialog, kDisplayByNumberRadio), FocusId()));
        Click(dialog, IDOK);
    }));
    widths[1] = "0.05";
    EXPECT_EQ(journalOf(widths, "1.0", {"LogoutMDF 35 1 90 false true"}),
              (std::vector(journal.begin() + 1, journal.end())));
    EXPECT_EQ("clearUserPen", journal[0]);
    const Json lines = kiro::HostModel()["lineStyle"];
    EXPECT_TRUE(lines["weightEnabled"] && !lines["realWeight"]);

    EXPECT_TRUE(LineWidths(2, 1, [](HWND dialog, const Grid& grid) {
        ExpectRefused(dialog, IDOK, L"線幅が設定されていません", "2,1 3,1 4,1 ");
        Click(dialog, kWidthsFromPitchButton);
        EXPECT_EQ(L"0.13|0.26|0.39|0.52|2.08", Column(grid, 1));
        Change(grid, 2, 1, L"10.001");
        ExpectRefused(dialog, kSaveWidthsButton, L"無効な入力があります", "2,1 ");
        Change(grid, 2, 1, L"10");
        Click(dialog, kSaveWidthsButton);
    }));
    widths[0] = "0.13", widths[1] = "0.26", widths[2] = "10.0", widths[3] = "0.52", widths[15] = "2.08";
    EXPECT_EQ(journalOf(widths, "1.0", {"LogoutMDF 34 1 215 false true", "d161907cnsout"}), journal);
}

TEST_F(ModelSettings, AModelWithoutLinesIsToldOf) {
    const auto lose = [this](HWND dialog, const Grid&) {
        Load(u8R"({"lineStyle": null})");
        ExpectRefused(dialog, IDOK, L"モデルに線種と線幅の設定がありません。", "");
        Click(dialog, IDCANCEL);
    };
    EXPECT_FALSE(LineTypes(2, [&](HWND dialog, const Grid& grid) {
        Change(grid, 3, 1, L"溶接");
        lose(dialog, grid);
    }));
    for (const bool types : {true, false}) {
        std::int32_t words[64] = {};
        const auto call = [&] { return types ? DxfLineTypeDialog(words) : DxfLineWidthDialog(0, words); };
        EXPECT_FALSE(Drive(call, [] {
            EXPECT_EQ(L"モデルに線種と線幅の設定がありません。", ReadBox().text);
            Answer(ReadBox(), IDOK);
        }));
    }
    Load(kModel);
    EXPECT_FALSE(LineWidths(2, 0, lose));
    EXPECT_TRUE(journal.empty());
}
