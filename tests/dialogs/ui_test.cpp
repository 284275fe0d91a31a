// The window layer under the dialogs, on a template of this program's own.
#include <clocale>
#include <new>

#include "tests/dialogs/TestHost.h"
#include "text/TextFormat.h"
#include "ui/MessageBoxes.h"
#include "ui/RadioGroup.h"
#include "ui/Text.h"

using namespace kiro::drive;
using kiro::ui::RadioGroup;

namespace {

constexpr int kTemplate = 100;
constexpr int kOne = 201, kTwo = 202, kThree = 203, kEdit = 204, kRun = 205;

class SampleDialog final : public kiro::ui::Dialog {
  public:
    explicit SampleDialog(std::function<void(SampleDialog&)> run)
        : Dialog(kTemplate), radios(*this, {kOne, kTwo, kThree}) {
        radios.OnChosen([this](int index) { chosen.push_back(index); });
        Bind(kEdit, EN_CHANGE, [this] { ++changes; });
        Bind(kRun, BN_CLICKED, [this, run] { run(*this); });
        BindFocus(kEdit, [this](bool gained) { focusLost += gained ? 0 : 1; });
    }
    void Fill(const char* text) {
        const Loading loading(*this);
        Item<kiro::ui::Edit>(kEdit).SetText(text);
    }
    RadioGroup radios;
    std::vector<int> chosen;
    int changes = 0;
    int focusLost = 0;
    using Dialog::End;

  private:
    void OnInit() override { radios.Select(1); }
};

class Ui : public TestHost {
  protected:
    INT_PTR Run(
        const std::function<void(HWND)>& user, std::function<void(SampleDialog&)> run = [](SampleDialog&) {}) {
        const kiro::ui::ScopedResourceModule module(GetModuleHandleW(nullptr));
        SampleDialog dialog(std::move(run));
        return Drive(
            [&] {
                const INT_PTR result = dialog.DoModal(owner);
                MSG message{};
                if (PeekMessageW(&message, nullptr, WM_QUIT, WM_QUIT, PM_REMOVE)) quit = message.wParam;
                return result;
            },
            [&] {
                sample = &dialog;
                user(Settle());
            });
    }
    SampleDialog* sample = nullptr;
    WPARAM quit = 0;  // that is there for the host's own loop
};

}  // namespace

TEST_F(Ui, RadioButtonsOfOwnGroupsStayExclusive) {
    EXPECT_EQ(IDOK, Run([&](HWND dialog) {
                  EXPECT_TRUE(IsChecked(dialog, kTwo) && !IsChecked(dialog, kOne) && !IsChecked(dialog, kThree));
                  Click(dialog, kThree);
                  EXPECT_TRUE(IsChecked(dialog, kThree) && !IsChecked(dialog, kTwo));
                  EXPECT_EQ(std::vector<int>{2}, sample->chosen);
                  // The arrow keys pass what is disabled, and go round; the focus alone chooses nothing.
                  EnableWindow(Control(dialog, kOne), FALSE);
                  for (const int key : {VK_DOWN, VK_LEFT}) {
                      Key(static_cast<WORD>(key));
                      EXPECT_EQ(key == VK_DOWN ? kTwo : kThree, FocusId());
                      EXPECT_TRUE(IsChecked(dialog, FocusId()));
                  }
                  EXPECT_EQ((std::vector<int>{2, 1, 2}), sample->chosen);
                  Focus(dialog, kTwo);
                  EXPECT_TRUE(IsChecked(dialog, kThree));
                  Click(dialog, IDOK);
              }));
}

TEST_F(Ui, FillingAControlFiresNoHandler) {
    Run(
        [&](HWND dialog) {
            Click(dialog, kRun);
            EXPECT_EQ(L"表示", Text(dialog, kEdit));
            EXPECT_EQ(0, sample->changes);
            Type(dialog, kEdit, L"x");
            EXPECT_EQ(1, sample->changes);
            Click(dialog, IDCANCEL);
        },
        [](SampleDialog& dialog) { dialog.Fill("表示"); });
}

