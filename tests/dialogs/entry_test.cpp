// The exports: frame, prompts, boxes, and what is restored when they return.
#include <windows.h>
// (after windows.h, which it needs)
#include <commctrl.h>

#include "tests/dialogs/TestHost.h"

using namespace kiro::drive;

namespace {

class Entry : public TestHost {
  protected:
    // Runs a command; its prompt is answered, if there is one, and a dialog that follows is cancelled.
    struct Seen {
        bool result = true;
        Box prompt;
        std::wstring dialogTitle;
    };
    Seen Run(const std::function<bool()>& call, int answer = IDYES) {
        Seen seen;
        seen.result = Drive(call, [&] {
            HWND window = Settle();
            if (window && IsBox(window)) {
                seen.prompt = ReadBox();
                Answer(seen.prompt, seen.prompt.buttons.size() == 1 ? IDOK : answer);
                window = Settle();
            }
            if (!window) return;
            seen.dialogTitle = Text(window);
            EXPECT_EQ(owner, GetWindow(window, GW_OWNER));
            EXPECT_FALSE(IsWindowEnabled(owner));
            EXPECT_NEAR(Centre(owner).x, Centre(window).x, 1);
            Click(window, IDCANCEL);
        });
        EXPECT_TRUE(IsWindowEnabled(owner));
        return seen;
    }
    // The prompt's caption; "": none. Its words and icons are in the golden text.
    void Expect(const std::function<bool()>& call, int state, const wchar_t* caption, const wchar_t* dialogTitle) {
        values[0] = state;
        const Seen seen = Run(call);
        EXPECT_EQ(caption, seen.prompt.caption) << state;
        EXPECT_EQ(dialogTitle, seen.dialogTitle) << state;
        EXPECT_FALSE(seen.result);
        if (seen.prompt.buttons.size() == 2) {
            EXPECT_EQ(L"", Run(call, IDNO).dialogTitle);
        }
    }
    std::int32_t values[257] = {};
};

constexpr wchar_t kDxf[] = L"ＤＸＦ書込み";
constexpr wchar_t kDwg[] = L"ＤＷＧ書込み";

}  // namespace

TEST_F(Entry, CommandIsModalToTheMainWindowAndReportsCancelled) {
    TARNAINFO record{};
    EXPECT_TRUE(Run([&] { return DxfOutputDlg(&record) == 1; }).result);
    KiroHostSetMainWindow(nullptr);
    EXPECT_FALSE(Drive([] { return DxfWarningDialog(1); }, [] { Click(Settle(), IDCANCEL); }));
}

TEST_F(Entry, LayerNamesAlwaysPrompt) {
    for (int mode = 0; mode < 4; ++mode) {
        const auto call = [&] { return DxfLayerNameDialog(mode, values); };
        const wchar_t* caption = mode < 2 ? kDxf : kDwg;
        Expect(call, 0, caption, L"レイヤ名");
        Expect(call, -1, caption, L"");
    }
}

TEST_F(Entry, LineTypesAndWidthsPromptByTheirState) {
    const std::pair<const wchar_t*, std::function<bool()>> commands[] = {
        {L"線種設定", [&] { return DxfLineTypeDialog(values); }},
        {L"線幅設定", [&] { return DxfLineWidthDialog(0, values); }},
    };
    for (const auto& [title, call] : commands) {
        Expect(call, 0, L"", title);
        Expect(call, 1, kDxf, title);
        Expect(call, 2, kDwg, title);
        Expect(call, -1, kDwg, L"");
    }
}

TEST_F(Entry, WarningsOfOtherKindsShowNothing) {
    EXPECT_EQ(L"警告", Run([] { return DxfWarningDialog(1); }).dialogTitle);
    for (const int kind : {0, 2, -1}) {
        const Seen seen = Run([&] { return DxfWarningDialog(kind); });
        EXPECT_FALSE(seen.result || seen.prompt.window);
        EXPECT_EQ(L"", seen.dialogTitle);
    }
}

TEST_F(Entry, MessageBoxesShowTheHostsText) {
    const auto box = [&](const std::function<void()>& call) {
        Box shown;
        Drive(call, [&] {
            shown = ReadBox();
            EXPECT_EQ(owner, GetWindow(shown.window, GW_OWNER));
            Answer(shown, IDOK);
        });
        return shown;
    };
    box([] { ErrorMessageBox(-1); });
    const std::string euc = "\xC9\xBD\xC7\xBD";  // 表能
    std::string longText = "x";
    std::wstring expected = L"x";  // 127 bytes: one, and 63 characters of two
    for (int i = 0; i < 100; ++i) longText += euc;
    while (expected.size() < 64) expected += expected.size() % 2 ? L"表" : L"能";
    const Box warning = box([&] { WarningMessageBox(longText.c_str(), euc.c_str()); });
    EXPECT_EQ(L"表能", warning.caption);
    EXPECT_EQ(expected, warning.text);
}

// This program has no manifest, as an old host has none: the dialogs bring their own style of controls, for the call
// alone.
TEST_F(Entry, BringsItsControlStyleForTheCallAlone) {
    Drive([&] { return DxfLineTypeDialog(values); },
          [&] {
              const HWND dialog = Settle();
              SIZE ideal{};  // known to current buttons only
              EXPECT_TRUE(Send(Control(dialog, IDCANCEL), BCM_GETIDEALSIZE, 0, reinterpret_cast<LPARAM>(&ideal)));
              Click(dialog, IDCANCEL);
          });
    HANDLE left = nullptr;
    GetCurrentActCtx(&left);
    EXPECT_EQ(nullptr, left);
}
