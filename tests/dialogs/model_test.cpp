// The model of the stand-in host: its file, the check before an export, and the choosers of pictures and layouts.
#include "driver/GridDriver.h"
#include "entry/host/KrUtility.h"
#include "entry/host/kirocontrol.h"
#include "entry/host/kirodlg.h"
#include "entry/host/kirodxf.h"
#include "hostlayer/kirodlg/ListChooser.ids.h"
#include "tests/dialogs/TestHost.h"

using namespace kiro::drive;

namespace {

constexpr char8_t kModel[] =
    u8R"({
  "modified": false, "baseScale": 0.5, "currentPicture": 1023, "checkBeforeExport": true,
  "maxItemCount": 5000, "maxSplitCount": 300,
  "pictures": [
    {"number": 3, "scale": 0.5, "itemCount": 4, "writerError": -8,
     "faults": [{"item": 2, "text": "長さが０です。"}, {"item": 4, "text": "半径が０です。"}]},
    {"number": 40, "itemCount": 1, "faults": [{"item": 1, "text": "表"}]},
    {"number": 41, "itemCount": 1000},
    {"number": 256, "itemCount": 5}],
  "layouts": [
    {"number": 2, "name": "側面図①", "windows": [3, 3, 0, 257, -1], "writerError": -2147483648,
     "frame": {"valid": true, "kind": 1, "name": "Ａ３", "width": 420, "height": 297.5}},
    {"number": 7, "name": {"hex": "B0A1fF41"}, "windows": [41]},
    {"number": 256}],
  "lineStyle": {"patterns": [{"number": 2, "name": "破線", "pitches": [6, 0.57]}, {"number": 63, "name": {"hex": "FF"}}],
                "widths": [0, 0.25], "weightPitch": 0.13, "realWeight": true},
  "classNames": [{"number": 256, "name": "下書き"}], "revisionNames": [{"number": 1, "name": "初版"}],
  "draftingScale": 0.25,
  "messages": [{"number": 8, "text": "満杯です。"}]
})";

class ModelTest : public TestHost {
  protected:
    // What the refusal says; "" when the model was read.
    std::string Load(const std::u8string& text) const {
        char message[512] = "";
        const auto file = Write(L"model.json", std::string(text.begin(), text.end()));
        const bool refused = KiroHostLoadModel(file.c_str(), message, sizeof message) != 0;
        EXPECT_EQ(refused, *message != 0);
        return message;
    }
    static std::u8string Printed() {
        std::u8string text(KiroHostPrintModel(nullptr, 0), u8' ');
        KiroHostPrintModel(reinterpret_cast<char*>(text.data()), text.size() + 1);
        return text;
    }
    // kModel, by way of its print.
    void LoadModel() const {
        ASSERT_EQ("", Load(kModel));
        KiroHostSetModified(true);
        const auto printed = Printed();
        KiroHostLoadModel(nullptr, nullptr, 0);
        ASSERT_EQ("", Load(printed));
    }
    static HxDlo* Layout(int number) { return HxDloListGetDlo(HxModelGetDloList(GetActiveModel()), number); }
};

}  // namespace

