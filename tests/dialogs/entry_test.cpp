// The exports: frame, prompts, boxes, and what is restored when they return.
#include <windows.h>
// (after windows.h, which it needs)
#include <psapi.h>

#include <algorithm>
#include <cwchar>

#include "tests/dialogs/TestHost.h"

using namespace kiro::drive;

namespace {

class Entry : public TestHost {
  protected:
    // A settings command over values: the prompt is answered, if there is one; a dialog that follows is cancelled.
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
                Answer(seen.prompt, answer);
                window = Settle();
            }
            if (!window) return;
            seen.dialogTitle = Text(window);
            EXPECT_EQ(owner, GetWindow(window, GW_OWNER));
            EXPECT_FALSE(IsWindowEnabled(owner));
            Click(window, IDCANCEL);
        });
        EXPECT_TRUE(IsWindowEnabled(owner));
        return seen;
    }
    struct Command {
        const wchar_t* dialogTitle;
        std::wstring missing;  // the first line of its prompts
        std::function<bool()> call;
    };
    void ExpectQuestion(const Command& command, int state, const wchar_t* caption) {
        values[0] = state;
        const Seen seen = Run(command.call);
        EXPECT_EQ(command.missing + L"\n設定しますか。", seen.prompt.text);
        EXPECT_EQ(caption, seen.prompt.caption);
        EXPECT_EQ(static_cast<UINT>(MB_ICONWARNING), seen.prompt.icon);
        EXPECT_EQ(command.dialogTitle, seen.dialogTitle);
        EXPECT_FALSE(seen.result);
        EXPECT_EQ(L"", Run(command.call, IDNO).dialogTitle);
    }
    void ExpectRefusal(const Command& command, const wchar_t* caption) {
        values[0] = -1;
        const Seen seen = Run(command.call, IDOK);
        EXPECT_EQ(command.missing + L"\n処理を中断します。", seen.prompt.text);
        EXPECT_EQ(caption, seen.prompt.caption);
        EXPECT_EQ(static_cast<UINT>(MB_ICONERROR), seen.prompt.icon);
        EXPECT_EQ(L"", seen.dialogTitle);
        EXPECT_FALSE(seen.result);
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
    for (const auto& [mode, caption] :
         {std::pair(0, kDxf), std::pair(1, kDxf), std::pair(2, kDwg), std::pair(3, kDwg)}) {
        const auto call = [&, chosen = mode] { return DxfLayerNameDialog(chosen, values); };
        const Command command{L"レイヤ名", L"レイヤ名が設定されていません。", call};
        ExpectQuestion(command, 0, caption);
        ExpectRefusal(command, caption);
    }
}

TEST_F(Entry, LineTypesAndWidthsPromptByTheirState) {
    const Command commands[] = {
        {L"線種設定", L"線種名が設定されていません。", [&] { return DxfLineTypeDialog(values); }},
        {L"線幅設定", L"線幅が設定されていません。", [&] { return DxfLineWidthDialog(0, values); }},
    };
    for (const Command& command : commands) {
        values[0] = 0;
        const Seen seen = Run(command.call);
        EXPECT_EQ(nullptr, seen.prompt.window);
        EXPECT_EQ(command.dialogTitle, seen.dialogTitle);
        ExpectQuestion(command, 1, kDxf);
        ExpectQuestion(command, 2, kDwg);
        ExpectRefusal(command, kDwg);
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
    const Box error = box([] { ErrorMessageBox(-1); });
    EXPECT_EQ(L" ", error.caption);
    EXPECT_FALSE(error.text.empty());
    const std::string euc = "\xC9\xBD\xC7\xBD";  // 表能
    std::string longText = "x";
    std::wstring expected = L"x";  // 127 bytes: one, and 63 characters of two
    for (int i = 0; i < 100; ++i) longText += euc;
    while (expected.size() < 64) expected += expected.size() % 2 ? L"表" : L"能";
    const Box warning = box([&] { WarningMessageBox(longText.c_str(), euc.c_str()); });
    EXPECT_EQ(L"表能", warning.caption);
    EXPECT_EQ(expected, warning.text);
    box([] { WarningMessageBox("", ""); });
}

// This program has no manifest, as an old host has none: the dialogs bring their own style of controls, for the call
// alone.
TEST_F(Entry, BringsItsControlStyleForTheCallAlone) {
    const auto current = [] {
        HANDLE context = nullptr;
        GetCurrentActCtx(&context);
        if (context) ReleaseActCtx(context);
        return context;
    };
    const auto hasCurrentControls = [] {
        HMODULE modules[512];
        DWORD bytes = 0;
        EnumProcessModules(GetCurrentProcess(), modules, sizeof modules, &bytes);
        return std::any_of(modules, modules + bytes / sizeof(HMODULE), [](HMODULE module) {
            wchar_t path[MAX_PATH] = L"";
            GetModuleFileNameW(module, path, MAX_PATH);
            return std::wcsstr(path, L"common-controls_6595b64144ccf1df_6.0") != nullptr;
        });
    };
    const HANDLE before = current();
    Drive([&] { return DxfLineTypeDialog(values); },
          [&] {
              const HWND dialog = Settle();
              EXPECT_TRUE(hasCurrentControls());
              Click(dialog, IDCANCEL);
          });
    EXPECT_EQ(before, current());
}