TEST_F(Ui, OutOfMemoryEndsTheDialogAsCancelled) {
    EXPECT_EQ(IDCANCEL, Run([](HWND dialog) { Click(dialog, kRun); }, [](SampleDialog&) { throw std::bad_alloc(); }));
    EXPECT_TRUE(IsWindowEnabled(owner));
}

TEST_F(Ui, NothingRunsAfterTheEnd) {
    int lost = -1;
    Run([&](HWND dialog) {
        Focus(dialog, kEdit);
        Key(VK_ESCAPE);  // hides the window, which takes the focus from the edit
        Until("the end", [&] { return Settle() == nullptr; });
        lost = sample->focusLost;
    });
    EXPECT_EQ(0, lost);
    // The first result stands, also when the handler fails after it.
    EXPECT_EQ(IDOK, Run([](HWND dialog) { Click(dialog, kRun); },
                        [](SampleDialog& dialog) {
                            dialog.End(IDOK);
                            throw std::bad_alloc();
                        }));
}

TEST_F(Ui, QuestionsAreYesOrNo) {
    using kiro::ui::Default;
    for (const auto& [answer, button] : {std::pair(IDYES, Default::kYes), std::pair(IDNO, Default::kNo)}) {
        const auto ask = [&, preset = button] {
            return kiro::ui::Ask(owner, "保存しますか？", "線種設定", kiro::ui::Icon::kWarning, preset);
        };
        EXPECT_EQ(answer == IDYES, Drive(ask, [&, chosen = answer] {
                      const Box box = ReadBox();
                      EXPECT_EQ(L"保存しますか？", box.text);
                      EXPECT_EQ(static_cast<UINT>(MB_ICONWARNING), box.icon);
                      EXPECT_EQ((std::vector<int>{IDYES, IDNO}), box.buttons);
                      EXPECT_EQ(chosen, box.defaultButton);
                      Key(VK_RETURN);
                  }));
    }
}

// The quit ends what is open, as cancelled, and is there for the host's own loop; host_ways_test has the other ways.
TEST_F(Ui, AQuitInABoxAndADestroyedOwnerCancel) {
    const auto press = [](HWND dialog) {
        PostMessageW(Control(dialog, kRun), BM_CLICK, 0, 0);
        Until("the end", [] { return Settle() == nullptr; });
    };
    EXPECT_EQ(IDCANCEL, Run(press, [](SampleDialog& dialog) {
                  PostQuitMessage(77);
                  if (kiro::ui::Question(dialog.Handle(), "？", "") != kiro::ui::Answer::kNone) dialog.End(IDOK);
              }));
    EXPECT_EQ(77u, quit);
    EXPECT_TRUE(IsWindowEnabled(owner));
    EXPECT_EQ(IDCANCEL, Run(press, [this](SampleDialog& dialog) {
                  DestroyWindow(owner);
                  dialog.End(IDOK);
              }));
}

// A host program may have set the locale of the C library that all in the process use.
TEST(TextFormat, TheHostsLocaleDoesNotMoveThePoint) {
    ASSERT_TRUE(std::setlocale(LC_NUMERIC, "German_Germany"));
    const std::string comma = std::localeconv()->decimal_point;
    const std::string text = Formatted("%g %8.2f %g", 1.5, -2.25, 1e-7);
    std::setlocale(LC_NUMERIC, "C");
    ASSERT_EQ(",", comma);
    EXPECT_EQ("1.5    -2.25 1e-07", text);
}

TEST_F(Ui, TextIsNeverBentToFitTheCodePage) {
    EXPECT_EQ("\x95\x5C\x8A\x7C\xB1\x87\x40\xFB\xFC", kiro::ui::ToSjis(L"表掛ｱ①髙"));
    for (const wchar_t* foreign : {L"\x00E9", L"\x00A5", L"\x301C", L"\x2212", L"\xD842\xDF9F", L"\xD842", L"\x2014"}) {
        EXPECT_FALSE(kiro::ui::ToSjis(foreign)) << static_cast<int>(foreign[0]);
        EXPECT_EQ(foreign, kiro::ui::FirstForeignCharacter(std::wstring(L"表") + foreign));
    }
    EXPECT_EQ(L"", kiro::ui::FirstForeignCharacter(L"表～－"));
}
