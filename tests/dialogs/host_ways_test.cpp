// What a host may do while a command's dialogs are open: end its message loop, destroy its window, or call a command on
// another thread, with a message loop of its own.
#include <atomic>
#include <thread>

#include "resources/catia/KrDxfPass.ids.h"
#include "resources/dxfin/KrDxfIn.ids.h"
#include "resources/dxfin/KrDxfInAttr.ids.h"
#include "tests/dialogs/TestHost.h"

using namespace kiro::drive;

namespace {

// A command on a thread of its own. The driver plays the user of one thread only, so this one's windows are asked here.
class SecondCommand {
  public:
    SecondCommand()
        : thread_([this] {
              SetThreadDesktop(PrivateDesktop());
              id_ = GetCurrentThreadId();
              DxfInputDlg(&record_.info);
              ended_ = true;
          }) {}
    ~SecondCommand() {
        Wait([this] {
            if (const HWND dialog = Innermost()) PostMessageW(dialog, WM_COMMAND, IDCANCEL, 0);
            return ended_.load();
        });
        thread_.join();
    }

    // The dialog that takes the user's input, once it is another one than this.
    HWND DialogAfter(HWND other) const {
        Wait([&] { return Innermost() && Innermost() != other; });
        return Innermost();
    }
    bool Ended() const { return ended_; }

  private:
    template <class Condition>
    static void Wait(Condition condition) {
        for (const ULONGLONG start = GetTickCount64(); !condition() && GetTickCount64() - start < kPatience;) Sleep(1);
    }
    HWND Innermost() const {
        if (id_ == 0) return nullptr;  // that would mean all threads
        HWND found = nullptr;
        EnumThreadWindows(
            id_,
            [](HWND window, LPARAM out) -> BOOL {
                const auto style = static_cast<DWORD>(GetWindowLongW(window, GWL_STYLE));
                const bool open = (style & (WS_VISIBLE | WS_DISABLED | WS_CAPTION)) == (WS_VISIBLE | WS_CAPTION);
                if (open) *reinterpret_cast<HWND*>(out) = window;
                return !open;
            },
            reinterpret_cast<LPARAM>(&found));
        return found;
    }

    ImportRecord record_;
    std::atomic<DWORD> id_{0};
    std::atomic<bool> ended_{false};
    std::thread thread_;
};

}  // namespace

// Nothing is confirmed, and the quit is there for the host's own loop.
TEST_F(TestHost, AQuitOrTheEndOfTheWindowCancelsEveryCommand) {
    ImportRecord record;
    const ImportRecord before = record;
    std::int32_t lineTypes[64] = {};
    const struct {
        std::function<int()> call;  // not 0: cancelled
        std::function<void(HWND)> user;
    } commands[] = {
        {[&] { return DxfInputDlg(&record.info); }, [](HWND dialog) { Click(dialog, kAddRadio); }},
        {[&] { return DxfInputDlg(&record.info); },
         [](HWND dialog) {
             Click(dialog, kAttributesButton);
             Click(Settle(), kLayerNamesCheck);  // is not confirmed
         }},
        {[&] { return DxfInputPass(&record.info); }, [](HWND dialog) { TypeKeys(dialog, kPasswordEdit, L"secret"); }},
        {[] { return DxfWarningDialog(1) ? 0 : 1; }, [](HWND) {}},
        {[&] { return DxfLineTypeDialog(lineTypes) ? 0 : 1; }, [](HWND) {}},
    };
    for (const auto& command : commands) {
        for (const bool quit : {true, false}) {
            int code = 0;
            EXPECT_NE(0, Drive(
                             [&] {
                                 const int result = command.call();
                                 MSG message;
                                 while (quit && GetMessageW(&message, nullptr, 0, 0) > 0) continue;
                                 if (quit) code = static_cast<int>(message.wParam);
                                 return result;
                             },
                             [&] {
                                 command.user(Settle());
                                 if (quit)
                                     PostThreadMessageW(UiThread(), WM_QUIT, 77, 0);
                                 else
                                     PostMessageW(owner, WM_CLOSE, 0, 0);
                                 Until("the end", [] { return Settle() == nullptr; });
                             }));
            EXPECT_EQ(quit ? 77 : 0, code);
            EXPECT_TRUE(before == record);
            if (!quit) MakeMainWindow();
            EXPECT_TRUE(IsWindowEnabled(owner));
        }
    }
}

TEST_F(TestHost, TheEndOfACommandLeavesThatOfAnotherThreadAlone) {
    ImportRecord record;
    std::unique_ptr<SecondCommand> second;
    HWND importDialog = nullptr;
    EXPECT_EQ(1, Drive([&] { return DxfInputPass(&record.info); },
                       [&] {
                           const HWND dialog = Settle();
                           KiroHostSetMainWindow(nullptr);  // it is the first thread's
                           second = std::make_unique<SecondCommand>();
                           importDialog = second->DialogAfter(nullptr);
                           Click(dialog, IDCANCEL);
                       }));
    ASSERT_FALSE(second->Ended());
    PostMessageW(GetDlgItem(importDialog, kParametersButton), BM_CLICK, 0, 0);
    EXPECT_NE(importDialog, second->DialogAfter(importDialog)) << "the parameters do not open";
}
