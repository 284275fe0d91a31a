// The operator itself: a test that goes wrong has to end, and to say what went wrong.
#include "driver/Driver.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "driver/Leaks.h"
#include "driver/Picture.h"
#include "driver/State.h"

namespace kiro::drive {
namespace {

int Ask(UINT type = MB_YESNO | MB_ICONWARNING | MB_DEFBUTTON2) {
    return MessageBoxW(nullptr, L"よろしいですか。", L"確認", type);
}

// The message of the Failure with which a run ends.
std::string FailureOf(const std::function<void()>& call, const std::function<void()>& user) {
    try {
        Drive(call, user);
    } catch (const Failure& failure) {
        return failure.what();
    }
    return "none";
}

TEST(DriverTest, EndsTheCallWhenTheUserFails) {
    int returned = 0;
    const auto ask = [&] { returned = Ask(); };
    EXPECT_EQ("on purpose", FailureOf(ask, [] { throw Failure("on purpose"); }));
    EXPECT_EQ(IDNO, returned);
    EXPECT_EQ("the user left a dialog open", FailureOf(ask, [] { Settle(); }));
    EXPECT_EQ("there is no control 4711 in the dialog", FailureOf(ask, [] { Click(Settle(), 4711); }));
    EXPECT_EQ("clicking: control 7 is disabled or hidden", FailureOf(ask, [] {
                  EnableWindow(Control(Settle(), IDNO), FALSE);
                  Click(Settle(), IDNO);
              }));
    EXPECT_EQ("a message box was expected, but the call has returned", FailureOf([] {}, [] { ReadBox(); }));
    EXPECT_EQ("the call returned before this happened: a miracle",
              FailureOf([] {}, [] { Until("a miracle", [] { return false; }); }));
}

// A menu or a moved window has a loop of its own inside the call, in which the box may be closed.
TEST(DriverTest, EndsTheLoopsOfTheSystem) {
    for (const WPARAM command : {SC_MOVE, SC_KEYMENU}) {
        for (const bool closed : {false, true}) {
            EXPECT_EQ(IDNO, Drive([] { return Ask(); },
                                  [&] {
                                      const HWND box = Settle();
                                      PostMessageW(box, WM_SYSCOMMAND, command, command == SC_KEYMENU ? L' ' : 0);
                                      Until("the loop",
                                            [] { return (GuiState().flags & (GUI_INMOVESIZE | GUI_INMENUMODE)) != 0; });
                                      if (closed) PostMessageW(box, WM_COMMAND, IDNO, 0);
                                      CancelEverything();
                                  }));
        }
    }
}

// A window procedure that the system calls, and that waits inside.
HANDLE entered = nullptr;
HANDLE released = nullptr;
LRESULT CALLBACK WaitInside(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_APP) return DefWindowProcW(window, message, wParam, lParam);
    SignalObjectAndWait(entered, released, kPatience, FALSE);
    return 0;
}

TEST(DriverTest, TellsWhereACallStands) {
    entered = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    released = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    for (const bool inCallback : {false, true}) {
        HWND waiting = nullptr;
        std::string state;
        Drive(
            [&] {
                waiting = CreateWindowW(L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
                SetWindowLongPtrW(waiting, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&WaitInside));
                const int answer = Ask();
                DestroyWindow(waiting);
                return answer;
            },
            [&] {
                const Box box = ReadBox();
                if (inCallback) {
                    SendNotifyMessageW(waiting, WM_APP, 0, 0);
                    EXPECT_EQ(WAIT_OBJECT_0, WaitForSingleObject(entered, kPatience));
                }
                state = StateOf(UiThread());
                if (inCallback) SetEvent(released);
                Answer(box, IDNO);
            });
        EXPECT_NE(std::string::npos, state.find("#32770 \"\xE7\xA2\xBA\xE8\xAA\x8D\", visible, enabled")) << state;
        const std::size_t system = state.find("at user32.dll+");
        ASSERT_NE(std::string::npos, system) << state;
        EXPECT_NE(std::string::npos, state.find("at driver_test.exe+", system)) << state;
    }
    CloseHandle(entered);
    CloseHandle(released);
}

TEST(DriverTest, WaitsForWhatMouseAndKeyboardSend) {
    EXPECT_EQ(IDYES, Drive([] { return Ask(); },
                           [] {
                               Settle();
                               PressKey(VK_TAB);
                               SyncInput();
                               PressKey(VK_RETURN);
                               SyncInput();
                           }));
}

TEST(DriverTest, PassesOnWhatTheCallThrows) {
    EXPECT_THROW(Drive([] { throw std::out_of_range("call"); }, [] {}), std::out_of_range);
}

TEST(DriverTest, PaintsABoxAsPng) {
    const auto png =
        std::filesystem::temp_directory_path() / (L"確認" + std::to_wstring(GetCurrentProcessId()) + L".png");
    Drive([] { return Ask(); },
          [&] {
              const HWND box = Settle();
              Picture(box, png);
              Answer(ReadBox(), IDNO);
          });
    std::string start(8, '\0');
    std::ifstream(png, std::ios::binary).read(start.data(), 8);
    EXPECT_EQ("\x89PNG\r\n\x1A\n", start);
    EXPECT_GT(std::filesystem::file_size(png), 1000u);
    std::filesystem::remove(png);
    const std::string failure = FailureOf([] { Ask(); }, [&] { Picture(Settle(), png / L"x.png"); });
    EXPECT_TRUE(failure.starts_with("the picture cannot be written")) << failure;
}

TEST(DriverTest, SeesWhatIsHeld) {
    Drive([] { return Ask(); }, [] { Answer(ReadBox(), IDNO); });
    const Holdings before = CountHoldings();
    Drive([] { return Ask(); }, [] { Answer(ReadBox(), IDNO); });
    EXPECT_TRUE(before.SameObjects(CountHoldings()));
    const HWND window = CreateWindowExW(0, L"STATIC", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    const HPEN pen = CreatePen(PS_SOLID, 1, 0x123456);
    const HFONT font = CreateFontW(-9, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, L"x");
    const Holdings more = CountHoldings();
    EXPECT_EQ(before.windows + 1, more.windows);
    EXPECT_EQ(before.pens + 1, more.pens);
    EXPECT_EQ(before.fonts + 1, more.fonts);
    DeleteObject(font);
    DeleteObject(pen);
    DestroyWindow(window);
}

}  // namespace
}  // namespace kiro::drive
