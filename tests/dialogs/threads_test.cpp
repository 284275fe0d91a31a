// A host that calls a command on a second thread, with its own message loop, while another one is open on the first.
#include <atomic>
#include <memory>
#include <thread>

#include "resources/dxfin/KrDxfIn.ids.h"
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
