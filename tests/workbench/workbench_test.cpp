// The workbench as a host programmer finds it: what it says at the start, its keys, and what it does with mistakes.
#include "Workbench.h"

#include <gtest/gtest.h>

#include <set>
#include <utility>

#include "HostCalls.h"
#include "WorkbenchMenu.h"
#include "driver/GridDriver.h"
#include "driver/Picture.h"
#include "entry/host/kirodxf.h"
#include "resources/catia/KrDxfPass.ids.h"

namespace kiro {
namespace {

using namespace drive;

// Of the text that is there and the part that is looked for, on a failure.
#define EXPECT_HAS(text, part) EXPECT_NE(std::wstring::npos, (text).find(part)) << testing::PrintToString(text)

class WorkbenchTest : public testing::Test {
  protected:
    // The workbench's own loop runs; it is closed when the user function is through.
    void Use(const std::function<void()>& user) {
        Drive([&] { workbench.Run(); },
              [&] {
                  user();
                  PostMessageW(workbench.Window(), WM_COMMAND, kQuit, 0);
                  Sync();
              });
    }
    std::wstring Pane(int pane) { return Text(workbench.Window(), Workbench::kFirstPane + pane); }
    std::wstring Hint() { return Text(workbench.Window(), Workbench::kHint); }
    void SetRecord(const std::wstring& text) {
        Send(Control(workbench.Window(), Workbench::kFirstPane), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
    }
    std::pair<DWORD, DWORD> Selection() {
        DWORD start = 0, end = 0;
        Send(FocusWindow(), EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
        return {start, end};
    }
    void AwaitReturn() {
        Until("the command returns", [&] { return IsWindowEnabled(workbench.Window()) != FALSE; });
    }
    // Presses the cancel button of the dialog that a command has opened, and gives its title.
    std::wstring Cancelled() {
        const HWND dialog = Settle();
        const std::wstring title = Text(dialog);
        Click(dialog, IDCANCEL);
        AwaitReturn();
        return title;
    }
    // Calls with a record that it cannot take, and gives what it says.
    std::wstring Refusal(const std::wstring& record) {
        SetRecord(record);
        Key(VK_F5);
        const Box box = ReadBox();
        Answer(box, IDOK);
        return box.text;
    }

    Workbench workbench;
};

TEST_F(WorkbenchTest, CallsWhatIsShownAndSaysHowToGoOn) {
    Use([&] {
        EXPECT_HAS(Hint(), L"F5");
        EXPECT_HAS(Hint(), L"DxfInputDlg");
        EXPECT_HAS(Pane(Workbench::kBefore), L"\"inputFileName\": \"\"");
        EXPECT_FALSE(Pane(Workbench::kAfter).empty());
        for (int i = 0; i < 2; ++i) {
            Key(VK_F5);
            const HWND dialog = Settle();
            // A second command while this one's dialog is open would be against the library's rules.
            PostMessageW(workbench.Window(), WM_COMMAND, kFirstCommand + 2, 0);
            PostMessageW(workbench.Window(), WM_COMMAND, kCallAgain, 0);
            Sync();
            EXPECT_EQ(dialog, Settle());
            EXPECT_EQ(L"ＤＸＦ読込み", Cancelled());
            EXPECT_HAS(Hint(), L"DxfInputDlg");
            EXPECT_HAS(Pane(Workbench::kAfter), L"戻り値: 1（取消）");
            EXPECT_HAS(Pane(Workbench::kMessages), L"ダイアログ［ＤＸＦ読込み］");
        }
    });
}

TEST(CallTest, AnswersWithTheModelAndTakesItsOwnAnswer) {
    Json answer = {{"record", Json::object()}};
    KiroHostSetModified(true);
    for (int i = 0; i < 2; ++i) {
        answer = Drive([&] { return CallExport(*FindExport("DxfInputPass"), answer).json; },
                       [] { Click(Settle(), IDCANCEL); });
        EXPECT_EQ(true, answer["model"]["modified"]);
        EXPECT_EQ(Json::array(), answer["calls"]);
    }
    KiroHostSetModified(false);
}

TEST_F(WorkbenchTest, KeepsTheRecordOfEachCommand) {
    Use([&] {
        SetRecord(L"{\"inputIsDwg\": 1}");
        KeyHolding(VK_CONTROL, '3');
        EXPECT_EQ(L"パスワード入力", Cancelled());
        EXPECT_HAS(Hint(), L"DxfInputPass");
        KeyHolding(VK_CONTROL, '1');
        EXPECT_EQ(L"ＤＷＧ読込み", Cancelled());
        EXPECT_EQ(L"{\"inputIsDwg\": 1}", Pane(Workbench::kBefore));
    });
}

TEST_F(WorkbenchTest, PointsAtWhatItCannotRead) {
    Use([&] {
        EXPECT_HAS(Refusal(L"{\"subModelName\": \"表\",\r\n  \"scale\": x}"), L"2 行目");
        EXPECT_EQ(L'x', Pane(Workbench::kBefore)[Selection().first]);
        EXPECT_HAS(Refusal(L"{\"scales\": 1}"), L"scales");
    });
}

TEST_F(WorkbenchTest, MovesThroughItsPanesAndComesBackFromADialog) {
    Use([&] {
        for (const int pane : {1, 2, 0, 1}) {
            Key(VK_F6);
            EXPECT_EQ(Workbench::kFirstPane + pane, FocusId());
        }
        KeyHolding(VK_CONTROL, 'A');
        EXPECT_EQ(std::pair(DWORD{0}, static_cast<DWORD>(Pane(1).size())), Selection());
        KeyHolding(VK_CONTROL, '1');
        Cancelled();
        EXPECT_EQ(Workbench::kFirstPane + 1, FocusId());
    });
}

TEST(HostCallsTest, TellsInOrderWhatTheHostWasMadeToDo) {
    DxfOutParamBlock params{};
    params.curveDivision = 20;
    std::memcpy(params.symbolBlock, "\x95\x5C", 2);
    const HostCalls calls;
    setdxfotparam(&params);
    setdxfotparam(nullptr);
    setdxfottblnam("C:/\xC9\xBD");
    SxfModelCheck(3, false, 0, 2);
    DxfOutFloppy(true, "A:/a.dxf", 1, 0);
    Json list = calls.List();
    EXPECT_EQ(20, list[0]["arguments"]["params"]["curveDivision"]);
    EXPECT_EQ("\xE8\xA1\xA8", list[0]["arguments"]["params"]["symbolBlock"]);
    list.erase(0);
    EXPECT_EQ(Json::parse(u8R"([
            {"name": "setdxfotparam", "arguments": {"params": null}},
            {"name": "setdxfottblnam", "arguments": {"name": "C:/表"}},
            {"name": "SxfModelCheck", "arguments": {"kind": 3, "report": false, "drawing": 0, "picture": 2}, "returned": 0},
            {"name": "DxfOutFloppy", "arguments": {"floppy": true, "path": "A:/a.dxf", "drawing": 1, "picture": 0},
             "returned": -84}])"),
              list);
}

TEST(WorkbenchMenuTest, EveryExportHasAKeyOfItsOwn) {
    const HACCEL keys = MakeKeys();
    ACCEL table[64];
    const int count = CopyAcceleratorTableW(keys, table, 64);
    DestroyAcceleratorTable(keys);
    std::set<std::pair<int, int>> pressed;
    std::set<UINT> items;
    for (int i = 0; i < count; ++i) {
        EXPECT_TRUE(pressed.emplace(table[i].fVirt, table[i].key).second) << table[i].cmd;
        items.insert(table[i].cmd);
    }
    const HMENU bar = MakeMenu();
    const HMENU commands = GetSubMenu(bar, 1);
    std::set<wchar_t> mnemonics;
    UINT place = 0;
    for (const Export& command : Exports()) {
        EXPECT_TRUE(items.contains(GetMenuItemID(commands, static_cast<int>(place)))) << command.name;
        wchar_t text[128] = L"";
        GetMenuStringW(commands, place++, text, 128, MF_BYPOSITION);
        EXPECT_HAS(std::wstring(text), WideFromUtf8(command.name));
        EXPECT_TRUE(mnemonics.insert(text[1]).second) << command.name;
    }
    EXPECT_EQ(static_cast<int>(place), GetMenuItemCount(commands));
    DestroyMenu(bar);
}

// Whatever the size, nothing lies over anything else or outside; of a usual size everything is there.
TEST(PaneLayoutTest, FitsEverySize) {
    for (int width = 0; width < 1000; width += 37)
        for (int height = 0; height < 700; height += 23) {
            SCOPED_TRACE(testing::Message() << width << " x " << height);
            const PaneLayout layout = LayOut({width, height}, 34, 17);
            std::vector<RECT> all = {layout.strip};
            all.insert(all.end(), layout.captions.begin(), layout.captions.end());
            all.insert(all.end(), layout.panes.begin(), layout.panes.end());
            for (std::size_t i = 0; i < all.size(); ++i) {
                const RECT& one = all[i];
                EXPECT_TRUE(one.left >= 0 && one.top >= 0 && one.right <= width && one.bottom <= height) << i;
                EXPECT_TRUE(one.left <= one.right && one.top <= one.bottom) << i;
                EXPECT_FALSE(width >= 400 && height >= 250 && IsRectEmpty(&one)) << i;
                RECT both;
                for (std::size_t j = 0; j < i; ++j) EXPECT_FALSE(IntersectRect(&both, &one, &all[j])) << i << ", " << j;
            }
        }
}

// Not a test: --gtest_also_run_disabled_tests --gtest_filter=*Picture paints the window for docs/pictures.
TEST_F(WorkbenchTest, DISABLED_Picture) {
    Use([&] {
        KeyHolding(VK_CONTROL, '3');
        Cancelled();
        SetRecord(L"{\r\n  \"record\": {\r\n    \"inputFileName\": \"C:/図面/平面図.dwg\"\r\n  }\r\n}");
        Key(VK_F5);
        const HWND dialog = Settle();
        Click(dialog, IDOK);
        Type(dialog, kPasswordEdit, L"himitsu");
        Click(dialog, IDOK);
        AwaitReturn();
        Picture(workbench.Window(), "workbench.png");
    });
}

}  // namespace
}  // namespace kiro
