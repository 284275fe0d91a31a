// The fourteen exports: frame, prompts, boxes, and what is restored when they return.
#include <windows.h>
// (after windows.h, which it needs)
#include <psapi.h>

#include <algorithm>
#include <cwchar>
#include <memory>

#include "tests/dialogs/TestHost.h"

using namespace kiro::drive;

namespace {

class Entry : public TestHost {
  protected:
    // Runs a settings command. The prompt is answered; a dialog that follows is cancelled and its title returned.
    struct Seen {
        bool result = true;
        bool prompted = false;
        Box prompt;
        std::wstring dialogTitle;
    };
    Seen RunSettings(const std::function<bool()>& call, int answer) {
        Seen seen;
        seen.result = Drive(call, [&] {
            HWND window = Settle();
            if (window && IsBox(window)) {
                seen.prompted = true;
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
    std::int32_t values[257] = {};
};

constexpr wchar_t kDxf[] = L"ＤＸＦ書込み";
constexpr wchar_t kDwg[] = L"ＤＷＧ書込み";

}  // namespace

TEST_F(Entry, CommandsShowTheirFrameAndReportCancelled) {
    auto record = std::make_unique<TARNAINFO>();
    CATIAINFO catia{};
    const struct {
        const wchar_t* title;
        std::function<int()> call;
    } commands[] = {
        {L"ＤＸＦ書込み", [&] { return DxfOutputDlg(record.get()); }},
        {L"Ｐｅｌｉｏｎ ＤＢ読込み", [&] { return PlInputDlg(record.get()); }},
        {L"Ｐｅｌｉｏｎ ＤＢ書込み", [&] { return PlOutputDlg(record.get()); }},
        {L"ＶＲ ＤＢ読込み（ＩＢＭ）", [&] { return VrInputDlg(record.get()); }},
        {L"Ｖａｒｏｓ ＤＢ書込み", [&] { return VrOutputDlg(record.get()); }},
        {L"ＣＡＴＩＡ読込み", [&] { return CatiaInputDlg(&catia); }},
    };
    for (const auto& command : commands) {
        EXPECT_EQ(1, Drive(command.call, [&] {
                      const HWND dialog = Settle();
                      EXPECT_EQ(command.title, Text(dialog));
                      EXPECT_EQ(owner, GetWindow(dialog, GW_OWNER));
                      EXPECT_FALSE(IsWindowEnabled(owner));
                      Key(VK_ESCAPE);
                  }));
        EXPECT_TRUE(IsWindowEnabled(owner));
    }
}

TEST_F(Entry, LayerNamesAlwaysPrompt) {
    const struct {
        int mode;
        const wchar_t* caption;
    } rows[] = {{0, kDxf}, {1, kDxf}, {2, kDwg}, {3, kDwg}};
    for (const auto& row : rows) {
        values[0] = 0;
        const auto ask = [&] { return DxfLayerNameDialog(row.mode, values); };
        Seen seen = RunSettings(ask, IDYES);
        EXPECT_EQ(L"レイヤ名が設定されていません。\n設定しますか。", seen.prompt.text);
        EXPECT_EQ(row.caption, seen.prompt.caption);
        EXPECT_EQ(static_cast<UINT>(MB_ICONWARNING), seen.prompt.icon);
        EXPECT_EQ(L"レイヤ名", seen.dialogTitle);
        EXPECT_FALSE(seen.result);
        EXPECT_EQ(L"", RunSettings(ask, IDNO).dialogTitle);
        values[0] = -1;
        seen = RunSettings(ask, IDOK);
        EXPECT_EQ(L"レイヤ名が設定されていません。\n処理を中断します。", seen.prompt.text);
        EXPECT_EQ(row.caption, seen.prompt.caption);
        EXPECT_EQ(static_cast<UINT>(MB_ICONERROR), seen.prompt.icon);
        EXPECT_EQ(L"", seen.dialogTitle);
        EXPECT_FALSE(seen.result);
    }
}

TEST_F(Entry, LineTypesAndWidthsPromptByTheirState) {
    const struct {
        const wchar_t* title;
        std::wstring text;
        std::function<bool()> call;
    } commands[] = {
        {L"線種設定", L"線種名が設定されていません。\n", [&] { return DxfLineTypeDialog(values); }},
        {L"線幅設定", L"線幅が設定されていません。\n", [&] { return DxfLineWidthDialog(0, values); }},
    };
    for (const auto& command : commands) {
        values[0] = 0;
        EXPECT_FALSE(RunSettings(command.call, IDYES).prompted);
        EXPECT_EQ(command.title, RunSettings(command.call, IDYES).dialogTitle);
        for (const auto& [state, caption] : {std::pair(1, kDxf), std::pair(2, kDwg)}) {
            values[0] = state;
            const Seen seen = RunSettings(command.call, IDYES);
            EXPECT_EQ(command.text + L"設定しますか。", seen.prompt.text);
            EXPECT_EQ(caption, seen.prompt.caption);
            EXPECT_EQ(command.title, seen.dialogTitle);
            EXPECT_EQ(L"", RunSettings(command.call, IDNO).dialogTitle);
        }
        values[0] = -1;
        const Seen seen = RunSettings(command.call, IDOK);
        EXPECT_EQ(command.text + L"処理を中断します。", seen.prompt.text);
        EXPECT_EQ(kDwg, seen.prompt.caption);
        EXPECT_EQ(L"", seen.dialogTitle);
    }
}

TEST_F(Entry, WarningsOfOtherKindsShowNothing) {
    EXPECT_EQ(L"警告", RunSettings([] { return DxfWarningDialog(1); }, IDYES).dialogTitle);
    for (const int kind : {0, 2, -1}) {
        const Seen seen = RunSettings([&] { return DxfWarningDialog(kind); }, IDYES);
        EXPECT_FALSE(seen.result || seen.prompted);
        EXPECT_EQ(L"", seen.dialogTitle);
    }
}

TEST_F(Entry, MessageBoxesShowTheHostsText) {
    Drive([] { ErrorMessageBox(-1); },
          [&] {
              const Box box = ReadBox();
              EXPECT_EQ(L" ", box.caption);
              EXPECT_FALSE(box.text.empty());
              EXPECT_EQ(static_cast<UINT>(MB_ICONERROR), box.icon);
              EXPECT_EQ(owner, GetWindow(box.window, GW_OWNER));
              Answer(box, IDOK);
          });
    const std::string euc = "\xC9\xBD\xC7\xBD";  // 表能
    std::string longText = "x";
    for (int i = 0; i < 100; ++i) longText += euc;
    Drive([&] { WarningMessageBox(longText.c_str(), euc.c_str()); },
          [&] {
              const Box box = ReadBox();
              EXPECT_EQ(L"表能", box.caption);
              EXPECT_EQ(static_cast<UINT>(MB_ICONWARNING), box.icon);
              std::wstring expected = L"x";  // 127 bytes: one, and 63 characters of two
              while (expected.size() < 64) expected += expected.size() % 2 ? L"表" : L"能";
              EXPECT_EQ(expected, box.text);
              Answer(box, IDOK);
          });
    Drive([] { WarningMessageBox("", ""); }, [&] { Answer(ReadBox(), IDOK); });
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

TEST_F(Entry, WorksWithoutAMainWindow) {
    KiroHostSetMainWindow(nullptr);
    EXPECT_FALSE(Drive([] { return DxfWarningDialog(1); }, [&] { Click(Settle(), IDCANCEL); }));
    EXPECT_FALSE(Drive([&] { return DxfLineTypeDialog(values); }, [&] { Click(Settle(), IDCANCEL); }));
}