TEST_F(ModelTest, AnswersWhatItsFileSays) {
    LoadModel();
    EXPECT_TRUE(HxModelIsModified(GetActiveModel()));
    std::uint32_t words[4] = {9, 9, 9, 9};
    EXPECT_EQ(4, HxModelGetItemAttributes(GetActiveModel(), words, 3));
    EXPECT_EQ(9u, words[3]);
    HxModelGetItemAttributes(GetActiveModel(), words, 4);
    EXPECT_EQ(1023u << 15, words[3]);
    for (const auto& [picture, count] : {std::pair(41, 1000), {256, 5}, {1, 0}, {0, 0}, {257, 0}, {-1, 0}})
        EXPECT_EQ(count, HxPermItemDbGetItemCount(HxModelGetPermItemDb(GetActiveModel()), picture)) << picture;

    for (const auto& [picture, scale] : {std::pair(3, 0.5), {-1, 0.5}, {256, 1.0}, {0, 1.0}, {257, 1.0}, {-2, 1.0}})
        EXPECT_EQ(scale, Scfval101(picture)) << picture;
    EXPECT_EQ(5000, HxPermItemDbGetMaxItemCount());
    EXPECT_EQ(300, HxItemMaxSrCount());

    std::vector<int> windows;
    for (int i = 0; i < HxDloGetDloWindowCount(Layout(2)); ++i)
        windows.push_back(HxDloGetDloWindowPicture(Layout(2), i));
    EXPECT_EQ((std::vector{3, 3, 0, 257, -1}), windows);
    EXPECT_EQ("側面図①", HxEucEncoder::Euc2Sjis(HxDloGetName(Layout(2))));
    EXPECT_STREQ("\xB0\xA1\xFF\x41", HxDloGetName(Layout(7)));
    HxDloFrame frame{};
    EXPECT_FALSE(HxDloGetDloFrame(Layout(7), &frame));
    ASSERT_TRUE(HxDloGetDloFrame(Layout(2), &frame));
    EXPECT_EQ("Ａ３", HxEucEncoder::Euc2Sjis(frame.name));
    EXPECT_TRUE(frame.valid && frame.kind == 1 && frame.width == 420 && frame.height == 297.5);
    for (const int none : {0, 1, 257, -1}) EXPECT_EQ(nullptr, Layout(none)) << none;

    EXPECT_TRUE(DxfIsModelCheck());
    EXPECT_EQ(-8, DxfOutFloppy(false, "C:/a.dxf", 0, 3));
    EXPECT_EQ(INT32_MIN, DxfOutFloppy(false, "C:/a.dxf", 2, 0));
    EXPECT_EQ(kDxfNothing, DxfOutFloppy(true, "C:/a.dxf", 7, 0));
    const KrUtilityPtr utility(KrCreateUtility());
    char text[kKrTextSize];
    utility->GetMessageText(8, text, sizeof text);
    EXPECT_STREQ("満杯です。", text);
}

// What commands read and write there is tested with them.
TEST_F(ModelTest, LineStylesAndNamesTakeWhatFits) {
    HxLineStyle* const style = GetActiveModel()->GetLineStyle();
    HxLineStylePattern* const pattern = HxLineStyleGetPattern(style, 63);
    for (const int none : {0, 64}) EXPECT_EQ(nullptr, HxLineStyleGetPattern(style, none));
    HxLineStylePatternSetName(pattern, std::string(513, 'x').c_str());
    HxLineStylePatternSet(pattern, 9, std::vector<double>(9).data());
    HxNameListSetName(GetActiveModel()->GetClassNameList(), 257, "x");
    HxLineStyleSetLineWidth(style, 17, 1);
    EXPECT_FALSE(GetActiveModel()->IsModified());
    HxLineStylePatternSetName(pattern, std::string(512, 'x').c_str());
    EXPECT_TRUE(GetActiveModel()->IsModified());
}

TEST_F(ModelTest, ThePageShowsTheDemonstrationsModel) {
    const std::filesystem::path root = KIRO_ROOT;
    const std::string demo = BytesOf(root / "tools/demo/model.json");
    EXPECT_NE(std::string::npos, BytesOf(root / "docs/model-file.md").find("```json\n" + demo + "```"));
    EXPECT_EQ("", Load(std::u8string(demo.begin(), demo.end())));
}

