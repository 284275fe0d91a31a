// The workbench as a host programmer finds it: what it says at the start, its keys, and what it does with mistakes.
#include "Workbench.h"

#include <gtest/gtest.h>

#include <set>
#include <utility>
#include <vector>

#include "WorkbenchMenu.h"
#include "driver/GridDriver.h"
#include "driver/Picture.h"
#include "resources/catia/KrDxfPass.ids.h"

namespace kiro {
namespace {

using namespace drive;

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
    void SetRecord(const std::wstring& text) {
        SendMessageW(Control(workbench.Window(), Workbench::kFirstPane), WM_SETTEXT, 0,
                     reinterpret_cast<LPARAM>(text.c_str()));
    }
    // Presses the cancel button of the dialog that a command has opened, and gives its title.
    std::wstring Cancelled() {
        const HWND dialog = Settle();
        const std::wstring title = Text(dialog);
        Click(dialog, IDCANCEL);
        Until("the command returns", [&] { return IsWindowEnabled(workbench.Window()) != FALSE; });
        return title;
    }

    Workbench workbench;
};

bool Has(const std::wstring& text, const std::wstring& part) { return text.find(part) != std::wstring::npos; }

TEST_F(WorkbenchTest, SaysHowToGoOn) {
    Use([&] {
        EXPECT_TRUE(Has(Text(workbench.Window(), Workbench::kHint), L"F5"));
        EXPECT_TRUE(Has(Text(workbench.Window(), Workbench::kHint), L"DxfInputDlg"));
        EXPECT_TRUE(Has(Pane(Workbench::kBefore), L"\"inputFileName\": \"\""));
        EXPECT_FALSE(Pane(Workbench::kAfter).empty());
        // F5 calls what is shown, and calls it again.
        for (int i = 0; i < 2; ++i) {
            Key(VK_F5);
            EXPECT_EQ(L"ＤＸＦ読込み", Cancelled());
            EXPECT_TRUE(Has(Pane(Workbench::kAfter), L"戻り値: 1（取消）"));
            EXPECT_TRUE(Has(Pane(Workbench::kMessages), L"ダイアログ［ＤＸＦ読込み］"));
        }
    });
}

TEST_F(WorkbenchTest, KeepsTheRecordOfEachCommand) {
    Use([&] {
        SetRecord(L"{\"inputIsDwg\": 1}");
        KeyHolding(VK_CONTROL, '3');
        EXPECT_EQ(L"パスワード入力", Cancelled());
        EXPECT_TRUE(Has(Text(workbench.Window(), Workbench::kHint), L"DxfInputPass"));
        KeyHolding(VK_CONTROL, '1');
        EXPECT_EQ(L"ＤＷＧ読込み", Cancelled());
        EXPECT_EQ(L"{\"inputIsDwg\": 1}", Pane(Workbench::kBefore));
    });
}

TEST_F(WorkbenchTest, PointsAtWhatItCannotRead) {
    Use([&] {
        SetRecord(L"{\"subModelName\": \"表\",\r\n  \"scale\": x}");
        Key(VK_F5);
        Box box = ReadBox();
        EXPECT_TRUE(Has(box.text, L"2 行目"));
        Answer(box, IDOK);
        DWORD start = 0;
        SendMessageW(Control(workbench.Window(), Workbench::kFirstPane), EM_GETSEL, reinterpret_cast<WPARAM>(&start),
                     0);
        EXPECT_EQ(L'x', Pane(Workbench::kBefore)[start]);
        SetRecord(L"{\"scales\": 1}");
        Key(VK_F5);
        box = ReadBox();
        EXPECT_TRUE(Has(box.text, L"scales"));
        Answer(box, IDOK);
    });
}

TEST_F(WorkbenchTest, MovesThroughItsPanesAndComesBackFromADialog) {
    Use([&] {
        for (const int pane : {1, 2, 0, 1}) {
            Key(VK_F6);
            EXPECT_EQ(Workbench::kFirstPane + pane, FocusId());
        }
        KeyHolding(VK_CONTROL, 'A');
        DWORD start = 1, end = 0;
        SendMessageW(FocusWindow(), EM_GETSEL, reinterpret_cast<WPARAM>(&start), reinterpret_cast<LPARAM>(&end));
        EXPECT_EQ(std::pair(DWORD{0}, static_cast<DWORD>(Pane(1).size())), std::pair(start, end));
        KeyHolding(VK_CONTROL, '1');
        Cancelled();
        EXPECT_EQ(Workbench::kFirstPane + 1, FocusId());
    });
}

// A second command while the first one's dialog is open would be against the library's rules.
TEST_F(WorkbenchTest, CallsOneCommandAtATime) {
    Use([&] {
        Key(VK_F5);
        const HWND dialog = Settle();
        PostMessageW(workbench.Window(), WM_COMMAND, kFirstCommand + 2, 0);
        PostMessageW(workbench.Window(), WM_COMMAND, kCallAgain, 0);
        Sync();
        EXPECT_EQ(dialog, Settle());
        Cancelled();
        EXPECT_TRUE(Has(Text(workbench.Window(), Workbench::kHint), L"DxfInputDlg"));
    });
}

TEST(WorkbenchMenuTest, EveryExportHasAKeyOfItsOwn) {
    const HACCEL keys = MakeKeys();
    std::vector<ACCEL> table(static_cast<std::size_t>(CopyAcceleratorTableW(keys, nullptr, 0)));
    CopyAcceleratorTableW(keys, table.data(), static_cast<int>(table.size()));
    DestroyAcceleratorTable(keys);
    std::set<std::pair<int, int>> pressed;
    std::set<int> items;
    for (const ACCEL& key : table) {
        EXPECT_TRUE(pressed.emplace(key.fVirt, key.key).second) << key.cmd;
        items.insert(key.cmd);
    }
    const HMENU bar = MakeMenu();
    const HMENU commands = GetSubMenu(bar, 1);
    ASSERT_EQ(static_cast<int>(Exports().size()), GetMenuItemCount(commands));
    std::set<wchar_t> mnemonics;
    for (int i = 0; i < GetMenuItemCount(commands); ++i) {
        EXPECT_TRUE(items.contains(static_cast<int>(GetMenuItemID(commands, static_cast<UINT>(i)))));
        wchar_t text[128] = L"";
        GetMenuStringW(commands, static_cast<UINT>(i), text, 128, MF_BYPOSITION);
        EXPECT_TRUE(Has(text, WideFromUtf8(Exports()[static_cast<std::size_t>(i)].name)));
        mnemonics.insert(text[1]);
    }
    EXPECT_EQ(Exports().size(), mnemonics.size());
    DestroyMenu(bar);
}

// Whatever the size, nothing lies over anything else or outside; of a usual size everything is there.
TEST(PaneLayoutTest, FitsEverySize) {
    for (int width = 0; width < 1000; width += 37) {
        for (int height = 0; height < 700; height += 23) {
            const PaneLayout layout = LayOut({width, height}, 34, 17);
            std::vector<RECT> all = {layout.strip};
            all.insert(all.end(), layout.captions.begin(), layout.captions.end());
            all.insert(all.end(), layout.panes.begin(), layout.panes.end());
            for (std::size_t i = 0; i < all.size(); ++i) {
                const RECT& one = all[i];
                EXPECT_TRUE(one.left >= 0 && one.top >= 0 && one.right <= width && one.bottom <= height);
                EXPECT_TRUE(one.left <= one.right && one.top <= one.bottom) << width << " x " << height;
                if (width >= 400 && height >= 250) {
                    EXPECT_FALSE(IsRectEmpty(&one)) << i << " of " << width << " x " << height;
                }
                RECT both;
                for (std::size_t j = 0; j < i; ++j) {
                    EXPECT_FALSE(IntersectRect(&both, &one, &all[j])) << i << ", " << j;
                }
            }
        }
    }
}

// Not a test: --gtest_also_run_disabled_tests --gtest_filter=*Pictures paints the window into the current folder.
TEST_F(WorkbenchTest, DISABLED_Pictures) {
    Use([&] {
        Picture(workbench.Window(), "workbench-start.png");
        KeyHolding(VK_CONTROL, '3');
        Cancelled();
        SetRecord(L"{\r\n  \"record\": {\r\n    \"inputFileName\": \"C:/図面/平面図.dwg\"\r\n  }\r\n}");
        Key(VK_F5);
        const HWND dialog = Settle();
        Click(dialog, IDOK);
        Type(dialog, kPasswordEdit, L"himitsu");
        Click(dialog, IDOK);
        Until("the command returns", [&] { return IsWindowEnabled(workbench.Window()) != FALSE; });
        Picture(workbench.Window(), "workbench.png");
        SetWindowPos(workbench.Window(), nullptr, 0, 0, 1, 1, SWP_NOMOVE | SWP_NOZORDER);
        Sync();
        Picture(workbench.Window(), "workbench-small.png");
    });
}

}  // namespace
}  // namespace kiro