TEST_F(ModelTest, RefusesAWrongFileWithPlaceAndReason) {
    const struct {
        std::u8string text;
        const char* message;
    } kRows[] = {
        {u8"{\n  \"modified\": yes}", "line 2, column 15: this is not JSON"},
        {u8"[]", "model: an object {...} is expected"},
        {u8R"({"modified": 1})", "modified: true or false is expected"},
        {u8R"({"baseScale": 0})", "baseScale: a number above 0 is expected"},
        {u8R"({"baseScale": 1e999})", "model: a number is too large"},
        {u8R"({"maxItemCount": 2147483648})", "maxItemCount: a whole number from 1 to 2147483647 is expected"},
        {u8R"({"pictures": {}})", "pictures: a list [...] is expected"},
        {u8R"({"pictures": [{"number": 1}, {"number": 257}]})",
         "pictures[1].number: a whole number from 1 to 256 is expected"},
        {u8R"({"pictures": [{"number": 1.5}]})", "pictures[0].number: a whole number from 1 to 256 is expected"},
        {u8R"({"pictures": [{"number": 3}, {"number": 3}]})", "pictures[1]: picture 3 is given twice"},
        {u8R"({"pictures": [{"size": 3}]})", "pictures[0]: unknown member \"size\""},
        {u8R"({"currentPicture": 1024})", "currentPicture: a whole number from 0 to 1023 is expected"},
        {u8R"({"pictures": [{"scale": 1}]})", "pictures[0]: \"number\" is missing"},
        {u8R"({"pictures": [{"number": 1, "itemCount": 1, "faults": [{"item": 2}]}]})",
         "pictures[0].faults: item 2 of 1 items"},
        {u8R"({"pictures": [{"number": 1, "faults": [{}]}]})", "pictures[0].faults[0]: \"item\" is missing"},
        {u8R"({"layouts": [{"number": 1, "name": "é"}]})",
         "layouts[0].name: code page 932 has not all of its characters"},
        {u8R"({"layouts": [{"number": 1, "name": {}}]})", "layouts[0].name: a text is expected"},
        {u8R"({"layouts": [{"number": 1, "name": {"hex": "4100"}}]})",
         "layouts[0].name.hex: pairs of hexadecimal digits without 00 are expected, such as \"B0A1\""},
        {u8R"({"layouts": [{"number": 1, "name": {"hex": "4"}}]})",
         "layouts[0].name.hex: pairs of hexadecimal digits without 00 are expected, such as \"B0A1\""},
        {u8R"({"layouts": [{"number": 1, "windows": [1, 18446744073709551615]}]})",
         "layouts[0].windows[1]: a whole number from -32768 to 32767 is expected"},
        {u8R"({"layouts": [{"number": 1, "frame": {"name": ")" + std::u8string(257, u8'x') + u8"\"}}]}",
         "layouts[0].frame.name: 257 bytes in EUC, at most 256 are expected"},
        {u8R"({"lineStyle": {"patterns": [{"number": 1}, {"number": 1}]}})",
         "lineStyle.patterns[1]: pattern 1 is given twice"},
        {u8R"({"lineStyle": {"patterns": [{"number": 1, "pitches": [1,2,3,4,5,6,7,8,9]}]}})",
         "lineStyle.patterns[0].pitches: at most 8 numbers are expected"},
        {u8R"({"messages": [{"number": 1}, {"number": 1}]})", "messages[1]: message 1 is given twice"},
        {u8R"({"messages": [{"number": 1, "text": "a\u0000"}]})", "messages[0].text: the text has a NUL"},
    };
    LoadModel();
    const auto before = Printed();
    for (const auto& row : kRows) EXPECT_EQ(row.message, Load(row.text));
    char cut[20];
    EXPECT_NE(0, KiroHostLoadModel((home / L"none").c_str(), cut, sizeof cut));
    EXPECT_STREQ("file: cannot be ope", cut);
    EXPECT_EQ(before, Printed());
    EXPECT_EQ(0, KiroHostLoadModel(nullptr, nullptr, 0));
    EXPECT_FALSE(GetActiveModel()->IsModified());
    EXPECT_EQ(1.0, Scfval101(-1));
}

TEST_F(ModelTest, ListsTheFaultsOfWhatIsToBeWritten) {
    const std::string three =
        "**** ピクチャ 3 アイテム 2 : 長さが０です。 ****\r\n**** ピクチャ 3 アイテム 4 : 半径が０です。 ****\r\n";
    const std::string forty = "**** ピクチャ 40 アイテム 1 : 表 ****\r\n";
    const std::string none = "エラーはありません。\r\n";
    const struct {
        int drawing, picture, faulty;
        std::string list;
    } kRows[] = {
        {0, 0, 3, three + forty + "エラーアイテム数 : 3\r\n"},
        {0, 3, 2, three + "エラーアイテム数 : 2\r\n"},
        {0, 41, 0, none},
        {2, 0, 2, three + "エラーアイテム数 : 2\r\n"},
        {99, 0, 0, none},
    };
    LoadModel();
    const auto file = home / L"DXF_Interface.lis";
    EXPECT_EQ(3, SxfModelCheck(3, false, 0, 0));
    EXPECT_FALSE(std::filesystem::exists(file));
    for (const auto& row : kRows) {
        EXPECT_EQ(row.faulty, SxfModelCheck(3, true, row.drawing, row.picture));
        EXPECT_EQ(row.list, BytesOf(file));
    }
}

TEST_F(ModelTest, ChoosersGiveTheNumberOfTheChosenRow) {
    LoadModel();
    bool flags[256] = {};
    flags[0] = flags[39] = flags[255] = true;
    int chosen[256] = {}, count = -1;
    const std::function<int()> pictures = [&] { return PicLstDlg(5, 1, owner, nullptr); };
    const std::function<int()> flagged = [&] { return PicLstDlg(5, 1, owner, flags); };
    const std::function<int()> layouts = [&] { return DrwLstDlg(5, 1, owner, nullptr, nullptr); };
    const std::function<int()> several = [&] { return DrwLstDlg(5, 1, owner, chosen, &count); };
    const auto press = [](std::vector<WORD> keys) {
        return [=](const Grid&) {
            for (const WORD key : keys) Key(key);
        };
    };
    const auto down = [](const Grid&) { KeyHolding(VK_SHIFT, VK_DOWN), Key(VK_RETURN); };
    const struct {
        const std::function<int()>& call;
        std::vector<std::wstring> first;
        std::function<void(const Grid&)> user;
        int chosen;
    } kRows[] = {
        {pictures, {L"3", L"1/4", L"4"}, press({VK_RETURN}), 3},
        {pictures, {L"3", L"1/4", L"4"}, press({VK_DOWN, VK_ESCAPE}), 0},
        {pictures, {L"3", L"1/4", L"4"}, [](const Grid& list) { list.DoubleClick(1, 1); }, 40},
        {flagged, {L"1", L"1/2", L"0"}, press({VK_END, VK_RETURN}), 256},
        {layouts, {L"2", L"側面図①", L"8"}, press({VK_DOWN, VK_TAB, VK_SPACE}), 7},
        {layouts, {L"2", L"側面図①", L"8"}, press({VK_TAB, VK_TAB, VK_SPACE}), 0},
        {layouts, {L"2", L"側面図①", L"8"}, down, 7},
        {several, {L"2", L"側面図①", L"8"}, down, 2},
    };
    for (const auto& row : kRows) {
        EXPECT_EQ(row.chosen, Drive(row.call, [&] {
                      const Grid list(Settle(), kChooserList);
                      EXPECT_FALSE(IsWindowEnabled(owner));
                      EXPECT_EQ(row.first, (std::vector{list.Cell(0, 0), list.Cell(0, 1), list.Cell(0, 2)}));
                      row.user(list);
                  }));
    }
    EXPECT_EQ((std::vector{2, 2, 7}), (std::vector{count, chosen[0], chosen[1]}));
}

TEST_F(ModelTest, ChooserStartsAtTheCurrentPictureAndConfirmsOnlyAChoice) {
    ASSERT_EQ("", Load(u8R"({"currentPicture": 2, "pictures": [{"number": 1, "itemCount": 5},
                                                               {"number": 2, "itemCount": 6}]})"));
    const auto user = [] {
        const HWND dialog = Settle();
        const Grid list(dialog, kChooserList);
        EXPECT_TRUE(list.IsSelected(1));
        LVITEMW none{};
        none.stateMask = LVIS_SELECTED;
        Send(list.List(), LVM_SETITEMSTATE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&none));
        EXPECT_FALSE(IsEnabled(dialog, IDOK));
        Key(VK_RETURN);
        EXPECT_EQ(dialog, Settle());
        Key(VK_UP);
        Key(VK_RETURN);
    };
    EXPECT_EQ(1, Drive([&] { return PicLstDlg(5, 1, owner, nullptr); }, user));
    const auto quitter = [] {
        const HWND dialog = Settle();
        EXPECT_EQ(L"図面配置がありません。", Text(dialog, kChooserPrompt));
        EXPECT_FALSE(IsEnabled(dialog, IDOK));
        EXPECT_EQ(IDCANCEL, FocusId());
        PostThreadMessageW(UiThread(), WM_QUIT, 0, 0);
    };
    EXPECT_EQ(0, Drive([&] { return DrwLstDlg(5, 1, owner, nullptr, nullptr); }, quitter));
}
